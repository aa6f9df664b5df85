// Elements are made, copied and compared here, once for the whole editor.
#include "ElementRecords.h"

#include <tessaro/kit/Texture.h>

namespace stagewright {

TESSARO_DEFINE_RECORD_MEMBERS(ElementData)

TESSARO_DEFINE_RECORD_MEMBERS(ElementRecords)

} // namespace stagewright
