#include "SectionHeader.h"

#include "Popover.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace stagewright {

namespace {

QLabel* boldLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    // The button under the labels takes the clicks.
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    return label;
}

} // namespace

SectionHeader::SectionHeader(const QString& title, bool isOn, const QString& onLabel, const QString& offLabel,
                             bool hidingLabel, QWidget* parent)
    : QWidget(parent),
      m_isOn(isOn),
      m_onLabel(onLabel),
      m_offLabel(offLabel)
{
    auto* outer = new QHBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    m_button = new QPushButton(this);
    m_button->setObjectName(QStringLiteral("sectionHeaderButton"));
    m_button->setFlat(true);
    m_button->setMinimumHeight(24);
    outer->addWidget(m_button);

    auto* row = new QHBoxLayout(m_button);
    row->setContentsMargins(6, 0, 6, 0);
    QLabel* titleLabel = boldLabel(title, m_button);
    titleLabel->setObjectName(QStringLiteral("sectionTitle"));
    row->addWidget(titleLabel);
    row->addStretch(1);
    m_image = new QLabel(m_button);
    m_image->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_image->hide();
    row->addWidget(m_image);
    m_state = boldLabel(QString(), m_button);
    m_state->setObjectName(QStringLiteral("sectionState"));
    m_state->setVisible(!hidingLabel);
    row->addWidget(m_state);

    connect(m_button, &QPushButton::clicked, this, [this] {
        m_isOn = !m_isOn;
        refresh();
        emit toggled(m_isOn);
    });
    refresh();
}

bool SectionHeader::isOn() const
{
    return m_isOn;
}

void SectionHeader::setOn(bool on)
{
    m_isOn = on;
    refresh();
}

void SectionHeader::setToggleImage(const QIcon& image)
{
    m_image->setVisible(!image.isNull());
    m_image->setPixmap(image.isNull() ? QPixmap() : image.pixmap(16, 16));
}

void SectionHeader::refresh()
{
    m_state->setText(m_isOn ? m_onLabel : m_offLabel);
}

InfoTipView::InfoTipView(const QString& info, QWidget* parent) : QWidget(parent), m_info(info)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    m_button = new QToolButton(this);
    m_button->setObjectName(QStringLiteral("infoTipButton"));
    m_button->setAutoRaise(true);
    m_button->setFixedSize(20, 20);
    m_button->setIconSize(QSize(16, 16));
    m_button->setIcon(QIcon::fromTheme(QStringLiteral("dialog-information"),
                                       style()->standardIcon(QStyle::SP_MessageBoxInformation)));
    row->addWidget(m_button);
    connect(m_button, &QToolButton::clicked, this, &InfoTipView::showPopover);
}

bool InfoTipView::isPopover() const
{
    return m_popover && m_popover->isVisible();
}

void InfoTipView::showPopover()
{
    if (!m_popover) {
        m_popover = detail::makePopover(this);
        m_popover->setObjectName(QStringLiteral("infoTipPopover"));
        auto* column = new QVBoxLayout(m_popover);
        auto* text = new QLabel(m_popover);
        text->setObjectName(QStringLiteral("infoTipText"));
        text->setTextFormat(Qt::MarkdownText);
        text->setText(m_info);
        text->setWordWrap(true);
        text->setMaximumWidth(320);
        text->setOpenExternalLinks(true);
        column->addWidget(text);
    }
    detail::showPopoverBelow(m_popover, m_button);
}

} // namespace stagewright
