#include "apps/check/Report.h"

#include "base/Utf8.h"
#include "formfile/FieldRules.h"
#include "validation/ConstraintNames.h"

#include <charconv>
#include <cstdio>

namespace quillmar::check {
namespace {

// The text report shows at most this many units of a value, so one line stays readable.
constexpr size_t kShownValueUnits = 60;

void AppendNumber(uint64_t value, std::string& out) {
    char buffer[24];
    out.append(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
}

// A value in double quotes with quotes, backslashes and control characters escaped; `utf8` is scratch.
void AppendQuotedValue(std::u16string_view value, std::string& utf8, std::string& out) {
    const bool cut = value.size() > kShownValueUnits;
    utf8.clear();
    AppendUtf8(value.substr(0, kShownValueUnits), utf8);
    out += '"';
    // Runs of bytes that need no escape go in at once.
    size_t run = 0;
    for (size_t i = 0; i < utf8.size(); ++i) {
        const char c = utf8[i];
        const bool plain = c != '"' && c != '\\' && static_cast<unsigned char>(c) >= 0x20;
        if (plain) continue;
        out.append(utf8, run, i - run);
        run = i + 1;
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\x%02X", static_cast<unsigned>(c));
            out += buffer;
        }
    }
    out.append(utf8, run);
    out += cut ? "...\"" : "\"";
}

// Appends what follows the constraints: the message as the format shows it, then the line's end; `utf8` is
// scratch.
void AppendMessageAndEnd(
    ReportFormat format, std::u16string_view message, std::string& utf8, std::string& out) {
    utf8.clear();
    AppendUtf8(message, utf8);
    if (format == ReportFormat::JsonLines) {
        AppendJsonString(utf8, out);
        out += "}\n";
        return;
    }
    if (!utf8.empty()) {
        // One report line per value: the message's lines, in any convention, are joined by a space.
        out += ": ";
        for (size_t i = 0; i < utf8.size(); ++i) {
            const char c = utf8[i];
            if (c == '\r' && i + 1 < utf8.size() && utf8[i + 1] == '\n') ++i;
            out += c == '\r' || c == '\n' ? ' ' : c;
        }
    }
    out += '\n';
}

// The start of a broken value's line after its row number, up to the value.
void AppendBeforeValue(ReportFormat format, std::string_view column, std::string& out) {
    if (format == ReportFormat::Text) {
        out += ", ";
        out += column;
        out += ' ';
        return;
    }
    out += ",\"column\":";
    AppendJsonString(column, out);
    out += ",\"value\":";
}

// The value as the format shows it; `utf8` is scratch.
void AppendValue(ReportFormat format, std::u16string_view value, std::string& utf8, std::string& out) {
    if (format == ReportFormat::Text) {
        AppendQuotedValue(value, utf8, out);
        return;
    }
    utf8.clear();
    AppendUtf8(value, utf8);
    AppendJsonString(utf8, out);
}

// The constraints after the value, up to the message.
void AppendConstraints(ReportFormat format, int32_t bits, std::string& out) {
    bool first = true;
    if (format == ReportFormat::Text) {
        out += " [";
        ForEachConstraintName(bits, [&](std::string_view name) {
            if (!first) out += ", ";
            out += name;
            first = false;
        });
        out += ']';
        return;
    }
    out += ",\"bits\":";
    AppendNumber(static_cast<uint64_t>(bits), out);
    out += ",\"constraints\":[";
    ForEachConstraintName(bits, [&](std::string_view name) {
        if (!first) out += ',';
        AppendJsonString(name, out);
        first = false;
    });
    out += "],\"message\":";
}

// Whether the message shown for a value that broke `bits` depends on the value itself: only the advanced
// message's line naming a forbidden value (zero among them) does, and never for a missing value.
bool MessageNamesTheValue(int32_t bits, const Settings& settings) {
    if (settings.ErrorMessageMode != vldAutoAdvanced || bits == vldCCRequiredField) return false;
    return settings.MustNotBeValues.size() > 1
        || (IsNumericType(settings.MustBeType) && settings.MustNotBeZero);
}

// A text of the report in the language of `texts`, with %1, %2 ... replaced by `args` (UTF-8).
template <typename... Args>
std::string Translated(const CheckTexts& texts, const char* english, const Args&... args) {
    const std::string_view list[] = { std::string_view(args)... };
    return texts.Text(english, list);
}

// A count with its noun, singular for one: "1 row", "2 rows".
void AppendCount(
    const CheckTexts& texts, uint64_t count, const char* one, const char* many, std::string& out) {
    std::string number;
    AppendNumber(count, number);
    out += Translated(texts, count == 1 ? one : many, number);
}

} // namespace

void AppendJsonString(std::string_view utf8, std::string& out) {
    out += '"';
    for (const char c : utf8) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char buffer[8];
                std::snprintf(buffer, sizeof buffer, "\\u%04x", static_cast<unsigned>(c));
                out += buffer;
            } else {
                out += c;
            }
        }
    }
    out += '"';
}

