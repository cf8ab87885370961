#include "apps/check/ColumnTable.h"

#include <algorithm>

namespace quillmar::check {

void ColumnTable::Clear(size_t columns, std::string_view bytes) {
    m_bytes = bytes;
    m_used = 0;
    m_columns.resize(columns);
    for (std::vector<TextRun>& runs : m_columns)
        runs.clear();
    m_rows = 0;
}

char16_t* ColumnTable::Room(size_t units) {
    // Grows by doubling, so a table reused chunk after chunk soon stops growing.
    if (m_used + units > m_units.size()) m_units.resize(std::max(m_units.size() * 2, m_used + units));
    return m_units.data() + m_used;
}

void ColumnTable::CommitValue(size_t column, size_t units) {
    m_columns[column].push_back({ static_cast<uint32_t>(m_used), static_cast<uint32_t>(units), 1 });
    m_used += units;
}

void ColumnTable::Add(size_t column, std::u16string_view value) {
    std::copy(value.begin(), value.end(), Room(value.size()));
    CommitValue(column, value.size());
}

ColumnRuns ColumnTable::Column(size_t column) const noexcept {
    // A row cut short by a fault is no row: only whole rows are given.
    const std::vector<TextRun>& runs = m_columns[column];
    return { m_bytes, std::u16string_view(m_units.data(), m_used),
        std::span<const TextRun>(runs.data(), std::min(m_rows, runs.size())) };
}

std::u16string_view ColumnTable::Text(size_t column, size_t row, std::u16string& scratch) const {
    const TextRun run = m_columns[column][row];
    if (run.wide) return std::u16string_view(m_units.data() + run.offset, run.size);
    const std::string_view bytes = m_bytes.substr(run.offset, run.size);
    scratch.assign(bytes.begin(), bytes.end());
    return scratch;
}

} // namespace quillmar::check
