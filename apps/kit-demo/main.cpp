// kit-demo: builds a small level-like scene with the kit and renders it to a
// PNG (default kit-demo.png), or shows it in a window with --show.
//   kit-demo [--show] [output.png]
#include <tessaro/kit/Kit.h>
#include <tessaro/kit/SceneView.h>

#include <QApplication>
#include <QPainter>
#include <QTextStream>

#include <cmath>

using namespace tessaro::kit;

namespace {

// Pictures are drawn here rather than loaded so that the demo needs no files.
TexturePtr picture(int w, int h, const std::function<void(QPainter&, QRectF)>& paint)
{
    QImage img(w, h, QImage::Format_ARGB32_Premultiplied);
    img.fill(Qt::transparent);
    QPainter p(&img);
    p.setRenderHint(QPainter::Antialiasing);
    paint(p, QRectF(0, 0, w, h));
    p.end();
    return Texture::fromImage(img);
}

TexturePtr groundTile()
{
    return picture(64, 64, [](QPainter& p, QRectF r) {
        p.fillRect(r, QColor(121, 85, 58));
        p.fillRect(QRectF(0, 0, r.width(), 14), QColor(92, 170, 70));
        p.setPen(QColor(95, 66, 45));
        for (int i = 0; i < 6; ++i)
            p.drawEllipse(QPointF(8 + i * 10, 30 + (i % 3) * 10), 3, 2);
    });
}

TexturePtr crate()
{
    return picture(64, 64, [](QPainter& p, QRectF r) {
        p.setBrush(QColor(196, 140, 72));
        p.setPen(QPen(QColor(110, 70, 30), 4));
        p.drawRoundedRect(r.adjusted(2, 2, -2, -2), 6, 6);
        p.drawLine(r.topLeft() + QPointF(6, 6), r.bottomRight() - QPointF(6, 6));
        p.drawLine(r.topRight() + QPointF(-6, 6), r.bottomLeft() + QPointF(6, -6));
    });
}

TexturePtr rock()
{
    return picture(90, 70, [](QPainter& p, QRectF r) {
        QPainterPath path;
        path.moveTo(5, 68);
        path.cubicTo(0, 30, 30, 0, 50, 8);
        path.cubicTo(80, 10, 92, 50, 85, 68);
        path.closeSubpath();
        p.setBrush(QColor(130, 134, 140));
        p.setPen(QPen(QColor(80, 84, 90), 3));
        p.drawPath(path);
        Q_UNUSED(r);
    });
}

TexturePtr coin()
{
    return picture(32, 32, [](QPainter& p, QRectF r) {
        p.setBrush(QColor(250, 204, 40));
        p.setPen(QPen(QColor(200, 140, 0), 3));
        p.drawEllipse(r.adjusted(2, 2, -2, -2));
    });
}

TexturePtr character()
{
    return picture(48, 72, [](QPainter& p, QRectF) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(60, 90, 200));
        p.drawRoundedRect(QRectF(8, 26, 32, 44), 8, 8);
        p.setBrush(QColor(250, 210, 170));
        p.drawEllipse(QRectF(10, 2, 28, 28));
        p.setBrush(Qt::black);
        p.drawEllipse(QRectF(26, 12, 4, 4));
    });
}

std::shared_ptr<ShapeNode> line(QPointF a, QPointF b)
{
    auto shape = ShapeNode::shapeNodeWithPoints({a, b});
    shape->setStrokeColor(Qt::red);
    shape->setLineWidth(2);
    shape->setLineCap(Qt::RoundCap);
    shape->setZPosition(-10);
    return shape;
}

// The selection glow of an element: a red, blurred copy of its picture below it.
void addGlow(SpriteNode& element)
{
    auto glow = Node::create();
    glow->setName("glow");
    glow->setZPosition(-1);
    auto effect = EffectNode::create();
    effect->setFilter(EffectFilter::gaussianBlur(30));
    effect->setShouldRasterize(true);
    auto copy = SpriteNode::create(element.texture(), element.size());
    copy->setColor(Qt::red);
    copy->setColorBlendFactor(1);
    effect->addChild(copy);
    glow->addChild(effect);
    element.addChild(glow);
}

