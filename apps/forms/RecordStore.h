#pragma once

#include "apps/forms/Record.h"

#include <QString>

class QSqlDatabase;

#include <optional>
#include <vector>

namespace quillmar::forms {

/// Adds the form's rules to an open connection of Qt's SQLite driver as the SQL functions
/// `quillmar_check(form, field, value [, locale])` and `quillmar_broken(...)` (see sqlite/RuleFunctions.h),
/// so that a query on it can find the records a form would refuse. Returns false for a connection that is not
/// open or not SQLite's.
bool AddRuleFunctions(const QSqlDatabase& db);

/// A column of a form's table: the field's name and its storage class.
struct Column {
    QString name;
    ColumnType type = ColumnType::Text;
};

/// What became of a record: stored, with the number of records the table now holds, or not stored, with the
/// reason in a clerk's words.
struct StoreResult {
    bool stored = false;
    qint64 count = 0;
    QString reason;
};

/// The records of one form in an SQLite database (through Qt SQL's SQLite driver): one table named after the
/// form, one column per field in tab order, then "SubmittedAt", the time of submission. The table is created
/// on the first record; the file is opened for each record and closed after it, so that other programs may
/// read and copy it between submissions. Its connection has the rule functions (`AddRuleFunctions`).
class RecordStore {
public:
    /// The name of the column that holds the time of submission.
    static inline const QString kSubmittedAt = QStringLiteral("SubmittedAt");
    /// How long a record waits for another program's write lock unless told otherwise.
    static constexpr int kDefaultBusyTimeout = 2000;

    RecordStore(QString databasePath, QString table, std::vector<Column> columns);

    [[nodiscard]] const QString& DatabasePath() const { return m_path; }

    /// How long a record waits for another program to release its write lock before it gives up.
    void SetBusyTimeout(int milliseconds) { m_busyTimeout = milliseconds; }

    /// Appends one record, `values` in column order (one per column), `submittedAt` the time of submission.
    /// The record goes in whole or not at all: a database that cannot be opened or written, one locked by
    /// another program beyond the busy timeout, or a table that lacks a field's column or gives it another
    /// type leave it unchanged and give the reason. Columns of the table that the form lacks are left NULL.
    [[nodiscard]] StoreResult Append(const std::vector<StoredValue>& values, const QString& submittedAt);

    /// Whether a record could be stored now, found without writing or creating anything: nullopt when the
    /// file is an SQLite database this program may write whose table (if it has one yet) matches the
    /// columns, or when there is no file yet and one may be created there; otherwise the reason, in the
    /// words `Append` would give it. A database another program holds locked passes, since a record waits
    /// for the lock.
    [[nodiscard]] std::optional<QString> Problem() const;

private:
    /// Takes the write lock and checks the table; with `values`, creates the table when there is none,
    /// appends them and commits; without, rolls back, so that the file is as it was.
    [[nodiscard]] StoreResult Transact(
        const std::vector<StoredValue>* values, const QString& submittedAt, int busyTimeout) const;

    QString m_path;
    QString m_table;
    std::vector<Column> m_columns;
    int m_busyTimeout = kDefaultBusyTimeout;
};

} // namespace quillmar::forms
