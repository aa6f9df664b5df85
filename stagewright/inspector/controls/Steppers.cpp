#include "Steppers.h"

#include "StepperParts.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace stagewright {

using detail::NumberGroup;
using tessaro::PointValue;
using tessaro::RangeValue;
using tessaro::SizeValue;

namespace {

/// The row of a stepper: its title block when it has one, then the layout
/// returned, which the stepper fills with its groups, kept together at the
/// start of the row.
QHBoxLayout* stepperRow(QWidget* stepper, const QString& title, const QString& description, const Style& style)
{
    auto* row = new QHBoxLayout(stepper);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(int(style.buttonPadding) * 2);
    if (QWidget* block = detail::makeTitleBlock(title, description, style, stepper))
        row->addWidget(block);
    auto* content = new QHBoxLayout;
    content->setSpacing(int(style.buttonPadding) * 2);
    row->addLayout(content);
    row->addStretch(1);
    stepper->setMinimumHeight(int(style.height));
    return content;
}

NumberGroup* addGroup(QBoxLayout* layout, QWidget* stepper, const QString& caption, const char* name,
                      const Style& style)
{
    auto* group = new NumberGroup(caption, style, stepper);
    group->setObjectName(QLatin1String(name));
    layout->addWidget(group);
    return group;
}

QLabel* addWord(QBoxLayout* layout, QWidget* stepper, const QString& word)
{
    auto* label = new QLabel(word, stepper);
    layout->addWidget(label);
    return label;
}

} // namespace

// ---- Float ----------------------------------------------------------------------------------

LabelledCGFloatStepper::LabelledCGFloatStepper(const QString& title, const QString& description, RangeValue range,
                                               double step, std::optional<int> roundedPlaces, const Style& style,
                                               QWidget* parent)
    : StepperWidget(parent),
      m_range(range),
      m_step(step),
      m_places(stepper::placesOf(roundedPlaces))
{
    QHBoxLayout* row = stepperRow(this, title, description, style);
    m_group = addGroup(row, this, QString(), "value", style);
    connect(m_group, &NumberGroup::minusPressed, this,
            [this] { change(stepper::floatMinus(m_value, m_range, m_step)); });
    connect(m_group, &NumberGroup::plusPressed, this, [this] { change(stepper::floatPlus(m_value, m_range, m_step)); });
    connect(m_group, &NumberGroup::typed, this, &LabelledCGFloatStepper::take);
    refresh();
}

double LabelledCGFloatStepper::value() const
{
    return m_value;
}

void LabelledCGFloatStepper::setValue(double value)
{
    m_value = value;
    refresh();
}

void LabelledCGFloatStepper::change(double next)
{
    if (next == m_value)
        return;
    m_value = next;
    refresh();
    emit valueChanged(m_value);
}

void LabelledCGFloatStepper::take(const QString& text)
{
    // Text that is no number, and a number outside the range, put the old
    // value back in the field.
    if (const std::optional<double> typed = stepper::parseTyped(text))
        change(stepper::acceptedFloat(*typed, m_value, m_range));
    refresh();
}

void LabelledCGFloatStepper::refresh()
{
    m_group->setText(stepper::floatText(m_value, m_places));
    m_group->setButtonsEnabled(stepper::floatButtons(m_value, m_range, m_places));
}

// ---- Integer ----------------------------------------------------------------------------------

LabelledIntStepper::LabelledIntStepper(const QString& title, const QString& description, std::int64_t lower,
                                       std::int64_t upper, std::int64_t step, const Style& style, QWidget* parent)
    : StepperWidget(parent),
      m_lower(lower),
      m_upper(upper),
      m_step(step)
{
    QHBoxLayout* row = stepperRow(this, title, description, style);
    m_group = addGroup(row, this, QString(), "value", style);
    connect(m_group, &NumberGroup::minusPressed, this, [this] { change(stepper::intMinus(m_value, m_lower, m_step)); });
    connect(m_group, &NumberGroup::plusPressed, this, [this] { change(stepper::intPlus(m_value, m_upper, m_step)); });
    // The range limits only the buttons: any whole number may be typed.
    connect(m_group, &NumberGroup::typed, this, [this](const QString& text) {
        if (const std::optional<std::int64_t> typed = stepper::parseTypedInt(text))
            change(*typed);
        refresh();
    });
    refresh();
}

std::int64_t LabelledIntStepper::value() const
{
    return m_value;
}

void LabelledIntStepper::setValue(std::int64_t value)
{
    m_value = value;
    refresh();
}