std::shared_ptr<Scene> buildScene()
{
    auto scene = Scene::sceneWithSize({874, 402});
    scene->setScaleMode(SceneScaleMode::AspectFit);
    scene->setBackgroundColor(QColor(170, 210, 240));
    const QRectF frame = scene->sceneFrame();

    auto ground = Node::create();
    ground->setName("groundNodes");
    ground->setZPosition(1);
    scene->addChild(ground);
    auto elements = Node::create();
    elements->setName("obstacleNodes");
    elements->setZPosition(1);
    scene->addChild(elements);

    // Ground: one row of tiles along the bottom, with a floor body.
    const auto tile = groundTile();
    for (int i = 0; i < 14; ++i) {
        auto t = SpriteNode::create(tile);
        t->setPosition(frame.left() + 32 + i * 64, frame.top() + 32);
        t->setZPosition(100);
        ground->addChild(t);
    }
    auto floor = Node::create();
    floor->setPosition(0, frame.top() + 32);
    floor->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({frame.width(), 64}));
    floor->physicsBody()->setDynamic(false);
    ground->addChild(floor);
    const qreal top = frame.top() + 64;

    // A selected rock with its glow, size handle and distance guide.
    auto boulder = SpriteNode::create(rock());
    boulder->setName("boulder");
    boulder->setPosition(-120, top + 35);
    boulder->setZPosition(100);
    elements->addChild(boulder);
    addGlow(*boulder);
    auto sizer = ShapeNode::shapeNodeWithRect({0, 0, 10, 10});
    sizer->setName("nodeSizer");
    sizer->setStrokeColor(Qt::black);
    sizer->setFillColor(Qt::black);
    sizer->setPosition(0, 35);
    boulder->addChild(sizer);
    auto guide = Node::create();
    guide->addChild(line({0, 0}, {200, 0}));
    guide->addChild(line({0, 10}, {0, -10}));
    guide->addChild(line({200, 10}, {200, -10}));
    boulder->addChild(guide);

    // Crates: one stacked on another, and a falling one with a traced body.
    const auto crateTex = crate();
    for (int i = 0; i < 2; ++i) {
        auto c = SpriteNode::create(crateTex);
        c->setPosition(200, top + 32 + i * 64);
        c->setZPosition(100);
        c->setPhysicsBody(PhysicsBody::bodyWithTexture(crateTex, 0.5f));
        elements->addChild(c);
    }
    auto tilted = SpriteNode::create(crateTex);
    tilted->setPosition(330, top + 160);
    tilted->setZRotation(0.5);
    tilted->setZPosition(100);
    tilted->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({60, 60}));
    elements->addChild(tilted);

    // A character and a row of coins, one faded and one tinted.
    auto hero = SpriteNode::create(character());
    hero->setPosition(-330, top + 36);
    hero->setZPosition(100);
    elements->addChild(hero);
    const auto coinTex = coin();
    for (int i = 0; i < 5; ++i) {
        auto c = SpriteNode::create(coinTex);
        c->setPosition(-40 + i * 40, top + 150);
        c->setZPosition(50);
        if (i == 3)
            c->setAlpha(0.4);
        if (i == 4) {
            c->setColor(QColor(40, 200, 255));
            c->setColorBlendFactor(0.7);
        }
        elements->addChild(c);
    }
    auto ring = ShapeNode::shapeNodeWithCircleOfRadius(26);
    ring->setStrokeColor(QColor(255, 255, 255, 200));
    ring->setLineWidth(4);
    ring->setPosition(-330, top + 110);
    elements->addChild(ring);

    // Labels: a title and the coordinate read-out of the canvas.
    auto title = std::make_shared<LabelNode>("Tessaro scene kit");
    title->setFontName("DejaVu Sans-Bold");
    title->setFontSize(30);
    title->setFontColor(QColor(30, 40, 70));
    title->setPosition(0, frame.bottom() - 50);
    title->setZPosition(1000000);
    scene->addChild(title);
    auto readout = std::make_shared<LabelNode>("X: 0.0  Y: 0.0");
    readout->setName("positionXCount");
    readout->setFontName("System-Bold");
    readout->setFontSize(20);
    readout->setFontColor(Qt::white);
    readout->setHorizontalAlignmentMode(LabelHorizontalAlignment::Left);
    readout->setVerticalAlignmentMode(LabelVerticalAlignment::Top);
    readout->setPosition(frame.left() + 220, frame.top() + 90);
    readout->setZPosition(1000000);
    scene->addChild(readout);
    auto note = std::make_shared<LabelNode>("sprites, shapes, labels, blur glow, Box2D bodies");
    note->setFontSize(16);
    note->setFontColor(QColor(30, 40, 70));
    note->setPosition(0, frame.bottom() - 78);
    note->setZPosition(1000000);
    scene->addChild(note);
    return scene;
}

} // namespace

int main(int argc, char** argv)
{
    bool show = false;
    QString output = QStringLiteral("kit-demo.png");
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (arg == QLatin1String("--show"))
            show = true;
        else
            output = arg;
    }
    if (!show && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    AudioNode::setAudioEnabled(false);

    auto scene = buildScene();
    if (show) {
        SceneView view;
        view.resize(874, 402);
        view.setShowsFPS(true);
        view.setShowsNodeCount(true);
        view.presentScene(scene);
        view.show();
        return app.exec();
    }

    // Two seconds of the frame loop: the tilted crate falls and settles.
    for (int i = 0; i <= 120; ++i)
        scene->processFrame(i / 60.0);
    Renderer renderer;
    renderer.options().showsPhysics = true;
    renderer.options().showsNodeCount = true;
    const QImage image = renderer.renderToImage(*scene, {874 * 2, 402 * 2});
    if (!image.save(output)) {
        QTextStream(stderr) << "kit-demo: cannot write " << output << "\n";
        return 1;
    }
    QTextStream(stdout) << "wrote " << output << " (" << image.width() << "x" << image.height() << ", "
                        << renderer.lastNodeCount() << " nodes drawn)\n";
    return 0;
}
