#include "input/Shapes.h"

#include "validation/Numbers.h"
#include "validation/NumericText.h"
#include "validation/Rules.h"

#include <algorithm>
#include <array>

namespace quillmar {
namespace {

bool IsDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}
bool IsDateSeparator(char16_t c) {
    return c == u'/' || c == u'-' || c == u'.';
}
char16_t Upper(char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - 32) : c;
}

enum class Part { Day, Month, Year };

struct Component {
    int digits = 0;
    int value = 0;
};

std::array<Part, 3> PartsInOrder(DateOrder order) {
    switch (order) {
    case DateOrder::DayMonthYear:
        return { Part::Day, Part::Month, Part::Year };
    case DateOrder::YearMonthDay:
        return { Part::Year, Part::Month, Part::Day };
    default:
        return { Part::Month, Part::Day, Part::Year };
    }
}

// Whether a component can still be (or grow into) a valid part; `complete` when a separator followed it.
// The parser reads every part with up to four digits, so a day or a month may carry leading zeros.
bool ComponentFits(Part part, const Component& c, bool complete) {
    if (c.digits == 0) return !complete;
    switch (part) {
    case Part::Day:
        return c.value <= 31 && (!complete || c.value >= 1);
    case Part::Month:
        return c.value <= 12 && (!complete || c.value >= 1);
    default:
        return c.digits <= 4 && (!complete || c.digits != 3 || c.value >= 100);
    }
}

} // namespace

bool DateShapeTest(std::u16string_view text, const LocaleInfo& locale) {
    std::array<Component, 3> components {};
    size_t count = 1;
    for (char16_t c : text) {
        if (IsDigit(c)) {
            Component& current = components[count - 1];
            if (++current.digits > 4) return false;
            current.value = current.value * 10 + (c - u'0');
        } else if (IsDateSeparator(c)) {
            if (count == 3) return false;
            ++count;
        } else {
            return false;
        }
    }
    // A lone first number of one or two digits may still grow into a year, whatever it reads as now.
    if (count == 1 && components[0].digits <= 2) return true;
    // A first number of three or more digits is a year and puts the parts in year, month, day order.
    const std::array<Part, 3> parts
        = components[0].digits >= 3 ? PartsInOrder(DateOrder::YearMonthDay) : PartsInOrder(locale.dateOrder);
    int day = 0;
    int month = 0;
    for (size_t i = 0; i < count; ++i) {
        const bool complete = i + 1 < count;
        if (!ComponentFits(parts[i], components[i], complete)) return false;
        if (parts[i] == Part::Day && complete) day = components[i].value;
        if (parts[i] == Part::Month && complete) month = components[i].value;
    }
    constexpr int kLongestMonth[] = { 0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31 };
    return day == 0 || month == 0 || day <= kLongestMonth[month];
}

bool TimeShapeTest(std::u16string_view text) {
    enum class State { Hours, Minutes, Seconds, Space, Designator, Done };
    State state = State::Hours;
    int digits = 0;
    int value = 0;
    int hours = 0;
    for (char16_t c : text) {
        const char16_t u = Upper(c);
        if (IsDigit(c) && (state == State::Hours || state == State::Minutes || state == State::Seconds)) {
            value = value * 10 + (c - u'0');
            if (++digits > 2 || value > (state == State::Hours ? 23 : 59)) return false;
            if (state == State::Hours) hours = value;
        } else if (c == u':' && digits > 0 && (state == State::Hours || state == State::Minutes)) {
            state = state == State::Hours ? State::Minutes : State::Seconds;
            digits = value = 0;
        } else if (c == u' ' && digits > 0 && (state == State::Minutes || state == State::Seconds)) {
            state = State::Space;
        } else if ((u == u'A' || u == u'P')
            && ((digits > 0 && (state == State::Minutes || state == State::Seconds))
                || state == State::Space)) {
            if (hours > 12) return false;
            state = State::Designator;
        } else if (u == u'M' && state == State::Designator) {
            state = State::Done;
        } else {
            return false;
        }
    }
    return true;
}

