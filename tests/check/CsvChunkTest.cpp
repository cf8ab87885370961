// The structural scan that reads CSV chunks against libcsv, the reference: on each tricky input both give
// the same values, row by row, and the same fault at the same line.
#include "apps/check/CsvChunk.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace quillmar::check {
namespace {

struct Read {
    std::optional<CsvProblem> problem;
    std::vector<std::vector<std::u16string>> columns;
};

enum class Reader { Both, Scan, Libcsv };

Read ReadWith(Reader how, std::string_view bytes, size_t columns) {
    CsvChunkReader reader;
    ColumnTable table;
    Read read;
    if (how == Reader::Scan) {
        if (!reader.ReadByScan(bytes, columns, table)) read.problem = CsvProblem { 0, "unsure" };
    } else {
        read.problem = how == Reader::Libcsv ? reader.ReadByLibcsv(bytes, columns, table)
                                             : reader.Read(bytes, columns, table);
    }
    std::u16string scratch;
    for (size_t column = 0; column < columns; ++column) {
        read.columns.emplace_back();
        for (size_t row = 0; row < table.Column(column).runs.size(); ++row)
            read.columns.back().emplace_back(table.Text(column, row, scratch));
    }
    return read;
}

// The structure each wide scan finds beside that of the portable one, and each separator's marks as the
// bytes before it and its own byte give them.
void ExpectSameStructure(std::string_view bytes) {
    CsvStructure portable;
    portable.Scan(bytes, ScanWidth::Portable);
    for (const ScanWidth width : { ScanWidth::Vector, ScanWidth::Widest }) {
        CsvStructure wide;
        wide.Scan(bytes, width);
        EXPECT_TRUE(std::ranges::equal(wide.Separators(), portable.Separators()));
        size_t start = 0;
        for (const uint32_t at : wide.Separators()) {
            EXPECT_EQ(wide.EndsRecord(at), bytes[at] == '\n' || bytes[at] == '\r') << at;
            EXPECT_EQ(wide.EndsQuoteOrHigh(at), portable.AnyQuoteOrHigh(start, at)) << at;
            EXPECT_EQ(portable.EndsQuoteOrHigh(at), portable.AnyQuoteOrHigh(start, at)) << at;
            start = at + 1;
        }
        for (size_t from = 0; from < bytes.size(); ++from) {
            EXPECT_EQ(wide.AnyQuote(from, from + 1), portable.AnyQuote(from, from + 1)) << from;
            EXPECT_EQ(wide.AnyHigh(from, from + 1), portable.AnyHigh(from, from + 1)) << from;
            EXPECT_EQ(wide.AnyQuoteOrHigh(from, bytes.size()), portable.AnyQuoteOrHigh(from, bytes.size()));
        }
    }
}

const std::string kLong = std::string(61, 'x') + ",\"a\n" + std::string(70, 'y') + "\"\"b\",c\n";

const struct {
    const char* bytes;
    size_t columns;
} kInputs[] = {
    { "a,b\n", 2 },
    { "a,b", 2 }, // no terminator after the last record
    { "a,b,", 3 }, // nor after its empty last value
    { "\n\na\n\r\n\"\"\n", 1 },
    { ",\n,\n", 2 },
    { "\n\r\na,b\r\n\r\nc,d\r\n\r\r", 2 }, // empty lines and every terminator
    { "a,b\rc,d\n", 2 },
    { "\"a\"\"b\",\"\"\n", 2 },
    { "\"x,\r\ny\",\"\"\"\"\n", 2 },
    { "\"\xC3\xA9\"\"\",\xE2\x82\xAC\n", 2 },
    { " a , \"b\"\n", 2 }, // spaces are kept; a quote after one is inside an unquoted value
    { "a\"b,c\n", 2 },
    { "\"a\"b,c\n", 2 },
    { "\"a\" ,c\n", 2 },
    { "\"a\"b\"c\",d\n", 2 }, // quotes in pairs, but not doubled
    { "\"a\"\"\n,c\n", 2 },
    { "a,b\nc,\"d\n", 2 }, // a quote left open
    { "a,b\nc,d,e\n", 2 },
    { "a,b\nc\n", 2 },
    { "a,b\n\xFF,c\n", 2 },
    { "a,\"\xC3\"\n", 2 },
    { "a\0b,c\n", 2 },
    { "\"", 1 },
    { "", 1 },
};

TEST(CsvChunk, StructuralScanReadsAsLibcsvDoes) {
    std::vector<std::pair<std::string, size_t>> inputs;
    for (const auto& input : kInputs)
        inputs.emplace_back(input.bytes, input.columns);
    inputs.emplace_back(std::string("a\0b,c\n", 6), 2);
    inputs.emplace_back(kLong, 3);
    inputs.emplace_back(kLong + kLong + "z,\"", 3);
    inputs.emplace_back("\xC3\xA9" + std::string(140, 'z') + ",b\n", 2); // marked two blocks before its end
    std::string many; // more rows than a table holds before it grows
    for (int i = 0; i < 200; ++i)
        many += std::to_string(i) + ",\"\xC3\xA9" + std::to_string(i) + "\"\n";
    inputs.emplace_back(many, 2);
    for (const auto& [bytes, columns] : inputs) {
        SCOPED_TRACE(bytes);
        ExpectSameStructure(bytes);
        const Read scanned = ReadWith(Reader::Both, bytes, columns);
        const Read reference = ReadWith(Reader::Libcsv, bytes, columns);
        EXPECT_EQ(scanned.columns, reference.columns);
        // Well-formed records never need libcsv.
        const Read scanOnly = ReadWith(Reader::Scan, bytes, columns);
        EXPECT_EQ(scanOnly.problem.has_value(), reference.problem.has_value());
        if (!reference.problem) {
            EXPECT_EQ(scanOnly.columns, reference.columns);
        }
        ASSERT_EQ(scanned.problem.has_value(), reference.problem.has_value());
        if (reference.problem) {
            EXPECT_EQ(scanned.problem->what, reference.problem->what);
            EXPECT_EQ(scanned.problem->lineBreaksBefore, reference.problem->lineBreaksBefore);
        }
    }
}

} // namespace
} // namespace quillmar::check
