#include "GroundReorderView.h"

#include "GroundOrder.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>
#include <stagewright/state/StateDiagnostics.h>
#include <stagewright/state/WorkspaceImages.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace stagewright {

using tessaro::groundBaseType;

QString groundOrderRowText(const GroundOrderItem& item)
{
    if (item.groundType == groundBaseType::Ground)
        return GroundReorderView::tr("Name: %1\nImage: %2\nStacked: %3\nRepeat Times: %4")
            .arg(item.name, item.image, item.stacked ? QStringLiteral("true") : QStringLiteral("false"))
            .arg(item.repeatCount);
    return GroundReorderView::tr("Name: %1\nGround Type: %2\nDistance: {%3, %4}")
        .arg(item.name, QString::fromUtf8(tessaro::caseText(item.groundType)))
        .arg(item.distance.width)
        .arg(item.distance.height);
}

GroundReorderView::GroundReorderView(SceneSettings& settings, QWidget* parent)
    : QDialog(parent),
      m_settings(settings),
      m_sets(settings.groundOrderItems())
{
    setObjectName(QStringLiteral("groundReorderView"));
    setWindowTitle(tr("Ground Sort Order"));
    resize(420, 520);
    auto* layout = new QVBoxLayout(this);
    auto* buttons = new QHBoxLayout;
    auto* updateButton =
        new QPushButton(QIcon::fromTheme(QStringLiteral("view-sort-ascending")), tr("Update\nSort order"));
    updateButton->setObjectName(QStringLiteral("updateButton"));
    auto* cancelButton = new QPushButton(QIcon::fromTheme(QStringLiteral("window-close")), tr("Cancel"));
    for (QPushButton* button : {updateButton, cancelButton})
        button->setFixedSize(90, 80);
    buttons->addWidget(updateButton);
    auto* divider = new QFrame;
    divider->setFrameShape(QFrame::VLine);
    divider->setFixedSize(2, 40);
    buttons->addWidget(divider);
    buttons->addWidget(cancelButton);
    buttons->addStretch();
    layout->addLayout(buttons);
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    layout->addWidget(line);

    auto* stack = new QStackedLayout;
    m_list = new QListWidget;
    m_list->setObjectName(QStringLiteral("groundRows"));
    m_list->setDragDropMode(QAbstractItemView::InternalMove);
    m_list->setIconSize(QSize(120, 80));
    stack->addWidget(m_list);
    auto* empty = new QLabel(tr("No ground elements to be sorted."));
    empty->setAlignment(Qt::AlignCenter);
    stack->addWidget(empty);
    stack->setCurrentWidget(m_sets.empty() ? static_cast<QWidget*>(empty) : m_list);
    layout->addLayout(stack, 1);

    connect(updateButton, &QPushButton::clicked, this, &GroundReorderView::update);
    connect(cancelButton, &QPushButton::clicked, this, &GroundReorderView::cancel);
    connect(m_list->model(), &QAbstractItemModel::rowsMoved, this,
            [this](const QModelIndex&, int start, int end, const QModelIndex&, int row) {
                std::vector<int> from;
                for (int i = start; i <= end; ++i)
                    from.push_back(i);
                // The list has moved its rows already; only the sets follow.
                const QSignalBlocker quiet(m_list->model());
                m_sets = movedItems(std::move(m_sets), from, row);
                QStringList names;
                for (const GroundOrderItem& item : m_sets)
                    names << item.name;
                diagnosticLine(QStringLiteral("sets: [%1]   from: %2, to: %3")
                                   .arg(names.join(QStringLiteral(", ")))
                                   .arg(start)
                                   .arg(row));
            });
    showRows();
}

void GroundReorderView::showRows()
{
    const QSignalBlocker quiet(m_list->model());
    m_list->clear();
    for (const GroundOrderItem& item : m_sets) {
        auto* row = new QListWidgetItem(groundOrderRowText(item), m_list);
        const std::optional<QImage> thumbnail = loadThumbnail(item.filename, {}, tessaro::sceneObjectType::ground);
        if (thumbnail)
            row->setIcon(QIcon(QPixmap::fromImage(thumbnail->scaled(50, 50, Qt::KeepAspectRatio))));
    }
}

void GroundReorderView::moveRows(std::vector<int> from, int to)
{
    m_sets = movedItems(std::move(m_sets), std::move(from), to);
    showRows();
}

void GroundReorderView::update()
{
    m_settings.setGroundInspectorPresented(false);
    if (const auto tab = m_settings.selectedProjectTab())
        applyGroundOrder(*tab, m_sets);
    accept();
}

void GroundReorderView::cancel()
{
    m_settings.setGroundInspectorPresented(false);
    reject();
}

void installGroundReorder(SceneSettings& settings, QWidget* window)
{
    QObject::connect(&settings, &SceneSettings::isGroundInspectorPresentedChanged, window, [&settings, window] {
        if (!settings.isGroundInspectorPresented())
            return;
        collectGroundOrderItems(settings);
        auto* pane = new GroundReorderView(settings, window);
        pane->setAttribute(Qt::WA_DeleteOnClose);
        // Closing the window any way ends the presentation.
        QObject::connect(pane, &QDialog::finished, &settings,
                         [&settings] { settings.setGroundInspectorPresented(false); });
        pane->open();
    });
}

} // namespace stagewright
