#pragma once

#include <quillmar/CoreExport.h>

#include <stdexcept>
#include <string>
#include <string_view>

namespace quillmar {

/// Raised by a property writer or reader that refuses: 380 invalid property value,
/// 382 list property written at run time, 393 list property read at run time.
/// It is the only exception that leaves the control.
class QUILLMAR_CORE_EXPORT PropertyError : public std::runtime_error {
public:
    static constexpr int InvalidPropertyValue = 380; ///< A value out of the property's range.
    static constexpr int NotSettableAtRunTime = 382; ///< A design-time list written while the form runs.
    static constexpr int NotAvailableAtRunTime = 393; ///< A design-time list read while the form runs.

    /// A refusal of `property` (UTF-8, its exact name); `value` is the refused value as text, empty for 382
    /// and 393. `what()` names both: "MustBeType: 42 is out of range (380)", "Actions: cannot be set at run
    /// time (382)", "Actions: cannot be read at run time (393)".
    PropertyError(int number, std::string_view property, std::string_view value = {})
        : std::runtime_error(Describe(number, property, value))
        , m_number(number)
        , m_property(property) { }

    /// The error number: 380, 382 or 393.
    [[nodiscard]] int number() const noexcept { return m_number; }
    /// The name of the property that refused.
    [[nodiscard]] const std::string& property() const noexcept { return m_property; }

private:
    static std::string Describe(int number, std::string_view property, std::string_view value) {
        std::string text(property);
        text += ": ";
        switch (number) {
        case NotSettableAtRunTime:
            text += "cannot be set at run time";
            break;
        case NotAvailableAtRunTime:
            text += "cannot be read at run time";
            break;
        default:
            text.append(value).append(" is out of range");
            break;
        }
        return text + " (" + std::to_string(number) + ")";
    }

    int m_number;
    std::string m_property;
};

} // namespace quillmar
