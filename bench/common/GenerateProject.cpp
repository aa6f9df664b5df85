// Writes a synthetic project file for benchmarks and manual trials:
//   tessaro-generate-project OUT [--levels N] [--obstacles N] [--characters N]
//                                [--coins N] [--ground N] [--seed N]
#include "SyntheticProject.h"

#include <tessaro/model/LevelFiles.h>

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: tessaro-generate-project OUT [--levels N] [--obstacles N] [--characters N] "
                   "[--coins N] [--ground N] [--seed N]\n",
                   stderr);
        return 1;
    }
    tessaro::bench::SyntheticShape shape;
    for (int i = 2; i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        const int value = std::atoi(argv[i + 1]);
        if (option == "--levels")
            shape.levels = value;
        else if (option == "--obstacles")
            shape.obstaclesPerLevel = value;
        else if (option == "--characters")
            shape.charactersPerLevel = value;
        else if (option == "--coins")
            shape.coinsPerLevel = value;
        else if (option == "--ground")
            shape.groundSectionsPerLevel = value;
        else if (option == "--seed")
            shape.seed = static_cast<std::uint64_t>(value);
        else {
            std::fprintf(stderr, "unknown option %s\n", option.c_str());
            return 1;
        }
    }
    return tessaro::saveLevels(tessaro::bench::makeSyntheticProject(shape), argv[1]) ? 0 : 1;
}
