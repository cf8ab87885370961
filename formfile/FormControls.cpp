#include "formfile/FormControls.h"

#include "formfile/FaultLine.h"
#include "formfile/FormText.h"

namespace quillmar {
namespace {

using formtext::Location;
using formtext::Quoted;

// A store that only reads, remembering the last key asked for: a writer that refuses a value does so
// right after its entry was read.
class TracingStore final : public PropertyStore {
public:
    explicit TracingStore(const PropertyStore& inner)
        : m_inner(inner) { }
    [[nodiscard]] Variant ReadProperty(std::u16string_view key, const Variant& defaultValue) const override {
        m_lastKey = key;
        return m_inner.ReadProperty(key, defaultValue);
    }
    void WriteProperty(std::u16string_view, const Variant&, const Variant&) override { }
    [[nodiscard]] const std::u16string& LastKey() const noexcept { return m_lastKey; }

private:
    const PropertyStore& m_inner;
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
        TracingStore store(field.properties);
        try {
            control.ReadProperties(store);
        } catch (const PropertyError& error) {
            const Location where { sourceName, Quoted(field.name), "entry " + Quoted(store.LastKey()) };
            return where.Line(DescribeError(error.number()));
        }
    }
    return std::nullopt;
}

void CollectFormControls(FormDocument& document, const FormControlSource& controlOf) {
    for (FormControl& field : document.controls) {
        quillmar::MemoryPropertyStore properties;
        controlOf(field).WriteProperties(properties);
        field.properties = std::move(properties);
    }
}

} // namespace quillmar
