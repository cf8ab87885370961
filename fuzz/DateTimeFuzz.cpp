// The date and time parser under three locales. A parsed value's text parses back to the same value, holds
// ":" exactly when it shows a time, and can be typed into a field of its class one character at a time
// (each beginning passes the date or time shape test).
#include "fuzz/FuzzSupport.h"
#include "input/Shapes.h"
#include "validation/Conversions.h"
#include "validation/DateTime.h"

#include <algorithm>
#include <cmath>

namespace quillmar::fuzz {
namespace {

constexpr size_t kMaxTextLength = 300;

void CheckTypeable(std::u16string_view shown, bool isTime, const LocaleInfo& locale) {
    for (size_t length = 0; length <= shown.size(); ++length) {
        const std::u16string_view begun = shown.substr(0, length);
        if (isTime)
            Require(TimeShapeTest(begun), "a beginning of a time's text fails the time shape", shown, begun);
        else
            Require(DateShapeTest(begun, locale), "a beginning of a date's text fails the date shape", shown,
                begun);
    }
}

} // namespace
} // namespace quillmar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quillmar;
    using namespace quillmar::fuzz;
    ByteReader reader({ data, size });
    const LocaleInfo& locale = Locales()[reader.Pick(3)];
    const std::u16string text = reader.Rest();
    if (text.size() > kMaxTextLength) return 0;

    const auto parsed = ParseDateTime(text, locale);
    Require(IsDateText(text, locale) == parsed.has_value(), "IsDateText disagrees with the parser", text);
    Require(
        TextToDateTime(text, locale).days == (parsed ? parsed->days : 0.0), "TextToDateTime disagrees", text);
    if (!parsed) return 0;
    Require(
        std::isfinite(parsed->days) && (parsed->hasDate || parsed->hasTime), "a parse without a value", text);

    const std::u16string shown = FormatDateTime(Date { parsed->days }, locale);
    Require(!shown.empty(), "a parsed date-time has no text", text);
    const auto again = ParseDateTime(shown, locale);
    Require(again && again->days == parsed->days, "a date-time's text parses back differently", text, shown);
    const double whole = std::trunc(parsed->days);
    const bool showsTime = whole == 0 || parsed->days != whole;
    Require(
        (shown.find(u':') != std::u16string::npos) == showsTime, "a time's text without ':'", text, shown);

    // What a field of the class accepts on leaving it must be what a user could have typed into it.
    const bool isTime = ClassifyDateTime(Variant(shown), locale) == TimeClass;
    Require(ConvertToType(shown, isTime ? vldTime : vldDate, locale) == Variant(Date { parsed->days }),
        "a date-time's text converts to another value", text, shown);
    const bool dateAndTime = whole != 0 && parsed->days != whole;
    if (!dateAndTime) CheckTypeable(shown, isTime, locale);

    // So must any date, or time of day, the parser accepts as written without blanks around or inside it
    // (the shape takes one space, before the designator of a time).
    if (parsed->hasDate && parsed->hasTime) return 0;
    const size_t blanks = std::count_if(
        text.begin(), text.end(), [](char16_t c) { return c == u' ' || c == u'\t' || c == u'\u00A0'; });
    const bool oneInnerSpace = blanks == 1 && parsed->hasTime && text.front() != u' ' && text.back() != u' '
        && text.find(u' ') != std::u16string::npos;
    if (blanks == 0 || oneInnerSpace) CheckTypeable(text, parsed->hasTime, locale);
    return 0;
}
