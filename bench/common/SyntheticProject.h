// A synthetic project of realistic shape for benchmarks: many levels, each
// with obstacles holding sparse overrides, characters, coins, ground and
// background layers. The same seed gives the same project.
#pragma once

#include <tessaro/model/LevelRecords.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tessaro::bench {

struct SyntheticShape {
    int levels = 20;
    int obstaclesPerLevel = 500;
    int charactersPerLevel = 50;
    int coinsPerLevel = 100;
    int groundSectionsPerLevel = 30;
    int backgroundsPerLevel = 4;
    int checkpointsPerLevel = 5;
    std::uint64_t seed = 42;
    /// Catalogue names the items refer to.
    std::vector<std::string> obstacleNames = {"Crate", "Spikes", "Barrel", "Platform", "Rock"};
    std::vector<std::string> characterNames = {"Walker", "Flyer"};
    std::vector<std::string> groundImages = {"ground_grass", "ground_dirt"};
    std::vector<std::string> backgroundImages = {"sky", "hills_far", "hills_near", "trees"};
};

std::vector<Level> makeSyntheticProject(const SyntheticShape& shape = {});

} // namespace tessaro::bench
