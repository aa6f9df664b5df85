#include "PlayScene.h"

#include <tessaro/model/ValueText.h>

namespace play {

using namespace tessaro;

namespace {

QSizeF levelSize(const Level& level)
{
    const SizeValue size = sizeFromText(level.settings.size.value_or(""));
    if (size.width > 0 && size.height > 0)
        return {size.width, size.height};
    return {874, 402}; // the editor's default scene
}

} // namespace

PlayScene::PlayScene(const Level& level) : AppSharedSceneBase(levelSize(level))
{
    setScaleMode(kit::SceneScaleMode(scaleModeFromText(level.settings.scaleMode)));
    setBackgroundColor(QColor(120, 170, 220));
    m_rules = std::make_unique<PlayRules>(level, *this);
}

PlayScene::~PlayScene()
{
    // The rules hold sprites of this scene; they go first, while the scene
    // is whole.
    m_rules.reset();
}

void PlayScene::keyDown(const kit::KeyEvent& event)
{
    setKey(event.key, true);
}

void PlayScene::keyUp(const kit::KeyEvent& event)
{
    if (!event.isAutoRepeat)
        setKey(event.key, false);
}

void PlayScene::setKey(int key, bool down)
{
    Controls& controls = m_rules->controls();
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_A: controls.left = down; break;
    case Qt::Key_Right:
    case Qt::Key_D: controls.right = down; break;
    case Qt::Key_Space:
    case Qt::Key_Up:
    case Qt::Key_W: controls.jump = down; break;
    default: break;
    }
}

} // namespace play
