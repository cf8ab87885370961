#include "apps/check/Report.h"

#include "base/Utf8.h"
#include "formfile/FieldRules.h"
#include "validation/ConstraintNames.h"

#include <QCoreApplication>
#include <QString>

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

// A value in double quotes with quotes, backslashes and control characters escaped.
void AppendQuotedValue(std::u16string_view value, std::string& out) {
    const bool cut = value.size() > kShownValueUnits;
    std::string utf8;
    AppendUtf8(value.substr(0, kShownValueUnits), utf8);
    out += '"';
    for (const char c : utf8) {
        if (c == '"' || c == '\\') {
            out += '\\';
            out += c;
        } else if (static_cast<unsigned char>(c) < 0x20) {
            char buffer[8];
            std::snprintf(buffer, sizeof buffer, "\\x%02X", static_cast<unsigned>(c));
            out += buffer;
        } else {
            out += c;
        }
    }
    out += cut ? "...\"" : "\"";
}

// A text of the report in the language installed for the program, with %1, %2 ... replaced by `args` (UTF-8).
template <typename... Args> std::string Translated(const char* english, const Args&... args) {
    const auto utf16 = [](std::string_view utf8) {
        return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    };
    return QCoreApplication::translate("quillmar-check", english).arg(utf16(args)...).toStdString();
}

// A count with its noun, singular for one: "1 row", "2 rows".
void AppendCount(uint64_t count, const char* one, const char* many, std::string& out) {
    std::string number;
    AppendNumber(count, number);
    out += Translated(count == 1 ? one : many, number);
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
    std::string message;
    AppendUtf8(ShownMessage(value, bits, rules, catalogue), message);
    if (format == ReportFormat::Text) {
        out += ", ";
        out += column;
        out += ' ';
        AppendQuotedValue(value, out);
        out += " [";
        bool first = true;
        ForEachConstraintName(bits, [&](std::string_view name) {
            if (!first) out += ", ";
            out += name;
            first = false;
        });
        out += ']';
        if (!message.empty()) {
            // One report line per value: the message's lines, in any convention, are joined by a space.
            for (size_t at = 0; (at = message.find_first_of("\r\n", at)) != std::string::npos;)
                message.replace(at, message.compare(at, 2, "\r\n") == 0 ? 2 : 1, " ");
            out += ": ";
            out += message;
        }
        out += '\n';
        return;
    }
    out += ",\"column\":";
    AppendJsonString(column, out);
    out += ",\"value\":";
    std::string utf8;
    AppendUtf8(value, utf8);
    AppendJsonString(utf8, out);
    out += ",\"bits\":";
    AppendNumber(static_cast<uint64_t>(bits), out);
    out += ",\"constraints\":[";
    bool first = true;
    ForEachConstraintName(bits, [&](std::string_view name) {
        if (!first) out += ',';
        AppendJsonString(name, out);
        first = false;
    });
    out += "],\"message\":";
    AppendJsonString(message, out);
    out += "}\n";
}

void AppendUncheckedColumn(ReportFormat format, std::string_view column, std::string& out) {
    if (format == ReportFormat::Text) {
        out += Translated(
            QT_TRANSLATE_NOOP("quillmar-check", "column %1: no field of the form has this name; not checked"),
            column);
        out += '\n';
        return;
    }
    out += "{\"unchecked_column\":";
    AppendJsonString(column, out);
    out += "}\n";
}

void AppendUncheckedField(ReportFormat format, std::string_view field, std::string& out) {
    if (format == ReportFormat::Text) {
        out += Translated(
            QT_TRANSLATE_NOOP("quillmar-check", "field %1: no column of the data has this name; not checked"),
            field);
        out += '\n';
        return;
    }
    out += "{\"unchecked_field\":";
    AppendJsonString(field, out);
    out += "}\n";
}

void AppendSummary(ReportFormat format, const Summary& summary, std::string& out) {
    uint64_t broken = 0;
    for (const auto& field : summary.brokenByField)
        broken += field.second;
    if (format == ReportFormat::Text) {
        std::string rows;
        std::string values;
        std::string brokenCount;
        AppendCount(summary.rows, QT_TRANSLATE_NOOP("quillmar-check", "%1 row"),
            QT_TRANSLATE_NOOP("quillmar-check", "%1 rows"), rows);
        AppendCount(summary.values, QT_TRANSLATE_NOOP("quillmar-check", "%1 value"),
            QT_TRANSLATE_NOOP("quillmar-check", "%1 values"), values);
        AppendNumber(broken, brokenCount);
        out += Translated(
            QT_TRANSLATE_NOOP("quillmar-check", "checked %1, %2: %3 broken"), rows, values, brokenCount);
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
