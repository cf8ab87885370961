#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace quillmar::check {

/// The bytes of 64 CSV bytes that matter to a reader, one bit per byte (bit i for byte i).
struct BlockMasks {
    uint64_t quote = 0;
    uint64_t comma = 0;
    uint64_t lf = 0;
    uint64_t cr = 0;
    /// Bytes of 0x80 and above: the ones that are not ASCII.
    uint64_t high = 0;
};

/// The masks of the `size` (at most 64) bytes at `bytes`; the bits past `size` are 0.
[[nodiscard]] BlockMasks ScanBlock(const char* bytes, size_t size) noexcept;

/// Each bit becomes the exclusive or of itself and every bit below it: for a quote mask, the bytes from an
/// opening quote up to (not including) its closing quote. A doubled quote leaves and re-enters, so it needs
/// no special case.
[[nodiscard]] constexpr uint64_t PrefixXor(uint64_t bits) noexcept {
    bits ^= bits << 1;
    bits ^= bits << 2;
    bits ^= bits << 4;
    bits ^= bits << 8;
    bits ^= bits << 16;
    bits ^= bits << 32;
    return bits;
}

/// How a scan reads its bytes: `ScanBlock` 16 bytes at a time (SSE2) everywhere, or 64 at a time with
/// AVX-512 where the processor has it (asked once), which gives the same structure. `Widest` also packs the
/// separators' positions with VBMI2 where there is that too; `Vector` never does, so that both ways can be
/// compared on one processor.
enum class ScanWidth { Portable, Vector, Widest };

/// The bits of 64 CSV bytes that tell where records end: quotes, LFs and CRs (bit i for byte i).
struct LineMasks {
    uint64_t quote = 0;
    uint64_t lf = 0;
    uint64_t cr = 0;
};

/// Writes the line masks of each block of 64 bytes of `bytes` to `out`, which has room for
/// `(bytes.size() + 63) / 64` of them; the last block may be shorter, its bits past the bytes are 0. Reads
/// as `width` says: with `ScanBlock`, or 64 bytes to a vector with AVX-512 where the processor has it; both
/// give the same masks.
void ScanLineMasks(std::string_view bytes, LineMasks* out, ScanWidth width = ScanWidth::Widest) noexcept;

/// Whether `bytes` hold an odd number of quotes: read as `width` says, 64 bytes to a vector with AVX-512
/// where the processor has it.
[[nodiscard]] bool OddQuotes(std::string_view bytes, ScanWidth width = ScanWidth::Widest) noexcept;

/// The structure of a run of CSV bytes, found block by block: where the commas, CRs and LFs outside quotes
/// stand, and which bytes are quotes or not ASCII. A scan keeps its storage for the next one.
class CsvStructure {
public:
    /// Scans `bytes` (at most 4 GiB).
    void Scan(std::string_view bytes, ScanWidth width = ScanWidth::Widest);

    /// The positions of the commas, CRs and LFs outside quotes, in order.
    [[nodiscard]] std::span<const uint32_t> Separators() const noexcept {
        return { m_separators.get(), m_separatorCount };
    }
    /// Whether the separator at `at` is a CR or LF, which ends a record.
    [[nodiscard]] bool EndsRecord(uint32_t at) const noexcept {
        return (m_lineEnds[at / 64] >> (at % 64) & 1) != 0;
    }
    /// Whether the value the separator at `at` ends (from just after the separator before it, or from the
    /// start) holds a quote or a byte beyond ASCII: `AnyQuoteOrHigh` of that value, found for a whole block
    /// at once by the scan.
    [[nodiscard]] bool EndsQuoteOrHigh(uint32_t at) const noexcept {
        return (m_marked[at / 64] >> (at % 64) & 1) != 0;
    }
    /// Whether a quote, a byte that is not ASCII, or either stands in [from, to).
    [[nodiscard]] bool AnyQuote(size_t from, size_t to) const noexcept { return AnyBit(m_quotes, from, to); }
    [[nodiscard]] bool AnyHigh(size_t from, size_t to) const noexcept { return AnyBit(m_high, from, to); }
    [[nodiscard]] bool AnyQuoteOrHigh(size_t from, size_t to) const noexcept {
        return AnyBit(m_quotesOrHigh, from, to);
    }

private:
    static bool AnyBit(const std::vector<uint64_t>& bits, size_t from, size_t to) noexcept {
        if (from >= to) return false;
        const size_t first = from / 64;
        const size_t last = (to - 1) / 64;
        const uint64_t head = ~uint64_t { 0 } << (from % 64);
        const uint64_t tail = ~uint64_t { 0 } >> (63 - (to - 1) % 64);
        if (first == last) return (bits[first] & head & tail) != 0;
        if ((bits[first] & head) != 0 || (bits[last] & tail) != 0) return true;
        for (size_t i = first + 1; i < last; ++i)
            if (bits[i] != 0) return true;
        return false;
    }

    // Room for a separator at every byte and 64 more, so the scan writes without checking; pages never
    // written to are never taken from the system.
    std::unique_ptr<uint32_t[]> m_separators;
    size_t m_separatorRoom = 0;
    size_t m_separatorCount = 0;
    std::vector<uint64_t> m_quotes;
    std::vector<uint64_t> m_high;
    std::vector<uint64_t> m_quotesOrHigh;
    std::vector<uint64_t> m_lineEnds; // the separators that are CRs or LFs
    std::vector<uint64_t> m_marked; // the separators whose value holds a quote or a byte beyond ASCII
};

} // namespace quillmar::check
