#include "PickerContent.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SceneSettings.h>

#include <tessaro/model/ConfigFiles.h>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

QString text(std::string_view value)
{
    return QString::fromUtf8(value.data(), qsizetype(value.size()));
}

/// Every case of an enumeration, by name.
template <tessaro::Enumeration E>
PickerSection casesOf()
{
    PickerSection section;
    for (E value : tessaro::allCases<E>())
        section.items.push_back({text(tessaro::caseText(value)), text(tessaro::caseText(value))});
    return section;
}

QString nodeLine(const ElementNode& node)
{
    QString line = QStringLiteral("  Element: ") + QString::fromStdString(node.catalogueElementName());
    line += QStringLiteral("Position: ") + QString::asprintf("{%.0f, %.0f}", node.position().x(), node.position().y());
    return line + QStringLiteral("  Image: ") + QString::fromStdString(node.imageOverride.value_or(std::string()));
}

/// The canvas's elements, a section per layer that has any.
std::vector<PickerSection> nodeSections(const SceneEditor& scene)
{
    std::vector<PickerSection> sections;
    if (const auto& list = scene.backgroundList(); list && list->backgrounds && !list->backgrounds->empty()) {
        PickerSection& section = sections.emplace_back();
        section.title = QStringLiteral("Background Objects");
        for (const tessaro::BackgroundImage& record : *list->backgrounds)
            section.items.push_back(
                {QStringLiteral("Pinned: ") +
                     (record.pinned.value_or(false) ? QStringLiteral("true") : QStringLiteral("false")) +
                     QStringLiteral("  Image: ") + QString::fromStdString(record.image.value_or(std::string())) +
                     QStringLiteral("  {0, 0}"),
                 QStringLiteral("background:") +
                     QString::fromStdString(record.id ? record.id->text() : std::string())});
    }
    const std::pair<const char*, sceneObjectType> layers[] = {
        {"Ground Objects", sceneObjectType::ground},         {"Obstacles", sceneObjectType::obstacles},
        {"Enemy Objects", sceneObjectType::character},       {"Coin Objects", sceneObjectType::coin},
        {"Checkpoint Objects", sceneObjectType::checkpoint}, {"Artifact Objects", sceneObjectType::artifact},
        {"Shield Objects", sceneObjectType::shield}};
    for (const auto& [title, kind] : layers) {
        // A repeated copy is its obstacle's: the obstacle stands for the row.
        // An element kept only as read cannot be edited, so it is not listed.
        std::vector<ElementNodePtr> nodes = SceneEditor::elementsOf(scene.layerFor(kind));
        std::erase_if(nodes, [](const ElementNodePtr& node) { return node->repeatedNode || node->keptOnly; });
        if (nodes.empty())
            continue;
        PickerSection& section = sections.emplace_back();
        section.title = QString::fromLatin1(title);
        for (const ElementNodePtr& node : nodes)
            section.items.push_back({nodeLine(*node), text(tessaro::caseText(kind)) + QLatin1Char(':') + node->name()});
    }
    return sections;
}

/// The element name of the background object with that image, else the image.
QString backgroundName(const std::string& image)
{
    for (const tessaro::GenericObject& record : tessaro::objectCatalogue())
        if (record.sceneObjectType == "background" && record.image == image)
            return QString::fromStdString(record.elementName.value_or(image));
    return QString::fromStdString(image);
}

} // namespace

PickerContent getPickerContent(PickerType type, const ProjectTab& tab, const SceneEditor* scene,
                               const SceneSettings* settings)
{
    PickerContent content;
    switch (type) {
    case PickerType::None:
    case PickerType::soundBiteTypeList:
    case PickerType::AudioExtensionList:
    case PickerType::AudioList:
    case PickerType::Collision: content.spacer = true; break;
    case PickerType::NodeList:
        content.title = QStringLiteral("Select a Node");
        if (scene)
            content.sections = nodeSections(*scene);
        break;
    case PickerType::SceneList: {
        PickerSection& section = content.sections.emplace_back();
        for (const LevelPickerModel& level : tab.levelListDropdownValues())
            section.items.push_back({level.name, QString::fromStdString(level.tag.text())});
        break;
    }
    case PickerType::BackgroundList: {
        PickerSection& section = content.sections.emplace_back();
        if (scene && scene->backgroundList() && scene->backgroundList()->backgrounds)
            for (const tessaro::BackgroundImage& record : *scene->backgroundList()->backgrounds) {
                const std::string image = record.image.value_or(std::string());
                section.items.push_back(
                    {backgroundName(image) + QStringLiteral("  (") + QString::fromStdString(image) + QLatin1Char(')'),
                     QString::fromStdString(record.id ? record.id->text() : std::string())});
            }
        break;
    }
    case PickerType::objectClassTypeList:
        content.sections.push_back(casesOf<tessaro::objectClassType>());
        content.multiSelection = true;
        break;
    case PickerType::GroundAngleList:
        content.sections.push_back(casesOf<tessaro::groundPhysicsAngleType>());
        content.multiSelection = true;
        break;
    case PickerType::SoundsList: {
        PickerSection& section = content.sections.emplace_back();
        section.items.push_back({QStringLiteral("Select a sound"), QString()});
        for (const tessaro::GameSound& sound : tab.selectedObject().soundEffects)
            section.items.push_back({QString::fromStdString(sound.filename) + QStringLiteral(" (") +
                                         QString::fromStdString(sound.type) + QLatin1Char(')'),
                                     QString::fromStdString(sound.id ? sound.id->text() : std::string())});
        break;
    }
    case PickerType::ImageList: {
        PickerSection& section = content.sections.emplace_back();
        if (settings)
            for (const FileItem& file : settings->imageList())
                if (file.sceneObjectType == tab.selectedObject().type)
                    section.items.push_back({file.name, file.name});
        break;
    }
    case PickerType::DeviceList: {
        PickerSection& section = content.sections.emplace_back();
        for (tessaro::deviceName device : tessaro::allCases<tessaro::deviceName>())
            section.items.push_back({text(tessaro::deviceTitle(device)), text(tessaro::caseText(device))});
        break;
    }
    case PickerType::Scaled: {
        PickerSection& section = content.sections.emplace_back();
        for (int percent = 50; percent <= 200; percent += 25)
            section.items.push_back(
                {QString::number(percent) + QLatin1Char('%'), QString::number(percent / 100.0, 'f', 2)});
        break;
    }
    case PickerType::GroundType: content.sections.push_back(casesOf<tessaro::groundBaseType>()); break;
    case PickerType::CollisionTypes:
    case PickerType::Contact:
    case PickerType::Category:
        content.sections.push_back(casesOf<tessaro::collisionTypes>());
        content.multiSelection = true;
        break;
    case PickerType::RotationTypes: content.sections.push_back(casesOf<tessaro::rotationType>()); break;
    case PickerType::ScrollOrientation: content.sections.push_back(casesOf<tessaro::scrollOrientationType>()); break;
    case PickerType::CharClassType: content.sections.push_back(casesOf<tessaro::characterClassType>()); break;
    case PickerType::Direction: content.sections.push_back(casesOf<tessaro::pathDirection>()); break;
    case PickerType::AnimationFrequency: content.sections.push_back(casesOf<tessaro::animationFrequency>()); break;
    case PickerType::AnimationMoveDirection:
        content.sections.push_back(casesOf<tessaro::animationMoveDirection>());
        break;
    }
    return content;
}

} // namespace stagewright
