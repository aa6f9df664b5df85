#include "PlayView.h"

#include <QKeyEvent>

namespace play {

PlayView::PlayView(QWidget* parent) : tessaro::kit::SceneView(parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void PlayView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    tessaro::kit::SceneView::keyPressEvent(event);
}

} // namespace play
