// The sheet "Statistics": how many scenes the front project has, and how
// many obstacles, coins, artifacts, checkpoints, enemies and friendlies the
// shown scene and all scenes hold now, unsaved placements included.
#pragma once

#include <QDialog>

class QLabel;

namespace stagewright {

class ProjectTab;

class StatisticsView : public QDialog {
    Q_OBJECT
public:
    explicit StatisticsView(const ProjectTab& tab, QWidget* parent = nullptr);
    /// Opens the sheet over `parent` with the shown level's scene written
    /// back first; it deletes itself when closed.
    static StatisticsView* present(ProjectTab& tab, QWidget* parent);

    /// The number shown in a row: "Scenes in Level", or a row of the group
    /// of the shown scene (`allLevels` false) or of all scenes.
    QString scenesText() const;
    QString countText(bool allLevels, const QString& row) const;

private:
    QLabel* m_scenes = nullptr;
};

} // namespace stagewright
