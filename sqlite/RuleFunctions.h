#pragma once

typedef struct sqlite3 sqlite3;

namespace quillmar {

/// Adds the form's rules to the SQLite connection `db` as two SQL functions:
/// - `quillmar_check(form, field, value [, locale])`: NULL when `value` is valid in the field named `field`
///   of the form file at the path `form`, otherwise the message the field's final validation shows for it
///   (its lines joined with "\r\n"; the empty text where the field shows an empty box);
/// - `quillmar_broken(form, field, value [, locale])`: the constraint bits the value breaks, 0 when valid.
///
/// A stored value is read as the text a person would have typed in the locale (an INTEGER as its digits,
/// a REAL with the locale's decimal separator, "YYYY-MM-DD" and "HH:MM:SS" texts in date and time fields in
/// the locale's form, NULL as the empty text). `locale` names the locale ("de_DE"); without it or NULL, the
/// process's locale (LC_ALL, LC_NUMERIC, LANG; en_US for none).
///
/// Each form file is read once per connection and locale, and read again when its size or modification
/// time has changed since. A form that cannot be read, a field the form lacks and an unknown locale are SQL
/// errors naming them. The functions read a file named in SQL, so they are direct-only: a schema, a trigger
/// or a view cannot call them.
///
/// Returns SQLite's result code: SQLITE_OK, or the code of the registration that failed.
[[nodiscard]] int AddRuleFunctions(sqlite3* db);

} // namespace quillmar
