// The renderer against pictures built independently, pixel by pixel.
#include <tessaro/kit/EffectNode.h>
#include <tessaro/kit/LabelNode.h>
#include <tessaro/kit/Renderer.h>
#include <tessaro/kit/ShapeNode.h>
#include <tessaro/kit/SpriteNode.h>

#include <QFile>
#include <QPainter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>

using namespace tessaro::kit;

namespace {

// The expected picture: scene rectangles (y up, scene height `h`) painted
// straight into pixels, with plain source-over blending.
struct Expected {
    QImage image;
    int h;
    Expected(int w, int height, QColor background) : image(w, height, QImage::Format_ARGB32), h(height)
    {
        image.fill(background);
    }
    void blend(int x, int row, QColor c, double alpha = 1.0)
    {
        const QColor d = image.pixelColor(x, row);
        const double a = alpha * c.alphaF();
        image.setPixelColor(x, row,
                            QColor(int(std::lround(c.red() * a + d.red() * (1 - a))),
                                   int(std::lround(c.green() * a + d.green() * (1 - a))),
                                   int(std::lround(c.blue() * a + d.blue() * (1 - a)))));
    }
    void rect(int x, int y, int w, int height, QColor c, double alpha = 1.0)
    {
        for (int row = h - y - height; row < h - y; ++row)
            for (int col = x; col < x + w; ++col)
                blend(col, row, c, alpha);
    }
    // A picture placed with its bottom-left corner at scene (x, y), upright.
    void picture(int x, int y, const QImage& pic, bool mirrored = false)
    {
        for (int r = 0; r < pic.height(); ++r)
            for (int c = 0; c < pic.width(); ++c) {
                const QColor p = pic.pixelColor(mirrored ? pic.width() - 1 - c : c, r);
                blend(x + c, h - y - pic.height() + r, QColor(p.red(), p.green(), p.blue()), p.alphaF());
            }
    }
};

int worstDifference(const QImage& a, const QImage& b, QPoint* where = nullptr)
{
    int worst = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QColor p = a.pixelColor(x, y), q = b.pixelColor(x, y);
            const int d =
                std::max({std::abs(p.red() - q.red()), std::abs(p.green() - q.green()), std::abs(p.blue() - q.blue())});
            if (d > worst) {
                worst = d;
                if (where)
                    *where = {x, y};
            }
        }
    return worst;
}

QImage checker(int size, int cell, QColor a, QColor b)
{
    QImage img(size, size, QImage::Format_ARGB32);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
            img.setPixelColor(x, y, ((x / cell + y / cell) % 2) ? a : b);
    return img;
}

std::shared_ptr<SpriteNode> colored(QColor c, QSizeF size, QPointF pos, qreal z = 0)
{
    auto s = SpriteNode::create(c, size);
    s->setAnchorPoint({0, 0});
    s->setPosition(pos);
    s->setZPosition(z);
    return s;
}

QRect paintedBounds(const QImage& img, QColor background)
{
    QRect r;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (img.pixelColor(x, y) != background)
                r = r.united(QRect(x, y, 1, 1));
    return r;
}

} // namespace

