#include "AnimationPane.h"

#include "BaseElementSheet.h"
#include "EditRouting.h"
#include "InspectorHead.h"
#include "PhysicsEditorHook.h"
#include "PropertyRules.h"
#include "PropertySection.h"
#include "controls/InspectorIcons.h"

#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/Workspace.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace stagewright {

using P = PublishedElementList;

namespace {

/// The rows of the cycle-end sheet, refreshed with it.
class CycleEndRows : public RowPane {
public:
    explicit CycleEndRows(const RowBinding& binding) : RowPane(binding)
    {
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        for (const RowEntry& row : cycleEndRows())
            layout->addWidget(makeRow(row, ModelType::AnimationCycleEnd));
        layout->addStretch();
    }
};

} // namespace

AnimationPropertyView::AnimationPropertyView(RowBinding binding, QWidget* parent) : RowPane(std::move(binding), parent)
{
    setObjectName(QStringLiteral("animationPropertyView"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (!m_binding.tab)
        return;
    const SelectedObjectModel& object = m_binding.tab->selectedObject();

    auto* base = new PropertySection(tr("Element base animation properties"));
    base->addReflectionRows(object.defaultViewProperties ? baseAnimationTable(*object.defaultViewProperties)
                                                         : tessaro::ReflectionTable{});
    layout->addWidget(base);

    auto* cycleEnd = new QPushButton(inspectorIcon(InspectorSymbol::cycleEnd), tr("Cycle\nEnd"));
    cycleEnd->setObjectName(QStringLiteral("cycleEndButton"));
    layout->addWidget(cycleEnd, 0, Qt::AlignLeft);
    connect(cycleEnd, &QPushButton::clicked, this, [this] {
        auto* sheet = new AnimationCycleEndView(m_binding, this);
        sheet->setAttribute(Qt::WA_DeleteOnClose);
        sheet->open();
    });

    for (const SectionEntry& entry : animationSections()) {
        auto* section = new PropertySection(tr(entry.title));
        for (const RowEntry& row : entry.rows) {
            PropertyRow* shown = makeRow(row, ModelType::Animation);
            // A value with no field to go to would be lost: it is shown, not edited.
            if (!animationRowStores(row.property, object.type)) {
                shown->setEnabled(false);
                shown->setToolTip(tr("The element's record has no field for this value."));
            }
            section->addRow(shown);
        }
        layout->addWidget(section);
    }
    layout->addStretch();
    refresh();
}

QMessageBox* AnimationPropertyView::imageMissingAlert() const
{
    return m_imageMissing;
}

void AnimationPropertyView::showEvent(QShowEvent* event)
{
    RowPane::showEvent(event);
    if (m_imageChecked || !m_binding.tab)
        return;
    m_imageChecked = true;
    const SelectedObjectModel& object = m_binding.tab->selectedObject();
    const std::string missing = missingSelectionImage(m_binding.settings, object);
    if (missing.empty())
        return;
    m_imageMissing = new QMessageBox(QMessageBox::Warning, tr("Image missing"),
                                     tr("The image \"%1\" cannot be found.").arg(QString::fromStdString(missing)),
                                     QMessageBox::Ok, this);
    m_imageMissing->setObjectName(QStringLiteral("imageMissingAlert"));
    m_imageMissing->setInformativeText(
        tr("The workspace has no such file in %1. Add the image there, or choose another one in the "
           "\"Primary\" tab.")
            .arg(kindImageFolder(QString(), object.type)));
    m_imageMissing->setWindowModality(Qt::WindowModal);
    m_imageMissing->setAttribute(Qt::WA_DeleteOnClose);
    m_imageMissing->open();
}

AnimationCycleEndView::AnimationCycleEndView(RowBinding binding, QWidget* parent)
    : QDialog(parent),
      m_binding(std::move(binding))
{
    setObjectName(QStringLiteral("animationCycleEndView"));
    setWindowTitle(tr("Cycle End"));
    setWindowModality(Qt::WindowModal);
    resize(500, 600);
    auto* layout = new QVBoxLayout(this);
    auto* buttons = new QHBoxLayout;
    auto* add = new QPushButton(inspectorIcon(InspectorSymbol::add), tr("Add"));
    auto* remove = new QPushButton(inspectorIcon(InspectorSymbol::remove), tr("Delete"));
    auto* physics = new QPushButton(inspectorIcon(InspectorSymbol::physics), tr("Animation\nPhysics"));
    physics->setObjectName(QStringLiteral("cycleEndPhysicsButton"));
    auto* close = new QPushButton(inspectorIcon(InspectorSymbol::close), tr("Close"));
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addWidget(physics);
    buttons->addStretch();
    buttons->addWidget(close);
    layout->addLayout(buttons);
    connect(add, &QPushButton::clicked, this, [this] { edit(P::End_list_add, true); });
    connect(remove, &QPushButton::clicked, this, [this] { edit(P::End_list_delete, true); });
    connect(close, &QPushButton::clicked, this, &QDialog::accept);
    connect(physics, &QPushButton::clicked, this, [this] {
        if (m_binding.tab && !m_binding.tab->selectedAnimationObject().End_SelectedId.empty())
            openPhysicsEditor(this, *m_binding.tab, m_binding.settings, PhysicsEditMode::animation);
    });

    auto* pick = new QHBoxLayout;
    pick->addWidget(new QLabel(tr("Cycle end list")));
    m_list = new QComboBox;
    pick->addWidget(m_list, 1);
    layout->addLayout(pick);
    connect(m_list, &QComboBox::activated, this,
            [this](int index) { edit(P::End_SelectedId, m_list->itemText(index).toStdString()); });

    m_rows = new CycleEndRows(m_binding);
    layout->addWidget(m_rows, 1);
    if (m_binding.tab)
        connect(m_binding.tab, &ProjectTab::selectedAnimationObjectChanged, this, &AnimationCycleEndView::refresh);
    refresh();
}

void AnimationCycleEndView::edit(PublishedElementList element, const PropertyValue& value)
{
    if (m_binding.tab)
        EditRouting(*m_binding.tab).editRow(ModelType::AnimationCycleEnd, element, value);
    refresh();
}

void AnimationCycleEndView::refresh()
{
    if (!m_binding.tab)
        return;
    const SelectedAnimationModel& model = m_binding.tab->selectedAnimationObject();
    {
        const QSignalBlocker quiet(m_list);
        m_list->clear();
        for (const std::string& id : model.End_List)
            m_list->addItem(QString::fromStdString(id));
        m_list->setCurrentIndex(m_list->findText(QString::fromStdString(model.End_SelectedId)));
    }
    m_rows->setEnabled(!model.End_SelectedId.empty());
    m_rows->refresh();
}

} // namespace stagewright
