#include "SelectionModels.h"

namespace stagewright {

TESSARO_DEFINE_RECORD_MEMBERS(selectedObjectModel)

TESSARO_DEFINE_RECORD_MEMBERS(selectedAnimationModel)

tessaro::GameSound selectedObjectModel::newSound()
{
    tessaro::GameSound sound;
    sound.id = tessaro::Uuid::create();
    return sound;
}

} // namespace stagewright
