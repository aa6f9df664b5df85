// The "Animation" tab of obstacles and characters: the catalogue's animation,
// read-only, the sections of the element's own animation values, and the
// sheet of its cycle ends. When the element's picture is not in the
// workspace, the pane says so in an alert the first time it shows.
#pragma once

#include "PropertyRows.h"

#include <QDialog>

class QComboBox;
class QMessageBox;

namespace stagewright {

class AnimationPropertyView : public RowPane {
    Q_OBJECT
public:
    explicit AnimationPropertyView(RowBinding binding, QWidget* parent = nullptr);
    /// The alert that the element's picture is not in the workspace, while it shows.
    QMessageBox* imageMissingAlert() const;

protected:
    /// The first time the pane shows, a picture that cannot be found is said.
    void showEvent(QShowEvent* event) override;

private:
    QPointer<QMessageBox> m_imageMissing;
    bool m_imageChecked = false;
};

/// The cycle ends of the element's animation: a list to pick one, buttons to
/// add and delete, and the values of the picked one.
class AnimationCycleEndView : public QDialog {
    Q_OBJECT
public:
    explicit AnimationCycleEndView(RowBinding binding, QWidget* parent = nullptr);
    void refresh();

private:
    void edit(PublishedElementList element, const PropertyValue& value);

    RowBinding m_binding;
    QComboBox* m_list = nullptr;
    RowPane* m_rows = nullptr;
};

} // namespace stagewright
