// The labelled steppers: each shows and changes one value and knows nothing of
// the models. `setValue` shows a value the model holds and reports nothing;
// the signals report only what the user did (a button, each repeat of a held
// button, or a typed number), one signal per change.
#pragma once

#include "StepperParts.h"
#include "StepperRules.h"
#include "StepperStyle.h"

#include <tessaro/model/Geometry.h>

#include <QWidget>

#include <cstdint>
#include <optional>

class QCheckBox;

namespace stagewright {

/// How the range stepper shows its numbers.
enum class StepperPrecision { Int, CGFloat };

/// A float within `range`, shown at `roundedPlaces` places (1 when absent).
/// A button acts while the value is inside its end, so one step may pass the
/// end; a typed value outside the range is put back.
class LabelledCGFloatStepper : public detail::StepperWidget {
    Q_OBJECT
public:
    LabelledCGFloatStepper(const QString& title, const QString& description, tessaro::RangeValue range, double step,
                           std::optional<int> roundedPlaces = {}, const Style& style = {}, QWidget* parent = nullptr);
    double value() const;
    void setValue(double value);
signals:
    void valueChanged(double value);

private:
    void change(double next);
    void take(const QString& text);
    void refresh();

    tessaro::RangeValue m_range;
    double m_step;
    int m_places;
    double m_value = 0;
    detail::NumberGroup* m_group = nullptr;
};

/// A whole number; the range limits only the buttons.
class LabelledIntStepper : public detail::StepperWidget {
    Q_OBJECT
public:
    LabelledIntStepper(const QString& title, const QString& description, std::int64_t lower, std::int64_t upper,
                       std::int64_t step, const Style& style = {}, QWidget* parent = nullptr);
    std::int64_t value() const;
    void setValue(std::int64_t value);
signals:
    void valueChanged(std::int64_t value);

private:
    void change(std::int64_t next);
    void refresh();

    std::int64_t m_lower;
    std::int64_t m_upper;
    std::int64_t m_step;
    std::int64_t m_value = 0;
    detail::NumberGroup* m_group = nullptr;
};

/// A lower and an upper bound, "lower to upper", step 1. Escape in the upper
/// field sets upper to lower.
class LabelledRangeStepper : public detail::StepperWidget {
    Q_OBJECT
public:
    LabelledRangeStepper(const QString& title, const QString& description, tessaro::RangeValue range,
                         StepperPrecision precision, const Style& style = {}, QWidget* parent = nullptr);
    double lower() const;
    double upper() const;
    void setBounds(double lower, double upper);
signals:
    void lowerChanged(double lower);
    void upperChanged(double upper);

private:
    void press(stepper::RangeButton button);
    void change(tessaro::RangeValue next);
    QString text(double value) const;
    void refresh();

    tessaro::RangeValue m_range;
    StepperPrecision m_precision;
    tessaro::RangeValue m_bounds;
    detail::NumberGroup* m_lowerGroup = nullptr;
    detail::NumberGroup* m_upperGroup = nullptr;
};

/// A vector, "dx" and "dy", step 1, no limits.
class LabelledVectorStepper : public detail::StepperWidget {
    Q_OBJECT
public:
    LabelledVectorStepper(const QString& title, const QString& description, const Style& style = {},
                          QWidget* parent = nullptr);
    tessaro::PointValue value() const;
    void setValue(tessaro::PointValue value);
signals:
    void valueChanged(tessaro::PointValue value);

private:
    void change(tessaro::PointValue next);
    void refresh();

    tessaro::PointValue m_value;
    detail::NumberGroup* m_dx = nullptr;
    detail::NumberGroup* m_dy = nullptr;
};

/// A size, "width" and "height" ("w" and "h" with `shortLabel`), step 1, and
/// the toggle "Maintain aspect ratio" when `showMaintainAspectRatio` is set.
class LabelledSizeStepper : public detail::StepperWidget {
    Q_OBJECT
public:
    LabelledSizeStepper(const QString& title, const QString& description, bool shortLabel, bool showMaintainAspectRatio,
                        double aspectRatio = 1, const Style& style = {}, QWidget* parent = nullptr);
    tessaro::SizeValue value() const;
    void setValue(tessaro::SizeValue value);
    bool toggleIsOn() const;
    double aspectRatio() const;
signals:
    void valueChanged(tessaro::SizeValue value);

private:
    void change(tessaro::SizeValue next);
    void toggle(bool on);
    bool keepsRatio() const { return m_showMaintainAspectRatio && m_toggleIsOn; }
    void refresh();

    bool m_showMaintainAspectRatio;
    bool m_toggleIsOn = false;
    double m_aspectRatio;
    tessaro::SizeValue m_value;
    detail::NumberGroup* m_width = nullptr;
    detail::NumberGroup* m_height = nullptr;
    QCheckBox* m_toggle = nullptr;
};

/// A point, "x" and "y"; `range` limits the buttons of both coordinates.
class LabelledPointStepper : public detail::StepperWidget {
    Q_OBJECT
public:
    LabelledPointStepper(const QString& title, const QString& description, double step, tessaro::RangeValue range,
                         bool disableEditing = false, const Style& style = {}, QWidget* parent = nullptr);
    tessaro::PointValue value() const;
    void setValue(tessaro::PointValue value);
signals:
    void valueChanged(tessaro::PointValue value);

private:
    void change(tessaro::PointValue next);
    void refresh();

    double m_step;
    tessaro::RangeValue m_range;
    tessaro::PointValue m_value;
    detail::NumberGroup* m_x = nullptr;
    detail::NumberGroup* m_y = nullptr;
};

/// The random-position text "{<xl...xu>,<yl...yu>}" as four bounds.
class LabelledPointRangeStepper : public detail::StepperWidget {
    Q_OBJECT
public:
    LabelledPointRangeStepper(const QString& title, const QString& description, const QString& value, double step,
                              tessaro::RangeValue range, bool disableEditing = false, const Style& style = {},
                              QWidget* parent = nullptr);
    QString value() const;
    void setValue(const QString& value);
signals:
    void valueChanged(const QString& value);

private:
    enum class bound { xLower, xUpper, yLower, yUpper };
    double& boundValue(bound which);
    void change(bound which, double next);
    void refresh();

    double m_step;
    tessaro::RangeValue m_range;
    QString m_text;
    stepper::PointRange m_bounds;
    detail::NumberGroup* m_groups[4] = {};
};

} // namespace stagewright
