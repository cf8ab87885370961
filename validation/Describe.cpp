#include "validation/Describe.h"

#include "validation/Conversions.h"
#include "validation/Numbers.h"
#include "validation/Pattern.h"

#include <unicode/datefmt.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace quillmar {
namespace {

bool IsIntegralType(int32_t type) {
    return type == vldByte || type == vldInteger || type == vldLong;
}

std::u16string NumberPhrase(
    const Settings& settings, const LocaleInfo& locale, const MessageCatalogue& catalogue) {
    const bool minNumeric = NumberOf(settings.MinValue, locale).has_value();
    const bool maxNumeric = NumberOf(settings.MaxValue, locale).has_value();
    // -1 negative, 0 no sign worded, 1 positive.
    int sign = 0;
    if (!minNumeric && settings.MustBePositive) sign = 1;
    if (!maxNumeric && settings.MustBeNegative) sign = -1;
    static constexpr MessageId kIntegers[]
        = { MessageId::ANegativeInteger, MessageId::AnInteger, MessageId::APositiveInteger };
    static constexpr MessageId kNumbers[]
        = { MessageId::ANegativeNumber, MessageId::ANumber, MessageId::APositiveNumber };
    const std::u16string noun
        = ComposeMessage(catalogue, (IsIntegralType(settings.MustBeType) ? kIntegers : kNumbers)[sign + 1]);
    if (minNumeric && maxNumeric)
        return ComposeMessage(catalogue, MessageId::NumberBetween,
            { noun, TextOf(settings.MinValue, locale), TextOf(settings.MaxValue, locale) });
    if (minNumeric)
        return ComposeMessage(
            catalogue, MessageId::NumberAtLeast, { noun, TextOf(settings.MinValue, locale) });
    if (maxNumeric)
        return ComposeMessage(
            catalogue, MessageId::NumberAtMost, { noun, TextOf(settings.MaxValue, locale) });
    return noun;
}

std::u16string DateTimePhrase(
    const Settings& settings, const LocaleInfo& locale, const MessageCatalogue& catalogue) {
    const bool isDate = settings.MustBeType == vldDate;
    const int wantedClass = isDate ? DateClass : TimeClass;
    const bool minFits = ClassifyDateTime(settings.MinValue, locale) == wantedClass;
    const bool maxFits = ClassifyDateTime(settings.MaxValue, locale) == wantedClass;
    if (minFits && maxFits)
        return ComposeMessage(catalogue, isDate ? MessageId::DateBetween : MessageId::TimeBetween,
            { TextOf(settings.MinValue, locale), TextOf(settings.MaxValue, locale) });
    if (minFits)
        return ComposeMessage(catalogue, isDate ? MessageId::DateAfter : MessageId::TimeAfter,
            { TextOf(settings.MinValue, locale) });
    if (maxFits)
        return ComposeMessage(catalogue, isDate ? MessageId::DateBefore : MessageId::TimeBefore,
            { TextOf(settings.MaxValue, locale) });
    return {};
}

// The character a list unit stands for in the example, or 0 when none fits. `next` receives the index
// past the list.
char16_t ListExample(std::u16string_view mask, size_t open, size_t& next, int letter, int digit) {
    const size_t bodyStart = open + 1 + (open + 1 < mask.size() && mask[open + 1] == u'!' ? 1 : 0);
    const size_t close = mask.find(u']', bodyStart);
    if (close == std::u16string_view::npos) {
        next = mask.size();
        return 0;
    }
    next = close + 1;
    const std::u16string_view unit = mask.substr(open, next - open);
    std::vector<char16_t> candidates { static_cast<char16_t>(u'A' + letter % 26),
        static_cast<char16_t>(u'a' + letter % 26), static_cast<char16_t>(u'0' + (digit + 1) % 10) };
    for (char16_t c = u'A'; c <= u'Z'; ++c)
        candidates.push_back(c);
    for (char16_t c = u'0'; c <= u'9'; ++c)
        candidates.push_back(c);
    for (char16_t c : mask.substr(bodyStart, close - bodyStart))
        candidates.push_back(c);
    for (char16_t c : candidates)
        if (MatchPattern(std::u16string_view(&c, 1), unit)) return c;
    return 0;
}

std::unique_ptr<icu::DateFormat> ShortFormat(bool date, const LocaleInfo& locale) {
    const icu::Locale icuLocale(locale.name.substr(0, locale.name.find_first_of(".@")).c_str());
    std::unique_ptr<icu::DateFormat> format(date
            ? icu::DateFormat::createDateInstance(icu::DateFormat::kShort, icuLocale)
            : icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, icuLocale));
    if (format) format->setTimeZone(*icu::TimeZone::getGMT());
    return format;
}

