#include "validation/TextCase.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace quillmar {
namespace {

// Applies a simple (one code point to one code point) case mapping. Simple mappings keep a code point in
// its plane, so the text keeps its length and the caret its place; an unpaired surrogate stays as it is.
template <typename Predicate>
std::u16string MapCase(std::u16string_view text, UChar32 (*map)(UChar32), Predicate shouldMap) {
    std::u16string result;
    result.reserve(text.size());
    const int32_t length = static_cast<int32_t>(text.size());
    int32_t i = 0;
    while (i < length) {
        const int32_t start = i;
        UChar32 c;
        U16_NEXT(text.data(), i, length, c);
        UChar32 mapped = shouldMap(static_cast<size_t>(start)) ? map(c) : c;
        if (U16_LENGTH(mapped) != i - start) mapped = c;
        char16_t units[2];
        int32_t written = 0;
        U16_APPEND_UNSAFE(units, written, mapped);
        result.append(units, static_cast<size_t>(written));
    }
    return result;
}

} // namespace

std::u16string UpperCase(std::u16string_view text) {
    return MapCase(text, u_toupper, [](size_t) { return true; });
}

std::u16string LowerCase(std::u16string_view text) {
    return MapCase(text, u_tolower, [](size_t) { return true; });
}

std::u16string ProperCase(std::u16string_view text) {
    return MapCase(text, u_toupper, [text](size_t at) { return at == 0 || text[at - 1] == u' '; });
}

} // namespace quillmar
