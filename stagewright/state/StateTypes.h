// Small value types of the application state: workspace files, recent
// documents, device sizes, level picker entries and ground order rows.
#pragma once

#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>
#include <tessaro/model/Uuid.h>

#include <QString>

#include <optional>
#include <string_view>

namespace stagewright {

/// One file of the workspace. Items order by `name`, by plain text comparison.
struct FileItem {
    QString folder; // path of the folder that holds the file
    QString name; // file name without extension
    QString type; // file extension
    tessaro::sceneObjectType sceneObjectType = tessaro::sceneObjectType::none;
    tessaro::Uuid tag = tessaro::Uuid::create();

    /// folder + name + "." + type.
    QString path() const;
    bool sameFile(const FileItem& other) const
    {
        return folder == other.folder && name == other.name && type == other.type &&
            sceneObjectType == other.sceneObjectType;
    }
};

/// A project file opened recently.
struct RecentDocumentItem {
    QString name; // file name with extension
    QString folderPath; // folder of the file, with its final "/"
    tessaro::Uuid tag = tessaro::Uuid::create();

    QString path() const { return folderPath + name; }
};

/// A scene size a user has set for a device.
struct SceneSizes {
    tessaro::deviceName name = tessaro::deviceName::defaultDevice;
    tessaro::SizeValue size;
    tessaro::Uuid tag = tessaro::Uuid::create();
};

/// One entry of the level picker: "Scene: " and the level's id.
struct LevelPickerModel {
    QString name;
    tessaro::Uuid tag;
};

/// One row of the ground order pane, made from one ground node.
struct GroundOrderItem {
    tessaro::Uuid id = tessaro::Uuid::create();
    QString image;
    QString name;
    bool stacked = false;
    qint64 repeatCount = 0;
    QString filename;
    tessaro::groundBaseType groundType = tessaro::groundBaseType::Ground;
    tessaro::SizeValue distance;
};

/// Selection state of a tab's scene.
enum class SelectionPhase { NotSelected, BeingSelected, Selected, None };
std::string_view caseText(SelectionPhase phase);

/// How a scene fits its view.
enum class sceneScaleMode { fill, aspectFill, aspectFit, resizeFill };
/// "fill", "aspectFill", "aspectFit", "resizeFill"; any other text aspectFill.
sceneScaleMode sceneScaleModeFromText(std::string_view text);
std::string_view scaleModeText(sceneScaleMode mode);

/// "(w, h)", the form the diagnostic lines use for a size.
QString sizeDescription(tessaro::SizeValue size);

} // namespace stagewright
