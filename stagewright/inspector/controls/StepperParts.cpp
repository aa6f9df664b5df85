#include "StepperParts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPainter>
#include <QVBoxLayout>

namespace stagewright::detail {

namespace {

QColor faded(QColor colour, double opacity)
{
    colour.setAlphaF(colour.alphaF() * opacity);
    return colour;
}

QColor orDefault(const QColor& chosen, const QColor& fallback)
{
    return chosen.isValid() ? chosen : fallback;
}

} // namespace

StyleColors resolveColors(const Style& style, const QPalette& palette)
{
    // The label colours of the desktop: the text colour and its fainter grades.
    const QColor label = palette.color(QPalette::WindowText);
    StyleColors colours;
    colours.background = orDefault(style.backgroundColor, faded(label, 0.1));
    colours.activeButton = orDefault(style.activeButtonColor, label);
    colours.inactiveButton = orDefault(style.inactiveButtonColor, faded(label, 0.26));
    colours.button = orDefault(style.buttonColor, label);
    colours.title = orDefault(style.titleColor, faded(label, 0.55));
    colours.description = orDefault(style.descriptionColor, label);
    colours.value = orDefault(style.valueColor, faded(label, 0.5));
    return colours;
}

TitleBlock::TitleBlock(const QString& title, const QString& description, const Style& style, QWidget* parent)
    : QWidget(parent),
      m_style(style)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 2, 6, 2);
    column->setSpacing(0);
    auto addLine = [&](const QString& text, const char* name) {
        if (text.isEmpty())
            return;
        auto* line = new QLabel(text, this);
        line->setObjectName(QLatin1String(name));
        QFont font = line->font();
        font.setBold(true);
        line->setFont(font);
        column->addWidget(line);
    };
    addLine(title, "title");
    addLine(description, "description");
    setMinimumWidth(int(style.labelWidth));
    takeColours();
}

void TitleBlock::takeColours()
{
    const StyleColors colours = resolveColors(m_style, palette());
    m_background = colours.background;
    const auto colourLine = [this](const char* name, const QColor& colour) {
        if (auto* line = findChild<QLabel*>(QLatin1String(name))) {
            QPalette linePalette = line->palette();
            linePalette.setColor(QPalette::WindowText, colour);
            line->setPalette(linePalette);
        }
    };
    colourLine("title", colours.title);
    colourLine("description", colours.description);
}

void TitleBlock::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        takeColours();
    QWidget::changeEvent(event);
}

void TitleBlock::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_background);
    painter.drawRoundedRect(QRectF(rect()), 8, 8);
}

TitleBlock* makeTitleBlock(const QString& title, const QString& description, const Style& style, QWidget* parent)
{
    if (title.isEmpty() && description.isEmpty())
        return nullptr;
    return new TitleBlock(title, description, style, parent);
}

StepperButton::StepperButton(const QString& text, const Style& style, QWidget* parent)
    : QToolButton(parent),
      m_style(style)
{
    setText(text);
    setAutoRepeat(true);
    setAutoRaise(true);
    setFocusPolicy(Qt::NoFocus);
    setFixedSize(int(style.buttonWidth), int(style.buttonHeight));
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    takeColours();
}

void StepperButton::takeColours()
{
    // Only the button text is set here, so the window text the colours come
    // from is still the inherited one; setting the same palette again is
    // no change and ends the round.
    const StyleColors colours = resolveColors(m_style, palette());
    QPalette buttonPalette = palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        buttonPalette.setColor(group, QPalette::ButtonText, colours.button);
    buttonPalette.setColor(QPalette::Disabled, QPalette::ButtonText, colours.inactiveButton);
    setPalette(buttonPalette);
}

void StepperButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        takeColours();
    QToolButton::changeEvent(event);
}

NumberGroup::NumberGroup(const QString& caption, const Style& style, QWidget* parent) : QWidget(parent), m_style(style)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(int(style.buttonPadding));
    if (!caption.isEmpty()) {
        m_caption = new QLabel(caption, this);
        m_caption->setObjectName(QStringLiteral("caption"));
        row->addWidget(m_caption);
    }
    m_minus = new StepperButton(QStringLiteral("\u2212"), style, this);
    m_minus->setObjectName(QStringLiteral("minus"));
    m_field = new QLineEdit(this);
    m_field->setObjectName(QStringLiteral("field"));
    m_field->setAlignment(Qt::AlignCenter);
    // Wide enough for six digits and a fraction; two groups and a label fit
    // the inspector's width.
    m_field->setFixedWidth(64);
    m_field->installEventFilter(this);
    takeColours();
    m_plus = new StepperButton(QStringLiteral("+"), style, this);
    m_plus->setObjectName(QStringLiteral("plus"));
    row->addWidget(m_minus);
    row->addWidget(m_field);
    row->addWidget(m_plus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);

    connect(m_minus, &QToolButton::clicked, this, &NumberGroup::minusPressed);
    connect(m_plus, &QToolButton::clicked, this, &NumberGroup::plusPressed);
    connect(m_field, &QLineEdit::editingFinished, this, [this] { emit typed(m_field->text()); });
}

void NumberGroup::takeColours()
{
    QPalette fieldPalette = m_field->palette();
    fieldPalette.setColor(QPalette::Text, resolveColors(m_style, palette()).value);
    m_field->setPalette(fieldPalette);
}

void NumberGroup::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        takeColours();
    QWidget::changeEvent(event);
}

void NumberGroup::setText(const QString& text)
{
    if (m_field->text() != text)
        m_field->setText(text);
}

void NumberGroup::setButtonsEnabled(stepper::ButtonsEnabled enabled)
{
    m_minus->setEnabled(enabled.minus);
    m_plus->setEnabled(enabled.plus);
}

void NumberGroup::setFieldEnabled(bool enabled)
{
    m_field->setEnabled(enabled);
}

bool NumberGroup::eventFilter(QObject* watched, QEvent* event)
{
    // Escape is taken only where the stepper gives it a meaning; elsewhere it
    // still reaches the window (a dialog closes on it).
    if (watched == m_field && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape &&
        isSignalConnected(QMetaMethod::fromSignal(&NumberGroup::escapePressed))) {
        emit escapePressed();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

StepperWidget::~StepperWidget()
{
    for (NumberGroup* group : findChildren<NumberGroup*>())
        group->disconnect(this);
}

} // namespace stagewright::detail
