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

class imagePhysicsSession;

/// One row of the tools' popover.
struct insertItem {
    QString name;
    QString icon; // the symbol's name; the picture is drawn
    insertType type;
};
/// "Selection", "Rectangle", "Radius", "Edge", "Polygon", in this order.
const std::vector<insertItem>& insertItems();
/// The row of a tool.
const insertItem& insertItemFor(insertType type);
/// The picture of a tool, drawn in `colour`.
QIcon insertIcon(insertType type, const QColor& colour);

class navBarViewType : public QWidget {
    Q_OBJECT
public:
    explicit navBarViewType(imagePhysicsSession& session, QWidget* parent = nullptr);
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

    imagePhysicsSession& m_session;
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
