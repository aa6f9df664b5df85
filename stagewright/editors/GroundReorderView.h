// The ground order pane: the sections of the shown level's ground as rows
// the designer drags into another order; "Update" lays the ground in that
// order as one step of the history, "Cancel" drops it.
#pragma once

#include <stagewright/state/StateTypes.h>

#include <QDialog>

#include <vector>

class QListWidget;

namespace stagewright {

class SceneSettings;

/// The text of a row: name, image, stacking and repeats of a plain section;
/// name, type and distance of a hazard.
QString groundOrderRowText(const GroundOrderItem& item);

class GroundReorderView : public QDialog {
    Q_OBJECT
public:
    explicit GroundReorderView(SceneSettings& settings, QWidget* parent = nullptr);
    const std::vector<GroundOrderItem>& sets() const { return m_sets; }
    /// Moves the rows `from` to before row `to`, as a drag does.
    void moveRows(std::vector<int> from, int to);
    void update();
    void cancel();

private:
    void showRows();

    SceneSettings& m_settings;
    std::vector<GroundOrderItem> m_sets;
    QListWidget* m_list = nullptr;
};

/// Shows the pane while the settings present it.
void installGroundReorder(SceneSettings& settings, QWidget* window);

} // namespace stagewright
