#include "SelectionModels.h"

namespace stagewright {

tessaro::GameSound selectedObjectModel::newSound()
{
    tessaro::GameSound sound;
    sound.id = tessaro::Uuid::create();
    return sound;
}

} // namespace stagewright
