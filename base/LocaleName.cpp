#include "base/LocaleName.h"

#include <unicode/locid.h>
#include <unicode/uloc.h>

#include <cstdlib>
#include <cstring>

namespace quillmar {
namespace {

bool Listed(const char* const* codes, const char* code) {
    for (; *codes; ++codes)
        if (std::strcmp(*codes, code) == 0) return true;
    return false;
}

} // namespace

std::optional<std::string> UnknownLocale(std::string_view name) {
    const std::string base(name.substr(0, name.find_first_of(".@")));
    if (base == "C" || base == "POSIX") return std::nullopt;
    const icu::Locale locale(base.c_str());
    const bool known = !base.empty() && !locale.isBogus()
        && Listed(uloc_getISOLanguages(), locale.getLanguage())
        && (*locale.getCountry() == '\0' || Listed(uloc_getISOCountries(), locale.getCountry()));
    if (known) return std::nullopt;
    return "unknown locale \"" + std::string(name) + "\" (expected a language and a country, as in de_DE)";
}

std::optional<std::pair<std::string, std::string>> EnvironmentLocale() {
    for (const char* variable : { "LC_ALL", "LC_NUMERIC", "LANG" }) {
        const char* value = std::getenv(variable);
        if (value && *value) return std::pair<std::string, std::string>(variable, value);
    }
    return std::nullopt;
}

} // namespace quillmar