std::u16string Formatted(const icu::DateFormat& format, UDate when) {
    icu::UnicodeString text;
    format.format(when, text);
    return std::u16string(text.getBuffer(), static_cast<size_t>(text.length()));
}

std::u16string DatePlaceholder(const LocaleInfo& locale, int32_t year) {
    const std::unique_ptr<icu::DateFormat> format = ShortFormat(true, locale);
    if (!format) return {};
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar calendar(*icu::TimeZone::getGMT(), status);
    if (U_FAILURE(status)) return {};
    calendar.clear();
    calendar.set(year, UCAL_DECEMBER, 31, 12, 0);
    const UDate when = calendar.getTime(status);
    return U_SUCCESS(status) ? Formatted(*format, when) : std::u16string();
}

std::u16string TimePlaceholder(const LocaleInfo& locale) {
    const std::unique_ptr<icu::DateFormat> format = ShortFormat(false, locale);
    constexpr UDate kFiveThirtyPm = (17 * 60 + 30) * 60 * 1000.0;
    return format ? Formatted(*format, kFiveThirtyPm) : std::u16string();
}

} // namespace

std::u16string CharacterList(std::u16string_view set, const MessageCatalogue& catalogue) {
    constexpr size_t kMostListed = 24;
    std::vector<char32_t> listed;
    for (size_t i = 0; i < set.size();) {
        char32_t c = 0;
        U16_NEXT(set.data(), i, set.size(), c);
        if (c < 0x20 || (c >= 0x7F && c < 0xA0)) return {};
        if (std::find(listed.begin(), listed.end(), c) != listed.end()) continue;
        if (listed.size() == kMostListed) return {};
        listed.push_back(c);
    }
    const auto runClass = [](char32_t c) {
        if (c >= u'0' && c <= u'9') return 1;
        if (c >= u'A' && c <= u'Z') return 2;
        if (c >= u'a' && c <= u'z') return 3;
        return 0;
    };
    std::u16string words;
    const std::u16string space = ComposeMessage(catalogue, MessageId::SpaceName);
    const auto append = [&words, &space](char32_t c) {
        if (c == u' ') {
            words += space;
        } else if (c > 0xFFFF) {
            words += U16_LEAD(c);
            words += U16_TRAIL(c);
        } else {
            words += static_cast<char16_t>(c);
        }
    };
    for (size_t i = 0; i < listed.size();) {
        size_t end = i + 1;
        while (end < listed.size() && runClass(listed[i]) != 0 && runClass(listed[end]) == runClass(listed[i])
            && listed[end] == listed[end - 1] + 1)
            ++end;
        if (!words.empty()) words += u' ';
        append(listed[i]);
        if (end - i >= 3) {
            words += u'\u2013';
            append(listed[end - 1]);
        } else {
            end = i + 1;
        }
        i = end;
    }
    return words;
}

std::u16string RequirementPhrase(
    const Settings& settings, const LocaleInfo& locale, const MessageCatalogue& catalogue) {
    if (IsNumericType(settings.MustBeType)) return NumberPhrase(settings, locale, catalogue);
    if (IsDateTimeType(settings.MustBeType)) return DateTimePhrase(settings, locale, catalogue);
    return {};
}

