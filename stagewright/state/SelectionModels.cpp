#include "SelectionModels.h"

namespace stagewright {

TESSARO_DEFINE_RECORD_MEMBERS(SelectedObjectModel)

TESSARO_DEFINE_RECORD_MEMBERS(SelectedAnimationModel)

tessaro::GameSound SelectedObjectModel::newSound()
{
    tessaro::GameSound sound;
    sound.id = tessaro::Uuid::create();
    return sound;
}

} // namespace stagewright
