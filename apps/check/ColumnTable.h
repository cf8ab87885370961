#pragma once

#include <cassert>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::check {

/// The values of a run of rows, column by column, in UTF-16: what the checker reads. Filled row by row with
/// `Add`, each row's values in column order; its storage is kept by `Clear`, so a table reused for chunk
/// after chunk stops allocating.
class ColumnTable {
public:
    /// Empties the table for rows of `columns` values.
    void Clear(size_t columns);

    /// The number of columns each row has.
    [[nodiscard]] size_t ColumnCount() const noexcept { return m_columnCount; }
    [[nodiscard]] size_t RowCount() const noexcept { return m_rows; }

    /// Empties the table for rows of `columns` values and gives room for `units` units at its start, which
    /// the caller fills (a widened copy of the bytes being read) and values may then refer to with
    /// `CommitSpan`. Values added with `Room` go after them.
    char16_t* ClearWithUnits(size_t columns, size_t units);
    /// Ends the value of `column` in the current row: the `units` units at `offset` of the table's start.
    /// Inline: the reader commits most values this way, one call per value.
    void CommitSpan([[maybe_unused]] size_t column, size_t offset, size_t units) {
        assert(column == m_spans.size() % m_columnCount && "values come in column order");
        m_spans.push_back({ static_cast<uint32_t>(offset), static_cast<uint32_t>(units) });
    }

    /// Room for `units` more UTF-16 units of the next value; valid until the next call.
    char16_t* Room(size_t units);
    /// Ends the value of `column` in the current row: the next `units` units of the room.
    void CommitValue(size_t column, size_t units);
    /// Ends the current row.
    void CommitRow() noexcept { ++m_rows; }
    /// Appends a whole value to `column` of the current row.
    void Add(size_t column, std::u16string_view value);

    /// The values of one column, row by row; valid until the table changes.
    [[nodiscard]] std::span<const std::u16string_view> Column(size_t column);

private:
    struct Span {
        uint32_t offset;
        uint32_t length;
    };
    std::vector<char16_t> m_units;
    size_t m_used = 0;
    size_t m_columnCount = 0;
    std::vector<Span> m_spans; // row by row

    std::vector<std::u16string_view> m_views;
    size_t m_rows = 0;
};

} // namespace quillmar::check
