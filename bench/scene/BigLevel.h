// The big level the canvas benchmarks work on: a workspace with the synthetic
// project's images and catalogues, and one level of 2,000 obstacles, 200
// characters, 500 coins, 100 ground sections and 4 backgrounds in a tab.
#pragma once

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>

#include <QTemporaryDir>

#include <memory>

namespace tessaro::bench {

struct BigLevel {
    BigLevel();

    /// A new scene with the level loaded (its images read once before).
    std::shared_ptr<stagewright::SceneEditor> loadedScene();

    QTemporaryDir scratch;
    QString workspace;
    std::unique_ptr<stagewright::ProjectTab> tab;
    tessaro::Uuid levelId;
};

} // namespace tessaro::bench
