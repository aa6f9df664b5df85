#include "LevelEndWindow.h"

#include <tessaro/kit/LabelNode.h>
#include <tessaro/kit/ShapeNode.h>
#include <tessaro/kit/SpriteNode.h>
#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/ValueText.h>

#include <cmath>

namespace play {

using namespace tessaro;

namespace {

kit::LabelNodePtr label(const QString& text, const FontInfo& font, qreal defaultSize)
{
    auto node = kit::LabelNode::labelNodeWithText(text);
    node->setFontName(QString::fromStdString(font.fontName.value_or("System")));
    node->setFontSize(font.fontSize.value_or(defaultSize));
    const QColor colour(QString::fromStdString(font.fontColor.value_or("")));
    node->setFontColor(colour.isValid() ? colour : QColor(Qt::white));
    node->setVerticalAlignmentMode(kit::LabelVerticalAlignment::Center);
    return node;
}

kit::NodePtr itemNode(const WindowItem& item, const Tally& tally, AppSharedSceneBase& scene)
{
    const auto type = caseFromText<windowItemType>(item.type).value_or(windowItemType::other);
    const FontInfo font = item.fontInfo.value_or_default();
    QString text;
    switch (type) {
    case windowItemType::coinCount: text = QString::number(tally.coins); break;
    case windowItemType::artifactCount: text = QString::number(tally.artifacts); break;
    case windowItemType::timeCount: text = QString::fromStdString(timeText(int(tally.seconds))); break;
    case windowItemType::title:
    case windowItemType::description:
    case windowItemType::other: text = QString::fromStdString(item.text.value_or("")); break;
    default: break;
    }
    kit::NodePtr node;
    if (!text.isEmpty() || !item.image) {
        node = label(text, font, 24);
    } else {
        const SizeValue size = deviceValue<fieldList::size>(item.devices);
        node = std::make_shared<kit::SpriteNode>(scene.cachedTexture(QString::fromStdString(*item.image)),
                                                 QSizeF(size.width, size.height));
    }
    const PointValue at = deviceValue<fieldList::position>(item.devices);
    node->setPosition(at.x, at.y);
    node->setZPosition(item.zPosition);
    return node;
}

/// A panel of the game's own when the level describes no window.
void addPlainWindow(kit::Node& window, const Tally& tally, AppSharedSceneBase& scene)
{
    const QSizeF size(420, 240);
    kit::NodePtr panel;
    for (const GenericObject& object : objectCatalogue())
        if (object.sceneObjectType == caseText(sceneObjectType::levelEnd) && object.image) {
            panel = std::make_shared<kit::SpriteNode>(scene.cachedTexture(QString::fromStdString(*object.image)), size);
            break;
        }
    if (!panel) {
        auto shape = kit::ShapeNode::shapeNodeWithRectOfSize(size, 18);
        shape->setFillColor(QColor(30, 40, 60, 230));
        shape->setStrokeColor(QColor(240, 200, 80));
        shape->setLineWidth(4);
        panel = shape;
    }
    window.addChild(panel);
    const FontInfo plain;
    const std::pair<QString, qreal> lines[] = {
        {QStringLiteral("Level complete"), 36},
        {QStringLiteral("Coins: %1 of %2").arg(tally.coins).arg(tally.coinsInLevel), 24},
        {QStringLiteral("Time: %1").arg(QString::fromStdString(timeText(int(tally.seconds)))), 24},
        {QStringLiteral("Press Esc to quit"), 18},
    };
    double y = 70;
    for (const auto& [text, fontSize] : lines) {
        auto line = label(text, plain, fontSize);
        line->setPosition(0, y);
        line->setZPosition(1);
        window.addChild(line);
        y -= 48;
    }
}

} // namespace

kit::NodePtr makeLevelEndWindow(const Level& level, const Tally& tally, AppSharedSceneBase& scene)
{
    auto window = kit::Node::create();
    window->setName(QStringLiteral("levelEndWindow"));
    const LevelEndData end = level.levelEnd.value_or_default();
    const PointValue offset = pointFromText(end.windowOffset.value_or("{0,0}"));
    window->setPosition(offset.x, offset.y);
    window->setZPosition(end.zPosition.value_or(1000));
    const auto items = end.windowItems.value_or(std::vector<WindowItem>{});
    if (items.empty())
        addPlainWindow(*window, tally, scene);
    for (const WindowItem& item : items)
        window->addChild(itemNode(item, tally, scene));
    return window;
}

} // namespace play
