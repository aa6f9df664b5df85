// The "Device" tab: the catalogue's default device values, read-only, then
// the override section: a device picker and one row per device field, with a
// button that adds the field to the shown device's entry or deletes it, and
// the field's control while the entry defines it.
#pragma once

#include "PropertyRows.h"

#include <tessaro/model/Enumerations.h>

class QComboBox;
class QVBoxLayout;

namespace stagewright {

class DeviceSpecificPropertyView : public RowPane {
    Q_OBJECT
public:
    explicit DeviceSpecificPropertyView(RowBinding binding, QWidget* parent = nullptr);
    void refresh() override;

private:
    /// Lays the field rows for the shown device and what its entry defines.
    void layFields();

    QComboBox* m_devices = nullptr;
    QWidget* m_fields = nullptr;
    QVBoxLayout* m_fieldRows = nullptr;
    tessaro::deviceName m_laidDevice = tessaro::deviceName::none;
    std::vector<PublishedElementList> m_laidDefined;
    bool m_relayQueued = false;
};

} // namespace stagewright
