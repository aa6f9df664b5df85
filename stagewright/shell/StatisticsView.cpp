#include "StatisticsView.h"

#include <stagewright/state/LevelStatistics.h>
#include <stagewright/state/ProjectTab.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

QString countName(bool allLevels, const QString& row)
{
    return (allLevels ? QStringLiteral("all.") : QStringLiteral("selected.")) + row;
}

QLabel* number(long long value, QWidget* parent)
{
    auto* label = new QLabel(QString::asprintf("%lld", value), parent);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(60);
    return label;
}

} // namespace

StatisticsView::StatisticsView(const ProjectTab& tab, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("statisticsView"));
    setWindowTitle(tr("Statistics"));
    setWindowModality(Qt::WindowModal);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(12);

    auto* scenes = new QFormLayout;
    m_scenes = number(static_cast<long long>(tab.levelConfig().size()), this);
    m_scenes->setObjectName(QStringLiteral("scenesInLevel"));
    scenes->addRow(tr("Scenes in Level"), m_scenes);
    layout->addLayout(scenes);

    auto* groups = new QHBoxLayout;
    for (bool allLevels : {false, true}) {
        auto* group = new QGroupBox(allLevels ? tr("All Scenes") : tr("Currently Selected Scene"), this);
        auto* rows = new QFormLayout(group);
        rows->setLabelAlignment(Qt::AlignLeft);
        for (const StatisticsRow& row : statisticsRows()) {
            QLabel* count = number(countElements(tab, row.selector, allLevels), group);
            count->setObjectName(countName(allLevels, QString::fromUtf8(row.title)));
            rows->addRow(tr(row.title), count);
        }
        groups->addWidget(group);
    }
    layout->addLayout(groups);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* close = buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("closeButton"));
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

StatisticsView* StatisticsView::present(ProjectTab& tab, QWidget* parent)
{
    writeBackShownLevel(tab);
    auto* sheet = new StatisticsView(tab, parent);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
    return sheet;
}

QString StatisticsView::scenesText() const
{
    return m_scenes->text();
}

QString StatisticsView::countText(bool allLevels, const QString& row) const
{
    const auto* label = findChild<QLabel*>(countName(allLevels, row));
    return label ? label->text() : QString();
}

} // namespace stagewright