std::u16string MaskExample(std::u16string_view mask) {
    std::u16string example;
    int letter = 0;
    int digit = 0;
    for (size_t i = 0; i < mask.size();) {
        const char16_t unit = mask[i];
        char16_t c = unit;
        size_t next = i + 1;
        if (unit == u'*') {
            i = next;
            continue;
        }
        if (unit == u'#' || unit == u'?') {
            c = unit == u'#' ? static_cast<char16_t>(u'0' + (digit + 1) % 10)
                             : static_cast<char16_t>(u'A' + letter % 26);
        } else if (unit == u'[') {
            c = ListExample(mask, i, next, letter, digit);
            if (c == 0) return {};
        }
        if (c >= u'0' && c <= u'9' && unit != c) ++digit;
        if (((c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z')) && unit != c) ++letter;
        example += c;
        i = next;
    }
    // A mask that no text matches (an empty or malformed list) has no example.
    return MatchPattern(example, mask) ? example : std::u16string();
}

std::u16string DescribeRules(const Settings& settings, const LocaleInfo& locale, int32_t maxLength,
    const MessageCatalogue& catalogue) {
    const int32_t type = settings.MustBeType;
    if (IsNumericType(type)) {
        std::u16string phrase = NumberPhrase(settings, locale, catalogue);
        if (!IsIntegralType(type) && settings.MaxNumberOfDecimals >= 1)
            phrase = ComposeMessage(catalogue,
                settings.MaxNumberOfDecimals == 1 ? MessageId::AtMostDecimal : MessageId::AtMostDecimals,
                { phrase, FormatInteger(settings.MaxNumberOfDecimals) });
        return phrase;
    }
    if (IsDateTimeType(type)) {
        const std::u16string phrase = DateTimePhrase(settings, locale, catalogue);
        if (!phrase.empty()) return phrase;
        return ComposeMessage(catalogue, type == vldDate ? MessageId::ADate : MessageId::ATime);
    }
    std::vector<std::u16string> parts;
    const auto part = [&](MessageId id, std::initializer_list<std::u16string_view> args = {}) {
        parts.push_back(ComposeMessage(catalogue, id, args));
    };
    // The characters the author added are exempt from the letter rules and from the valid set: the words
    // name them with the rule, as the refusal tips do.
    const std::u16string added = CharacterList(settings.ExtraIncludedCharacters, catalogue);
    if (settings.OnlyLetters) {
        if (added.empty())
            part(MessageId::LettersOnly);
        else
            part(MessageId::LettersAndOnly, { added });
    }
    if (settings.OnlyLettersWithSpace) {
        if (added.empty())
            part(MessageId::LettersAndSpacesOnly);
        else
            part(MessageId::LettersSpacesAndOnly, { added });
    }
    if (const std::u16string valid
        = CharacterList(settings.ValidCharactersSet + settings.ExtraIncludedCharacters, catalogue);
        !settings.ValidCharactersSet.empty() && !valid.empty())
        part(MessageId::OnlyCharacters, { valid });
    if (settings.NoDigits) part(MessageId::NoDigits);
    // Lower case wins over upper case, as the typed keys are forced.
    if (settings.MustBeLowerCase)
        part(MessageId::LowerCase);
    else if (settings.MustBeUpperCase)
        part(MessageId::UpperCase);
    if (settings.MustBeProperCase) part(MessageId::ProperCase);
    if (maxLength > 0)
        part(maxLength == 1 ? MessageId::AtMostCharacter : MessageId::AtMostCharacters,
            { FormatInteger(maxLength) });
    if (const std::u16string example = MaskExample(settings.CustomMask); !example.empty())
        part(MessageId::LikeExample, { example });
    const std::u16string separator = ComposeMessage(catalogue, MessageId::RuleSeparator);
    std::u16string description;
    for (const std::u16string& each : parts) {
        if (!description.empty()) description += separator;
        description += each;
    }
    // The first rule begins with a capital, in any language's lower-case letters of the BMP.
    if (!description.empty() && !U16_IS_SURROGATE(description[0]))
        description[0] = static_cast<char16_t>(u_toupper(description[0]));
    return description;
}

std::u16string PlaceholderText(
    const Settings& settings, const LocaleInfo& locale, int32_t year, const MessageCatalogue& catalogue) {
    const int32_t type = settings.MustBeType;
    if (type == vldDate) return DatePlaceholder(locale, year);
    if (type == vldTime) return TimePlaceholder(locale);
    if (IsNumericType(type)) {
        const bool minNumeric = NumberOf(settings.MinValue, locale).has_value();
        const bool maxNumeric = NumberOf(settings.MaxValue, locale).has_value();
        if (minNumeric && maxNumeric)
            return ComposeMessage(catalogue, MessageId::RangePlaceholder,
                { TextOf(settings.MinValue, locale), TextOf(settings.MaxValue, locale) });
        if (minNumeric)
            return ComposeMessage(
                catalogue, MessageId::AtLeastPlaceholder, { TextOf(settings.MinValue, locale) });
        if (maxNumeric)
            return ComposeMessage(
                catalogue, MessageId::AtMostPlaceholder, { TextOf(settings.MaxValue, locale) });
        return {};
    }
    return MaskExample(settings.CustomMask);
}

} // namespace quillmar
