// Publishing a selection into the tab's models, for every kind of element,
// and the rules that decide which rows a kind has and what the view-only
// section shows.
#include "EditingFixture.h"

#include <stagewright/inspector/PickerContent.h>
#include <stagewright/inspector/PropertyRules.h>
#include <stagewright/inspector/SelectionPublishing.h>

#include <tessaro/model/ConfigFiles.h>

#include <functional>

namespace stagewright::test {
namespace {

using P = PublishedElementList;
using tessaro::sceneObjectType;
using PublishTest = EditingFixture;

TEST_F(PublishTest, EveryKindFillsItsModels)
{
    tessaro::Level level = everyKind();
    tessaro::ObstacleLevelItem& crate = level.obstacles->front();
    crate.properties->devices->front().size = "{0,0}";
    crate.properties->devices->front().distance = "{200,0}";
    crate.properties->devices->push_back(defaultEntry({}, "{50,50}"));
    crate.properties->devices->back().deviceName = "iPad";
    crate.properties->isVisible = false;
    crate.properties->rotationProperties = tessaro::RotationProperties{};
    crate.properties->rotationProperties->rotation = 45;
    crate.properties->animation = tessaro::AnimationProperty{};
    crate.properties->animation->frequency = "once";
    crate.properties->animation->delays = tessaro::Delays{};
    crate.properties->animation->delays->idleRange = "0.5...2.0";
    tessaro::CycleEndProperties end;
    end.id = tessaro::Uuid::create();
    end.atlasName = "burst";
    end.devices = at({}, "{30,60}");
    crate.properties->animation->cycleEndProperties = std::vector<tessaro::CycleEndProperties>{end};
    level.characters->front().charClassType = "enemy";
    level.characters->front().properties->collisionMasks = tessaro::CollisionDetection{};
    level.characters->front().properties->collisionMasks->contact = "humanPlayer,floor";
    level.coins->coins->front().repeatCount = 3;
    level.shields->shields->front().timed = 12.5;
    level.ground->front().groundPhysicsAngleType = "angle";
    show({level});

    const struct {
        sceneObjectType kind;
        std::function<void(const ProjectTab&)> expect;
    } rows[] = {
        {sceneObjectType::obstacles,
         [](const ProjectTab& tab) {
             const SelectedObjectModel& object = tab.selectedObject();
             EXPECT_EQ(object.property_objectName, "crate");
             EXPECT_EQ(object.real_Position, "{100, 0 }");
             EXPECT_EQ(object.displayedSize, "{40, 40 }");
             EXPECT_EQ(object.zPosition, 10);
             EXPECT_TRUE(object.usePhysics); // the catalogue says nothing
             EXPECT_FALSE(object.isVisible);
             EXPECT_EQ(object.rotation, 45);
             EXPECT_EQ(object.objectClassType, std::vector{tessaro::objectClassType::none});
             EXPECT_EQ(baseFieldText(BaseField::objectClassType, object.defaultViewProperties), "barrel");
             EXPECT_EQ(baseFieldText(BaseField::category, object.defaultViewProperties), "staticObjectBody");
             const SelectedDeviceModel& device = tab.selectedDeviceObject();
             EXPECT_EQ(device.nameSelected, tessaro::deviceName::defaultDevice);
             EXPECT_EQ(device.devicesDefaultBase->size, "{40,40}");
             EXPECT_EQ(device.position, (tessaro::PointValue{100, 0}));
             EXPECT_EQ(device.aspectRatio, 1); // a size of {0,0} divides by nothing
             EXPECT_EQ(device.inherited, (std::vector{P::distance, P::position, P::size}));
             EXPECT_EQ(device.randomPositionRange, "{<0...0>,<0...0>}");
             const SelectedAnimationModel& animation = tab.selectedAnimationObject();
             EXPECT_EQ(animation.animationFrequency, "once");
             EXPECT_EQ(animation.delay_idleRange_lower, 0.5);
             EXPECT_EQ(animation.delay_idleRange_upper, 2.0);
             ASSERT_EQ(animation.End_List.size(), 1u);
             EXPECT_EQ(animation.End_atlasName, "burst");
             EXPECT_EQ(animation.End_size, (tessaro::SizeValue{30, 60}));
             EXPECT_EQ(animation.End_aspectRatio, 0.5);
         }},
        {sceneObjectType::character,
         [](const ProjectTab& tab) {
             EXPECT_EQ(tab.selectedObject().charClassType, tessaro::characterClassType::enemy);
             EXPECT_EQ(tab.selectedObject().contact,
                       (std::vector{tessaro::collisionTypes::humanPlayer, tessaro::collisionTypes::floor}));
             EXPECT_TRUE(tab.selectedObject().isVisible);
             EXPECT_EQ(tab.selectedDeviceObject().devicesDefaultBase->size, "{30,40}");
             EXPECT_EQ(tab.selectedAnimationObject().animationFrequency, "none");
         }},
        {sceneObjectType::coin,
         [](const ProjectTab& tab) {
             EXPECT_EQ(tab.selectedObject().repeatCount, 3);
             EXPECT_FALSE(tab.selectedObject().stacked);
             EXPECT_FALSE(tab.selectedDeviceObject().devicesDefaultBase);
         }},
        {sceneObjectType::shield, [](const ProjectTab& tab) { EXPECT_EQ(tab.selectedObject().timed, 12.5); }},
        {sceneObjectType::ground,
         [](const ProjectTab& tab) {
             EXPECT_EQ(tab.selectedObject().image, "grass");
             EXPECT_EQ(tab.selectedObject().zPosition, 50);
             EXPECT_EQ(tab.selectedObject().groundType, tessaro::groundBaseType::Ground);
             EXPECT_EQ(tab.selectedObject().groundPhysicsAngleType,
                       std::vector{tessaro::groundPhysicsAngleType::angle});
         }},
        {sceneObjectType::background,
         [](const ProjectTab& tab) {
             const SelectedObjectModel& object = tab.selectedObject();
             EXPECT_EQ(object.image, "sky");
             EXPECT_EQ(object.zPosition, 1); // absent reads 1
             EXPECT_FALSE(object.pinned);
             EXPECT_EQ(object.backgroundScrollOrientation, tessaro::scrollOrientationType::horizontal);
         }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(tessaro::caseText(row.kind)));
        const ElementNodePtr node = select(row.kind);
        ASSERT_TRUE(node);
        EXPECT_EQ(front().elementPhase(), SelectionPhase::Selected);
        EXPECT_EQ(front().selectedObject().type, row.kind);
        EXPECT_EQ(front().selectedObject().name, node->name().toStdString());
        EXPECT_TRUE(settings->isInspectorPresented());
        row.expect(front());
    }

    // A background's selection dims the others; deselecting lifts it.
    const auto backgrounds = SceneEditor::elementsOf(scene().backgroundNodes());
    ASSERT_EQ(backgrounds.size(), 2u);
    EXPECT_EQ(backgrounds[0]->alpha(), 1);
    EXPECT_EQ(backgrounds[1]->alpha(), 0.2);
    scene().deselect();
    EXPECT_EQ(backgrounds[1]->alpha(), 1);
    EXPECT_EQ(front().elementPhase(), SelectionPhase::NotSelected);
}

TEST_F(PublishTest, SelectingTheSelectedElementKeepsEditsInProgress)
{
    show({everyKind()});
    const ElementNodePtr crate = select(sceneObjectType::obstacles);
    front().selectedObject().property_objectName = "typing";
    scene().selectNode(crate);
    EXPECT_EQ(front().selectedObject().property_objectName, "typing");
    EXPECT_TRUE(crate->hasGlow());
}

TEST(PropertyRules, RowsOfEachKind)
{
    using K = sceneObjectType;
    const struct {
        P property;
        std::vector<K> kinds;
    } rows[] = {
        {P::position,
         {K::obstacles, K::character, K::checkpoint, K::coin, K::shield, K::artifact, K::ground, K::background}},
        {P::alpha, {K::obstacles}},
        {P::isDynamic, {K::obstacles, K::character}},
        {P::useGravity, {K::obstacles, K::character, K::coin}},
        {P::repeatCount, {K::obstacles, K::coin, K::ground}},
        {P::distance, {K::obstacles, K::character, K::ground}},
        {P::objectClassType, {K::obstacles, K::character, K::artifact, K::ground}},
        {P::pinned, {K::obstacles, K::background}},
        {P::groundType, {K::ground}},
        {P::speed, {K::background}},
        {P::timed, {K::shield}},
        {P::charClassType, {K::character}},
        {P::deviceName, {K::obstacles, K::character, K::checkpoint, K::coin, K::shield, K::artifact, K::ground}},
        {P::fontSize, {}},
        {P::altPosition, {}},
        {P::animationFrequency, {}},
    };
    for (const auto& row : rows)
        for (K kind :
             {K::obstacles, K::character, K::checkpoint, K::coin, K::shield, K::artifact, K::ground, K::background})
            EXPECT_EQ(propertyApplies(row.property, kind),
                      std::find(row.kinds.begin(), row.kinds.end(), kind) != row.kinds.end())
                << tessaro::caseText(row.property) << " for " << tessaro::caseText(kind);

    EXPECT_STREQ(addOverrideLabel(tessaro::deviceName::defaultDevice), "Add");
    EXPECT_STREQ(addOverrideLabel(tessaro::deviceName::iPad), "Add as override");
    EXPECT_STREQ(removeOverrideLabel(tessaro::deviceName::defaultDevice), "Delete");
    EXPECT_STREQ(removeOverrideLabel(tessaro::deviceName::iPhone17), "Delete override");
    EXPECT_EQ(baseFieldText(BaseField::elementName, std::nullopt), "");
}

TEST_F(PublishTest, PickersListWhatTheirRowsOffer)
{
    show({everyKind()});
    select(sceneObjectType::character);
    tessaro::GameSound roar;
    roar.id = tessaro::Uuid::create();
    roar.type = "attack";
    roar.filename = "roar";
    front().selectedObject().soundEffects = {roar};
    const auto count = [](const PickerContent& content) {
        std::size_t items = 0;
        for (const PickerSection& section : content.sections)
            items += section.items.size();
        return items;
    };
    const struct {
        PickerType type;
        std::size_t items;
        bool multi;
        QString first;
    } rows[] = {
        {PickerType::SceneList, 1, false, QStringLiteral("Scene: ")},
        {PickerType::BackgroundList, 2, false, QStringLiteral("sky  (sky)")},
        {PickerType::objectClassTypeList, 81, true, QStringLiteral("alternateScene")},
        {PickerType::GroundAngleList, 8, true, QStringLiteral("additionalFloorTile")},
        {PickerType::SoundsList, 2, false, QStringLiteral("Select a sound")},
        {PickerType::DeviceList, 17, false, QStringLiteral("None")},
        {PickerType::Scaled, 7, false, QStringLiteral("50%")},
        {PickerType::GroundType, 8, false, QStringLiteral("BrightWater")},
        {PickerType::CollisionTypes, 19, true, QStringLiteral("humanPlayer")},
        {PickerType::Contact, 19, true, QStringLiteral("humanPlayer")},
        {PickerType::Category, 19, true, QStringLiteral("humanPlayer")},
        {PickerType::RotationTypes, 4, false, QStringLiteral("clockwise")},
        {PickerType::ScrollOrientation, 3, false, QStringLiteral("both")},
        {PickerType::CharClassType, 5, false, QStringLiteral("alien")},
        {PickerType::Direction, 20, false, QStringLiteral("all")},
        {PickerType::AnimationFrequency, 6, false, QStringLiteral("custom")},
        {PickerType::AnimationMoveDirection, 16, false, QStringLiteral("all")},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(tessaro::caseText(row.type)));
        const PickerContent content = getPickerContent(row.type, front(), &scene(), settings.get());
        EXPECT_EQ(count(content), row.items);
        EXPECT_EQ(content.multiSelection, row.multi);
        EXPECT_FALSE(content.spacer);
        ASSERT_FALSE(content.sections.empty());
        EXPECT_TRUE(content.sections.front().items.front().text.startsWith(row.first));
    }
    EXPECT_EQ(getPickerContent(PickerType::SoundsList, front(), &scene(), nullptr).sections[0].items[1].text,
              "roar (attack)");
    EXPECT_EQ(getPickerContent(PickerType::Scaled, front(), nullptr, nullptr).sections[0].items[2].tag, "1.00");
    for (PickerType spacer : {PickerType::None, PickerType::soundBiteTypeList, PickerType::AudioExtensionList,
                              PickerType::AudioList, PickerType::Collision})
        EXPECT_TRUE(getPickerContent(spacer, front(), &scene(), nullptr).spacer);

