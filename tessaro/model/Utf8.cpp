#include "Utf8.h"

#include <cstdint>

namespace tessaro {

bool isValidUtf8(std::string_view text)
{
    const auto* p = reinterpret_cast<const std::uint8_t*>(text.data());
    const auto* end = p + text.size();
    while (p < end) {
        // Fast path over plain ASCII.
        if (*p < 0x80) {
            ++p;
            continue;
        }
        std::uint32_t c = *p;
        int extra = 0;
        std::uint32_t minimum = 0;
        if ((c & 0xE0) == 0xC0) {
            extra = 1;
            c &= 0x1F;
            minimum = 0x80;
        } else if ((c & 0xF0) == 0xE0) {
            extra = 2;
            c &= 0x0F;
            minimum = 0x800;
        } else if ((c & 0xF8) == 0xF0) {
            extra = 3;
            c &= 0x07;
            minimum = 0x10000;
        } else {
            return false;
        }
        if (end - p <= extra)
            return false;
        for (int i = 1; i <= extra; ++i) {
            if ((p[i] & 0xC0) != 0x80)
                return false;
            c = c << 6 | (p[i] & 0x3F);
        }
        if (c < minimum || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF))
            return false;
        p += extra + 1;
    }
    return true;
}

const char* storedTextProblem(std::string_view text)
{
    if (text.find('\0') != std::string_view::npos)
        return "String contains a NUL character, which a property list cannot hold.";
    if (!isValidUtf8(text))
        return "String is not valid UTF-8.";
    return nullptr;
}

} // namespace tessaro
