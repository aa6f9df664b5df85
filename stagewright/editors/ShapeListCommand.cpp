#include "ShapeListCommand.h"

#include "PhysicsSession.h"

namespace stagewright {

namespace {
constexpr int shapeFieldMergeId = 3000;
}

ShapeListCommand::ShapeListCommand(ImagePhysicsSession& session, std::vector<PhysicsElement> before,
                                   std::vector<PhysicsElement> after, const QString& text, int field,
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

void ShapeListCommand::redoStep()
{
    if (m_done) {
        m_done = false;
        return;
    }
    m_session.restoreElements(m_after);
}

void ShapeListCommand::undo()
{
    m_session.restoreElements(m_before);
}

int ShapeListCommand::id() const
{
    return m_field > 0 ? shapeFieldMergeId + m_field : -1;
}

bool ShapeListCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const ShapeListCommand*>(other);
    if (!later || later->m_field != m_field || later->m_shape != m_shape || later->m_vertex != m_vertex)
        return false;
    m_after = later->m_after;
    setObsolete(m_after == m_before);
    return true;
}

} // namespace stagewright
