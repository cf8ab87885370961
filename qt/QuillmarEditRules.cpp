// The field's rules as one text: what a `.ui` file and Designer's property editor carry for it.
#include "qt/QuillmarEdit.h"

#include "base/MemoryPropertyStore.h"
#include "base/Utf8.h"
#include "control/PropertyTable.h"
#include "formfile/FormEntryRules.h"
#include "formfile/FormFile.h"

#include <QDebug>

#include <string_view>

namespace quillmar::qt {
namespace {

using quillmar::MemoryPropertyStore;

// The entries of the rules the control holds itself; every other entry belongs to the edit box, the text or
// the enabled state, which travel as properties of their own.
bool IsRuleEntry(std::u16string_view key) {
    const StoredProperty* property = FindStoredProperty(key);
    return property && property->rule;
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
