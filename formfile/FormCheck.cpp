#include "formfile/FormCheck.h"

#include "formfile/FaultLine.h"
#include "formfile/FormEntryRules.h"
#include "formfile/FormText.h"

#include <algorithm>

namespace quillmar {
namespace {

using formtext::Location;
using formtext::Quoted;

// Names that differ only in ASCII case name the same column of the form's table.
bool SameName(std::u16string_view a, std::u16string_view b) {
    const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [&](char16_t x, char16_t y) {
        return lower(x) == lower(y);
    });
}

std::optional<std::string> GeometryFault(const FormControl& control) {
    const auto within = [](int32_t value, int32_t min) { return value >= min && value <= kMaxFormExtent; };
    if (within(control.left, -kMaxFormExtent) && within(control.top, -kMaxFormExtent)
        && within(control.width, 0) && within(control.height, 0))
        return std::nullopt;
    return "the place or size lies outside " + std::to_string(kMaxFormExtent) + " pixels";
}

} // namespace

std::optional<std::string> CheckFormDocument(
    const FormDocument& document, std::string_view sourceName, const LocaleInfo& locale) {
    Location where { sourceName, {}, {} };
    if (document.controls.size() > kMaxFormFields)
        return where.Line("more than " + std::to_string(kMaxFormFields) + " controls");
    if (document.width > kMaxFormExtent || document.height > kMaxFormExtent || document.width < 0
        || document.height < 0)
        return where.Line("the form's size lies outside " + std::to_string(kMaxFormExtent) + " pixels");
    for (size_t i = 0; i < document.controls.size(); ++i) {
        const FormControl& control = document.controls[i];
        where.control = control.name.empty() ? std::to_string(i + 1) : Quoted(control.name);
        where.entry.clear();
        if (control.name.empty()) return where.Line("the name is empty");
        for (size_t k = 0; k < i; ++k)
            if (SameName(document.controls[k].name, control.name))
                return where.Line(
                    "the name is used by an earlier control (" + Quoted(document.controls[k].name) + ")");
        if (auto fault = GeometryFault(control)) return where.Line(*fault);
        if (auto fault = FieldEntriesFault(control.properties, locale)) {
            where.entry = std::move(fault->entries);
            return where.Line(fault->what);
        }
    }
    return std::nullopt;
}

} // namespace quillmar
