// The pattern matcher on any pattern and text: it must not fault, must answer false for a malformed
// pattern, must keep its step bound, and must find every text in a pattern that spells it out.
#include "fuzz/FuzzSupport.h"
#include "validation/Pattern.h"

namespace quillmar::fuzz {
namespace {

// The pattern that matches exactly the text: the characters the matcher reads specially go in a list.
std::u16string Escaped(std::u16string_view text) {
    std::u16string pattern;
    for (const char16_t c : text) {
        if (c == u'*' || c == u'?' || c == u'#' || c == u'[')
            pattern += std::u16string { u'[', c, u']' };
        else
            pattern += c;
    }
    return pattern;
}

} // namespace
} // namespace quillmar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillmar;
    using namespace quillmar::fuzz;
    const auto [pattern, text] = PatternAndText({ data, size });

    const bool matched = MatchPattern(text, pattern);
    const detail::PatternMatchStats stats = detail::MatchPatternCounted(text, pattern);
    Require(stats.matched == matched, "the counted matcher answers differently", pattern, text);
    if (const auto units = detail::PatternUnitCount(pattern)) {
        Require(stats.steps <= (text.size() + 1) * (*units + 1), "more steps than (n+1)(m+1)", pattern, text);
    } else {
        Require(!matched, "a malformed pattern matched", pattern, text);
    }

    const std::u16string exact = Escaped(text);
    Require(MatchPattern(text, exact), "a text does not match its own escaped form", exact, text);
    Require(MatchPattern(text, u"*" + exact), "a text does not match a star and itself", exact, text);
    Require(MatchPattern(text, exact + u"*"), "a text does not match itself and a star", exact, text);
    Require(MatchPattern(text, u"*"), "a star does not match every text", text);
    return 0;
}
