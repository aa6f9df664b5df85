// A multiple choice: the chosen values joined by ", ", their number, and a
// popup list of every item with a check mark on the chosen ones. A click on
// an item takes it out of the list when it is in (every occurrence), else
// appends it, so the list keeps the order of the clicks.
#pragma once

#include <QStringList>
#include <QWidget>

namespace stagewright {

/// The list after a click on `value`.
QStringList toggledSelection(QStringList values, const QString& value);

class customMultiSelectCombo : public QWidget {
    Q_OBJECT
public:
    customMultiSelectCombo(const QString& label, const QStringList& items, QWidget* parent = nullptr);
    QStringList values() const;
    void setValues(const QStringList& values);
    /// Opens the popup list (for the keyboard and for tests).
    void showPopover();
signals:
    void valuesChanged(const QStringList& values);
};

} // namespace stagewright
