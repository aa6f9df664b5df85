// The sample project: what it holds, that everything it names exists in the
// seed of a new workspace, and how it is put into a workspace.
#include "ShellTestSupport.h"

#include <stagewright/shell/SampleWorkspace.h>
#include <stagewright/state/PermissionManager.h>
#include <stagewright/state/Workspace.h>

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/LevelFiles.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <map>

namespace stagewright::test {

namespace {

using SampleTest = ShellFixture;

/// The sample as the resources carry it.
std::vector<tessaro::Level> bundledSample(QTemporaryDir& scratch)
{
    const QString copy = scratch.path() + QStringLiteral("/Sample.plist");
    QFile::copy(sampleProjectsRoot() + sampleProjectFileName(), copy);
    tessaro::LevelsReadResult read = tessaro::readLevels(copy.toStdString());
    EXPECT_TRUE(read.ok) << read.error;
    return read.levels;
}

template <class Record>
bool inCatalogue(const std::vector<Record>& catalogue, const std::string& name)
{
    return std::any_of(catalogue.begin(), catalogue.end(),
                       [&](const Record& record) { return record.elementName == name; });
}

/// An image of a kind in the current workspace.
bool imageExists(tessaro::sceneObjectType kind, const std::string& name)
{
    return QFileInfo::exists(kindImageFolder(workingSpacePath(), kind) + QString::fromStdString(name) +
                             QStringLiteral(".png"));
}

} // namespace

TEST_F(SampleTest, HoldsLevelsWithEveryKindOfElement)
{
    QTemporaryDir scratch;
    const std::vector<tessaro::Level> levels = bundledSample(scratch);
    ASSERT_EQ(levels.size(), 3u);
    for (const tessaro::Level& level : levels) {
        EXPECT_EQ(level.settings.size, "{874.0,402.0}");
        ASSERT_TRUE(level.ground && level.obstacles && level.characters && level.background && level.coins);
        EXPECT_GE(level.ground->size(), 5u);
        EXPECT_GE(level.background->backgrounds->size(), 2u);
        EXPECT_GE(level.obstacles->size(), 5u);
        EXPECT_GE(level.characters->size(), 3u);
        EXPECT_GE(level.coins->coins->size(), 2u);
        EXPECT_EQ(level.checkpoints->locations->size(), 1u);
        EXPECT_EQ(level.shields->shields->size(), 1u);
        EXPECT_EQ(level.artifacts->artifacts->size(), 1u);
        // One hero to play, and enemies to meet.
        EXPECT_EQ(std::count_if(level.characters->begin(), level.characters->end(),
                                [](const auto& c) { return c.charClassType == "friendly"; }),
                  1);
    }
}

TEST_F(SampleTest, EverythingItNamesIsInTheSeedOfANewWorkspace)
{
    QTemporaryDir scratch;
    // The fixture's state made the default workspace from the seed and
    // loaded its catalogues.
    const std::map<std::string, std::string> hazardTiles{{"BrightWater", "brightWater_ground"},
                                                         {"Lava", "lava_top"},
                                                         {"MuddyWater", "muddyWater_ground"},
                                                         {"Spike", "spikes_1"},
                                                         {"ToxicGreen", "toxicGreen_ground"}};
    using tessaro::sceneObjectType;
    for (const tessaro::Level& level : bundledSample(scratch)) {
        for (const auto& item : *level.obstacles)
            EXPECT_TRUE(inCatalogue(tessaro::obstacleCatalogue(), item.elementName)) << item.elementName;
        for (const auto& item : *level.characters)
            EXPECT_TRUE(inCatalogue(tessaro::characterCatalogue(), item.elementName)) << item.elementName;
        EXPECT_TRUE(inCatalogue(tessaro::objectCatalogue(), level.checkpoints->image));
        for (const auto& section : *level.ground) {
            const std::string type = section.groundType.value_or("Ground");
            if (type == "Ground") {
                std::string images = *section.image;
                for (std::size_t start = 0; start < images.size();) {
                    const std::size_t comma = std::min(images.find(',', start), images.size());
                    const std::string name = images.substr(start, comma - start);
                    EXPECT_TRUE(imageExists(sceneObjectType::ground, name)) << name;
                    start = comma + 1;
                }
            } else {
                ASSERT_TRUE(hazardTiles.count(type)) << type;
                EXPECT_TRUE(imageExists(sceneObjectType::ground, hazardTiles.at(type))) << type;
                EXPECT_TRUE(section.distance.has_value());
            }
        }
        for (const auto& layer : *level.background->backgrounds)
            EXPECT_TRUE(imageExists(sceneObjectType::background, *layer.image)) << *layer.image;
        EXPECT_TRUE(imageExists(sceneObjectType::coin, *level.coins->image));
        EXPECT_TRUE(imageExists(sceneObjectType::shield, *level.shields->image));
        EXPECT_TRUE(imageExists(sceneObjectType::artifact, *level.artifacts->image));
        std::vector<tessaro::GameSound> sounds;
        for (const auto* part : {level.coins ? &level.coins->soundEffects : nullptr,
                                 level.checkpoints ? &level.checkpoints->soundEffects : nullptr,
                                 level.levelEnd ? &level.levelEnd->soundEffects : nullptr})
            if (part && *part)
                sounds.insert(sounds.end(), (*part)->begin(), (*part)->end());
        EXPECT_FALSE(sounds.empty()) << "coins, checkpoints and the level end sound";
        for (const tessaro::GameSound& sound : sounds)
            EXPECT_TRUE(QFileInfo::exists(soundsFolder(workingSpacePath()) + QString::fromStdString(sound.filename) +
                                          "." + QString::fromStdString(sound.fileExtension)))
                << sound.filename;
    }
    // The catalogues' sounds are there too.
    for (const auto& record : tessaro::obstacleCatalogue())
        for (const tessaro::GameSound& sound : record.soundEffects.value_or(std::vector<tessaro::GameSound>{}))
            EXPECT_TRUE(
                QFileInfo::exists(soundsFolder(workingSpacePath()) + QString::fromStdString(sound.filename) + ".wav"))
                << sound.filename;
}

TEST_F(SampleTest, InstallingNeverReplacesAUsersFile)
{
    const QString workspace = home->folder(QStringLiteral("space"));
    QStringList installed = installSampleProjects(workspace, PermissionManager::shared());
    const QString target = workspace + QStringLiteral("/Levels/Sample.plist");
    EXPECT_EQ(installed, QStringList({target}));
    EXPECT_EQ(readProject(target).size(), 3u);
    // The copy is the user's to edit.
    EXPECT_TRUE(QFileInfo(target).isWritable());

    // A second time nothing is copied, and a file of the user's stays.
    QFile mine(target);
    ASSERT_TRUE(mine.open(QIODevice::WriteOnly | QIODevice::Truncate));
    mine.write("my own level");
    mine.close();
    EXPECT_TRUE(installSampleProjects(workspace, PermissionManager::shared()).isEmpty());
    QFile again(target);
    ASSERT_TRUE(again.open(QIODevice::ReadOnly));
    EXPECT_EQ(again.readAll(), QByteArray("my own level"));
}

} // namespace stagewright::test
