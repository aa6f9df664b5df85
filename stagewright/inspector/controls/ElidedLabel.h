// A one-line text that takes the room it is given and no more: a value too
// long for it ends in "…", and its tooltip then holds the whole text, so a
// long value never widens the inspector beyond its width.
#pragma once

#include <QLabel>

namespace stagewright {

class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(const QString& text = {}, QWidget* parent = nullptr);
    void setFullText(const QString& text);
    const QString& fullText() const { return m_full; }
    /// Whether the text shown is cut short.
    bool isElided() const;

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void elide();

    QString m_full;
    bool m_tipIsText = false;
};

} // namespace stagewright
