#pragma once

#include "apps/check/CheckSession.h"
#include "formfile/StoredText.h"

#include <cstdio>
#include <filesystem>
#include <string>

namespace quillmar::check {

/// Checks every row of a table of an SQLite database, one column per field as the form application stores
/// records, against the fields. Writes the report to `out` and any fault's one line to `err`; returns the
/// exit status of `CheckSession::Finish` (2 when the database or the table cannot be read).
[[nodiscard]] int CheckSqliteTable(const std::vector<CheckedField>& fields, const std::filesystem::path& path,
    const std::string& table, const CheckOptions& options, std::FILE* out, std::FILE* err);

} // namespace quillmar::check
