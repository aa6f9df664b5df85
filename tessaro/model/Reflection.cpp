#include "Reflection.h"

#include "ValueText.h"

namespace tessaro {

std::string reflectionText(const ReflectionValue& value)
{
    switch (value.kind) {
    case ReflectionValue::Kind::absent: return "";
    case ReflectionValue::Kind::text:
    case ReflectionValue::Kind::uuid: return value.text;
    case ReflectionValue::Kind::boolean: return value.boolean ? "true" : "false";
    case ReflectionValue::Kind::real: return numberText(value.real);
    case ReflectionValue::Kind::integer: return std::to_string(value.integer);
    case ReflectionValue::Kind::list: return value.count == 1 ? "1 entry" : std::to_string(value.count) + " entries";
    case ReflectionValue::Kind::record: return "…";
    case ReflectionValue::Kind::table: {
        std::string text = "{";
        bool first = true;
        for (const auto& [name, nested] : *value.table) {
            if (nested.kind == ReflectionValue::Kind::absent)
                continue;
            if (!first)
                text += ", ";
            first = false;
            text += name + ": " + reflectionText(nested);
        }
        return text + "}";
    }
    }
    return "";
}

} // namespace tessaro
