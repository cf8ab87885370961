#pragma once

#include "formfile/FormFile.h"

#include <QSaveFile>
#include <QString>

#include <functional>

namespace quillmar::forms {

/// Runs once the whole text is written to the temporary file and flushed, before it replaces the form
/// file; tests use it to make the save fail at that point (by cancelling the file, or by throwing, as an
/// interrupted program would stop).
using BeforeCommitHook = std::function<void(QSaveFile& file)>;

/// Saves the form to `path` as `FormToJson` writes it, through a temporary file in the same folder that is
/// flushed and then renamed over the old file, so that the old file stays as it was unless the whole new
/// one is in place. The form is checked first (`CheckFormDocument`): a form that would not load is not
/// written. Returns an empty string on success, otherwise one line saying what failed and where.
[[nodiscard]] QString SaveForm(
    const QString& path, const FormDocument& document, const BeforeCommitHook& beforeCommit = {});

} // namespace quillmar::forms
