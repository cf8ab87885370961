#pragma once

#include <stdexcept>

namespace quillmar {

/// Raised by a property writer or reader that refuses: 380 invalid property value,
/// 382 list property written at run time, 393 list property read at run time.
/// It is the only exception that leaves the control.
class PropertyError : public std::runtime_error {
public:
    static constexpr int InvalidPropertyValue = 380;
    static constexpr int NotSettableAtRunTime = 382;
    static constexpr int NotAvailableAtRunTime = 393;

    explicit PropertyError(int number);

    /// The error number: 380, 382 or 393.
    [[nodiscard]] int number() const noexcept { return m_number; }

private:
    int m_number;
};

} // namespace quillmar
