// One row of the physics sheet's shape list: the kind, "Show"/"Hide" for the
// fields, the delete control, and the fields of the shape's kind. Values are
// shown without reporting; only what the user changes goes to the session.
#pragma once

#include "PhysicsElements.h"

#include <QFrame>

#include <vector>

class QLabel;
class QLineEdit;
class QComboBox;
class QPushButton;
class QToolButton;

namespace stagewright {

class ImagePhysicsSession;
class CustomMultiSelectCombo;
class LabelledCGFloatStepper;
class LabelledPointStepper;
class LabelledSizeStepper;

/// "Rectangle", "Radius", "Edge", "Polygon" or "None".
QString physicsTypeLabel(PhysicsType type);

class PhysicsListView : public QFrame {
    Q_OBJECT
public:
    PhysicsListView(ImagePhysicsSession& session, const PhysicsElement& element, bool expanded,
                    QWidget* parent = nullptr);
    /// Shows the element's values again; its kind and vertex count are as made.
    void showValues(const PhysicsElement& element);
    const tessaro::Uuid& shapeId() const { return m_id; }

signals:
    /// "Show" or "Hide" was clicked.
    void expandToggled(const tessaro::Uuid& id);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    void buildFields(const PhysicsElement& element);

    ImagePhysicsSession& m_session;
    tessaro::Uuid m_id;
    QPushButton* m_showHide = nullptr;
    CustomMultiSelectCombo* m_action = nullptr;
    QLineEdit* m_frames = nullptr;
    LabelledPointStepper* m_start = nullptr;
    LabelledPointStepper* m_end = nullptr;
    QComboBox* m_direction = nullptr;
    std::vector<LabelledPointStepper*> m_points;
    LabelledCGFloatStepper* m_radius = nullptr;
    LabelledSizeStepper* m_size = nullptr;
    LabelledPointStepper* m_center = nullptr;
};

} // namespace stagewright
