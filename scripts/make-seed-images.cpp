// Draws the seed images of a new workspace, makes its sounds, writes the seed
// catalogues that name them and lists them all in the resource file "seed.qrc". Run from the repository root after
// changing the seed:
//
//   cmake --build <build> --target stagewright-make-seed
//   QT_QPA_PLATFORM=offscreen <build>/resources/stagewright-make-seed resources/seed
//
// Images are drawn at twice their size in scene points, the workspace's
// default image scale (x2).
#include <tessaro/model/ElementRecords.h>
#include <tessaro/model/FileIO.h>
#include <tessaro/model/PlistCodec.h>
#include <tessaro/model/ValueText.h>

#include <QDir>
#include <QDirIterator>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <cmath>
#include <cstdio>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

namespace {

QString root;
int failures = 0;

QImage canvas(int width, int height)
{
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void save(const QImage& image, const QString& relative)
{
    const QString path = root + QStringLiteral("/Assets/Images/") + relative;
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (!image.save(path, "PNG", 9)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        ++failures;
    }
}

void begin(QPainter& p, QImage& image)
{
    p.begin(&image);
    p.setRenderHint(QPainter::Antialiasing);
}

// ---- Obstacles ------------------------------------------------------------

QImage crate()
{
    QImage image = canvas(128, 128);
    QPainter p;
    begin(p, image);
    p.setPen(QPen(QColor(92, 56, 24), 6));
    p.setBrush(QColor(181, 122, 60));
    p.drawRect(QRectF(3, 3, 122, 122));
    p.setPen(QPen(QColor(120, 76, 34), 4));
    for (int y : {34, 64, 94})
        p.drawLine(8, y, 120, y);
    p.setPen(QPen(QColor(92, 56, 24), 10));
    p.drawLine(12, 12, 116, 116);
    p.drawLine(116, 12, 12, 116);
    return image;
}

QImage spikes()
{
    QImage image = canvas(128, 64);
    QPainter p;
    begin(p, image);
    QLinearGradient steel(0, 0, 0, 64);
    steel.setColorAt(0, QColor(230, 232, 236));
    steel.setColorAt(1, QColor(110, 114, 124));
    p.setBrush(steel);
    p.setPen(QPen(QColor(60, 62, 70), 2));
    for (int i = 0; i < 4; ++i) {
        const double x = i * 32.0;
        p.drawPolygon(QPolygonF({QPointF(x + 1, 63), QPointF(x + 16, 2), QPointF(x + 31, 63)}));
    }
    return image;
}

QImage platform()
{
    QImage image = canvas(320, 48);
    QPainter p;
    begin(p, image);
    p.setPen(QPen(QColor(70, 70, 80), 3));
    p.setBrush(QColor(140, 140, 150));
    p.drawRoundedRect(QRectF(2, 2, 316, 44), 10, 10);
    p.setPen(QPen(QColor(105, 105, 115), 3));
    for (int x = 40; x < 320; x += 40)
        p.drawLine(x, 6, x, 42);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 60));
    p.drawRoundedRect(QRectF(8, 6, 304, 10), 5, 5);
    return image;
}

QImage barrel()
{
    QImage image = canvas(96, 128);
    QPainter p;
    begin(p, image);
    QLinearGradient wood(0, 0, 96, 0);
    wood.setColorAt(0, QColor(120, 70, 30));
    wood.setColorAt(0.5, QColor(190, 120, 60));
    wood.setColorAt(1, QColor(120, 70, 30));
    p.setBrush(wood);
    p.setPen(QPen(QColor(70, 40, 15), 4));
    QPainterPath body;
    body.moveTo(14, 4);
    body.quadTo(-6, 64, 14, 124);
    body.lineTo(82, 124);
    body.quadTo(102, 64, 82, 4);
    body.closeSubpath();
    p.drawPath(body);
    p.setPen(QPen(QColor(60, 60, 66), 7));
    for (int y : {24, 104})
        p.drawLine(8, y, 88, y);
    return image;
}