void AppendRow(ReportFormat format, uint64_t row, std::string& out) {
    out += format == ReportFormat::Text ? "row " : "{\"row\":";
    AppendNumber(row, out);
}

void AppendViolation(ReportFormat format, std::string_view column, std::u16string_view value, int32_t bits,
    const PreparedRules& rules, std::string& out, const MessageCatalogue& catalogue) {
    std::string utf8;
    AppendBeforeValue(format, column, out);
    AppendValue(format, value, utf8, out);
    AppendConstraints(format, bits, out);
    AppendMessageAndEnd(format, ShownMessage(value, bits, rules, catalogue), utf8, out);
}

const ViolationWriter::Parts& ViolationWriter::PartsOf(
    std::string_view column, std::u16string_view value, int32_t bits, const PreparedRules& rules) {
    const auto key = std::make_tuple(&rules, column, bits);
    if (const auto found = m_parts.find(key); found != m_parts.end()) return found->second;
    Parts parts;
    AppendBeforeValue(m_format, column, parts.beforeValue);
    AppendConstraints(m_format, bits, parts.afterValue);
    parts.perValue = MessageNamesTheValue(bits, rules.settings());
    if (!parts.perValue)
        AppendMessageAndEnd(
            m_format, ShownMessage(value, bits, rules, m_catalogue), m_utf8, parts.afterValue);
    return m_parts.emplace(key, std::move(parts)).first->second;
}

void ViolationWriter::Append(std::string_view column, std::u16string_view value, int32_t bits,
    const PreparedRules& rules, std::string& out) {
    const Parts& parts = PartsOf(column, value, bits, rules);
    out += parts.beforeValue;
    AppendValue(m_format, value, m_utf8, out);
    out += parts.afterValue;
    if (parts.perValue)
        AppendMessageAndEnd(m_format, ShownMessage(value, bits, rules, m_catalogue), m_utf8, out);
}

void AppendUncheckedColumn(
    ReportFormat format, std::string_view column, std::string& out, const CheckTexts& texts) {
    if (format == ReportFormat::Text) {
        out += Translated(texts,
            QT_TRANSLATE_NOOP("quillmar-check", "column %1: no field of the form has this name; not checked"),
            column);
        out += '\n';
        return;
    }
    out += "{\"unchecked_column\":";
    AppendJsonString(column, out);
    out += "}\n";
}

void AppendUncheckedField(
    ReportFormat format, std::string_view field, std::string& out, const CheckTexts& texts) {
    if (format == ReportFormat::Text) {
        out += Translated(texts,
            QT_TRANSLATE_NOOP("quillmar-check", "field %1: no column of the data has this name; not checked"),
            field);
        out += '\n';
        return;
    }
    out += "{\"unchecked_field\":";
    AppendJsonString(field, out);
    out += "}\n";
}

void AppendSummary(ReportFormat format, const Summary& summary, std::string& out, const CheckTexts& texts) {
    uint64_t broken = 0;
    for (const auto& field : summary.brokenByField)
        broken += field.second;
    if (format == ReportFormat::Text) {
        std::string rows;
        std::string values;
        std::string brokenCount;
        AppendCount(texts, summary.rows, QT_TRANSLATE_NOOP("quillmar-check", "%1 row"),
            QT_TRANSLATE_NOOP("quillmar-check", "%1 rows"), rows);
        AppendCount(texts, summary.values, QT_TRANSLATE_NOOP("quillmar-check", "%1 value"),
            QT_TRANSLATE_NOOP("quillmar-check", "%1 values"), values);
        AppendNumber(broken, brokenCount);
        out += Translated(texts, QT_TRANSLATE_NOOP("quillmar-check", "checked %1, %2: %3 broken"), rows,
            values, brokenCount);
        out += '\n';
        for (const auto& [name, count] : summary.brokenByField) {
            out += "  ";
            out += name;
            out += ": ";
            AppendNumber(count, out);
            out += '\n';
        }
        return;
    }
    out += "{\"summary\":{\"rows\":";
    AppendNumber(summary.rows, out);
    out += ",\"values\":";
    AppendNumber(summary.values, out);
    out += ",\"broken\":";
    AppendNumber(broken, out);
    out += ",\"broken_by_field\":{";
    for (size_t i = 0; i < summary.brokenByField.size(); ++i) {
        if (i > 0) out += ',';
        AppendJsonString(summary.brokenByField[i].first, out);
        out += ':';
        AppendNumber(summary.brokenByField[i].second, out);
    }
    out += "}}}\n";
}

} // namespace quillmar::check
