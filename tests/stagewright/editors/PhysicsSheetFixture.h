// The physics sheet's tests: the editing ground of the inspector tests (a
// started state, a small workspace, a level of every kind on a real canvas
// scene) and a sheet opened on its selection.
#pragma once

#include "../inspector/EditingFixture.h"

#include <stagewright/editors/PhysicsSession.h>

#include <memory>

namespace stagewright::test {

struct PhysicsSheetFixture : EditingFixture {
    /// A sheet in `mode` on the front tab's selection, opened.
    std::unique_ptr<ImagePhysicsSession> open(PhysicsEditMode mode)
    {
        auto session = std::make_unique<ImagePhysicsSession>(mode, &front(), &settings->catalogues());
        session->loadPhysicsSession();
        return session;
    }

    /// A press, a drag and a release over the image.
    static void drag(ImagePhysicsSession& session, tessaro::PointValue from, tessaro::PointValue to)
    {
        session.setImageViewHovered(true);
        session.pointerDown(from);
        session.pointerDragged(to);
        session.pointerUp(to);
    }
    /// A click (press and release) over the image.
    static void click(ImagePhysicsSession& session, tessaro::PointValue at)
    {
        session.setImageViewHovered(true);
        session.pointerDown(at);
        session.pointerUp(at);
    }
};

} // namespace stagewright::test
