// Textures from files, memory and sub-rectangles; atlases and their fall-back.
#include <tessaro/kit/Texture.h>

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tessaro::kit;

namespace {

QImage filled(int w, int h, QColor c)
{
    QImage img(w, h, QImage::Format_ARGB32);
    img.fill(c);
    return img;
}

struct SearchPaths {
    explicit SearchPaths(const QStringList& paths) { resources::setSearchPaths(paths); }
    ~SearchPaths() { resources::setSearchPaths({}); }
};

} // namespace

TEST(Textures, SubRectanglesCountFromTheBottomAndScalesComeFromNames)
{
    // Top half red, bottom half blue.
    QImage img(20, 10, QImage::Format_ARGB32);
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 20; ++x)
            img.setPixel(x, y, y < 5 ? qRgb(255, 0, 0) : qRgb(0, 0, 255));
    auto tex = Texture::fromImage(img);
    EXPECT_EQ(tex->size(), QSizeF(20, 10));
    auto bottom = Texture::fromRect({0, 0, 1, 0.5}, tex);
    auto topRight = Texture::fromRect({0.5, 0.5, 0.5, 0.5}, tex);
    EXPECT_EQ(bottom->size(), QSizeF(20, 5));
    EXPECT_EQ(bottom->image().size(), QSize(20, 5));
    EXPECT_EQ(QColor(bottom->image().pixel(3, 3)), QColor(Qt::blue));
    EXPECT_EQ(topRight->image().size(), QSize(10, 5));
    EXPECT_EQ(QColor(topRight->image().pixel(0, 0)), QColor(Qt::red));
    // A sub-texture of a sub-texture is relative to its source.
    auto quarter = Texture::fromRect({0.5, 0, 0.5, 1}, bottom);
    EXPECT_EQ(quarter->image().size(), QSize(10, 5));

    QTemporaryDir dir;
    ASSERT_TRUE(filled(40, 20, Qt::green).save(dir.filePath("hero@2x.png")));
    ASSERT_TRUE(filled(8, 8, Qt::yellow).save(dir.filePath("coin.jpg")));
    SearchPaths paths({dir.path()});
    auto hero = Texture::textureWithImageNamed("hero");
    EXPECT_FALSE(hero->isPlaceholder());
    EXPECT_EQ(hero->scale(), 2);
    EXPECT_EQ(hero->size(), QSizeF(20, 10));
    EXPECT_EQ(Texture::textureWithImageNamed("hero"), hero); // loaded once while held
    EXPECT_FALSE(Texture::textureWithImageNamed("coin")->isPlaceholder());
    EXPECT_FALSE(Texture::textureWithImageNamed("coin.jpg")->isPlaceholder());
    auto missing = Texture::textureWithImageNamed("nothing");
    EXPECT_TRUE(missing->isPlaceholder());
    EXPECT_EQ(missing->size(), QSizeF(128, 128));
    EXPECT_EQ(missing->name(), "nothing");
    EXPECT_EQ(Texture::fromFile(dir.filePath("nothing.png")), nullptr);
}

TEST(Textures, AtlasesListFramesAndFallBackToAnImage)
{
    QTemporaryDir dir;
    QDir root(dir.path());
    ASSERT_TRUE(root.mkdir("walk.atlas"));
    // Written out of order: callers sort the names.
    for (const char* name : {"walk_3.png", "walk_1.png", "walk_2.png"})
        ASSERT_TRUE(filled(10 + QString(name).mid(5, 1).toInt(), 10, Qt::red)
                        .save(root.filePath(QString("walk.atlas/") + name)));
    ASSERT_TRUE(filled(30, 30, Qt::blue).save(root.filePath("tree.png")));
    ASSERT_TRUE(root.mkdir("empty.atlas"));
    ASSERT_TRUE(filled(5, 5, Qt::blue).save(root.filePath("empty.png")));
    SearchPaths paths({dir.path()});

    auto atlas = TextureAtlas::atlasNamed("walk");
    QStringList names = atlas->textureNames();
    names.sort();
    EXPECT_EQ(names, (QStringList{"walk_1.png", "walk_2.png", "walk_3.png"}));
    EXPECT_EQ(atlas->textureNamed("walk_2")->size(), QSizeF(12, 10));
    EXPECT_EQ(atlas->textureNamed("walk_2.png"), atlas->textureNamed("walk_2"));
    EXPECT_TRUE(atlas->textureNamed("walk_9")->isPlaceholder());

    auto frames = TextureAtlas::texturesOrImage("walk");
    ASSERT_EQ(frames.size(), 3u);
    EXPECT_EQ(frames[0]->size().width(), 11);
    EXPECT_EQ(frames[2]->size().width(), 13);
    // No atlas, or an atlas without frames: the image of that name.
    auto tree = TextureAtlas::texturesOrImage("tree");
    ASSERT_EQ(tree.size(), 1u);
    EXPECT_EQ(tree[0]->size(), QSizeF(30, 30));
    auto empty = TextureAtlas::texturesOrImage("empty");
    ASSERT_EQ(empty.size(), 1u);
    EXPECT_EQ(empty[0]->size(), QSizeF(5, 5));
    auto none = TextureAtlas::texturesOrImage("absent");
    ASSERT_EQ(none.size(), 1u);
    EXPECT_TRUE(none[0]->isPlaceholder());

    TextureCache cache;
    auto first = cache.textures("walk");
    EXPECT_TRUE(cache.contains("walk"));
    EXPECT_EQ(cache.textures("walk")[1], first[1]);
    cache.preload("tree"); // no atlas: preloading stores nothing
    EXPECT_FALSE(cache.contains("tree"));
    cache.preload("walk");
    auto lookup = cache.lookup();
    EXPECT_EQ(lookup("tree").size(), 1u);
    EXPECT_TRUE(cache.contains("tree"));
    cache.clear();
    EXPECT_FALSE(cache.contains("walk"));
}
