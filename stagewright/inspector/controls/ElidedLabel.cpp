#include "ElidedLabel.h"

#include <QFontMetrics>

#include <algorithm>

namespace stagewright {

ElidedLabel::ElidedLabel(const QString& text, QWidget* parent) : QLabel(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    setFullText(text);
}

void ElidedLabel::setFullText(const QString& text)
{
    m_full = text;
    elide();
    updateGeometry();
}

bool ElidedLabel::isElided() const
{
    return text() != m_full;
}

QSize ElidedLabel::minimumSizeHint() const
{
    // Room for the ellipsis and a few letters; the rest elides.
    return {fontMetrics().horizontalAdvance(QStringLiteral("M…")), QLabel::minimumSizeHint().height()};
}

QSize ElidedLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_full) + 2 * margin() + 2, QLabel::sizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide()
{
    const int room = contentsRect().width() - 2 * margin();
    const QString shown = fontMetrics().elidedText(m_full, Qt::ElideRight, std::max(room, 0));
    if (shown != text())
        QLabel::setText(shown);
    // The whole text is the tooltip while the text is cut short; a tooltip
    // given otherwise stays.
    if (shown != m_full) {
        setToolTip(m_full);
        m_tipIsText = true;
    } else if (m_tipIsText) {
        setToolTip(QString());
        m_tipIsText = false;
    }
}

} // namespace stagewright
