#include "PhysicsShapeRow.h"

#include "PhysicsSession.h"
#include "ShapeTools.h"

#include <stagewright/inspector/controls/MultiSelectCombo.h>
#include <stagewright/inspector/controls/Steppers.h>

#include <tessaro/model/ValueText.h>

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

#include <limits>

namespace stagewright {

namespace {

constexpr double largest = std::numeric_limits<float>::max();
// Shapes lie about the image's centre: coordinates run both ways, and the
// markers -9999 and 9999 stand for the sprite's edges.
constexpr tessaro::RangeValue anyCoordinate{-largest, largest};

QStringList actionNames()
{
    QStringList names;
    for (const tessaro::actionType action : tessaro::allCases<tessaro::actionType>())
        names << QString::fromLatin1(tessaro::caseText(action));
    return names;
}

QStringList namesOf(const std::vector<tessaro::actionType>& actions)
{
    QStringList names;
    for (const tessaro::actionType action : actions)
        names << QString::fromLatin1(tessaro::caseText(action));
    return names;
}

std::vector<tessaro::actionType> actionsOf(const QStringList& names)
{
    std::vector<tessaro::actionType> actions;
    for (const QString& name : names)
        if (const auto action = tessaro::caseFromText<tessaro::actionType>(name.toStdString()))
            actions.push_back(*action);
    return actions;
}

} // namespace

QString physicsTypeLabel(PhysicsType type)
{
    switch (type) {
    case PhysicsType::rect: return QObject::tr("Rectangle");
    case PhysicsType::radius: return QObject::tr("Radius");
    case PhysicsType::edge: return QObject::tr("Edge");
    case PhysicsType::polygon: return QObject::tr("Polygon");
    case PhysicsType::none: break;
    }
    return QObject::tr("None");
}

PhysicsListView::PhysicsListView(ImagePhysicsSession& session, const PhysicsElement& element, bool expanded,
                                 QWidget* parent)
    : QFrame(parent),
      m_session(session),
      m_id(element.id)
{
    setObjectName(QStringLiteral("shapeRow"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(8, 6, 8, 6);

    auto* head = new QHBoxLayout;
    head->addWidget(new QLabel(tr("Type: ") + physicsTypeLabel(element.type), this));
    head->addStretch();
    m_showHide = new QPushButton(expanded ? tr("Hide") : tr("Show"), this);
    m_showHide->setObjectName(QStringLiteral("showHide"));
    m_showHide->setFlat(true);
    connect(m_showHide, &QPushButton::clicked, this, [this] { emit expandToggled(m_id); });
    head->addWidget(m_showHide);
    auto* remove = new QToolButton(this);
    remove->setObjectName(QStringLiteral("deleteShape"));
    remove->setIcon(QIcon::fromTheme(QStringLiteral("edit-delete"), style()->standardIcon(QStyle::SP_TrashIcon)));
    remove->setAutoRaise(true);
    remove->setToolTip(tr("Delete the shape."));
    connect(remove, &QToolButton::clicked, this, [this] { m_session.removeElement(m_id); });
    head->addWidget(remove);
    column->addLayout(head);

    if (expanded)
        buildFields(element);
    showValues(element);
}

void PhysicsListView::buildFields(const PhysicsElement& element)
{
    auto* fields = new QFormLayout;
    fields->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    static_cast<QVBoxLayout*>(layout())->addLayout(fields);
    const tessaro::Uuid id = m_id;

    m_action = new CustomMultiSelectCombo(tr("Action"), actionNames(), this);
    connect(m_action, &CustomMultiSelectCombo::valuesChanged, this,
            [this, id](const QStringList& values) { m_session.setAction(id, actionsOf(values)); });
    fields->addRow(m_action); // the control shows its own label
    m_frames = new QLineEdit(this);
    m_frames->setPlaceholderText(tr("Frames"));
    connect(m_frames, &QLineEdit::textEdited, this,
            [this, id](const QString& text) { m_session.setFramesAffected(id, text.toStdString()); });
    fields->addRow(tr("Frames affected"), m_frames);

    const auto point = [&](const QString& title) {
        auto* stepper = new LabelledPointStepper(title, QString(), 1, anyCoordinate, false, {}, this);
        fields->addRow(stepper);
        return stepper;
    };
    switch (element.type) {
    case PhysicsType::edge:
        m_start = point(tr("Start point"));
        connect(m_start, &LabelledPointStepper::valueChanged, this,
                [this, id](tessaro::PointValue p) { m_session.setStartPoint(id, p); });
        m_end = point(tr("End point"));
        connect(m_end, &LabelledPointStepper::valueChanged, this,
                [this, id](tessaro::PointValue p) { m_session.setEndPoint(id, p); });
        break;
    case PhysicsType::polygon:
        m_direction = new QComboBox(this);
        for (const tessaro::pathDirection direction :
             {tessaro::pathDirection::both, tessaro::pathDirection::left, tessaro::pathDirection::right})
            m_direction->addItem(QString::fromLatin1(tessaro::caseText(direction)), int(direction));
        connect(m_direction, &QComboBox::activated, this, [this, id](int index) {
            m_session.setDirection(id, tessaro::pathDirection(m_direction->itemData(index).toInt()));
        });
        fields->addRow(tr("Direction"), m_direction);
        // A closed polygon's last vertex is the first one again, and moves with it.
        for (std::size_t i = 0; i < element.points.size() - (PolygonTool::isClosed(element) ? 1 : 0); ++i) {
            LabelledPointStepper* vertex = point(tr("Point"));
            connect(vertex, &LabelledPointStepper::valueChanged, this,
                    [this, id, i](tessaro::PointValue p) { m_session.setPoint(id, i, p); });
            m_points.push_back(vertex);
        }
        break;
    case PhysicsType::radius:
        m_radius = new LabelledCGFloatStepper(tr("Radius"), QString(), {0, 10000}, 1, 0, {}, this);
        connect(m_radius, &LabelledCGFloatStepper::valueChanged, this,
                [this, id](double radius) { m_session.setRadius(id, radius); });
        fields->addRow(m_radius);
        break;
    case PhysicsType::rect:
        m_size = new LabelledSizeStepper(tr("Size"), QString(), false, false, 1, {}, this);
        connect(m_size, &LabelledSizeStepper::valueChanged, this,
                [this, id](tessaro::SizeValue size) { m_session.setSize(id, size); });
        fields->addRow(m_size);
        m_center = point(tr("Center"));
        connect(m_center, &LabelledPointStepper::valueChanged, this,
                [this, id](tessaro::PointValue p) { m_session.setCenter(id, p); });
        break;
    case PhysicsType::none: break;
    }
}

void PhysicsListView::showValues(const PhysicsElement& element)
{
    const bool selected = element.id == m_session.selectedRow();
    setBackgroundRole(selected ? QPalette::AlternateBase : QPalette::Base);
    setFrameShadow(selected ? QFrame::Sunken : QFrame::Plain);
    if (m_action)
        m_action->setValues(namesOf(element.action));
    if (m_frames && m_frames->text() != QString::fromStdString(element.framesAffected))
        m_frames->setText(QString::fromStdString(element.framesAffected));
    if (m_start)
        m_start->setValue(element.startPoint);
    if (m_end)
        m_end->setValue(element.endPoint);
    if (m_direction) {
        const QSignalBlocker quiet(m_direction);
        m_direction->setCurrentIndex(std::max(0, m_direction->findData(int(element.direction))));
    }
    for (std::size_t i = 0; i < m_points.size() && i < element.points.size(); ++i)
        m_points[i]->setValue(element.points[i].point);
    if (m_radius)
        m_radius->setValue(element.radius);
    if (m_size)
        m_size->setValue(element.size);
    if (m_center)
        m_center->setValue(element.center);
}

void PhysicsListView::mousePressEvent(QMouseEvent* event)
{
    m_session.selectRow(m_id);
    QFrame::mousePressEvent(event);
}

} // namespace stagewright
