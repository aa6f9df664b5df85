#include "PrimaryPane.h"

#include "PropertyRules.h"
#include "PropertySection.h"
#include "controls/ElidedLabel.h"

#include <stagewright/state/ProjectTab.h>

#include <QLabel>
#include <QVBoxLayout>

namespace stagewright {

primaryPropertyListView::primaryPropertyListView(rowBinding binding, QWidget* parent)
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
    for (const sectionEntry& entry : primarySections()) {
        if (!sectionApplies(entry, kind))
            continue;
        auto* section = new PropertySection(tr(entry.title));
        for (const rowEntry& row : rowsFor(entry, kind))
            section->addRow(makeRow(row, modelType::Primary));
        layout->addWidget(section);
    }
    layout->addStretch();
    refresh();
}

void primaryPropertyListView::refresh()
{
    RowPane::refresh();
    if (!m_binding.tab)
        return;
    const selectedObjectModel& model = m_binding.tab->selectedObject();
    const auto base = [&](baseField field) { return baseFieldText(field, model.defaultViewProperties); };
    const std::string values[] = {base(baseField::elementName),
                                  base(baseField::objectClassType),
                                  base(baseField::category),
                                  base(baseField::contact),
                                  base(baseField::collision),
                                  model.real_Position,
                                  model.displayedSize,
                                  std::string(tessaro::caseText(model.type)),
                                  model.name,
                                  model.image};
    for (std::size_t i = 0; i < m_viewOnly.size(); ++i)
        m_viewOnly[i]->setFullText(QString::fromStdString(values[i]));
}

} // namespace stagewright
