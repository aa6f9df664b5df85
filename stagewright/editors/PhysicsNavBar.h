// The bar above the physics canvas: the tool button and its popover of tools,
// the "Alpha", "Scale", flip and "Display only selected" pickers, the
// pointer read-out, and the "Properties", apply and "Cancel" buttons.
#pragma once

#include "PhysicsElements.h"

#include <QIcon>
#include <QString>
#include <QWidget>

#include <vector>

class QComboBox;
class QFrame;
class QLabel;
class QToolButton;

namespace stagewright {

class ImagePhysicsSession;

/// One row of the tools' popover.
struct InsertItem {
    QString name;
    QString icon; // the symbol's name; the picture is drawn
    InsertType type;
};
/// "Selection", "Rectangle", "Radius", "Edge", "Polygon", in this order.
const std::vector<InsertItem>& insertItems();
/// The row of a tool.
const InsertItem& insertItemFor(InsertType type);
/// The picture of a tool, drawn in `colour`.
QIcon insertIcon(InsertType type, const QColor& colour);

class NavBarViewType : public QWidget {
    Q_OBJECT
public:
    explicit NavBarViewType(ImagePhysicsSession& session, QWidget* parent = nullptr);
    /// Shows the session's settings.
    void refresh();
    void refreshReadOut();
    QToolButton* toolButton() const { return m_tool; }
    /// The popover of tools, made when first opened.
    QFrame* toolPopover() const { return m_popover; }

signals:
    void applyRequested();
    void cancelRequested();

private:
    void toggleToolPopover();
    QComboBox* picker(const QString& title, const QStringList& labels, const QStringList& values);

    ImagePhysicsSession& m_session;
    QToolButton* m_tool = nullptr;
    QFrame* m_popover = nullptr;
    QComboBox* m_alpha = nullptr;
    QComboBox* m_scale = nullptr;
    QComboBox* m_flipHorizontal = nullptr;
    QComboBox* m_flipVertical = nullptr;
    QComboBox* m_onlySelected = nullptr;
    QLabel* m_readOut = nullptr;
    QToolButton* m_properties = nullptr;
};

} // namespace stagewright
