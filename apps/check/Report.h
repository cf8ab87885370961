#pragma once

#include "apps/check/CheckTexts.h"
#include "validation/PreparedRules.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace quillmar::check {

/// How the report is written: readable lines, or one JSON object per line (JSON Lines).
enum class ReportFormat { Text, JsonLines };

/// Appends the end of a broken value's report line, everything after its row number: the column, the value,
/// the constraint names and the message the field's final validation shows for it under its
/// `ErrorMessageMode` (basic, advanced, or the author's own text as it stands) (text:
/// `, Quantity "600" [vldCCMaxValue]: A ...`, the message's lines joined by a space, nothing after the
/// constraints for an empty message; JSON: `,"column":...,"message":...}` with the lines kept), then a
/// line feed. The message is composed in the language of `catalogue`; the constraint names never change.
void AppendViolation(ReportFormat format, std::string_view column, std::u16string_view value, int32_t bits,
    const PreparedRules& rules, std::string& out, const MessageCatalogue& catalogue = EnglishMessages());

/// Writes broken values' report lines as `AppendViolation` does, byte for byte, composing the parts that do
/// not depend on the value (the column, the constraint names, and the message wherever the field's mode and
/// rules make it the same for every value with those constraints) once per column, field and constraints.
/// One writer serves one thread; the `rules` it is given must outlive it.
class ViolationWriter {
public:
    explicit ViolationWriter(ReportFormat format, const MessageCatalogue& catalogue = EnglishMessages())
        : m_format(format)
        , m_catalogue(catalogue) { }

    /// Appends what `AppendViolation(format, column, value, bits, rules, out, catalogue)` appends.
    void Append(std::string_view column, std::u16string_view value, int32_t bits, const PreparedRules& rules,
        std::string& out);

private:
    struct Parts {
        std::string beforeValue; ///< The column, up to the value.
        std::string afterValue; ///< The constraints, up to the message (and the message with the line end,
                                ///< when `perValue` is false).
        bool perValue = false; ///< The message depends on the value, so it is composed each time.
    };
    // The parts for the column, the field's rules and the constraints, composed on first use (`value` is the
    // first value that broke them).
    const Parts& PartsOf(
        std::string_view column, std::u16string_view value, int32_t bits, const PreparedRules& rules);

    ReportFormat m_format;
    const MessageCatalogue& m_catalogue;
    std::map<std::tuple<const PreparedRules*, std::string_view, int32_t>, Parts> m_parts;
    std::string m_utf8; // scratch for a value's or a message's UTF-8
};

/// Appends the start of a broken value's report line: `row 17` or `{"row":17`.
void AppendRow(ReportFormat format, uint64_t row, std::string& out);

/// Appends the line that tells a column was not checked (no field has its name) or a field was not checked
/// (no column has its name), in the language of `texts`.
void AppendUncheckedColumn(ReportFormat format, std::string_view column, std::string& out,
    const CheckTexts& texts = EnglishCheckTexts());
void AppendUncheckedField(ReportFormat format, std::string_view field, std::string& out,
    const CheckTexts& texts = EnglishCheckTexts());

/// What a whole check found.
struct Summary {
    uint64_t rows = 0;
    uint64_t values = 0;
    /// Per checked field, in form order: its name and its broken values.
    std::vector<std::pair<std::string, uint64_t>> brokenByField;
};

/// Appends the summary: the rows, the values, the broken values, and the broken values of each field
/// ("checked 1 row, 6 values: 2 broken"), in the language of `texts`.
void AppendSummary(ReportFormat format, const Summary& summary, std::string& out,
    const CheckTexts& texts = EnglishCheckTexts());

/// Appends a JSON string literal of UTF-8 text.
void AppendJsonString(std::string_view utf8, std::string& out);

} // namespace quillmar::check
