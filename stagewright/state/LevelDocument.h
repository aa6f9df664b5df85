// The levels of one project: the only copy of their records while the project
// is open, and the session identities of their elements. Every change of a
// level passes through here and is announced, so the views that show a level
// (the canvas, the sheets, the statistics) follow it. The document knows
// nothing of nodes or widgets.
#pragma once

#include <tessaro/model/FieldPath.h>
#include <tessaro/model/Uuid.h>

#include <QObject>

#include <memory>
#include <optional>
#include <vector>

namespace tessaro {
struct Level;
}

namespace stagewright {

class ElementHandles;

class LevelDocument : public QObject {
    Q_OBJECT
public:
    LevelDocument();
    ~LevelDocument() override;

    const std::vector<tessaro::Level>& levels() const { return m_levels; }
    const tessaro::Level* findLevel(const tessaro::Uuid& id) const;
    /// For the canvas's write-back of the shown level; call `notifyLevelChanged`
    /// after changing it.
    tessaro::Level* findLevel(const tessaro::Uuid& id);
    /// The index of the first level with that id, or none.
    std::optional<std::size_t> levelIndex(const tessaro::Uuid& id) const;

    // ---- The level list (each announces levelsChanged) ----------------------------------
    void replaceLevels(std::vector<tessaro::Level> levels);
    void insertLevel(std::size_t index, tessaro::Level level);
    tessaro::Level removeLevelAt(std::size_t index);
    void swapLevels(std::size_t a, std::size_t b);

    // ---- Fields ---------------------------------------------------------------------------
    /// Reads a field of level `levelId`; false when the level or the field is not there.
    bool readField(const tessaro::Uuid& levelId, const tessaro::FieldPath& path, tessaro::FieldValue& value) const;
    bool fieldHolds(const tessaro::Uuid& levelId, const tessaro::FieldPath& path,
                    const tessaro::FieldValue& value) const;
    /// Writes a field of level `levelId` and announces it; false, with nothing
    /// written and nothing announced, when it cannot be written.
    bool writeField(const tessaro::Uuid& levelId, const tessaro::FieldPath& path, const tessaro::FieldValue& value);

    /// Announces a change made through the mutable `findLevel`.
    void notifyLevelChanged(const tessaro::Uuid& levelId);

    /// The session identities of the elements of the levels.
    ElementHandles& elementHandles() { return *m_elementHandles; }

signals:
    /// Levels came, went or moved, or were replaced as a whole.
    void levelsChanged();
    /// A field of a level changed: `path` is the field, or empty when any
    /// part of the level may have changed.
    void levelChanged(const tessaro::Uuid& levelId, const tessaro::FieldPath& path);

private:
    std::vector<tessaro::Level> m_levels;
    std::unique_ptr<ElementHandles> m_elementHandles;
};

} // namespace stagewright
