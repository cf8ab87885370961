#pragma once

#include "base/Variant.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>

namespace quillmar::forms {

/// The storage class of a field's column.
enum class ColumnType { Integer, Real, Text };

/// The column type of a field of the given `MustBeTypeConstants` type: byte, integer and long are INTEGER;
/// single and double REAL; currency TEXT (the exact decimal, which no SQLite type holds); dates, times, text
/// and unspecified TEXT.
[[nodiscard]] ColumnType ColumnTypeOf(int32_t mustBeType) noexcept;

/// The SQL name of a column type: "INTEGER", "REAL" or "TEXT".
[[nodiscard]] std::string_view ColumnTypeName(ColumnType type) noexcept;

/// One value of a record as it goes into its column: NULL, an integer, a real number or a text.
using StoredValue = std::variant<std::monostate, int64_t, double, std::u16string>;

/// What a field holding `value` (the field's `Value`: its text converted to `mustBeType`, or the text itself
/// when it does not convert) stores: NULL for an empty text; the integer of a byte, integer or long; the
/// double of a single (through its shortest text, so 0.1 stays 0.1) or double; the exact decimal of a
/// currency amount with "." and up to four decimals; a date as YYYY-MM-DD; a time as HH:MM:SS, preceded by
/// its date and a space when it carries one; a text as it is. A value that is not of the field's type (a
/// text that did not convert) is stored as its text, so that nothing typed is lost.
[[nodiscard]] StoredValue StoredValueOf(const Variant& value, int32_t mustBeType);

/// The calendar date of a date-time (days from 30 December 1899; before that day the whole part counts back
/// and the fraction still counts forward) as YYYY-MM-DD. Years outside 1-9999 are written as they are.
[[nodiscard]] std::u16string IsoDate(double days);

/// The time of day of a date-time as HH:MM:SS, to the nearest second (never 24:00:00).
[[nodiscard]] std::u16string IsoTime(double days);

/// The database a form's records go to when none is chosen: beside the form file, named after it with
/// ".sqlite" in place of ".qform.json" (or of its last extension): orders.qform.json gives orders.sqlite.
[[nodiscard]] std::filesystem::path DefaultDatabasePath(const std::filesystem::path& formFile);

/// The folder for records that have no form file of their own to sit beside (the example form, a new form
/// not yet saved): "quillmar" in `$XDG_DATA_HOME`, or in `~/.local/share` when that is unset, empty or not
/// an absolute path (as the XDG base directory rules say). Creates nothing.
[[nodiscard]] std::filesystem::path UserDataFolder();

} // namespace quillmar::forms
