#include "LabelNode.h"

#include "Renderer.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

#include <cmath>
#include <functional>
#include <optional>

namespace tessaro::kit {

namespace {

bool haveFonts()
{
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

} // namespace

LabelNode::LabelNode() = default;

LabelNode::LabelNode(const QString& text) : m_text(text) {}

std::shared_ptr<LabelNode> LabelNode::labelNodeWithFontNamed(const QString& fontName)
{
    auto label = std::make_shared<LabelNode>();
    label->setFontName(fontName);
    return label;
}

std::shared_ptr<LabelNode> LabelNode::labelNodeWithText(const QString& text)
{
    return std::make_shared<LabelNode>(text);
}

void LabelNode::setText(const QString& text)
{
    if (text == m_text)
        return;
    m_text = text;
    touch();
}

void LabelNode::setFontName(const QString& name)
{
    m_fontName = name;
    QString family = name;
    QString style;
    const int dash = name.lastIndexOf(QLatin1Char('-'));
    if (dash > 0) {
        family = name.left(dash);
        style = name.mid(dash + 1).toLower();
    }
    QFont font;
    if (!family.isEmpty() && family.compare(QLatin1String("System"), Qt::CaseInsensitive) != 0 &&
        family.compare(QLatin1String("SystemFont"), Qt::CaseInsensitive) != 0)
        font.setFamily(family);
    font.setBold(style.contains(QLatin1String("bold")) || style.contains(QLatin1String("heavy")) ||
                 style.contains(QLatin1String("black")));
    font.setItalic(style.contains(QLatin1String("italic")) || style.contains(QLatin1String("oblique")));
    if (style.contains(QLatin1String("light")) || style.contains(QLatin1String("thin")))
        font.setWeight(QFont::Light);
    m_font = font;
    touch();
}

void LabelNode::setFont(const QFont& font)
{
    m_font = font;
    m_fontName = font.family() + (font.bold() ? QStringLiteral("-Bold") : QString());
    touch();
}

QFont LabelNode::font() const
{
    QFont f = m_font;
    f.setPixelSize(std::max(1, int(std::lround(m_fontSize))));
    return f;
}

void LabelNode::setFontSize(qreal size)
{
    m_fontSize = size;
    touch();
}

void LabelNode::setFontColor(const QColor& c)
{
    m_fontColor = c;
    touch();
}

void LabelNode::setHorizontalAlignmentMode(LabelHorizontalAlignment mode)
{
    m_hAlign = mode;
    touch();
}

void LabelNode::setVerticalAlignmentMode(LabelVerticalAlignment mode)
{
    m_vAlign = mode;
    touch();
}

void LabelNode::setNumberOfLines(int n)
{
    m_numberOfLines = std::max(0, n);
    touch();
}

void LabelNode::setPreferredMaxLayoutWidth(qreal w)
{
    m_preferredMaxLayoutWidth = w;
    touch();
}

LabelNode::Metrics LabelNode::metrics() const
{
    Metrics m;
    std::function<qreal(const QString&)> width;
    std::optional<QFontMetricsF> fm;
    if (haveFonts()) {
        fm.emplace(font());
        m.ascent = fm->ascent();
        m.descent = fm->descent();
        m.lineSpacing = fm->lineSpacing();
        width = [&fm](const QString& s) { return fm->horizontalAdvance(s); };
    } else {
        // Without a GUI application there is no font database: estimate.
        m.ascent = 0.8 * m_fontSize;
        m.descent = 0.2 * m_fontSize;
        m.lineSpacing = 1.2 * m_fontSize;
        const qreal size = m_fontSize;
        width = [size](const QString& s) { return 0.55 * size * s.size(); };
    }

    QStringList raw;
    if (m_numberOfLines == 1)
        raw << QString(m_text).replace(QLatin1Char('\n'), QLatin1Char(' '));
    else
        raw = m_text.split(QLatin1Char('\n'));
    const bool wrap = m_numberOfLines != 1 && m_preferredMaxLayoutWidth > 0;
    for (const QString& line : raw) {
        if (!wrap || width(line) <= m_preferredMaxLayoutWidth) {
            m.lines << line;
            continue;
        }
        QString current;
        for (const QString& word : line.split(QLatin1Char(' '))) {
            const QString candidate = current.isEmpty() ? word : current + QLatin1Char(' ') + word;
            if (!current.isEmpty() && width(candidate) > m_preferredMaxLayoutWidth) {
                m.lines << current;
                current = word;
            } else {
                current = candidate;
            }
        }
        m.lines << current;
    }
    if (m_numberOfLines > 1 && m.lines.size() > m_numberOfLines)
        m.lines = m.lines.mid(0, m_numberOfLines);
    for (const QString& line : m.lines)
        m.widths.push_back(width(line));
    return m;
}

QStringList LabelNode::layoutLines() const
{
    return metrics().lines;
}

namespace {

// Baseline of the first line (node space, y up) for the vertical mode.
qreal firstBaseline(LabelVerticalAlignment mode, qreal ascent, qreal descent, qreal spacing, int lines)
{
    const qreal block = ascent + descent + spacing * std::max(0, lines - 1);
    switch (mode) {
    case LabelVerticalAlignment::Baseline: return 0;
    case LabelVerticalAlignment::Top: return -ascent;
    case LabelVerticalAlignment::Bottom: return block - ascent;
    case LabelVerticalAlignment::Center: return block / 2 - ascent;
    }
    return 0;
}

qreal lineLeft(LabelHorizontalAlignment mode, qreal width)
{
    switch (mode) {
    case LabelHorizontalAlignment::Left: return 0;
    case LabelHorizontalAlignment::Right: return -width;
    case LabelHorizontalAlignment::Center: return -width / 2;
    }
    return 0;
}

} // namespace

QRectF LabelNode::contentRect() const
{
    if (m_text.isEmpty())
        return {};
    const Metrics m = metrics();
    const qreal base = firstBaseline(m_vAlign, m.ascent, m.descent, m.lineSpacing, int(m.lines.size()));
    QRectF r;
    for (int i = 0; i < m.lines.size(); ++i) {
        const qreal y = base - i * m.lineSpacing;
        const qreal w = m.widths[size_t(i)];
        const QRectF line(lineLeft(m_hAlign, w), y - m.descent, w, m.ascent + m.descent);
        r = r.isNull() ? line : r.united(line);
    }
    return r;
}

void LabelNode::draw(DrawContext& ctx) const
{
    if (m_text.isEmpty() || m_fontColor.alpha() == 0)
        return;
    const Metrics m = metrics();
    QPainter& p = ctx.painter;
    // Text is laid out downwards: flip the node's y.
    p.setTransform(QTransform(1, 0, 0, -1, 0, 0) * ctx.transform);
    p.setRenderHint(QPainter::TextAntialiasing, true);
    p.setFont(font());
    p.setPen(m_fontColor);
    const qreal base = firstBaseline(m_vAlign, m.ascent, m.descent, m.lineSpacing, int(m.lines.size()));
    for (int i = 0; i < m.lines.size(); ++i) {
        const qreal y = base - i * m.lineSpacing;
        p.drawText(QPointF(lineLeft(m_hAlign, m.widths[size_t(i)]), -y), m.lines[i]);
    }
}

} // namespace tessaro::kit
