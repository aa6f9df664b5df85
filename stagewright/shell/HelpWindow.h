// "StageWright Help": a table of the help topics by category, a search field
// that keeps the topics naming every word typed, and the selected topic's
// question and answer below.
#pragma once

#include "HelpTopics.h"

#include <QWidget>

#include <vector>

class QLabel;
class QLineEdit;
class QTextBrowser;
class QTreeWidget;

namespace stagewright {

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    /// Shows the topics of the help file the program carries.
    explicit HelpWindow(QWidget* parent = nullptr);
    HelpWindow(std::vector<HelpTopic> topics, QWidget* parent = nullptr);

    const std::vector<HelpTopic>& topics() const { return m_topics; }
    QLineEdit* searchField() const { return m_search; }
    QTreeWidget* table() const { return m_table; }
    /// The question and the answer of the selected topic.
    QString shownTitle() const;
    QString shownDescription() const;
    /// The questions of the rows the search keeps, in the table's order.
    QStringList visibleTopics() const;

private:
    void filter(const QString& search);
    void showSelection();

    std::vector<HelpTopic> m_topics;
    QLineEdit* m_search = nullptr;
    QTreeWidget* m_table = nullptr;
    QLabel* m_title = nullptr;
    QTextBrowser* m_description = nullptr;
};

} // namespace stagewright
