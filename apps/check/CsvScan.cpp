#include "apps/check/CsvScan.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace quillmar::check {

BlockMasks ScanBlock(const char* bytes, size_t size, char16_t* widened) noexcept {
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
    const __m128i zero = _mm_setzero_si128();
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
        if (widened && size == 64) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(widened + 16 * part), _mm_unpacklo_epi8(v, zero));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(widened + 16 * part + 8), _mm_unpackhi_epi8(v, zero));
        }
    }
    if (widened && size < 64)
        for (size_t i = 0; i < size; ++i)
            widened[i] = static_cast<unsigned char>(bytes[i]);
#else
    for (size_t i = 0; i < size; ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        const uint64_t bit = uint64_t { 1 } << i;
        if (c == '"') masks.quote |= bit;
        if (c == ',') masks.comma |= bit;
        if (c == '\n') masks.lf |= bit;
        if (c == '\r') masks.cr |= bit;
        if (c >= 0x80) masks.high |= bit;
        if (widened) widened[i] = c;
    }
#endif
    return masks;
}

void CsvStructure::Scan(std::string_view bytes, char16_t* widened) {
    const size_t blocks = (bytes.size() + 63) / 64;
    m_separators.clear();
    m_quotes.resize(blocks);
    m_high.resize(blocks);
    m_quotesOrHigh.resize(blocks);
    // A comma, CR or LF every few bytes is usual; reserving for one in four saves most regrowth.
    m_separators.reserve(bytes.size() / 4);
    uint64_t inside = 0; // all ones while the previous block ended inside quotes
    for (size_t block = 0; block < blocks; ++block) {
        const size_t base = block * 64;
        const size_t size = std::min<size_t>(64, bytes.size() - base);
        const BlockMasks masks = ScanBlock(bytes.data() + base, size, widened + base);
        const uint64_t quoted = PrefixXor(masks.quote) ^ inside;
        inside = uint64_t { 0 } - (quoted >> 63);
        m_quotes[block] = masks.quote;
        m_high[block] = masks.high;
        m_quotesOrHigh[block] = masks.quote | masks.high;
        for (uint64_t separators = (masks.comma | masks.lf | masks.cr) & ~quoted; separators != 0;
             separators &= separators - 1)
            m_separators.push_back(
                static_cast<uint32_t>(base + static_cast<size_t>(std::countr_zero(separators))));
    }
}

} // namespace quillmar::check
