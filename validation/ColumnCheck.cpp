#include "validation/ColumnCheck.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>
#include <cstring>

namespace quillmar {

void CheckColumn(const PreparedRules& rules, std::span<const std::u16string_view> texts,
    std::span<int32_t> bits) noexcept {
    assert(texts.size() == bits.size() && "CheckColumn needs one bit set per text");
    for (size_t i = 0; i < texts.size(); ++i)
        bits[i] = rules.CheckInput(texts[i]);
}

namespace {

constexpr size_t kMemoBits = 13;
// Texts a call looks up before it judges whether the column repeats itself enough to go on looking up.
constexpr size_t kMemoProbe = 256;

int32_t Judge(const PreparedRules& rules, const ColumnRuns& column, TextRun run) noexcept {
    return run.wide ? rules.Evaluate(std::u16string_view(column.units.data() + run.offset, run.size))
                    : rules.EvaluateAscii(std::string_view(column.bytes.data() + run.offset, run.size));
}

// The text's bytes (at most 16) as two words, the bytes past its end zero; reads 16 bytes where they stand
// inside the column's bytes.
void KeyOf(const ColumnRuns& column, TextRun run, uint64_t& low, uint64_t& high) noexcept {
    const char* at = column.bytes.data() + run.offset;
    if (run.offset + 16 <= column.bytes.size()) {
        std::memcpy(&low, at, 8);
        std::memcpy(&high, at + 8, 8);
    } else {
        char padded[16] = {};
        std::memcpy(padded, at, run.size);
        std::memcpy(&low, padded, 8);
        std::memcpy(&high, padded + 8, 8);
    }
    // The bytes a text of each length keeps in each word.
    static constexpr auto kKeep = [] {
        std::array<std::array<uint64_t, 2>, 17> keep {};
        for (size_t size = 0; size <= 16; ++size)
            for (size_t byte = 0; byte < size; ++byte)
                keep[size][byte / 8] |= uint64_t { 0xFF } << (8 * (byte % 8));
        return keep;
    }();
    low &= kKeep[run.size][0];
    high &= kKeep[run.size][1];
}

} // namespace

ColumnMemo::ColumnMemo()
    : m_entries(size_t { 1 } << kMemoBits) { }

void CheckColumn(const PreparedRules& rules, const ColumnRuns& column, std::span<int32_t> bits,
    ColumnMemo* memo) noexcept {
    assert(column.runs.size() == bits.size() && "CheckColumn needs one bit set per text");
    if (rules.settings().MustBeType == vldUnspecified) {
        std::fill(bits.begin(), bits.end(), 0);
        return;
    }
    size_t i = 0;
    const size_t n = column.runs.size();
    if (memo) {
        if (memo->m_rules != rules.identity()) {
            std::fill(memo->m_entries.begin(), memo->m_entries.end(), ColumnMemo::Entry {});
            memo->m_rules = rules.identity();
            memo->m_stored = 0;
        }
        size_t hits = 0;
        size_t until = std::min(n, kMemoProbe);
        for (; i < until; ++i) {
            const TextRun run = column.runs[i];
            if (run.wide || run.size == 0 || run.size > 16) {
                bits[i] = Judge(rules, column, run);
            } else {
                uint64_t low;
                uint64_t high;
                KeyOf(column, run, low, high);
                const uint64_t hash = (low ^ std::rotl(high, 29) ^ run.size) * UINT64_C(0x9E3779B97F4A7C15);
                ColumnMemo::Entry& entry = memo->m_entries[hash >> (64 - kMemoBits)];
                if (entry.size == run.size && entry.low == low && entry.high == high) {
                    bits[i] = entry.bits;
                    ++hits;
                } else {
                    bits[i] = Judge(rules, column, run);
                    memo->m_stored += entry.size == 0 ? 1 : 0;
                    entry = { low, high, bits[i], run.size };
                }
            }
            // A column that repeats itself in half its texts goes on being looked up, a probe at a time, and
            // so does one whose memo is still half empty, whose texts may not have come round yet.
            if (i + 1 == until && (hits * 2 >= kMemoProbe || memo->m_stored * 2 < memo->m_entries.size())) {
                until = std::min(n, until + kMemoProbe);
                hits = 0;
            }
        }
    }
    rules.CheckRuns(column, i, n, bits.data());
}

} // namespace quillmar
