#include "PropertySection.h"

#include "controls/ElidedLabel.h"
#include "controls/SectionHeader.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace stagewright {

PropertySection::PropertySection(const QString& title, QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 4, 0, 4);
    auto* header = new SectionHeader(title, true);
    layout->addWidget(header);
    m_body = new QWidget;
    m_rows = new QVBoxLayout(m_body);
    m_rows->setContentsMargins(6, 0, 0, 0);
    m_rows->setSpacing(2);
    layout->addWidget(m_body);
    connect(header, &SectionHeader::toggled, m_body, &QWidget::setVisible);
}

void PropertySection::addRow(QWidget* row)
{
    m_rows->addWidget(row);
}

void PropertySection::addNote(const QString& text)
{
    auto* note = new QLabel(text);
    note->setForegroundRole(QPalette::PlaceholderText);
    note->setWordWrap(true);
    m_rows->addWidget(note);
}

ElidedLabel* PropertySection::addValueRow(const QString& label, const QString& value)
{
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    auto* name = new ElidedLabel(label);
    name->setFixedWidth(150);
    auto* shown = new ElidedLabel(value);
    shown->setForegroundRole(QPalette::PlaceholderText);
    shown->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line->addWidget(name);
    line->addWidget(shown, 1);
    m_rows->addWidget(row);
    return shown;
}

void PropertySection::addReflectionRows(const tessaro::ReflectionTable& table)
{
    bool any = false;
    for (const auto& [name, value] : table) {
        if (value.kind == tessaro::ReflectionValue::Kind::absent)
            continue;
        addValueRow(QString::fromStdString(name), QString::fromStdString(tessaro::reflectionText(value)));
        any = true;
    }
    if (!any)
        addNote(tr("No properties defined for this element."));
}

} // namespace stagewright
