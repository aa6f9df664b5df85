#include "HelpWindow.h"

#include "Windows.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSplitter>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace stagewright {

namespace {

constexpr int topicIndexRole = Qt::UserRole + 1;

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : HelpWindow(readHelpTopics(), parent) {}

HelpWindow::HelpWindow(std::vector<HelpTopic> topics, QWidget* parent)
    : QWidget(parent, Qt::Window),
      m_topics(std::move(topics))
{
    setObjectName(WindowId::help);
    setWindowTitle(tr("StageWright Help"));
    auto* layout = new QVBoxLayout(this);

    m_search = new QLineEdit(this);
    m_search->setObjectName(QStringLiteral("helpSearch"));
    m_search->setPlaceholderText(tr("Search the help"));
    m_search->setClearButtonEnabled(true);
    layout->addWidget(m_search);

    auto* splitter = new QSplitter(Qt::Vertical, this);
    m_table = new QTreeWidget(splitter);
    m_table->setObjectName(QStringLiteral("helpTable"));
    m_table->setHeaderLabels({tr("Category"), tr("Help Topic")});
    m_table->setRootIsDecorated(false);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setAlternatingRowColors(true);
    for (std::size_t i = 0; i < m_topics.size(); ++i) {
        auto* row = new QTreeWidgetItem(m_table, {m_topics[i].category, m_topics[i].helpTopic});
        row->setData(0, topicIndexRole, qulonglong(i));
    }
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(0, Qt::AscendingOrder);
    m_table->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);

    auto* answer = new QWidget(splitter);
    auto* answerLayout = new QVBoxLayout(answer);
    answerLayout->setContentsMargins(0, 6, 0, 0);
    m_title = new QLabel(answer);
    m_title->setObjectName(QStringLiteral("helpTitle"));
    m_title->setWordWrap(true);
    QFont titleFont = m_title->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.3);
    m_title->setFont(titleFont);
    m_description = new QTextBrowser(answer);
    m_description->setObjectName(QStringLiteral("helpDescription"));
    answerLayout->addWidget(m_title);
    answerLayout->addWidget(m_description, 1);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    layout->addWidget(splitter, 1);

    connect(m_search, &QLineEdit::textChanged, this, &HelpWindow::filter);
    connect(m_table, &QTreeWidget::itemSelectionChanged, this, &HelpWindow::showSelection);
    resize(760, 620);
}

void HelpWindow::filter(const QString& search)
{
    QTreeWidgetItem* firstShown = nullptr;
    for (int i = 0; i < m_table->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = m_table->topLevelItem(i);
        const HelpTopic& topic = m_topics[row->data(0, topicIndexRole).toULongLong()];
        const bool shown = topicMatches(topic, search);
        row->setHidden(!shown);
        if (shown && !firstShown)
            firstShown = row;
    }
    // A search that leaves the selected topic out selects the first it keeps.
    const QList<QTreeWidgetItem*> selected = m_table->selectedItems();
    if (firstShown && (selected.isEmpty() || selected.front()->isHidden()))
        m_table->setCurrentItem(firstShown);
}

void HelpWindow::showSelection()
{
    const QList<QTreeWidgetItem*> selected = m_table->selectedItems();
    // With no selection the last topic stays shown.
    if (selected.isEmpty())
        return;
    const HelpTopic& topic = m_topics[selected.front()->data(0, topicIndexRole).toULongLong()];
    m_title->setText(topic.helpTopic);
    m_description->setPlainText(topic.answer);
}

QString HelpWindow::shownTitle() const
{
    return m_title->text();
}

QString HelpWindow::shownDescription() const
{
    return m_description->toPlainText();
}

QStringList HelpWindow::visibleTopics() const
{
    QStringList shown;
    for (int i = 0; i < m_table->topLevelItemCount(); ++i)
        if (!m_table->topLevelItem(i)->isHidden())
            shown << m_table->topLevelItem(i)->text(1);
    return shown;
}

} // namespace stagewright
