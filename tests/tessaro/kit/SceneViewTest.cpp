// The view widget: drawing, the frame loop, coordinates and events; audio
// nodes that must not touch the audio system until they are shown.
#include <tessaro/kit/Action.h>
#include <tessaro/kit/AudioNode.h>
#include <tessaro/kit/SceneView.h>
#include <tessaro/kit/SpriteNode.h>

#include <QApplication>
#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace tessaro::kit;

namespace {

struct ViewScene : Scene {
    using Scene::Scene;
    int updates = 0;
    double lastTime = -1;
    int moved = 0, left = 0;
    QList<QPointF> downs;
    QList<QPointF> wheels;
    Qt::KeyboardModifiers lastModifiers;
    void update(double t) override
    {
        ++updates;
        lastTime = t;
    }
    void didMoveToView(SceneView*) override { ++moved; }
    void willMoveFromView(SceneView*) override { ++left; }
    void mouseDown(const MouseEvent& e) override
    {
        downs << e.sceneLocation;
        lastModifiers = e.modifiers;
    }
    void scrollWheel(const MouseEvent& e) override { wheels << e.scrollDelta; }
};

struct Handle : SpriteNode {
    using SpriteNode::SpriteNode;
    QStringList log;
    void mouseDown(const MouseEvent& e) override { log << QString("down %1").arg(e.locationInNode(*this).y()); }
    void mouseDragged(const MouseEvent& e) override { log << QString("drag %1").arg(e.locationInNode(*this).y()); }
    void mouseUp(const MouseEvent&) override { log << "up"; }
};

QString writeWav(const QString& path, int sampleRate, int samples)
{
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    QDataStream out(&f);
    out.setByteOrder(QDataStream::LittleEndian);
    out.writeRawData("RIFF", 4);
    out << quint32(36 + samples);
    out.writeRawData("WAVEfmt ", 8);
    out << quint32(16) << quint16(1) << quint16(1) << quint32(sampleRate) << quint32(sampleRate) << quint16(1)
        << quint16(8);
    out.writeRawData("data", 4);
    out << quint32(samples);
    for (int i = 0; i < samples; ++i)
        out << quint8(128);
    return path;
}

} // namespace

TEST(SceneView, DrawsTheSceneAndConvertsCoordinatesWithZoom)
{
    SceneView view;
    view.resize(200, 100);
    auto scene = std::make_shared<ViewScene>(QSizeF(400, 200));
    scene->setScaleMode(SceneScaleMode::AspectFit); // scale 0.5
    scene->setBackgroundColor(Qt::darkGreen);
    auto sprite = SpriteNode::create(Qt::yellow, {40, 40});
    sprite->setPosition(100, 0);
    scene->addChild(sprite);
    view.presentScene(scene);
    EXPECT_EQ(scene->view(), &view);
    EXPECT_EQ(scene->moved, 1);

    const QImage shown = view.grab().toImage().convertToFormat(QImage::Format_ARGB32);
    Renderer reference;
    const QImage expected = reference.renderToImage(*scene, {200, 100}).convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(shown, expected);
    EXPECT_EQ(shown.pixelColor(150, 50), QColor(Qt::yellow));

    EXPECT_EQ(view.convertPointToScene({150, 50}), QPointF(100, 0));
    EXPECT_EQ(view.convertPointFromScene({-200, 100}), QPointF(0, 0));
    EXPECT_EQ(view.visibleSceneRect(), QRectF(-200, -100, 400, 200));
    view.setZoom(2);
    EXPECT_EQ(view.convertPointToScene({150, 50}), QPointF(50, 0));
    EXPECT_EQ(view.visibleSceneRect(), QRectF(-100, -50, 200, 100));

    // Clicks arrive in scene coordinates with their modifiers.
    QTest::mouseClick(&view, Qt::LeftButton, Qt::ShiftModifier, QPoint(50, 25));
    ASSERT_EQ(scene->downs.size(), 1);
    EXPECT_EQ(scene->downs[0], QPointF(-50, 25));
    EXPECT_EQ(scene->lastModifiers, Qt::ShiftModifier);

    QWheelEvent wheel(QPointF(100, 50), view.mapToGlobal(QPointF(100, 50)), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &wheel);
    ASSERT_EQ(scene->wheels.size(), 1);
    EXPECT_EQ(scene->wheels[0], QPointF(0, 15));

    auto next = std::make_shared<ViewScene>(QSizeF(10, 10));
    view.presentScene(next);
    EXPECT_EQ(scene->left, 1);
    EXPECT_EQ(scene->view(), nullptr);
    EXPECT_EQ(next->view(), &view);
}

