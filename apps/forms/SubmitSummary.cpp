#include "apps/forms/SubmitSummary.h"

#include "qt/QtConversions.h"

#include <QCoreApplication>

#include <string>

namespace quillmar::forms {

std::u16string SubmitSummary(const std::vector<InvalidField>& fields) {
    std::u16string summary
        = qt::FromQString(fields.size() == 1 ? QCoreApplication::translate(
                              "SubmitSummary", "The record was not stored. Please correct this field:")
                                             : QCoreApplication::translate("SubmitSummary",
                                                 "The record was not stored. Please correct these %1 fields:")
                                                   .arg(fields.size()));
    summary += u'\n';
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
