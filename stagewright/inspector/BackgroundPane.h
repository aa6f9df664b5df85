// The "Background" tab: which background of the level is edited, its values,
// and its pinned ranges, each with a button that deletes it.
#pragma once

#include "PropertyRows.h"

class QComboBox;
class QVBoxLayout;

namespace stagewright {

class BackgroundPropertyListView : public RowPane {
    Q_OBJECT
public:
    explicit BackgroundPropertyListView(RowBinding binding, QWidget* parent = nullptr);
    void refresh() override;

private:
    void layRanges();
    void edit(PublishedElementList element, const PropertyValue& value);

    QComboBox* m_backgrounds = nullptr;
    QVBoxLayout* m_ranges = nullptr;
    std::vector<PinnedRangeValue> m_laidRanges;
    bool m_relayQueued = false;
};

} // namespace stagewright
