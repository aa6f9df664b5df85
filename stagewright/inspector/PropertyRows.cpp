#include "PropertyRows.h"

#include "ApplyOperations.h"
#include "EditRouting.h"
#include "ModelFields.h"
#include "PropertyRules.h"
#include "controls/ElidedLabel.h"
#include "controls/ImagePicker.h"
#include "controls/MultiSelectCombo.h"
#include "controls/Steppers.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>

namespace stagewright {

using P = PublishedElementList;

PropertyRow::PropertyRow(const RowEntry& entry, RowBinding binding, QWidget* parent)
    : QWidget(parent),
      m_entry(entry),
      m_binding(std::move(binding))
{
    setObjectName(QStringLiteral("row_") + QString::fromUtf8(tessaro::caseText(entry.property)));
    m_layout = new QHBoxLayout(this);
    m_layout->setContentsMargins(0, 2, 0, 2);
    m_label = new QLabel(tr(entry.label), this);
    QFont bold = m_label->font();
    bold.setBold(true);
    m_label->setFont(bold);
    m_label->setFixedWidth(150);
    m_label->setWordWrap(true);
    m_label->setToolTip(tr(entry.help));
    m_layout->addWidget(m_label);
}

PropertyValue PropertyRow::shown(PublishedElementList property) const
{
    if (!m_binding.tab)
        return {};
    // A row bound to a field path reads the record in the level's document.
    if (m_binding.background && m_entry.field && property == m_entry.property)
        return backgroundRowValue(*m_binding.tab, m_entry);
    return modelValue(*m_binding.tab, m_binding.model, property);
}

void PropertyRow::edited(PublishedElementList property, const PropertyValue& value)
{
    if (!m_binding.tab)
        return;
    EditRouting routing(*m_binding.tab, m_binding.settings ? &m_binding.settings->clipboard() : nullptr);
    if (m_binding.background) {
        routing.applyBackgroundProperty(property, value);
    } else {
        routing.editRow(m_binding.model, property, value);
    }
}

void PropertyRow::setControl(QWidget* control)
{
    control->setToolTip(tr(m_entry.help));
    m_layout->addWidget(control, 1);
}

namespace {

template <class T>
T valueOr(const PropertyValue& value, T fallback)
{
    if (const T* v = std::get_if<T>(&value))
        return *v;
    return fallback;
}

class floatRowViewHelper : public PropertyRow {
public:
    floatRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_stepper = new LabelledCGFloatStepper({}, {}, {entry.lower, entry.upper}, entry.step, entry.places);
        setControl(m_stepper);
        connect(m_stepper, &LabelledCGFloatStepper::valueChanged, this, [this](double v) { edited(v); });
    }
    void refresh() override { m_stepper->setValue(numberOf(shown()).value_or(0)); }

private:
    LabelledCGFloatStepper* m_stepper;
};

class intRowViewHelper : public PropertyRow {
public:
    intRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_stepper = new LabelledIntStepper({}, {}, std::int64_t(entry.lower), std::int64_t(entry.upper),
                                           std::int64_t(entry.step));
        setControl(m_stepper);
        connect(m_stepper, &LabelledIntStepper::valueChanged, this, [this](std::int64_t v) { edited(v); });
    }
    void refresh() override { m_stepper->setValue(integerOf(shown()).value_or(0)); }

private:
    LabelledIntStepper* m_stepper;
};

class rangeRowViewHelper : public PropertyRow {
public:
    rangeRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_stepper = new LabelledRangeStepper({}, {}, {0, greatest}, StepperPrecision::CGFloat);
        setControl(m_stepper);
        connect(m_stepper, &LabelledRangeStepper::lowerChanged, this, [this](double v) { edited(v); });
        connect(m_stepper, &LabelledRangeStepper::upperChanged, this,
                [this](double v) { edited(m_entry.propertyUpper, v); });
    }
    void refresh() override
    {
        m_stepper->setBounds(numberOf(shown()).value_or(0), numberOf(shown(m_entry.propertyUpper)).value_or(0));
    }

private:
    LabelledRangeStepper* m_stepper;
};

