// The game's window: the kit's view showing the scene, closed by Esc.
#pragma once

#include <tessaro/kit/SceneView.h>

namespace play {

class PlayView : public tessaro::kit::SceneView {
public:
    explicit PlayView(QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace play
