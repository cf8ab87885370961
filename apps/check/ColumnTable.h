#pragma once

#include "validation/ColumnCheck.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillmar::check {

/// The values of a run of rows, column by column: what the checker reads. An ASCII value read from CSV
/// stays where it was read, as a run of the chunk's bytes; any other value is decoded into the table's own
/// UTF-16 units. Filled row by row, each row's values in column order; each column's runs lie side by side,
/// so a column is read in one sweep. Its storage is kept by `Clear`, so a table reused for chunk after chunk
/// stops allocating.
class ColumnTable {
public:
    /// Empties the table for rows of `columns` values, whose ASCII values may be runs of `bytes` (which must
    /// outlive the table's use), with room for `rows` rows before it grows.
    void Clear(size_t columns, std::string_view bytes = {}, size_t rows = 64);

    /// The number of columns each row has.
    [[nodiscard]] size_t ColumnCount() const noexcept { return m_columnCount; }
    /// The number of whole rows.
    [[nodiscard]] size_t RowCount() const noexcept { return m_rows; }

    /// Ends the value of `column` in the current row: the `size` bytes at `offset` of the bytes given to
    /// `Clear`, every one of them ASCII. Inline: the reader commits most values this way.
    void CommitBytes(size_t column, size_t offset, size_t size) {
        Slot(column) = { static_cast<uint32_t>(offset), static_cast<uint32_t>(size), 0 };
    }
    /// Room for `units` more UTF-16 units of the next value; valid until the next call.
    char16_t* Room(size_t units);
    /// Ends the value of `column` in the current row: the next `units` units of the room.
    void CommitValue(size_t column, size_t units);
    /// Ends the current row.
    void CommitRow() noexcept { ++m_rows; }
    /// Appends a whole value to `column` of the current row.
    void Add(size_t column, std::u16string_view value);

    /// The values of one column, row by row (whole rows only); valid until the table changes.
    [[nodiscard]] ColumnRuns Column(size_t column) const noexcept;
    /// One value in UTF-16: a view of the table's units, or of `scratch` holding the widened bytes.
    [[nodiscard]] std::u16string_view Text(size_t column, size_t row, std::u16string& scratch) const;

private:
    TextRun& Slot(size_t column) {
        if (m_rows == m_stride) Grow();
        return m_runs[column * m_stride + m_rows];
    }
    void Grow();

    std::string_view m_bytes;
    std::vector<char16_t> m_units;
    size_t m_used = 0;
    size_t m_columnCount = 0;
    std::vector<TextRun> m_runs; // column by column, `m_stride` rows apart
    size_t m_stride = 0;
    size_t m_rows = 0;
};

} // namespace quillmar::check
