#include "apps/check/ColumnTable.h"

#include <algorithm>

namespace quillmar::check {

void ColumnTable::Clear(size_t columns, std::string_view bytes, size_t rows) {
    m_bytes = bytes;
    m_used = 0;
    m_columnCount = columns;
    m_stride = std::max<size_t>(rows, 1);
    if (m_runs.size() < columns * m_stride) m_runs.resize(columns * m_stride);
    m_rows = 0;
}

void ColumnTable::Grow() {
    // Doubles the room of each column, moving the columns apart from the last to the first.
    const size_t stride = m_stride * 2;
    m_runs.resize(std::max(m_runs.size(), m_columnCount * stride));
    for (size_t column = m_columnCount; column-- > 1;)
        std::copy_backward(m_runs.begin() + static_cast<ptrdiff_t>(column * m_stride),
            m_runs.begin() + static_cast<ptrdiff_t>(column * m_stride + m_rows),
            m_runs.begin() + static_cast<ptrdiff_t>(column * stride + m_rows));
    m_stride = stride;
}

char16_t* ColumnTable::Room(size_t units) {
    // Grows by doubling, so a table reused chunk after chunk soon stops growing.
    if (m_used + units > m_units.size()) m_units.resize(std::max(m_units.size() * 2, m_used + units));
    return m_units.data() + m_used;
}

void ColumnTable::CommitValue(size_t column, size_t units) {
    Slot(column) = { static_cast<uint32_t>(m_used), static_cast<uint32_t>(units), 1 };
    m_used += units;
}

void ColumnTable::Add(size_t column, std::u16string_view value) {
    std::copy(value.begin(), value.end(), Room(value.size()));
    CommitValue(column, value.size());
}

ColumnRuns ColumnTable::Column(size_t column) const noexcept {
    return { m_bytes, std::u16string_view(m_units.data(), m_used),
        std::span<const TextRun>(m_runs.data() + column * m_stride, m_rows) };
}

std::u16string_view ColumnTable::Text(size_t column, size_t row, std::u16string& scratch) const {
    const TextRun run = m_runs[column * m_stride + row];
    if (run.wide) return std::u16string_view(m_units.data() + run.offset, run.size);
    const std::string_view bytes = m_bytes.substr(run.offset, run.size);
    scratch.assign(bytes.begin(), bytes.end());
    return scratch;
}

} // namespace quillmar::check
