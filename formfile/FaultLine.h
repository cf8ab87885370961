#pragma once

// The one line every fault of the form-file module is reported as.
#include <string>
#include <string_view>

namespace quillmar::formtext {

/// Where a fault lies: the source, then the control and the entry once they are known. `control` is as a
/// line names it (`"Quantity"` in quotes, or the field's number while its name is unknown); `entry` too:
/// `entry "MaxLength"`, or `entries "MinValue" and "MaxValue"`.
struct Location {
    std::string_view source;
    std::string control;
    std::string entry;

    /// "source: control "Quantity", entry "MaxLength": what", leaving out what is not known; any control
    /// character in it becomes a space, so that a fault's own description never breaks the line.
    [[nodiscard]] std::string Line(std::string_view what) const {
        std::string line(source);
        line += ": ";
        if (!control.empty()) line += "control " + control + (entry.empty() ? ": " : ", ");
        if (!entry.empty()) line += entry + ": ";
        line += what;
        for (char& c : line)
            if (static_cast<unsigned char>(c) < 0x20) c = ' ';
        return line;
    }
};

} // namespace quillmar::formtext
