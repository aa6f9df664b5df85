#include "Dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace stagewright {

ShellDialogs::~ShellDialogs() = default;

QString DialogTexts::discardMessage()
{
    return QObject::tr("Changes have been made.");
}
QString DialogTexts::discardInformative()
{
    return QObject::tr("Do you want to discard them?");
}
QString DialogTexts::discardButton()
{
    return QObject::tr("Discard");
}
QString DialogTexts::cancelButton()
{
    return QObject::tr("Cancel");
}
QString DialogTexts::deleteSceneMessage()
{
    return QObject::tr("Are you sure you want to delete this scene?");
}
QString DialogTexts::deleteSceneButton()
{
    return QObject::tr("Close");
}
QString DialogTexts::projectFilter()
{
    return QObject::tr("Property lists (*.plist)");
}

namespace {

/// A folder panel with a message line under the file view.
std::optional<QString> runFolderPanel(QWidget* parent, const QString& title, const QString& message,
                                      const QString& prompt, const QString& directory, bool canCreate)
{
    QFileDialog dialog(parent, title, directory);
    dialog.setObjectName(QStringLiteral("folderPanel"));
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly, true);
    dialog.setOption(QFileDialog::ReadOnly, !canCreate);
    // The message needs the dialog's own widgets.
    dialog.setOption(QFileDialog::DontUseNativeDialog, true);
    if (!prompt.isEmpty())
        dialog.setLabelText(QFileDialog::Accept, prompt);
    if (!message.isEmpty()) {
        if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout())) {
            auto* label = new QLabel(message, &dialog);
            label->setObjectName(QStringLiteral("folderPanelMessage"));
            label->setWordWrap(true);
            grid->addWidget(label, grid->rowCount(), 0, 1, grid->columnCount());
        }
    }
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().front();
}

/// A file panel for one property-list file, to open or to save.
std::optional<QString> runFilePanel(QWidget* parent, const QString& title, const QString& directory,
                                    const QString& fileName, bool save)
{
    QFileDialog dialog(parent, title, directory);
    dialog.setObjectName(save ? QStringLiteral("savePanel") : QStringLiteral("openPanel"));
    dialog.setNameFilter(DialogTexts::projectFilter());
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("plist"));
    if (save)
        dialog.selectFile(fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    QString chosen = dialog.selectedFiles().front();
    if (save && QFileInfo(chosen).suffix().isEmpty())
        chosen += QStringLiteral(".plist");
    return chosen;
}

} // namespace

std::optional<QString> DesktopDialogs::chooseFolder(const FolderPanel& panel)
{
    return runFolderPanel(m_parent, panel.title, panel.message, QString(), panel.directory, panel.canCreateDirectories);
}

std::optional<QString> DesktopDialogs::chooseProjectToOpen(const QString& directory)
{
    return runFilePanel(m_parent, QObject::tr("Open Level"), directory, QString(), false);
}

std::optional<QString> DesktopDialogs::chooseSaveLocation(const QString& directory, const QString& proposedName)
{
    return runFilePanel(m_parent, QObject::tr("Save"), directory, proposedName, true);
}

std::optional<QString> DesktopDialogs::chooseMoveDestination(const QString& file)
{
    const QFileInfo info(file);
    return runFilePanel(m_parent, QObject::tr("Move To"), info.absolutePath(), info.fileName(), true);
}

bool DesktopDialogs::confirmDiscardChanges()
{
    QMessageBox box(QMessageBox::Warning, QString(), DialogTexts::discardMessage(), QMessageBox::NoButton, m_parent);
    box.setObjectName(QStringLiteral("discardQuestion"));
    box.setInformativeText(DialogTexts::discardInformative());
    QPushButton* discard = box.addButton(DialogTexts::discardButton(), QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton(DialogTexts::cancelButton(), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == discard;
}

bool DesktopDialogs::confirmReloadChangedProject(const QString& name)
{
    QMessageBox box(QMessageBox::Warning, QString(), QObject::tr("\"%1\" was changed by another program.").arg(name),
                    QMessageBox::NoButton, m_parent);
    box.setObjectName(QStringLiteral("reloadQuestion"));
    box.setInformativeText(
        QObject::tr("Reload it from the disk and lose your unsaved changes, or keep your changes? Saving them "
                    "replaces the file on the disk."));
    QPushButton* reload = box.addButton(QObject::tr("Reload"), QMessageBox::DestructiveRole);
    QPushButton* keep = box.addButton(QObject::tr("Keep My Changes"), QMessageBox::RejectRole);
    box.setDefaultButton(keep);
    box.setEscapeButton(keep);
    box.exec();
    return box.clickedButton() == reload;
}

bool DesktopDialogs::confirmDeleteScene()
{
    QMessageBox box(QMessageBox::Warning, QString(), DialogTexts::deleteSceneMessage(), QMessageBox::NoButton,
                    m_parent);
    box.setObjectName(QStringLiteral("deleteSceneQuestion"));
    QPushButton* confirm = box.addButton(DialogTexts::deleteSceneButton(), QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton(DialogTexts::cancelButton(), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == confirm;
}

void DesktopDialogs::reportFailure(const QString& message, const QString& detail)
{
    QMessageBox box(QMessageBox::Warning, QString(), message, QMessageBox::Ok, m_parent);
    box.setObjectName(QStringLiteral("failureMessage"));
    box.setInformativeText(detail);
    box.exec();
}

FolderChooser desktopFolderChooser()
{
    return [](const OpenPanelRequest& request) -> ChooseResult {
        const std::optional<QString> chosen =
            runFolderPanel(nullptr, request.texts.title.value_or(QString()), request.texts.message.value_or(QString()),
                           request.texts.prompt.value_or(QString()), request.directory, false);
        if (!chosen)
            return OpenPanelError::canceled;
        return *chosen;
    };
}

} // namespace stagewright
