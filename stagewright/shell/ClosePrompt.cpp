#include "ClosePrompt.h"

#include <QPushButton>

namespace stagewright {

ClosePrompt::ClosePrompt(const QStringList& projectNames, QWidget* parent)
    : QMessageBox(QMessageBox::Warning, QString(), QString(), QMessageBox::NoButton, parent)
{
    setObjectName(QStringLiteral("closeQuestion"));
    setText(projectNames.size() == 1
                ? tr("Do you want to save the changes to “%1” before quitting?").arg(projectNames.front())
                : tr("Do you want to save the changes to %1 levels before quitting?").arg(projectNames.size()));
    QString informative = tr("Changes that are not saved will be lost.");
    if (projectNames.size() > 1)
        informative = projectNames.join(QLatin1Char('\n')) + QStringLiteral("\n\n") + informative;
    setInformativeText(informative);
    m_saveAll = addButton(tr("Save All"), QMessageBox::AcceptRole);
    m_discard = addButton(tr("Discard"), QMessageBox::DestructiveRole);
    m_cancel = addButton(tr("Cancel"), QMessageBox::RejectRole);
    setDefaultButton(m_saveAll);
    setEscapeButton(m_cancel);
}

QAbstractButton* ClosePrompt::button(CloseAnswer answer) const
{
    switch (answer) {
    case CloseAnswer::SaveAll: return m_saveAll;
    case CloseAnswer::Discard: return m_discard;
    case CloseAnswer::Cancel: return m_cancel;
    }
    return m_cancel;
}

CloseAnswer ClosePrompt::answer() const
{
    if (clickedButton() == m_saveAll)
        return CloseAnswer::SaveAll;
    if (clickedButton() == m_discard)
        return CloseAnswer::Discard;
    return CloseAnswer::Cancel;
}

CloseAnswer ClosePrompt::ask(const QStringList& projectNames, QWidget* parent)
{
    ClosePrompt prompt(projectNames, parent);
    prompt.exec();
    return prompt.answer();
}

} // namespace stagewright
