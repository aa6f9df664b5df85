// The labelled steppers: each shows and changes one value and knows nothing of
// the models. `setValue` shows a value the model holds and reports nothing;
// the signals report only what the user did (a button, each repeat of a held
// button, or a typed number), one signal per change.
#pragma once

#include "StepperStyle.h"

#include <tessaro/model/Geometry.h>

#include <QWidget>

#include <cstdint>
#include <optional>

namespace stagewright {

/// How the range stepper shows its numbers.
enum class stepperPrecision { Int, CGFloat };

/// A float between the ends of `range`, shown at `roundedPlaces` places (1 when
/// absent); the buttons stop at the ends, a typed value outside is put back.
class LabelledCGFloatStepper : public QWidget {
    Q_OBJECT
public:
    LabelledCGFloatStepper(const QString& title, const QString& description, tessaro::RangeValue range, double step,
                           std::optional<int> roundedPlaces = {}, const Style& style = {}, QWidget* parent = nullptr);
    double value() const;
    void setValue(double value);
signals:
    void valueChanged(double value);
};

/// A whole number; the range limits only the buttons.
class LabelledIntStepper : public QWidget {
    Q_OBJECT
public:
    LabelledIntStepper(const QString& title, const QString& description, std::int64_t lower, std::int64_t upper,
                       std::int64_t step, const Style& style = {}, QWidget* parent = nullptr);
    std::int64_t value() const;
    void setValue(std::int64_t value);
signals:
    void valueChanged(std::int64_t value);
};

/// A lower and an upper bound, "lower to upper", step 1. Escape in the upper
/// field sets upper to lower.
class LabelledRangeStepper : public QWidget {
    Q_OBJECT
public:
    LabelledRangeStepper(const QString& title, const QString& description, tessaro::RangeValue range,
                         stepperPrecision precision, const Style& style = {}, QWidget* parent = nullptr);
    double lower() const;
    double upper() const;
    void setBounds(double lower, double upper);
signals:
    void lowerChanged(double lower);
    void upperChanged(double upper);
};

/// A vector, "dx" and "dy", step 1, no limits.
class LabelledVectorStepper : public QWidget {
    Q_OBJECT
public:
    LabelledVectorStepper(const QString& title, const QString& description, const Style& style = {},
                          QWidget* parent = nullptr);
    tessaro::PointValue value() const;
    void setValue(tessaro::PointValue value);
signals:
    void valueChanged(tessaro::PointValue value);
};

/// A size, "width" and "height" ("w" and "h" with `shortLabel`), step 1, and
/// the toggle "Maintain aspect ratio" when `showMaintainAspectRatio` is set.
class LabelledSizeStepper : public QWidget {
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
};

/// A point, "x" and "y"; `range` limits the buttons of both coordinates.
class LabelledPointStepper : public QWidget {
    Q_OBJECT
public:
    LabelledPointStepper(const QString& title, const QString& description, double step, tessaro::RangeValue range,
                         bool disableEditing = false, const Style& style = {}, QWidget* parent = nullptr);
    tessaro::PointValue value() const;
    void setValue(tessaro::PointValue value);
signals:
    void valueChanged(tessaro::PointValue value);
};

/// The random-position text "{<xl...xu>,<yl...yu>}" as four bounds.
class LabelledPointRangeStepper : public QWidget {
    Q_OBJECT
public:
    LabelledPointRangeStepper(const QString& title, const QString& description, const QString& value, double step,
                              tessaro::RangeValue range, bool disableEditing = false, const Style& style = {},
                              QWidget* parent = nullptr);
    QString value() const;
    void setValue(const QString& value);
signals:
    void valueChanged(const QString& value);
};

} // namespace stagewright
