#include "ObjectLibrary.h"

#include "AddElementCommand.h"
#include "EditCommands.h"

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>
#include <stagewright/state/SetFieldCommand.h>
#include <stagewright/state/Workspace.h>
#include <stagewright/state/WorkspaceImages.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelRecords.h>

#include <QCoreApplication>

#include <algorithm>
#include <type_traits>

namespace stagewright {

using tessaro::sceneObjectType;

namespace {

QString textOr(const std::optional<std::string>& text, const char* fallback)
{
    return text ? QString::fromStdString(*text) : QString::fromLatin1(fallback);
}

template <typename Record>
LibraryCell cellOf(const Record& record, sceneObjectType kind)
{
    LibraryCell cell;
    cell.valType = kind;
    cell.elementName = record.elementName;
    cell.buttonTitle = textOr(record.elementName, "None");
    cell.buttonImage =
        record.image ? resolveImageName(QString::fromStdString(*record.image)) : QStringLiteral("placeholder");
    cell.buttonClass = textOr(record.objectClassType, "none");
    if constexpr (std::is_same_v<Record, tessaro::Character>) {
        // Characters always fall and move: their records' flags are not shown.
        cell.buttonImageType = QStringLiteral("png");
        cell.buttonUseGravity = true;
        cell.buttonIsDynamic = true;
    } else {
        if constexpr (std::is_same_v<Record, tessaro::GenericObject>) {
            if (record.imageType)
                cell.buttonImageType = QString::fromStdString(*record.imageType);
        } else {
            cell.buttonImageType = QStringLiteral("png");
        }
        cell.buttonUseGravity = record.useGravity.value_or(false);
        cell.buttonIsDynamic = record.isDynamic.value_or(false);
    }
    return cell;
}

template <typename Record>
std::vector<LibraryCell> cellsOf(const std::vector<Record>& catalogue, sceneObjectType kind)
{
    std::vector<const Record*> kept;
    for (const Record& record : catalogue)
        if (record.sceneObjectType && tessaro::caseFromText<sceneObjectType>(*record.sceneObjectType) == kind)
            kept.push_back(&record);
    static const std::string unnamed;
    std::stable_sort(kept.begin(), kept.end(), [](const Record* a, const Record* b) {
        return a->elementName.value_or(unnamed) < b->elementName.value_or(unnamed);
    });
    std::vector<LibraryCell> cells;
    cells.reserve(kept.size());
    for (const Record* record : kept)
        cells.push_back(cellOf(*record, kind));
    return cells;
}

/// Shows the cell added at a point where it was dropped; the ground is laid
/// in order and backgrounds fill the view, so they keep their own places.
bool placedWhereDropped(sceneObjectType kind)
{
    return kind != sceneObjectType::ground && kind != sceneObjectType::background;
}

} // namespace

std::vector<LibraryCell> libraryCells(sceneObjectType kind)
{
    switch (kind) {
    case sceneObjectType::obstacles: return cellsOf(tessaro::obstacleCatalogue(), kind);
    case sceneObjectType::character: return cellsOf(tessaro::characterCatalogue(), kind);
    default: return cellsOf(tessaro::objectCatalogue(), kind);
    }
}

std::vector<std::size_t> filterLibraryCells(const std::vector<LibraryCell>& cells, const QString& searchText)
{
    std::vector<std::size_t> kept;
    kept.reserve(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        // A cell without a name shows "None", which no filter matches.
        if (searchText.isEmpty() ||
            (cells[i].elementName && cells[i].buttonTitle.contains(searchText, Qt::CaseSensitive)))
            kept.push_back(i);
    }
    return kept;
}

QString libraryCellImagePath(const LibraryCell& cell)
{
    // A list of images shows its first.
    const QString name = cell.buttonImage.section(QLatin1Char(','), 0, 0);
    if (!isPlainFileName(name) || (cell.buttonImageType && !isPlainFileName(*cell.buttonImageType)))
        return QString();
    if (const std::optional<QString> folder = perNameImageFolder(name, cell.valType))
        return firstFileInDirectory(*folder).value_or(QString());
    return workspaceImagePath(name, cell.buttonImageType, cell.valType);
}

namespace {

/// Appends an image of the catalogue's background to the shown level's
/// background list, as one step, and selects it.
void addBackground(ProjectTab& tab, SceneEditor& scene, const std::string& elementName)
{
    const tessaro::Uuid levelId = tab.levelSelected();
    const tessaro::Level* level = tab.findLevel(levelId);
    if (!level)
        return;
    tessaro::Background background = level->background ? *level->background : tessaro::Background{};
    std::vector<tessaro::BackgroundImage>& images =
        background.backgrounds ? *background.backgrounds : background.backgrounds.emplace();
    images.push_back(newBackgroundImage(elementName, sceneObjectType::background, images.size()));
    const tessaro::Uuid added = *images.back().id;
    SetFieldCommand* step = shownLevelStep(
        tab, tessaro::FieldPath("background"), std::move(background),
        QCoreApplication::translate("AddElementCommand", "Add %1").arg(QString::fromStdString(elementName)), false);
    if (pushStep(tab.undoStack(), step))
        if (const ElementNodePtr node = scene.backgroundNode(added))
            scene.reselect(node);
}

} // namespace

bool addLibraryElement(ProjectTab* tab, sceneObjectType kind, const std::string& elementName,
                       std::optional<QPointF> sceneLocation)
{
    const SceneEditorPtr scene = tab ? sceneEditorOf(tab->currentScene()) : nullptr;
    if (!scene || elementName.empty())
        return false;
    if (kind == sceneObjectType::background) {
        addBackground(*tab, *scene, elementName);
        return true;
    }
    std::optional<tessaro::PointValue> position;
    if (sceneLocation && placedWhereDropped(kind)) {
        // Elements stand in the layers, which scrolling moves.
        const tessaro::PointValue scroll = scene->scrollPosition();
        position = tessaro::PointValue{sceneLocation->x() + scroll.x, sceneLocation->y() + scroll.y};
    }
    pushStep(tab->undoStack(), new AddElementCommand(*tab, kind, elementName, position));
    return true;
}

std::unique_ptr<QMimeData> libraryMimeData(const LibraryCell& cell)
{
    auto data = std::make_unique<QMimeData>();
    if (!cell.elementName)
        return data;
    const std::string payload = std::string(tessaro::caseText(cell.valType)) + ':' + *cell.elementName;
    data->setData(libraryElementMimeType, QByteArray::fromStdString(payload));
    return data;
}

std::optional<std::pair<sceneObjectType, std::string>> libraryElementFrom(const QMimeData& data)
{
    if (!data.hasFormat(libraryElementMimeType))
        return std::nullopt;
    const std::string payload = data.data(libraryElementMimeType).toStdString();
    const std::size_t colon = payload.find(':');
    if (colon == std::string::npos)
        return std::nullopt;
    const std::optional<sceneObjectType> kind = tessaro::caseFromText<sceneObjectType>(payload.substr(0, colon));
    std::string name = payload.substr(colon + 1);
    if (!kind || name.empty())
        return std::nullopt;
    return std::pair{*kind, std::move(name)};
}

} // namespace stagewright
