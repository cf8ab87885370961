#include "validation/Pattern.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace quillmar {
namespace {

struct MatchCase {
    std::u16string_view text;
    std::u16string_view pattern;
    bool expected;
};

std::string Printable(std::u16string_view s) {
    return testing::PrintToString(std::u16string(s));
}

const MatchCase kMatchCases[] = {
    // Single-character units and literals.
    { u"", u"", true }, { u"a", u"", false }, { u"", u"a", false }, { u"a", u"?", true },
    { u"", u"?", false }, { u"ab", u"?", false }, // `?` never takes the empty run
    { u"0", u"#", true }, { u"9", u"#", true }, { u"/", u"#", false },
    { u":", u"#", false }, // the code units just below '0' and just above '9'
    { u"a", u"A", false }, { u"abc", u"abc", true }, { u"abd", u"abc", false }, { u"abcd", u"abc", false },
    { u"]", u"]", true }, // outside a list `]` is ordinary
    { u"!-\\", u"!-\\", true }, // no escape character
    { u"123-45-6789", u"###-##-####", true }, { u"123-45-678", u"###-##-####", false },
    // Stars.
    { u"", u"*", true }, { u"abc", u"*", true },
    { u"abc", u"abc*", true }, // trailing star takes the empty run
    { u"abc", u"*abc", true }, // leading star takes the empty run
    { u"xabc", u"*abc", true }, { u"abcx", u"*abc", false }, { u"abcx", u"abc*", true },
    { u"xabc", u"abc*", false }, { u"abbc", u"a*c", true }, { u"abbcd", u"a*c", false },
    { u"ab", u"a**b", true }, { u"ababc", u"*abc*", true }, // the first fit of "abc" fails half way
    { u"aaabx", u"*aab*", true }, // the retry must start one past the previous start, not past the failure
    { u"x@y.z", u"*@*.*", true }, { u"x@yz", u"*@*.*", false }, { u"ab", u"*?*?*", true },
    { u"a", u"*?*?*", false }, // each `?` still needs a character of its own
    { u"ab1cd", u"*#*", true }, { u"abcd", u"*#*", false },
    { u"b", u"*ab", false }, // fewer characters than the units after the star need
    // Lists.
    { u"a", u"[a-c]", true }, { u"c", u"[a-c]", true }, { u"d", u"[a-c]", false },
    { u"`", u"[a-c]", false }, // the code unit just below 'a'
    { u"a", u"[a-a]", true }, { u"y", u"[a-cx-z]", true }, { u"m", u"[a-cx-z]", false },
    { u"b", u"[abc]", true }, { u"d", u"[abc]", false }, { u"ab", u"[ab]", false }, { u"d", u"[!a-c]", true },
    { u"c", u"[!a-c]", false }, { u"", u"[!a]", false },
    { u"!", u"[a!]", true }, // `!` negates only right after `[`
    { u"-", u"[-a]", true }, { u"b", u"[-a]", false }, { u"-", u"[a-]", true },
    { u"b", u"[a-]", false }, // a trailing hyphen makes no range up to `]`
    { u"-", u"[!-a]", false }, // hyphen first after `!`
    { u"[", u"[[]", true }, { u"a", u"[[]", false }, { u"?", u"[?*#]", true },
    { u"5", u"[?*#]", false }, // wildcards are ordinary inside a list
    // The empty list holds no character, so it matches none: not even the empty run.
    { u"", u"[]", false }, { u"a", u"[]", false }, { u"ab", u"a[]b", false }, { u"axb", u"a[]b", false },
    { u"xab", u"*a[]b", false }, { u"xab", u"*[]*", false },
    { u"]", u"[]]", false }, // `[]` is a unit of its own, the `]` after it a literal
    { u"x", u"[!]", true }, { u"", u"[!]", false }, { u"Hello", u"[A-Z][a-z]*", true },
    { u"hello", u"[A-Z][a-z]*", false },
    // Code units beyond ASCII.
    { u"\u00e9", u"?", true }, { u"\u00e9", u"e", false }, { u"\u00e9", u"[\u00e0-\u00fc]", true },
    { u"\u0660", u"#", false }, // other scripts' digits are not decimal digits here
    { u"\U0001F600", u"?", false }, { u"\U0001F600", u"??", true }, // a surrogate pair is two code units
    { u"\uffff", u"[\u0100-\uffff]", true }, { u"\u00ff", u"[!a-z]", true },
    // Malformed patterns answer false whatever the text.
    { u"[", u"[", false }, { u"a-", u"[a-", false }, { u"abc[", u"abc[", false },
    { u"abc", u"abc[", false }, // the fault comes after the text has matched in full
    { u"z", u"[z-a]", false }, { u"[!", u"[!", false },
    { u"abc", u"abc*[", false }, // the star would take the empty rest
    { u"abc", u"*[c-a]*", false },
    { u"ab", u"x*[", false }, // the fault comes after matching has already failed
};

TEST(MatchPatternTest, MatchesEveryUnitOfThePatternLanguage) {
    for (const MatchCase& c : kMatchCases) {
        SCOPED_TRACE("text " + Printable(c.text) + ", pattern " + Printable(c.pattern));
        EXPECT_EQ(MatchPattern(c.text, c.pattern), c.expected);
    }
}

TEST(PatternUnitCountTest, CountsUnitsOrRejects) {
    // `[[]]` is `[[]` then a literal `]`.
    const std::pair<std::u16string_view, std::optional<size_t>> cases[]
        = { { u"", 0 }, { u"a*?#", 4 }, { u"**", 2 }, { u"[a-c]x", 2 }, { u"[[]]", 2 }, { u"[][!]", 2 },
              { u"[a-]-", 2 }, { u"a[b", std::nullopt }, { u"[z-a]", std::nullopt } };
    for (const auto& [pattern, expected] : cases) {
        SCOPED_TRACE("pattern " + Printable(pattern));
        EXPECT_EQ(detail::PatternUnitCount(pattern), expected);
    }
}

std::u16string Repeat(std::u16string_view piece, size_t count) {
    std::u16string out;
    for (size_t i = 0; i < count; ++i)
        out += piece;
    return out;
}

struct PathologicalCase {
    // The text: `piece` repeated up to about n code units, then `tail`.
    std::u16string_view piece, tail;
    // The pattern itself, or the name of the one `makePattern` builds.
    std::u16string_view pattern;
    std::u16string (*makePattern)(size_t n);
    bool expected;
    // The last-star matcher is linear on this pair, not just within the product bound.
    bool linear;
};

const PathologicalCase kPathologicalCases[] = {
    { u"a", u"", u"a*a*a*a*a*a*a*a*b", nullptr, false, true },
    // A trailing star leaves the work to the star matcher rather than the check of the end of the text.
    { u"a", u"", u"a*a*a*a*a*a*a*a*b*", nullptr, false, true },
    { u"aabbccddeeffgghhiijjkkllmmnnooppqqrrssttuuvvwwxxyyzz", u"a",
        u"a*b*c*d*e*f*g*h*i*j*k*l*m*n*o*p*q*r*s*t*u*v*w*x*y*z", nullptr, false, true },
    { u"aabbccddeeffgghhiijjkkllmmnnooppqqrrssttuuvvwwxxyyzz", u"a",
        u"a*b*c*d*e*f*g*h*i*j*k*l*m*n*o*p*q*r*s*t*u*v*w*x*y*z*", nullptr, true, true },
    { u"7", u"", u"*#*#*#*#*#x", nullptr, false, true },
    { u"7", u"", u"*#*#*#*#*#x*", nullptr, false, true },
    { u"a", u"", u"*[a-y]*[a-y]*[a-y]*z", nullptr, false, true },
    { u"a", u"", u"*[a-y]*[a-y]*[a-y]*z*", nullptr, false, true },
    { u"a", u"", u"n-1 ?", [](size_t n) { return Repeat(u"?", n - 1); }, false, true },
    { u"a", u"", u"n ?", [](size_t n) { return Repeat(u"?", n); }, true, true },
    { u"a", u"", u"n+1 ?", [](size_t n) { return Repeat(u"?", n + 1); }, false, true },
    { u"a", u"", u"n-1 ? then [!b-z]", [](size_t n) { return Repeat(u"?", n - 1) + u"[!b-z]"; }, true, true },
    { u"a", u"", u"n-1 ? then [!a-y]", [](size_t n) { return Repeat(u"?", n - 1) + u"[!a-y]"; }, false,
        true },
    // Every start after the star fits 64 characters before failing: quadratic by nature.
    { u"a", u"", u"*, 64 ?, [!a-y]*", [](size_t) { return u'*' + Repeat(u"?", 64) + u"[!a-y]*"; }, false,
        false },
    { u"a", u"", u"*, 64 a, b*", [](size_t) { return u'*' + Repeat(u"a", 64) + u"b*"; }, false, false },
};

TEST(MatchPatternTest, StepsStayWithinProductBoundOnPathologicalPairs) {
    for (const size_t n : { 1000u, 10000u, 65536u }) {
        for (const PathologicalCase& c : kPathologicalCases) {
            SCOPED_TRACE(Printable(c.pattern) + ", n = " + std::to_string(n));
            const std::u16string text = Repeat(c.piece, n / c.piece.size()) + std::u16string(c.tail);
            const std::u16string pattern = c.makePattern ? c.makePattern(n) : std::u16string(c.pattern);
            const std::optional<size_t> m = detail::PatternUnitCount(pattern);
            ASSERT_TRUE(m.has_value());
            const detail::PatternMatchStats stats = detail::MatchPatternCounted(text, pattern);
            EXPECT_EQ(stats.matched, c.expected);
            EXPECT_EQ(MatchPattern(text, pattern), c.expected);
            EXPECT_LE(stats.steps, (text.size() + 1) * (*m + 1));
            if (c.linear) {
                EXPECT_LE(stats.steps, 4 * (text.size() + *m));
            }
        }
    }
}

} // namespace
} // namespace quillmar
