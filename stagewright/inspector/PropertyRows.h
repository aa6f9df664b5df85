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
class ProjectTab;

/// Where a row reads and sends its value.
struct RowBinding {
    QPointer<ProjectTab> tab;
    SceneSettings* settings = nullptr;
    ModelType model = ModelType::Primary;
    /// Rows of the background pane go to the background records.
    bool background = false;
};

class PropertyRow : public QWidget {
    Q_OBJECT
public:
    PropertyRow(const RowEntry& entry, RowBinding binding, QWidget* parent = nullptr);
    const RowEntry& entry() const { return m_entry; }
    /// Shows the model's value without reporting a change.
    virtual void refresh() = 0;
    /// The label column, for rows that add controls beside it.
    QLabel* label() const { return m_label; }

protected:
    PropertyValue shown(PublishedElementList property) const;
    PropertyValue shown() const { return shown(m_entry.property); }
    /// The user changed `property` to `value`: one edit of the tab.
    void edited(PublishedElementList property, const PropertyValue& value);
    void edited(const PropertyValue& value) { edited(m_entry.property, value); }
    /// Puts the control beside the label.
    void setControl(QWidget* control);

    RowEntry m_entry;
    RowBinding m_binding;

private:
    QHBoxLayout* m_layout = nullptr;
    QLabel* m_label = nullptr;
};

/// The row widget of `entry`'s control.
PropertyRow* makePropertyRow(const RowEntry& entry, const RowBinding& binding, QWidget* parent = nullptr);

/// A pane of rows: it refreshes them all when its model changes.
class RowPane : public QWidget {
    Q_OBJECT
public:
    explicit RowPane(RowBinding binding, QWidget* parent = nullptr);
    /// Shows the models' values in every row.
    virtual void refresh();

protected:
    /// A row of `entry` for `model`, kept for refreshing.
    PropertyRow* makeRow(const RowEntry& entry, ModelType model);

    RowBinding m_binding;
    std::vector<PropertyRow*> m_rows;
};

} // namespace stagewright
