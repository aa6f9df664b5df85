#include "ShapeListCommand.h"

#include "PhysicsSession.h"

namespace stagewright {

namespace {
constexpr int shapeFieldMergeId = 3000;
}

shapeListCommand::shapeListCommand(imagePhysicsSession& session, std::vector<physicsElement> before,
                                   std::vector<physicsElement> after, const QString& text, int field,
                                   tessaro::Uuid shape, std::size_t vertex)
    : m_session(session),
      m_before(std::move(before)),
      m_after(std::move(after)),
      m_field(field),
      m_shape(shape),
      m_vertex(vertex)
{
    setText(text);
}

void shapeListCommand::redoStep()
{
    if (m_done) {
        m_done = false;
        return;
    }
    m_session.restoreElements(m_after);
}

void shapeListCommand::undo()
{
    m_session.restoreElements(m_before);
}

int shapeListCommand::id() const
{
    return m_field > 0 ? shapeFieldMergeId + m_field : -1;
}

bool shapeListCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const shapeListCommand*>(other);
    if (!later || later->m_field != m_field || later->m_shape != m_shape || later->m_vertex != m_vertex)
        return false;
    m_after = later->m_after;
    setObsolete(m_after == m_before);
    return true;
}

} // namespace stagewright
