#pragma once

#include "apps/check/ColumnTable.h"
#include "apps/check/CsvScan.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct csv_parser;

namespace quillmar::check {

/// Why CSV bytes cannot be read, and where: the line breaks before the fault within the bytes given.
struct CsvProblem {
    size_t lineBreaksBefore = 0;
    std::string what;
};

/// Reads whole CSV records (RFC 4180: quoted values with doubled quotes, embedded commas and line breaks,
/// CR, LF or CRLF terminators; spaces kept; empty lines skipped) into a column table: ASCII values as runs of
/// the bytes, the others decoded into UTF-16. Well-formed bytes go through a
/// block-wise structural scan; whatever that scan is unsure of (a fault above all) is read again by libcsv
/// in strict mode, which is the reference for every record and every fault. One reader serves one thread
/// and is reused from chunk to chunk.
class CsvChunkReader {
public:
    CsvChunkReader();
    ~CsvChunkReader();
    CsvChunkReader(const CsvChunkReader&) = delete;
    CsvChunkReader& operator=(const CsvChunkReader&) = delete;

    /// Reads `bytes` (whole records, the last one possibly without its terminator) into `table`, every
    /// record holding exactly `columns` values. A malformed record, a record of another length or a value
    /// that is not UTF-8 gives the problem of the first such record; the table then holds the rows before.
    [[nodiscard]] std::optional<CsvProblem> Read(std::string_view bytes, size_t columns, ColumnTable& table);

    /// `Read` by the structural scan alone: false, with the table in any state, for anything it is unsure of
    /// (a fault, a quote where none belongs), which `Read` then hands to libcsv.
    [[nodiscard]] bool ReadByScan(std::string_view bytes, size_t columns, ColumnTable& table);

    /// `Read` by libcsv alone, the reference the structural scan must agree with.
    [[nodiscard]] std::optional<CsvProblem> ReadByLibcsv(
        std::string_view bytes, size_t columns, ColumnTable& table);

    /// Reads the first record of `bytes` as the header: its values as UTF-8 names.
    [[nodiscard]] std::optional<CsvProblem> ReadHeader(
        std::string_view bytes, std::vector<std::string>& names);

private:
    struct State;
    static void OnValue(void* data, size_t length, void* self);
    static void OnRecordEnd(int terminator, void* self);
    std::optional<CsvProblem> Parse(std::string_view bytes);
    void Reset(bool initialized);
    bool AddQuoted(std::string_view inner, size_t column, ColumnTable& table);
    [[gnu::noinline]] bool AddSpecial(
        std::string_view bytes, size_t from, size_t to, size_t column, ColumnTable& table);

    csv_parser* m_parser;
    State* m_state;
    CsvStructure m_structure;
    std::string m_unescaped;
};

} // namespace quillmar::check
