#include "apps/forms/Record.h"

#include "base/Enums.h"
#include "validation/DateTime.h"
#include "validation/Numbers.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace quillmar::forms {
namespace {

constexpr int64_t kSecondsPerDay = 86400;
// 30 December 1899 counted from 1 January 1970.

std::u16string Ascii(std::string_view text) {
    return std::u16string(text.begin(), text.end());
}

// The whole day and the second of that day a date-time stands for.
struct DayAndSecond {
    int64_t day;
    int64_t second;
};

DayAndSecond Split(double days) {
    const double whole = std::trunc(days);
    const double fraction = std::fabs(days - whole);
    const auto second = std::min<int64_t>(std::llround(fraction * kSecondsPerDay), kSecondsPerDay - 1);
    return { static_cast<int64_t>(whole), second };
}

// A single is stored as the double its shortest text reads as: 0.1f becomes 0.1, not 0.100000001490116.
double WidenSingle(float value) {
    char buffer[32];
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, value);
    double wide = value;
    std::from_chars(buffer, written.ptr, wide);
    return wide;
}

} // namespace

ColumnType ColumnTypeOf(int32_t mustBeType) noexcept {
    switch (mustBeType) {
    case vldByte:
    case vldInteger:
    case vldLong:
        return ColumnType::Integer;
    case vldSingle:
    case vldDouble:
        return ColumnType::Real;
    default:
        return ColumnType::Text;
    }
}

std::string_view ColumnTypeName(ColumnType type) noexcept {
    switch (type) {
    case ColumnType::Integer:
        return "INTEGER";
    case ColumnType::Real:
        return "REAL";
    case ColumnType::Text:
        break;
    }
    return "TEXT";
}

StoredValue StoredValueOf(const Variant& value, int32_t mustBeType) {
    using Kind = Variant::Kind;
    switch (value.kind()) {
    case Kind::Empty:
        return {};
    case Kind::String:
        if (value.AsString().empty()) return {};
        return value.AsString();
    case Kind::Byte:
        return int64_t { value.AsByte() };
    case Kind::Integer:
        return int64_t { value.AsInteger() };
    case Kind::Long:
        return int64_t { value.AsLong() };
    case Kind::Single:
        return WidenSingle(value.AsSingle());
    case Kind::Double:
        return value.AsDouble();
    case Kind::Currency:
        return FormatCurrency(value.AsCurrency(), LocaleInfo {});
    case Kind::Date: {
        const double days = value.AsDate().days;
        if (mustBeType == vldDate) return IsoDate(days);
        if (std::trunc(days) == 0) return IsoTime(days);
        return IsoDate(days) + u' ' + IsoTime(days);
    }
    case Kind::Boolean:
        return int64_t { value.AsBoolean() ? -1 : 0 };
    case Kind::Bytes:
    case Kind::Array:
        break;
    }
    return {};
}

std::u16string IsoDate(double days) {
    const CivilDate date = CivilDateOfSerial(Split(days).day);
    char buffer[40];
    std::snprintf(
        buffer, sizeof buffer, "%04lld-%02d-%02d", static_cast<long long>(date.year), date.month, date.day);
    return Ascii(buffer);
}

std::u16string IsoTime(double days) {
    const int64_t second = Split(days).second;
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", static_cast<int>(second / 3600),
        static_cast<int>(second / 60 % 60), static_cast<int>(second % 60));
    return Ascii(buffer);
}

std::filesystem::path DefaultDatabasePath(const std::filesystem::path& formFile) {
    constexpr std::string_view kFormSuffix = ".qform.json";
    std::string name = formFile.filename().string();
    if (name.size() > kFormSuffix.size() && name.ends_with(kFormSuffix))
        name.resize(name.size() - kFormSuffix.size());
    else
        name = formFile.stem().string();
    return formFile.parent_path() / (name + ".sqlite");
}

std::filesystem::path UserDataFolder() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    if (dataHome && std::filesystem::path(dataHome).is_absolute())
        return std::filesystem::path(dataHome) / "quillmar";
    const char* home = std::getenv("HOME");
    return std::filesystem::path(home ? home : "") / ".local" / "share" / "quillmar";
}

} // namespace quillmar::forms
