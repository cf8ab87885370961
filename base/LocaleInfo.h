#pragma once

#include <quillmar/CoreExport.h>

#include <string>
#include <string_view>

namespace quillmar {

/// The order in which a locale writes the day, month and year of a short date.
enum class DateOrder {
    MonthDayYear, ///< 12/31/2024 (en_US).
    DayMonthYear, ///< 31.12.2024 (de_DE).
    YearMonthDay, ///< 2024-12-31 (sv_SE).
};

/// The locale facts the conversions need, as a plain value. The host hands one to the control
/// at every use, so a change of the user's locale takes effect at once.
struct QUILLMAR_CORE_EXPORT LocaleInfo {
    /// The ICU name the facts were read for ("de_DE"); "en_US_POSIX" for the invariant locale.
    std::string name = "en_US_POSIX";
    /// The character between the 0 and the 5 of one half written with one decimal.
    char16_t decimalSeparator = u'.';
    /// The second character of one thousand and one tenth written as "##,##0.00" (the digit-grouping
    /// character; U+202F in fr_FR, U+00A0 in some others).
    char16_t groupSeparator = u',';
    /// How many digits the group next to the decimal separator holds (3 in en_US, de_DE and en_IN); 0 when
    /// the locale does not group digits.
    int groupingSize = 3;
    /// How many digits each further group holds (3 in en_US, 2 in en_IN); the primary size when the locale
    /// has no secondary size.
    int secondaryGroupingSize = 3;
    /// The order of the parts of a short date.
    DateOrder dateOrder = DateOrder::MonthDayYear;
    /// The separator the locale writes between the parts of a short date ("/", "." or "-").
    char16_t dateSeparator = u'/';
    /// Whether the short date pattern pads the day and the month to two digits.
    ///@{
    bool padDay = false;
    bool padMonth = false;
    ///@}
    /// Whether the locale shows times on a 12-hour clock with a day-period designator.
    bool twelveHour = true;
    /// The locale's own morning and afternoon designators (for instance "AM" and "PM").
    ///@{
    std::u16string am = u"AM";
    std::u16string pm = u"PM";
    ///@}

    /// The facts of the named locale ("de_DE", "fr_FR.UTF-8", "ja_JP"), read from ICU's CLDR data.
    /// A name ICU does not know gives ICU's fallback (root) data; never throws. The facts of each name are
    /// read from ICU once per process (its data does not change) and then copied; safe from any thread.
    [[nodiscard]] static LocaleInfo FromName(std::string_view name);

    /// The locale of the process: the first non-empty of LC_ALL, LC_NUMERIC and LANG;
    /// "C", "POSIX" or nothing give en_US.
    [[nodiscard]] static LocaleInfo FromEnvironment();

    /// The same facts, name included.
    friend bool operator==(const LocaleInfo&, const LocaleInfo&) = default;
};

} // namespace quillmar
