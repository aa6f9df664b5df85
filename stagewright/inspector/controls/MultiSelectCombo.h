// A multiple choice: the chosen values joined by ", " (or another
// separator), their number, and a
// popup list of every item with a check mark on the chosen ones. A click on
// an item takes it out of the list when it is in (every occurrence), else
// appends it, so the list keeps the order of the clicks.
#pragma once

#include <QStringList>
#include <QWidget>

class QFrame;
class QLabel;
class QListWidget;
class QPushButton;

namespace stagewright {

class ElidedLabel;

/// The list after a click on `value`.
QStringList toggledSelection(QStringList values, const QString& value);

class CustomMultiSelectCombo : public QWidget {
    Q_OBJECT
public:
    CustomMultiSelectCombo(const QString& label, const QStringList& items, QWidget* parent = nullptr);
    QStringList values() const;
    void setValues(const QStringList& values);
    /// What the row puts between the chosen values.
    void setSeparator(const QString& separator);
    /// Opens the popup list (for the keyboard and for tests).
    void showPopover();
    bool isPopover() const;
    /// The popup list, made when it is first opened.
    QListWidget* popoverList() const { return m_list; }
signals:
    /// The user clicked an item of the list.
    void valuesChanged(const QStringList& values);
    /// The item the user clicked, before `valuesChanged`.
    void itemClicked(const QString& item);

private:
    void click(const QString& item);
    void refresh();

    QStringList m_items;
    QStringList m_values;
    QString m_separator = QStringLiteral(", ");
    QPushButton* m_row = nullptr;
    ElidedLabel* m_text = nullptr;
    QLabel* m_count = nullptr;
    QFrame* m_popover = nullptr;
    QListWidget* m_list = nullptr;
};

} // namespace stagewright
