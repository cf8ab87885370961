#include "validation/Pattern.h"

namespace quillmar {
namespace {

constexpr size_t kMalformed = std::u16string_view::npos;

// Counting policies: the matcher is written once and instantiated with either, so the uncounted
// version compiles the step calls away.
struct NoSteps {
    void Step() noexcept { }
};

struct CountedSteps {
    uint64_t steps = 0;
    void Step() noexcept { ++steps; }
};

// What the star matcher needs to know about the pattern from its first star on.
struct PatternShape {
    size_t units = 0;
    // Units that take exactly one character: everything but `*`.
    size_t consuming = 0;
    // Where the units after the last `*` begin, and how many characters they take.
    size_t tailStart = 0;
    size_t tailConsuming = 0;
};

// Reads the list whose `[` stands at `open`: answers the index just past it, or kMalformed when the
// list is unclosed or holds a descending range, and sets `found` when `ch` is one of its characters
// (for `[!...]`, when it is not). The one reading serves both checking and matching.
size_t ReadList(std::u16string_view pattern, size_t open, char16_t ch, bool& found) noexcept {
    const size_t size = pattern.size();
    size_t i = open + 1;
    const bool negated = i < size && pattern[i] == u'!';
    if (negated) ++i;
    bool listed = false;
    // `[]` and `[!]` list nothing: the first matches no character at all, the second any one character.
    if (i >= size || pattern[i] != u']') {
        while (i < size && pattern[i] != u']') {
            // A hyphen is a range only between two list characters; first or last it stands for itself.
            if (i + 2 < size && pattern[i + 1] == u'-' && pattern[i + 2] != u']') {
                if (pattern[i + 2] < pattern[i]) return kMalformed;
                listed = listed || (pattern[i] <= ch && ch <= pattern[i + 2]);
                i += 3;
            } else {
                listed = listed || pattern[i] == ch;
                ++i;
            }
        }
        if (i == size) return kMalformed;
    }
    found = listed != negated;
    return i + 1;
}

// One pass over the pattern, so that a fault anywhere in it answers false before any star matching.
bool ReadShape(std::u16string_view pattern, PatternShape& shape) noexcept {
    for (size_t p = 0; p < pattern.size();) {
        ++shape.units;
        const char16_t unit = pattern[p];
        if (unit == u'*') {
            shape.tailConsuming = 0;
            shape.tailStart = ++p;
            continue;
        }
        if (unit == u'[') {
            bool found = false;
            const size_t end = ReadList(pattern, p, u'\0', found);
            if (end == kMalformed) return false;
            p = end;
        } else {
            ++p;
        }
        ++shape.consuming;
        ++shape.tailConsuming;
    }
    return true;
}

// Compares one text character with the consuming unit at `p`; `next` receives the index past the unit.
// A malformed list never matches.
inline bool UnitHas(std::u16string_view pattern, size_t p, char16_t ch, size_t& next) noexcept {
    switch (pattern[p]) {
    case u'?':
        next = p + 1;
        return true;
    case u'#':
        next = p + 1;
        return ch >= u'0' && ch <= u'9';
    case u'[': {
        bool found = false;
        next = ReadList(pattern, p, ch, found);
        return found;
    }
    default:
        next = p + 1;
        return pattern[p] == ch;
    }
}

// Matches a star-free stretch of pattern that takes exactly as many characters as the text holds.
template <class Steps>
bool MatchFixed(const char16_t* text, std::u16string_view pattern, Steps& steps) noexcept {
    for (size_t p = 0; p < pattern.size();) {
        steps.Step();
        if (!UnitHas(pattern, p, *text++, p)) return false;
    }
    return true;
}

// Moves `start` to the first position holding `literal`, one step per passed character: what restarting
// after a mismatch on that unit would cost, without the bookkeeping. Only starts before `limit` leave
// room for the units after the star.
template <class Steps>
void SkipToLiteral(
    const char16_t* text, size_t& start, size_t limit, char16_t literal, Steps& steps) noexcept {
    while (start < limit && text[start] != literal) {
        steps.Step();
        ++start;
    }
}

bool IsLiteral(char16_t unit) noexcept {
    return unit != u'?' && unit != u'#' && unit != u'[' && unit != u'*';
}

// Greedy matching for a pattern that ends with `*`. Every stretch between stars takes a fixed number of
// characters, so placing each stretch at its earliest fit is never worse than a later fit; on a mismatch
// only the last star needs to take one more character.
template <class Steps>
bool MatchUpToLastStar(
    const char16_t* text, size_t n, std::u16string_view pattern, size_t consuming, Steps& steps) noexcept {
    const size_t m = pattern.size();
    size_t t = 0;
    size_t p = 0;
    bool seenStar = false;
    size_t starP = 0;
    size_t starT = 0;
    // Characters still needed by the units from `p` on, and that figure at the last star.
    size_t need = consuming;
    size_t needAtStar = 0;
    for (;;) {
        if (pattern[p] == u'*') {
            steps.Step();
            if (++p == m) return true;
            seenStar = true;
            starP = p;
            starT = t;
            needAtStar = need;
            if (IsLiteral(pattern[p])) {
                SkipToLiteral(text, starT, n - needAtStar + 1, pattern[p], steps);
                if (starT + needAtStar > n) return false;
                t = starT;
            }
            continue;
        }
        if (t < n) {
            steps.Step();
            size_t next = 0;
            if (UnitHas(pattern, p, text[t], next)) {
                p = next;
                ++t;
                --need;
                continue;
            }
        }
        if (!seenStar) return false;
        ++starT;
        if (IsLiteral(pattern[starP])) SkipToLiteral(text, starT, n - needAtStar + 1, pattern[starP], steps);
        if (starT + needAtStar > n) return false;
        p = starP;
        t = starT;
        need = needAtStar;
    }
}

template <class Steps>
bool Match(std::u16string_view text, std::u16string_view pattern, Steps& steps) noexcept {
    // Before the first star the pattern is anchored at the start of the text. A mismatch there answers
    // false at once without reading the rest of the pattern: a fault in the rest would answer false too.
    size_t t = 0;
    size_t p = 0;
    while (p < pattern.size() && pattern[p] != u'*') {
        steps.Step();
        if (t == text.size() || !UnitHas(pattern, p, text[t++], p)) return false;
    }
    if (p == pattern.size()) return t == text.size();
    text.remove_prefix(t);
    pattern.remove_prefix(p);

    PatternShape shape;
    if (!ReadShape(pattern, shape)) return false;
    const size_t n = text.size();
    if (shape.consuming > n) return false;
    // The units after the last star take a fixed number of characters, so they can only match the end
    // of the text; checking them first settles many hopeless texts at once.
    const size_t head = n - shape.tailConsuming;
    const std::u16string_view tail(pattern.data() + shape.tailStart, pattern.size() - shape.tailStart);
    if (!MatchFixed(text.data() + head, tail, steps)) return false;
    return MatchUpToLastStar(text.data(), head, std::u16string_view(pattern.data(), shape.tailStart),
        shape.consuming - shape.tailConsuming, steps);
}

} // namespace

bool MatchPattern(std::u16string_view text, std::u16string_view pattern) noexcept {
    NoSteps steps;
    return Match(text, pattern, steps);
}

namespace detail {

PatternMatchStats MatchPatternCounted(std::u16string_view text, std::u16string_view pattern) noexcept {
    CountedSteps steps;
    const bool matched = Match(text, pattern, steps);
    return { matched, steps.steps };
}

std::optional<size_t> PatternUnitCount(std::u16string_view pattern) noexcept {
    PatternShape shape;
    if (!ReadShape(pattern, shape)) return std::nullopt;
    return shape.units;
}

} // namespace detail
} // namespace quillmar
