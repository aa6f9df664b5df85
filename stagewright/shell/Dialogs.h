// The panels and questions the commands need, behind one interface, so that
// the command logic runs the same with the desktop's dialogs and with the
// answers a test gives.
#pragma once

#include <stagewright/state/PermissionManager.h>

#include <QPointer>
#include <QString>
#include <QWidget>

#include <optional>

namespace stagewright {

/// A folder panel: its texts and where it opens.
struct FolderPanel {
    QString title;
    QString message;
    QString directory;
    bool canCreateDirectories = false;
};

class ShellDialogs {
public:
    virtual ~ShellDialogs();

    /// A folder, or none when the panel is cancelled.
    virtual std::optional<QString> chooseFolder(const FolderPanel& panel) = 0;
    /// One property-list file to open.
    virtual std::optional<QString> chooseProjectToOpen(const QString& directory) = 0;
    /// Where to save a project; `proposedName` has no extension and may be
    /// empty. The location ends in ".plist".
    virtual std::optional<QString> chooseSaveLocation(const QString& directory, const QString& proposedName) = 0;
    /// Where to move the file `file`.
    virtual std::optional<QString> chooseMoveDestination(const QString& file) = 0;
    /// "Changes have been made." / "Do you want to discard them?": true for "Discard".
    virtual bool confirmDiscardChanges() = 0;
    /// "Are you sure you want to delete this scene?": true for "Close".
    virtual bool confirmDeleteScene() = 0;
    /// The project `name` has unsaved changes and its file was changed by
    /// another program: true for "Reload" (the changes go), false for
    /// "Keep My Changes".
    virtual bool confirmReloadChangedProject(const QString& name) = 0;
    /// Tells the user that an operation failed.
    virtual void reportFailure(const QString& message, const QString& detail) = 0;
};

/// The texts of the questions, as the user reads them.
struct DialogTexts {
    static QString discardMessage(); // "Changes have been made."
    static QString discardInformative(); // "Do you want to discard them?"
    static QString discardButton(); // "Discard"
    static QString cancelButton(); // "Cancel"
    static QString deleteSceneMessage(); // "Are you sure you want to delete this scene?"
    static QString deleteSceneButton(); // "Close"
    static QString projectFilter(); // "Property lists (*.plist)"
};

/// The desktop's file dialogs and message boxes, modal to a window.
class DesktopDialogs : public ShellDialogs {
public:
    explicit DesktopDialogs(QWidget* parent = nullptr) : m_parent(parent) {}
    void setParent(QWidget* parent) { m_parent = parent; }

    std::optional<QString> chooseFolder(const FolderPanel& panel) override;
    std::optional<QString> chooseProjectToOpen(const QString& directory) override;
    std::optional<QString> chooseSaveLocation(const QString& directory, const QString& proposedName) override;
    std::optional<QString> chooseMoveDestination(const QString& file) override;
    bool confirmDiscardChanges() override;
    bool confirmDeleteScene() override;
    bool confirmReloadChangedProject(const QString& name) override;
    void reportFailure(const QString& message, const QString& detail) override;

private:
    QPointer<QWidget> m_parent;
};

/// The folder chooser of the access gate: a folder panel with the gate's
/// title, message and prompt, opening at the location's folder.
FolderChooser desktopFolderChooser();

} // namespace stagewright
