// The pieces the steppers are built of: the colours of a style on the present
// palette, the title block and one number group (minus, field, plus). Used
// only by the steppers.
#pragma once

#include "StepperRules.h"
#include "StepperStyle.h"

#include <QColor>
#include <QToolButton>
#include <QWidget>

class QLabel;
class QLineEdit;

namespace stagewright::detail {

/// A style's colours, the invalid ones taken from the palette.
struct StyleColors {
    QColor background;
    QColor activeButton;
    QColor inactiveButton;
    QColor button;
    QColor title;
    QColor description;
    QColor value;
};
StyleColors resolveColors(const Style& style, const QPalette& palette);

// The parts take their default colours from the palette again when the
// appearance changes, so a switch to dark mode leaves no dark text on a dark
// field.

/// Title and description in bold on a rounded background.
class TitleBlock : public QWidget {
public:
    TitleBlock(const QString& title, const QString& description, const Style& style, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeColours();

    Style m_style;
    QColor m_background;
};

/// A title block, or null when title and description are both empty.
TitleBlock* makeTitleBlock(const QString& title, const QString& description, const Style& style, QWidget* parent);

/// A stepper's button: "−" or "+", repeating while held, in the style's
/// colour while enabled and its inactive colour while disabled.
class StepperButton : public QToolButton {
public:
    StepperButton(const QString& text, const Style& style, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;

private:
    void takeColours();

    Style m_style;
};

/// An optional caption, a minus button, a number field and a plus button.
/// The group reports presses and typed text; the stepper owning it decides
/// what they do and shows the result with `setText`.
class NumberGroup : public QWidget {
    Q_OBJECT
public:
    NumberGroup(const QString& caption, const Style& style, QWidget* parent = nullptr);

    /// Shows a number; typed text that was not taken is replaced.
    void setText(const QString& text);
    void setButtonsEnabled(stepper::ButtonsEnabled enabled);
    void setFieldEnabled(bool enabled);

    QLineEdit* field() const { return m_field; }
    QToolButton* minusButton() const { return m_minus; }
    QToolButton* plusButton() const { return m_plus; }

signals:
    void minusPressed();
    void plusPressed();
    /// Return, Enter or leaving the field with changed text.
    void typed(const QString& text);
    void escapePressed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void takeColours();

    Style m_style;
    QLabel* m_caption = nullptr;
    StepperButton* m_minus = nullptr;
    QLineEdit* m_field = nullptr;
    StepperButton* m_plus = nullptr;
};

/// The base of the steppers. Hiding a field on the way out ends its editing;
/// the groups stop reporting to the stepper before it goes.
class StepperWidget : public QWidget {
public:
    using QWidget::QWidget;
    ~StepperWidget() override;
};

} // namespace stagewright::detail
