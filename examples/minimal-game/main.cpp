// minimal-game: the smallest game on Tessaro. Its level and catalogue come
// from its own resources through loadBundledConfig; the library's factory
// makes the crates; the game's delegate counts frames and contacts.
//
//   minimal-game              a window (close it to quit)
//   minimal-game --headless   two seconds of play without a window, and a line
#include <tessaro/kit/SceneView.h>
#include <tessaro/runtime/Runtime.h>

#include <QApplication>
#include <QPainter>

#include <cstdio>
#include <cstring>

using namespace tessaro;

namespace {

/// The game's rules: here only counting.
struct Game : SceneBaseCustomDelegate, SceneBaseContactDelegate {
    int frames = 0;
    int landings = 0; // crates meeting the floor
    void update(double) override { ++frames; }
    void didBegin(const kit::PhysicsContact&) override { ++landings; }
};

/// A picture the game draws itself instead of loading it.
kit::TexturePtr crateTexture()
{
    QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
    image.fill(QColor(196, 140, 72));
    QPainter painter(&image);
    painter.setPen(QPen(QColor(110, 70, 30), 6));
    painter.drawRect(3, 3, 58, 58);
    painter.drawLine(6, 6, 58, 58);
    painter.end();
    return kit::Texture::fromImage(image);
}

/// A floor of `width` at height `y`: a sprite, its body and the floor piece
/// that things with gravity stand on.
void addFloor(AppSharedSceneBase& scene, double y, double width)
{
    auto floor = std::make_shared<SKSpriteNodeSharedBase>(nullptr, QColor(90, 160, 70), QSizeF(width, 40));
    floor->setPosition(0, y - 20);
    PhysicsSettings settings;
    settings.category = collisionBit(collisionTypes::floor);
    floor->usePhysicsRectangle(floor->size(), settings);
    scene.addChild(floor);
    scene.groundBaseVariants().push_back(QRectF(-width / 2, y, width, 0));
}

} // namespace

int main(int argc, char** argv)
{
    const bool headless = argc > 1 && std::strcmp(argv[1], "--headless") == 0;
    if (headless && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);

    kit::resources::setSearchPaths({QStringLiteral(MINIMAL_GAME_RESOURCES)});
    const auto levels = loadBundledConfig<configType::level>("Level");
    const auto catalogue = loadBundledConfig<configType::obstacles>("ObstacleList");
    if (levels.empty() || catalogue.empty())
        return 1;

    auto scene = std::make_shared<AppSharedSceneBase>(QSizeF(1024, 768));
    scene->setCachedNodes(AppSharedSceneBase::TextureCache{{QStringLiteral("crate"), {crateTexture()}}});
    Game game;
    scene->setCustomDelegate(&game);
    scene->setContactDelegate(&game);
    addFloor(*scene, -300, 1024);

    int made = 0;
    for (const ObstacleLevelItem& item : levels.front().obstacles.value_or(std::vector<ObstacleLevelItem>{}))
        if (const Obstacle* record = findObstacle(catalogue, item.elementName)) {
            scene->addChild(ObstacleCreationHelper::createObstacle(mergedObstacle(item, *record), *scene, *scene));
            ++made;
        }

    if (headless) {
        scene->didMoveToView(nullptr);
        for (int frame = 0; frame <= 120; ++frame)
            scene->processFrame(frame / 60.0);
        const auto crate = scene->childNodeWithName(QStringLiteral("OBJECT_Crate 1_*"));
        std::printf("minimal-game: %d frames, %d crates, %d on the floor, the first at y %.0f\n", game.frames, made,
                    game.landings, crate ? crate->position().y() : 0.0);
        return made > 0 && game.landings > 0 ? 0 : 1;
    }
    kit::SceneView view;
    view.resize(1024, 768);
    view.presentScene(scene);
    view.show();
    const int status = QApplication::exec();
    view.presentScene(nullptr);
    scene->setCustomDelegate(nullptr);
    scene->setContactDelegate(nullptr);
    return status;
}