void LabelledIntStepper::change(std::int64_t next)
{
    if (next == m_value)
        return;
    m_value = next;
    refresh();
    emit valueChanged(m_value);
}

void LabelledIntStepper::refresh()
{
    m_group->setText(stepper::intText(m_value));
    m_group->setButtonsEnabled(stepper::intButtons(m_value, m_lower, m_upper));
}

// ---- Range ----------------------------------------------------------------------------------

LabelledRangeStepper::LabelledRangeStepper(const QString& title, const QString& description, RangeValue range,
                                           StepperPrecision precision, const Style& style, QWidget* parent)
    : StepperWidget(parent),
      m_range(range),
      m_precision(precision)
{
    using stepper::RangeButton;
    QHBoxLayout* row = stepperRow(this, title, description, style);
    m_lowerGroup = addGroup(row, this, QString(), "lower", style);
    addWord(row, this, tr("to"));
    m_upperGroup = addGroup(row, this, QString(), "upper", style);
    connect(m_lowerGroup, &NumberGroup::minusPressed, this, [this] { press(RangeButton::lowerMinus); });
    connect(m_lowerGroup, &NumberGroup::plusPressed, this, [this] { press(RangeButton::lowerPlus); });
    connect(m_upperGroup, &NumberGroup::minusPressed, this, [this] { press(RangeButton::upperMinus); });
    connect(m_upperGroup, &NumberGroup::plusPressed, this, [this] { press(RangeButton::upperPlus); });
    connect(m_lowerGroup, &NumberGroup::typed, this, [this](const QString& text) {
        if (const std::optional<double> typed = stepper::parseTyped(text))
            change({*typed, m_bounds.upper});
        refresh();
    });
    connect(m_upperGroup, &NumberGroup::typed, this, [this](const QString& text) {
        if (const std::optional<double> typed = stepper::parseTyped(text))
            change({m_bounds.lower, *typed});
        refresh();
    });
    connect(m_upperGroup, &NumberGroup::escapePressed, this, [this] { change(stepper::escapeUpper(m_bounds)); });
    refresh();
}

double LabelledRangeStepper::lower() const
{
    return m_bounds.lower;
}

double LabelledRangeStepper::upper() const
{
    return m_bounds.upper;
}

void LabelledRangeStepper::setBounds(double lower, double upper)
{
    m_bounds = {lower, upper};
    refresh();
}

void LabelledRangeStepper::press(stepper::RangeButton button)
{
    change(stepper::pressRange(m_bounds, m_range, button));
}

void LabelledRangeStepper::change(RangeValue next)
{
    const RangeValue old = m_bounds;
    m_bounds = next;
    refresh();
    // Each bound reports its own change.
    if (next.lower != old.lower)
        emit lowerChanged(next.lower);
    if (next.upper != old.upper)
        emit upperChanged(next.upper);
}

QString LabelledRangeStepper::text(double value) const
{
    return stepper::fixedText(value, m_precision == StepperPrecision::Int ? 0 : 1);
}

void LabelledRangeStepper::refresh()
{
    const stepper::RangeButtonsEnabled enabled = stepper::rangeButtons(m_bounds, m_range);
    m_lowerGroup->setText(text(m_bounds.lower));
    m_lowerGroup->setButtonsEnabled({enabled.lowerMinus, enabled.lowerPlus});
    m_upperGroup->setText(text(m_bounds.upper));
    m_upperGroup->setButtonsEnabled({enabled.upperMinus, enabled.upperPlus});
}

// ---- Vector ---------------------------------------------------------------------------------

LabelledVectorStepper::LabelledVectorStepper(const QString& title, const QString& description, const Style& style,
                                             QWidget* parent)
    : StepperWidget(parent)
{
    QHBoxLayout* row = stepperRow(this, title, description, style);
    m_dx = addGroup(row, this, tr("dx"), "dx", style);
    m_dy = addGroup(row, this, tr("dy"), "dy", style);
    auto bind = [this](NumberGroup* group, double PointValue::*coordinate) {
        connect(group, &NumberGroup::minusPressed, this, [this, coordinate] {
            PointValue next = m_value;
            next.*coordinate -= 1;
            change(next);
        });
        connect(group, &NumberGroup::plusPressed, this, [this, coordinate] {
            PointValue next = m_value;
            next.*coordinate += 1;
            change(next);
        });
        connect(group, &NumberGroup::typed, this, [this, coordinate](const QString& text) {
            if (const std::optional<double> typed = stepper::parseTyped(text)) {
                PointValue next = m_value;
                next.*coordinate = *typed;
                change(next);
            }
            refresh();
        });
    };
    bind(m_dx, &PointValue::x);
    bind(m_dy, &PointValue::y);
    refresh();
}