// ---- Collectibles ---------------------------------------------------------

QImage coin()
{
    QImage image = canvas(64, 64);
    QPainter p;
    begin(p, image);
    QRadialGradient gold(24, 22, 40);
    gold.setColorAt(0, QColor(255, 240, 140));
    gold.setColorAt(1, QColor(214, 154, 20));
    p.setBrush(gold);
    p.setPen(QPen(QColor(150, 100, 10), 4));
    p.drawEllipse(QRectF(3, 3, 58, 58));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(180, 120, 15), 3));
    p.drawEllipse(QRectF(14, 14, 36, 36));
    p.setPen(QPen(QColor(150, 100, 10), 5));
    p.drawLine(32, 20, 32, 44);
    return image;
}

QImage shield()
{
    QImage image = canvas(80, 96);
    QPainter p;
    begin(p, image);
    QPainterPath outline;
    outline.moveTo(40, 3);
    outline.lineTo(76, 14);
    outline.cubicTo(76, 56, 62, 80, 40, 93);
    outline.cubicTo(18, 80, 4, 56, 4, 14);
    outline.closeSubpath();
    QLinearGradient blue(0, 0, 80, 96);
    blue.setColorAt(0, QColor(110, 170, 255));
    blue.setColorAt(1, QColor(30, 70, 170));
    p.setBrush(blue);
    p.setPen(QPen(QColor(20, 40, 100), 4));
    p.drawPath(outline);
    p.setPen(QPen(QColor(255, 255, 255, 200), 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolyline(QPolygonF({QPointF(24, 48), QPointF(36, 62), QPointF(58, 34)}));
    return image;
}

QImage key()
{
    QImage image = canvas(96, 48);
    QPainter p;
    begin(p, image);
    p.setPen(QPen(QColor(140, 100, 10), 3));
    p.setBrush(QColor(240, 196, 50));
    p.drawEllipse(QRectF(3, 6, 36, 36));
    p.drawRect(QRectF(36, 19, 56, 10));
    p.drawRect(QRectF(70, 28, 8, 12));
    p.drawRect(QRectF(82, 28, 8, 16));
    p.setBrush(Qt::transparent);
    p.setCompositionMode(QPainter::CompositionMode_Clear);
    p.drawEllipse(QRectF(14, 17, 14, 14));
    return image;
}

QImage flag()
{
    QImage image = canvas(64, 128);
    QPainter p;
    begin(p, image);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(90, 90, 96));
    p.drawRect(QRectF(6, 4, 6, 122));
    p.setBrush(QColor(60, 60, 64));
    p.drawRoundedRect(QRectF(0, 118, 20, 8), 3, 3);
    p.setBrush(QColor(220, 40, 50));
    QPainterPath cloth;
    cloth.moveTo(12, 8);
    cloth.cubicTo(30, 2, 44, 16, 62, 10);
    cloth.lineTo(62, 50);
    cloth.cubicTo(44, 56, 30, 42, 12, 48);
    cloth.closeSubpath();
    p.drawPath(cloth);
    return image;
}

// ---- Ground ---------------------------------------------------------------

QImage groundTile(QColor top, QColor body, bool wavy, bool bubbles)
{
    QImage image = canvas(128, 128);
    QPainter p;
    begin(p, image);
    p.setPen(Qt::NoPen);
    QLinearGradient fill(0, 0, 0, 128);
    fill.setColorAt(0, body.lighter(115));
    fill.setColorAt(1, body.darker(140));
    p.setBrush(fill);
    p.drawRect(0, 0, 128, 128);
    p.setBrush(top);
    if (wavy) {
        QPainterPath surface;
        surface.moveTo(0, 0);
        for (int x = 0; x <= 128; x += 4)
            surface.lineTo(x, 20 + 6 * std::sin(x * 2 * std::numbers::pi / 64));
        surface.lineTo(128, 0);
        surface.closeSubpath();
        p.drawPath(surface);
    } else {
        p.drawRect(0, 0, 128, 22);
        for (int x = 0; x < 128; x += 16)
            p.drawEllipse(QRectF(x, 14, 16, 16));
    }
    if (bubbles) {
        p.setBrush(top.lighter(130));
        for (auto [x, y, r] : {std::tuple{24, 60, 8}, {80, 44, 6}, {100, 92, 10}, {44, 104, 5}})
            p.drawEllipse(QPointF(x, y), r, r);
    } else if (!wavy) {
        p.setBrush(body.darker(125));
        for (auto [x, y] : {std::pair{20, 60}, {70, 50}, {104, 84}, {40, 100}, {90, 114}})
            p.drawEllipse(QPointF(x, y), 6, 4);
    }
    return image;
}

QImage spikeGround()
{
    QImage image = groundTile(QColor(110, 100, 90), QColor(96, 80, 64), false, false);
    QPainter p;
    begin(p, image);
    p.setBrush(QColor(200, 202, 210));
    p.setPen(QPen(QColor(60, 62, 70), 2));
    for (int i = 0; i < 4; ++i)
        p.drawPolygon(QPolygonF({QPointF(i * 32 + 2, 24), QPointF(i * 32 + 16, 0), QPointF(i * 32 + 30, 24)}));
    return image;
}

// ---- Backgrounds ----------------------------------------------------------

constexpr int backgroundWidth = 1748, backgroundHeight = 804; // 874 by 402 points

QImage sky()
{
    QImage image = canvas(backgroundWidth, backgroundHeight);
    QPainter p;
    begin(p, image);
    QLinearGradient gradient(0, 0, 0, backgroundHeight);
    gradient.setColorAt(0, QColor(70, 140, 230));
    gradient.setColorAt(1, QColor(190, 225, 250));
    p.fillRect(image.rect(), gradient);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 255, 255, 220));
    for (auto [x, y, s] : {std::tuple{260, 150, 1.0}, {900, 100, 1.3}, {1450, 210, 0.9}}) {
        for (auto [dx, dy, r] : {std::tuple{0, 0, 50}, {55, -20, 60}, {115, 0, 48}, {55, 15, 55}})
            p.drawEllipse(QPointF(x + dx * s, y + dy * s), r * s, r * 0.7 * s);
    }
    return image;
}

