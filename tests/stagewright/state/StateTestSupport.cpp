#include "StateTestSupport.h"

#include <tessaro/model/LevelRecords.h>
#include <tessaro/model/ValueText.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QSettings>

#include <algorithm>

namespace stagewright::test {

DiagnosticCapture::DiagnosticCapture()
{
    m_previous = tessaro::setDiagnosticSink([this](std::string_view line) { m_lines.emplace_back(line); });
}

DiagnosticCapture::~DiagnosticCapture()
{
    tessaro::setDiagnosticSink(m_previous);
}

bool DiagnosticCapture::contains(const std::string& line) const
{
    return std::find(m_lines.begin(), m_lines.end(), line) != m_lines.end();
}

bool DiagnosticCapture::containsPrefix(const std::string& prefix) const
{
    return std::any_of(m_lines.begin(), m_lines.end(), [&](const std::string& l) { return l.starts_with(prefix); });
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(bytes);
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writePng(const QString& path, int width, int height)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(Qt::red);
    image.save(path, "PNG");
}

namespace {
int sceneCounter = 0;
}

FakeScene::FakeScene(ProjectTab& tab, const SceneSetup& sceneSetup, std::shared_ptr<QStringList> log)
    : setup(sceneSetup),
      m_tab(tab),
      m_log(std::move(log)),
      m_serial(++sceneCounter),
      m_size(sceneSetup.size),
      m_anchor(sceneSetup.anchorPoint),
      m_scaleMode(sceneSetup.scaleMode),
      m_orientation(sceneSetup.orientation)
{
    *m_log << QStringLiteral("new scene %1").arg(m_serial);
}

FakeScene::~FakeScene() = default;

QString FakeScene::tag(const tessaro::Uuid& id) const
{
    return QString::fromStdString(id.text()).left(8);
}

void FakeScene::loadLevel(const tessaro::Uuid& levelId)
{
    *m_log << QStringLiteral("scene %1 loadLevel %2").arg(m_serial).arg(tag(levelId));
    const tessaro::Level* level = m_tab.findLevel(levelId);
    if (!level)
        return;
    loaded = levelId;
    // As the canvas does: the scene takes the level's set-up.
    if (level->settings.size)
        m_size = tessaro::sizeFromText(*level->settings.size);
    if (level->settings.anchorPoint)
        m_anchor = tessaro::pointFromText(*level->settings.anchorPoint);
    m_scaleMode = sceneScaleModeFromText(level->settings.scaleMode);
    m_orientation = tessaro::caseFromText<tessaro::sceneOrientationType>(level->settings.sceneOrientation)
                        .value_or(tessaro::sceneOrientationType::landscape);
}

void FakeScene::writeBack(const tessaro::Uuid& levelId)
{
    *m_log << QStringLiteral("scene %1 writeBack %2").arg(m_serial).arg(tag(levelId));
    if (tessaro::Level* level = m_tab.findLevel(levelId))
        level->settings.fontColor = "written back by scene " + std::to_string(m_serial);
}

void FakeScene::releaseContent()
{
    *m_log << QStringLiteral("scene %1 release").arg(m_serial);
}

void FakeScene::updateOverlays()
{
    *m_log << QStringLiteral("scene %1 overlays").arg(m_serial);
}

SceneFactory fakeSceneFactory(std::shared_ptr<QStringList> log)
{
    return [log](ProjectTab& tab, const SceneSetup& setup) -> std::shared_ptr<LevelScene> {
        return std::make_shared<FakeScene>(tab, setup, log);
    };
}

void FakeHost::presentScene(const std::shared_ptr<LevelScene>& scene)
{
    if (shown)
        shown->setHost(nullptr);
    shown = scene;
    if (scene)
        scene->setHost(this);
    *m_log << (scene ? QStringLiteral("present scene") : QStringLiteral("present nothing"));
}

} // namespace stagewright::test
