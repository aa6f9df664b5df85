// The inspector's panes driven as a user drives them: the rows of each kind,
// one edit through a row's control reaching the saved level and going back
// with undo, and the override buttons of the device pane.
#include "EditingFixture.h"

#include <stagewright/inspector/InspectorView.h>
#include <stagewright/inspector/ModelFields.h>
#include <stagewright/inspector/PhysicsEditorHook.h>
#include <stagewright/inspector/PropertyRows.h>
#include <stagewright/inspector/PropertyRules.h>
#include <stagewright/inspector/controls/Steppers.h>
#include <stagewright/scene/ElementNode.h>
#include <stagewright/scene/SceneEditor.h>

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTest>

#include <set>

namespace stagewright::test {
namespace {

using K = tessaro::sceneObjectType;
using P = publishedElementList;

const tessaro::DeviceProperties* findDevice(const elementNode& node, tessaro::deviceName device)
{
    if (node.devices)
        for (const tessaro::DeviceProperties& entry : *node.devices)
            if (entry.deviceName == std::string(tessaro::caseText(device)))
                return &entry;
    return nullptr;
}

struct InspectorViewTest : EditingFixture {
    std::unique_ptr<InspectorView> view;

    void SetUp() override
    {
        EditingFixture::SetUp();
        show({everyKind()});
        view = std::make_unique<InspectorView>(*settings);
    }
    void TearDown() override
    {
        view.reset();
        EditingFixture::TearDown();
    }
    void pick(K kind)
    {
        ASSERT_TRUE(select(kind));
        view->layNow();
    }
    /// The cases of the rows shown in the pane named `pane`.
    std::set<std::string> rowsOf(const char* pane) const
    {
        std::set<std::string> rows;
        for (const PropertyRow* row : view->findChild<QWidget*>(pane)->findChildren<PropertyRow*>())
            rows.insert(std::string(tessaro::caseText(row->entry().property)));
        return rows;
    }
    PropertyRow* row(const char* pane, P property) const
    {
        for (PropertyRow* r : view->findChild<QWidget*>(pane)->findChildren<PropertyRow*>())
            if (r->entry().property == property)
                return r;
        return nullptr;
    }
};

TEST_F(InspectorViewTest, EachKindShowsItsTabsAndTheRowsThatApplyToIt)
{
    EXPECT_FALSE(view->showsSelection());

    pick(K::obstacles);
    EXPECT_TRUE(view->showsSelection());
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device", "Animation", "Sounds"}));
    const std::set<std::string> obstacle{
        "observedname",      "isVisible",      "image",       "objectClassType", "zPosition",
        "allowedTimesToHit", "alpha",          "usePhysics",  "useGravity",      "category",
        "collision",         "contact",        "isDynamic",   "usePrecision",    "callbackFunction",
        "objectActsOn",      "darken",         "repeatCount", "stack",           "rotation",
        "rotateForever",     "rotateDuration", "rotationPin", "rotateType"};
    EXPECT_EQ(rowsOf("primaryPropertyListView"), obstacle);

    pick(K::character);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device", "Animation", "Sounds"}));
    const std::set<std::string> character{
        "observedname", "isVisible",         "image",       "charClassType", "objectClassType",
        "zPosition",    "allowedTimesToHit", "useGravity",  "category",      "collision",
        "contact",      "isDynamic",         "usePrecision"};
    EXPECT_EQ(rowsOf("primaryPropertyListView"), character);

    pick(K::ground);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device"}));
    const std::set<std::string> ground{
        "observedname", "isVisible", "image",    "objectClassType", "zPosition",
        "groundType",   "stack",     "distance", "repeatCount",     "groundPhysicsAngleType"};
    EXPECT_EQ(rowsOf("primaryPropertyListView"), ground);

    pick(K::coin);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Primary", "Device", "Sounds"}));
    EXPECT_EQ(rowsOf("primaryPropertyListView"),
              (std::set<std::string>{"observedname", "isVisible", "image", "zPosition", "useGravity", "repeatCount",
                                     "stack"}));

    pick(K::background);
    EXPECT_EQ(view->tabTitles(), (QStringList{"Background", "Sounds"}));
    EXPECT_EQ(
        rowsOf("backgroundPropertyListView"),
        (std::set<std::string>{"image", "isVisible", "backgroundScrollOrientation", "pinned", "speed", "zPosition"}));

    scene().deselect();
    EXPECT_FALSE(view->showsSelection());
}

TEST_F(InspectorViewTest, AnEditThroughARowReachesTheSavedLevelAndUndoTakesItBack)
{
    const tessaro::Level before = comparable(saved());

    // A typed or stepped number of the obstacle.
    pick(K::obstacles);
    auto* z = row("primaryPropertyListView", P::zPosition)->findChild<LabelledCGFloatStepper*>();
    ASSERT_TRUE(z);
    emit z->valueChanged(42);
    EXPECT_EQ(front().selectedObject().zPosition, 42);
    EXPECT_EQ(saved().obstacles->front().zPosition, 42);

    // A switch of the character.
    pick(K::character);
    auto* visible = row("primaryPropertyListView", P::isVisible)->findChild<QCheckBox*>();
    ASSERT_TRUE(visible && visible->isChecked());
    QTest::mouseClick(visible, Qt::LeftButton, {}, QPoint(6, visible->height() / 2));
    EXPECT_FALSE(visible->isChecked());
    EXPECT_EQ(saved().characters->front().properties->isVisible, false);

    // A count of the ground, which lays the ground again.
    pick(K::ground);
    auto* count = row("primaryPropertyListView", P::repeatCount)->findChild<LabelledIntStepper*>();
    ASSERT_TRUE(count);
    emit count->valueChanged(3);
    EXPECT_EQ(saved().ground->front().repeatCount, 3);

    // A count of the coin, which lays its row again.
    pick(K::coin);
    auto* coins = row("primaryPropertyListView", P::repeatCount)->findChild<LabelledIntStepper*>();
    ASSERT_TRUE(coins);
    emit coins->valueChanged(4);
    EXPECT_EQ(saved().coins->coins->front().repeatCount, 4);

    EXPECT_TRUE(front().isProjectDirty());
    while (front().undoStack().canUndo())
        front().undoStack().undo();
    EXPECT_EQ(comparable(saved()), before);
    EXPECT_FALSE(front().isProjectDirty());
}

TEST_F(InspectorViewTest, TheDevicePaneAddsAndDeletesAnOverrideOfTheShownDevice)
{
    pick(K::obstacles);
    QWidget* pane = view->findChild<QWidget*>("deviceSpecificPropertyView");
    auto* devices = pane->findChild<QComboBox*>("devicePicker");
    ASSERT_TRUE(devices);
    const int iPad = devices->findData(QString::fromUtf8(tessaro::caseText(tessaro::deviceName::iPad)));
    ASSERT_GE(iPad, 0);
    devices->setCurrentIndex(iPad);
    emit devices->activated(iPad);
    EXPECT_EQ(front().selectedDeviceObject().nameSelected, tessaro::deviceName::iPad);
    view->layNow();
    QCoreApplication::processEvents();

    const auto sizeButton = [&] { return pane->findChild<QWidget*>("device_size")->findChild<QPushButton*>(); };
    ASSERT_TRUE(sizeButton());
    EXPECT_EQ(sizeButton()->text(), QString::fromUtf8(addOverrideLabel(tessaro::deviceName::iPad)));
    sizeButton()->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(sizeButton()->text(), QString::fromUtf8(removeOverrideLabel(tessaro::deviceName::iPad)));
    ASSERT_TRUE(findDevice(*selected(), tessaro::deviceName::iPad));
    EXPECT_EQ(findDevice(*selected(), tessaro::deviceName::iPad)->size, "{0,0}");

    // The defined field has its control; a change stores it in the iPad's entry.
    auto* size = pane->findChild<QWidget*>("device_size")->findChild<LabelledSizeStepper*>();
    ASSERT_TRUE(size);
    emit size->valueChanged({64, 32});
    EXPECT_EQ(findDevice(*selected(), tessaro::deviceName::iPad)->size, "{64.0,32.0}");

    sizeButton()->click();
    QCoreApplication::processEvents();
    EXPECT_FALSE(findDevice(*selected(), tessaro::deviceName::iPad));
    EXPECT_EQ(sizeButton()->text(), QString::fromUtf8(addOverrideLabel(tessaro::deviceName::iPad)));
}

TEST_F(InspectorViewTest, HeadButtonsOpenTheSideEditorsOfTheKind)
{
    std::vector<physicsEditMode> opened;
    setPhysicsEditorOpener(
        [&](QWidget*, projectTab&, SceneSettings*, physicsEditMode mode) { opened.push_back(mode); });

    pick(K::obstacles);
    auto* physics = view->findChild<QPushButton*>("physicsButton");
    ASSERT_TRUE(physics);
    physics->click();
    EXPECT_EQ(opened, std::vector{physicsEditMode::element});
    EXPECT_FALSE(view->findChild<QPushButton*>("groundOrderButton"));

    pick(K::ground);
    EXPECT_FALSE(view->findChild<QPushButton*>("physicsButton"));
    auto* order = view->findChild<QPushButton*>("groundOrderButton");
    ASSERT_TRUE(order);
    order->click();
    EXPECT_TRUE(settings->isGroundInspectorPresented());
    setPhysicsEditorOpener({});
}

TEST_F(InspectorViewTest, EveryRowOfTheTablesIsBoundToAFieldOfItsModel)
{
    ASSERT_TRUE(select(K::obstacles));
    const auto bound = [&](modelType model, const rowEntry& entry) {
        if (entry.control == rowControl::Label)
            return;
        EXPECT_FALSE(std::holds_alternative<std::monostate>(modelValue(front(), model, entry.property)))
            << tessaro::caseText(entry.property);
        EXPECT_FALSE(std::holds_alternative<std::monostate>(modelValue(front(), model, entry.propertyUpper)))
            << tessaro::caseText(entry.propertyUpper);
    };
    for (const sectionEntry& section : primarySections())
        for (const rowEntry& entry : section.rows)
            bound(modelType::Primary, entry);
    for (const sectionEntry& section : animationSections())
        for (const rowEntry& entry : section.rows)
            bound(modelType::Animation, entry);
    for (const rowEntry& entry : cycleEndRows())
        bound(modelType::AnimationCycleEnd, entry);
    for (const rowEntry& entry : backgroundRows())
        bound(modelType::Primary, entry);
    for (const deviceFieldRow& field : deviceFieldRows())
        bound(modelType::Devices, deviceRow(field.field, field.label));

    // A value of the wrong type writes nothing; a case name writes the case.
    setModelValue(front(), modelType::Primary, P::zPosition, std::string("high"));
    EXPECT_EQ(front().selectedObject().zPosition, 10);
    setModelValue(front(), modelType::Primary, P::rotateType, std::string("nonsense"));
    EXPECT_EQ(front().selectedObject().rotateType, tessaro::rotationType::none);
    setModelValue(front(), modelType::Primary, P::category,
                  std::vector<std::string>{"humanPlayer", "nonsense", "floor"});
    EXPECT_EQ(modelValue(front(), modelType::Primary, P::category),
              propertyValue(std::vector<std::string>{"humanPlayer", "floor"}));
}

} // namespace
} // namespace stagewright::test
