// The values of the settings window below its controls: the appearance and
// the web addresses, which belong to the user, the defaults of new levels and
// scene views, which belong to the workspace, and the folders the user has
// granted. Every change takes effect at once: a workspace default goes into
// the application's configuration, which a new level reads, and into the
// workspace's settings store, which the next start reads.
#pragma once

#include "DBHelper.h"

#include <tessaro/model/AppConfig.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <vector>

namespace stagewright {

class SceneSettings;

/// The user defaults that hold the two web addresses.
namespace AddressKey {
inline const QString server = QStringLiteral("downloadServer");
inline const QString sourcePage = QStringLiteral("sourcePage");
} // namespace AddressKey

/// The user default that holds the seconds between copies of unsaved projects.
inline const QString autosaveIntervalKey = QStringLiteral("autosaveInterval");

class AppPreferences : public QObject {
    Q_OBJECT
public:
    explicit AppPreferences(SceneSettings& settings, QObject* parent = nullptr);

    // ---- General: the user's own ------------------------------------------

    bool darkMode() const;
    /// Switches every window of the application and keeps the choice for
    /// the next start.
    void setDarkMode(bool dark);

    /// The web server the archives are downloaded from, without a final "/".
    static QString serverAddress();
    /// An empty text puts the default back.
    void setServerAddress(const QString& address);
    static QString defaultServerAddress();

    /// The page of the project's public source code.
    static QString sourcePageAddress();
    /// An empty text puts the default back.
    void setSourcePageAddress(const QString& address);
    static QString defaultSourcePageAddress();

    /// Seconds between copies of unsaved projects into the recovery folder;
    /// 0 turns the timed copies off. 60 until the user sets another.
    static int autosaveInterval();
    /// A negative number counts as 0.
    void setAutosaveInterval(int seconds);

    // ---- Workspace: defaults of new levels and scene views ------------------

    /// The workspace defaults in force.
    const tessaro::BaseConfig& workspaceDefaults() const;
    void setDefaultSceneSize(tessaro::SizeValue size);
    void setDefaultSceneOrientation(tessaro::sceneOrientationType orientation);
    /// One of the scale mode texts ("aspectFill", "fill", ...); another text
    /// changes nothing.
    void setDefaultScaleMode(const QString& mode);
    /// Each coordinate is held between 0 and 1.
    void setDefaultAnchorPoint(tessaro::PointValue anchor);
    void setDefaultImageScale(tessaro::imageScaling scale);
    void setDefaultImageType(tessaro::imageType type);
    void setDefaultSoundType(tessaro::soundType type);

    /// The options the scene views show, in the order they were chosen.
    const std::vector<tessaro::DebugOption>& debugOptions() const;
    /// Adds the option when it is not chosen, removes it when it is; `none`
    /// is no option to choose. The open scene views follow.
    void toggleDebugOption(tessaro::DebugOption option);
    /// The chosen options' names joined by ",".
    static QString debugOptionsText(const std::vector<tessaro::DebugOption>& options);
    /// The number of chosen options and ".circle": "2.circle".
    static QString debugOptionsSymbol(const std::vector<tessaro::DebugOption>& options);

    /// Puts the workspace defaults back to their first-run values, in the
    /// store and in force; the appearance follows the first-run value, which
    /// is light, for this run.
    void resetWorkspaceDefaults();

    // ---- Permissions ------------------------------------------------------------

    /// The folders the user has granted.
    QStringList grantedFolders() const;
    /// Asks the user for a folder and grants it; false when the panel is
    /// cancelled.
    bool grantFolder();
    /// Withdraws the grant of a folder.
    void removeGrant(const QString& folder);

signals:
    void darkModeChanged();
    void addressesChanged();
    void autosaveIntervalChanged();
    void workspaceDefaultsChanged();
    void debugOptionsChanged();
    void grantedFoldersChanged();

private:
    /// Writes one workspace default into the store.
    void store(SettingsNames name, const QString& value);
    /// Shows the chosen options on the scene of every tab that has one.
    void showDebugOptionsInViews();
    /// Another workspace is in use: its defaults and options are shown and drawn.
    void followWorkspace();

    SceneSettings& m_settings;
};

} // namespace stagewright
