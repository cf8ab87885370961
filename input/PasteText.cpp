#include "input/PasteText.h"

#include "input/Shapes.h"
#include "validation/Numbers.h"
#include "validation/NumericText.h"

#include <unicode/dcfmtsym.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utf16.h>

namespace quillmar {
namespace {

std::u16string ToU16(const icu::UnicodeString& text) {
    return std::u16string(text.getBuffer(), static_cast<size_t>(text.length()));
}

icu::Locale IcuLocale(const LocaleInfo& locale) {
    return icu::Locale(locale.name.substr(0, locale.name.find_first_of(".@")).c_str());
}

bool IsAsciiDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

bool IsApostrophe(char16_t c) {
    return c == u'\'' || c == 0x2019 || c == 0x02BC;
}

void RemoveAll(std::u16string& text, std::u16string_view symbol) {
    if (symbol.empty()) return;
    std::u16string kept;
    kept.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        if (text.compare(i, symbol.size(), symbol) == 0) {
            i += symbol.size();
        } else {
            kept += text[i++];
        }
    }
    text = std::move(kept);
}

// Digits of every script to ASCII, dashes to "-", full-width forms to their ASCII compatibility forms.
std::u16string ToAscii(std::u16string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* nfkc = icu::Normalizer2::getNFKCInstance(status);
    if (U_FAILURE(status)) nfkc = nullptr;
    std::u16string result;
    result.reserve(text.size());
    const int32_t length = static_cast<int32_t>(text.size());
    for (int32_t i = 0; i < length;) {
        const int32_t start = i;
        UChar32 c = 0;
        U16_NEXT(text.data(), i, length, c);
        if (c < 0x80) {
            result += static_cast<char16_t>(c);
            continue;
        }
        if (u_charType(c) == U_DECIMAL_DIGIT_NUMBER) {
            result += static_cast<char16_t>(u'0' + u_charDigitValue(c));
            continue;
        }
        if (u_hasBinaryProperty(c, UCHAR_DASH)) {
            result += u'-';
            continue;
        }
        if (nfkc && ublock_getCode(c) == UBLOCK_HALFWIDTH_AND_FULLWIDTH_FORMS) {
            UErrorCode mapStatus = U_ZERO_ERROR;
            const icu::UnicodeString mapped = nfkc->normalize(icu::UnicodeString(c), mapStatus);
            if (U_SUCCESS(mapStatus) && mapped.length() == 1 && mapped.charAt(0) < 0x80) {
                result += mapped.charAt(0);
                continue;
            }
        }
        result.append(text.substr(static_cast<size_t>(start), static_cast<size_t>(i - start)));
    }
    return result;
}

std::u16string_view Trimmed(std::u16string_view text) {
    size_t first = 0;
    size_t last = text.size();
    // Surrogates are never white space, so testing code units is enough.
    while (first < last && u_isUWhiteSpace(text[first]))
        ++first;
    while (last > first && u_isUWhiteSpace(text[last - 1]))
        --last;
    return text.substr(first, last - first);
}

// Group marks between two digits become `separator` (nothing, when it is empty).
std::u16string Regrouped(std::u16string_view text, std::u16string_view separator, const LocaleInfo& locale) {
    std::u16string result;
    result.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        const bool groupMark = IsSpaceLike(c) || IsApostrophe(c) || c == locale.groupSeparator;
        const bool betweenDigits = !result.empty() && IsAsciiDigit(result.back()) && i + 1 < text.size()
            && IsAsciiDigit(text[i + 1]);
        if (groupMark && betweenDigits && c != locale.decimalSeparator)
            result += separator;
        else
            result += c;
    }
    return result;
}

// True when the text is a number under the locale's grouping, or the beginning of one that a digit would
// complete ("-", "1,234.", "1E-"). A text ending in a digit is judged as complete: a paste brings a whole
// number, so "1,234,50" is a misgrouped number, not the beginning of "1,234,500".
bool IsNumberOrBeginning(std::u16string text, const LocaleInfo& locale) {
    if (!text.empty() && !IsAsciiDigit(text.back())) text += u'0';
    return IsNumericText(text, locale, Grouping::Locale);
}

} // namespace

std::optional<std::u16string> NormalizePastedText(
    std::u16string_view text, const Settings& settings, const TypeFlags& flags, const LocaleInfo& locale) {
    if (settings.InputSifting == vldNone) return std::u16string(text);
    if (!flags.NumericMode && !flags.TypeIsDate && !flags.TypeIsTime) return std::u16string(text);
    std::u16string raw(text);
    if (flags.TypeIsCurrency) {
        UErrorCode status = U_ZERO_ERROR;
        const icu::DecimalFormatSymbols symbols(IcuLocale(locale), status);
        if (U_SUCCESS(status)) {
            RemoveAll(raw, ToU16(symbols.getSymbol(icu::DecimalFormatSymbols::kCurrencySymbol)));
            RemoveAll(raw, ToU16(symbols.getSymbol(icu::DecimalFormatSymbols::kIntlCurrencySymbol)));
        }
    }
    const std::u16string ascii = ToAscii(raw);
    const std::u16string_view trimmed = Trimmed(ascii);
    if (!flags.NumericMode) {
        // A paste with nothing left in it goes on as it came, so that the field's sifting refuses it as it
        // refuses any wrong paste, instead of the paste doing nothing at all.
        if (trimmed.empty()) return std::u16string(text);
        return std::u16string(trimmed);
    }
    // The decision is taken on the marks as the locale's own groups, before any of them is dropped.
    if (!IsNumberOrBeginning(Regrouped(trimmed, std::u16string(1, locale.groupSeparator), locale), locale))
        return std::nullopt;
    const std::u16string thousands = ThousandsSeparator(settings.ThousandSeparator, locale);
    std::u16string result = Regrouped(trimmed, thousands, locale);
    if (!NumericWholeTextTest(result, SiftingType(flags), settings.AllowScientificFormat, thousands, locale))
        return std::nullopt;
    return result;
}

} // namespace quillmar