PointValue LabelledVectorStepper::value() const
{
    return m_value;
}

void LabelledVectorStepper::setValue(PointValue value)
{
    m_value = value;
    refresh();
}

void LabelledVectorStepper::change(PointValue next)
{
    if (next == m_value)
        return;
    m_value = next;
    refresh();
    emit valueChanged(m_value);
}

void LabelledVectorStepper::refresh()
{
    m_dx->setText(stepper::plainText(m_value.x));
    m_dy->setText(stepper::plainText(m_value.y));
}

// ---- Size -------------------------------------------------------------------------------------

LabelledSizeStepper::LabelledSizeStepper(const QString& title, const QString& description, bool shortLabel,
                                         bool showMaintainAspectRatio, double aspectRatio, const Style& style,
                                         QWidget* parent)
    : StepperWidget(parent),
      m_showMaintainAspectRatio(showMaintainAspectRatio),
      m_aspectRatio(aspectRatio == 0 ? 1 : aspectRatio)
{
    QHBoxLayout* row = stepperRow(this, title, description, style);
    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    auto* groups = new QHBoxLayout;
    column->addLayout(groups);
    row->addLayout(column);
    m_width = addGroup(groups, this, shortLabel ? tr("w") : tr("width"), "width", style);
    m_height = addGroup(groups, this, shortLabel ? tr("h") : tr("height"), "height", style);
    if (showMaintainAspectRatio) {
        m_toggle = new QCheckBox(tr("Maintain aspect ratio"), this);
        m_toggle->setObjectName(QStringLiteral("maintainAspectRatio"));
        column->addWidget(m_toggle);
        connect(m_toggle, &QCheckBox::toggled, this, &LabelledSizeStepper::toggle);
    }

    auto width = [this](double next) { change(stepper::withWidth(m_value, next, keepsRatio(), m_aspectRatio)); };
    auto height = [this](double next) { change(stepper::withHeight(m_value, next, keepsRatio(), m_aspectRatio)); };
    connect(m_width, &NumberGroup::minusPressed, this, [this, width] { width(m_value.width - 1); });
    connect(m_width, &NumberGroup::plusPressed, this, [this, width] { width(m_value.width + 1); });
    connect(m_height, &NumberGroup::minusPressed, this, [this, height] { height(m_value.height - 1); });
    connect(m_height, &NumberGroup::plusPressed, this, [this, height] { height(m_value.height + 1); });
    connect(m_width, &NumberGroup::typed, this, [this, width](const QString& text) {
        if (const std::optional<double> typed = stepper::parseTyped(text))
            width(*typed);
        refresh();
    });
    connect(m_height, &NumberGroup::typed, this, [this, height](const QString& text) {
        if (const std::optional<double> typed = stepper::parseTyped(text))
            height(*typed);
        refresh();
    });
    refresh();
}

SizeValue LabelledSizeStepper::value() const
{
    return m_value;
}

void LabelledSizeStepper::setValue(SizeValue value)
{
    m_value = value;
    refresh();
}

bool LabelledSizeStepper::toggleIsOn() const
{
    return m_toggleIsOn;
}

double LabelledSizeStepper::aspectRatio() const
{
    return m_aspectRatio;
}

void LabelledSizeStepper::toggle(bool on)
{
    m_toggleIsOn = on;
    if (on)
        m_aspectRatio = stepper::aspectRatioOf(m_value);
}

void LabelledSizeStepper::change(SizeValue next)
{
    if (next == m_value)
        return;
    m_value = next;
    refresh();
    emit valueChanged(m_value);
}

void LabelledSizeStepper::refresh()
{
    m_width->setText(stepper::plainText(m_value.width));
    m_height->setText(stepper::plainText(m_value.height));
}

// ---- Point ----------------------------------------------------------------------------------

