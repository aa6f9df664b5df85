#include "InspectorHead.h"

#include "BaseElementSheet.h"
#include "EditRouting.h"
#include "PhysicsEditorHook.h"
#include "controls/ImagePicker.h"
#include "controls/InspectorIcons.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace stagewright {

QString selectionImagePath(const SceneSettings* settings, const std::string& image, tessaro::sceneObjectType kind)
{
    if (!settings || image.empty())
        return {};
    const QString name = QString::fromStdString(image);
    for (const FileItem& item : settings->imageList())
        if (item.sceneObjectType == kind && item.name == name)
            return item.path();
    return {};
}

std::string selectionImageName(const SelectedObjectModel& object)
{
    if (!object.image.empty() || !object.defaultViewProperties)
        return object.image;
    return std::visit([](const auto& record) { return record.image.value_or(std::string()); },
                      *object.defaultViewProperties);
}

std::string missingSelectionImage(const SceneSettings* settings, const SelectedObjectModel& object)
{
    const std::string image = selectionImageName(object);
    return settings && !image.empty() && selectionImagePath(settings, image, object.type).isEmpty() ? image
                                                                                                    : std::string();
}

InspectorHead::InspectorHead(RowBinding binding, QWidget* parent) : QWidget(parent), m_binding(std::move(binding))
{
    setObjectName(QStringLiteral("inspectorHead"));
    auto* layout = new QHBoxLayout(this);
    m_preview = new ImagePreview(QSize(96, 96));
    m_preview->setObjectName(QStringLiteral("selectionPreview"));
    layout->addWidget(m_preview);
    layout->addStretch();
    if (!m_binding.tab)
        return;

    const SelectedObjectModel& object = m_binding.tab->selectedObject();
    const bool shaped =
        object.type == tessaro::sceneObjectType::obstacles || object.type == tessaro::sceneObjectType::character;
    if (shaped) {
        auto* physics = new QPushButton(inspectorIcon(InspectorSymbol::physics), tr("Physics"));
        physics->setObjectName(QStringLiteral("physicsButton"));
        layout->addWidget(physics);
        connect(physics, &QPushButton::clicked, this, [this] {
            if (m_binding.tab)
                openPhysicsEditor(this, *m_binding.tab, m_binding.settings, PhysicsEditMode::element);
        });
    }
    // Only obstacles and characters show their catalogue record.
    if (shaped && object.defaultViewProperties) {
        auto* base = new QPushButton(inspectorIcon(InspectorSymbol::baseProperties), tr("Base\nProperties"));
        base->setObjectName(QStringLiteral("baseButton"));
        layout->addWidget(base);
        connect(base, &QPushButton::clicked, this, [this] {
            if (!m_binding.tab || !m_binding.tab->selectedObject().defaultViewProperties)
                return;
            auto* sheet = new BaseElementPropertiesView(*m_binding.tab->selectedObject().defaultViewProperties, this);
            connect(sheet, &BaseElementPropertiesView::physicsRequested, this, [this, sheet] {
                if (m_binding.tab)
                    openPhysicsEditor(sheet, *m_binding.tab, m_binding.settings, PhysicsEditMode::base);
            });
            sheet->setAttribute(Qt::WA_DeleteOnClose);
            sheet->open();
        });
    }

    if (object.type == tessaro::sceneObjectType::ground && m_binding.settings) {
        auto* order = new QPushButton(inspectorIcon(InspectorSymbol::groundOrder), tr("Ground\nSort Order"));
        order->setObjectName(QStringLiteral("groundOrderButton"));
        layout->addWidget(order);
        connect(order, &QPushButton::clicked, this, [this] { m_binding.settings->setGroundInspectorPresented(true); });
    }

    m_actions = new QToolButton;
    m_actions->setObjectName(QStringLiteral("actionsMenu"));
    m_actions->setText(tr("Actions"));
    m_actions->setIcon(inspectorIcon(InspectorSymbol::actions));
    m_actions->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_actions->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(m_actions);
    ElementClipboard* clipboard = m_binding.settings ? &m_binding.settings->clipboard() : nullptr;
    const auto route = [this, clipboard](void (EditRouting::*command)()) {
        return [this, clipboard, command] {
            if (m_binding.tab) {
                EditRouting routing(*m_binding.tab, clipboard);
                (routing.*command)();
            }
        };
    };
    QAction* cut = menu->addAction(inspectorIcon(InspectorSymbol::cut), tr("Cut"), this, route(&EditRouting::cut));
    QAction* copy = menu->addAction(inspectorIcon(InspectorSymbol::copy), tr("Copy"), this, route(&EditRouting::copy));
    QAction* paste =
        menu->addAction(inspectorIcon(InspectorSymbol::paste), tr("Paste"), this, route(&EditRouting::paste));
    QAction* remove = menu->addAction(inspectorIcon(InspectorSymbol::trash), tr("Delete"), this,
                                      route(&EditRouting::deleteSelection));
    connect(menu, &QMenu::aboutToShow, this, [this, cut, copy, paste, remove, clipboard] {
        const bool selected = m_binding.tab && EditRouting(*m_binding.tab, clipboard).hasSelection();
        for (QAction* action : {cut, copy, remove})
            action->setEnabled(selected);
        paste->setEnabled(m_binding.tab && EditRouting(*m_binding.tab, clipboard).canPaste());
    });
    m_actions->setMenu(menu);
    layout->addWidget(m_actions);
    refresh();
}

void InspectorHead::refresh()
{
    if (!m_binding.tab)
        return;
    const SelectedObjectModel& object = m_binding.tab->selectedObject();
    m_preview->setPath(selectionImagePath(m_binding.settings, selectionImageName(object), object.type));
}

} // namespace stagewright
