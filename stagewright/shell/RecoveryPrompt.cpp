#include "RecoveryPrompt.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
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
    m_list->setHeaderLabels({tr("Level"), tr("Changed"), tr("File"), tr("Action")});
    m_list->setRootIsDecorated(false);
    m_list->setSelectionMode(QAbstractItemView::NoSelection);
    const QLocale locale;
    for (const RecoveryEntry& entry : entries) {
        auto* item = new QTreeWidgetItem(m_list);
        item->setText(0, entry.name);
        item->setText(1, locale.toString(entry.savedAt.toLocalTime(), QLocale::ShortFormat));
        item->setText(2, entry.originalPath ? *entry.originalPath : tr("Not saved"));
        item->setToolTip(2, item->text(2));
        auto* choice = new QComboBox(m_list);
        choice->setObjectName(QStringLiteral("recoveryChoice"));
        choice->addItem(tr("Recover"), int(RecoveryAnswer::Recover));
        choice->addItem(tr("Discard"), int(RecoveryAnswer::Discard));
        choice->addItem(tr("Keep for later"), int(RecoveryAnswer::Later));
        m_list->setItemWidget(item, 3, choice);
        m_choices.push_back(choice);
    }
    // The file takes the room the other columns leave.
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(2, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(3, QHeaderView::ResizeToContents);

    auto* buttons = new QDialogButtonBox(this);
    m_continue = buttons->addButton(tr("Continue"), QDialogButtonBox::AcceptRole);
    m_later = buttons->addButton(tr("Later"), QDialogButtonBox::RejectRole);
    m_continue->setDefault(true);
    connect(m_continue, &QPushButton::clicked, this, [this] {
        m_continued = true;
        accept();
    });
    connect(m_later, &QPushButton::clicked, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(explanation);
    layout->addWidget(m_list, 1);
    layout->addWidget(new QLabel(tr("Recovered levels open with their changes; their files stay as they are "
                                    "until you save. A project kept for later is offered again at the next "
                                    "start, and Later keeps them all."),
                                 this));
    layout->addWidget(buttons);
    for (QLabel* label : findChildren<QLabel*>())
        label->setWordWrap(true);
}

QComboBox* RecoveryPrompt::choice(int row) const
{
    return row >= 0 && row < int(m_choices.size()) ? m_choices[std::size_t(row)] : nullptr;
}

std::vector<RecoveryAnswer> RecoveryPrompt::answers() const
{
    std::vector<RecoveryAnswer> answers;
    for (const QComboBox* choice : m_choices)
        answers.push_back(m_continued ? RecoveryAnswer(choice->currentData().toInt()) : RecoveryAnswer::Later);
    return answers;
}

std::vector<RecoveryAnswer> RecoveryPrompt::ask(const std::vector<RecoveryEntry>& entries, QWidget* parent)
{
    RecoveryPrompt prompt(entries, parent);
    prompt.exec();
    return prompt.answers();
}

bool RecoveryPrompt::askReplace(const RecoveryEntry& entry, QWidget* parent)
{
    QMessageBox question(QMessageBox::Question, tr("Recover Unsaved Changes"),
                         tr("\u201c%1\u201d is open with unsaved changes of its own.").arg(entry.name),
                         QMessageBox::NoButton, parent);
    question.setObjectName(QStringLiteral("recoveryReplaceQuestion"));
    question.setInformativeText(tr("Replace them with the recovered changes? Undo brings them back. Kept, the "
                                   "recovered changes are offered again at the next start."));
    QPushButton* replace = question.addButton(tr("Replace"), QMessageBox::AcceptRole);
    question.addButton(tr("Keep Open Changes"), QMessageBox::RejectRole);
    question.setDefaultButton(replace);
    question.exec();
    return question.clickedButton() == replace;
}

std::optional<std::vector<RecoveryAnswer>> offerRecovery(SceneSettings& settings, RecoveryStore& store,
                                                         Autosave& autosave, const RecoveryQuestion& ask,
                                                         const ReplaceQuestion& mayReplace)
{
    const std::vector<RecoveryEntry> entries = store.orphans();
    if (entries.empty())
        return std::nullopt;
    std::vector<RecoveryAnswer> answers = ask(entries);
    answers.resize(entries.size(), RecoveryAnswer::Later);
    std::vector<RecoveryEntry> recovered;
    std::vector<RecoveryEntry> discarded;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (answers[i] == RecoveryAnswer::Recover)
            recovered.push_back(entries[i]);
        else if (answers[i] == RecoveryAnswer::Discard)
            discarded.push_back(entries[i]);
    }
    discardProjects(store, discarded);
    recoverProjects(settings, store, autosave, recovered, mayReplace);
    return answers;
}

} // namespace stagewright
