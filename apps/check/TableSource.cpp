#include "apps/check/TableSource.h"

#include "base/Utf8.h"
#include "validation/DateTime.h"
#include "validation/Numbers.h"

#include <algorithm>
#include <charconv>
#include <sqlite3.h>

namespace quillmar::check {
namespace {

constexpr size_t kRowsPerChunk = 8192;

bool AllDigits(std::string_view text) {
    return !text.empty()
        && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

int ReadInt(std::string_view digits) {
    int value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

// "YYYY-MM-DD" as days, when it is one.
std::optional<double> IsoDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-' || !AllDigits(text.substr(0, 4))
        || !AllDigits(text.substr(5, 2)) || !AllDigits(text.substr(8, 2)))
        return std::nullopt;
    return SerialFromDate(ReadInt(text.substr(0, 4)), ReadInt(text.substr(5, 2)), ReadInt(text.substr(8, 2)));
}

// "HH:MM:SS" as the fraction of a day, when it is one.
std::optional<double> IsoTime(std::string_view text) {
    if (text.size() != 8 || text[2] != ':' || text[5] != ':' || !AllDigits(text.substr(0, 2))
        || !AllDigits(text.substr(3, 2)) || !AllDigits(text.substr(6, 2)))
        return std::nullopt;
    const int hours = ReadInt(text.substr(0, 2));
    const int minutes = ReadInt(text.substr(3, 2));
    const int seconds = ReadInt(text.substr(6, 2));
    if (hours > 23 || minutes > 59 || seconds > 59) return std::nullopt;
    return (hours * 3600 + minutes * 60 + seconds) / 86400.0;
}

// "[-]digits[.digits]", the stored form of a currency amount.
bool IsPointNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    const size_t point = text.find('.');
    if (point == std::string_view::npos) return AllDigits(text);
    return AllDigits(text.substr(0, point)) && AllDigits(text.substr(point + 1));
}

std::u16string Utf16(std::string_view utf8) {
    std::u16string text;
    if (!AppendUtf16(utf8, text)) {
        text.clear();
        for (const char c : utf8) // not UTF-8: each byte as the character of its code
            text += static_cast<char16_t>(static_cast<unsigned char>(c));
    }
    return text;
}

} // namespace

std::u16string TypedText(const StoredValue& value, const PreparedRules& rules) {
    const LocaleInfo& locale = rules.locale();
    const Settings& settings = rules.settings();
    const NumberLayout layout = settings.AllowScientificFormat ? NumberLayout::Natural : NumberLayout::Plain;
    switch (value.kind) {
    case StoredValue::Kind::Null:
        return {};
    case StoredValue::Kind::Integer:
        return FormatInteger(value.integer);
    case StoredValue::Kind::Real:
        if (settings.MustBeType == vldSingle)
            return FormatSingle(static_cast<float>(value.real), locale, layout);
        return FormatDouble(value.real, locale, 0, layout);
    case StoredValue::Kind::Text:
        break;
    }
    if (settings.MustBeType == vldDate)
        if (const auto days = IsoDate(value.text)) return FormatDateTime(Date { *days }, locale);
    if (settings.MustBeType == vldTime)
        if (const auto day = IsoTime(value.text)) return FormatDateTime(Date { *day }, locale);
    std::u16string text = Utf16(value.text);
    if (IsNumericType(settings.MustBeType) && IsPointNumber(value.text))
        std::replace(text.begin(), text.end(), u'.', locale.decimalSeparator);
    return text;
}

int CheckSqliteTable(const std::vector<CheckedField>& fields, const std::filesystem::path& path,
    const std::string& table, const CheckOptions& options, std::FILE* out, std::FILE* err) {
    const std::string name = path.string();
    const auto fail = [&](const std::string& what) {
        std::fprintf(err, "quillmar-check: %s: %s\n", name.c_str(), what.c_str());
        return 2;
    };
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return fail("no such database file");
    sqlite3* db = nullptr;
    const int opened = sqlite3_open_v2(name.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    std::unique_ptr<sqlite3, int (*)(sqlite3*)> closer(db, sqlite3_close);
    if (opened != SQLITE_OK) return fail(db ? sqlite3_errmsg(db) : "cannot open the database");
    std::string quoted = "\"";
    for (const char c : table)
        quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    quoted += '"';
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(db, ("SELECT * FROM " + quoted).c_str(), -1, &statement, nullptr) != SQLITE_OK)
        return fail(std::string("table ") + table + ": " + sqlite3_errmsg(db));
    std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)> finalizer(statement, sqlite3_finalize);

    const int columnCount = sqlite3_column_count(statement);
    std::vector<std::string> columns;
    std::vector<int> fieldOfColumn;
    for (int i = 0; i < columnCount; ++i) {
        columns.emplace_back(sqlite3_column_name(statement, i));
        fieldOfColumn.push_back(FindField(fields, columns.back()));
    }
    if (const auto fault = NoFieldColumn(fields, columns)) return fail("table " + table + ": " + *fault);
    CheckSession session(fields, columns, options, out, err, name + " table " + table, 0, 0);
    Chunk chunk;
    chunk.ready = true;
    chunk.table.Clear(columns.size());
    int step;
    while ((step = sqlite3_step(statement)) == SQLITE_ROW) {
        for (int i = 0; i < columnCount; ++i) {
            const int field = fieldOfColumn[static_cast<size_t>(i)];
            if (field < 0) {
                chunk.table.Add(static_cast<size_t>(i), {});
                continue;
            }
            StoredValue value;
            switch (sqlite3_column_type(statement, i)) {
            case SQLITE_INTEGER:
                value = { StoredValue::Kind::Integer, sqlite3_column_int64(statement, i), 0, {} };
                break;
            case SQLITE_FLOAT:
                value = { StoredValue::Kind::Real, 0, sqlite3_column_double(statement, i), {} };
                break;
            case SQLITE_NULL:
                break;
            default: {
                const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
                value.kind = StoredValue::Kind::Text;
                value.text = std::string_view(
                    bytes ? bytes : "", static_cast<size_t>(sqlite3_column_bytes(statement, i)));
            }
            }
            chunk.table.Add(
                static_cast<size_t>(i), TypedText(value, fields[static_cast<size_t>(field)].rules));
        }
        chunk.table.CommitRow();
        if (chunk.table.RowCount() == kRowsPerChunk) {
            if (!session.Submit(std::move(chunk))) break;
            chunk = Chunk {};
            chunk.ready = true;
            chunk.table.Clear(columns.size());
        }
    }
    if (step != SQLITE_ROW && step != SQLITE_DONE)
        session.Fail(0, std::string("reading table ") + table + ": " + sqlite3_errmsg(db));
    else if (chunk.table.RowCount() > 0)
        (void)session.Submit(std::move(chunk));
    return session.Finish();
}

} // namespace quillmar::check
