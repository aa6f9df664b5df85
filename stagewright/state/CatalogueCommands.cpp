#include "CatalogueCommands.h"

#include "WorkspaceCatalogues.h"

#include <tessaro/model/ConfigFiles.h>

#include <algorithm>

namespace stagewright {

namespace {

template <class R>
R* findIn(std::vector<R>& catalogue, const std::string& elementName)
{
    const auto found = std::find_if(catalogue.begin(), catalogue.end(),
                                    [&](const R& record) { return record.elementName == elementName; });
    return found == catalogue.end() ? nullptr : &*found;
}

template <class R>
std::vector<R>& catalogueOf();
template <>
std::vector<tessaro::Obstacle>& catalogueOf()
{
    return tessaro::obstacleCatalogue();
}
template <>
std::vector<tessaro::Character>& catalogueOf()
{
    return tessaro::characterCatalogue();
}
template <>
std::vector<tessaro::GenericObject>& catalogueOf()
{
    return tessaro::objectCatalogue();
}

} // namespace

tessaro::configType catalogueTypeFor(tessaro::sceneObjectType kind)
{
    switch (kind) {
    case tessaro::sceneObjectType::obstacles: return tessaro::configType::obstacles;
    case tessaro::sceneObjectType::character: return tessaro::configType::characters;
    default: return tessaro::configType::objects;
    }
}

std::optional<defaultViewRecord> findCatalogueRecord(tessaro::sceneObjectType kind, const std::string& elementName)
{
    switch (catalogueTypeFor(kind)) {
    case tessaro::configType::obstacles:
        if (const auto* record = findIn(tessaro::obstacleCatalogue(), elementName))
            return *record;
        break;
    case tessaro::configType::characters:
        if (const auto* record = findIn(tessaro::characterCatalogue(), elementName))
            return *record;
        break;
    default:
        if (const auto* record = findIn(tessaro::objectCatalogue(), elementName))
            return *record;
        break;
    }
    return std::nullopt;
}

CatalogueRecordCommand::CatalogueRecordCommand(WorkspaceCatalogues& catalogues, defaultViewRecord before,
                                               defaultViewRecord after, const QString& text)
    : m_catalogues(catalogues),
      m_workspace(catalogues.workspace()),
      m_before(std::move(before)),
      m_after(std::move(after))
{
    setText(text);
}

void CatalogueRecordCommand::redo()
{
    put(m_after);
}

void CatalogueRecordCommand::undo()
{
    put(m_before);
}

void CatalogueRecordCommand::put(const defaultViewRecord& record)
{
    if (m_catalogues.workspace() != m_workspace)
        return;
    std::visit(
        [](const auto& replacement) {
            using R = std::decay_t<decltype(replacement)>;
            if (R* stored = findIn(catalogueOf<R>(), replacement.elementName.value_or(std::string())))
                *stored = replacement;
        },
        record);
    m_catalogues.saveChanged();
}

} // namespace stagewright
