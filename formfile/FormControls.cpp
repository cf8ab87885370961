#include "formfile/FormControls.h"

#include "base/ListEncoding.h"
#include "formfile/FaultLine.h"
#include "formfile/FormText.h"

namespace quillmar {
namespace {

using formtext::Location;
using formtext::Quoted;

// A store that only reads, remembering the last key asked for: a writer that refuses a value does so
// right after its entry was read. A font entry the field leaves out reads as the form's font.
class TracingStore final : public PropertyStore {
public:
    TracingStore(const PropertyStore& inner, const FormFont& font)
        : m_inner(inner)
        , m_font(font) { }

    [[nodiscard]] Variant ReadProperty(std::u16string_view key, const Variant& defaultValue) const override {
        m_lastKey = key;
        if (key == u"FontName") return m_inner.ReadProperty(key, m_font.name);
        if (key == u"FontSize") return m_inner.ReadProperty(key, m_font.size);
        return m_inner.ReadProperty(key, defaultValue);
    }

    void WriteProperty(std::u16string_view, const Variant&, const Variant&) override { }
    [[nodiscard]] const std::u16string& LastKey() const noexcept { return m_lastKey; }

private:
    const PropertyStore& m_inner;
    const FormFont& m_font;
    mutable std::u16string m_lastKey;
};

std::string DescribeError(int number) {
    switch (number) {
    case PropertyError::InvalidPropertyValue:
        return "the stored value was refused with error 380 (invalid property value)";
    case PropertyError::NotSettableAtRunTime:
        return "the stored value was refused with error 382 (not settable at run time)";
    case PropertyError::NotAvailableAtRunTime:
        return "the stored value was refused with error 393 (not available at run time)";
    default:
        return "the stored value was refused with error " + std::to_string(number);
    }
}

} // namespace

std::optional<std::string> BuildFormControls(
    const FormDocument& document, std::string_view sourceName, const FormControlFactory& makeControl) {
    for (const FormControl& field : document.controls) {
        Quillmar& control = makeControl(field);
        TracingStore store(field.properties, document.font);
        try {
            control.ReadProperties(store);
        } catch (const PropertyError& error) {
            const Location where { sourceName, Quoted(field.name), "entry " + Quoted(store.LastKey()) };
            return where.Line(DescribeError(error.number()));
        }
    }
    return std::nullopt;
}

void LeaveOutReadDefaults(MemoryPropertyStore& entries, const FormFont& font) {
    const auto leaveOut = [&entries](std::u16string_view key, const Variant& readDefault) {
        if (const Variant* value = entries.Find(key); value && *value == readDefault)
            entries.WriteProperty(key, readDefault, readDefault);
    };
    leaveOut(u"FontName", font.name);
    leaveOut(u"FontSize", font.size);
    leaveOut(u"MustNotBeValues", EncodeList({ Variant() }));
    if (const Variant* stored = entries.Find(u"Font")) leaveOut(u"Font", Variant(*stored));
}

void CollectFormControls(FormDocument& document, const FormControlSource& controlOf) {
    for (FormControl& field : document.controls) {
        quillmar::MemoryPropertyStore properties;
        controlOf(field).WriteProperties(properties);
        LeaveOutReadDefaults(properties, document.font);
        field.properties = std::move(properties);
    }
}

} // namespace quillmar
