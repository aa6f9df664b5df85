// What the physics sheet holds while it is open: the image and its frames,
// the working list of shapes, the drawing tool and the view settings, and
// the sheet's own history. Every operation of the sheet is a method here, so
// a test drives the sheet without a window; the canvas only converts the
// mouse into shape coordinates and the widgets only bind controls.
//
// Nothing changes in the level or the catalogues until `applyPhysics`, which
// makes the whole list one step of the tab's history, or of the catalogues'
// history for a template.
#pragma once

#include "PhysicsElements.h"

#include <stagewright/inspector/PhysicsEditorHook.h>
#include <stagewright/state/WorkspaceImages.h>

#include <QObject>
#include <QPointer>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <QUndoStack>

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace stagewright {

class CatalogueDocument;
class ProjectTab;
class ShapeTool;

/// The texts of the "Alpha" and "Scale" pickers, in order.
const QStringList& physicsAlphaValues();
const QStringList& physicsScaleValues();
/// A picker text as a number rounded to two places; text that is no number is 0.
double physicsPickerNumber(const QString& text);

class ImagePhysicsSession : public QObject {
    Q_OBJECT
public:
    /// A sheet for `mode` on the selection of `tab`; base mode edits the
    /// templates of `catalogues`.
    ImagePhysicsSession(PhysicsEditMode mode, ProjectTab* tab, CatalogueDocument* catalogues,
                        QObject* parent = nullptr);
    ~ImagePhysicsSession() override;

    PhysicsEditMode mode() const { return m_mode; }
    bool editBaseElement() const { return m_mode == PhysicsEditMode::base; }
    bool editAnimationElement() const { return m_mode == PhysicsEditMode::animation; }
    /// Images may be dropped onto the sheet (base and animation modes).
    bool allowDropImages() const { return m_mode != PhysicsEditMode::element; }

    /// Opening: the image's frames, the size they are shown at and the shapes,
    /// from the tab's selection models (and the catalogue in base mode).
    void loadPhysicsSession();

    // ---- The sheet's settings ------------------------------------------------------------
    bool isInspectorPresented() const { return m_isInspectorPresented; }
    void setInspectorPresented(bool presented);
    InsertType activeType() const { return m_activeType; }
    /// Tools are chosen only at 100%; choosing one ends a polygon being drawn.
    bool canChooseTool() const { return m_scaleValue == QLatin1String("1.00"); }
    void setActiveType(InsertType type);
    const tessaro::Uuid& activePhysicsId() const { return m_activePhysicsId; }
    bool pathCurrentlyOpen() const { return m_pathCurrentlyOpen; }
    bool imageViewHovered() const { return m_imageViewHovered; }
    void setImageViewHovered(bool hovered);
    const QString& alphaValue() const { return m_alphaValue; }
    void setAlphaValue(const QString& value);
    const QString& scaleValue() const { return m_scaleValue; }
    /// Any scale but "1.00" puts the selection tool back.
    void setScaleValue(const QString& value);
    double alpha() const { return physicsPickerNumber(m_alphaValue); }
    double scale() const { return physicsPickerNumber(m_scaleValue); }
    bool flipImageHorizontal() const { return m_flipHorizontal; }
    void setFlipImageHorizontal(bool flip);
    bool flipImageVertical() const { return m_flipVertical; }
    void setFlipImageVertical(bool flip);
    bool displayOnlySelectedPhysics() const { return m_displayOnlySelected; }
    void setDisplayOnlySelectedPhysics(bool only);
    const tessaro::Uuid& selectedRow() const { return m_selectedRow; }
    void selectRow(const tessaro::Uuid& id);
    /// The pointer read-out: "**X:** 12  **Y:** -7".
    const QString& yValues() const { return m_yValues; }

    // ---- Frames -------------------------------------------------------------------------
    const QStringList& imageList() const { return m_imageList; }
    int imageIdSelected() const { return m_imageIdSelected; }
    void selectImage(int index);
    void removeImage(int index);
    /// A drop of files on "Drop Image Here": the first path is added as a
    /// frame. False when nothing arrived or drops are not allowed.
    bool dropImageFiles(const QStringList& paths);
    /// The size images are loaded at; (0,0) is their own size.
    QSizeF imageSize() const { return m_imageSize; }
    /// The frame shown, loaded at `imageSize`; a null image when it cannot be read.
    const WorkspaceImage& currentImage() const;
    /// The size of the frame shown in image points, the frame of every shape.
    QSizeF shownImageSize() const;

    // ---- Shapes --------------------------------------------------------------------------
    const std::vector<PhysicsElement>& physicsElements() const { return m_elements; }
    const PhysicsElement* element(const tessaro::Uuid& id) const;
    /// Whether the canvas draws the shape: "Display only selected", and on an
    /// image of several frames the shape's frames.
    bool isDrawn(const PhysicsElement& element) const;
    /// How near a handle a press must be, in image points: 5 pixels on screen.
    double handleTolerance() const;
    /// Replaces the whole list (the history's steps).
    void restoreElements(std::vector<PhysicsElement> elements);

    // ---- The mouse, in shape coordinates -----------------------------------------------
    void pointerMoved(tessaro::PointValue p);
    void pointerDown(tessaro::PointValue p);
    void pointerDragged(tessaro::PointValue p);
    void pointerUp(tessaro::PointValue p);
    /// A drag of the selection tool in progress moves or reshapes this shape.
    bool isDraggingShape() const { return m_gesture == gesture::moving || m_gesture == gesture::reshaping; }

    // ---- The rows of the shape list ---------------------------------------------------------
    void removeElement(const tessaro::Uuid& id);
    void setAction(const tessaro::Uuid& id, std::vector<tessaro::actionType> action);
    void setFramesAffected(const tessaro::Uuid& id, const std::string& frames);
    void setStartPoint(const tessaro::Uuid& id, tessaro::PointValue p);
    void setEndPoint(const tessaro::Uuid& id, tessaro::PointValue p);
    void setDirection(const tessaro::Uuid& id, tessaro::pathDirection direction);
    void setPoint(const tessaro::Uuid& id, std::size_t index, tessaro::PointValue p);
    void setRadius(const tessaro::Uuid& id, double radius);
    void setSize(const tessaro::Uuid& id, tessaro::SizeValue size);
    void setCenter(const tessaro::Uuid& id, tessaro::PointValue p);

    /// The sheet's own history: every change of the list is one step.
    QUndoStack& history() { return m_history; }
    /// The sheet's Undo and Redo: its own steps first; on a template, once
    /// the list is as the catalogue holds it, the catalogues' steps too. The
    /// list follows the template while it holds no edits of its own, so a
    /// step of the catalogues never throws away shapes that are not applied.
    bool canUndo() const;
    QString undoText() const;
    void undo();
    bool canRedo() const;
    QString redoText() const;
    void redo();

    /// The stored form of the list.
    tessaro::PhysicsProperty record() const { return buildPhysicsProperty(m_elements); }
    /// Stores the shapes where the sheet was opened from: the element's
    /// physics or the cycle-end animation's as one step of the tab's
    /// history, or the catalogue template's as one step of the catalogues'
    /// history, which writes the catalogue. False when there is no tab, or
    /// no template of that name.
    bool applyPhysics();

signals:
    /// Anything the sheet shows changed, but the pointer read-out.
    void changed();
    void readOutChanged();
    /// What Undo or Redo would do may have changed.
    void historyChanged();

private:
    enum class gesture { none, drawing, moving, reshaping };

    /// Changes one shape as a step of the sheet's history; steps of the same
    /// field of the same shape that follow each other join.
    void edit(const tessaro::Uuid& id, int field, const std::function<void(PhysicsElement&)>& change,
              std::size_t vertex = 0);
    /// Makes the list's change since `before` one step.
    void commit(std::vector<PhysicsElement> before, const QString& text);
    PhysicsElement* find(const tessaro::Uuid& id);
    void appendSorted(PhysicsElement element);
    /// Ends a polygon being drawn.
    void endShape();
    /// A new shape drawn on one frame of several belongs to that frame.
    void markFrame(PhysicsElement& element) const;
    const ShapeTool* toolOf(const PhysicsElement& element) const;
    void pressWithSelection(tessaro::PointValue p);
    void releasePolygon(tessaro::PointValue p);
    void reloadImage();
    /// The catalogues' history when the sheet edits a template.
    QUndoStack* catalogueHistory() const;
    /// The history an undo (`back`) or a redo takes a step of, or none.
    const QUndoStack* historyOfStep(bool back) const;
    /// The list as the template holds it now, with no steps of the sheet's own.
    void reloadTemplateShapes();

    PhysicsEditMode m_mode;
    QPointer<ProjectTab> m_tab;
    CatalogueDocument* m_catalogues;

    bool m_isInspectorPresented = true;
    InsertType m_activeType = InsertType::none;
    tessaro::Uuid m_activePhysicsId = tessaro::Uuid::create();
    bool m_pathCurrentlyOpen = false;
    bool m_imageViewHovered = false;
    QString m_alphaValue = QStringLiteral("1.0");
    QString m_scaleValue = QStringLiteral("1.00");
    bool m_flipHorizontal = false;
    bool m_flipVertical = false;
    bool m_displayOnlySelected = false;
    tessaro::Uuid m_selectedRow = tessaro::Uuid::create();
    QString m_yValues;
    QStringList m_imageList;
    int m_imageIdSelected = 0;
    QSizeF m_imageSize{0, 0};
    std::vector<PhysicsElement> m_elements;
    WorkspaceImage m_image;
    QString m_imageLoadedFrom;

    gesture m_gesture = gesture::none;
    std::vector<PhysicsElement> m_gestureBefore;
    PhysicsElement m_gestureStart; // the shape as the press found it
    tessaro::PointValue m_pressPoint;
    std::size_t m_handle = 0;

    QUndoStack m_history;
};

} // namespace stagewright