QImage hills(QColor colour, double baseline, double amplitude, double waves, double phase)
{
    QImage image = canvas(backgroundWidth, backgroundHeight);
    QPainter p;
    begin(p, image);
    QPainterPath path;
    path.moveTo(0, backgroundHeight);
    for (int x = 0; x <= backgroundWidth; x += 8) {
        const double t = double(x) / backgroundWidth;
        const double y = baseline -
            amplitude *
                (0.6 * std::sin(2 * std::numbers::pi * waves * t + phase) +
                 0.4 * std::sin(2 * std::numbers::pi * waves * 2.3 * t + 2 * phase));
        path.lineTo(x, y);
    }
    path.lineTo(backgroundWidth, backgroundHeight);
    path.closeSubpath();
    QLinearGradient fill(0, baseline - amplitude, 0, backgroundHeight);
    fill.setColorAt(0, colour);
    fill.setColorAt(1, colour.darker(150));
    p.setPen(Qt::NoPen);
    p.setBrush(fill);
    p.drawPath(path);
    return image;
}

// ---- Windows --------------------------------------------------------------

QImage panel(int width, int height, QColor colour)
{
    QImage image = canvas(width, height);
    QPainter p;
    begin(p, image);
    p.setPen(QPen(colour.darker(180), 8));
    p.setBrush(colour);
    p.drawRoundedRect(QRectF(4, 4, width - 8, height - 8), 28, 28);
    p.setPen(QPen(QColor(255, 255, 255, 120), 4));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(18, 18, width - 36, height - 36), 18, 18);
    return image;
}

