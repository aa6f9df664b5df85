// Renders the application icon into the PNG sizes of the hicolor icon theme,
// at build time, so that desktops without an SVG loader show it too:
//
//   stagewright-render-icons SVG FOLDER NAME SIZE...
//
// writes FOLDER/SIZExSIZE/apps/NAME.png for each size.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv)
{
    if (argc < 5) {
        std::fprintf(stderr, "usage: stagewright-render-icons SVG FOLDER NAME SIZE...\n");
        return 2;
    }
    // The icon holds text; fonts need a GUI application, never a display
    // nor a session.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir runtime;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime.path()));
    QGuiApplication app(argc, argv);

    QSvgRenderer svg(QString::fromLocal8Bit(argv[1]));
    if (!svg.isValid()) {
        std::fprintf(stderr, "stagewright-render-icons: cannot read %s\n", argv[1]);
        return 1;
    }
    const QString folder = QString::fromLocal8Bit(argv[2]);
    const QString name = QString::fromLocal8Bit(argv[3]);
    for (int i = 4; i < argc; ++i) {
        const int side = QByteArray(argv[i]).toInt();
        if (side <= 0) {
            std::fprintf(stderr, "stagewright-render-icons: %s is not a size\n", argv[i]);
            return 2;
        }
        QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        svg.render(&painter, QRectF(0, 0, side, side));
        painter.end();

        const QString sizeFolder = QStringLiteral("%1/%2x%2/apps").arg(folder).arg(side);
        const QString path = sizeFolder + QLatin1Char('/') + name + QStringLiteral(".png");
        if (!QDir().mkpath(sizeFolder) || !image.save(path, "PNG")) {
            std::fprintf(stderr, "stagewright-render-icons: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}
