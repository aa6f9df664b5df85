// The head of the inspector: a preview of the selection's image, the buttons
// of its kind, and the "Actions" menu with the clipboard commands.
#pragma once

#include "PropertyRows.h"

class QToolButton;

namespace stagewright {

class ImagePreview;

class InspectorHead : public QWidget {
    Q_OBJECT
public:
    explicit InspectorHead(RowBinding binding, QWidget* parent = nullptr);
    /// Shows the selection's image again.
    void refresh();

private:
    RowBinding m_binding;
    ImagePreview* m_preview = nullptr;
    QToolButton* m_actions = nullptr;
};

/// The workspace file of an image name of the selection, "" when the
/// workspace has none.
QString selectionImagePath(const SceneSettings* settings, const std::string& image, tessaro::sceneObjectType kind);
/// The picture of the selection: its own image, else its catalogue record's.
std::string selectionImageName(const SelectedObjectModel& object);
/// The selection's picture when the workspace has no file of it, else "".
std::string missingSelectionImage(const SceneSettings* settings, const SelectedObjectModel& object);

} // namespace stagewright
