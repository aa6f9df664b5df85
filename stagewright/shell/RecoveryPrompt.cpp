#include "RecoveryPrompt.h"

#include <stagewright/state/ProjectRecovery.h>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace stagewright {

RecoveryPrompt::RecoveryPrompt(const std::vector<RecoveryEntry>& entries, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("recoveryPrompt"));
    setWindowTitle(tr("Recover Unsaved Changes"));
    setWindowModality(Qt::WindowModal);
    resize(620, 320);

    auto* heading = new QLabel(tr("StageWright did not quit normally last time."), this);
    QFont bold = heading->font();
    bold.setBold(true);
    heading->setFont(bold);
    auto* explanation = new QLabel(entries.size() == 1 ? tr("This level has changes that were not saved:")
                                                       : tr("These levels have changes that were not saved:"),
                                   this);

    m_list = new QTreeWidget(this);
    m_list->setObjectName(QStringLiteral("recoveryList"));
    m_list->setHeaderLabels({tr("Level"), tr("Changed"), tr("File")});
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    m_list->setFocusPolicy(Qt::NoFocus);
    const QLocale locale;
    for (const RecoveryEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(m_list);
        item->setText(0, entry.name);
        item->setText(1, locale.toString(entry.savedAt.toLocalTime(), QLocale::ShortFormat));
        item->setText(2, entry.originalPath ? *entry.originalPath : tr("Not saved"));
        item->setToolTip(2, item->text(2));
    }
    m_list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);

    auto* buttons = new QDialogButtonBox(this);
    m_recover = buttons->addButton(tr("Recover"), QDialogButtonBox::AcceptRole);
    m_later = buttons->addButton(tr("Later"), QDialogButtonBox::RejectRole);
    m_discard = buttons->addButton(tr("Discard"), QDialogButtonBox::DestructiveRole);
    m_recover->setDefault(true);
    connect(m_recover, &QPushButton::clicked, this, [this] { choose(RecoveryAnswer::Recover); });
    connect(m_discard, &QPushButton::clicked, this, [this] { choose(RecoveryAnswer::Discard); });
    connect(m_later, &QPushButton::clicked, this, [this] { choose(RecoveryAnswer::Later); });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(explanation);
    layout->addWidget(m_list, 1);
    layout->addWidget(new QLabel(tr("Recovered levels open with their changes; their files stay as they are "
                                    "until you save. Later keeps the changes for the next start."),
                                 this));
    layout->addWidget(buttons);
    for (QLabel* label : findChildren<QLabel*>())
        label->setWordWrap(true);
}

QPushButton* RecoveryPrompt::button(RecoveryAnswer answer) const
{
    switch (answer) {
    case RecoveryAnswer::Recover: return m_recover;
    case RecoveryAnswer::Discard: return m_discard;
    case RecoveryAnswer::Later: return m_later;
    }
    return m_later;
}

void RecoveryPrompt::choose(RecoveryAnswer answer)
{
    m_answer = answer;
    if (answer == RecoveryAnswer::Later)
        reject();
    else
        accept();
}

RecoveryAnswer RecoveryPrompt::ask(const std::vector<RecoveryEntry>& entries, QWidget* parent)
{
    RecoveryPrompt prompt(entries, parent);
    prompt.exec();
    return prompt.answer();
}

std::optional<RecoveryAnswer> offerRecovery(SceneSettings& settings, RecoveryStore& store, Autosave& autosave,
                                            const RecoveryQuestion& ask)
{
    const std::vector<RecoveryEntry> entries = store.orphans();
    if (entries.empty())
        return std::nullopt;
    const RecoveryAnswer answer = ask(entries);
    switch (answer) {
    case RecoveryAnswer::Recover: recoverProjects(settings, store, autosave, entries); break;
    case RecoveryAnswer::Discard: discardProjects(store, entries); break;
    case RecoveryAnswer::Later: break;
    }
    return answer;
}

} // namespace stagewright
