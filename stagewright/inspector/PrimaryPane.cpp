#include "PrimaryPane.h"

#include "PropertyRules.h"
#include "PropertySection.h"
#include "controls/ElidedLabel.h"

#include <stagewright/state/ProjectTab.h>

#include <QLabel>
#include <QVBoxLayout>

namespace stagewright {

PrimaryPropertyListView::PrimaryPropertyListView(RowBinding binding, QWidget* parent)
    : RowPane(std::move(binding), parent)
{
    setObjectName(QStringLiteral("primaryPropertyListView"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* viewOnly = new PropertySection(tr("View only properties (Base Element)"));
    for (const QString& label : {QStringLiteral("elementName"), QStringLiteral("objectClassType"), tr("Category"),
                                 tr("Contact"), tr("Collision"), tr("Real Position"), tr("Displayed Size"),
                                 QStringLiteral("objectType"), tr("Displayed Name"), tr("Image")})
        m_viewOnly.push_back(viewOnly->addValueRow(label));
    layout->addWidget(viewOnly);
    const tessaro::sceneObjectType kind =
        m_binding.tab ? m_binding.tab->selectedObject().type : tessaro::sceneObjectType::none;
    for (const SectionEntry& entry : primarySections()) {
        if (!sectionApplies(entry, kind))
            continue;
        auto* section = new PropertySection(tr(entry.title));
        for (const RowEntry& row : rowsFor(entry, kind))
            section->addRow(makeRow(row, ModelType::Primary));
        layout->addWidget(section);
    }
    layout->addStretch();
    refresh();
}

void PrimaryPropertyListView::refresh()
{
    RowPane::refresh();
    if (!m_binding.tab)
        return;
    const SelectedObjectModel& model = m_binding.tab->selectedObject();
    const auto base = [&](BaseField field) { return baseFieldText(field, model.defaultViewProperties); };
    const std::string values[] = {base(BaseField::elementName),
                                  base(BaseField::objectClassType),
                                  base(BaseField::category),
                                  base(BaseField::contact),
                                  base(BaseField::collision),
                                  model.real_Position,
                                  model.displayedSize,
                                  std::string(tessaro::caseText(model.type)),
                                  model.name,
                                  model.image};
    for (std::size_t i = 0; i < m_viewOnly.size(); ++i)
        m_viewOnly[i]->setFullText(QString::fromStdString(values[i]));
}

} // namespace stagewright