// ---- Characters -----------------------------------------------------------

/// A small figure; `phase` swings arms and legs, `bob` lifts the body.
QImage hero(double phase, double bob)
{
    QImage image = canvas(96, 128);
    QPainter p;
    begin(p, image);
    const double swing = 14 * std::sin(phase);
    const double top = 8 - bob;
    p.setPen(QPen(QColor(40, 40, 60), 8, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(48, top + 72), QPointF(48 - swing, 122));
    p.drawLine(QPointF(48, top + 72), QPointF(48 + swing, 122));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(40, 120, 200));
    p.drawRoundedRect(QRectF(30, top + 34, 36, 44), 10, 10);
    p.setPen(QPen(QColor(250, 205, 160), 7, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(34, top + 42), QPointF(26 + swing * 0.6, top + 70));
    p.drawLine(QPointF(62, top + 42), QPointF(70 - swing * 0.6, top + 70));
    p.setPen(QPen(QColor(120, 80, 50), 2));
    p.setBrush(QColor(250, 205, 160));
    p.drawEllipse(QRectF(31, top, 34, 34));
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(30, 30, 30));
    p.drawEllipse(QPointF(55, top + 15), 3, 3);
    p.setBrush(QColor(120, 70, 40));
    p.drawChord(QRectF(29, top - 2, 38, 24), 0, 180 * 16);
    return image;
}

QImage slime(double squash)
{
    QImage image = canvas(96, 64);
    QPainter p;
    begin(p, image);
    const double height = 48 * (1 - squash);
    const double width = 80 * (1 + squash * 0.5);
    QRadialGradient green(48, 64 - height * 0.7, width * 0.6);
    green.setColorAt(0, QColor(160, 240, 120));
    green.setColorAt(1, QColor(40, 150, 50));
    p.setBrush(green);
    p.setPen(QPen(QColor(20, 90, 30), 3));
    p.drawChord(QRectF(48 - width / 2, 62 - height, width, 2 * height), 0, 180 * 16);
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(38, 62 - height * 0.55), 6, 7);
    p.drawEllipse(QPointF(58, 62 - height * 0.55), 6, 7);
    p.setBrush(Qt::black);
    p.drawEllipse(QPointF(40, 62 - height * 0.5), 3, 3);
    p.drawEllipse(QPointF(60, 62 - height * 0.5), 3, 3);
    return image;
}

QImage placeholder()
{
    QImage image = canvas(128, 128);
    QPainter p;
    begin(p, image);
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            p.fillRect(x * 16, y * 16, 16, 16, (x + y) % 2 ? QColor(210, 210, 210) : QColor(245, 245, 245));
    p.setPen(QPen(QColor(220, 30, 120), 6));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(3, 3, 122, 122));
    p.drawLine(12, 12, 116, 116);
    p.drawLine(116, 12, 12, 116);
    return image;
}