class pointRowViewHelper : public PropertyRow {
public:
    pointRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_stepper = new LabelledPointStepper({}, {}, entry.step, {entry.lower, entry.upper});
        setControl(m_stepper);
        connect(m_stepper, &LabelledPointStepper::valueChanged, this, [this](tessaro::PointValue v) { edited(v); });
    }
    void refresh() override { m_stepper->setValue(valueOr(shown(), tessaro::PointValue{})); }

private:
    LabelledPointStepper* m_stepper;
};

class sizeRowViewHelper : public PropertyRow {
public:
    sizeRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        // "w" and "h" keep the row within the inspector's width.
        m_stepper = new LabelledSizeStepper({}, {}, true, entry.aspectToggle);
        setControl(m_stepper);
        connect(m_stepper, &LabelledSizeStepper::valueChanged, this, [this](tessaro::SizeValue v) { edited(v); });
    }
    void refresh() override { m_stepper->setValue(valueOr(shown(), tessaro::SizeValue{})); }

private:
    LabelledSizeStepper* m_stepper;
};

class vectorRowViewHelper : public PropertyRow {
public:
    vectorRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_stepper = new LabelledVectorStepper({}, {});
        setControl(m_stepper);
        connect(m_stepper, &LabelledVectorStepper::valueChanged, this, [this](tessaro::PointValue v) { edited(v); });
    }
    void refresh() override { m_stepper->setValue(valueOr(shown(), tessaro::PointValue{})); }

private:
    LabelledVectorStepper* m_stepper;
};

class toggleRowViewHelper : public PropertyRow {
public:
    toggleRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_switch = new QCheckBox;
        setControl(m_switch);
        connect(m_switch, &QCheckBox::toggled, this, [this](bool on) { edited(on); });
    }
    void refresh() override
    {
        const QSignalBlocker quiet(m_switch);
        m_switch->setChecked(flagOf(shown()).value_or(false));
    }

private:
    QCheckBox* m_switch;
};

class textfieldRowViewHelper : public PropertyRow {
public:
    textfieldRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_field = new QLineEdit;
        m_field->setPlaceholderText(QString::fromUtf8(entry.placeholder));
        setControl(m_field);
        connect(m_field, &QLineEdit::textEdited, this, [this](const QString& text) { edited(text.toStdString()); });
    }
    void refresh() override
    {
        const QString text = QString::fromStdString(textOf(shown()).value_or(std::string()));
        if (m_field->text() != text) {
            const QSignalBlocker quiet(m_field);
            m_field->setText(text);
        }
    }

private:
    QLineEdit* m_field;
};

/// The picker's list for the front tab's selection.
PickerContent contentOf(const RowEntry& entry, const RowBinding& binding)
{
    const SceneEditor* scene = binding.tab ? sceneEditorOf(binding.tab->currentScene()).get() : nullptr;
    return binding.tab ? getPickerContent(entry.picker, *binding.tab, scene, binding.settings) : PickerContent{};
}

class pickerRowViewHelper : public PropertyRow {
public:
    pickerRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_menu = new QComboBox;
        for (const PickerSection& section : contentOf(entry, binding).sections)
            for (const PickerItem& item : section.items)
                m_menu->addItem(item.text, item.tag);
        setControl(m_menu);
        connect(m_menu, &QComboBox::activated, this,
                [this](int index) { edited(m_menu->itemData(index).toString().toStdString()); });
    }
    void refresh() override
    {
        const QSignalBlocker quiet(m_menu);
        m_menu->setCurrentIndex(m_menu->findData(QString::fromStdString(textOf(shown()).value_or(std::string()))));
    }

private:
    QComboBox* m_menu;
};

class multiPickerRowViewHelper : public PropertyRow {
public:
    multiPickerRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        QStringList items;
        for (const PickerSection& section : contentOf(entry, binding).sections)
            for (const PickerItem& item : section.items)
                items << item.tag;
        m_combo = new CustomMultiSelectCombo({}, items);
        setControl(m_combo);
        connect(m_combo, &CustomMultiSelectCombo::valuesChanged, this, [this](const QStringList& values) {
            std::vector<std::string> list;
            for (const QString& value : values)
                list.push_back(value.toStdString());
            edited(list);
        });
    }
    void refresh() override
    {
        QStringList values;
        for (const std::string& value : listOf(shown()).value_or(std::vector<std::string>{}))
            values << QString::fromStdString(value);
        m_combo->setValues(values);
    }

