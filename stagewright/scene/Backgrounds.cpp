// Background layers on the canvas, where the layout puts them. The records
// live in the level's document; the scene's `backgroundList` is its copy of
// them, and the nodes are only their pictures, made again whenever the
// records change.
#include "SceneEditor.h"
#include "ScenePictures.h"

#include <stagewright/state/ProjectTab.h>

#include <tessaro/layout/BackgroundPlan.h>
#include <tessaro/layout/LayoutContext.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

namespace {

tessaro::kit::TexturePtr backgroundTexture(const std::optional<std::string>& image)
{
    const QString name = image ? firstImageName(*image) : QStringLiteral("placeholder");
    return SceneImageCache::shared().picture(tessaro::sceneObjectType::background, name).texture;
}

} // namespace

void SceneEditor::rebuildBackgrounds()
{
    if (m_backgroundNodes)
        m_backgroundNodes->removeAllChildren();
    if (m_pinnedBackgroundNodes)
        m_pinnedBackgroundNodes->removeAllChildren();
    if (m_backgroundList && m_backgroundList->backgrounds)
        for (const tessaro::BackgroundImage& record : *m_backgroundList->backgrounds)
            layBackground(record);
}

void SceneEditor::layBackground(const tessaro::BackgroundImage& record)
{
    if (!m_backgroundNodes || !m_pinnedBackgroundNodes)
        return;
    const std::optional<tessaro::layout::BackgroundLayer> layer =
        tessaro::layout::layBackground(record, m_levelEndX, layoutContext());
    if (!layer)
        return;
    const QRectF frame = frameRect();
    const QSizeF viewSize = frame.size();
    const tessaro::kit::TexturePtr texture = backgroundTexture(record.image);
    const auto makeNode = [&] {
        auto node = ElementNode::create(texture, viewSize);
        node->setSize(viewSize);
        node->setZPosition(layer->z);
        node->property_sceneObjectType = tessaro::sceneObjectType::background;
        node->property_objectName = record.image;
        node->backgroundImagename = record.image.value_or(std::string());
        node->backgroundAssociatedId = record.id;
        return node;
    };
    if (!layer->pinned) {
        m_backgroundNodes->addChild(makeNode());
        return;
    }
    for (const double x : layer->copies) {
        auto node = makeNode();
        node->setPosition(x, frame.center().y());
        m_pinnedBackgroundNodes->addChild(node);
    }
}

void SceneEditor::replaceBackgroundRecord(const tessaro::Uuid& id)
{
    if (!m_backgroundList || !m_backgroundList->backgrounds)
        return;
    const auto record = std::find_if(m_backgroundList->backgrounds->begin(), m_backgroundList->backgrounds->end(),
                                     [&](const tessaro::BackgroundImage& image) { return image.id == id; });
    if (record == m_backgroundList->backgrounds->end())
        return;
    for (const tessaro::kit::NodePtr& layer : {m_backgroundNodes, m_pinnedBackgroundNodes})
        for (const ElementNodePtr& node : elementsOf(layer)) {
            if (node->backgroundAssociatedId != id)
                continue;
            node->setHidden(!record->isVisible.value_or(true));
            node->setZPosition(record->zPosition.value_or(1));
            const std::string image = record->image.value_or(std::string());
            if (image != node->backgroundImagename) {
                node->setTexture(backgroundTexture(record->image));
                node->backgroundImagename = image;
                node->property_objectName = record->image;
            }
        }
    emit backgroundListChanged();
}

void SceneEditor::showBackgroundsOf(const tessaro::Level& level, std::optional<std::size_t> refreshed)
{
    m_backgroundList = level.background ? std::optional<tessaro::Background>(*level.background) : std::nullopt;
    const auto& images = m_backgroundList ? m_backgroundList->backgrounds : std::nullopt;
    if (refreshed && images && *refreshed < images->size() && (*images)[*refreshed].id)
        replaceBackgroundRecord(*(*images)[*refreshed].id);
    else
        rebuildBackgrounds();
    emit backgroundListChanged();
    // A background shown in the inspector is selected again on its new
    // pictures; one that is gone leaves no selection.
    if (!m_tab || m_tab->selectedObject().type != tessaro::sceneObjectType::background)
        return;
    if (const ElementNodePtr node = backgroundNode(m_tab->selectedObject().backgroundSelectedId))
        reselect(node);
    else
        deselect();
}

ElementNodePtr SceneEditor::backgroundNode(const tessaro::Uuid& id) const
{
    for (const tessaro::kit::NodePtr& layer : {m_backgroundNodes, m_pinnedBackgroundNodes})
        for (const ElementNodePtr& node : elementsOf(layer))
            if (node->backgroundAssociatedId == id)
                return node;
    return nullptr;
}

tessaro::BackgroundImage newBackgroundImage(const std::string& elementName, tessaro::sceneObjectType type,
                                            std::size_t count)
{
    std::optional<std::string> image;
    const std::string typeText(tessaro::caseText(type));
    for (const tessaro::GenericObject& record : tessaro::objectCatalogue())
        if (record.elementName == elementName && record.sceneObjectType == typeText) {
            image = record.image.value_or("placeholder");
            break;
        }
    if (!image) {
        tessaro::diagnostic("No " + typeText + " named \"" + elementName +
                            "\" in the object catalogue; the new background shows the placeholder.");
        image = "placeholder";
    }
    tessaro::BackgroundImage record;
    record.id = tessaro::Uuid::create();
    record.image = image;
    record.zPosition = double(count + 1);
    record.pinned = false;
    record.pinnedRanges = std::vector<tessaro::PinnedRange>{};
    record.speed = 0;
    record.isVisible = true;
    return record;
}

} // namespace stagewright
