// Shared helpers of the scene tests: a small workspace of real PNG files of
// known sizes, catalogue records, device entries, and a tab with one level
// loaded into a scene.
#pragma once

#include <stagewright/scene/SceneEditor.h>
#include <stagewright/state/ProjectTab.h>

#include <support/DiagnosticCapture.h>

#include <tessaro/model/LevelRecords.h>

#include <QColor>
#include <QTemporaryDir>

#include <memory>
#include <optional>
#include <string>

namespace stagewright::test {

/// A workspace in a temporary folder, made current for the test, with the
/// image scale x1 (one pixel is one point) and empty catalogues.
class SceneWorkspace {
public:
    SceneWorkspace();
    ~SceneWorkspace();
    /// The workspace folder, ending in "/".
    QString path() const { return m_path; }
    /// Writes an opaque PNG of `width` by `height` pixels into the kind's folder.
    void image(tessaro::sceneObjectType kind, const QString& name, int width, int height,
               QColor color = QColor(200, 40, 40));
    void placeholder(int width, int height);

private:
    QTemporaryDir m_dir;
    QString m_path;
};

/// A device entry for the default device; empty texts stay absent.
tessaro::DeviceProperties defaultEntry(const std::string& position, const std::string& size = {},
                                       const std::string& offset = {});
std::vector<tessaro::DeviceProperties> at(const std::string& position, const std::string& size = {},
                                          const std::string& offset = {});

tessaro::Obstacle obstacleTemplate(const std::string& name, const std::string& image, const std::string& size);
tessaro::Character characterTemplate(const std::string& name, const std::string& image, const std::string& size);
tessaro::GenericObject objectTemplate(const std::string& name, const std::string& image, tessaro::sceneObjectType type,
                                      const std::string& size = {});

tessaro::GroundSection tileSection(const std::string& image, const std::string& size, std::int64_t repeatCount = 0);
tessaro::GroundSection hazardSection(const std::string& type, const std::string& distance,
                                     const std::string& size = "{100,40}");

/// A level with the editor's scene size 874 by 402 and nothing in it.
tessaro::Level emptyLevel();

/// One tab holding one level, and a scene of 874 by 402 that loads it.
struct LoadedLevel {
    explicit LoadedLevel(tessaro::Level level, tessaro::SizeValue sceneSize = {874, 402}, CanvasHooks hooks = {});
    ~LoadedLevel();
    /// Writes the scene back and returns the tab's level.
    const tessaro::Level& saved();
    const tessaro::Level& level() const { return tab.levelConfig().front(); }

    ProjectTab tab;
    tessaro::Uuid id;
    SceneEditorPtr scene;
};

/// The element nodes of a layer.
std::vector<ElementNodePtr> elements(const tessaro::kit::NodePtr& layer);

/// x and y of a node's position.
inline double xOf(const ElementNodePtr& node)
{
    return node->position().x();
}
inline double yOf(const ElementNodePtr& node)
{
    return node->position().y();
}

} // namespace stagewright::test
