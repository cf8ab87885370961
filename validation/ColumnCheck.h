#pragma once

#include "validation/PreparedRules.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quillmar {

/// Where one text of a column stands: `size` ASCII bytes at `offset` of the column's bytes, or, when `wide`,
/// `size` UTF-16 units at `offset` of its units. A reader that keeps ASCII values where they were read
/// gives most texts as bytes and decodes only the others.
struct TextRun {
    uint32_t offset = 0;
    uint32_t size : 31 = 0;
    uint32_t wide : 1 = 0;
};

/// A column of texts as runs of a reader's bytes and units.
struct ColumnRuns {
    std::string_view bytes;
    std::u16string_view units;
    std::span<const TextRun> runs;
};

/// The batch entry point: checks a column of texts against one field's prepared rules, writing to `bits[i]`
/// what the field's `CheckInput` answers while it holds `texts[i]`. The spans must have the same size.
/// Allocates nothing per text and holds no state, so a database or a distributed engine can run it as a
/// user-defined function over its own partitions.
void CheckColumn(
    const PreparedRules& rules, std::span<const std::u16string_view> texts, std::span<int32_t> bits) noexcept;
/// What a batch check remembers of a column from text to text: the bits of short ASCII texts (up to 16
/// characters) it has judged, in a table of fixed size keyed on the text, for the rules it last checked.
/// Dates, times, quantities and names repeat in a column, and a text seen before is then judged by one
/// lookup. The bits of a text depend on the text and the prepared rules alone, so a remembered text gives
/// exactly what judging it again gives. A column whose texts rarely repeat stops looking up after a probe of
/// its first texts in each call. Belongs to one thread at a time.
class ColumnMemo {
public:
    ColumnMemo();

private:
    friend void CheckColumn(const PreparedRules& rules, const ColumnRuns& column, std::span<int32_t> bits,
        ColumnMemo* memo) noexcept;
    struct Entry {
        uint64_t low = 0;
        uint64_t high = 0;
        int32_t bits = 0;
        uint32_t size = 0; // 0: empty
    };
    std::vector<Entry> m_entries;
    uint64_t m_rules = 0; // the identity of the rules the entries were judged by
    size_t m_stored = 0; // entries filled
};

/// `CheckColumn` of the texts `column` gives, ASCII ones read from their bytes; `bits` has a place per run.
/// With a `memo`, texts the column repeats are looked up rather than judged again.
void CheckColumn(const PreparedRules& rules, const ColumnRuns& column, std::span<int32_t> bits,
    ColumnMemo* memo = nullptr) noexcept;

} // namespace quillmar
