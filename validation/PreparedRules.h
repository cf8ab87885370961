#pragma once

#include "base/LocaleInfo.h"
#include "base/Settings.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar {

struct ColumnRuns;

/// One field's rules made ready for checking many texts: the locale facts, the limits and forbidden values
/// converted once, the thousands separator and the decimal count, and a table of what each ASCII character
/// breaks. `Evaluate` gives exactly the bits of `EvaluateRules` for the settings, locale and edit-box limit
/// it was prepared with, and allocates nothing on its way (save for a number with more than 64 significant
/// digits, which takes the general path, and an ASCII text longer than 256 characters that a short way is
/// unsure of, which is widened on the heap). The commonest texts (plain numbers, with or without the
/// locale's group separators, short dates and times, texts under a mask without `*`) are judged in one pass;
/// whatever such a short way is unsure of goes the full way. A prepared field is immutable and may be shared
/// between threads. The interactive control keeps calling `EvaluateRules`, since its settings may change
/// between two calls.
class PreparedRules {
public:
    /// Prepares the rules of `settings` under `locale` for an edit box limited to `maxLength` (0: none).
    PreparedRules(const Settings& settings, const LocaleInfo& locale, int32_t maxLength);

    /// `EvaluateRules(text, settings, locale, maxLength)` of the prepared field.
    [[nodiscard]] int32_t Evaluate(std::u16string_view text) const noexcept;
    /// `Evaluate` of a text of ASCII characters given as its bytes (every one below 0x80): the same bits,
    /// read from the bytes themselves. Only a text the short ways are unsure of is widened to UTF-16 first
    /// (on the stack up to 256 characters).
    [[nodiscard]] int32_t EvaluateAscii(std::string_view text) const noexcept;

    /// What the field's `CheckInput` answers while it holds the text: 0 for a field of `vldUnspecified`,
    /// otherwise `Evaluate(text)`.
    [[nodiscard]] int32_t CheckInput(std::u16string_view text) const noexcept {
        return m_settings.MustBeType == vldUnspecified ? 0 : Evaluate(text);
    }

    /// `CheckInput` of the texts of `column` from `from` up to `to`, each written to `bits` at its index: the
    /// field's kind is asked once for them all rather than once a text.
    void CheckRuns(const ColumnRuns& column, size_t from, size_t to, int32_t* bits) const noexcept;

    /// `CheckInput` of a text of ASCII characters given as its bytes, as `EvaluateAscii` reads them.
    [[nodiscard]] int32_t CheckInputAscii(std::string_view text) const noexcept {
        return m_settings.MustBeType == vldUnspecified ? 0 : EvaluateAscii(text);
    }

    [[nodiscard]] const Settings& settings() const noexcept { return m_settings; }
    /// Distinct for each prepared field (a copy keeps it, being the same rules), so that what is remembered
    /// of a field's bits is never taken for another's.
    [[nodiscard]] uint64_t identity() const noexcept { return m_identity; }
    [[nodiscard]] const LocaleInfo& locale() const noexcept { return m_locale; }
    [[nodiscard]] int32_t maxLength() const noexcept { return m_maxLength; }

private:
    enum class Kind : uint8_t { Text, Number, DateTime };
    int32_t EvaluateWidened(std::string_view text) const noexcept;
    int32_t DateTimeRules(std::u16string_view text) const noexcept;
    template <typename Char> int32_t ShortDateTimeRules(std::basic_string_view<Char> text) const noexcept;
    int32_t DayRules(double days) const noexcept;
    template <typename Char>
    bool ReadShortTime(std::basic_string_view<Char> text, std::optional<double>& days) const noexcept;
    int32_t NumericRules(std::u16string_view text) const noexcept;
    template <typename Char> int32_t PlainNumberRules(std::basic_string_view<Char> text) const noexcept;
    int32_t ValueRules(double value) const noexcept;
    template <typename Char> int32_t TextRules(std::basic_string_view<Char> text) const noexcept;
    int32_t AsciiTextRules(std::string_view text) const noexcept;
    template <typename Char> bool MatchesMask(std::basic_string_view<Char> text) const noexcept;
    bool HasTooManyDecimals(std::u16string_view text) const noexcept;
    int32_t CaseRulesOfCodePoint(std::u16string_view text, size_t& at) const noexcept;

    uint64_t m_identity;
    Settings m_settings;
    Kind m_kind = Kind::Text;
    LocaleInfo m_locale;
    int32_t m_maxLength = 0;
    // Numbers, dates and times: the limits and forbidden values that convert, as the checker compares them.
    std::optional<double> m_minimum;
    std::optional<double> m_maximum;
    std::vector<double> m_forbiddenValues;
    std::u16string m_thousands;
    // The group separator plain numbers may hold, and the locale's group sizes (the last group's, the ones
    // before it); 0 when the short way for numbers takes no group separator.
    char16_t m_plainGroupSeparator = 0;
    size_t m_primaryGroup = 0;
    size_t m_secondaryGroup = 0;
    // For a time field, what "AM", "PM", "am" and "pm" after a time stand for in the locale: 1 before noon, 2
    // after, 0 unknown (such texts go the full way).
    std::array<int8_t, 4> m_designators {};
    // Texts: the forbidden texts, and per ASCII code unit the character and case rules it breaks.
    std::vector<std::u16string> m_forbiddenTexts;
    std::array<int32_t, 128> m_asciiBits {};
    bool m_anyCharacterRule = false;
    bool m_anyAsciiBits = false;
    // A mask without `*`: per unit, whether it takes each ASCII character; empty otherwise.
    std::vector<std::array<uint8_t, 128>> m_maskUnits;
};

} // namespace quillmar
