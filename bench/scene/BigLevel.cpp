#include "BigLevel.h"

#include <stagewright/state/Workspace.h>

#include <bench/common/SyntheticProject.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/Diagnostics.h>

#include <QDir>
#include <QImage>
#include <QPainter>

namespace tessaro::bench {

using stagewright::extrasFolder;
using stagewright::kindImageFolder;
using stagewright::ProjectTab;
using stagewright::setWorkingSpacePathValue;
using tessaro::sceneObjectType;

namespace {

void writeImage(const QString& workspace, sceneObjectType kind, const QString& name, int width, int height,
                QColor color)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(color);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(QRectF(0, 0, width, height), width / 6.0, height / 6.0);
    painter.end();
    image.save(kindImageFolder(workspace, kind) + name + QStringLiteral(".png"), "PNG");
}

tessaro::DeviceProperties sized(const std::string& size)
{
    tessaro::DeviceProperties entry;
    entry.deviceName = "defaultDevice";
    entry.size = size;
    return entry;
}

} // namespace

BigLevel::BigLevel()
{
    tessaro::setDiagnosticSink([](std::string_view) {});
    workspace = scratch.path() + QStringLiteral("/workspace/");
    for (sceneObjectType kind : tessaro::allCases<sceneObjectType>())
        if (kind != sceneObjectType::none)
            QDir().mkpath(kindImageFolder(workspace, kind));
    QDir().mkpath(extrasFolder(workspace));
    setWorkingSpacePathValue(workspace);
    tessaro::globalAppConfig() = {};

    writeImage(workspace, sceneObjectType::ground, "ground_grass", 256, 96, QColor(70, 160, 60));
    writeImage(workspace, sceneObjectType::ground, "ground_dirt", 256, 96, QColor(130, 90, 50));
    writeImage(workspace, sceneObjectType::ground, "crest_top_one", 128, 48, QColor(60, 90, 200));
    for (const char* name : {"sky", "hills_far", "hills_near", "trees"})
        writeImage(workspace, sceneObjectType::background, name, 874, 402, QColor(140, 190, 240, 120));
    const char* obstacles[] = {"crate", "spikes", "barrel", "platform", "rock"};
    for (const char* name : obstacles)
        writeImage(workspace, sceneObjectType::obstacles, name, 96, 96, QColor(150, 110, 60));
    writeImage(workspace, sceneObjectType::character, "walker", 96, 128, QColor(200, 60, 60));
    writeImage(workspace, sceneObjectType::character, "flyer", 96, 64, QColor(200, 60, 200));
    writeImage(workspace, sceneObjectType::coin, "coin", 64, 64, QColor(240, 200, 40));
    writeImage(workspace, sceneObjectType::checkpoint, "flag", 64, 128, QColor(250, 250, 250));
    writeImage(workspace, sceneObjectType::shield, "shield", 80, 96, QColor(80, 200, 220));
    writeImage(workspace, sceneObjectType::artifact, "key", 96, 48, QColor(250, 220, 120));

    const char* obstacleNames[] = {"Crate", "Spikes", "Barrel", "Platform", "Rock"};
    tessaro::obstacleCatalogue().clear();
    for (int i = 0; i < 5; ++i) {
        tessaro::Obstacle record;
        record.id = tessaro::Uuid::create();
        record.elementName = obstacleNames[i];
        record.image = obstacles[i];
        record.useGravity = i % 2 == 0;
        record.devices = std::vector<tessaro::DeviceProperties>{sized("{48,48}")};
        tessaro::obstacleCatalogue().push_back(record);
    }
    tessaro::characterCatalogue().clear();
    for (const auto& [name, image] : {std::pair{"Walker", "walker"}, std::pair{"Flyer", "flyer"}}) {
        tessaro::Character record;
        record.id = tessaro::Uuid::create();
        record.elementName = name;
        record.image = image;
        record.useGravity = true;
        record.devices = std::vector<tessaro::DeviceProperties>{sized("{48,64}")};
        tessaro::characterCatalogue().push_back(record);
    }
    tessaro::objectCatalogue().clear();
    for (const auto& [name, image, type] :
         {std::tuple{"coin", "coin", "coin"}, std::tuple{"checkpoint_flag", "flag", "checkpoint"}}) {
        tessaro::GenericObject record;
        record.id = tessaro::Uuid::create();
        record.elementName = name;
        record.image = image;
        record.sceneObjectType = type;
        record.devices = std::vector<tessaro::DeviceProperties>{sized("{32,32}")};
        tessaro::objectCatalogue().push_back(record);
    }

    tessaro::bench::SyntheticShape shape;
    shape.levels = 1;
    shape.obstaclesPerLevel = 2000;
    shape.charactersPerLevel = 200;
    shape.coinsPerLevel = 500;
    shape.groundSectionsPerLevel = 100;
    shape.backgroundsPerLevel = 4;
    std::vector<tessaro::Level> levels = tessaro::bench::makeSyntheticProject(shape);
    levelId = *levels.front().id;
    tab = std::make_unique<ProjectTab>(tessaro::Uuid::create(), QStringLiteral("Bench"));
    tab->setLevelConfig(std::move(levels));
    tab->setLevelSelected(levelId);
}

std::shared_ptr<stagewright::SceneEditor> BigLevel::loadedScene()
{
    auto scene = stagewright::SceneEditor::create(tab.get(), stagewright::SceneSetup{});
    scene->loadLevel(levelId);
    return scene;
}

} // namespace tessaro::bench
