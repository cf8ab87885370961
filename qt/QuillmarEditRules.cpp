// The field's rules as one text: what a `.ui` file and Designer's property editor carry for it.
#include "qt/QuillmarEdit.h"

#include "base/MemoryPropertyStore.h"
#include "base/Utf8.h"
#include "formfile/FormEntryRules.h"
#include "formfile/FormFile.h"

#include <QDebug>

#include <algorithm>
#include <array>
#include <string_view>

namespace quillmar::qt {
namespace {

using quillmar::MemoryPropertyStore;

// The entries of the properties the control holds itself; every other entry belongs to the edit box, the
// text or the enabled state, which travel as properties of their own.
constexpr std::array<std::u16string_view, 35> kRuleEntries = {
    u"MustBePositive",
    u"MustBeNegative",
    u"Beeping",
    u"MustBeUpperCase",
    u"MustBeLowerCase",
    u"NoDigits",
    u"OnlyLetters",
    u"AllowScientificFormat",
    u"FinalValidationActive",
    u"ValidCharactersSet",
    u"OnlyLettersWithSpace",
    u"ExtraExcludedCharacters",
    u"ExtraIncludedCharacters",
    u"RequiredField",
    u"ThousandSeparator",
    u"MaxNumberOfDecimals",
    u"CustomMask",
    u"DefaultValue",
    u"MinValue",
    u"MaxValue",
    u"MustNotBeZero",
    u"MustNotBeValues",
    u"Actions",
    u"ShowErrorMessage",
    u"ValidationMode",
    u"MustBeProperCase",
    u"MessageBoxTitle",
    u"ErrorMessageMode",
    u"MustBeType",
    u"OnErrorSelectEntireField",
    u"InputSifting",
    u"MaxRelativeAccuracy",
    u"MessageBoxIcon",
    u"ErrorMessage",
    u"ShowAsUnderstood",
};

bool IsRuleEntry(std::u16string_view key) {
    return std::find(kRuleEntries.begin(), kRuleEntries.end(), key) != kRuleEntries.end();
}

// Everything the control writes, with the text always present: a text equal to the write default would
// otherwise read back as the field's name.
MemoryPropertyStore Written(const Quillmar& control) {
    MemoryPropertyStore store;
    control.WriteProperties(store);
    store.WriteProperty(u"Text", control.Text(), Variant());
    return store;
}

} // namespace

QString QuillmarEdit::rules() const {
    const MemoryPropertyStore written = Written(*m_control);
    MemoryPropertyStore rules;
    for (const auto& entry : written.Entries())
        if (IsRuleEntry(entry.key)) rules.WriteProperty(entry.key, entry.value, Variant());
    return QString::fromStdString(EntriesToJson(rules));
}

QString QuillmarEdit::LoadRules(const QString& text) {
    const std::string source = "rules of \"" + objectName().toStdString() + "\"";
    const EntriesResult parsed = EntriesFromJson(text.toStdString(), source);
    if (!parsed.entries) return QString::fromStdString(parsed.error);
    for (const auto& entry : parsed.entries->Entries())
        if (!IsRuleEntry(entry.key))
            return QString::fromStdString(source + ": entry \"" + quillmar::ToUtf8(entry.key)
                + "\" is not a rule; it is a property of its own");
    // The rules pass the same checks as a field of a form file, so that a value a form file refuses does
    // not reach the field this way either.
    if (const auto fault
        = FieldEntriesFault(*parsed.entries, LocaleInfo::FromName(LocaleName().toStdString())))
        return QString::fromStdString(source + ": " + fault->entries + ": " + fault->what);

    const MemoryPropertyStore before = Written(*m_control);
    FormDocument form;
    FormControl& field = form.controls.emplace_back();
    field.name = FromQString(objectName());
    for (const auto& entry : before.Entries())
        if (!IsRuleEntry(entry.key)) field.properties.WriteProperty(entry.key, entry.value, Variant());
    for (const auto& entry : parsed.entries->Entries())
        field.properties.WriteProperty(entry.key, entry.value, Variant());
    const auto error
        = BuildFormControls(form, source, [this](const FormControl&) -> Quillmar& { return *m_control; });
    if (!error) return {};
    // A refused value stops the read part-way; the field goes back to what it held.
    m_control->ReadProperties(before);
    return QString::fromStdString(*error);
}

void QuillmarEdit::setRules(const QString& text) {
    if (const QString error = LoadRules(text); !error.isEmpty()) qWarning("%s", qUtf8Printable(error));
}

} // namespace quillmar::qt
