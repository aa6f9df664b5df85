// The "Primary" tab: the view-only values of the catalogue record, then the
// element's own sections, each row only where it applies to the kind.
#pragma once

#include "PropertyRows.h"

namespace stagewright {

class ElidedLabel;

class PrimaryPropertyListView : public RowPane {
    Q_OBJECT
public:
    explicit PrimaryPropertyListView(RowBinding binding, QWidget* parent = nullptr);
    void refresh() override;

private:
    std::vector<ElidedLabel*> m_viewOnly;
};

} // namespace stagewright
