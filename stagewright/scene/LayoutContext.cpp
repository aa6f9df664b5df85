// The canvas lays its level out with the workspace's catalogues and images,
// the default devices (the editor chooses none) and its own frame.
#include "SceneEditor.h"
#include "ScenePictures.h"

#include <tessaro/layout/LayoutContext.h>
#include <tessaro/model/ConfigFiles.h>

namespace stagewright {

tessaro::layout::LayoutContext SceneEditor::layoutContext() const
{
    tessaro::layout::LayoutContext context;
    const QRectF frame = frameRect();
    context.view = {frame.left(), frame.top(), frame.width(), frame.height()};
    context.obstacles = &tessaro::obstacleCatalogue();
    context.characters = &tessaro::characterCatalogue();
    context.objects = &tessaro::objectCatalogue();
    context.imageSize = [](tessaro::sceneObjectType kind, const std::string& name) {
        const QSizeF size = SceneImageCache::shared().picture(kind, QString::fromStdString(name)).texture->size();
        return tessaro::SizeValue{size.width(), size.height()};
    };
    return context;
}

} // namespace stagewright
