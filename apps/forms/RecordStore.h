#pragma once

#include "apps/forms/Record.h"

#include <QString>

#include <vector>

namespace quillmar::forms {

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
/// read and copy it between submissions.
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

private:
    QString m_path;
    QString m_table;
    std::vector<Column> m_columns;
    int m_busyTimeout = kDefaultBusyTimeout;
};

} // namespace quillmar::forms
