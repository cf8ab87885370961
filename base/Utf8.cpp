#include "base/Utf8.h"

#include <cstdint>
#include <cstring>

namespace quillmar {

bool DecodeUtf8(std::string_view utf8, char16_t* const out, size_t& written) noexcept {
    const auto* bytes = reinterpret_cast<const unsigned char*>(utf8.data());
    const size_t n = utf8.size();
    char16_t* to = out;
    size_t i = 0;
    while (i < n) {
        // Eight ASCII bytes at a time while the high bits stay clear.
        while (i + 8 <= n) {
            uint64_t word;
            std::memcpy(&word, bytes + i, 8);
            if ((word & UINT64_C(0x8080808080808080)) != 0) break;
            for (int k = 0; k < 8; ++k)
                *to++ = bytes[i + k];
            i += 8;
        }
        if (i >= n) break;
        const unsigned char lead = bytes[i];
        if (lead < 0x80) {
            *to++ = lead;
            ++i;
            continue;
        }
        size_t length;
        uint32_t point;
        uint32_t minimum;
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2, point = lead & 0x1F, minimum = 0x80;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3, point = lead & 0x0F, minimum = 0x800;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4, point = lead & 0x07, minimum = 0x10000;
        } else {
            return false;
        }
        if (i + length > n) return false;
        for (size_t k = 1; k < length; ++k) {
            const unsigned char next = bytes[i + k];
            if ((next & 0xC0) != 0x80) return false;
            point = (point << 6) | (next & 0x3F);
        }
        if (point < minimum || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) return false;
        if (point >= 0x10000) {
            point -= 0x10000;
            *to++ = static_cast<char16_t>(0xD800 + (point >> 10));
            *to++ = static_cast<char16_t>(0xDC00 + (point & 0x3FF));
        } else {
            *to++ = static_cast<char16_t>(point);
        }
        i += length;
    }
    written = static_cast<size_t>(to - out);
    return true;
}

bool AppendUtf16(std::string_view utf8, std::u16string& out) {
    const size_t base = out.size();
    out.resize(base + utf8.size()); // never more units than bytes
    size_t written = 0;
    const bool ok = DecodeUtf8(utf8, out.data() + base, written);
    out.resize(base + written);
    return ok;
}

void AppendUtf8(std::u16string_view utf16, std::string& out) {
    for (size_t i = 0; i < utf16.size(); ++i) {
        uint32_t point = utf16[i];
        if (point >= 0xD800 && point <= 0xDBFF && i + 1 < utf16.size() && utf16[i + 1] >= 0xDC00
            && utf16[i + 1] <= 0xDFFF) {
            point = 0x10000 + ((point - 0xD800) << 10) + (utf16[i + 1] - 0xDC00);
            ++i;
        } else if (point >= 0xD800 && point <= 0xDFFF) {
            point = 0xFFFD;
        }
        if (point < 0x80) {
            out += static_cast<char>(point);
        } else if (point < 0x800) {
            out += static_cast<char>(0xC0 | (point >> 6));
            out += static_cast<char>(0x80 | (point & 0x3F));
        } else if (point < 0x10000) {
            out += static_cast<char>(0xE0 | (point >> 12));
            out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (point & 0x3F));
        } else {
            out += static_cast<char>(0xF0 | (point >> 18));
            out += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
            out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
            out += static_cast<char>(0x80 | (point & 0x3F));
        }
    }
}

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    AppendUtf8(text, out);
    return out;
}

std::optional<std::u16string> FromUtf8(std::string_view text) {
    std::u16string out;
    out.reserve(text.size());
    if (!AppendUtf16(text, out)) return std::nullopt;
    return out;
}

} // namespace quillmar
