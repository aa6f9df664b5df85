// The row widgets of the inspector: a bold label 150 wide and one control per
// kind of value. A row shows the field of its model and hands each change to
// the edit routing; it holds no value of its own.
#pragma once

#include "PropertyValue.h"
#include "RowTable.h"

#include <QPointer>
#include <QWidget>

class QHBoxLayout;
class QLabel;

namespace stagewright {

class SceneSettings;
class projectTab;

/// Where a row reads and sends its value.
struct rowBinding {
    QPointer<projectTab> tab;
    SceneSettings* settings = nullptr;
    modelType model = modelType::Primary;
    /// Rows of the background pane go to the background records.
    bool background = false;
};

class PropertyRow : public QWidget {
    Q_OBJECT
public:
    PropertyRow(const rowEntry& entry, rowBinding binding, QWidget* parent = nullptr);
    const rowEntry& entry() const { return m_entry; }
    /// Shows the model's value without reporting a change.
    virtual void refresh() = 0;
    /// The label column, for rows that add controls beside it.
    QLabel* label() const { return m_label; }

protected:
    propertyValue shown(publishedElementList property) const;
    propertyValue shown() const { return shown(m_entry.property); }
    /// The user changed `property` to `value`: one edit of the tab.
    void edited(publishedElementList property, const propertyValue& value);
    void edited(const propertyValue& value) { edited(m_entry.property, value); }
    /// Puts the control beside the label.
    void setControl(QWidget* control);

    rowEntry m_entry;
    rowBinding m_binding;

private:
    QHBoxLayout* m_layout = nullptr;
    QLabel* m_label = nullptr;
};

/// The row widget of `entry`'s control.
PropertyRow* makePropertyRow(const rowEntry& entry, const rowBinding& binding, QWidget* parent = nullptr);

/// A pane of rows: it refreshes them all when its model changes.
class RowPane : public QWidget {
    Q_OBJECT
public:
    explicit RowPane(rowBinding binding, QWidget* parent = nullptr);
    /// Shows the models' values in every row.
    virtual void refresh();

protected:
    /// A row of `entry` for `model`, kept for refreshing.
    PropertyRow* makeRow(const rowEntry& entry, modelType model);

    rowBinding m_binding;
    std::vector<PropertyRow*> m_rows;
};

} // namespace stagewright
