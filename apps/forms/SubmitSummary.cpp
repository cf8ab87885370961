#include "apps/forms/SubmitSummary.h"

#include <string>

namespace quillmar::forms {

std::u16string SubmitSummary(const std::vector<InvalidField>& fields) {
    std::u16string summary = u"The record was not stored. Please correct ";
    if (fields.size() == 1) {
        summary += u"this field:\n";
    } else {
        const std::string count = std::to_string(fields.size());
        summary += u"these " + std::u16string(count.begin(), count.end()) + u" fields:\n";
    }
    for (const InvalidField& field : fields) {
        summary += u"\n\u2022 " + field.label + u": ";
        // The composed messages break their lines with "\r\n"; each further line is indented under the first.
        for (const char16_t c : field.message) {
            if (c == u'\r') continue;
            summary += c == u'\n' ? std::u16string(u"\n    ") : std::u16string(1, c);
        }
    }
    return summary;
}

} // namespace quillmar::forms