LabelledPointStepper::LabelledPointStepper(const QString& title, const QString& description, double step,
                                           RangeValue range, bool disableEditing, const Style& style, QWidget* parent)
    : StepperWidget(parent),
      m_step(step),
      m_range(range)
{
    QHBoxLayout* row = stepperRow(this, title, description, style);
    m_x = addGroup(row, this, tr("x"), "x", style);
    m_y = addGroup(row, this, tr("y"), "y", style);
    auto bind = [this](NumberGroup* group, double PointValue::*coordinate) {
        connect(group, &NumberGroup::minusPressed, this, [this, coordinate] {
            PointValue next = m_value;
            next.*coordinate -= m_step;
            change(next);
        });
        connect(group, &NumberGroup::plusPressed, this, [this, coordinate] {
            PointValue next = m_value;
            next.*coordinate += m_step;
            change(next);
        });
        // Typing is not held to the range.
        connect(group, &NumberGroup::typed, this, [this, coordinate](const QString& text) {
            if (const std::optional<double> typed = stepper::parseTyped(text)) {
                PointValue next = m_value;
                next.*coordinate = *typed;
                change(next);
            }
            refresh();
        });
    };
    bind(m_x, &PointValue::x);
    bind(m_y, &PointValue::y);
    m_x->setFieldEnabled(!disableEditing);
    m_y->setFieldEnabled(!disableEditing);
    refresh();
}

PointValue LabelledPointStepper::value() const
{
    return m_value;
}

void LabelledPointStepper::setValue(PointValue value)
{
    m_value = value;
    refresh();
}

void LabelledPointStepper::change(PointValue next)
{
    if (next == m_value)
        return;
    m_value = next;
    refresh();
    emit valueChanged(m_value);
}

void LabelledPointStepper::refresh()
{
    m_x->setText(stepper::plainText(m_value.x));
    m_x->setButtonsEnabled(stepper::coordinateButtons(m_value.x, m_range));
    m_y->setText(stepper::plainText(m_value.y));
    m_y->setButtonsEnabled(stepper::coordinateButtons(m_value.y, m_range));
}

// ---- Point range ------------------------------------------------------------------------------

LabelledPointRangeStepper::LabelledPointRangeStepper(const QString& title, const QString& description,
                                                     const QString& value, double step, RangeValue range,
                                                     bool disableEditing, const Style& style, QWidget* parent)
    : StepperWidget(parent),
      m_step(step),
      m_range(range)
{
    QHBoxLayout* row = stepperRow(this, title, description, style);
    auto* column = new QVBoxLayout;
    column->setSpacing(2);
    row->addLayout(column);
    const char* names[4] = {"xLower", "xUpper", "yLower", "yUpper"};
    for (int axis = 0; axis < 2; ++axis) {
        auto* line = new QHBoxLayout;
        column->addLayout(line);
        addWord(line, this, axis == 0 ? tr("x") : tr("y"))->setMinimumWidth(12);
        m_groups[2 * axis] = addGroup(line, this, QString(), names[2 * axis], style);
        addWord(line, this, tr("to"));
        m_groups[2 * axis + 1] = addGroup(line, this, QString(), names[2 * axis + 1], style);
    }
    for (int index = 0; index < 4; ++index) {
        const auto which = bound(index);
        NumberGroup* group = m_groups[index];
        group->setFieldEnabled(!disableEditing);
        connect(group, &NumberGroup::minusPressed, this, [this, which] { change(which, boundValue(which) - m_step); });
        connect(group, &NumberGroup::plusPressed, this, [this, which] { change(which, boundValue(which) + m_step); });
        connect(group, &NumberGroup::typed, this, [this, which](const QString& text) {
            // A number outside the range puts the old one back.
            if (const std::optional<double> typed = stepper::parseTyped(text))
                change(which, stepper::acceptedFloat(*typed, boundValue(which), m_range));
            refresh();
        });
    }
    setValue(value);
}

QString LabelledPointRangeStepper::value() const
{
    return m_text;
}

void LabelledPointRangeStepper::setValue(const QString& value)
{
    m_text = value;
    m_bounds = stepper::pointRangeFromText(value.toStdString());
    refresh();
}

double& LabelledPointRangeStepper::boundValue(bound which)
{
    switch (which) {
    case bound::xLower: return m_bounds.x.lower;
    case bound::xUpper: return m_bounds.x.upper;
    case bound::yLower: return m_bounds.y.lower;
    case bound::yUpper: break;
    }
    return m_bounds.y.upper;
}

void LabelledPointRangeStepper::change(bound which, double next)
{
    double& current = boundValue(which);
    if (next == current)
        return;
    current = next;
    m_text = QString::fromStdString(stepper::pointRangeText(m_bounds));
    refresh();
    emit valueChanged(m_text);
}

void LabelledPointRangeStepper::refresh()
{
    for (int index = 0; index < 4; ++index) {
        const double current = boundValue(bound(index));
        m_groups[index]->setText(stepper::plainText(current));
        m_groups[index]->setButtonsEnabled(stepper::coordinateButtons(current, m_range));
    }
}

} // namespace stagewright
