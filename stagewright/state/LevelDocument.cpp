#include "LevelDocument.h"

#include "ElementHandles.h"

#include <tessaro/model/LevelRecords.h>

#include <algorithm>
#include <utility>

namespace stagewright {

LevelDocument::LevelDocument() : m_elementHandles(std::make_unique<ElementHandles>()) {}

LevelDocument::~LevelDocument() = default;

const tessaro::Level* LevelDocument::findLevel(const tessaro::Uuid& id) const
{
    const std::optional<std::size_t> index = levelIndex(id);
    return index ? &m_levels[*index] : nullptr;
}

tessaro::Level* LevelDocument::findLevel(const tessaro::Uuid& id)
{
    const std::optional<std::size_t> index = levelIndex(id);
    return index ? &m_levels[*index] : nullptr;
}

std::optional<std::size_t> LevelDocument::levelIndex(const tessaro::Uuid& id) const
{
    for (std::size_t i = 0; i < m_levels.size(); ++i)
        if (m_levels[i].id == id)
            return i;
    return std::nullopt;
}

void LevelDocument::replaceLevels(std::vector<tessaro::Level> levels)
{
    m_levels = std::move(levels);
    emit levelsChanged();
}

void LevelDocument::insertLevel(std::size_t index, tessaro::Level level)
{
    m_levels.insert(m_levels.begin() + std::ptrdiff_t(std::min(index, m_levels.size())), std::move(level));
    emit levelsChanged();
}

tessaro::Level LevelDocument::removeLevelAt(std::size_t index)
{
    tessaro::Level level = std::move(m_levels.at(index));
    m_levels.erase(m_levels.begin() + std::ptrdiff_t(index));
    emit levelsChanged();
    return level;
}

void LevelDocument::swapLevels(std::size_t a, std::size_t b)
{
    std::swap(m_levels.at(a), m_levels.at(b));
    emit levelsChanged();
}

bool LevelDocument::readField(const tessaro::Uuid& levelId, const tessaro::FieldPath& path,
                              tessaro::FieldValue& value) const
{
    const tessaro::Level* level = findLevel(levelId);
    return level && tessaro::readField(*level, path, value);
}

bool LevelDocument::fieldHolds(const tessaro::Uuid& levelId, const tessaro::FieldPath& path,
                               const tessaro::FieldValue& value) const
{
    const tessaro::Level* level = findLevel(levelId);
    return level && tessaro::fieldHolds(*level, path, value);
}

bool LevelDocument::writeField(const tessaro::Uuid& levelId, const tessaro::FieldPath& path,
                               const tessaro::FieldValue& value)
{
    tessaro::Level* level = findLevel(levelId);
    if (!level || !tessaro::writeField(*level, path, value))
        return false;
    emit levelChanged(levelId, path);
    return true;
}

void LevelDocument::notifyLevelChanged(const tessaro::Uuid& levelId)
{
    emit levelChanged(levelId, {});
}

} // namespace stagewright