void drawImages()
{
    save(placeholder(), QStringLiteral("Extras/placeholder.png"));

    save(crate(), QStringLiteral("Obstacles/crate.png"));
    save(spikes(), QStringLiteral("Obstacles/spikes.png"));
    save(platform(), QStringLiteral("Obstacles/platform.png"));
    save(barrel(), QStringLiteral("Obstacles/barrel.png"));

    save(coin(), QStringLiteral("Coins/coin.png"));
    save(shield(), QStringLiteral("Shields/shield.png"));
    save(key(), QStringLiteral("Artifacts/key.png"));
    save(flag(), QStringLiteral("Checkpoints/flag.png"));

    save(groundTile(QColor(90, 180, 60), QColor(140, 95, 55), false, false), QStringLiteral("Ground/ground_grass.png"));
    save(groundTile(QColor(150, 110, 70), QColor(120, 85, 55), false, false), QStringLiteral("Ground/ground_dirt.png"));
    // Water has two pictures: the trough stands for it in lists, the crest
    // is what the canvas lays along the level.
    save(groundTile(QColor(60, 140, 230), QColor(30, 80, 170), true, false),
         QStringLiteral("Ground/trough_top_one.png"));
    save(groundTile(QColor(80, 160, 240), QColor(30, 80, 170), true, false),
         QStringLiteral("Ground/crest_top_one.png"));
    save(canvas(128, 128), QStringLiteral("Ground/transparent_ground.png"));
    save(groundTile(QColor(120, 220, 255), QColor(40, 160, 220), true, false),
         QStringLiteral("Ground/brightWater_ground.png"));
    save(groundTile(QColor(130, 110, 70), QColor(90, 75, 50), true, false),
         QStringLiteral("Ground/muddyWater_ground.png"));
    save(groundTile(QColor(255, 140, 20), QColor(200, 50, 10), true, true), QStringLiteral("Ground/lava_top.png"));
    save(groundTile(QColor(140, 240, 60), QColor(60, 150, 30), true, true),
         QStringLiteral("Ground/toxicGreen_ground.png"));
    save(spikeGround(), QStringLiteral("Ground/spikes_1.png"));

    save(sky(), QStringLiteral("Backgrounds/sky.png"));
    save(hills(QColor(120, 160, 200), 520, 110, 1.5, 0.3), QStringLiteral("Backgrounds/hills_far.png"));
    save(hills(QColor(80, 150, 80), 640, 80, 2.5, 1.7), QStringLiteral("Backgrounds/hills_near.png"));

    save(panel(400, 300, QColor(70, 90, 150)), QStringLiteral("LevelEnd/window_panel.png"));
    save(panel(400, 120, QColor(150, 90, 60)), QStringLiteral("PhaseEnd/phase_banner.png"));

    save(hero(0, 0), QStringLiteral("Characters/hero.png"));
    for (int i = 0; i < 4; ++i)
        save(hero(0, 2 * std::sin(i * std::numbers::pi / 2)),
             QStringLiteral("Characters/hero_Idle.atlas/hero_Idle_%1.png").arg(i, 2, 10, QLatin1Char('0')));
    for (int i = 0; i < 6; ++i)
        save(hero(i * std::numbers::pi / 3, 0),
             QStringLiteral("Characters/hero_Move.atlas/hero_Move_%1.png").arg(i, 2, 10, QLatin1Char('0')));
    save(slime(0), QStringLiteral("Characters/slime.png"));
    for (int i = 0; i < 4; ++i)
        save(slime(0.15 * std::sin(i * std::numbers::pi / 2)),
             QStringLiteral("Characters/slime_Move.atlas/slime_Move_%1.png").arg(i, 2, 10, QLatin1Char('0')));
}

// ---- Sounds ---------------------------------------------------------------

/// A short sound: `notes` (hertz) one after the other, each `seconds` long,
/// as a 16-bit mono WAV file at 22050 samples a second that fades out.
QByteArray tones(std::initializer_list<double> notes, double seconds)
{
    constexpr int rate = 22050;
    const int perNote = int(seconds * rate);
    QByteArray samples;
    int n = 0;
    const int total = perNote * int(notes.size());
    for (const double hertz : notes)
        for (int i = 0; i < perNote; ++i, ++n) {
            const double fade = 1.0 - double(n) / total;
            const auto value =
                qint16(std::lround(9000 * fade * std::sin(2 * std::numbers::pi * hertz * double(i) / rate)));
            samples.append(char(value & 0xff)).append(char((value >> 8) & 0xff));
        }
    const auto le = [](quint32 v, int bytes) {
        QByteArray out;
        for (int b = 0; b < bytes; ++b)
            out.append(char((v >> (8 * b)) & 0xff));
        return out;
    };
    QByteArray wav = "RIFF" + le(quint32(36 + samples.size()), 4) + "WAVEfmt " + le(16, 4) + le(1, 2) + le(1, 2) +
        le(rate, 4) + le(rate * 2, 4) + le(2, 2) + le(16, 2) + "data" + le(quint32(samples.size()), 4);
    return wav + samples;
}

