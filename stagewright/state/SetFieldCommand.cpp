#include "SetFieldCommand.h"

#include "LevelDocument.h"

namespace stagewright {

namespace {
/// The merge id of field steps; which field is checked in mergeWith.
constexpr int setFieldMergeId = 4000;
} // namespace

SetFieldCommand::SetFieldCommand(LevelDocument& document, const tessaro::Uuid& levelId, tessaro::FieldPath path,
                                 tessaro::FieldValue value, const QString& text, bool joins)
    : HistoryStep(text),
      m_document(&document),
      m_levelId(levelId),
      m_path(std::move(path)),
      m_after(std::move(value)),
      m_joins(joins)
{
}

void SetFieldCommand::redoStep()
{
    if (!m_document)
        return;
    if (m_done) {
        show();
        write(m_after);
        return;
    }
    // A field that is not there, a value it already holds or a value of
    // another type: no step.
    if (!m_document->readField(m_levelId, m_path, m_before) || m_document->fieldHolds(m_levelId, m_path, m_after) ||
        !m_document->writeField(m_levelId, m_path, m_after)) {
        setObsolete(true);
        return;
    }
    m_done = true;
    if (m_follow)
        m_follow();
}

void SetFieldCommand::undo()
{
    if (!m_document || !m_done)
        return;
    show();
    write(m_before);
}

void SetFieldCommand::write(const tessaro::FieldValue& value)
{
    m_document->writeField(m_levelId, m_path, value);
    if (m_follow)
        m_follow();
}

void SetFieldCommand::show() const
{
    if (m_showLevel)
        m_showLevel(m_levelId);
}

int SetFieldCommand::id() const
{
    return m_joins ? setFieldMergeId : -1;
}

bool SetFieldCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const SetFieldCommand*>(other);
    if (!later || !later->m_done || !later->m_joins || later->m_document != m_document ||
        later->m_levelId != m_levelId || later->m_path != m_path || later->m_run != m_run)
        return false;
    m_after = later->m_after;
    setObsolete(m_document->fieldHolds(m_levelId, m_path, m_before));
    return true;
}

} // namespace stagewright