TEST(Renderer, SceneMatchesAPictureBuiltPixelByPixel)
{
    auto scene = Scene::sceneWithSize({200, 100});
    scene->setAnchorPoint({0, 0});
    scene->setScaleMode(SceneScaleMode::AspectFit);
    scene->setBackgroundColor(QColor(0, 0, 255));

    // Depth beats tree order: the green square is added later but lies lower.
    scene->addChild(colored(Qt::red, {40, 20}, {30, 30}, 1));
    auto green = SpriteNode::create(Qt::green, {40, 40});
    green->setPosition(60, 40); // centred anchor: x 40..80, y 20..60
    scene->addChild(green);
    // Hidden nodes draw nothing.
    auto cover = colored(Qt::white, {200, 100}, {0, 0}, 10);
    cover->setHidden(true);
    scene->addChild(cover);
    // A textured sprite inside a moved layer.
    const QImage board = checker(16, 4, Qt::yellow, Qt::black);
    auto layer = Node::create();
    layer->setPosition(120, 10);
    layer->setZPosition(5);
    scene->addChild(layer);
    auto textured = SpriteNode::create(Texture::fromImage(board));
    textured->setAnchorPoint({0, 0});
    layer->addChild(textured);
    // Alpha, and alpha multiplied down the tree.
    auto faint = colored(Qt::white, {20, 20}, {160, 60}, 2);
    faint->setAlpha(0.5);
    scene->addChild(faint);
    auto dim = Node::create();
    dim->setAlpha(0.5);
    dim->setPosition(180, 60);
    scene->addChild(dim);
    auto dimChild = colored(Qt::red, {10, 10}, {0, 0});
    dimChild->setAlpha(0.5);
    dim->addChild(dimChild);
    // Colour blend: the opaque half of a white picture turns red.
    QImage half(10, 10, QImage::Format_ARGB32);
    half.fill(Qt::transparent);
    for (int y = 0; y < 10; ++y)
        for (int x = 5; x < 10; ++x)
            half.setPixelColor(x, y, Qt::white);
    auto blended = SpriteNode::create(Texture::fromImage(half));
    blended->setAnchorPoint({0, 0});
    blended->setPosition(100, 80);
    blended->setColor(Qt::red);
    blended->setColorBlendFactor(1.0);
    scene->addChild(blended);
    // A mirrored picture.
    QImage twoTone(10, 10, QImage::Format_ARGB32);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 10; ++x)
            twoTone.setPixelColor(x, y, x < 5 ? Qt::cyan : Qt::magenta);
    auto mirrored = SpriteNode::create(Texture::fromImage(twoTone));
    mirrored->setPosition(20, 80);
    mirrored->setXScale(-1);
    scene->addChild(mirrored);
    // A quarter turn: 20 by 6 becomes 6 by 20.
    auto turned = SpriteNode::create(Qt::white, {20, 6});
    turned->setPosition(100, 40);
    turned->setZRotation(M_PI / 2);
    scene->addChild(turned);
    // A filled shape.
    auto square = ShapeNode::shapeNodeWithRect({0, 0, 10, 10});
    square->setFillColor(Qt::black);
    square->setLineWidth(0);
    square->setPosition(150, 5);
    scene->addChild(square);

    Renderer renderer;
    const QImage actual = renderer.renderToImage(*scene, {200, 100});

    Expected e(200, 100, QColor(0, 0, 255));
    e.rect(40, 20, 40, 40, Qt::green);
    e.rect(30, 30, 40, 20, Qt::red);
    e.picture(120, 10, board);
    e.rect(160, 60, 20, 20, Qt::white, 0.5);
    e.rect(180, 60, 10, 10, Qt::red, 0.25);
    e.rect(105, 80, 5, 10, Qt::red);
    e.picture(15, 75, twoTone, true);
    e.rect(97, 30, 6, 20, Qt::white);
    e.rect(150, 5, 10, 10, Qt::black);

    QPoint where;
    const int worst = worstDifference(actual, e.image, &where);
    EXPECT_LE(worst, 2) << "at " << where.x() << "," << where.y();
    EXPECT_EQ(renderer.lastNodeCount(), 9);
}

TEST(Renderer, ScaleModesAndZoomPlaceTheScene)
{
    auto scene = Scene::sceneWithSize({100, 100});
    scene->setBackgroundColor(Qt::black);
    auto marker = SpriteNode::create(Qt::white, {10, 10}); // at the scene's centre
    scene->addChild(marker);
    Renderer renderer;

    scene->setScaleMode(SceneScaleMode::AspectFit); // 200x100 view: scale 1, centred
    EXPECT_EQ(paintedBounds(renderer.renderToImage(*scene, {200, 100}), Qt::black), QRect(95, 45, 10, 10));
    scene->setScaleMode(SceneScaleMode::AspectFill); // scale 2
    EXPECT_EQ(paintedBounds(renderer.renderToImage(*scene, {200, 100}), Qt::black), QRect(90, 40, 20, 20));
    scene->setScaleMode(SceneScaleMode::Fill); // 2 by 1
    EXPECT_EQ(paintedBounds(renderer.renderToImage(*scene, {200, 100}), Qt::black), QRect(90, 45, 20, 10));
    EXPECT_EQ(paintedBounds(renderer.renderToImage(*scene, {200, 100}, 2.0), Qt::black), QRect(80, 40, 40, 20));
    // The anchor moves the origin, not the scene's rectangle.
    scene->setScaleMode(SceneScaleMode::AspectFit);
    scene->setAnchorPoint({0, 0});
    EXPECT_EQ(paintedBounds(renderer.renderToImage(*scene, {200, 100}), Qt::black), QRect(45, 95, 10, 5));
}

