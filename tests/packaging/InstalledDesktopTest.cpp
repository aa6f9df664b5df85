// The installed icons and project file type, read the way Qt (and so the
// desktop's file dialogs and openers) reads them.
#include "support/TempDir.h"

#include <tessaro/model/LevelFiles.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QMimeDatabase>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

const QString appId = QStringLiteral("org.stagewright.StageWright");
const std::string projectType = "application/x-stagewright-project";

QString installed(const QString& relative)
{
    return QStringLiteral(INSTALL_PREFIX "/") + relative;
}

std::string source(const std::string& relative)
{
    return SOURCE_DIR "/" + relative;
}

// The system's MIME database with the installed package merged in, as the
// package manager makes it. Qt lets a later data folder's magic outweigh an
// earlier one's, so the installed folder cannot simply stand in front of the
// system's.
QMimeDatabase installedMimeDatabase()
{
    static QTemporaryDir data;
    static const bool merged = [] {
        const QString packages = data.filePath(QStringLiteral("mime/packages"));
        QDir().mkpath(packages);
        const QStringList sources =
            QDir(QStringLiteral("/usr/share/mime/packages")).entryList({QStringLiteral("*.xml")});
        for (const QString& name : sources)
            QFile::copy(QStringLiteral("/usr/share/mime/packages/") + name, packages + QLatin1Char('/') + name);
        const QString ours = appId + QStringLiteral(".xml");
        if (!QFile::copy(installed(QStringLiteral("share/mime/packages/")) + ours, packages + QLatin1Char('/') + ours))
            return false;
        QProcess update;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("PKGSYSTEM_ENABLE_FSYNC"), QStringLiteral("0"));
        update.setProcessEnvironment(environment);
        update.start(QStringLiteral("update-mime-database"), {data.filePath(QStringLiteral("mime"))});
        if (!update.waitForFinished(60000) || update.exitCode() != 0)
            return false;
        qputenv("XDG_DATA_HOME", QFile::encodeName(data.filePath(QStringLiteral("no-user-data"))));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(data.path()));
        return true;
    }();
    EXPECT_TRUE(merged) << "the MIME database could not be made";
    return {};
}

std::string typeOf(const std::string& path)
{
    return installedMimeDatabase().mimeTypeForFile(QString::fromStdString(path)).name().toStdString();
}

} // namespace

TEST(InstalledIcons, EachThemeSizeIsTheIconDrawnAtThatSize)
{
    for (int side : {16, 32, 48, 64, 128, 256}) {
        SCOPED_TRACE(side);
        const QImage icon(installed(QStringLiteral("share/icons/hicolor/%1x%1/apps/%2.png").arg(side).arg(appId)));
        ASSERT_FALSE(icon.isNull());
        EXPECT_EQ(icon.size(), QSize(side, side));
        EXPECT_TRUE(icon.hasAlphaChannel());
        // The rounded frame leaves the corners clear and fills the middle.
        EXPECT_LT(qAlpha(icon.pixel(0, 0)), 32);
        EXPECT_LT(qAlpha(icon.pixel(side - 1, side - 1)), 32);
        EXPECT_EQ(qAlpha(icon.pixel(side / 2, side / 2)), 255);
        // The sky at the top is blue and the ground at the bottom is not.
        const QRgb sky = icon.pixel(side / 4, side / 4);
        EXPECT_GT(qBlue(sky), qRed(sky));
        const QRgb ground = icon.pixel(side / 2, side - 1 - side / 16);
        EXPECT_GT(qRed(ground), qBlue(ground));
    }
}

TEST(InstalledProjectType, ProjectsAreToldFromOtherPropertyLists)
{
    const QMimeType type = installedMimeDatabase().mimeTypeForName(QString::fromStdString(projectType));
    ASSERT_TRUE(type.isValid());
    EXPECT_TRUE(type.inherits(QStringLiteral("application/xml")));

    testing_support::TempDir dir;
    EXPECT_EQ(typeOf(source("resources/sample/Levels/Sample.plist")), projectType);
    // What the editor writes for a new level, with and without its id: the
    // first key is then "id" or "settings".
    tessaro::Level level = tessaro::newLevel(tessaro::Uuid::create(), tessaro::BaseConfig{});
    ASSERT_TRUE(tessaro::saveLevels({level}, dir.file("New.plist")));
    EXPECT_EQ(typeOf(dir.file("New.plist")), projectType);
    level.id.reset();
    ASSERT_TRUE(tessaro::saveLevels({level, level}, dir.file("NoIds.plist")));
    EXPECT_EQ(typeOf(dir.file("NoIds.plist")), projectType);
    // The extension does not decide: a project under another name is one.
    ASSERT_TRUE(tessaro::saveLevels({level}, dir.file("level-backup")));
    EXPECT_EQ(typeOf(dir.file("level-backup")), projectType);
}

TEST(InstalledProjectType, OtherPropertyListsAreNotClaimed)
{
    // The catalogues beside the projects are arrays of dictionaries too.
    for (const char* catalogue : {"ObjectList", "CharacterList", "ObstacleList"}) {
        SCOPED_TRACE(catalogue);
        EXPECT_EQ(typeOf(source(std::string("resources/seed/Assets/") + catalogue + ".plist")), "application/xml");
    }

    testing_support::TempDir dir;
    const std::string header = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                               "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                               "<plist version=\"1.0\">\n";
    // A dictionary at the root holding a level's key, as preferences may.
    const std::string preferences = header +
        "<dict>\n"
        "\t<key>settings</key>\n"
        "\t<dict>\n"
        "\t\t<key>ground</key>\n"
        "\t\t<string>grass</string>\n"
        "\t</dict>\n"
        "</dict>\n"
        "</plist>\n";
    EXPECT_NE(typeOf(dir.write("Info.plist", preferences)), projectType);
    // A level's key deeper in a list of other records.
    const std::string deeper = header +
        "<array>\n"
        "\t<dict>\n"
        "\t\t<key>name</key>\n"
        "\t\t<dict>\n"
        "\t\t\t<key>settings</key>\n"
        "\t\t\t<string>x</string>\n"
        "\t\t</dict>\n"
        "\t</dict>\n"
        "</array>\n"
        "</plist>\n";
    EXPECT_NE(typeOf(dir.write("Deeper.plist", deeper)), projectType);
    // An empty list and a binary property list cannot be told apart from
    // any other of their kind.
    EXPECT_NE(typeOf(dir.write("Empty.plist", header + "<array/>\n</plist>\n")), projectType);
    EXPECT_NE(typeOf(dir.write("Binary.plist", std::string("bplist00\xa1\x01\x08\x0a", 12))), projectType);
}
