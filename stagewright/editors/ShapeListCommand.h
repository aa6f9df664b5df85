// A step of the physics sheet's own history: the list of shapes before and
// after one change. The change has been made when the step is pushed; undo
// and redo put the lists back through the session.
#pragma once

#include "PhysicsElements.h"

#include <stagewright/state/HistoryStep.h>

#include <cstddef>
#include <vector>

namespace stagewright {

class ImagePhysicsSession;

class ShapeListCommand : public HistoryStep {
public:
    /// `field` > 0 joins the step with the next one that changes the same
    /// field of the same shape (and vertex), so typing a number is one step.
    ShapeListCommand(ImagePhysicsSession& session, std::vector<PhysicsElement> before,
                     std::vector<PhysicsElement> after, const QString& text, int field = 0,
                     tessaro::Uuid shape = tessaro::Uuid::create(), std::size_t vertex = 0);
    void redoStep() override;
    void undo() override;
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

private:
    ImagePhysicsSession& m_session;
    std::vector<PhysicsElement> m_before;
    std::vector<PhysicsElement> m_after;
    int m_field;
    tessaro::Uuid m_shape;
    std::size_t m_vertex;
    bool m_done = true; // the change was made before the push
};

} // namespace stagewright
