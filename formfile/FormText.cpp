#include "formfile/FormText.h"

#include <algorithm>

namespace quillmar::formtext {
namespace {

constexpr std::string_view kBase64Alphabet
    = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::string Base64Encode(const ByteArray& bytes) {
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (size_t i = 0; i < bytes.size(); i += 3) {
        const size_t count = std::min<size_t>(3, bytes.size() - i);
        uint32_t group = uint32_t { bytes[i] } << 16;
        if (count > 1) group |= uint32_t { bytes[i + 1] } << 8;
        if (count > 2) group |= bytes[i + 2];
        for (size_t k = 0; k < 4; ++k)
            out.push_back(k <= count ? kBase64Alphabet[(group >> (18 - 6 * k)) & 0x3F] : '=');
    }
    return out;
}

std::optional<ByteArray> Base64Decode(std::string_view text, std::string& fault) {
    if (text.size() % 4 != 0) {
        fault = "invalid base64: the length " + std::to_string(text.size()) + " is not a multiple of 4";
        return std::nullopt;
    }
    ByteArray bytes;
    bytes.reserve(text.size() / 4 * 3);
    for (size_t i = 0; i < text.size(); i += 4) {
        size_t padding = 0;
        if (i + 4 == text.size() && text[i + 3] == '=') padding = text[i + 2] == '=' ? 2 : 1;
        uint32_t group = 0;
        for (size_t k = 0; k < 4 - padding; ++k) {
            const size_t digit = kBase64Alphabet.find(text[i + k]);
            if (digit == std::string_view::npos) {
                fault = "invalid base64: unexpected character at offset " + std::to_string(i + k);
                return std::nullopt;
            }
            group = (group << 6) | static_cast<uint32_t>(digit);
        }
        group <<= 6 * padding;
        bytes.push_back(static_cast<uint8_t>(group >> 16));
        if (padding < 2) bytes.push_back(static_cast<uint8_t>(group >> 8));
        if (padding < 1) bytes.push_back(static_cast<uint8_t>(group));
    }
    return bytes;
}

std::string CurrencyText(Currency amount) {
    const bool negative = amount.ticks < 0;
    const uint64_t magnitude
        = negative ? 0 - static_cast<uint64_t>(amount.ticks) : static_cast<uint64_t>(amount.ticks);
    std::string text = (negative ? "-" : "") + std::to_string(magnitude / 10000);
    if (const uint64_t fraction = magnitude % 10000; fraction != 0) {
        std::string digits = std::to_string(fraction);
        digits.insert(0, 4 - digits.size(), '0');
        digits.erase(digits.find_last_not_of('0') + 1);
        text += "." + digits;
    }
    return text;
}

std::optional<Currency> CurrencyFrom(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    const size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction
        = point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    const auto isDigits
        = [](std::string_view s) { return s.find_first_not_of("0123456789") == std::string_view::npos; };
    if (whole.empty() || !isDigits(whole) || !isDigits(fraction) || fraction.size() > 4
        || (point != std::string_view::npos && fraction.empty()))
        return std::nullopt;
    const uint64_t limit = negative ? uint64_t { 1 } << 63 : (uint64_t { 1 } << 63) - 1;
    uint64_t ticks = 0;
    for (size_t i = 0; i < whole.size() + 4; ++i) {
        const char digit = i < whole.size()
            ? whole[i]
            : (i - whole.size() < fraction.size() ? fraction[i - whole.size()] : '0');
        const auto value = static_cast<uint64_t>(digit - '0');
        if (ticks > (limit - value) / 10) return std::nullopt;
        ticks = ticks * 10 + value;
    }
    return Currency { negative ? static_cast<int64_t>(0 - ticks) : static_cast<int64_t>(ticks) };
}

} // namespace quillmar::formtext
