// Where a block of CSV bytes is cut into whole records, block boundaries of the scan included.
#include "apps/check/RecordSplit.h"

#include <gtest/gtest.h>

namespace quillmar::check {
namespace {

TEST(RecordSplit, CutsAfterTheLastTerminatorOutsideQuotes) {
    const std::string x62(62, 'x');
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
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        const RecordPrefix prefix = CompleteRecords(row.bytes);
        EXPECT_EQ(prefix.length, row.length);
        EXPECT_EQ(prefix.lineBreaks, row.lineBreaks);
    }
}

} // namespace
} // namespace quillmar::check
