// The offer at start of what runs that did not end cleanly left unsaved: each
// listed project is recovered, discarded or kept for the next start on its
// own, and "Later" keeps them all.
#pragma once

#include <stagewright/state/ProjectRecovery.h>
#include <stagewright/state/RecoveryStore.h>

#include <QDialog>

#include <functional>
#include <optional>
#include <vector>

class QComboBox;
class QPushButton;
class QTreeWidget;

namespace stagewright {

class Autosave;
class SceneSettings;

/// What becomes of one listed project.
enum class RecoveryAnswer { Recover, Discard, Later };

/// Lists the found projects (level, when it was copied, its file, and what
/// becomes of it, "Recover" at first) above "Continue" and "Later".
class RecoveryPrompt : public QDialog {
    Q_OBJECT
public:
    explicit RecoveryPrompt(const std::vector<RecoveryEntry>& entries, QWidget* parent = nullptr);

    QTreeWidget* list() const { return m_list; }
    /// The choice of the project in `row`.
    QComboBox* choice(int row) const;
    QPushButton* continueButton() const { return m_continue; }
    QPushButton* laterButton() const { return m_later; }
    /// One answer per project: the rows' choices after "Continue", every one
    /// "Later" when the dialog was left otherwise.
    std::vector<RecoveryAnswer> answers() const;

    /// Shows the offer modally and gives the answers.
    static std::vector<RecoveryAnswer> ask(const std::vector<RecoveryEntry>& entries, QWidget* parent);
    /// Asks whether the recovered copy of a project replaces the unsaved
    /// changes of the tab that has its file open.
    static bool askReplace(const RecoveryEntry& entry, QWidget* parent);

private:
    QTreeWidget* m_list = nullptr;
    std::vector<QComboBox*> m_choices;
    QPushButton* m_continue = nullptr;
    QPushButton* m_later = nullptr;
    bool m_continued = false;
};

using RecoveryQuestion = std::function<std::vector<RecoveryAnswer>(const std::vector<RecoveryEntry>& entries)>;

/// Asks about the projects that runs which did not end cleanly left, if
/// there are any, and does for each what the user chose: "Recover" opens it
/// in a tab with its unsaved changes (or in the tab of its file, see
/// `restoreProject`), "Discard" removes it, "Later" keeps it for the next
/// start. A missing answer counts as "Later". None when there was nothing
/// to offer.
std::optional<std::vector<RecoveryAnswer>> offerRecovery(SceneSettings& settings, RecoveryStore& store,
                                                         Autosave& autosave, const RecoveryQuestion& ask,
                                                         const ReplaceQuestion& mayReplace);

} // namespace stagewright
