// The "Background" tab: which background of the level is edited, its values,
// and its pinned ranges, each with a button that deletes it.
#pragma once

#include "PropertyRows.h"

class QComboBox;
class QVBoxLayout;

namespace stagewright {

class backgroundPropertyListView : public RowPane {
    Q_OBJECT
public:
    explicit backgroundPropertyListView(rowBinding binding, QWidget* parent = nullptr);
    void refresh() override;

private:
    void layRanges();
    void edit(publishedElementList element, const propertyValue& value);

    QComboBox* m_backgrounds = nullptr;
    QVBoxLayout* m_ranges = nullptr;
    std::vector<pinnedRangeValue> m_laidRanges;
    bool m_relayQueued = false;
};

} // namespace stagewright
