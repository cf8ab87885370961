#include "apps/check/ColumnTable.h"

#include <algorithm>

namespace quillmar::check {

void ColumnTable::Clear(size_t columns) {
    m_used = 0;
    m_columns.resize(columns);
    for (auto& column : m_columns)
        column.clear();
    m_rows = 0;
}

char16_t* ColumnTable::ClearWithUnits(size_t columns, size_t units) {
    Clear(columns);
    (void)Room(units);
    m_used = units;
    return m_units.data();
}

void ColumnTable::CommitSpan(size_t column, size_t offset, size_t units) {
    m_columns[column].push_back({ static_cast<uint32_t>(offset), static_cast<uint32_t>(units) });
}

char16_t* ColumnTable::Room(size_t units) {
    // Grows by doubling, so a table reused chunk after chunk soon stops growing.
    if (m_used + units > m_units.size()) m_units.resize(std::max(m_units.size() * 2, m_used + units));
    return m_units.data() + m_used;
}

void ColumnTable::CommitValue(size_t column, size_t units) {
    m_columns[column].push_back({ static_cast<uint32_t>(m_used), static_cast<uint32_t>(units) });
    m_used += units;
}

void ColumnTable::Add(size_t column, std::u16string_view value) {
    std::copy(value.begin(), value.end(), Room(value.size()));
    CommitValue(column, value.size());
}

std::span<const std::u16string_view> ColumnTable::Column(size_t column) {
    m_views.clear();
    // A row cut short by a fault is no row: only whole rows are given.
    const auto& spans = m_columns[column];
    for (size_t row = 0; row < m_rows && row < spans.size(); ++row)
        m_views.emplace_back(m_units.data() + spans[row].offset, spans[row].length);
    return m_views;
}

} // namespace quillmar::check
