#include "CatalogueCommands.h"

#include "CatalogueDocument.h"

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

tessaro::configType catalogueTypeOf(const DefaultViewRecord& record)
{
    if (std::holds_alternative<tessaro::Obstacle>(record))
        return tessaro::configType::obstacles;
    if (std::holds_alternative<tessaro::Character>(record))
        return tessaro::configType::characters;
    return tessaro::configType::objects;
}

std::string catalogueRecordName(const DefaultViewRecord& record)
{
    return std::visit([](const auto& r) { return r.elementName.value_or(std::string()); }, record);
}

std::optional<DefaultViewRecord> findCatalogueRecord(tessaro::configType type, const std::string& elementName)
{
    switch (type) {
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

std::optional<DefaultViewRecord> findCatalogueRecord(tessaro::sceneObjectType kind, const std::string& elementName)
{
    return findCatalogueRecord(catalogueTypeFor(kind), elementName);
}

CatalogueRecordCommand::CatalogueRecordCommand(CatalogueDocument& document, DefaultViewRecord before,
                                               DefaultViewRecord after, const QString& text)
    : m_document(document),
      m_workspace(document.workspace()),
      m_elementName(catalogueRecordName(before)),
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

void CatalogueRecordCommand::put(const DefaultViewRecord& record)
{
    if (m_document.workspace() != m_workspace)
        return;
    const bool found = std::visit(
        [&](const auto& replacement) {
            using R = std::decay_t<decltype(replacement)>;
            R* stored = findIn(catalogueOf<R>(), m_elementName);
            if (stored)
                *stored = replacement;
            return stored != nullptr;
        },
        record);
    if (!found)
        return;
    m_document.saveChanged();
    emit m_document.recordChanged(catalogueTypeOf(record), QString::fromStdString(m_elementName));
}

} // namespace stagewright
