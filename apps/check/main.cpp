// quillmar-check FORM DATA: checks every value of a CSV file, or of an SQLite table with --table, against
// the rules of the form's fields of the same name, and reports each broken value.
#include "apps/check/CsvSource.h"
#include "apps/check/FormFields.h"
#include "apps/check/TableSource.h"
#include "base/LocaleName.h"

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <unistd.h>

namespace {

constexpr const char* kUsage
    = "usage: quillmar-check [--locale NAME] [--messages LANGUAGE] [--format text|json] [--table NAME]\n"
      "                      [--threads N] FORM DATA\n"
      "  Checks each value of DATA (a CSV file with a header row, or with --table a table of an SQLite\n"
      "  database) with the rules of the form's field of the same name.\n"
      "  Messages are in the language of the locale; --messages en keeps them in English.\n"
      "  Exit status: 0 every value valid, 1 some broken, 2 unusable input (an unknown locale, a broken\n"
      "  form or data file, no column named after a field of the form).\n";

int Usage(const char* problem) {
    std::fprintf(stderr, "quillmar-check: %s\n%s", problem, kUsage);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    using namespace quillmar;
    using namespace quillmar::check;
    std::optional<std::string> localeName;
    std::optional<std::string> table;
    std::optional<std::string> messagesName;
    CheckOptions options;
    std::vector<std::string_view> paths;
    for (int i = 1; i < argc; ++i) {
        const std::string_view arg = argv[i];
        const auto value = [&]() -> const char* { return i + 1 < argc ? argv[++i] : nullptr; };
        if (arg == "--help" || arg == "-h") {
            std::fputs(kUsage, stdout);
            return 0;
        } else if (arg == "--locale") {
            const char* name = value();
            if (!name) return Usage("--locale needs a locale name (de_DE)");
            localeName = name;
        } else if (arg == "--messages") {
            const char* name = value();
            if (!name) return Usage("--messages needs a language (en)");
            messagesName = name;
        } else if (arg == "--format") {
            const char* name = value();
            if (!name || (std::strcmp(name, "text") != 0 && std::strcmp(name, "json") != 0))
                return Usage("--format is text or json");
            options.format = std::strcmp(name, "json") == 0 ? ReportFormat::JsonLines : ReportFormat::Text;
        } else if (arg == "--table") {
            const char* name = value();
            if (!name) return Usage("--table needs a table name");
            table = name;
        } else if (arg == "--threads") {
            const char* count = value();
            const std::string_view text = count ? count : "";
            unsigned threads = 0;
            const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), threads);
            if (text.empty() || error != std::errc() || end != text.data() + text.size() || threads == 0
                || threads > 1024)
                return Usage("--threads needs a count from 1 to 1024");
            options.threads = threads;
        } else if (arg.starts_with("--")) {
            return Usage(("unknown option " + std::string(arg)).c_str());
        } else {
            paths.push_back(arg);
        }
    }
    if (paths.size() != 2) return Usage("expected a form file and a data file");
    options.progress = isatty(STDERR_FILENO) != 0;

    // Values read in a locale nobody types in would be checked against formats nobody uses.
    if (localeName) {
        if (const auto unknown = UnknownLocale(*localeName)) return Usage(unknown->c_str());
    } else if (const auto environment = EnvironmentLocale()) {
        if (const auto unknown = UnknownLocale(environment->second)) {
            std::fprintf(stderr, "quillmar-check: %s (from %s); name one with --locale\n", unknown->c_str(),
                environment->first.c_str());
            return 2;
        }
    }
    const LocaleInfo locale = localeName ? LocaleInfo::FromName(*localeName) : LocaleInfo::FromEnvironment();
    // The messages speak the language of the values' locale, unless another is named.
    std::string problem;
    const std::unique_ptr<const CheckTexts> texts
        = LoadCheckTexts(messagesName.value_or(locale.name), problem);
    if (!problem.empty())
        std::fprintf(stderr, "quillmar-check: %s; the report stays in English\n", problem.c_str());
    options.texts = texts.get();
    const FormFields form = LoadFormFields(std::filesystem::path(paths[0]), locale);
    if (!form.error.empty()) {
        std::fprintf(stderr, "quillmar-check: %s\n", form.error.c_str());
        return 2;
    }
    static char buffer[1 << 16];
    std::setvbuf(stdout, buffer, _IOFBF, sizeof buffer);
    const std::filesystem::path data(paths[1]);
    return table ? CheckSqliteTable(form.fields, data, *table, options, stdout, stderr)
                 : CheckCsvFile(form.fields, data, options, stdout, stderr);
}
