#include "LevelPropertiesView.h"

#include "LevelPropertiesTabView.h"
#include "LevelSheetIcons.h"

#include <stagewright/inspector/LevelProperties.h>

#include <QButtonGroup>
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

namespace stagewright {

LevelPropertiesView::LevelPropertiesView(ProjectTab& tab, SceneSettings& settings, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("levelPropertiesView"));
    setWindowTitle(tr("Properties"));
    setWindowModality(Qt::WindowModal);
    setFixedSize(780, 600);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(8);

    auto* strip = new QHBoxLayout;
    strip->setSpacing(4);
    auto* group = new QButtonGroup(this);
    m_stack = new QStackedWidget(this);
    for (const LevelPropertiesTab& info : levelPropertiesTabs()) {
        auto* button = new QToolButton(this);
        button->setText(tr(info.title));
        button->setIcon(levelSheetIcon(info.icon));
        button->setIconSize(QSize(22, 22));
        button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setMinimumWidth(84);
        group->addButton(button, int(m_buttons.size()));
        strip->addWidget(button);
        m_buttons.push_back(button);
        auto* view = new LevelPropertiesTabView(tab, settings, info, m_stack);
        m_stack->addWidget(view);
        m_views.push_back(view);
    }
    strip->addStretch(1);
    m_close = new QPushButton(levelSheetIcon("xmark.square"), tr("Close"), this);
    m_close->setObjectName(QStringLiteral("closeButton"));
    strip->addWidget(m_close);
    layout->addLayout(strip);

    auto* divider = new QFrame(this);
    divider->setFrameShape(QFrame::HLine);
    divider->setFrameShadow(QFrame::Sunken);
    layout->addWidget(divider);
    layout->addWidget(m_stack, 1);

    connect(group, &QButtonGroup::idClicked, this, &LevelPropertiesView::setSelection);
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    setSelection(0);
}

LevelPropertiesView* LevelPropertiesView::present(ProjectTab& tab, SceneSettings& settings, QWidget* parent)
{
    auto* sheet = new LevelPropertiesView(tab, settings, parent);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
    return sheet;
}

void LevelPropertiesView::setSelection(int index)
{
    if (index < 0 || index >= int(m_buttons.size()))
        return;
    m_buttons[std::size_t(index)]->setChecked(true);
    m_stack->setCurrentIndex(index);
}

int LevelPropertiesView::selection() const
{
    return m_stack->currentIndex();
}

} // namespace stagewright
