#include "AppPreferences.h"

#include "BookmarksManager.h"
#include "LevelScene.h"
#include "PermissionManager.h"
#include "SceneSettings.h"
#include "StateDiagnostics.h"
#include "StateTypes.h"
#include "Workspace.h"

#include <tessaro/model/ConfigFiles.h>
#include <tessaro/model/ValueText.h>

#include <QSettings>

#include <algorithm>

namespace stagewright {

namespace {

QSettings userDefaults()
{
    return QSettings(QStringLiteral("StageWright"), QStringLiteral("StageWright"));
}

QString storedAddress(const QString& key, const QString& fallback)
{
    const QString address = userDefaults().value(key).toString().trimmed();
    return address.isEmpty() ? fallback : address;
}

/// The address without blanks round it and without final "/".
QString tidyAddress(QString address)
{
    address = address.trimmed();
    while (address.endsWith(QLatin1Char('/')))
        address.chop(1);
    return address;
}

template <class E>
QString caseString(E value)
{
    return QString::fromUtf8(tessaro::caseText(value).data(), qsizetype(tessaro::caseText(value).size()));
}

tessaro::appConfig& config()
{
    return tessaro::globalAppConfig();
}

} // namespace

AppPreferences::AppPreferences(SceneSettings& settings, QObject* parent) : QObject(parent), m_settings(settings)
{
    connect(&m_settings, &SceneSettings::isDarkChanged, this, &AppPreferences::darkModeChanged);
    connect(&m_settings.gate().bookmarks(), &BookmarksManager::secureUrlsChanged, this,
            &AppPreferences::grantedFoldersChanged);
    connect(&m_settings, &SceneSettings::workingSpacePathChanged, this, &AppPreferences::followWorkspace);
}

// ---- General ------------------------------------------------------------------------

bool AppPreferences::darkMode() const
{
    return m_settings.isDark();
}

void AppPreferences::setDarkMode(bool dark)
{
    config().base.darkMode = dark;
    m_settings.setIsDark(dark);
}

QString AppPreferences::defaultServerAddress()
{
    return QStringLiteral("https://stagewright.org");
}

QString AppPreferences::defaultSourcePageAddress()
{
    return QStringLiteral("https://github.com/stagewright/stagewright");
}

QString AppPreferences::serverAddress()
{
    return tidyAddress(storedAddress(AddressKey::server, defaultServerAddress()));
}

void AppPreferences::setServerAddress(const QString& address)
{
    const QString tidy = tidyAddress(address);
    if (tidy.isEmpty())
        userDefaults().remove(AddressKey::server);
    else
        userDefaults().setValue(AddressKey::server, tidy);
    emit addressesChanged();
}

QString AppPreferences::sourcePageAddress()
{
    return storedAddress(AddressKey::sourcePage, defaultSourcePageAddress());
}

void AppPreferences::setSourcePageAddress(const QString& address)
{
    const QString tidy = address.trimmed();
    if (tidy.isEmpty())
        userDefaults().remove(AddressKey::sourcePage);
    else
        userDefaults().setValue(AddressKey::sourcePage, tidy);
    emit addressesChanged();
}

int AppPreferences::autosaveInterval()
{
    bool ok = false;
    const int seconds = userDefaults().value(autosaveIntervalKey).toInt(&ok);
    return ok ? std::max(seconds, 0) : 60;
}

void AppPreferences::setAutosaveInterval(int seconds)
{
    userDefaults().setValue(autosaveIntervalKey, std::max(seconds, 0));
    emit autosaveIntervalChanged();
}

// ---- Workspace ------------------------------------------------------------------------

const tessaro::BaseConfig& AppPreferences::workspaceDefaults() const
{
    return config().base;
}

void AppPreferences::store(SettingsNames name, const QString& value)
{
    // A store that cannot be written has said why; the value holds for the run.
    m_settings.updateSetting(name, value);
    emit workspaceDefaultsChanged();
}

void AppPreferences::setDefaultSceneSize(tessaro::SizeValue size)
{
    config().base.defaultSceneSize = size;
    m_settings.setDeviceSize(tessaro::deviceName::defaultDevice, size);
    store(SettingsNames::defaultSceneSize, QString::fromStdString(tessaro::textFromSize(size)));
}

void AppPreferences::setDefaultSceneOrientation(tessaro::sceneOrientationType orientation)
{
    config().base.defaultSceneOrientation = orientation;
    store(SettingsNames::defaultSceneOrientation, caseString(orientation));
}

void AppPreferences::setDefaultScaleMode(const QString& mode)
{
    const std::string text = mode.toStdString();
    if (scaleModeText(sceneScaleModeFromText(text)) != text)
        return;
    config().base.defaultScaleMode = text;
    store(SettingsNames::defaultScaleMode, mode);
}

void AppPreferences::setDefaultAnchorPoint(tessaro::PointValue anchor)
{
    anchor.x = std::clamp(anchor.x, 0.0, 1.0);
    anchor.y = std::clamp(anchor.y, 0.0, 1.0);
    config().base.defaultAnchorPoint = anchor;
    store(SettingsNames::defaultAnchorPoint, QString::fromStdString(tessaro::textFromPoint(anchor)));
}

void AppPreferences::setDefaultImageScale(tessaro::imageScaling scale)
{
    config().base.defaultImageScale = scale;
    store(SettingsNames::defaultImageScale, caseString(scale));
}

void AppPreferences::setDefaultImageType(tessaro::imageType type)
{
    config().base.defaultImageType = type;
    store(SettingsNames::defaultImageType, caseString(type));
}

void AppPreferences::setDefaultSoundType(tessaro::soundType type)
{
    config().base.defaultSoundType = type;
    store(SettingsNames::defaultSoundType, caseString(type));
}

const std::vector<tessaro::DebugOption>& AppPreferences::debugOptions() const
{
    return config().debugOptions;
}

void AppPreferences::toggleDebugOption(tessaro::DebugOption option)
{
    if (option == tessaro::DebugOption::none)
        return;
    std::vector<tessaro::DebugOption>& options = config().debugOptions;
    const auto found = std::find(options.begin(), options.end(), option);
    if (found != options.end())
        options.erase(found);
    else
        options.push_back(option);
    m_settings.updateSetting(SettingsNames::debugOptions, debugOptionsText(options));
    showDebugOptionsInViews();
    emit debugOptionsChanged();
}

QString AppPreferences::debugOptionsText(const std::vector<tessaro::DebugOption>& options)
{
    return QString::fromStdString(tessaro::textFromList(options));
}

QString AppPreferences::debugOptionsSymbol(const std::vector<tessaro::DebugOption>& options)
{
    return QString::number(options.size()) + QStringLiteral(".circle");
}

void AppPreferences::showDebugOptionsInViews()
{
    for (const auto& tab : m_settings.projectTabs())
        if (const auto& scene = tab->currentScene())
            if (SceneHost* host = scene->host())
                host->showDebugOptions(config().debugOptions);
}

void AppPreferences::followWorkspace()
{
    // The store of the new workspace is in force: views that show its values
    // take them again, so that none writes a value of the old one into it.
    showDebugOptionsInViews();
    emit workspaceDefaultsChanged();
    emit debugOptionsChanged();
}

void AppPreferences::resetWorkspaceDefaults()
{
    m_settings.resetSettings();
    // The first-run appearance holds for this run; the user's choice stays
    // stored for the next start.
    const QVariant kept = userDefaults().value(QStringLiteral("isDark"));
    m_settings.setIsDark(config().base.darkMode);
    if (kept.isValid())
        userDefaults().setValue(QStringLiteral("isDark"), kept);
    else
        userDefaults().remove(QStringLiteral("isDark"));
    showDebugOptionsInViews();
    emit workspaceDefaultsChanged();
    emit debugOptionsChanged();
}

// ---- Permissions --------------------------------------------------------------------------

QStringList AppPreferences::grantedFolders() const
{
    return m_settings.gate().bookmarks().secureUrls();
}

bool AppPreferences::grantFolder()
{
    const ChooseResult chosen = m_settings.gate().choose(QStringLiteral("/"));
    const QString* folder = std::get_if<QString>(&chosen);
    if (!folder)
        return false;
    m_settings.gate().bookmarks().add(*folder);
    return true;
}

void AppPreferences::removeGrant(const QString& folder)
{
    m_settings.gate().bookmarks().remove(folder);
}

} // namespace stagewright
