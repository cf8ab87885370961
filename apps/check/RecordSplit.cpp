#include "apps/check/RecordSplit.h"

#include "apps/check/CsvScan.h"

#include <algorithm>
#include <bit>
#include <cstdint>

namespace quillmar::check {
namespace {

// Line breaks are a few in a block: clearing the lowest bit until none is left beats a general count.
size_t CountBits(uint64_t bits) noexcept {
    size_t count = 0;
    for (; bits != 0; bits &= bits - 1)
        ++count;
    return count;
}

// Calls `atTerminator(end, lineBreaksSoFar)` after each record terminator outside quotes, `end` being the
// position just past it; stops when it returns false. A final CR is left undecided.
template <typename AtTerminator> void ForEachTerminator(std::string_view bytes, AtTerminator atTerminator) {
    bool quoted = false;
    size_t lineBreaks = 0;
    const size_t n = bytes.size();
    for (size_t i = 0; i < n; ++i) {
        const char c = bytes[i];
        if (c == '"') {
            quoted = !quoted;
        } else if (c == '\n') {
            ++lineBreaks;
            if (!quoted && !atTerminator(i + 1, lineBreaks)) return;
        } else if (c == '\r') {
            if (i + 1 == n) return;
            if (bytes[i + 1] == '\n') continue; // the LF ends the line
            ++lineBreaks;
            if (!quoted && !atTerminator(i + 1, lineBreaks)) return;
        }
    }
}

} // namespace

RecordPrefix CompleteRecords(std::string_view bytes, ScanWidth width) noexcept {
    // Block by block: the line breaks are the LFs and the CRs not followed by an LF, the terminators those of
    // them outside quotes; the cut goes after the last terminator, so only the last block that holds one is
    // kept and looked into at the end. The masks are found a batch of blocks at a time, so they stay in the
    // first-level cache between the scan and their use.
    constexpr size_t kBatchBlocks = 64;
    LineMasks batch[kBatchBlocks];
    uint64_t inside = 0; // all ones while the previous block ended inside quotes
    size_t lineBreaks = 0;
    // The last block with a terminator: where it starts, its terminators and line breaks, and the line
    // breaks before it.
    size_t lastBase = 0;
    uint64_t lastTerminators = 0;
    uint64_t lastBreaks = 0;
    size_t breaksBeforeLast = 0;
    const size_t n = bytes.size();
    for (size_t batchBase = 0; batchBase < n; batchBase += 64 * kBatchBlocks) {
        const size_t batchSize = std::min<size_t>(64 * kBatchBlocks, n - batchBase);
        ScanLineMasks(bytes.substr(batchBase, batchSize), batch, width);
        for (size_t offset = 0; offset < batchSize; offset += 64) {
            const size_t base = batchBase + offset;
            const size_t size = std::min<size_t>(64, n - base);
            const LineMasks& masks = batch[offset / 64];
            const uint64_t quoted = PrefixXor(masks.quote) ^ inside;
            inside = uint64_t { 0 } - (quoted >> 63);
            const bool lfFollows = base + size < n && bytes[base + size] == '\n';
            uint64_t lonelyCr = masks.cr & ~((masks.lf >> 1) | (uint64_t { lfFollows } << 63));
            if (base + size == n) lonelyCr &= ~(uint64_t { 1 } << (size - 1)); // undecided: an LF may follow
            const uint64_t breaks = masks.lf | lonelyCr;
            if (const uint64_t terminators = breaks & ~quoted; terminators != 0) {
                lastBase = base;
                lastTerminators = terminators;
                lastBreaks = breaks;
                breaksBeforeLast = lineBreaks;
            }
            lineBreaks += CountBits(breaks);
        }
    }
    if (lastTerminators == 0) return {};
    const int last = 63 - std::countl_zero(lastTerminators);
    const uint64_t upToLast = last == 63 ? ~uint64_t { 0 } : (uint64_t { 1 } << (last + 1)) - 1;
    return { lastBase + static_cast<size_t>(last) + 1, breaksBeforeLast + CountBits(lastBreaks & upToLast) };
}

RecordPrefix FirstRecord(std::string_view bytes) noexcept {
    RecordPrefix prefix;
    size_t start = 0;
    ForEachTerminator(bytes, [&](size_t end, size_t lineBreaks) {
        const bool empty = bytes[start] == '\n' || bytes[start] == '\r';
        start = end;
        if (empty) return true;
        prefix = { end, lineBreaks };
        return false;
    });
    return prefix;
}

size_t CountLineBreaks(std::string_view bytes, ScanWidth width) noexcept {
    constexpr size_t kBatchBlocks = 64;
    LineMasks batch[kBatchBlocks];
    size_t count = 0;
    const size_t n = bytes.size();
    for (size_t batchBase = 0; batchBase < n; batchBase += 64 * kBatchBlocks) {
        const size_t batchSize = std::min<size_t>(64 * kBatchBlocks, n - batchBase);
        ScanLineMasks(bytes.substr(batchBase, batchSize), batch, width);
        for (size_t offset = 0; offset < batchSize; offset += 64) {
            const size_t next = batchBase + offset + 64;
            const LineMasks& masks = batch[offset / 64];
            const bool lfFollows = next < n && bytes[next] == '\n';
            const uint64_t lonelyCr = masks.cr & ~((masks.lf >> 1) | (uint64_t { lfFollows } << 63));
            count += static_cast<size_t>(std::popcount(masks.lf | lonelyCr));
        }
    }
    return count;
}

namespace {

// Whether a line terminator ends just before `at` (0 < at <= size): an LF, or a CR no LF follows.
bool EndsLineBefore(std::string_view bytes, size_t at) noexcept {
    const char c = bytes[at - 1];
    return c == '\n' || (c == '\r' && (at == bytes.size() || bytes[at] != '\n'));
}

} // namespace

RecordRange FindRecordRange(
    std::string_view bytes, size_t begin, size_t end, bool startsRecord, size_t limit) noexcept {
    const size_t n = bytes.size();
    size_t start = begin;
    if (!startsRecord) {
        start = std::max<size_t>(begin, 1);
        while (start <= end && !EndsLineBefore(bytes, start))
            ++start;
        if (start > end) return { end, end, false };
    }
    if (end >= n) return { start, n, false };
    // The quote state at the range's end, then the start of the record it holds there (walking back, each
    // quote passed flipping the state), whose length the limit bounds, then that record's end.
    const bool insideAtEnd = start < end && OddQuotes(bytes.substr(start, end - start));
    size_t last = end;
    for (bool inside = insideAtEnd; last > start && (inside || !EndsLineBefore(bytes, last));)
        if (bytes[--last] == '"') inside = !inside;
    bool inside = insideAtEnd;
    for (size_t at = end;; ++at) {
        if (at == n || (!inside && EndsLineBefore(bytes, at))) return { start, at, false };
        if (at - last > limit) return { start, last, true };
        if (bytes[at] == '"') inside = !inside;
    }
}

size_t LineBreaksBeforeRecord(std::string_view bytes, size_t record) noexcept {
    size_t start = 0;
    size_t breaksAtStart = 0;
    size_t seen = 0;
    size_t result = 0;
    bool found = false;
    const auto isRecordAt
        = [&](size_t at) { return at < bytes.size() && bytes[at] != '\n' && bytes[at] != '\r'; };
    if (isRecordAt(0) && record == 0) return 0;
    if (isRecordAt(0)) ++seen;
    ForEachTerminator(bytes, [&](size_t end, size_t lineBreaks) {
        start = end;
        breaksAtStart = lineBreaks;
        if (!isRecordAt(start)) return true;
        if (seen == record) {
            result = breaksAtStart;
            found = true;
            return false;
        }
        ++seen;
        return true;
    });
    return found ? result : CountLineBreaks(bytes);
}

} // namespace quillmar::check
