// Shared pieces of the runtime tests: a folder of pictures and atlases made
// on the spot, a scene stepped on an exact clock, captured diagnostic lines.
#pragma once

#include <tessaro/kit/Texture.h>
#include <tessaro/model/Diagnostics.h>
#include <tessaro/runtime/AppSharedSceneBase.h>

#include <QDir>
#include <QImage>
#include <QTemporaryDir>

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace runtime_test {

/// A resource folder the kit searches while the object lives.
class Pictures {
public:
    Pictures() { tessaro::kit::resources::setSearchPaths({m_dir.path()}); }
    ~Pictures() { tessaro::kit::resources::setSearchPaths({}); }
    Pictures(const Pictures&) = delete;
    Pictures& operator=(const Pictures&) = delete;

    /// An opaque picture "name.png" of w by h pixels.
    void image(const QString& name, int w, int h, QColor colour = Qt::blue) const
    {
        QImage picture(w, h, QImage::Format_ARGB32);
        picture.fill(colour);
        picture.save(QDir(m_dir.path()).filePath(name + QStringLiteral(".png")));
    }
    /// An atlas "name.atlas" of `frames` pictures named name_0 ... whose
    /// widths grow by one pixel per frame, so that a frame tells its number.
    void atlas(const QString& name, int frames, int w = 10, int h = 10) const
    {
        QDir(m_dir.path()).mkdir(name + QStringLiteral(".atlas"));
        for (int i = 0; i < frames; ++i) {
            QImage picture(w + i, h, QImage::Format_ARGB32);
            picture.fill(Qt::red);
            picture.save(QDir(m_dir.path()).filePath(QStringLiteral("%1.atlas/%1_%2.png").arg(name).arg(i)));
        }
    }
    QString path() const { return m_dir.path(); }

private:
    QTemporaryDir m_dir;
};

/// The frame number a texture of Pictures::atlas shows (its extra width).
inline int frameNumber(const tessaro::kit::TexturePtr& texture, int baseWidth = 10)
{
    return texture ? int(std::lround(texture->size().width())) - baseWidth : -1;
}

/// Steps a scene at 60 frames a second to exact times.
struct Clock {
    explicit Clock(tessaro::kit::Scene& s) : scene(s) { scene.processFrame(0); }
    void to(double time)
    {
        while (t + 1.0 / 60 < time - 1e-9) {
            t += 1.0 / 60;
            scene.processFrame(t);
        }
        t = time;
        scene.processFrame(t);
    }
    tessaro::kit::Scene& scene;
    double t = 0;
};

/// Collects the diagnostic lines written while it lives.
class Diagnostics {
public:
    Diagnostics()
    {
        m_previous = tessaro::setDiagnosticSink([this](std::string_view line) { lines.emplace_back(line); });
    }
    ~Diagnostics() { tessaro::setDiagnosticSink(m_previous); }
    std::vector<std::string> lines;

private:
    tessaro::DiagnosticSink m_previous;
};

} // namespace runtime_test
