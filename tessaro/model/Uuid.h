// A UUID as the files hold it: 36 upper-case hexadecimal characters with hyphens.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tessaro {

class Uuid {
public:
    Uuid() = default;

    /// A new random (version 4) UUID.
    static Uuid create();
    /// Reads "8-4-4-4-12" hexadecimal text in either case; nothing on bad text.
    static std::optional<Uuid> fromText(std::string_view text);

    /// The upper-case text form.
    std::string text() const;
    bool isNull() const;

    bool operator==(const Uuid&) const = default;
    auto operator<=>(const Uuid&) const = default;

private:
    std::array<std::uint8_t, 16> bytes_{};
};

} // namespace tessaro
