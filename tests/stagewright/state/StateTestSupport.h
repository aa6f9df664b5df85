// Shared helpers of the state tests: a private home and data folders, captured
// diagnostic lines, and a scene that records what the tab asks of it.
#pragma once

#include "support/ScratchHome.h"

#include <stagewright/state/LevelScene.h>
#include <stagewright/state/ProjectTab.h>

#include <tessaro/model/Diagnostics.h>

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <string>
#include <vector>

namespace stagewright::test {

/// Collects the diagnostic lines written while it lives.
class DiagnosticCapture {
public:
    DiagnosticCapture();
    ~DiagnosticCapture();
    const std::vector<std::string>& lines() const { return m_lines; }
    bool contains(const std::string& line) const;
    bool containsPrefix(const std::string& prefix) const;
    void clear() { m_lines.clear(); }

private:
    std::vector<std::string> m_lines;
    tessaro::DiagnosticSink m_previous;
};

/// A fresh home folder for one test: HOME points into a temporary folder and
/// the user defaults of the application are emptied.
using testing_support::ScratchHome;

/// Writes bytes to a file, making its folder.
void writeFile(const QString& path, const QByteArray& bytes);
QByteArray readFile(const QString& path);
/// A PNG of the given pixel size.
void writePng(const QString& path, int width, int height);

/// A scene that records the calls a tab makes, in one log shared by every
/// scene of a test, and behaves as the canvas does towards the levels.
class FakeScene : public LevelScene {
public:
    FakeScene(ProjectTab& tab, const SceneSetup& setup, std::shared_ptr<QStringList> log);
    ~FakeScene() override;

    void loadLevel(const tessaro::Uuid& levelId) override;
    void writeBack(const tessaro::Uuid& levelId) override;
    tessaro::SizeValue size() const override { return m_size; }
    void setSize(tessaro::SizeValue size) override { m_size = size; }
    tessaro::PointValue anchorPoint() const override { return m_anchor; }
    void setAnchorPoint(tessaro::PointValue anchor) override { m_anchor = anchor; }
    sceneScaleMode scaleMode() const override { return m_scaleMode; }
    void setScaleMode(sceneScaleMode mode) override { m_scaleMode = mode; }
    tessaro::sceneOrientationType orientation() const override { return m_orientation; }
    void setOrientation(tessaro::sceneOrientationType orientation) override { m_orientation = orientation; }
    void releaseContent() override;
    void updateOverlays() override;

    /// The scene's number in the log: "scene N ...".
    int serial() const { return m_serial; }
    QString logName() const { return QStringLiteral("scene %1").arg(m_serial); }

    const SceneSetup setup;
    /// The level loaded, if any.
    std::optional<tessaro::Uuid> loaded;

private:
    QString tag(const tessaro::Uuid& id) const;

    ProjectTab& m_tab;
    std::shared_ptr<QStringList> m_log;
    int m_serial;
    tessaro::SizeValue m_size;
    tessaro::PointValue m_anchor;
    sceneScaleMode m_scaleMode;
    tessaro::sceneOrientationType m_orientation;
};

/// A factory of fake scenes writing into `log`.
SceneFactory fakeSceneFactory(std::shared_ptr<QStringList> log);

/// A host that records what it is asked to show.
class FakeHost : public SceneHost {
public:
    explicit FakeHost(std::shared_ptr<QStringList> log) : m_log(std::move(log)) {}
    ~FakeHost() override
    {
        if (shown)
            shown->setHost(nullptr);
    }
    void presentScene(const std::shared_ptr<LevelScene>& scene) override;
    std::shared_ptr<LevelScene> shown;

private:
    std::shared_ptr<QStringList> m_log;
};

} // namespace stagewright::test