    // The node list: a section per layer with elements; a line selects its node.
    const PickerContent nodes = getPickerContent(PickerType::NodeList, front(), &scene(), nullptr);
    EXPECT_EQ(nodes.title, "Select a Node");
    QStringList titles;
    for (const PickerSection& section : nodes.sections)
        titles << section.title;
    EXPECT_EQ(titles,
              QStringList({"Background Objects", "Ground Objects", "Obstacles", "Enemy Objects", "Coin Objects",
                           "Checkpoint Objects", "Artifact Objects", "Shield Objects"}));
    const PickerItem& crate = nodes.sections[2].items.front();
    EXPECT_EQ(crate.text, "  Element: CratePosition: {100, 0}  Image: crate");
    scene().selectNodeNamed(crate.tag);
    EXPECT_EQ(front().selectedObject().type, sceneObjectType::obstacles);
    scene().selectNodeNamed(nodes.sections[0].items.back().tag);
    EXPECT_EQ(front().selectedObject().image, "hills");
}

TEST_F(PublishTest, ElementsKeptOnlyAsReadAreNotListed)
{
    tessaro::Level level = everyKind();
    tessaro::ObstacleLevelItem vanished = level.obstacles->front();
    vanished.elementName = "Vanished";
    level.obstacles->push_back(vanished);
    show({level});
    const PickerContent nodes = getPickerContent(PickerType::NodeList, front(), &scene(), nullptr);
    ASSERT_EQ(nodes.sections[2].title, "Obstacles");
    EXPECT_EQ(nodes.sections[2].items.size(), 1u);
}

} // namespace
} // namespace stagewright::test
