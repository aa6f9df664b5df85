// The settings row of the current workspace's store, read straight from the
// database file, so a test sees what the next start will read.
#pragma once

#include <stagewright/state/DBHelper.h>
#include <stagewright/state/Workspace.h>

#include <gtest/gtest.h>

#include <QStringList>

#include <sqlite3.h>

namespace testing_support {

/// The stored texts of defaultImageType, defaultSoundType, defaultImageScale,
/// defaultSceneOrientation, defaultScaleMode, defaultAnchorPoint,
/// defaultSceneSize and debugOptions, in that order.
inline QStringList storedSettingsRow()
{
    QStringList row;
    sqlite3* db = nullptr;
    const QByteArray path =
        (stagewright::workingSpacePath() + QString::fromLatin1(stagewright::storeFileName)).toUtf8();
    EXPECT_EQ(sqlite3_open_v2(path.constData(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT defaultImageType, defaultSoundType, defaultImageScale, defaultSceneOrientation, "
                       "defaultScaleMode, defaultAnchorPoint, defaultSceneSize, debugOptions FROM Settings;",
                       -1, &statement, nullptr);
    if (statement && sqlite3_step(statement) == SQLITE_ROW)
        for (int column = 0; column < 8; ++column)
            row << QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return row;
}

} // namespace testing_support
