// Where a block of CSV bytes is cut into whole records, block and batch boundaries of the scan included, read
// by the portable and the widest scan.
#include "apps/check/RecordSplit.h"

#include <gtest/gtest.h>

namespace quillmar::check {
namespace {

TEST(RecordSplit, CutsAfterTheLastTerminatorOutsideQuotes) {
    const std::string x62(62, 'x');
    const std::string x63(63, 'x');
    const std::string batch(4095, 'x'); // the cut reads its masks 4096 bytes at a time
    const struct {
        std::string bytes;
        size_t length;
        size_t lineBreaks;
    } rows[] = {
        { "a,b", 0, 0 },
        { "a\nb\r\nc\rd", 7, 3 },
        { "a\nb\r", 2, 1 }, // the final CR waits for a possible LF
        { "a\r\rb", 3, 2 },
        { "\"a\nb\"\nc\"\n", 6, 2 }, // quoted line breaks count but do not cut
        { "\"a\"\"\n\"\n", 7, 2 },
        { x62 + "a\r\nb\n", 67, 2 }, // a CRLF across two blocks is one break
        { x62 + "a\r" + "b\n", 66, 2 },
        { x62 + "a\r", 0, 0 },
        { x62 + "\"\"" + x62 + "\n\"a\n", 127, 1 }, // a quote pair ends a block; another opens in the next
        { x62 + "a\"" + x62 + "\n\"\n", 129, 2 },
        { x63 + "\"\n\"\n", 67, 2 }, // a quote opens a block's last byte, closes the next block's second
        { x63 + "\r" + "b\n", 66, 2 }, // a lonely CR as a block's last byte
        { x63 + "\r\nb", 65, 1 },
        { x63 + "\r", 0, 0 },
        { batch + "\r\nc", 4097, 1 }, // a CRLF across two batches
        { batch + "\r" + "c\r", 4096, 1 }, // a lonely CR as a batch's last byte; the final CR waits
        { "\"" + batch + "\n\"\n\"", 4099, 2 }, // a quote open across two batches
        { batch + "\"\n" + batch + "\"\n" + x62, 8194, 2 },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes.substr(row.bytes.find_first_not_of('x')));
        for (const ScanWidth width : { ScanWidth::Portable, ScanWidth::Widest }) {
            const RecordPrefix prefix = CompleteRecords(row.bytes, width);
            EXPECT_EQ(prefix.length, row.length) << static_cast<int>(width);
            EXPECT_EQ(prefix.lineBreaks, row.lineBreaks) << static_cast<int>(width);
            EXPECT_EQ(CountLineBreaks(row.bytes.substr(0, row.length), width), row.lineBreaks);
        }
    }
}

// A range's records start after its first line terminator, taken to end a record; from there the quotes are
// followed exactly to the first record after the range, and a record longer than the limit stops them.
TEST(RecordSplit, RangeTakesTheRecordsThatStartInIt) {
    const struct {
        std::string bytes;
        size_t begin;
        size_t end;
        bool startsRecord;
        RecordRange range;
    } rows[] = {
        { "a\nb\nc\n", 1, 3, false, { 2, 4, false } },
        { "a\nb\nc\n", 2, 3, false, { 2, 4, false } }, // the LF before the range ends a record
        { "a\nb\nc\n", 0, 2, true, { 0, 2, false } }, // a record at the range's end is the next range's
        { "a\r\nb\n", 2, 4, false, { 3, 5, false } }, // a CRLF across the range's start is one terminator
        { "ab\r\nc", 0, 3, true, { 0, 4, false } }, // ... and across its end
        { "ab\rc\n", 0, 3, true, { 0, 3, false } }, // a lonely CR ends a record
        { "abcdef\n", 1, 3, false, { 3, 3, false } }, // no record starts in the range
        { "a,\"x\ny\"\nz\n", 0, 4, true, { 0, 8, false } }, // a quoted LF does not end the record
        { "a,\"x\ny\"\nz\n", 3, 6, false, { 5, 10, false } }, // a guess from a quoted LF, told by its start
        { "a,\"x\"\n", 0, 4, true, { 0, 6, false } },
        { "a\nbcdefghijk\n", 0, 3, true, { 0, 2, true } }, // the record at 2 runs on past the limit of 8
        { "a\nbcdefgh\n", 0, 3, true, { 0, 10, false } },
        { "a\nb", 1, 3, false, { 2, 3, false } }, // the bytes' end closes the last record
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes + " " + std::to_string(row.begin) + ".." + std::to_string(row.end));
        const RecordRange range = FindRecordRange(row.bytes, row.begin, row.end, row.startsRecord, 8);
        EXPECT_EQ(range.start, row.range.start);
        EXPECT_EQ(range.stop, row.range.stop);
        EXPECT_EQ(range.tooLong, row.range.tooLong);
    }
}

} // namespace
} // namespace quillmar::check
