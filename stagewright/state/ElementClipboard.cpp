#include "ElementClipboard.h"

namespace stagewright {

void ElementClipboard::setObjectToCopy(std::shared_ptr<const ElementRecords> element)
{
    m_objectToCopy = std::move(element);
    emit objectToCopyChanged();
}

void ElementClipboard::setObjectToPasteLocation(std::optional<tessaro::PointValue> location)
{
    m_objectToPasteLocation = location;
    emit objectToPasteLocationChanged();
}

} // namespace stagewright
