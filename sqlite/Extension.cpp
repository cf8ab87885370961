// The rule functions as an SQLite loadable extension: `.load quillmar_sqlite` in the sqlite3 program, or
// sqlite3_load_extension and load_extension() elsewhere.
#include "sqlite/RuleFunctions.h"

#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT1

#ifdef _WIN32
#define QUILLMAR_SQLITE_EXPORT __declspec(dllexport)
#else
#define QUILLMAR_SQLITE_EXPORT __attribute__((visibility("default")))
#endif

/// The entry point SQLite derives from the module's file name (quillmar_sqlite.so): adds the rule
/// functions to `db`.
extern "C" QUILLMAR_SQLITE_EXPORT int sqlite3_quillmarsqlite_init(
    sqlite3* db, char** error, const sqlite3_api_routines* api) {
    SQLITE_EXTENSION_INIT2(api);
    const int result = quillmar::AddRuleFunctions(db);
    if (result != SQLITE_OK && error)
        *error = sqlite3_mprintf(
            "quillmar_sqlite: the rule functions cannot be added (%s)", sqlite3_errstr(result));
    return result;
}