bool TextCharacterAllowed(char16_t c, const Settings& settings) noexcept {
    return TextCharacterRefusal(c, settings) == Refusal::None;
}

Refusal TextCharacterRefusal(char16_t c, const Settings& settings) noexcept {
    if (CharInSet(c, settings.ExtraExcludedCharacters)) return Refusal::ExcludedCharacter;
    if (CharInSet(c, settings.ExtraIncludedCharacters)) return Refusal::None;
    if (!settings.ValidCharactersSet.empty() && !CharInSet(c, settings.ValidCharactersSet))
        return Refusal::CharacterSet;
    if (settings.NoDigits && IsDigit(c)) return Refusal::NoDigits;
    if (!settings.OnlyLetters && !settings.OnlyLettersWithSpace) return Refusal::None;
    // Any character of code 127 or above counts as a letter.
    if (c >= 127 || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z')
        || (c == u' ' && settings.OnlyLettersWithSpace))
        return Refusal::None;
    return settings.OnlyLettersWithSpace ? Refusal::OnlyLettersWithSpace : Refusal::OnlyLetters;
}

int32_t SiftingType(const TypeFlags& flags) noexcept {
    if (flags.TypeIsTime) return vldTime;
    if (flags.TypeIsDate) return vldDate;
    if (!flags.NumericMode) return vldString;
    if (flags.TypeIsByte) return vldByte;
    if (flags.TypeIsInteger) return vldInteger;
    if (flags.TypeIsLong) return vldLong;
    if (flags.TypeIsSingle) return vldSingle;
    if (flags.TypeIsCurrency) return vldCurrency;
    return vldDouble;
}

bool WholeTextTest(
    std::u16string_view text, const TypeFlags& flags, const Settings& settings, const LocaleInfo& locale) {
    return WholeTextRefusal(text, flags, settings, locale) == Refusal::None;
}

Refusal WholeTextRefusal(
    std::u16string_view text, const TypeFlags& flags, const Settings& settings, const LocaleInfo& locale) {
    const int32_t type = SiftingType(flags);
    // A character outside the type's own is named before the shape, so that "x" in a date is refused as the
    // letter it is rather than as a date that could not be.
    const auto outside = [text](std::u16string_view characters) {
        return std::any_of(text.begin(), text.end(), [&](char16_t c) { return !CharInSet(c, characters); });
    };
    if (type == vldTime) {
        if (TimeShapeTest(text)) return Refusal::None;
        return outside(kTimeCharacters) ? Refusal::TimeCharacter : Refusal::TimeShape;
    }
    if (type == vldDate) {
        if (DateShapeTest(text, locale)) return Refusal::None;
        return outside(kDateCharacters) ? Refusal::DateCharacter : Refusal::DateShape;
    }
    if (type == vldString) {
        for (char16_t c : text)
            if (const Refusal refusal = TextCharacterRefusal(c, settings); refusal != Refusal::None)
                return refusal;
        return Refusal::None;
    }
    const std::u16string thousands = ThousandsSeparator(settings.ThousandSeparator, locale);
    if (NumericWholeTextTest(text, type, settings.AllowScientificFormat, thousands, locale))
        return Refusal::None;
    const bool integral = type == vldByte || type == vldInteger || type == vldLong;
    const bool scientific = settings.AllowScientificFormat && (type == vldSingle || type == vldDouble);
    for (const char16_t c : text) {
        if (c == locale.decimalSeparator) {
            if (integral) return Refusal::WholeNumber;
        } else if ((thousands.empty() || c != thousands[0])
            && !CharInSet(c, scientific ? u"0123456789-+eE" : u"0123456789-")) {
            return Refusal::NumberCharacter;
        }
    }
    return Refusal::NumberShape;
}

} // namespace quillmar
