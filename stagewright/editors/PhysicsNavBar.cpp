#include "PhysicsNavBar.h"

#include "PhysicsSession.h"

#include <stagewright/inspector/controls/Popover.h>

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <cmath>

namespace stagewright {

namespace {

/// A button with a theme icon, else the style's own.
QToolButton* commandButton(const QString& text, const QString& themeIcon, QStyle::StandardPixmap fallback,
                           const QString& help, QWidget* owner)
{
    auto* button = new QToolButton(owner);
    button->setText(text);
    button->setIcon(QIcon::fromTheme(themeIcon, owner->style()->standardIcon(fallback)));
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setAutoRaise(true);
    button->setToolTip(help);
    return button;
}

} // namespace

const std::vector<InsertItem>& insertItems()
{
    static const std::vector<InsertItem> items{
        {QObject::tr("Selection"), "hand.tap", InsertType::none},
        {QObject::tr("Rectangle"), "Rectangle", InsertType::rectangle},
        {QObject::tr("Radius"), "circle", InsertType::radius},
        {QObject::tr("Edge"), "line.3.horizontal.decrease", InsertType::edge},
        {QObject::tr("Polygon"), "octagon", InsertType::polygon},
    };
    return items;
}

const InsertItem& insertItemFor(InsertType type)
{
    for (const InsertItem& item : insertItems())
        if (item.type == type)
            return item;
    return insertItems().front();
}

QIcon insertIcon(InsertType type, const QColor& colour)
{
    QPixmap picture(32, 32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    switch (type) {
    case InsertType::rectangle: painter.drawRect(QRectF(6, 9, 20, 14)); break;
    case InsertType::radius: painter.drawEllipse(QPointF(16, 16), 10, 10); break;
    case InsertType::edge:
        for (int i = 0; i < 3; ++i)
            painter.drawLine(QPointF(5 + 4 * i, 10 + 6 * i), QPointF(27 - 4 * i, 10 + 6 * i));
        break;
    case InsertType::polygon: {
        QPainterPath octagon;
        for (int i = 0; i < 8; ++i) {
            const double angle = M_PI / 8 + i * M_PI / 4;
            const QPointF corner(16 + 11 * std::cos(angle), 16 + 11 * std::sin(angle));
            i == 0 ? octagon.moveTo(corner) : octagon.lineTo(corner);
        }
        octagon.closeSubpath();
        painter.drawPath(octagon);
        break;
    }
    case InsertType::none: {
        // A finger tapping: a rounded stem and a ring where it touches.
        painter.drawRoundedRect(QRectF(13, 6, 6, 16), 3, 3);
        painter.drawEllipse(QPointF(16, 25), 5, 2.5);
        break;
    }
    }
    return QIcon(picture);
}

NavBarViewType::NavBarViewType(ImagePhysicsSession& session, QWidget* parent) : QWidget(parent), m_session(session)
{
    setObjectName(QStringLiteral("physicsNavBar"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);

    m_tool = new QToolButton(this);
    m_tool->setObjectName(QStringLiteral("toolButton"));
    m_tool->setFixedSize(90, 80);
    m_tool->setIconSize(QSize(32, 32));
    m_tool->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    connect(m_tool, &QToolButton::clicked, this, &NavBarViewType::toggleToolPopover);
    layout->addWidget(m_tool);

    QStringList alphas = physicsAlphaValues();
    m_alpha = picker(tr("Alpha"), alphas, alphas);
    connect(m_alpha, &QComboBox::activated, this,
            [this](int index) { m_session.setAlphaValue(m_alpha->itemData(index).toString()); });
    QStringList scaleLabels;
    for (const QString& value : physicsScaleValues())
        scaleLabels << QString::number(std::lround(value.toDouble() * 100)) + QLatin1Char('%');
    m_scale = picker(tr("Scale"), scaleLabels, physicsScaleValues());
    connect(m_scale, &QComboBox::activated, this,
            [this](int index) { m_session.setScaleValue(m_scale->itemData(index).toString()); });
    const QStringList noYes{tr("No"), tr("Yes")};
    const QStringList flags{QStringLiteral("0"), QStringLiteral("1")};
    m_flipHorizontal = picker(tr("Flip Horizontal"), noYes, flags);
    connect(m_flipHorizontal, &QComboBox::activated, this,
            [this](int index) { m_session.setFlipImageHorizontal(index == 1); });
    m_flipVertical = picker(tr("Flip Vertical"), noYes, flags);
    connect(m_flipVertical, &QComboBox::activated, this,
            [this](int index) { m_session.setFlipImageVertical(index == 1); });
    m_onlySelected = picker(tr("Display only selected"), noYes, flags);
    connect(m_onlySelected, &QComboBox::activated, this,
            [this](int index) { m_session.setDisplayOnlySelectedPhysics(index == 1); });

    m_readOut = new QLabel(this);
    m_readOut->setObjectName(QStringLiteral("pointerReadOut"));
    m_readOut->setTextFormat(Qt::MarkdownText);
    m_readOut->setMinimumWidth(120);
    layout->addWidget(m_readOut);
    layout->addStretch();

    m_properties = commandButton(tr("Properties"), QStringLiteral("view-right-pane"), QStyle::SP_FileDialogDetailedView,
                                 tr("Show or hide the shapes' properties."), this);
    m_properties->setObjectName(QStringLiteral("propertiesButton"));
    m_properties->setCheckable(true);
    connect(m_properties, &QToolButton::clicked, this,
            [this] { m_session.setInspectorPresented(!m_session.isInspectorPresented()); });
    layout->addWidget(m_properties);
    auto* apply = commandButton(m_session.editBaseElement() ? tr("Save") : tr("Apply"), QStringLiteral("document-save"),
                                QStyle::SP_DialogSaveButton, tr("Apply the changes and close the window."), this);
    apply->setObjectName(QStringLiteral("applyButton"));
    connect(apply, &QToolButton::clicked, this, &NavBarViewType::applyRequested);
    layout->addWidget(apply);
    auto* cancel = commandButton(tr("Cancel"), QStringLiteral("dialog-cancel"), QStyle::SP_DialogCancelButton,
                                 tr("Cancel the changes and close the window."), this);
    cancel->setObjectName(QStringLiteral("cancelButton"));
    connect(cancel, &QToolButton::clicked, this, &NavBarViewType::cancelRequested);
    layout->addWidget(cancel);
    refresh();
}

QComboBox* NavBarViewType::picker(const QString& title, const QStringList& labels, const QStringList& values)
{
    auto* box = new QWidget(this);
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    auto* label = new QLabel(title, box);
    label->setForegroundRole(QPalette::PlaceholderText);
    column->addWidget(label);
    auto* combo = new QComboBox(box);
    combo->setObjectName(title);
    for (qsizetype i = 0; i < labels.size(); ++i)
        combo->addItem(labels.at(i), values.at(i));
    column->addWidget(combo);
    layout()->addWidget(box);
    return combo;
}

void NavBarViewType::refresh()
{
    const InsertItem& tool = insertItemFor(m_session.activeType());
    m_tool->setText(tool.name);
    m_tool->setIcon(insertIcon(tool.type, palette().color(QPalette::ButtonText)));
    m_tool->setToolTip(m_session.canChooseTool() ? tr("Choose the drawing tool.")
                                                 : tr("Shapes are drawn at 100% only."));
    const auto show = [](QComboBox* combo, const QString& value) {
        const QSignalBlocker quiet(combo);
        combo->setCurrentIndex(std::max(0, combo->findData(value)));
    };
    show(m_alpha, m_session.alphaValue());
    show(m_scale, m_session.scaleValue());
    show(m_flipHorizontal, m_session.flipImageHorizontal() ? QStringLiteral("1") : QStringLiteral("0"));
    show(m_flipVertical, m_session.flipImageVertical() ? QStringLiteral("1") : QStringLiteral("0"));
    show(m_onlySelected, m_session.displayOnlySelectedPhysics() ? QStringLiteral("1") : QStringLiteral("0"));
    m_properties->setChecked(m_session.isInspectorPresented());
    refreshReadOut();
}

void NavBarViewType::refreshReadOut()
{
    m_readOut->setText(m_session.yValues());
}

void NavBarViewType::toggleToolPopover()
{
    if (!m_session.canChooseTool())
        return;
    if (m_popover && m_popover->isVisible()) {
        m_popover->hide();
        return;
    }
    if (!m_popover) {
        m_popover = detail::makePopover(this);
        m_popover->setObjectName(QStringLiteral("toolPopover"));
        auto* rows = new QVBoxLayout(m_popover);
        rows->setContentsMargins(4, 4, 4, 4);
        rows->setSpacing(0);
        for (const InsertItem& item : insertItems()) {
            auto* row =
                new QPushButton(insertIcon(item.type, palette().color(QPalette::ButtonText)), item.name, m_popover);
            row->setObjectName(item.name);
            row->setFlat(true);
            row->setIconSize(QSize(24, 24));
            row->setStyleSheet(QStringLiteral("text-align: left; padding: 4px 12px;"));
            const InsertType type = item.type;
            connect(row, &QPushButton::clicked, this, [this, type] {
                m_session.setActiveType(type);
                m_popover->hide();
            });
            rows->addWidget(row);
        }
    }
    detail::showPopoverBelow(m_popover, m_tool);
}

} // namespace stagewright
