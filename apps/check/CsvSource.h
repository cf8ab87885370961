#pragma once

#include "apps/check/CheckSession.h"

#include <cstdio>
#include <filesystem>

namespace quillmar::check {

/// Checks a CSV file (UTF-8, an optional byte-order mark, a header row naming the columns) against the
/// fields, streaming it in blocks cut at record boundaries. Writes the report to `out` and any fault's one
/// line to `err`; returns the exit status of `CheckSession::Finish` (2 when the file cannot be read).
[[nodiscard]] int CheckCsvFile(const std::vector<CheckedField>& fields, const std::filesystem::path& path,
    const CheckOptions& options, std::FILE* out, std::FILE* err);

} // namespace quillmar::check
