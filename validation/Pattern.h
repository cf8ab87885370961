#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillmar {

/// True when the whole text matches the whole pattern. Characters compare by code unit (case-sensitive).
/// In the pattern `?` matches one character, `*` any run (the empty one included), `#` one digit 0-9,
/// `[list]` one character of the list and `[!list]` one character not in it; a list holds characters
/// and ascending ranges `a-z` (a hyphen first or last is literal), and `[[]` matches an opening bracket. The
/// empty list `[]` lists no character, so it matches nothing (a pattern holding it matches no text), and
/// `[!]` matches any one character. Every other character matches itself.
/// A malformed pattern (an unclosed `[`, a descending range) answers false, wherever the fault stands.
/// Runs in at most (n+1)(m+1) steps for a text of n code units and a pattern of m units, never recursing
/// and never backtracking beyond the last `*`; it allocates nothing.
[[nodiscard]] bool MatchPattern(std::u16string_view text, std::u16string_view pattern) noexcept;

namespace detail {

/// The outcome of a match together with the number of steps it took (one step compares one text
/// character with one pattern unit, or moves past one `*`).
struct PatternMatchStats {
    bool matched = false;
    uint64_t steps = 0;
};

/// `MatchPattern` with its step count, for proving the bound in tests.
[[nodiscard]] PatternMatchStats MatchPatternCounted(
    std::u16string_view text, std::u16string_view pattern) noexcept;

/// The number of units of a well-formed pattern (each `?`, `*`, `#`, list or literal is one unit);
/// nullopt for a malformed pattern.
[[nodiscard]] std::optional<size_t> PatternUnitCount(std::u16string_view pattern) noexcept;

} // namespace detail
} // namespace quillmar