TEST(SceneView, PressesDragsAndReleasesFollowTheHandleThatWasHit)
{
    SceneView view;
    view.resize(200, 200);
    auto scene = std::make_shared<ViewScene>(QSizeF(200, 200));
    auto handle = std::make_shared<Handle>(Qt::black, QSizeF(10, 10));
    handle->setPosition(0, 50);
    handle->setUserInteractionEnabled(true);
    scene->addChild(handle);
    view.presentScene(scene);

    QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(100, 50)); // scene (0, 50)
    QMouseEvent move(QEvent::MouseMove, QPointF(100, 30), view.mapToGlobal(QPointF(100, 30)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &move);
    QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(100, 30));
    EXPECT_EQ(handle->log, (QStringList{"down 0", "drag 20", "up"}));
    EXPECT_TRUE(scene->downs.isEmpty());
}

TEST(SceneView, FrameLoopDrivesTheSceneUntilPaused)
{
    SceneView view;
    view.resize(100, 100);
    view.show(); // hidden widgets get their resize events only when shown
    auto scene = std::make_shared<ViewScene>(QSizeF(100, 100));
    scene->setScaleMode(SceneScaleMode::ResizeFill);
    auto mover = SpriteNode::create(Qt::white, {1, 1});
    scene->addChild(mover);
    mover->runAction(Action::moveBy(1000, 0, 10.0));
    view.setPreferredFramesPerSecond(100);
    view.presentScene(scene);
    QTest::qWait(200);
    EXPECT_GT(scene->updates, 3);
    EXPECT_GT(scene->lastTime, 0.05);
    EXPECT_GT(mover->position().x(), 0);
    view.setPaused(true);
    const int frozen = scene->updates;
    QTest::qWait(100);
    EXPECT_EQ(scene->updates, frozen);

    // A resize-fill scene takes the view's size.
    EXPECT_EQ(scene->size(), QSizeF(100, 100));
    view.resize(300, 120);
    EXPECT_EQ(scene->size(), QSizeF(300, 120));
}

TEST(AudioNode, PlaysOnlyWhenShownAndTouchesNoAudioUntilThen)
{
    QTemporaryDir dir;
    const QString wav = writeWav(dir.filePath("ping.wav"), 8000, 8000);
    EXPECT_NEAR(wavFileDuration(wav), 1.0, 1e-9);
    EXPECT_EQ(wavFileDuration(dir.filePath("missing.wav")), 0);
    resources::setSearchPaths({dir.path()});
    EXPECT_NEAR(Action::playSoundFileNamed("ping", true)->duration(), 1.0, 1e-9);
    EXPECT_EQ(Action::playSoundFileNamed("ping", false)->duration(), 0);

    AudioNode::setAudioEnabled(false);
    auto audio = AudioNode::audioNodeWithFileNamed("ping");
    ASSERT_TRUE(audio);
    EXPECT_EQ(AudioNode::audioNodeWithFileNamed("nothing"), nullptr);
    auto scene = Scene::sceneWithSize({100, 100});
    scene->addChild(audio);
    EXPECT_FALSE(audio->isPlaying()); // in a scene, but not shown
    {
        SceneView view;
        view.presentScene(scene);
        EXPECT_TRUE(audio->isPlaying());
        EXPECT_FALSE(audio->hasPlayer()); // audio is off for this process
        audio->runAction(Action::changeVolumeTo(0.2f, 0.5));
        scene->processFrame(0);
        scene->processFrame(0.25);
        EXPECT_NEAR(audio->volume(), 0.6, 1e-6);
    }
    EXPECT_FALSE(audio->isPlaying()); // the view went away
    audio->setAutoplayLooped(false);
    SceneView view;
    view.presentScene(scene);
    EXPECT_FALSE(audio->isPlaying());
    audio->play();
    EXPECT_TRUE(audio->isPlaying());
    audio->removeFromParent();
    EXPECT_FALSE(audio->isPlaying());
    resources::setSearchPaths({});
    AudioNode::setAudioEnabled(true);
}
