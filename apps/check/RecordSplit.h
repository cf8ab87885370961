#pragma once

#include "apps/check/CsvScan.h"

#include <cstddef>
#include <string_view>

namespace quillmar::check {

/// The longest record a CSV file may hold; a longer one (most often an unclosed quote) is a fault, so
/// memory stays bounded whatever the file holds.
inline constexpr size_t kMaxRecordBytes = size_t { 8 } << 20;

/// Where CSV bytes that begin at a record boundary can be cut so that every record before the cut is whole.
struct RecordPrefix {
    /// The length of the longest prefix that ends right after a record terminator outside quotes (LF, CRLF,
    /// or a CR followed by something else); 0 when the bytes hold no such terminator.
    size_t length = 0;
    /// The physical line breaks within that prefix, quoted ones included.
    size_t lineBreaks = 0;
};

/// Finds the cut with one pass over 64-byte blocks that tracks whether it stands inside quotes (a doubled
/// quote leaves and re-enters, so it needs no special case). A CR at the very end is left undecided, since an
/// LF may follow. For well-formed CSV every cut lies between two records exactly where a sequential reader
/// sees one end. `width` chooses how the blocks are read; every width gives the same cut.
[[nodiscard]] RecordPrefix CompleteRecords(
    std::string_view bytes, ScanWidth width = ScanWidth::Widest) noexcept;

/// The prefix that ends with the terminator of the first record (empty lines before it included); length 0
/// when the bytes hold no terminated record yet.
[[nodiscard]] RecordPrefix FirstRecord(std::string_view bytes) noexcept;

/// The physical line breaks in the bytes: each LF, and each CR not followed by an LF. Reads the bytes as
/// `width` says; every width gives the same count.
[[nodiscard]] size_t CountLineBreaks(std::string_view bytes, ScanWidth width = ScanWidth::Widest) noexcept;

/// The records a reader that cuts a file into ranges of fixed size takes from one range.
struct RecordRange {
    /// Where the first record that starts in [begin, end] starts; `end` when none does.
    size_t start = 0;
    /// Where the first record that starts after the range starts (the bytes' end after the last record).
    size_t stop = 0;
    /// A record that starts in the range runs on for more than the limit: `stop` is where it starts.
    bool tooLong = false;
};

/// The records of `bytes` (a whole file's, after its header) that start in [begin, end): a record starts at
/// `begin` when `startsRecord`, and otherwise right after a line terminator outside quotes. Whether a byte
/// stands inside quotes is known only from all the bytes before it, so the range's first line terminator at
/// or after `begin` is taken to end a record: it does unless it stands inside a quoted value, in which case
/// `start` is not where the record the range before ended stops, and the caller finds the range again from
/// there with `startsRecord`. From `start` on the quotes are followed exactly. A record longer than `limit`
/// bytes ends the records taken before it.
[[nodiscard]] RecordRange FindRecordRange(
    std::string_view bytes, size_t begin, size_t end, bool startsRecord, size_t limit) noexcept;

/// The line breaks in the bytes before the start of their `record`th record (0-based), counting records
/// as a CSV reader does: an empty line is no record.
[[nodiscard]] size_t LineBreaksBeforeRecord(std::string_view bytes, size_t record) noexcept;

} // namespace quillmar::check