void saveSound(const QByteArray& wav, const QString& name)
{
    const QString path = root + QStringLiteral("/Assets/Sounds/") + name;
    QDir().mkpath(QFileInfo(path).absolutePath());
    if (auto error = tessaro::writeFileAtomically(path.toStdString(), wav.toStdString())) {
        std::fprintf(stderr, "cannot write %s: %s\n", qPrintable(path), error->c_str());
        ++failures;
    }
}

void makeSounds()
{
    saveSound(tones({988, 1319}, 0.06), QStringLiteral("coin.wav"));
    saveSound(tones({523, 659, 784}, 0.08), QStringLiteral("checkpoint.wav"));
    saveSound(tones({196}, 0.08), QStringLiteral("knock.wav"));
    saveSound(tones({330, 247, 165}, 0.07), QStringLiteral("break.wav"));
    saveSound(tones({147}, 0.12), QStringLiteral("hurt.wav"));
    saveSound(tones({523, 659, 784, 1047}, 0.12), QStringLiteral("levelEnd.wav"));
}

// ---- Catalogues -----------------------------------------------------------

using tessaro::Uuid;

std::vector<tessaro::DeviceProperties> defaultDevice(const char* size)
{
    tessaro::DeviceProperties device;
    device.deviceName = "defaultDevice";
    device.size = size;
    return {device};
}

tessaro::PhysicsProperty box(const char* size)
{
    tessaro::RectanglePhysics rectangle;
    rectangle.id = Uuid::create();
    rectangle.size = size;
    rectangle.center = "{0.0,0.0}";
    tessaro::PhysicsProperty physics;
    physics.id = Uuid::create();
    physics.rectangles = std::vector{rectangle};
    return physics;
}

tessaro::CollisionDetection masks(const char* category, const char* contact, const char* collision)
{
    tessaro::CollisionDetection detection;
    detection.id = Uuid::create();
    detection.category = category;
    detection.contact = contact;
    detection.collision = collision;
    return detection;
}

tessaro::GameSound sound(const char* type, const char* file)
{
    tessaro::GameSound sound;
    sound.id = Uuid::create();
    sound.type = type;
    sound.filename = file;
    sound.fileExtension = "wav";
    sound.volume = 0.8;
    sound.waitForCompletion = false;
    return sound;
}

/// `record` taking `hits` hits, with `sounds`.
template <class R>
R with(R record, int hits, std::vector<tessaro::GameSound> sounds)
{
    record.allowedTimesToHit = hits;
    record.soundEffects = std::move(sounds);
    return record;
}

tessaro::Obstacle obstacle(const char* element, const char* image, const char* size, const char* classType,
                           bool dynamic, bool gravity, const char* category)
{
    tessaro::Obstacle record;
    record.id = Uuid::create();
    record.elementName = element;
    record.sceneObjectType = "obstacles";
    record.name = image;
    record.zPosition = 10;
    record.anchorPoint = "{0.5,0.5}";
    record.image = image;
    record.imageType = "png";
    record.stack = false;
    record.repeatCount = 1;
    record.usePhysics = true;
    record.useGravity = gravity;
    record.isDynamic = dynamic;
    record.usePrecision = false;
    record.isVisible = true;
    record.alpha = 1;
    record.allowedTimesToHit = 1;
    record.objectClassType = classType;
    record.collisionMasks = masks(category, "humanPlayer", "humanPlayer,floor");
    record.physics = box(size);
    record.devices = defaultDevice(size);
    return record;
}

