#include "apps/check/CsvChunk.h"

#include "apps/check/RecordSplit.h"
#include "base/Utf8.h"

#include <climits>
#include <csv.h>
#include <memory>

namespace quillmar::check {

struct CsvChunkReader::State {
    ColumnTable* table = nullptr;
    std::vector<std::string>* names = nullptr; // reading a header
    size_t columns = 0;
    size_t column = 0;
    size_t record = 0;
    bool failed = false;
    std::string what; // the first fault of a record
};

namespace {

// Spaces are part of a value, as RFC 4180 says; libcsv would otherwise trim them around unquoted values.
int NoSpace(unsigned char) {
    return 0;
}

} // namespace

CsvChunkReader::CsvChunkReader()
    : m_parser(new csv_parser)
    , m_state(new State) {
    Reset(false);
}

void CsvChunkReader::Reset(bool initialized) {
    // After a fault libcsv keeps its error state, so the parser starts afresh.
    if (initialized) csv_free(m_parser);
    if (csv_init(m_parser, CSV_STRICT | CSV_STRICT_FINI) != 0) throw std::bad_alloc();
    csv_set_space_func(m_parser, NoSpace);
}

CsvChunkReader::~CsvChunkReader() {
    csv_free(m_parser);
    delete m_parser;
    delete m_state;
}

void CsvChunkReader::OnValue(void* data, size_t length, void* self) {
    State& state = *static_cast<State*>(self);
    if (state.failed) return;
    const std::string_view bytes(static_cast<const char*>(data), data ? length : 0);
    if (state.names) {
        if (state.record == 0) state.names->emplace_back(bytes);
        ++state.column;
        return;
    }
    if (state.column >= state.columns) {
        state.failed = true;
        state.what = "the record has more values than the header has columns ("
            + std::to_string(state.columns) + ")";
        return;
    }
    size_t units = 0;
    if (!DecodeUtf8(bytes, state.table->Room(bytes.size()), units)) {
        state.failed = true;
        state.what = "value " + std::to_string(state.column + 1) + " is not UTF-8 text";
        return;
    }
    state.table->CommitValue(state.column++, units);
}

void CsvChunkReader::OnRecordEnd(int, void* self) {
    State& state = *static_cast<State*>(self);
    if (state.failed) return;
    if (!state.names && state.column != state.columns) {
        state.failed = true;
        state.what = "the record has " + std::to_string(state.column) + " values, the header has "
            + std::to_string(state.columns) + " columns";
        return;
    }
    if (state.table) state.table->CommitRow();
    state.column = 0;
    ++state.record;
}

std::optional<CsvProblem> CsvChunkReader::Parse(std::string_view bytes) {
    State& state = *m_state;
    const size_t parsed = csv_parse(m_parser, bytes.data(), bytes.size(), OnValue, OnRecordEnd, m_state);
    if (parsed != bytes.size() && !state.failed) {
        Reset(true);
        const bool quote = bytes[parsed] == '"';
        return CsvProblem { CountLineBreaks(bytes.substr(0, parsed)),
            quote ? "malformed CSV record: a quote inside an unquoted value"
                  : "malformed CSV record: text after the closing quote of a value" };
    }
    if (!state.failed && csv_fini(m_parser, OnValue, OnRecordEnd, m_state) != 0) {
        Reset(true);
        return CsvProblem { LineBreaksBeforeRecord(bytes, state.record),
            "malformed CSV record: a quoted value is not closed" };
    }
    if (state.failed) {
        Reset(true);
        return CsvProblem { LineBreaksBeforeRecord(bytes, state.record), state.what };
    }
    return std::nullopt;
}

// The inner bytes of a quoted value that holds quotes: each must be doubled, and stands for one.
bool CsvChunkReader::AddQuoted(std::string_view inner, size_t column, ColumnTable& table) {
    m_unescaped.clear();
    for (size_t i = 0; i < inner.size(); ++i) {
        m_unescaped.push_back(inner[i]);
        if (inner[i] != '"') continue;
        if (i + 1 == inner.size() || inner[i + 1] != '"') return false;
        ++i;
    }
    size_t units = 0;
    if (!DecodeUtf8(m_unescaped, table.Room(m_unescaped.size()), units)) return false;
    table.CommitValue(column, units);
    return true;
}

// A value with a quote or a byte beyond ASCII: unquoted, decoded, or unescaped; false for a quote out of
// place or bytes that are not UTF-8.
bool CsvChunkReader::AddSpecial(
    std::string_view bytes, size_t from, size_t to, size_t column, ColumnTable& table) {
    if (bytes[from] == '"') {
        if (to - from < 2 || bytes[to - 1] != '"') return false;
        ++from;
        --to;
        if (m_structure.AnyQuote(from, to)) return AddQuoted(bytes.substr(from, to - from), column, table);
    } else if (m_structure.AnyQuote(from, to)) {
        return false;
    }
    if (m_structure.AnyHigh(from, to)) {
        size_t units = 0;
        if (!DecodeUtf8(bytes.substr(from, to - from), table.Room(to - from), units)) return false;
        table.CommitValue(column, units);
    } else {
        table.CommitBytes(column, from, to - from);
    }
    return true;
}

// A value of ASCII bytes without doubled quotes stays where it was read, so most values are never copied.
bool CsvChunkReader::ReadByScan(std::string_view bytes, size_t columns, ColumnTable& table) {
    if (bytes.size() >= (size_t { 1 } << 31) || columns == 0) return false;
    m_structure.Scan(bytes);
    const std::span<const uint32_t> separators = m_structure.Separators();
    // A row takes a separator per value but its last one's, which the terminator follows: no more rows than
    // this fit, so the table never grows while it is filled.
    table.Clear(columns, bytes, separators.size() / columns + 2);
    size_t column = 0;
    size_t start = 0;
    bool begun = false; // a comma has been seen in the current record
    for (const uint32_t at : separators) {
        const bool lineEnd = m_structure.EndsRecord(at);
        if (lineEnd && !begun && at == start) { // a CR or LF right at a record's start ends an empty line
            start = at + 1;
            continue;
        }
        if (column == columns) return false;
        if (!m_structure.EndsQuoteOrHigh(at))
            table.CommitBytes(column, start, at - start);
        else if (!AddSpecial(bytes, start, at, column, table))
            return false;
        ++column;
        begun = !lineEnd;
        if (lineEnd) {
            if (column != columns) return false;
            table.CommitRow();
            column = 0;
        }
        start = at + 1;
    }
    if (begun || start < bytes.size()) {
        if (column == columns) return false;
        if (!m_structure.AnyQuoteOrHigh(start, bytes.size()))
            table.CommitBytes(column, start, bytes.size() - start);
        else if (!AddSpecial(bytes, start, bytes.size(), column, table))
            return false;
        if (++column != columns) return false;
        table.CommitRow();
    }
    return true;
}

std::optional<CsvProblem> CsvChunkReader::Read(std::string_view bytes, size_t columns, ColumnTable& table) {
    if (ReadByScan(bytes, columns, table)) return std::nullopt;
    return ReadByLibcsv(bytes, columns, table);
}

std::optional<CsvProblem> CsvChunkReader::ReadByLibcsv(
    std::string_view bytes, size_t columns, ColumnTable& table) {
    *m_state = State {};
    m_state->table = &table;
    m_state->columns = columns;
    table.Clear(columns);
    return Parse(bytes);
}

std::optional<CsvProblem> CsvChunkReader::ReadHeader(
    std::string_view bytes, std::vector<std::string>& names) {
    *m_state = State {};
    m_state->names = &names;
    names.clear();
    return Parse(bytes);
}

} // namespace quillmar::check
