#include "sqlite/RuleFunctions.h"

#include "base/LocaleName.h"
#include "base/Utf8.h"
#include "formfile/FieldRules.h"
#include "formfile/StoredText.h"
#include "i18n/QuillmarTranslations.h"

// Built into the loadable module, every SQLite call goes through the routines the loading program hands
// over; built into a program, straight to the library it links.
#ifdef QUILLMAR_SQLITE_EXTENSION
#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT3
#else
#include <sqlite3.h>
#endif

#include <QLocale>
#include <QString>

#include <filesystem>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <utility>

namespace quillmar {
namespace {

// A form file as read under one locale, with the size and time of the file it was read from.
struct ReadForm {
    std::uintmax_t size = 0;
    std::filesystem::file_time_type modified;
    std::vector<CheckedField> fields;
    std::shared_ptr<const MessageCatalogue> messages; // the messages in the locale's language
};

// A locale as named in SQL; none for the process's locale.
using LocaleName = std::optional<std::string>;

// The forms one connection has read, by path and locale name. Calls on one connection never run at the same
// time, so it needs no lock.
class FormCache {
public:
    // The form at `path` under `localeName`, read again when its size or time has changed; or nullptr with
    // the reason in `error`.
    std::shared_ptr<const ReadForm> Find(
        const std::string& path, const LocaleName& localeName, std::string& error);

private:
    std::map<std::pair<std::string, LocaleName>, std::shared_ptr<const ReadForm>> m_forms;
};

std::shared_ptr<const ReadForm> FormCache::Find(
    const std::string& path, const LocaleName& localeName, std::string& error) {
    std::error_code failed;
    const std::uintmax_t size = std::filesystem::file_size(path, failed);
    const auto modified
        = failed ? std::filesystem::file_time_type() : std::filesystem::last_write_time(path, failed);
    auto& cached = m_forms[{ path, localeName }];
    if (!failed && cached && cached->size == size && cached->modified == modified) return cached;

    std::optional<std::string> unknown;
    if (localeName) {
        unknown = UnknownLocale(*localeName);
    } else if (const auto environment = EnvironmentLocale()) {
        if ((unknown = UnknownLocale(environment->second))) *unknown += " (from " + environment->first + ")";
    }
    if (unknown) {
        error = *unknown;
        return nullptr;
    }
    const LocaleInfo locale = localeName ? LocaleInfo::FromName(*localeName) : LocaleInfo::FromEnvironment();
    FormFields form = LoadFormFields(path, locale);
    if (!form.error.empty()) {
        cached.reset(); // a form that is mended is read again
        error = std::move(form.error);
        return nullptr;
    }
    // The process's locale is the one its environment names (LC_ALL, LC_MESSAGES, LANG); English without one.
    const auto environment = EnvironmentLocale();
    const std::string language = localeName ? *localeName : environment ? environment->second : "en_US";
    cached = std::make_shared<const ReadForm>(ReadForm {
        size, modified, std::move(form.fields), MessagesFor(QLocale(QString::fromStdString(language))) });
    return cached;
}

// What one registered function answers, and the cache it shares with the others of its connection.
struct Function {
    const char* name;
    bool message; // quillmar_check: the message; quillmar_broken: the bits
    std::shared_ptr<FormCache> forms;
};

// The form a statement read for a constant form argument, kept with that argument for the statement's next
// rows, so that a query over a table looks at the file once.
struct StatementForm {
    LocaleName localeName;
    std::shared_ptr<const ReadForm> form;
};

std::string_view Text(sqlite3_value* value) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return { bytes ? bytes : "", static_cast<size_t>(sqlite3_value_bytes(value)) };
}

StoredValue Stored(sqlite3_value* value) {
    switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
        return { StoredValue::Kind::Integer, sqlite3_value_int64(value), 0, {} };
    case SQLITE_FLOAT:
        return { StoredValue::Kind::Real, 0, sqlite3_value_double(value), {} };
    case SQLITE_NULL:
        return {};
    default:
        return { StoredValue::Kind::Text, 0, 0, Text(value) };
    }
}

void Fail(sqlite3_context* context, const Function& function, const std::string& what) {
    const std::string message = std::string(function.name) + ": " + what;
    sqlite3_result_error(context, message.c_str(), static_cast<int>(message.size()));
}

void Answer(sqlite3_context* context, int count, sqlite3_value** arguments) {
    const Function& function = *static_cast<const Function*>(sqlite3_user_data(context));
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL)
        return Fail(context, function, "the form file is NULL");
    if (sqlite3_value_type(arguments[1]) == SQLITE_NULL)
        return Fail(context, function, "the field name is NULL");
    const std::string path(Text(arguments[0]));
    const LocaleName localeName = count > 3 && sqlite3_value_type(arguments[3]) != SQLITE_NULL
        ? LocaleName(Text(arguments[3]))
        : std::nullopt;

    std::shared_ptr<const ReadForm> form;
    const auto* kept = static_cast<const StatementForm*>(sqlite3_get_auxdata(context, 0));
    if (kept && kept->localeName == localeName) {
        form = kept->form;
    } else {
        std::string error;
        form = function.forms->Find(path, localeName, error);
        if (!form) return Fail(context, function, error);
        sqlite3_set_auxdata(context, 0, new StatementForm { localeName, form },
            [](void* data) { delete static_cast<StatementForm*>(data); });
    }

    const std::string_view fieldName = Text(arguments[1]);
    const int field = FindField(form->fields, fieldName);
    if (field < 0)
        return Fail(
            context, function, "the form " + path + " has no field \"" + std::string(fieldName) + "\"");
    const PreparedRules& rules = form->fields[static_cast<size_t>(field)].rules;
    const std::u16string text = TypedText(Stored(arguments[2]), rules);
    const int32_t bits = rules.CheckInput(text);
    if (!function.message) return sqlite3_result_int64(context, bits);
    if (bits == 0) return sqlite3_result_null(context);
    const std::string message = ToUtf8(ShownMessage(text, bits, rules, *form->messages));
    sqlite3_result_text(context, message.c_str(), static_cast<int>(message.size()), SQLITE_TRANSIENT);
}

void Call(sqlite3_context* context, int count, sqlite3_value** arguments) {
    // Nothing may unwind into SQLite's C code.
    try {
        Answer(context, count, arguments);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& error) {
        Fail(context, *static_cast<const Function*>(sqlite3_user_data(context)), error.what());
    }
}

} // namespace

int AddRuleFunctions(sqlite3* db) {
    const auto forms = std::make_shared<FormCache>();
    for (const bool message : { true, false }) {
        const char* name = message ? "quillmar_check" : "quillmar_broken";
        for (const int count : { 3, 4 }) {
            // Not SQLITE_DETERMINISTIC: the answer follows a file that may change between two calls.
            const int result = sqlite3_create_function_v2(db, name, count, SQLITE_UTF8 | SQLITE_DIRECTONLY,
                new Function { name, message, forms }, Call, nullptr, nullptr,
                [](void* data) { delete static_cast<Function*>(data); });
            if (result != SQLITE_OK) return result;
        }
    }
    return SQLITE_OK;
}

} // namespace quillmar
