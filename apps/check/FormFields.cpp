#include "apps/check/FormFields.h"

#include "base/Utf8.h"
#include "formfile/FormFile.h"
#include "host/standalone/StandaloneHost.h"

#include <deque>

namespace quillmar::check {

FormFields LoadFormFields(const std::filesystem::path& form, const LocaleInfo& locale) {
    FormFields result;
    const FormResult loaded = LoadFormFile(form, locale);
    if (!loaded.document) {
        result.error = loaded.error;
        return result;
    }
    // Properties are read under the locale of the check, as a form host running in it would read them.
    struct Field {
        explicit Field(const LocaleInfo& locale) { host.locale.Set(locale); }
        standalone::StandaloneHost host;
        Quillmar control { host.Services() };
    };
    std::deque<Field> controls;
    const auto error = BuildFormControls(*loaded.document, form.string(),
        [&](const FormControl&) -> Quillmar& { return controls.emplace_back(locale).control; });
    if (error) {
        result.error = *error;
        return result;
    }
    for (size_t i = 0; i < controls.size(); ++i) {
        const Quillmar& control = controls[i].control;
        result.fields.push_back({ quillmar::ToUtf8(loaded.document->controls[i].name),
            PreparedRules(control.settings(), locale, control.MaxLength()) });
    }
    return result;
}

int FindField(const std::vector<CheckedField>& fields, std::string_view name) noexcept {
    for (size_t i = 0; i < fields.size(); ++i)
        if (fields[i].name == name) return static_cast<int>(i);
    return -1;
}

bool IsRecordColumn(std::string_view column) noexcept {
    return column == "SubmittedAt";
}

std::optional<std::string> NoFieldColumn(
    const std::vector<CheckedField>& fields, const std::vector<std::string>& columns) {
    for (const std::string& column : columns)
        if (FindField(fields, column) >= 0) return std::nullopt;
    std::string names;
    for (const CheckedField& field : fields)
        names += (names.empty() ? "" : ", ") + field.name;
    if (names.empty()) return "the form has no fields to check";
    return "no column is named after a field of the form (" + names + ")";
}

} // namespace quillmar::check
