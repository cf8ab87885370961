#include "apps/check/CsvScan.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#if defined(__x86_64__) && defined(__GNUC__)
#define QUILLMAR_AVX512_SCAN 1
#include <immintrin.h>
#endif

namespace quillmar::check {

BlockMasks ScanBlock(const char* bytes, size_t size) noexcept {
    BlockMasks masks;
#if defined(__SSE2__)
    // Short blocks are copied into a zeroed block first; a zero byte is none of the bytes looked for.
    alignas(16) char padded[64];
    const char* block = bytes;
    if (size < 64) {
        std::memset(padded, 0, sizeof padded);
        std::memcpy(padded, bytes, size);
        block = padded;
    }
    const __m128i quote = _mm_set1_epi8('"');
    const __m128i comma = _mm_set1_epi8(',');
    const __m128i lf = _mm_set1_epi8('\n');
    const __m128i cr = _mm_set1_epi8('\r');
    for (int part = 0; part < 4; ++part) {
        const __m128i v = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + 16 * part));
        const auto bits = [&](__m128i m) {
            return static_cast<uint64_t>(static_cast<uint32_t>(_mm_movemask_epi8(m))) << (16 * part);
        };
        masks.quote |= bits(_mm_cmpeq_epi8(v, quote));
        masks.comma |= bits(_mm_cmpeq_epi8(v, comma));
        masks.lf |= bits(_mm_cmpeq_epi8(v, lf));
        masks.cr |= bits(_mm_cmpeq_epi8(v, cr));
        masks.high |= bits(v);
    }
#else
    for (size_t i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        const uint64_t bit = uint64_t { 1 } << i;
        if (c == '"') masks.quote |= bit;
        if (c == ',') masks.comma |= bit;
        if (c == '\n') masks.lf |= bit;
        if (c == '\r') masks.cr |= bit;
        if (c >= 0x80) masks.high |= bit;
    }
#endif
    return masks;
}

