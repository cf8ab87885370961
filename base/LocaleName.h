#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// Why a locale name cannot be checked in, or nullopt when it can. A name is known when ICU knows its
/// language and, when it names one, its country ("de_DE", "de", "fr_CA"), with or without an encoding or a
/// modifier ("de_DE.UTF-8", "de_DE@euro" are de_DE); "C" and "POSIX" stand for en_US, as they do for a
/// program's default locale. "xx_YY", "german" and the empty name are unknown: their values would otherwise
/// be read in ICU's fallback locale, which nobody types in.
[[nodiscard]] std::optional<std::string> UnknownLocale(std::string_view name);

/// Where the process takes its locale name from: the first of LC_ALL, LC_NUMERIC and LANG that is set and not
/// empty, as the variable's name and its value; nullopt when none is (the C locale).
[[nodiscard]] std::optional<std::pair<std::string, std::string>> EnvironmentLocale();

} // namespace quillmar
