// The inspector tests' ground: a started application state whose tabs edit
// their levels on real canvas scenes, in a small workspace of known images
// and catalogue records, with editing installed as the editor installs it,
// and a level holding one element of every kind.
#pragma once

#include "support/ScratchHome.h"

#include <stagewright/inspector/EditRouting.h>
#include <stagewright/scene/SceneTestSupport.h>
#include <stagewright/state/SceneSettings.h>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

namespace stagewright::test {

struct EditingFixture : ::testing::Test {
    std::unique_ptr<testing_support::ScratchHome> home;
    std::unique_ptr<SceneSettings> settings;
    std::optional<SceneWorkspace> workspace;

    void SetUp() override;
    void TearDown() override;

    /// One element of each kind: an obstacle "crate" at (100,0), a character
    /// "walker" at (-100,0), a coin, a checkpoint, a shield, an artifact, a
    /// ground section of "grass" and a background "sky".
    static tessaro::Level everyKind();
    /// Shows `levels` in the front tab, the first level on the canvas, with
    /// an empty history at its clean point.
    void show(std::vector<tessaro::Level> levels);

    ProjectTab& front() const { return *settings->selectedProjectTab(); }
    SceneEditor& scene() const;
    EditRouting edits() const { return EditRouting(front(), &settings->clipboard()); }
    /// Selects the first element of `kind` as a click does; returns it.
    ElementNodePtr select(tessaro::sceneObjectType kind);
    /// The element of the selection.
    ElementNodePtr selected() const { return scene().selectedNode(); }
    /// The shown level as a save would write it.
    tessaro::Level saved();
};

/// The level with the ids that every write-back makes anew taken out, so two
/// write-backs of the same scene compare equal.
tessaro::Level comparable(tessaro::Level level);

} // namespace stagewright::test
