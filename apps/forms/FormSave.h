#pragma once

#include "formfile/FormFile.h"

#include <QString>

namespace quillmar::forms {

/// Saves the form to `path` as `FormToJson` writes it, with `ReplaceFileAtomically`: the old file stays as
/// it was unless the whole new one is in place. The form is checked first (`CheckFormDocument`): a form
/// that would not load is not written. `beforeCommit` is passed on to the saver (tests make the save fail
/// with it). Returns an empty string on success, otherwise one line saying what failed and where.
[[nodiscard]] QString SaveForm(
    const QString& path, const FormDocument& document, const BeforeCommitHook& beforeCommit = {});

} // namespace quillmar::forms
