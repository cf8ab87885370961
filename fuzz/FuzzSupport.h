#pragma once

// What every fuzz target shares: turning bytes into UTF-16 texts and small choices, the three locales, and
// a check that stops the run with a readable line when an invariant breaks.

#include "base/LocaleInfo.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace quillmar::fuzz {

/// Prints `what` with the texts involved and aborts, so that libFuzzer keeps the input as a crash.
[[noreturn]] inline void Fail(
    const char* what, std::u16string_view first = {}, std::u16string_view second = {}) {
    const auto print = [](std::u16string_view text) {
        for (const char16_t unit : text) {
            if (unit >= 0x20 && unit < 0x7F)
                std::fputc(static_cast<int>(unit), stderr);
            else
                std::fprintf(stderr, "\\u%04X", static_cast<unsigned>(unit));
        }
    };
    std::fprintf(stderr, "invariant broken: %s\n  first:  \"", what);
    print(first);
    std::fprintf(stderr, "\"\n  second: \"");
    print(second);
    std::fprintf(stderr, "\"\n");
    std::abort();
}

/// Stops the run unless `holds`.
inline void Require(
    bool holds, const char* what, std::u16string_view first = {}, std::u16string_view second = {}) {
    if (!holds) Fail(what, first, second);
}

/// Reads an input from the front: single bytes for choices, texts in the encoding of `NextUnit`. Past the
/// end every read gives zeros, so any input is a complete script.
class ByteReader {
public:
    explicit ByteReader(std::span<const uint8_t> bytes)
        : m_bytes(bytes) { }

    [[nodiscard]] bool AtEnd() const noexcept { return m_pos >= m_bytes.size(); }

    uint8_t Byte() noexcept { return AtEnd() ? 0 : m_bytes[m_pos++]; }
    /// A choice among `count` options.
    unsigned Pick(unsigned count) noexcept { return Byte() % count; }
    bool Bit() noexcept { return (Byte() & 1) != 0; }

    /// One UTF-16 code unit. Printable ASCII stands for itself, so seeds stay readable; the 32 control bytes
    /// name the units that make texts interesting here (the spaces locales group digits with, letters whose
    /// case mapping is special, lone surrogates, line breaks); 0x7F and above take the next two bytes as a
    /// raw unit, so that every unit can be reached.
    char16_t NextUnit() noexcept {
        static constexpr std::array<char16_t, 32> kSpecial
            = { 0x00A0, 0x202F, 0x2009, u'\t', 0x00E9, 0x00C9, 0x00DF, 0x0131, 0x01C5, 0x03A3, 0x03C2, 0xFB00,
                  0xD83D, 0xDE00, 0xFFFD, 0xFFFF, 0x0000, u'\r', u'\n', 0x0660, 0xFF10, 0x2212, 0x00B7,
                  0x0130, 0x1E9E, 0x212A, 0x00FF, 0x0178, 0x007F, 0x0080, 0x4E2D, 0x3000 };
        const uint8_t byte = Byte();
        if (byte < 0x20) return kSpecial[byte];
        if (byte < 0x7F) return static_cast<char16_t>(byte);
        const uint8_t high = Byte();
        return static_cast<char16_t>((high << 8) | Byte());
    }

    /// A text whose length (at most `maxLength`) comes first.
    std::u16string Text(size_t maxLength) {
        const size_t length = Byte() % (maxLength + 1);
        std::u16string text;
        for (size_t i = 0; i < length && !AtEnd(); ++i)
            text.push_back(NextUnit());
        return text;
    }

    /// Every unit up to the end of the input.
    std::u16string Rest() {
        std::u16string text;
        while (!AtEnd())
            text.push_back(NextUnit());
        return text;
    }

private:
    std::span<const uint8_t> m_bytes;
    size_t m_pos = 0;
};

/// The locales the targets run under, read from ICU once: a decimal point with month-first dates, a decimal
/// comma with dotted day-first dates, and a decimal comma grouped with a narrow no-break space.
inline const std::array<LocaleInfo, 3>& Locales() {
    static const std::array<LocaleInfo, 3> locales
        = { LocaleInfo::FromName("en_US"), LocaleInfo::FromName("de_DE"), LocaleInfo::FromName("fr_FR") };
    return locales;
}

/// A pattern and a text: the units of the input before its first newline byte, and those after it.
inline std::pair<std::u16string, std::u16string> PatternAndText(std::span<const uint8_t> bytes) {
    size_t newline = 0;
    while (newline < bytes.size() && bytes[newline] != '\n')
        ++newline;
    return { ByteReader(bytes.first(newline)).Rest(),
        ByteReader(bytes.subspan(std::min(newline + 1, bytes.size()))).Rest() };
}

} // namespace quillmar::fuzz
