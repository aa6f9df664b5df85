// The element clipboard: a copy of one element's records, shared by every tab,
// so that an element can be pasted into another level or another project. It
// holds records, never a node: a paste after a cut brings the whole element
// back.
#pragma once

#include "ElementRecords.h"

#include <tessaro/model/Geometry.h>

#include <QObject>

#include <memory>
#include <optional>

namespace stagewright {

class ElementClipboard : public QObject {
    Q_OBJECT
public:
    using QObject::QObject;

    /// The element on the clipboard, or none.
    const std::shared_ptr<const ElementRecords>& objectToCopy() const { return m_objectToCopy; }
    /// Puts an element on the clipboard; observers hear of it every time,
    /// also when the same element is copied again.
    void setObjectToCopy(std::shared_ptr<const ElementRecords> element);
    bool isEmpty() const { return !m_objectToCopy; }

    /// Where the next paste goes; none means beside the copied element.
    const std::optional<tessaro::PointValue>& objectToPasteLocation() const { return m_objectToPasteLocation; }
    void setObjectToPasteLocation(std::optional<tessaro::PointValue> location);

signals:
    void objectToCopyChanged();
    void objectToPasteLocationChanged();

private:
    std::shared_ptr<const ElementRecords> m_objectToCopy;
    std::optional<tessaro::PointValue> m_objectToPasteLocation;
};

} // namespace stagewright