namespace {

// What a scan carries from one block to the next: all ones while the block before ended inside quotes, and
// 1 when the value still open at its end holds a quote or a byte beyond ASCII.
struct ScanCarry {
    uint64_t inside = 0;
    uint64_t openQuoteOrHigh = 0;
};

// Where a scan writes what it finds, per block of 64 bytes and per separator.
struct ScanOutput {
    uint64_t* quotes;
    uint64_t* high;
    uint64_t* quotesOrHigh;
    uint64_t* lineEnds;
    uint64_t* marked;
    uint32_t* separators;
};

// Keeps the masks of the block at `base` and the separators outside quotes, carrying the quote state in
// `inside` (all ones while the previous block ended inside quotes); the new separator count.
// Writes the positions of the separators of the block at `base` to `at`, eight at a time whatever their
// number, which spares a branch per separator; writes past the last one land in the room kept after the
// bytes and are written over next. Gives how many there are.
[[gnu::always_inline]] inline size_t WriteEight(uint64_t separators, size_t base, uint32_t* at) noexcept {
    const auto found = static_cast<size_t>(std::popcount(separators));
    const auto write8 = [&] {
        for (int i = 0; i < 8; ++i, ++at) {
            *at = static_cast<uint32_t>(base + static_cast<size_t>(std::countr_zero(separators)));
            separators &= separators - 1;
        }
    };
    write8();
    if (found > 8) {
        write8();
        while (separators != 0)
            write8();
    }
    return found;
}

// Keeps the masks of the block at `base` and the marks of its separators outside quotes, which it gives.
[[gnu::always_inline]] inline uint64_t MarkBlock(
    const BlockMasks& masks, size_t base, ScanCarry& carry, const ScanOutput& out) noexcept {
    const uint64_t quoted = PrefixXor(masks.quote) ^ carry.inside;
    carry.inside = uint64_t { 0 } - (quoted >> 63);
    const size_t block = base / 64;
    out.quotes[block] = masks.quote;
    out.high[block] = masks.high;
    out.quotesOrHigh[block] = masks.quote | masks.high;
    const uint64_t separators = (masks.comma | masks.lf | masks.cr) & ~quoted;
    // Which values hold a quote or a byte beyond ASCII, for all separators at once. A value starts after a
    // separator (the first at the block's start) and runs up to the next one, so `separators - starts`
    // sets the bits of every value, and those of the last one, still open, up to the block's end. Adding a
    // value's marked bits to its own carries into its separator's bit exactly when there is one; the open
    // value's mark from the blocks before enters at bit 0.
    const uint64_t starts = (separators << 1) | 1;
    const uint64_t values = separators - starts;
    const uint64_t marked = ((masks.quote | masks.high) & values) | carry.openQuoteOrHigh;
    const uint64_t flagged = (values + marked) & separators;
    const int top = 64 - std::countl_zero(separators);
    const uint64_t open = top == 64 ? 0 : ~uint64_t { 0 } << top;
    carry.openQuoteOrHigh = (marked & open) != 0 ? 1 : 0;
    out.lineEnds[block] = (masks.lf | masks.cr) & separators;
    out.marked[block] = flagged;
    return separators;
}

size_t ScanPortable(std::string_view bytes, const ScanOutput& out) noexcept {
    ScanCarry carry;
    size_t count = 0;
    for (size_t base = 0; base < bytes.size(); base += 64) {
        const size_t size = std::min<size_t>(64, bytes.size() - base);
        const uint64_t separators = MarkBlock(ScanBlock(bytes.data() + base, size), base, carry, out);
        count += WriteEight(separators, base, out.separators + count);
    }
    return count;
}

#if defined(QUILLMAR_AVX512_SCAN)
// With VBMI2 the offsets of a block's separators come packed into bytes by one instruction, and are widened
// and placed sixteen at a time (into the room kept after the bytes).
[[gnu::target("avx512f,avx512bw,avx512vl,avx512vbmi2")]] size_t WritePacked(
    uint64_t separators, size_t base, uint32_t* at) noexcept {
    alignas(64) static constexpr auto kOffsets = [] {
        std::array<uint8_t, 64> offsets {};
        for (size_t i = 0; i < offsets.size(); ++i)
            offsets[i] = static_cast<uint8_t>(i);
        return offsets;
    }();
    alignas(64) uint8_t packed[64];
    _mm512_store_si512(packed, _mm512_maskz_compress_epi8(separators, _mm512_load_si512(kOffsets.data())));
    const auto found = static_cast<size_t>(std::popcount(separators));
    const __m512i first = _mm512_set1_epi32(static_cast<int>(base));
    // The widening is the zero-masked form with every lane kept: the plain one leaves GCC 12 warning about
    // its undefined source.
    for (size_t i = 0; i < found; i += 16)
        _mm512_storeu_si512(at + i,
            _mm512_add_epi32(first,
                _mm512_maskz_cvtepu8_epi32(
                    0xFFFF, _mm_loadu_si128(reinterpret_cast<const __m128i*>(packed + i)))));
    return found;
}

// The same scan 64 bytes to a vector: each comparison gives a block's mask at once. The last, shorter block
// is loaded under a mask, so nothing past the bytes is touched.
template <bool kPacked>
[[gnu::target("avx512f,avx512bw,avx512vl")]] size_t ScanAvx512(
    std::string_view bytes, const ScanOutput& out) noexcept {
    const __m512i quote = _mm512_set1_epi8('"');
    const __m512i comma = _mm512_set1_epi8(',');
    const __m512i lf = _mm512_set1_epi8('\n');
    const __m512i cr = _mm512_set1_epi8('\r');
    ScanCarry carry;
    size_t count = 0;
    for (size_t base = 0; base < bytes.size(); base += 64) {
        const size_t size = std::min<size_t>(64, bytes.size() - base);
        const __mmask64 valid = size == 64 ? ~__mmask64 { 0 } : (__mmask64 { 1 } << size) - 1;
        const __m512i v = _mm512_maskz_loadu_epi8(valid, bytes.data() + base);
        BlockMasks masks;
        masks.quote = _mm512_cmpeq_epi8_mask(v, quote);
        masks.comma = _mm512_cmpeq_epi8_mask(v, comma);
        masks.lf = _mm512_cmpeq_epi8_mask(v, lf);
        masks.cr = _mm512_cmpeq_epi8_mask(v, cr);
        masks.high = _mm512_movepi8_mask(v);
        const uint64_t separators = MarkBlock(masks, base, carry, out);
        if constexpr (kPacked)
            count += WritePacked(separators, base, out.separators + count);
        else
            count += WriteEight(separators, base, out.separators + count);
    }
    return count;
}

// The quote, LF and CR masks alone, 64 bytes to a vector; the last, shorter block is loaded under a mask.
[[gnu::target("avx512f,avx512bw")]] void ScanLineMasksAvx512(
    std::string_view bytes, LineMasks* out) noexcept {
    const __m512i quote = _mm512_set1_epi8('"');
    const __m512i lf = _mm512_set1_epi8('\n');
    const __m512i cr = _mm512_set1_epi8('\r');
    const size_t whole = bytes.size() / 64;
    for (size_t block = 0; block < whole; ++block) {
        const __m512i v = _mm512_loadu_si512(bytes.data() + 64 * block);
        out[block] = { _mm512_cmpeq_epi8_mask(v, quote), _mm512_cmpeq_epi8_mask(v, lf),
            _mm512_cmpeq_epi8_mask(v, cr) };
    }
    if (const size_t rest = bytes.size() % 64; rest != 0) {
        const __m512i v = _mm512_maskz_loadu_epi8((__mmask64 { 1 } << rest) - 1, bytes.data() + 64 * whole);
        out[whole] = { _mm512_cmpeq_epi8_mask(v, quote), _mm512_cmpeq_epi8_mask(v, lf),
            _mm512_cmpeq_epi8_mask(v, cr) };
    }
}

// The quotes' count, 64 bytes to a vector; the last, shorter block is loaded under a mask.
[[gnu::target("avx512f,avx512bw")]] size_t CountQuotesAvx512(std::string_view bytes) noexcept {
    const __m512i quote = _mm512_set1_epi8('"');
    size_t count = 0;
    const size_t whole = bytes.size() / 64;
    for (size_t block = 0; block < whole; ++block)
        count += static_cast<size_t>(
            std::popcount(_mm512_cmpeq_epi8_mask(_mm512_loadu_si512(bytes.data() + 64 * block), quote)));
    if (const size_t rest = bytes.size() % 64; rest != 0)
        count += static_cast<size_t>(std::popcount(_mm512_cmpeq_epi8_mask(
            _mm512_maskz_loadu_epi8((__mmask64 { 1 } << rest) - 1, bytes.data() + 64 * whole), quote)));
    return count;
}

bool HasAvx512() noexcept {
    static const bool has = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw")
        && __builtin_cpu_supports("avx512vl");
    return has;
}

bool HasVbmi2() noexcept {
    static const bool has = HasAvx512() && __builtin_cpu_supports("avx512vbmi2");
    return has;
}
#endif

} // namespace

