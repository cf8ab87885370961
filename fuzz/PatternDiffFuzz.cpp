// The pattern matcher against a reference written for clarity, not speed: the pattern is first read into
// units, then a table over (text position, unit) says whether the rest of the text matches the rest of the
// pattern. The two must agree on every input; inputs are capped so the table stays small.
#include "fuzz/FuzzSupport.h"
#include "validation/Pattern.h"

#include <optional>
#include <utility>
#include <vector>

namespace quillmar::fuzz {
namespace {

constexpr size_t kMaxPatternLength = 48;
constexpr size_t kMaxTextLength = 160;

struct Unit {
    enum class Kind { AnyOne, AnyRun, Digit, List, Literal };
    explicit Unit(Kind unitKind, char16_t unitLiteral = 0)
        : kind(unitKind)
        , literal(unitLiteral) { }

    Kind kind;
    char16_t literal;
    bool negated = false;
    std::vector<std::pair<char16_t, char16_t>> ranges;

    [[nodiscard]] bool Takes(char16_t c) const {
        switch (kind) {
        case Kind::AnyOne:
            return true;
        case Kind::Digit:
            return c >= u'0' && c <= u'9';
        case Kind::Literal:
            return c == literal;
        case Kind::List: {
            bool listed = false;
            for (const auto& [low, high] : ranges)
                listed = listed || (low <= c && c <= high);
            return listed != negated;
        }
        default:
            return false;
        }
    }
};

// `?`, `*`, `#`, `[list]`, `[!list]`, `[]` and literals; nullopt for an unclosed list or a descending
// range. In a list, `x-y` is a range when `y` is not the closing bracket; any other character stands for
// itself. `[]` matches no character and `[!]` any one character.
std::optional<std::vector<Unit>> ReadUnits(std::u16string_view pattern) {
    std::vector<Unit> units;
    size_t i = 0;
    while (i < pattern.size()) {
        const char16_t c = pattern[i];
        if (c == u'?') {
            units.emplace_back(Unit::Kind::AnyOne);
            ++i;
        } else if (c == u'*') {
            units.emplace_back(Unit::Kind::AnyRun);
            ++i;
        } else if (c == u'#') {
            units.emplace_back(Unit::Kind::Digit);
            ++i;
        } else if (c == u'[') {
            Unit list(Unit::Kind::List);
            size_t j = i + 1;
            list.negated = j < pattern.size() && pattern[j] == u'!';
            if (list.negated) ++j;
            if (j < pattern.size() && pattern[j] == u']') {
                units.push_back(std::move(list)); // lists nothing: no character, or with `!` any one
                i = j + 1;
                continue;
            }
            while (j < pattern.size() && pattern[j] != u']') {
                if (j + 2 < pattern.size() && pattern[j + 1] == u'-' && pattern[j + 2] != u']') {
                    if (pattern[j + 2] < pattern[j]) return std::nullopt;
                    list.ranges.emplace_back(pattern[j], pattern[j + 2]);
                    j += 3;
                } else {
                    list.ranges.emplace_back(pattern[j], pattern[j]);
                    ++j;
                }
            }
            if (j == pattern.size()) return std::nullopt;
            units.push_back(std::move(list));
            i = j + 1;
        } else {
            units.emplace_back(Unit::Kind::Literal, c);
            ++i;
        }
    }
    return units;
}

// matches[t][u]: the text from position t matches the units from u. Filled from the ends backwards, so each
// entry reads only entries already known.
bool ReferenceMatch(std::u16string_view text, const std::vector<Unit>& units) {
    const size_t n = text.size();
    const size_t m = units.size();
    std::vector<std::vector<bool>> matches(n + 2, std::vector<bool>(m + 1, false));
    matches[n][m] = true;
    for (size_t t = n + 1; t-- > 0;) {
        for (size_t u = m; u-- > 0;) {
            const Unit& unit = units[u];
            if (unit.kind == Unit::Kind::AnyRun)
                matches[t][u] = matches[t][u + 1] || (t < n && matches[t + 1][u]);
            else
                matches[t][u] = t < n && unit.Takes(text[t]) && matches[t + 1][u + 1];
        }
    }
    return matches[0][0];
}

} // namespace
} // namespace quillmar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillmar;
    using namespace quillmar::fuzz;
    const auto [pattern, text] = PatternAndText({ data, size });
    if (pattern.size() > kMaxPatternLength || text.size() > kMaxTextLength) return 0;

    const auto units = ReadUnits(pattern);
    const auto unitCount = detail::PatternUnitCount(pattern);
    Require(unitCount.has_value() == units.has_value(), "the matcher and the reference disagree on the form",
        pattern, text);
    if (units) Require(*unitCount == units->size(), "the unit counts disagree", pattern, text);

    const bool expected = units && ReferenceMatch(text, *units);
    const detail::PatternMatchStats stats = detail::MatchPatternCounted(text, pattern);
    Require(MatchPattern(text, pattern) == expected, "the matcher and the reference disagree", pattern, text);
    Require(stats.matched == expected, "the counted matcher and the reference disagree", pattern, text);
    if (unitCount)
        Require(
            stats.steps <= (text.size() + 1) * (*unitCount + 1), "more steps than (n+1)(m+1)", pattern, text);
    return 0;
}
