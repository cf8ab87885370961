#include "apps/check/TableSource.h"

#include <sqlite3.h>

namespace quillmar::check {
namespace {

constexpr size_t kRowsPerChunk = 8192;

} // namespace

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
