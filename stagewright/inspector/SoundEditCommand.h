// The sounds tab's edits as steps of the tab's history. The list goes to its
// receiver: an obstacle's or a character's own sounds, or the shared list of
// the level record of the selected kind (the coins, the shields, ...), which
// is one field of the level set in its document. Adding and deleting a sound
// write through as well, each one step, so a sound added is never lost to a
// later selection.
#pragma once

#include "EditCommands.h"
#include "SoundList.h"

#include <QPointer>

#include <optional>
#include <vector>

namespace stagewright {

class ProjectTab;

/// Held volume steppers join into one step while they follow each other.
namespace soundMergeId {
inline constexpr int volume = 3000;
}

/// What one sound edit did, for the step's name and for joining.
struct SoundEdit {
    enum class kind { add, remove, field };
    kind what = kind::field;
    std::size_t index = 0;
    SoundField field = SoundField::filename;
    bool operator==(const SoundEdit&) const = default;
};

/// The sounds of an obstacle or a character.
class ElementSoundsCommand : public ElementEditCommand {
public:
    ElementSoundsCommand(ProjectTab& tab, const ElementNode& node, std::vector<tessaro::GameSound> sounds,
                         SoundEdit edit);
    int id() const override;
    bool mergeWith(const QUndoCommand* other) override;

protected:
    void apply(SceneEditor& scene, ElementNode& node) override;

private:
    std::vector<tessaro::GameSound> m_sounds;
    SoundEdit m_edit;
};

/// The front door of the sounds tab: the list it shows for the selection of
/// `tab`, and each edit of it as one step of the tab's history.
class SoundEditRouting {
public:
    SoundEditRouting(ProjectTab& tab, SoundPropertyType type);

    /// The list the editor shows: the selection's own sounds for `object`,
    /// else the shared list of the shown level's record.
    std::vector<tessaro::GameSound> sounds() const;
    /// Whether edits reach a receiver: an obstacle or a character for
    /// `object`, else a shown level that has the record.
    bool canWrite() const;

    // Each returns false when nothing was written (no step).
    bool add();
    bool remove(std::size_t index);
    bool change(std::size_t index, SoundField field, const SoundFieldValue& value);

private:
    bool push(std::vector<tessaro::GameSound> sounds, const SoundEdit& edit);

    ProjectTab& m_tab;
    SoundPropertyType m_type;
};

} // namespace stagewright
