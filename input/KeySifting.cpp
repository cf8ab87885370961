#include "input/KeySifting.h"

#include "input/Shapes.h"
#include "validation/Numbers.h"
#include "validation/NumericText.h"
#include "validation/Pattern.h"
#include "validation/Rules.h"
#include "validation/TextCase.h"

#include <algorithm>

namespace quillmar {
namespace {

char16_t KeyChar(int16_t keyAscii) {
    return static_cast<char16_t>(static_cast<uint16_t>(keyAscii));
}
int16_t KeyCode(char16_t c) {
    return static_cast<int16_t>(c);
}

KeyPressOutcome Refuse(Refusal refusal) {
    return { 0, true, std::nullopt, refusal };
}

// A separator written so that the pattern matcher reads it literally.
std::u16string Literal(std::u16string_view separator) {
    if (separator == u"*" || separator == u"?" || separator == u"#" || separator == u"[")
        return u"[" + std::u16string(separator) + u"]";
    return std::u16string(separator);
}

KeyPressOutcome SiftNumericKey(char16_t key, std::u16string current, int32_t selStart, int32_t selLength,
    const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale) {
    const std::u16string decimal = DecimalSeparator(locale);
    const std::u16string thousands = ThousandsSeparator(settings.ThousandSeparator, locale);
    // A space typed where the locale groups with a no-break space becomes that separator.
    if (!thousands.empty() && key != thousands[0] && IsGroupSeparator(key, thousands[0])) key = thousands[0];
    KeyPressOutcome outcome { KeyCode(key), false, std::nullopt };
    const bool isDecimal = key == decimal[0];
    const bool isThousands = !thousands.empty() && key == thousands[0];
    const bool floating = flags.TypeIsSingle || flags.TypeIsDouble;
    const bool scientific = settings.AllowScientificFormat && floating;

    if (scientific) {
        if (!CharInSet(key, u"0123456789-+eE") && !isDecimal) return Refuse(Refusal::NumberCharacter);
    } else if (!CharInSet(key, u"0123456789-") && !isDecimal && !isThousands) {
        return Refuse(Refusal::NumberCharacter);
    }
    if (isDecimal && current.find(key) != std::u16string::npos)
        return Refuse(Refusal::SecondDecimalSeparator);
    if (isThousands) {
        const std::u16string t = Literal(thousands);
        const std::u16string next = WouldBeText(current, selStart, selLength, key);
        if (MatchPattern(next, u"*" + t + t + u"*") || MatchPattern(next, t + u"*")
            || MatchPattern(next, u"*" + Literal(decimal) + u"*" + t + u"*"))
            return Refuse(Refusal::GroupSeparatorPlace);
    }
    if (settings.MustBeNegative && key != u'-' && (current.empty() || current[0] != u'-')) {
        current.insert(current.begin(), u'-');
        ++selStart;
        outcome.edit = TextEdit { current, selStart, selLength };
    }
    const auto refuse = [&](Refusal refusal) { return KeyPressOutcome { 0, true, outcome.edit, refusal }; };
    const Refusal notIntegral = isDecimal ? Refusal::WholeNumber : Refusal::NumberCharacter;
    if (flags.TypeIsByte && !CharInSet(key, u"0123456789")) return refuse(notIntegral);
    if ((flags.TypeIsInteger || flags.TypeIsLong) && !CharInSet(key, u"-0123456789") && !isThousands)
        return refuse(notIntegral);

    const char16_t beforeCaret = selStart > 0 ? current[static_cast<size_t>(selStart - 1)] : 0;
    const bool afterExponent = beforeCaret == u'e' || beforeCaret == u'E';
    if (scientific) {
        if (key == u'+' && !afterExponent) return refuse(Refusal::ExponentSign);
        if (!ScientificShapeTest(WouldBeText(current, selStart, selLength, key), locale))
            return refuse(Refusal::NumberShape);
    }
    if (key == u'-') {
        if (afterExponent) return outcome;
        if (settings.MustBePositive) return refuse(Refusal::PositiveNumber);
        if (!current.empty() && current[0] == u'-') return refuse(Refusal::SecondMinus);
        if (selStart == 0) return outcome;
        // A minus typed inside a number moves to the front.
        const std::u16string moved = u"-" + current;
        return { 0, false, TextEdit { moved, static_cast<int32_t>(moved.size()), 0 } };
    }
    return outcome;
}

KeyPressOutcome SiftTextKey(char16_t key, const Settings& settings) {
    if (settings.MustBeUpperCase) key = UpperCase(std::u16string(1, key))[0];
    if (settings.MustBeLowerCase) key = LowerCase(std::u16string(1, key))[0];
    if (const Refusal refusal = TextCharacterRefusal(key, settings); refusal != Refusal::None)
        return Refuse(refusal);
    return { KeyCode(key), false, std::nullopt };
}

} // namespace

std::u16string WouldBeText(std::u16string_view text, int32_t selStart, int32_t selLength, char16_t key) {
    const size_t start = std::min(static_cast<size_t>(std::max(selStart, 0)), text.size());
    const size_t end = std::min(start + static_cast<size_t>(std::max(selLength, 0)), text.size());
    std::u16string result;
    result.reserve(text.size() + 1);
    result.append(text.substr(0, start));
    result += key;
    result.append(text.substr(end));
    return result;
}

KeyPressOutcome SiftKeyPress(int16_t keyAscii, std::u16string_view text, int32_t selStart, int32_t selLength,
    const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale) {
    const char16_t key = KeyChar(keyAscii);
    if (flags.TypeIsTime) {
        if (!CharInSet(key, kTimeCharacters)) return Refuse(Refusal::TimeCharacter);
        if (!TimeShapeTest(WouldBeText(text, selStart, selLength, key))) return Refuse(Refusal::TimeShape);
        return { keyAscii, false, std::nullopt };
    }
    if (flags.TypeIsDate) {
        if (!CharInSet(key, kDateCharacters)) return Refuse(Refusal::DateCharacter);
        if (!DateShapeTest(WouldBeText(text, selStart, selLength, key), locale))
            return Refuse(Refusal::DateShape);
        return { keyAscii, false, std::nullopt };
    }
    if (flags.NumericMode)
        return SiftNumericKey(key, std::u16string(text), selStart, selLength, settings, flags, locale);
    return SiftTextKey(key, settings);
}

} // namespace quillmar
