// The offer at start of what runs that did not end cleanly left unsaved:
// "Recover", "Discard" or "Later".
#pragma once

#include <stagewright/state/RecoveryStore.h>

#include <QDialog>

#include <functional>
#include <optional>
#include <vector>

class QPushButton;
class QTreeWidget;

namespace stagewright {

class Autosave;
class SceneSettings;

enum class RecoveryAnswer { Recover, Discard, Later };

/// Lists the found projects (level, when it was copied, its file) above the
/// three buttons.
class RecoveryPrompt : public QDialog {
    Q_OBJECT
public:
    explicit RecoveryPrompt(const std::vector<RecoveryEntry>& entries, QWidget* parent = nullptr);

    QPushButton* button(RecoveryAnswer answer) const;
    /// What the user chose; "Later" when the dialog was closed otherwise.
    RecoveryAnswer answer() const { return m_answer; }
    QTreeWidget* list() const { return m_list; }

    /// Shows the offer modally and gives the answer.
    static RecoveryAnswer ask(const std::vector<RecoveryEntry>& entries, QWidget* parent);

private:
    void choose(RecoveryAnswer answer);

    QTreeWidget* m_list = nullptr;
    QPushButton* m_recover = nullptr;
    QPushButton* m_discard = nullptr;
    QPushButton* m_later = nullptr;
    RecoveryAnswer m_answer = RecoveryAnswer::Later;
};

using RecoveryQuestion = std::function<RecoveryAnswer(const std::vector<RecoveryEntry>& entries)>;

/// Asks about the projects that runs which did not end cleanly left, if
/// there are any, and does what the user chose: "Recover" opens them in tabs
/// with their unsaved changes, "Discard" removes them, "Later" keeps them for
/// the next start. None when there was nothing to offer.
std::optional<RecoveryAnswer> offerRecovery(SceneSettings& settings, RecoveryStore& store, Autosave& autosave,
                                            const RecoveryQuestion& ask);

} // namespace stagewright
