#pragma once

#include <quillmar/CoreExport.h>

#include <quillmar/formfile/FormDocument.h>

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillmar {

/// Runs once the whole new text is in the temporary file, synced and closed, just before that file is
/// renamed over the old one; it is given the temporary file's path. Tests use it to make a save fail at
/// that point: by taking the temporary file away (the rename then fails), or by throwing, as an
/// interrupted program would stop. Whatever it does, the old file stays as it was.
using BeforeCommitHook = std::function<void(const std::filesystem::path& temporary)>;

/// Replaces the file at `path` with `contents` so that the file is always either wholly old or wholly new:
/// the text goes into a new file of a unique name in the same folder (`mkstemp`), which is written,
/// `fsync`ed and closed, takes the old file's permissions (a new file gets 0666 less the umask), and is
/// renamed over `path`; the folder is then synced so that the rename lasts. A `path` that is a symbolic
/// link replaces the file the link leads to and keeps the link. On any failure, or when `beforeCommit`
/// throws, the temporary file is removed and the old file is untouched (except when only the final sync of
/// the folder fails: the new file is then in place). Returns nullopt on success, otherwise what failed
/// and why, such as "cannot create a temporary file in /forms: Permission denied" (it does not repeat
/// `path`, so that a caller can put it in its own words).
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<std::string> ReplaceFileAtomically(
    const std::filesystem::path& path, std::string_view contents, const BeforeCommitHook& beforeCommit = {});

/// Writes `FormToJson(document)` to `path` with `ReplaceFileAtomically`. Does not check the form; a
/// program that saves what a person designed checks it with `CheckFormDocument` first. Returns nullopt on
/// success, otherwise one line naming the path as given: `orders.qform.json: cannot be written: cannot
/// create a temporary file in .: Permission denied`.
[[nodiscard]] QUILLMAR_CORE_EXPORT std::optional<std::string> SaveFormFile(const std::filesystem::path& path,
    const FormDocument& document, const BeforeCommitHook& beforeCommit = {});

} // namespace quillmar