/// A character's body: one polygon around its picture, in points from the
/// picture's centre, y up, for every state and facing.
tessaro::PhysicsProperty outline(std::initializer_list<std::pair<double, double>> corners)
{
    tessaro::PolyPhysics polygon;
    polygon.id = Uuid::create();
    polygon.action = "idle,move,attack";
    polygon.direction = "both";
    for (const auto& [x, y] : corners)
        polygon.points.push_back({Uuid::create(), std::nullopt, tessaro::textFromPair(x, y)});
    polygon.points.push_back({Uuid::create(), std::nullopt, polygon.points.front().point}); // closed
    tessaro::PhysicsProperty physics;
    physics.id = Uuid::create();
    physics.polygons = std::vector{polygon};
    return physics;
}

tessaro::Character character(const char* element, const char* image, const char* size, const char* type,
                             const char* category, std::optional<std::string> idle, std::string move,
                             tessaro::PhysicsProperty physics)
{
    tessaro::Character record;
    record.id = Uuid::create();
    record.elementName = element;
    record.sceneObjectType = "character";
    record.anchorPoint = "{0.5,0.5}";
    record.image = image;
    record.imageType = "png";
    record.imageDirection = "right";
    record.isVisible = true;
    record.characterType = type;
    record.objectClassType = "none";
    record.allowedTimesToHit = 3;
    record.useGravity = true;
    record.isDynamic = true;
    record.usePrecision = false;
    record.collisionMasks = masks(category, "floor,objectCausesDeath", "floor,staticObjectBody");
    tessaro::Actions actions;
    actions.initial = idle ? *idle : move;
    actions.idle = idle;
    actions.move = move;
    record.actions = actions;
    tessaro::AnimationProperty animation;
    animation.id = Uuid::create();
    animation.frequency = "foreverAutomatically";
    animation.moveDirection = "leftRight";
    tessaro::WaitPerAnimationFrame wait;
    wait.id = Uuid::create();
    wait.initial = 0.15;
    wait.idle = 0.15;
    wait.move = 0.08;
    animation.waitPerAnimationFrame = wait;
    record.animation = animation;
    record.physics = std::move(physics);
    record.devices = defaultDevice(size);
    return record;
}

tessaro::GenericObject object(const char* element, const char* kind, const char* image, const char* size,
                              const char* classType = "none", std::optional<std::string> groundType = std::nullopt)
{
    tessaro::GenericObject record;
    record.id = Uuid::create();
    record.elementName = element;
    record.image = image;
    record.imageType = "png";
    record.sceneObjectType = kind;
    record.objectClassType = classType;
    record.useGravity = false;
    record.isDynamic = false;
    record.groundType = groundType;
    record.devices = defaultDevice(size);
    return record;
}

template <class R>
void writeCatalogue(const std::vector<R>& records, const char* name)
{
    const std::string path = root.toStdString() + "/Assets/" + name;
    if (auto error = tessaro::writeFileAtomically(path, tessaro::encodeRecordList(records))) {
        std::fprintf(stderr, "cannot write %s: %s\n", path.c_str(), error->c_str());
        ++failures;
    }
}