private:
    CustomMultiSelectCombo* m_combo;
};

class imageRowViewHelper : public PropertyRow {
public:
    imageRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_picker = new CustomImagePickerView;
        setControl(m_picker);
        connect(m_picker, &CustomImagePickerView::imageChosen, this,
                [this](const QString& name) { edited(name.toStdString()); });
    }
    void refresh() override
    {
        // Only the images of the folder of the element's kind are offered.
        std::vector<FileItem> items;
        if (m_binding.settings && m_binding.tab)
            for (const FileItem& item : m_binding.settings->imageList())
                if (item.sceneObjectType == m_binding.tab->selectedObject().type)
                    items.push_back(item);
        m_picker->setItems(std::move(items));
        m_picker->setValue(QString::fromStdString(textOf(shown()).value_or(std::string())));
    }

private:
    CustomImagePickerView* m_picker;
};

class pointRangeRowViewHelper : public PropertyRow {
public:
    pointRangeRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_stepper = new LabelledPointRangeStepper({}, {}, {}, entry.step, {entry.lower, entry.upper});
        setControl(m_stepper);
        connect(m_stepper, &LabelledPointRangeStepper::valueChanged, this,
                [this](const QString& text) { edited(text.toStdString()); });
    }
    void refresh() override { m_stepper->setValue(QString::fromStdString(textOf(shown()).value_or(std::string()))); }

private:
    LabelledPointRangeStepper* m_stepper;
};

/// A view-only value: the catalogue's text of the field.
class labelRowViewHelper : public PropertyRow {
public:
    labelRowViewHelper(const RowEntry& entry, const RowBinding& binding) : PropertyRow(entry, binding)
    {
        m_value = new ElidedLabel;
        m_value->setForegroundRole(QPalette::PlaceholderText);
        m_value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        setControl(m_value);
    }
    void refresh() override
    {
        const std::string text = m_binding.tab
            ? baseFieldText(BaseField::elementName, m_binding.tab->selectedObject().defaultViewProperties)
            : std::string();
        m_value->setFullText(QString::fromStdString(text));
    }

private:
    ElidedLabel* m_value;
};

} // namespace

PropertyRow* makePropertyRow(const RowEntry& entry, const RowBinding& binding, QWidget* parent)
{
    PropertyRow* row = nullptr;
    switch (entry.control) {
    case RowControl::Float: row = new floatRowViewHelper(entry, binding); break;
    case RowControl::Int: row = new intRowViewHelper(entry, binding); break;
    case RowControl::Range: row = new rangeRowViewHelper(entry, binding); break;
    case RowControl::Point: row = new pointRowViewHelper(entry, binding); break;
    case RowControl::Size: row = new sizeRowViewHelper(entry, binding); break;
    case RowControl::Vector: row = new vectorRowViewHelper(entry, binding); break;
    case RowControl::Toggle: row = new toggleRowViewHelper(entry, binding); break;
    case RowControl::Text: row = new textfieldRowViewHelper(entry, binding); break;
    case RowControl::Picker: row = new pickerRowViewHelper(entry, binding); break;
    case RowControl::MultiPicker: row = new multiPickerRowViewHelper(entry, binding); break;
    case RowControl::Image: row = new imageRowViewHelper(entry, binding); break;
    case RowControl::PointRange: row = new pointRangeRowViewHelper(entry, binding); break;
    case RowControl::Label: row = new labelRowViewHelper(entry, binding); break;
    }
    row->setParent(parent);
    row->refresh();
    return row;
}

RowPane::RowPane(RowBinding binding, QWidget* parent) : QWidget(parent), m_binding(std::move(binding)) {}

void RowPane::refresh()
{
    for (PropertyRow* row : m_rows)
        row->refresh();
}

PropertyRow* RowPane::makeRow(const RowEntry& entry, ModelType model)
{
    RowBinding binding = m_binding;
    binding.model = model;
    PropertyRow* row = makePropertyRow(entry, binding);
    m_rows.push_back(row);
    return row;
}

} // namespace stagewright
