// The header of a collapsible section: its title in bold and, on the other
// side, "Hide" while open and "Show" while closed. A click flips it.
#pragma once

#include <QIcon>
#include <QWidget>

class QFrame;
class QLabel;
class QPushButton;
class QToolButton;

namespace stagewright {

class SectionHeader : public QWidget {
    Q_OBJECT
public:
    SectionHeader(const QString& title, bool isOn, const QString& onLabel = tr("Hide"),
                  const QString& offLabel = tr("Show"), bool hidingLabel = false, QWidget* parent = nullptr);
    bool isOn() const;
    /// Shows a state the model holds; reports nothing.
    void setOn(bool on);
    /// A picture beside the label; a null icon takes it away.
    void setToggleImage(const QIcon& image);
signals:
    /// The user clicked the header.
    void toggled(bool on);

private:
    void refresh();

    bool m_isOn;
    QString m_onLabel;
    QString m_offLabel;
    QPushButton* m_button = nullptr;
    QLabel* m_state = nullptr;
    QLabel* m_image = nullptr;
};

/// A 20 by 20 information button whose click shows `info`, read as Markdown.
class InfoTipView : public QWidget {
    Q_OBJECT
public:
    explicit InfoTipView(const QString& info, QWidget* parent = nullptr);
    bool isPopover() const;
    /// Opens the text (for the keyboard and for tests).
    void showPopover();

private:
    QString m_info;
    QToolButton* m_button = nullptr;
    QFrame* m_popover = nullptr;
};

} // namespace stagewright
