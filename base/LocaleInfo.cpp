#include "base/LocaleInfo.h"

#include <unicode/datefmt.h>
#include <unicode/decimfmt.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>
#include <unicode/numfmt.h>
#include <unicode/smpdtfmt.h>
#include <unicode/unistr.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>

namespace quillmar {

namespace {

std::u16string ToU16(const icu::UnicodeString& text) {
    return std::u16string(text.getBuffer(), static_cast<size_t>(text.length()));
}

// "fr_FR.UTF-8" and "de_DE@euro" name the same facts as "fr_FR" and "de_DE"; the C locale reads as
// American English.
std::string BaseName(std::string_view name) {
    std::string_view base = name.substr(0, name.find_first_of(".@"));
    if (base.empty() || base == "C" || base == "POSIX") return "en_US";
    return std::string(base);
}

void ReadDecimalFormat(const icu::Locale& locale, LocaleInfo& info) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createInstance(locale, status));
    if (U_FAILURE(status) || !format) return;
    // The grouping sizes of the locale's own number pattern ("#,##,##0.###" in en_IN: 3, then 2).
    if (auto* decimal = dynamic_cast<icu::DecimalFormat*>(format.get())) {
        const int32_t primary = decimal->isGroupingUsed() ? decimal->getGroupingSize() : 0;
        const int32_t secondary = decimal->getSecondaryGroupingSize();
        info.groupingSize = primary > 0 ? primary : 0;
        info.secondaryGroupingSize = secondary > 0 ? secondary : info.groupingSize;
    }
    icu::UnicodeString text;
    format->format(0.5, text);
    // Only a "0<sep>5" written with ASCII digits tells the separator; other digit systems keep '.'.
    int32_t zero = text.indexOf(u'0');
    if (zero >= 0 && zero + 2 < text.length() && text.charAt(zero + 2) == u'5')
        info.decimalSeparator = text.charAt(zero + 1);
}

void ReadGroupSeparator(const icu::Locale& locale, LocaleInfo& info) {
    UErrorCode status = U_ZERO_ERROR;
    icu::DecimalFormatSymbols symbols(locale, status);
    if (U_FAILURE(status)) return;
    icu::DecimalFormat format(icu::UnicodeString(u"##,##0.00"), symbols, status);
    if (U_FAILURE(status)) return;
    icu::UnicodeString text;
    format.format(1000.1, text);
    if (text.length() >= 2) info.groupSeparator = text.charAt(1);
}

std::unique_ptr<icu::DateFormat> ShortFormat(bool date, const icu::Locale& locale) {
    return std::unique_ptr<icu::DateFormat>(date
            ? icu::DateFormat::createDateInstance(icu::DateFormat::kShort, locale)
            : icu::DateFormat::createTimeInstance(icu::DateFormat::kShort, locale));
}

// The pattern with its quoted literals blanked out, so that a letter inside quotes ("HH 'h' mm") is not
// taken for a field.
std::u16string ShortPattern(bool date, const icu::Locale& locale) {
    std::unique_ptr<icu::DateFormat> format = ShortFormat(date, locale);
    auto* simple = dynamic_cast<icu::SimpleDateFormat*>(format.get());
    if (!simple) return {};
    icu::UnicodeString pattern;
    simple->toPattern(pattern);
    std::u16string text = ToU16(pattern);
    bool quoted = false;
    for (char16_t& c : text) {
        if (c == u'\'') {
            quoted = !quoted;
            c = u' ';
        } else if (quoted) {
            c = u' ';
        }
    }
    return text;
}

void ReadDatePattern(const icu::Locale& locale, LocaleInfo& info) {
    std::u16string pattern = ShortPattern(true, locale);
    std::u16string order;
    char16_t separator = 0;
    for (size_t i = 0; i < pattern.size(); ++i) {
        char16_t c = pattern[i];
        if (c == u'y' || c == u'M' || c == u'd') {
            if (order.find(c) == std::u16string::npos) order += c;
        } else if (!order.empty() && order.size() < 3 && separator == 0
            && (c == u'/' || c == u'.' || c == u'-')) {
            separator = c;
        }
    }
    if (order == u"Mdy")
        info.dateOrder = DateOrder::MonthDayYear;
    else if (order == u"dMy")
        info.dateOrder = DateOrder::DayMonthYear;
    else if (order == u"yMd")
        info.dateOrder = DateOrder::YearMonthDay;
    else
        return;
    info.dateSeparator = separator ? separator : u'/';
    info.padDay = pattern.find(u"dd") != std::u16string::npos;
    info.padMonth = pattern.find(u"MM") != std::u16string::npos;
}

void ReadTime(const icu::Locale& locale, LocaleInfo& info) {
    std::u16string pattern = ShortPattern(false, locale);
    if (!pattern.empty()) info.twelveHour = pattern.find_first_of(u"hK") != std::u16string::npos;

    UErrorCode status = U_ZERO_ERROR;
    icu::DateFormatSymbols symbols(locale, status);
    if (U_FAILURE(status)) return;
    int32_t count = 0;
    const icu::UnicodeString* strings = symbols.getAmPmStrings(count);
    if (!strings || count < 2 || strings[0].isEmpty() || strings[1].isEmpty()) return;
    info.am = ToU16(strings[0]);
    info.pm = ToU16(strings[1]);
}

// Reads the facts from ICU: a number format, a date format and the date symbols, about a hundred
// microseconds of work.
LocaleInfo ReadFromIcu(const std::string& base) {
    LocaleInfo info;
    try {
        icu::Locale locale(base.c_str());
        if (locale.isBogus()) return info;
        info.name = locale.getName();
        ReadDecimalFormat(locale, info);
        ReadGroupSeparator(locale, info);
        ReadDatePattern(locale, info);
        ReadTime(locale, info);
    } catch (...) {
        // ICU itself does not throw, but the copies into std::string may run out of memory; the facts
        // read so far stand and the rest keep their defaults.
    }
    return info;
}

// ICU's locale data does not change while the process runs, so the facts of a name are read once. Hosts
// still ask at every use, which is what lets a change of the user's locale take effect at once; the
// cache only spares them the formatter construction. Names come from the environment, the desktop and
// form files, so the cache is bounded: past its size, further names are read each time.
constexpr size_t kCachedLocales = 64;

struct LocaleCache {
    std::mutex mutex;
    std::map<std::string, LocaleInfo, std::less<>> entries;
};

LocaleCache& Cache() {
    static LocaleCache cache;
    return cache;
}

} // namespace

LocaleInfo LocaleInfo::FromName(std::string_view name) {
    std::string base;
    try {
        base = BaseName(name);
    } catch (...) {
        return LocaleInfo {};
    }
    LocaleCache& cache = Cache();
    {
        std::lock_guard lock(cache.mutex);
        if (const auto found = cache.entries.find(base); found != cache.entries.end()) return found->second;
    }
    LocaleInfo info = ReadFromIcu(base);
    try {
        std::lock_guard lock(cache.mutex);
        if (cache.entries.size() < kCachedLocales) cache.entries.emplace(std::move(base), info);
    } catch (...) {
        // Out of memory for the cache entry: the facts are still right, only not kept.
    }
    return info;
}

LocaleInfo LocaleInfo::FromEnvironment() {
    for (const char* variable : { "LC_ALL", "LC_NUMERIC", "LANG" }) {
        const char* value = std::getenv(variable);
        if (value && *value) return FromName(value);
    }
    return FromName("C");
}

} // namespace quillmar
