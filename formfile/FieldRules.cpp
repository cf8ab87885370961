#include "formfile/FieldRules.h"

#include "base/Utf8.h"
#include "formfile/FormFile.h"
#include "host/standalone/StandaloneHost.h"
#include "validation/Messages.h"

#include <deque>

namespace quillmar {

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

std::u16string ShownMessage(
    std::u16string_view value, int32_t bits, const PreparedRules& rules, const MessageCatalogue& catalogue) {
    const Settings& settings = rules.settings();
    if (settings.ErrorMessageMode == vldCustom) return settings.ErrorMessage;
    return ComposeErrorMessage(value, bits, 0, settings, rules.locale(), rules.maxLength(), catalogue);
}

} // namespace quillmar