void ScanLineMasks(std::string_view bytes, LineMasks* out, ScanWidth width) noexcept {
#if defined(QUILLMAR_AVX512_SCAN)
    if (width == ScanWidth::Widest && HasAvx512()) {
        ScanLineMasksAvx512(bytes, out);
        return;
    }
#endif
    (void)width;
    for (size_t base = 0; base < bytes.size(); base += 64) {
        const BlockMasks masks = ScanBlock(bytes.data() + base, std::min<size_t>(64, bytes.size() - base));
        out[base / 64] = { masks.quote, masks.lf, masks.cr };
    }
}

bool OddQuotes(std::string_view bytes, ScanWidth width) noexcept {
#if defined(QUILLMAR_AVX512_SCAN)
    if (width == ScanWidth::Widest && HasAvx512()) return (CountQuotesAvx512(bytes) & 1) != 0;
#endif
    (void)width;
    uint64_t parity = 0;
    for (size_t base = 0; base < bytes.size(); base += 64)
        parity ^= ScanBlock(bytes.data() + base, std::min<size_t>(64, bytes.size() - base)).quote;
    return (std::popcount(parity) & 1) != 0;
}

void CsvStructure::Scan(std::string_view bytes, ScanWidth width) {
    const size_t blocks = (bytes.size() + 63) / 64;
    m_quotes.resize(blocks);
    m_high.resize(blocks);
    m_quotesOrHigh.resize(blocks);
    m_lineEnds.resize(blocks);
    m_marked.resize(blocks);
    // A separator may stand at every byte, and the last block's eight at a time may write up to 64 more.
    if (m_separatorRoom < bytes.size() + 64) {
        m_separators.reset(new uint32_t[bytes.size() + 64]);
        m_separatorRoom = bytes.size() + 64;
    }
    const ScanOutput out { m_quotes.data(), m_high.data(), m_quotesOrHigh.data(), m_lineEnds.data(),
        m_marked.data(), m_separators.get() };
#if defined(QUILLMAR_AVX512_SCAN)
    if (width == ScanWidth::Widest && HasVbmi2()) {
        m_separatorCount = ScanAvx512<true>(bytes, out);
        return;
    }
    if (width != ScanWidth::Portable && HasAvx512()) {
        m_separatorCount = ScanAvx512<false>(bytes, out);
        return;
    }
#endif
    (void)width;
    m_separatorCount = ScanPortable(bytes, out);
}

} // namespace quillmar::check
