// The device pane's edits: a value in the entry of the device the pane
// shows, adding and removing a field of that entry, and choosing the device.
// The canvas's own moves and size handle store through the same steps, in
// the entry of the default device.
#include "ApplyCommon.h"
#include "ApplyOperations.h"
#include "PropertyRules.h"
#include "SelectionPublishing.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/kit/PhysicsBody.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>

namespace stagewright {

using P = PublishedElementList;
using tessaro::DeviceProperties;
using tessaro::sceneObjectType;

namespace {

/// The text field of an entry that a device case names; null for `fontSize`
/// and the cases without a field.
std::optional<std::string> DeviceProperties::*textField(PublishedElementList element)
{
    switch (element) {
    case P::position: return &DeviceProperties::position;
    case P::size: return &DeviceProperties::size;
    case P::offset: return &DeviceProperties::offset;
    case P::offsetEdge: return &DeviceProperties::offsetEdge;
    case P::distance: return &DeviceProperties::distance;
    case P::digitSize: return &DeviceProperties::digitSize;
    case P::selectorSize: return &DeviceProperties::selectorSize;
    case P::altPosition: return &DeviceProperties::altPosition;
    case P::offsetHealthBar: return &DeviceProperties::offsetHealthBar;
    case P::randomPositionRange: return &DeviceProperties::randomPositionRange;
    default: return nullptr;
    }
}

bool isSizeField(PublishedElementList element)
{
    return element == P::size || element == P::digitSize || element == P::selectorSize;
}

bool hasField(const DeviceProperties& entry, PublishedElementList element)
{
    if (element == P::fontSize)
        return entry.fontSize.has_value();
    const auto field = textField(element);
    return field && (entry.*field).has_value();
}

/// The entry of `device` in the node's list, made (and the list with it) when
/// `create` asks for it.
DeviceProperties* entryOf(ElementNode& node, tessaro::deviceName device, bool create)
{
    if (node.devices)
        if (DeviceProperties* entry = tessaro::ownDeviceEntry(*node.devices, device))
            return entry;
    if (!create)
        return nullptr;
    if (!node.devices)
        node.devices.emplace();
    DeviceProperties& entry = node.devices->emplace_back();
    entry.deviceName = std::string(tessaro::caseText(device));
    return &entry;
}

/// The node takes a new size: its body, handle and glow follow, then its place.
void resize(ElementNode& node, tessaro::SizeValue size)
{
    node.setSize(QSizeF(size.width, size.height));
    if (const tessaro::kit::PhysicsBody* body = node.physicsBody()) {
        const ElementBodyMasks masks{body->categoryBitMask(), body->contactTestBitMask(), body->collisionBitMask(),
                                     body->affectedByGravity(), body->isDynamic()};
        node.setPhysicsBody(nullptr);
        if (node.kind() != sceneObjectType::background)
            node.applyPhysicsBody(masks.category, masks.contact, masks.collision, masks.affectedByGravity,
                                  masks.isDynamic);
    }
    if (const tessaro::kit::NodePtr sizer = node.childNodeWithName(QStringLiteral("nodeSizer")))
        sizer->setPosition(0, size.height / 2);
    if (node.hasGlow())
        replaceGlow(node);
}

/// Writes one device value into `entry` of `node` and redraws what it moves.
void writeDeviceValue(ElementNode& node, DeviceProperties& entry, PublishedElementList element,
                      const PropertyValue& value)
{
    const bool ground = node.kind() == sceneObjectType::ground;
    if (element == P::fontSize) {
        entry.fontSize = tessaro::roundedValue(numberOf(value).value_or(0), 2);
        return;
    }
    const auto field = textField(element);
    if (!field)
        return;
    if (element == P::randomPositionRange) {
        entry.randomPositionRange = textOf(value).value_or(std::string());
        return;
    }
    if ((element == P::position || element == P::size) && ground)
        return;
    if (isSizeField(element)) {
        const tessaro::SizeValue size = sizeOf(value).value_or(tessaro::SizeValue{});
        entry.*field = tessaro::textFromPair(size.width, size.height);
        if (element == P::size) {
            resize(node, size);
            node.placeFromDevices();
        }
        return;
    }
    const tessaro::PointValue point = pointOf(value).value_or(tessaro::PointValue{});
    entry.*field = tessaro::textFromPair(point.x, point.y);
    if (element == P::position || element == P::offset)
        node.placeFromDevices();
    else if (element == P::distance)
        node.refreshDistanceGuide();
}

/// The copies of a repeated obstacle stand in a row from it: they follow a
/// value that moves or sizes it.
void layRepeatedCopies(SceneEditor& scene, ElementNode& node, PublishedElementList element)
{
    if (node.kind() == sceneObjectType::obstacles &&
        (element == P::position || element == P::size || element == P::randomPositionRange))
        scene.placement().addRepeatedCopies(std::static_pointer_cast<ElementNode>(node.shared_from_this()));
}

/// The selection models follow a value the canvas stored.
void showStored(ProjectTab& tab, const ElementNode& node)
{
    if (tab.selectedObject().name != node.name().toStdString())
        return;
    const tessaro::deviceName shown = tab.selectedDeviceObject().nameSelected;
    tab.setSelectedDeviceObject(showDeviceEntry(tab.selectedDeviceObject(), node.devices, shown));
    tab.selectedObject().real_Position =
        QString::asprintf("{%.0f, %.0f }", node.position().x(), node.position().y()).toStdString();
    tab.selectedObject().displayedSize =
        QString::asprintf("{%.0f, %.0f }", node.size().width(), node.size().height()).toStdString();
    tab.notifySelectedObjectChanged();
}

} // namespace

void applyDeviceProperty(SceneEditor& scene, PublishedElementList element, const PropertyValue& value,
                         const PropertyValue& oldValue)
{
    ProjectTab* tab = editedTab(scene);
    const ElementNodePtr node = editedNode(scene);
    if (!tab || !node)
        return;
    SelectedDeviceModel& model = tab->selectedDeviceObject();
    if (element == P::deviceName) {
        // Another device's entry is shown; nothing is stored and nothing moves.
        const std::optional<tessaro::deviceName> device =
            tessaro::caseFromText<tessaro::deviceName>(textOf(value).value_or(std::string()));
        const tessaro::deviceName shown = device.value_or(model.nameSelected);
        SelectedDeviceModel showing = model;
        showing.nameSelected = shown;
        tab->setSelectedDeviceObject(showDeviceEntry(std::move(showing), node->devices, shown));
        return;
    }
    DeviceProperties* entry = entryOf(*node, model.nameSelected, false);
    const auto index = entry ? entry - node->devices->data() : -1;
    traceLine("ModDevice: " + std::to_string(index) + "  NAME: " + std::string(tessaro::caseText(element)) +
              "  OLD VALUE: " + describe(oldValue) + "   NEW VALUE: " + describe(value));
    if (!entry)
        return;
    writeDeviceValue(*node, *entry, element, value);
    layRepeatedCopies(scene, *node, element);
}

void storeDeviceValue(SceneEditor& scene, ElementNode& node, tessaro::deviceName device, PublishedElementList element,
                      const PropertyValue& value)
{
    writeDeviceValue(node, *entryOf(node, device, true), element, value);
    layRepeatedCopies(scene, node, element);
    if (ProjectTab* tab = scene.tab())
        showStored(*tab, node);
}

void toggleDeviceOverride(SceneEditor& scene, PublishedElementList element, bool add)
{
    ProjectTab* tab = editedTab(scene);
    const ElementNodePtr node = editedNode(scene);
    if (!tab || !node)
        return;
    SelectedDeviceModel& model = tab->selectedDeviceObject();
    DeviceProperties& entry = *entryOf(*node, model.nameSelected, true);

    const auto row = std::find_if(deviceFieldRows().begin(), deviceFieldRows().end(),
                                  [&](const DeviceFieldRow& candidate) { return candidate.field == element; });
    if (add && row != deviceFieldRows().end() && row->newOverrideText) {
        if (element == P::fontSize)
            entry.fontSize = 0;
        else if (const auto field = textField(element))
            entry.*field = *row->newOverrideText;
    } else if (!add) {
        if (element == P::fontSize)
            entry.fontSize.reset();
        else if (const auto field = textField(element))
            (entry.*field).reset();
        // The control shows the field's empty value.
        switch (element) {
        case P::altPosition: model.altPosition = {}; break;
        case P::distance: model.distance = {}; break;
        case P::offset: model.offset = {}; break;
        case P::offsetEdge: model.offsetEdge = {}; break;
        case P::offsetHealthBar: model.offsetHealthBar = {}; break;
        case P::position: model.position = {}; break;
        case P::size: model.size = {}; break;
        case P::digitSize: model.digitSize = {}; break;
        case P::selectorSize: model.selectorSize = {}; break;
        case P::fontSize: model.fontSize = 0; break;
        case P::randomPositionRange: model.randomPositionRange = "{<0...0>,<0...0>}"; break;
        default: break;
        }
    }
    std::erase(model.inherited, element);
    if (hasField(entry, element))
        model.inherited.push_back(element);

    // An entry of another device that defines nothing any more goes.
    std::erase_if(*node->devices, [](const DeviceProperties& candidate) {
        const bool isDefault =
            candidate.deviceName && tessaro::deviceListHolds(*candidate.deviceName, tessaro::deviceName::defaultDevice);
        DeviceProperties bare;
        bare.deviceName = candidate.deviceName;
        return !isDefault && candidate == bare;
    });
    tab->notifySelectedDeviceObjectChanged();
}

} // namespace stagewright
