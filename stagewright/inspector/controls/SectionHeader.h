// The header of a collapsible section: its title in bold and, on the other
// side, "Hide" while open and "Show" while closed. A click flips it.
#pragma once

#include <QWidget>

namespace stagewright {

class SectionHeader : public QWidget {
    Q_OBJECT
public:
    SectionHeader(const QString& title, bool isOn, const QString& onLabel = tr("Hide"),
                  const QString& offLabel = tr("Show"), bool hidingLabel = false, QWidget* parent = nullptr);
    bool isOn() const;
    void setOn(bool on);
signals:
    void toggled(bool on);
};

/// A 20 by 20 information button whose click shows `info`, read as Markdown.
class infoTipView : public QWidget {
    Q_OBJECT
public:
    explicit infoTipView(const QString& info, QWidget* parent = nullptr);
    bool isPopover() const;
};

} // namespace stagewright