void writeCatalogues()
{
    writeCatalogue(
        std::vector{
            // A crate breaks after three knocks.
            with(obstacle("Crate", "crate", "{64.0,64.0}", "none", true, true, "staticObjectMovable"), 3,
                 {sound("touch", "knock"), sound("die", "break")}),
            with(obstacle("Spikes", "spikes", "{64.0,32.0}", "stoneSpike", false, false, "objectCausesDeath"), 1,
                 {sound("attack", "hurt")}),
            obstacle("Platform", "platform", "{160.0,24.0}", "movingPlatform", false, false, "floorAboveGround"),
            obstacle("Barrel", "barrel", "{48.0,64.0}", "barrel", true, true, "staticObjectMovable"),
        },
        "ObstacleList.plist");
    writeCatalogue(
        std::vector{
            // Head, dress and legs; the feet are the legs' ends.
            character("Hero", "hero", "{48.0,64.0}", "human", "humanPlayer", "Idle", "Move",
                      outline({{-2, -32},
                               {2, -32},
                               {2, -11},
                               {13, -9},
                               {10, 8},
                               {5, 12},
                               {9, 17},
                               {9, 24},
                               {5, 29},
                               {-5, 29},
                               {-9, 24},
                               {-9, 17},
                               {-5, 12},
                               {-10, 8},
                               {-13, -9},
                               {-2, -11}})),
            // The dome.
            with(character("Slime", "slime", "{48.0,32.0}", "animal", "enemyTouch", std::nullopt, "Move",
                           outline({{-21, -16},
                                    {21, -16},
                                    {20.5, -9},
                                    {17.5, -3},
                                    {10, 6},
                                    {3.5, 9},
                                    {-3.5, 9},
                                    {-10, 6},
                                    {-17.5, -3},
                                    {-20.5, -9}})),
                 3, {sound("attack", "hurt"), sound("die", "break")}),
        },
        "CharacterList.plist");
    writeCatalogue(
        std::vector{
            object("coin", "coin", "coin", "{32.0,32.0}", "coin"),
            object("Shield", "shield", "shield", "{40.0,48.0}", "shield"),
            object("Key", "artifact", "key", "{48.0,24.0}", "artifact1"),
            object("Flag", "checkpoint", "flag", "{32.0,64.0}", "checkpoint"),
            object("Grass", "ground", "ground_grass", "{64.0,64.0}", "none", "Ground"),
            object("Dirt", "ground", "ground_dirt", "{64.0,64.0}", "none", "Ground"),
            object("Water", "ground", "trough_top_one", "{64.0,64.0}", "none", "Water"),
            object("Bright water", "ground", "brightWater_ground", "{64.0,64.0}", "none", "BrightWater"),
            object("Muddy water", "ground", "muddyWater_ground", "{64.0,64.0}", "none", "MuddyWater"),
            object("Lava", "ground", "lava_top", "{64.0,64.0}", "none", "Lava"),
            object("Toxic green", "ground", "toxicGreen_ground", "{64.0,64.0}", "none", "ToxicGreen"),
            object("Spike pit", "ground", "spikes_1", "{64.0,64.0}", "none", "Spike"),
            object("Sky", "background", "sky", "{874.0,402.0}"),
            object("Far hills", "background", "hills_far", "{874.0,402.0}"),
            object("Near hills", "background", "hills_near", "{874.0,402.0}"),
            object("End window", "levelEnd", "window_panel", "{200.0,150.0}"),
            object("Phase banner", "phaseEnd", "phase_banner", "{200.0,60.0}"),
        },
        "ObjectList.plist");
}

/// Lists every seed file in "seed.qrc" beside the seed folder, under the
/// prefix "/stagewright", and the placeholder once more as an application image.
void writeResourceList()
{
    QStringList files;
    QDirIterator it(root, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << QDir(root).relativeFilePath(it.next());
    files.sort();
    const QString folder = QFileInfo(root).fileName();
    QString text = QStringLiteral("<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"/stagewright\">\n");
    for (const QString& file : files)
        text += QStringLiteral("  <file>%1/%2</file>\n").arg(folder, file);
    text += QStringLiteral("  <file alias=\"images/placeholder.png\">%1/Assets/Images/Extras/placeholder.png</file>\n")
                .arg(folder);
    text += QStringLiteral("</qresource>\n</RCC>\n");
    const QString path = QFileInfo(root).absolutePath() + QStringLiteral("/seed.qrc");
    if (auto error = tessaro::writeFileAtomically(path.toStdString(), text.toStdString())) {
        std::fprintf(stderr, "cannot write %s: %s\n", qPrintable(path), error->c_str());
        ++failures;
    }
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s SEED_FOLDER\n", argv[0]);
        return 2;
    }
    root = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    QDir().mkpath(root + QStringLiteral("/Assets"));
    drawImages();
    makeSounds();
    writeCatalogues();
    writeResourceList();
    return failures == 0 ? 0 : 1;
}
