// The object library: the element catalogues as cells in eight tabs, one per
// kind of element, and what a click on a cell or a drop of one on the canvas
// adds to the level in front. The windows only draw these lists and pass on
// the cell a user picked.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <QMimeData>
#include <QPointF>
#include <QString>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace stagewright {

class ProjectTab;

/// The kinds of the library's tabs, in the order of their buttons.
inline constexpr std::array<tessaro::sceneObjectType, 8> libraryTabKinds{
    tessaro::sceneObjectType::background, tessaro::sceneObjectType::ground,    tessaro::sceneObjectType::obstacles,
    tessaro::sceneObjectType::character,  tessaro::sceneObjectType::coin,      tessaro::sceneObjectType::shield,
    tessaro::sceneObjectType::artifact,   tessaro::sceneObjectType::checkpoint};

/// One catalogue record as a cell of the library shows it.
struct LibraryCell {
    QString buttonTitle; // the element name, "None" without one
    QString buttonImage; // the record's image, "placeholder" without one
    std::optional<QString> buttonImageType; // "png" for obstacles and characters
    QString buttonClass; // the class type, "none" without one
    bool buttonUseGravity = false;
    bool buttonIsDynamic = false;
    tessaro::sceneObjectType valType = tessaro::sceneObjectType::none;
    /// The name the cell adds; none when the record has no name.
    std::optional<std::string> elementName;
};

/// The cells of the tab of `kind`: the records of its catalogue (characters,
/// obstacles, or objects for every other kind) whose kind is `kind`, sorted
/// by element name.
std::vector<LibraryCell> libraryCells(tessaro::sceneObjectType kind);

/// The positions in `cells` of those a filter keeps: all of them for an empty
/// text, else those whose element name contains the text, upper and lower
/// case told apart.
std::vector<std::size_t> filterLibraryCells(const std::vector<LibraryCell>& cells, const QString& searchText);

/// The image file of a cell's picture; empty when its name cannot name a
/// file of the workspace.
QString libraryCellImagePath(const LibraryCell& cell);

/// Adds one element of a cell to the level that `tab` shows, as one step of
/// its history, and selects it: `addBackgroundImage` for the background tab,
/// `addElement` for the others. A `sceneLocation` (a point of the scene as
/// the canvas shows it) places the element there; ground sections and
/// backgrounds keep their own places. False, and nothing happens, without a
/// tab, a scene or an element name.
bool addLibraryElement(ProjectTab* tab, tessaro::sceneObjectType kind, const std::string& elementName,
                       std::optional<QPointF> sceneLocation = std::nullopt);

/// The format of a cell dragged out of the library.
inline const QString libraryElementMimeType = QStringLiteral("application/x-stagewright-library-element");
/// A dragged cell: its kind and element name.
std::unique_ptr<QMimeData> libraryMimeData(const LibraryCell& cell);
/// The kind and element name a drag carries; none when it carries no cell.
std::optional<std::pair<tessaro::sceneObjectType, std::string>> libraryElementFrom(const QMimeData& data);

} // namespace stagewright
