#pragma once

#include "apps/check/CsvScan.h"

#include <cstddef>
#include <string_view>

namespace quillmar::check {

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

/// The physical line breaks in the bytes: each LF, and each CR not followed by an LF.
[[nodiscard]] size_t CountLineBreaks(std::string_view bytes) noexcept;

/// The line breaks in the bytes before the start of their `record`th record (0-based), counting records
/// as a CSV reader does: an empty line is no record.
[[nodiscard]] size_t LineBreaksBeforeRecord(std::string_view bytes, size_t record) noexcept;

} // namespace quillmar::check
