#include "BaseElementSheet.h"

#include "PropertySection.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace stagewright {

namespace {

template <class T>
tessaro::ReflectionTable tableOf(const tessaro::boxed<T>& part)
{
    // An absent part shows as an empty one, every field "Not defined".
    return tessaro::reflectionTable(part ? *part : T{});
}

template <class T>
void addList(PropertySection& section, const std::optional<std::vector<T>>& list)
{
    if (!list || list->empty()) {
        section.addReflectionRows({});
        return;
    }
    for (const T& entry : *list)
        section.addReflectionRows(tessaro::reflectionTable(entry));
}

} // namespace

tessaro::ReflectionTable baseAnimationTable(const DefaultViewRecord& record)
{
    return std::visit(
        [](const auto& r) { return r.animation ? tessaro::reflectionTable(*r.animation) : tessaro::ReflectionTable{}; },
        record);
}

BaseElementPropertiesView::BaseElementPropertiesView(const DefaultViewRecord& record, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("baseElementPropertiesView"));
    setWindowTitle(tr("Base Properties"));
    setWindowModality(Qt::WindowModal);
    resize(900, 600);
    auto* layout = new QVBoxLayout(this);
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);

    std::visit(
        [&](const auto& r) {
            auto* base = new PropertySection(tr("Base properties"));
            base->addReflectionRows(tessaro::reflectionTable(r, 1));
            column->addWidget(base);
            auto* animation = new PropertySection(tr("Animation properties"));
            animation->addReflectionRows(tableOf(r.animation));
            column->addWidget(animation);
            auto* rotation = new PropertySection(tr("Rotation properties"));
            if constexpr (requires { r.rotationProperties; })
                rotation->addReflectionRows(tableOf(r.rotationProperties));
            else
                rotation->addReflectionRows({});
            column->addWidget(rotation);
            auto* devices = new PropertySection(tr("Devices properties"));
            addList(*devices, r.devices);
            column->addWidget(devices);
            auto* physics = new PropertySection(tr("Physics properties"));
            const tessaro::PhysicsProperty shapes = r.physics ? *r.physics : tessaro::PhysicsProperty{};
            const auto addShapes = [&](const QString& title, const auto& list) {
                auto* part = new PropertySection(title);
                addList(*part, list);
                physics->addRow(part);
            };
            addShapes(tr("Edges"), shapes.edges);
            addShapes(tr("Rectangles"), shapes.rectangles);
            addShapes(tr("Radiuses"), shapes.radiuses);
            addShapes(tr("Polygons"), shapes.polygons);
            column->addWidget(physics);
        },
        record);
    column->addStretch();
    scroll->setWidget(content);
    layout->addWidget(scroll);
    auto* buttons = new QDialogButtonBox;
    QPushButton* physics = buttons->addButton(tr("Physics"), QDialogButtonBox::ActionRole);
    physics->setObjectName(QStringLiteral("basePhysicsButton"));
    connect(physics, &QPushButton::clicked, this, &BaseElementPropertiesView::physicsRequested);
    buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
}

} // namespace stagewright
