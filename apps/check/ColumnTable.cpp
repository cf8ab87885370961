#include "apps/check/ColumnTable.h"

#include <algorithm>
#include <cassert>

namespace quillmar::check {

void ColumnTable::Clear(size_t columns) {
    m_used = 0;
    m_columnCount = columns;
    m_spans.clear();
    m_rows = 0;
}

char16_t* ColumnTable::ClearWithUnits(size_t columns, size_t units) {
    Clear(columns);
    (void)Room(units);
    m_used = units;
    return m_units.data();
}

char16_t* ColumnTable::Room(size_t units) {
    // Grows by doubling, so a table reused chunk after chunk soon stops growing.
    if (m_used + units > m_units.size()) m_units.resize(std::max(m_units.size() * 2, m_used + units));
    return m_units.data() + m_used;
}

void ColumnTable::CommitValue([[maybe_unused]] size_t column, size_t units) {
    assert(column == m_spans.size() % m_columnCount && "values come in column order");
    m_spans.push_back({ static_cast<uint32_t>(m_used), static_cast<uint32_t>(units) });
    m_used += units;
}

void ColumnTable::Add(size_t column, std::u16string_view value) {
    std::copy(value.begin(), value.end(), Room(value.size()));
    CommitValue(column, value.size());
}

std::span<const std::u16string_view> ColumnTable::Column(size_t column) {
    // A row cut short by a fault is no row: only whole rows are given.
    const size_t rows = std::min(m_rows, m_spans.size() / std::max<size_t>(m_columnCount, 1));
    m_views.resize(rows);
    for (size_t row = 0, at = column; row < rows; ++row, at += m_columnCount)
        m_views[row] = std::u16string_view(m_units.data() + m_spans[at].offset, m_spans[at].length);
    return m_views;
}

} // namespace quillmar::check
