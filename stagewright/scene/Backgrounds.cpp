// Background layers. An unpinned image fills the view and stays put while the
// level scrolls; a pinned image is laid in copies along the level, edge to
// edge from the scene origin, where its ranges allow. The records live in the
// scene's `backgroundList`; the nodes are only their pictures and can be made
// again at any time.
#include "SceneEditor.h"
#include "ScenePictures.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/model/ValueText.h>

#include <algorithm>
#include <cmath>

namespace stagewright {

namespace {

/// More copies than this of one pinned image are not laid.
constexpr int kMostPinnedCopies = 10000;

tessaro::kit::TexturePtr backgroundTexture(const std::optional<std::string>& image)
{
    const QString name = image ? firstImageName(*image) : QStringLiteral("placeholder");
    return SceneImageCache::shared().picture(tessaro::sceneObjectType::background, name).texture;
}

} // namespace

void sceneEditor::rebuildBackgrounds()
{
    if (m_backgroundNodes)
        m_backgroundNodes->removeAllChildren();
    if (m_pinnedBackgroundNodes)
        m_pinnedBackgroundNodes->removeAllChildren();
    if (m_backgroundList && m_backgroundList->backgrounds)
        for (const tessaro::BackgroundImage& record : *m_backgroundList->backgrounds)
            layBackground(record);
}

void sceneEditor::layBackground(const tessaro::BackgroundImage& record)
{
    if (!record.isVisible.value_or(true) || !m_backgroundNodes || !m_pinnedBackgroundNodes)
        return;
    const double z = record.zPosition.value_or(0);
    const QRectF frame = frameRect();
    const QSizeF viewSize = frame.size();
    const tessaro::kit::TexturePtr texture = backgroundTexture(record.image);
    const auto makeNode = [&] {
        auto node = elementNode::create(texture, viewSize);
        node->setSize(viewSize);
        node->setZPosition(z);
        node->property_sceneObjectType = tessaro::sceneObjectType::background;
        node->property_objectName = record.image;
        node->backgroundImagename = record.image.value_or(std::string());
        node->backgroundAssociatedId = record.id;
        return node;
    };

    if (!record.pinned.value_or(false)) {
        m_backgroundNodes->addChild(makeNode());
        return;
    }

    std::vector<tessaro::RangeValue> ranges;
    if (record.pinnedRanges)
        for (const tessaro::PinnedRange& entry : *record.pinnedRanges)
            ranges.push_back(tessaro::rangeFromText(entry.range.value_or(std::string())));
    if (ranges.empty())
        ranges.push_back({0, 1000000});

    const double step = viewSize.width();
    if (step <= 0)
        return;
    const double end = m_levelEndX + 1000;
    int copies = 0;
    // Copies stand at whole steps from the origin; a step outside every range
    // is skipped. The next step that can lie in a range is found directly, so
    // a long level with a short range costs no more than its copies.
    for (double x = 0; x < end;) {
        const bool inside = std::any_of(ranges.begin(), ranges.end(),
                                        [x](const tessaro::RangeValue& r) { return r.lower <= x && x <= r.upper; });
        if (inside) {
            if (++copies > kMostPinnedCopies) {
                tessaro::diagnostic("Background \"" + record.image.value_or(std::string()) + "\" is shown with " +
                                    std::to_string(kMostPinnedCopies) + " copies.");
                return;
            }
            auto node = makeNode();
            node->setPosition(x, frame.center().y());
            m_pinnedBackgroundNodes->addChild(node);
            x += node->size().width() > 0 ? node->size().width() : step;
            continue;
        }
        double next = end;
        for (const tessaro::RangeValue& r : ranges) {
            const double candidate = std::max(x + step, std::ceil(r.lower / step) * step);
            if (candidate <= r.upper)
                next = std::min(next, candidate);
        }
        x = next;
    }
}

void sceneEditor::replaceBackgroundRecord(const tessaro::Uuid& id)
{
    if (!m_backgroundList || !m_backgroundList->backgrounds)
        return;
    const auto record = std::find_if(m_backgroundList->backgrounds->begin(), m_backgroundList->backgrounds->end(),
                                     [&](const tessaro::BackgroundImage& image) { return image.id == id; });
    if (record == m_backgroundList->backgrounds->end())
        return;
    for (const tessaro::kit::NodePtr& layer : {m_backgroundNodes, m_pinnedBackgroundNodes})
        for (const elementNodePtr& node : elementsOf(layer)) {
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

void sceneEditor::addBackgroundImage(const std::string& elementName, tessaro::sceneObjectType type)
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
    if (!m_backgroundList)
        m_backgroundList.emplace();
    auto& list = m_backgroundList->backgrounds;
    if (!list)
        list.emplace();
    tessaro::BackgroundImage record;
    record.id = tessaro::Uuid::create();
    record.image = image;
    record.zPosition = double(list->size() + 1);
    record.pinned = false;
    record.pinnedRanges = std::vector<tessaro::PinnedRange>{};
    record.speed = 0;
    record.isVisible = true;
    list->push_back(std::move(record));
    rebuildBackgrounds();
    emit backgroundListChanged();
}

} // namespace stagewright
