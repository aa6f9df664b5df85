// A titled section of a pane whose header hides and shows its rows.
#pragma once

#include <tessaro/model/Reflection.h>

#include <QWidget>

class QVBoxLayout;

namespace stagewright {

class ElidedLabel;

class PropertySection : public QWidget {
    Q_OBJECT
public:
    explicit PropertySection(const QString& title, QWidget* parent = nullptr);
    void addRow(QWidget* row);
    /// A line of text in the secondary colour.
    void addNote(const QString& text);
    /// A read-only line: the label, and the value in the secondary colour,
    /// whose label is returned for later values. A value too long for the
    /// line is cut short, whole in its tooltip.
    ElidedLabel* addValueRow(const QString& label, const QString& value = {});
    /// Field names and value texts of a read-only record; an empty table says
    /// "No properties defined for this element.".
    void addReflectionRows(const tessaro::ReflectionTable& table);

private:
    QWidget* m_body = nullptr;
    QVBoxLayout* m_rows = nullptr;
};

} // namespace stagewright
