#include "apps/forms/RecordStore.h"

#include "qt/QtConversions.h"
#include "sqlite/RuleFunctions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>

#include <algorithm>
#include <atomic>
#include <cassert>
#include <sqlite3.h>
#include <utility>

namespace quillmar::forms {
namespace {

// SQLite's primary result codes that a clerk can be told about in plain words.
constexpr int kBusy = 5;
constexpr int kLocked = 6;
constexpr int kReadOnly = 8;
constexpr int kCorrupt = 11;
constexpr int kFull = 13;
constexpr int kCantOpen = 14;
constexpr int kNotADatabase = 26;

QString Quoted(const QString& identifier) {
    return QLatin1Char('"') + QString(identifier).replace(QLatin1Char('"'), QStringLiteral("\"\""))
        + QLatin1Char('"');
}

QString TypeName(ColumnType type) {
    return QString::fromLatin1(ColumnTypeName(type));
}

QString Reason(const QSqlError& error) {
    bool numeric = false;
    const int code = error.nativeErrorCode().toInt(&numeric) & 0xff;
    if (numeric) {
        switch (code) {
        case kBusy:
        case kLocked:
            return QCoreApplication::translate("RecordStore",
                "another program is writing to the database (it is locked); try again in a moment");
        case kReadOnly:
            return QCoreApplication::translate(
                "RecordStore", "the database can only be read (the file or its folder is read-only)");
        case kCantOpen:
            return QCoreApplication::translate(
                "RecordStore", "the database file cannot be opened or created there");
        case kFull:
            return QCoreApplication::translate("RecordStore", "the disk is full");
        case kCorrupt:
        case kNotADatabase:
            return QCoreApplication::translate("RecordStore", "the file is not a readable SQLite database");
        default:
            break;
        }
    }
    const QString text = error.databaseText().isEmpty() ? error.text() : error.databaseText();
    return QCoreApplication::translate("RecordStore", "SQLite reports: ") + text;
}

// Another program holds the database's write lock.
bool IsLockedOut(const QSqlError& error) {
    bool numeric = false;
    const int code = error.nativeErrorCode().toInt(&numeric) & 0xff;
    return numeric && (code == kBusy || code == kLocked);
}

QVariant Bound(const StoredValue& value) {
    if (const auto* integer = std::get_if<int64_t>(&value)) return QVariant(qint64 { *integer });
    if (const auto* real = std::get_if<double>(&value)) return QVariant(*real);
    if (const auto* text = std::get_if<std::u16string>(&value)) return QVariant(qt::ToQString(*text));
    return QVariant(QMetaType(QMetaType::QString)); // NULL
}

} // namespace

bool AddRuleFunctions(const QSqlDatabase& db) {
    // Qt's SQLite driver hands out its connection as "sqlite3*", of the same SQLite library this program
    // uses.
    const QVariant handle = db.driver() ? db.driver()->handle() : QVariant();
    if (!db.isOpen() || qstrcmp(handle.typeName(), "sqlite3*") != 0) return false;
    sqlite3* connection = *static_cast<sqlite3* const*>(handle.constData());
    return connection && quillmar::AddRuleFunctions(connection) == SQLITE_OK;
}

RecordStore::RecordStore(QString databasePath, QString table, std::vector<Column> columns)
    : m_path(std::move(databasePath))
    , m_table(std::move(table))
    , m_columns(std::move(columns)) {
    m_columns.push_back({ kSubmittedAt, ColumnType::Text });
}

StoreResult RecordStore::Append(const std::vector<StoredValue>& values, const QString& submittedAt) {
    assert(values.size() + 1 == m_columns.size() && "one value per field");
    return Transact(&values, submittedAt, m_busyTimeout);
}

std::optional<QString> RecordStore::Problem() const {
    const QFileInfo file(m_path);
    if (!file.exists()) {
        // Opening would create an empty database; a file created and removed at once says the same.
        const QFileInfo folder(file.absolutePath());
        if (!folder.isDir())
            return QCoreApplication::translate("RecordStore", "the folder %1 does not exist")
                .arg(QDir::toNativeSeparators(folder.absoluteFilePath()));
        QFile probe(m_path);
        if (!probe.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return QCoreApplication::translate(
                "RecordStore", "the database file cannot be created there (%1)")
                .arg(probe.errorString());
        probe.remove();
        return std::nullopt;
    }
    // SQLite finds out only when it writes (the file at the commit, the folder for its journal).
    if (!file.isWritable() || !QFileInfo(file.absolutePath()).isWritable())
        return QCoreApplication::translate(
            "RecordStore", "the database can only be read (the file or its folder is read-only)");
    // A short wait: a lock held by another program is not a problem of the database.
    constexpr int kCheckBusyTimeout = 100;
    const StoreResult result = Transact(nullptr, {}, kCheckBusyTimeout);
    if (result.stored) return std::nullopt;
    return result.reason;
}

StoreResult RecordStore::Transact(
    const std::vector<StoredValue>* values, const QString& submittedAt, int busyTimeout) const {
    if (!QSqlDatabase::isDriverAvailable(QStringLiteral("QSQLITE")))
        return { false, 0,
            QCoreApplication::translate(
                "RecordStore", "Qt's SQLite driver is not installed (package libqt6sql6-sqlite)") };

    static std::atomic<int> connections { 0 };
    const QString connection = QStringLiteral("quillmar-records-%1").arg(++connections);
    StoreResult result;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        db.setDatabaseName(m_path);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeout));
        result = [&]() -> StoreResult {
            if (!db.open()) return { false, 0, Reason(db.lastError()) };
            // The form's rules are at hand on the program's own connection, as where the extension is loaded.
            (void)AddRuleFunctions(db);
            QSqlQuery query(db);
            // The write lock is taken first, so that checking the table, inserting and counting see one
            // state.
            if (!query.exec(QStringLiteral("BEGIN IMMEDIATE"))) {
                if (!values && IsLockedOut(query.lastError())) return { true, 0, {} };
                return { false, 0, Reason(query.lastError()) };
            }
            const auto fail = [&](QString reason) {
                QSqlQuery(db).exec(QStringLiteral("ROLLBACK"));
                return StoreResult { false, 0, std::move(reason) };
            };

            if (!query.exec(QStringLiteral("PRAGMA table_info(%1)").arg(Quoted(m_table))))
                return fail(Reason(query.lastError()));
            std::vector<std::pair<QString, QString>> existing; // name and declared type
            while (query.next())
                existing.emplace_back(query.value(1).toString(), query.value(2).toString());
            if (!existing.empty()) {
                QStringList missing, retyped;
                for (const Column& column : m_columns) {
                    const auto found = std::find_if(existing.begin(), existing.end(), [&](const auto& name) {
                        return name.first.compare(column.name, Qt::CaseInsensitive) == 0;
                    });
                    if (found == existing.end())
                        missing << column.name;
                    else if (found->second.compare(TypeName(column.type), Qt::CaseInsensitive) != 0)
                        retyped << QCoreApplication::translate(
                            "RecordStore", "%1 is %2 where the form needs %3")
                                       .arg(column.name, found->second, TypeName(column.type));
                }
                QStringList faults;
                if (!missing.isEmpty())
                    faults << QCoreApplication::translate("RecordStore", "it has no column for %1")
                                  .arg(missing.join(QStringLiteral(", ")));
                if (!retyped.isEmpty())
                    faults << QCoreApplication::translate("RecordStore", "its column %1")
                                  .arg(retyped.join(
                                      QCoreApplication::translate("RecordStore", ", its column ")));
                if (!faults.isEmpty())
                    return fail(QCoreApplication::translate(
                        "RecordStore", "the table %1 no longer matches this form: %2")
                                    .arg(m_table, faults.join(QStringLiteral("; "))));
            }
            if (!values) {
                QSqlQuery(db).exec(QStringLiteral("ROLLBACK")); // nothing was written
                return { true, 0, {} };
            }

            if (existing.empty()) {
                QStringList definitions;
                for (const Column& column : m_columns)
                    definitions << Quoted(column.name) + QLatin1Char(' ') + TypeName(column.type);
                if (!query.exec(QStringLiteral("CREATE TABLE %1 (%2)")
                                    .arg(Quoted(m_table), definitions.join(QStringLiteral(", ")))))
                    return fail(Reason(query.lastError()));
            }
            QStringList names, placeholders;
            for (const Column& column : m_columns) {
                names << Quoted(column.name);
                placeholders << QStringLiteral("?");
            }
            if (!query.prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                   .arg(Quoted(m_table), names.join(QStringLiteral(", ")),
                                       placeholders.join(QStringLiteral(", ")))))
                return fail(Reason(query.lastError()));
            for (const StoredValue& value : *values)
                query.addBindValue(Bound(value));
            query.addBindValue(submittedAt);
            if (!query.exec()) return fail(Reason(query.lastError()));

            if (!query.exec(QStringLiteral("SELECT COUNT(*) FROM %1").arg(Quoted(m_table))) || !query.next())
                return fail(Reason(query.lastError()));
            const qint64 count = query.value(0).toLongLong();
            if (!query.exec(QStringLiteral("COMMIT"))) return fail(Reason(query.lastError()));
            return { true, count, {} };
        }();
        db.close();
    }
    QSqlDatabase::removeDatabase(connection);
    return result;
}

} // namespace quillmar::forms
