// A node that draws text.
//
// The node's position is the alignment point of the text: horizontally the
// left end, centre or right end of the widest line; vertically the baseline
// of the first line, the centre, the top or the bottom of the text block.
#pragma once

#include "Node.h"

#include <QColor>
#include <QFont>
#include <QStringList>

namespace tessaro::kit {

enum class LabelHorizontalAlignment { Center, Left, Right };
enum class LabelVerticalAlignment { Baseline, Center, Top, Bottom };

class LabelNode : public Node {
public:
    LabelNode();
    explicit LabelNode(const QString& text);

    static std::shared_ptr<LabelNode> labelNodeWithFontNamed(const QString& fontName);
    static std::shared_ptr<LabelNode> labelNodeWithText(const QString& text);

    QString text() const { return m_text; }
    void setText(const QString& text);

    /// A family name, optionally with a style suffix: "DejaVu Sans-Bold",
    /// "Helvetica-BoldOblique". "System" (or an empty name) is the default
    /// application font. Bold and italic suffixes are understood.
    QString fontName() const { return m_fontName; }
    void setFontName(const QString& name);
    /// The font size, in points of the node's space. Default 32.
    qreal fontSize() const { return m_fontSize; }
    void setFontSize(qreal size);
    /// Sets family and style from a QFont (its size is ignored; see fontSize).
    void setFont(const QFont& font);
    /// The font used for drawing, with the pixel size of fontSize.
    QFont font() const;

    QColor fontColor() const { return m_fontColor; }
    void setFontColor(const QColor& c);

    LabelHorizontalAlignment horizontalAlignmentMode() const { return m_hAlign; }
    void setHorizontalAlignmentMode(LabelHorizontalAlignment mode);
    LabelVerticalAlignment verticalAlignmentMode() const { return m_vAlign; }
    void setVerticalAlignmentMode(LabelVerticalAlignment mode);

    /// 1 (the default) shows one line; 0 shows as many lines as the text
    /// needs; n > 1 shows at most n lines. Explicit line breaks always count.
    int numberOfLines() const { return m_numberOfLines; }
    void setNumberOfLines(int n);
    /// Width at which lines wrap when numberOfLines is not 1; 0 never wraps.
    qreal preferredMaxLayoutWidth() const { return m_preferredMaxLayoutWidth; }
    void setPreferredMaxLayoutWidth(qreal w);

    /// The lines as laid out.
    QStringList layoutLines() const;

    QRectF contentRect() const override;
    bool hasContent() const override { return !m_text.isEmpty(); }
    void draw(DrawContext& context) const override;

private:
    struct Metrics {
        qreal ascent, descent, lineSpacing;
        std::vector<qreal> widths;
        QStringList lines;
    };
    Metrics metrics() const;

    QString m_text;
    QString m_fontName;
    QFont m_font;
    qreal m_fontSize = 32;
    QColor m_fontColor{Qt::white};
    LabelHorizontalAlignment m_hAlign = LabelHorizontalAlignment::Center;
    LabelVerticalAlignment m_vAlign = LabelVerticalAlignment::Baseline;
    int m_numberOfLines = 1;
    qreal m_preferredMaxLayoutWidth = 0;
};

using LabelNodePtr = std::shared_ptr<LabelNode>;

} // namespace tessaro::kit
