#include "ElementRecords.h"

#include <tessaro/kit/Texture.h>

namespace stagewright {

elementData::elementData() = default;
elementData::elementData(const elementData&) = default;
elementData::elementData(elementData&&) noexcept = default;
elementData& elementData::operator=(const elementData&) = default;
elementData& elementData::operator=(elementData&&) noexcept = default;
elementData::~elementData() = default;
bool elementData::operator==(const elementData&) const = default;

ElementRecords::ElementRecords() = default;
ElementRecords::ElementRecords(const ElementRecords&) = default;
ElementRecords::ElementRecords(ElementRecords&&) noexcept = default;
ElementRecords& ElementRecords::operator=(const ElementRecords&) = default;
ElementRecords& ElementRecords::operator=(ElementRecords&&) noexcept = default;
ElementRecords::~ElementRecords() = default;
bool ElementRecords::operator==(const ElementRecords&) const = default;

} // namespace stagewright