TEST(Renderer, ACameraCentresTheViewAndScaledPicturesStayTrue)
{
    auto scene = Scene::sceneWithSize({100, 100});
    scene->setBackgroundColor(Qt::black);
    scene->addChild(colored(Qt::white, {10, 10}, {300, 200}));
    auto camera = Node::create();
    camera->setPosition(305, 205);
    camera->addChild(colored(Qt::red, {4, 4}, {-50, 46})); // a corner mark that stays on the screen
    scene->addChild(camera);
    scene->setCamera(camera);
    Renderer renderer;
    QImage seen = renderer.renderToImage(*scene, {100, 100});
    EXPECT_EQ(seen.pixelColor(50, 50), QColor(Qt::white));
    EXPECT_EQ(seen.pixelColor(44, 50), QColor(Qt::black));
    EXPECT_EQ(seen.pixelColor(1, 1), QColor(Qt::red));
    camera->setPosition(0, 0);
    seen = renderer.renderToImage(*scene, {100, 100});
    EXPECT_EQ(seen.pixelColor(50, 50), QColor(Qt::black));
    EXPECT_EQ(seen.pixelColor(1, 1), QColor(Qt::red));
    camera->setPosition(305, 205);
    scene->setCamera(nullptr); // the scene's frame is in the middle again
    EXPECT_EQ(renderer.renderToImage(*scene, {100, 100}).pixelColor(50, 50), QColor(Qt::black));

    // A picture drawn at twice its size, from the kept copy the second time,
    // its mirror image beside it, and a picture that paints only a corner
    // of itself.
    auto pictured = Scene::sceneWithSize({120, 40});
    pictured->setAnchorPoint({0, 0});
    pictured->setBackgroundColor(Qt::black);
    const QImage pic = checker(20, 5, Qt::yellow, Qt::blue);
    QImage wide = pic.scaled(40, 40, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    auto upright = SpriteNode::create(Texture::fromImage(pic), {40, 40});
    upright->texture()->setFilteringMode(Texture::Filtering::Nearest);
    upright->setPosition(20, 20);
    auto mirrored = SpriteNode::create(upright->texture(), {40, 40});
    mirrored->setPosition(60, 20);
    mirrored->setXScale(-1);
    QImage corner(20, 20, QImage::Format_ARGB32);
    corner.fill(Qt::transparent);
    for (int y = 12; y < 16; ++y)
        for (int x = 3; x < 9; ++x)
            corner.setPixelColor(x, y, x % 2 ? QColor(Qt::red) : QColor(0, 255, 0, 128));
    auto sparse = SpriteNode::create(Texture::fromImage(corner), {40, 40});
    sparse->texture()->setFilteringMode(Texture::Filtering::Nearest);
    sparse->setPosition(100, 20);
    pictured->addChild(upright);
    pictured->addChild(mirrored);
    pictured->addChild(sparse);
    Expected expected(120, 40, Qt::black);
    expected.picture(0, 0, wide);
    expected.picture(40, 0, wide, true);
    expected.picture(80, 0, corner.scaled(40, 40, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    for (int pass = 0; pass < 2; ++pass) {
        QPoint where;
        EXPECT_EQ(worstDifference(renderer.renderToImage(*pictured, {120, 40}), expected.image, &where), 0)
            << "pass " << pass << " at " << where.x() << "," << where.y();
    }
}

TEST(Renderer, BlurredGlowSpreadsRedAroundTheSprite)
{
    auto scene = Scene::sceneWithSize({200, 200});
    scene->setBackgroundColor(Qt::black);
    QImage white(40, 40, QImage::Format_ARGB32);
    white.fill(Qt::white);
    auto glowLayer = Node::create();
    glowLayer->setName("glow");
    glowLayer->setZPosition(-1);
    auto effect = EffectNode::create();
    effect->setFilter(EffectFilter::gaussianBlur(10));
    effect->setShouldRasterize(true);
    auto copy = SpriteNode::create(Texture::fromImage(white));
    copy->setColor(Qt::red);
    copy->setColorBlendFactor(1);
    effect->addChild(copy);
    glowLayer->addChild(effect);
    scene->addChild(glowLayer);

    Renderer renderer;
    const QImage img = renderer.renderToImage(*scene, {200, 200});
    // Along the middle row, from the centre outwards: red fading to nothing.
    const int row = 100;
    int last = 256;
    for (int x = 100; x < 200; x += 5) {
        const QColor c = img.pixelColor(x, row);
        EXPECT_EQ(c.green(), 0);
        EXPECT_EQ(c.blue(), 0);
        EXPECT_LE(c.red(), last);
        last = c.red();
    }
    EXPECT_GT(img.pixelColor(100, row).red(), 200);
    EXPECT_GT(img.pixelColor(130, row).red(), 20); // 10 points outside the sprite
    EXPECT_LT(img.pixelColor(130, row).red(), 120);
    EXPECT_EQ(img.pixelColor(175, row).red(), 0); // beyond three radii
    EXPECT_NEAR(img.pixelColor(100, 60).red(), img.pixelColor(60, 100).red(), 2); // symmetric
    // The blur matches a Gaussian with the radius as standard deviation: at
    // the sprite's edge half the red is left, 10 points out about 16 %.
    const double edge = img.pixelColor(120, row).red() / double(img.pixelColor(100, row).red());
    EXPECT_NEAR(edge, 0.5, 0.06);

    // The rasterised picture is reused until the subtree changes.
    EXPECT_EQ(renderer.renderToImage(*scene, {200, 200}), img);
    copy->setPosition(40, 0);
    EXPECT_NE(renderer.renderToImage(*scene, {200, 200}), img);
    // Without effects the children draw as plain nodes.
    effect->setShouldEnableEffects(false);
    copy->setPosition(0, 0);
    const QImage plain = renderer.renderToImage(*scene, {200, 200});
    EXPECT_EQ(plain.pixelColor(100, 100), QColor(Qt::red));
    EXPECT_EQ(plain.pixelColor(125, 100), QColor(Qt::black));
}

TEST(Renderer, LabelsAlignTextAroundTheirPosition)
{
    auto scene = Scene::sceneWithSize({300, 100});
    scene->setBackgroundColor(Qt::black);
    auto label = std::make_shared<LabelNode>("Hello");
    label->setFontSize(30);
    label->setFontColor(Qt::white);
    scene->addChild(label);
    Renderer renderer;

    auto bounds = [&] { return paintedBounds(renderer.renderToImage(*scene, {300, 100}), Qt::black); };
    label->setHorizontalAlignmentMode(LabelHorizontalAlignment::Left);
    label->setVerticalAlignmentMode(LabelVerticalAlignment::Baseline);
    QRect r = bounds();
    EXPECT_NEAR(r.left(), 150, 4);
    EXPECT_NEAR(r.bottom(), 50, 2); // "Hello" has no descenders
    EXPECT_GT(r.width(), 40);
    // The content rectangle covers the drawn glyphs.
    const QRectF content = label->contentRect();
    EXPECT_LE(content.left(), r.left() - 150 + 1);
    EXPECT_GE(content.right(), r.right() - 150);
    EXPECT_GE(content.top() + content.height(), 50 - r.top());

    label->setHorizontalAlignmentMode(LabelHorizontalAlignment::Right);
    r = bounds();
    EXPECT_NEAR(r.right(), 150, 4);
    label->setHorizontalAlignmentMode(LabelHorizontalAlignment::Center);
    label->setVerticalAlignmentMode(LabelVerticalAlignment::Top);
    r = bounds();
    EXPECT_NEAR((r.left() + r.right()) / 2.0, 150, 3);
    EXPECT_GE(r.top(), 50);
    EXPECT_LT(r.top(), 60);
    label->setVerticalAlignmentMode(LabelVerticalAlignment::Center);
    r = bounds();
    EXPECT_NEAR((r.top() + r.bottom()) / 2.0, 50, 5);

    // Line breaks and wrapping follow numberOfLines and the preferred width.
    label->setText("one two three four");
    EXPECT_EQ(label->layoutLines().size(), 1);
    label->setNumberOfLines(0);
    label->setPreferredMaxLayoutWidth(90);
    const QStringList lines = label->layoutLines();
    EXPECT_GE(lines.size(), 2);
    EXPECT_EQ(lines.join(" "), "one two three four");
    label->setNumberOfLines(2);
    EXPECT_EQ(label->layoutLines().size(), 2);
    label->setText("a\nb\nc");
    label->setNumberOfLines(0);
    EXPECT_EQ(label->layoutLines(), (QStringList{"a", "b", "c"}));
    const qreal oneLine = LabelNode("a").contentRect().height();
    EXPECT_GT(label->contentRect().height(), 2.5 * oneLine);
}

TEST(Renderer, DebugOverlaysDrawPhysicsOutlinesAndCounts)
{
    auto scene = Scene::sceneWithSize({200, 100});
    scene->setBackgroundColor(Qt::black);
    auto node = Node::create();
    node->setPhysicsBody(PhysicsBody::bodyWithRectangleOfSize({60, 40}));
    scene->addChild(node);
    Renderer renderer;
    EXPECT_EQ(paintedBounds(renderer.renderToImage(*scene, {200, 100}), Qt::black), QRect());
    renderer.options().showsPhysics = true;
    const QRect outline = paintedBounds(renderer.renderToImage(*scene, {200, 100}), Qt::black);
    EXPECT_NEAR(outline.left(), 70, 1);
    EXPECT_NEAR(outline.right(), 130, 1);
    EXPECT_NEAR(outline.top(), 30, 1);
    EXPECT_NEAR(outline.bottom(), 70, 1);
    renderer.options().showsPhysics = false;
    renderer.options().showsNodeCount = true;
    const QRect stats = paintedBounds(renderer.renderToImage(*scene, {200, 100}), Qt::black);
    EXPECT_GT(stats.left(), 100);
    EXPECT_GT(stats.bottom(), 80);
    renderer.options().showsNodeCount = false;

    // Draw and quad counts: two sprites of one texture in a row are one pass.
    renderer.options().showsDrawCount = true;
    renderer.renderToImage(*scene, {400, 200});
    const int passesBefore = renderer.lastDrawCount();
    QImage red(4, 4, QImage::Format_ARGB32);
    red.fill(Qt::red);
    const TexturePtr shared = Texture::fromImage(red);
    for (qreal x : {-60.0, -40.0}) {
        auto sprite = SpriteNode::create(shared, {10, 10});
        sprite->setPosition(x, 0);
        sprite->setZPosition(0.5);
        scene->addChild(sprite);
    }
    auto other = SpriteNode::create(Texture::fromImage(red), {10, 10});
    other->setZPosition(1);
    scene->addChild(other);
    renderer.renderToImage(*scene, {400, 200});
    EXPECT_EQ(renderer.lastDrawCount(), passesBefore + 2);
    renderer.options().showsDrawCount = false;
    renderer.options().showsQuadCount = true;
    const QRect quads = paintedBounds(renderer.renderToImage(*scene, {400, 200}), Qt::black);
    EXPECT_EQ(renderer.lastQuadCount(), 3);
    EXPECT_GT(quads.bottom(), 160);
    renderer.options().showsQuadCount = false;

    // The fields: gravity's arrow in the top left corner, nothing there without it.
    const auto topLeft = [&] {
        const QImage picture = renderer.renderToImage(*scene, {400, 200});
        return paintedBounds(picture.copy(0, 0, 60, 40), Qt::black);
    };
    EXPECT_EQ(topLeft(), QRect());
    renderer.options().showsFields = true;
    EXPECT_FALSE(topLeft().isEmpty());
}

TEST(Renderer, SvgImagesBecomeTextures)
{
    QTemporaryDir dir;
    QFile file(dir.filePath("flag.svg"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="40" height="20">)"
               R"(<rect x="0" y="0" width="20" height="20" fill="#ff0000"/>)"
               R"(<rect x="20" y="0" width="20" height="20" fill="#0000ff"/></svg>)");
    file.close();
    resources::setSearchPaths({dir.path()});
    auto texture = Texture::textureWithImageNamed("flag");
    resources::setSearchPaths({});
    ASSERT_FALSE(texture->isPlaceholder());
    EXPECT_EQ(texture->size(), QSizeF(40, 20));
    EXPECT_EQ(texture->image().pixelColor(5, 10), QColor(255, 0, 0));
    EXPECT_EQ(texture->image().pixelColor(35, 10), QColor(0, 0, 255));
}

TEST(Renderer, KeptPicturesServeAPixelOffAndTheirMirror)
{
    // A picture whose left half is red and right half blue, with a clear
    // margin on the right that the kept picture leaves out.
    QImage picture(40, 20, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 30; ++x)
            picture.setPixelColor(x, y, x < 15 ? Qt::red : Qt::blue);
    Renderer renderer;
    QPoint offset, nearOffset, mirroredOffset;
    const QImage kept = renderer.scaledImage(picture, QSize(80, 40), true, false, offset);
    ASSERT_FALSE(kept.isNull());
    // A sprite a pixel wider where it now stands is drawn from the same picture.
    const QImage near = renderer.scaledImage(picture, QSize(81, 40), true, false, nearOffset);
    EXPECT_EQ(near.cacheKey(), kept.cacheKey());
    EXPECT_NE(renderer.scaledImage(picture, QSize(83, 40), true, false, nearOffset).cacheKey(), kept.cacheKey());

    // The mirror comes from the kept picture, its margin now on the left.
    const QImage mirrored = renderer.scaledImage(picture, QSize(80, 40), true, true, mirroredOffset);
    ASSERT_EQ(mirrored.size(), kept.size());
    EXPECT_EQ(mirroredOffset, QPoint(80 - offset.x() - kept.width(), offset.y()));
    EXPECT_GT(mirroredOffset.x(), 0);
    EXPECT_EQ(mirrored.pixelColor(0, 10), kept.pixelColor(kept.width() - 1, 10));
    EXPECT_EQ(mirrored.pixelColor(2, 10).blue(), 255) << "blue now on the left";
    EXPECT_EQ(mirrored.pixelColor(mirrored.width() - 3, 10).red(), 255);
}

TEST(Renderer, LargeSpritesAboutToComeIntoViewAreScaledAheadOneAFrame)
{
    // A scene of 400 by 200 shown at 800 by 400: every picture is scaled.
    auto scene = Scene::sceneWithSize({400, 200});
    const auto sprite = [&](QSize size, QColor colour, qreal x) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(colour); // a picture of its own
        auto node = std::make_shared<SpriteNode>(Texture::fromImage(image));
        node->setPosition(x, 0);
        scene->addChild(node);
        return node;
    };
    auto near = sprite({600, 200}, Qt::darkGreen, 520); // starts a little right of the view
    auto next = sprite({600, 200}, Qt::green, 540);
    auto far = sprite({600, 200}, Qt::gray, 1800); // farther than a view's width
    sprite({10, 10}, Qt::red, 0); // small, in view
    sprite({10, 10}, Qt::blue, 300); // small, coming
    Renderer renderer;
    QImage picture(800, 400, QImage::Format_ARGB32_Premultiplied);
    const auto render = [&] {
        QPainter painter(&picture);
        renderer.render(*scene, painter, QRectF(0, 0, 800, 400));
    };

    render();
    EXPECT_EQ(renderer.picturesMade(), 2u) << "the one in view, and one large coming sprite";
    render();
    EXPECT_EQ(renderer.picturesMade(), 3u) << "the other the next frame";
    render();
    EXPECT_EQ(renderer.picturesMade(), 3u) << "nothing small, nothing far off";
    // Scrolled into view, they cost no scaling.
    near->setPosition(100, 0);
    next->setPosition(120, 0);
    render();
    EXPECT_EQ(renderer.picturesMade(), 3u);
    EXPECT_EQ(renderer.lastNodeCount(), 3);
    far->setPosition(400, 0);
    render();
    EXPECT_EQ(renderer.picturesMade(), 4u) << "one that appears at once is scaled as it is drawn";
}
