// The catalogue record behind a selected element, read-only: the record, its
// animation, rotation, device entries and physics shapes as tables.
#pragma once

#include <stagewright/state/SelectionModels.h>

#include <tessaro/model/Reflection.h>

#include <QDialog>

#include <optional>

namespace stagewright {

/// The animation of a catalogue record as a table; an empty table when the
/// record has none.
tessaro::ReflectionTable baseAnimationTable(const DefaultViewRecord& record);

class BaseElementPropertiesView : public QDialog {
    Q_OBJECT
public:
    explicit BaseElementPropertiesView(const DefaultViewRecord& record, QWidget* parent = nullptr);
signals:
    /// "Physics": the shapes of the catalogue record are to be edited.
    void physicsRequested();
};

} // namespace stagewright
