// quillmar-check on small committed CSV files: RFC 4180 quoting, a byte-order mark and CRLF, columns and
// fields that do not meet, malformed records, and the report of a file that breaks several rules.
#include "apps/check/CsvSource.h"
#include "apps/check/MappedFile.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace quillmar::check {
namespace {

struct CheckRun {
    int status;
    std::string out;
    std::string err;
};

std::string Drain(std::FILE* file) {
    std::rewind(file);
    std::string text;
    char buffer[4096];
    size_t read;
    while ((read = std::fread(buffer, 1, sizeof buffer, file)) > 0)
        text.append(buffer, read);
    std::fclose(file);
    return text;
}

std::string DataPath(std::string_view name) {
    return std::string(QUILLMAR_CHECK_DATA_DIR) + "/" + std::string(name);
}

const std::vector<CheckedField>& Fields() {
    static const FormFields form
        = LoadFormFields(DataPath("check.qform.json"), LocaleInfo::FromName("en_US"));
    return form.fields;
}

CheckRun Check(std::string_view data, CheckOptions options = {}) {
    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    const int status = CheckCsvFile(Fields(), DataPath(data), options, out, err);
    return { status, Drain(out), Drain(err) };
}

std::string Slurp(std::string_view name) {
    std::ifstream file(DataPath(name), std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

struct CsvCase {
    const char* file;
    int status;
    const char* outHolds; // a line the report must hold
    const char* err; // the whole error stream
};

const CsvCase kCases[] = {
    // BOM, CRLF, a doubled quote, an embedded comma and an embedded CRLF all arrive in the values as written.
    { "quoted.csv", 1, "row 2, CustomerName \"Ann \\\"Nan\\\" Lee\" [vldCCOnlyLettersWithSpace]", "" },
    { "quoted.csv", 1, "row 1, CustomerName \"Smith, John\"", "" },
    { "quoted.csv", 1, "row 3, CustomerName \"Mary\\x0D\\x0AJane\"", "" },
    { "quoted.csv", 1, "checked 3 rows, 18 values: 3 broken", "" },
    // A column without a field and fields without a column are told once, and the rest is checked.
    { "columns.csv", 0,
        "column Comment: no field of the form has this name; not checked\n"
        "field DeliveryTime: no column of the data has this name; not checked\n",
        "" },
    { "columns.csv", 0, "checked 2 rows, 8 values: 0 broken", "" },
    // The column quillmar-forms adds to its records is no surprise; one row is one row.
    { "one.csv", 0, "checked 1 row, 6 values: 0 broken\n  CustomerName: 0\n", "" },
    // Data that meets none of the fields is unusable, not valid.
    { "nofield.csv", 2, "",
        "quillmar-check: " QUILLMAR_CHECK_DATA_DIR
        "/nofield.csv: no column is named after a field of the form "
        "(CustomerName, CustomerCode, OrderDate, DeliveryTime, Quantity, UnitPrice)\n" },
    // Faults stop the check with the line the record starts on.
    { "malformed.csv", 2, "",
        "quillmar-check: " QUILLMAR_CHECK_DATA_DIR "/malformed.csv, line 4: malformed CSV record: a quote "
        "inside an unquoted value\n" },
    { "short.csv", 2, "",
        "quillmar-check: " QUILLMAR_CHECK_DATA_DIR "/short.csv, line 3: the record has 2 values, the header "
        "has 3 columns\n" },
    // An unclosed quote is a fault at its line, not a record that runs to the end of the file.
    { "unclosed.csv", 2, "",
        "quillmar-check: " QUILLMAR_CHECK_DATA_DIR "/unclosed.csv, line 3: malformed CSV record: a quoted "
        "value is not closed\n" },
    { "absent.csv", 2, "",
        "quillmar-check: " QUILLMAR_CHECK_DATA_DIR "/absent.csv: No such file or directory\n" },
};

TEST(CsvCheck, ReadsQuotingAndReportsColumnsAndFaults) {
    for (const CsvCase& c : kCases) {
        SCOPED_TRACE(c.file);
        const CheckRun run = Check(c.file);
        EXPECT_EQ(run.status, c.status);
        EXPECT_NE(run.out.find(c.outHolds), std::string::npos) << run.out;
        EXPECT_EQ(run.err, c.err);
    }
}

TEST(CsvCheck, ReportsEveryBrokenValueInRowOrderAsTextAndJsonLines) {
    EXPECT_EQ(Check("broken.csv").out, Slurp("broken.txt"));
    CheckOptions json;
    json.format = ReportFormat::JsonLines;
    EXPECT_EQ(Check("broken.csv", json).out, Slurp("broken.jsonl"));
}

// The message is the one the field's final validation shows, in the field's own mode.
TEST(CsvCheck, MessageIsTheOneTheFieldShows) {
    const struct {
        ErrorMessageModeConstants mode;
        const char16_t* custom;
        const char* text;
        const char* json;
    } rows[] = {
        { vldAutoBasic, u"", ": Invalid numeric entry.\n", R"("message":"Invalid numeric entry."})" },
        { vldAutoAdvanced, u"", ": An integer between 1 and 500 is required.\n",
            R"("message":"An integer between 1 and 500 is required."})" },
        // The author's lines, whatever their breaks, stay one report line.
        { vldCustom, u"At most 500,\r\nplease.\nThank you.", ": At most 500, please. Thank you.\n",
            R"("message":"At most 500,\r\nplease.\nThank you."})" },
        // An empty custom message shows an empty box: no words follow the constraints.
        { vldCustom, u"", "[vldCCMaxValue]\n", R"("message":""})" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        Settings settings;
        settings.MustBeType = vldInteger;
        settings.MinValue = 1.0;
        settings.MaxValue = 500.0;
        settings.ErrorMessageMode = row.mode;
        settings.ErrorMessage = row.custom;
        const PreparedRules rules(settings, LocaleInfo::FromName("en_US"), 0);
        std::string text;
        AppendViolation(ReportFormat::Text, "Quantity", u"600", vldCCMaxValue, rules, text);
        EXPECT_TRUE(text.ends_with(row.text)) << text;
        std::string json;
        AppendViolation(ReportFormat::JsonLines, "Quantity", u"600", vldCCMaxValue, rules, json);
        EXPECT_TRUE(json.ends_with(std::string(row.json) + "\n")) << json;
    }
}

// A writer keeps what it composed for a field and its constraints; each line must still be the one
// AppendViolation writes, where the message names the value too.
TEST(CsvCheck, WriterGivesEachValueTheLineItWouldGetAlone) {
    const struct {
        const char* name;
        ErrorMessageModeConstants mode;
        MustBeTypeConstants type;
        bool forbidden; // 7, 8 and 1/7/2024 are forbidden values
        bool zero; // zero is refused
    } rows[] = {
        { "basic", vldAutoBasic, vldInteger, true, true },
        { "advanced", vldAutoAdvanced, vldInteger, false, false },
        { "advanced naming forbidden numbers", vldAutoAdvanced, vldInteger, true, false },
        { "advanced naming zero", vldAutoAdvanced, vldInteger, false, true },
        { "advanced naming forbidden texts", vldAutoAdvanced, vldString, true, false },
        { "advanced naming forbidden dates", vldAutoAdvanced, vldDate, true, false },
        { "custom", vldCustom, vldInteger, true, true },
    };
    const struct {
        const char* column;
        const char16_t* value;
        int32_t bits;
    } values[] = { { "A", u"7", vldCCMaxValue }, { "A", u"8", vldCCMaxValue }, { "A", u"0", vldCCMaxValue },
        { "B", u"7", vldCCMaxValue }, { "A", u"600", vldCCMaxValue }, { "A", u"", vldCCRequiredField },
        { "A", u"1/7/2024", vldCCMaxValue }, { "A", u"\"7\"\n", vldCCMaxValue | vldCCMustBeNumber } };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Settings settings;
        settings.MustBeType = row.type;
        settings.ErrorMessageMode = row.mode;
        settings.ErrorMessage = u"Not\r\nthis.";
        if (row.forbidden)
            settings.MustNotBeValues = { Variant(), Variant(u"7"), Variant(u"8"), Variant(u"1/7/2024") };
        settings.MustNotBeZero = row.zero;
        const PreparedRules rules(settings, LocaleInfo::FromName("en_US"), 0);
        for (const ReportFormat format : { ReportFormat::Text, ReportFormat::JsonLines }) {
            ViolationWriter writer(format);
            std::string written;
            std::string expected;
            for (const auto& value : values) {
                writer.Append(value.column, value.value, value.bits, rules, written);
                AppendViolation(format, value.column, value.value, value.bits, rules, expected);
            }
            EXPECT_EQ(written, expected);
        }
    }
}

// The tool itself: a locale it does not know is refused, never read as another; an encoding is no part of
// a locale's name, and C in the environment is American English.
TEST(CsvCheck, ToolRefusesALocaleItDoesNotKnow) {
    const struct {
        const char* environment;
        const char* option;
        int status;
        const char* err; // the start of the error stream
    } rows[] = {
        { "LANG=de_DE", "--locale xx_YY", 2, "quillmar-check: unknown locale \"xx_YY\"" },
        { "LANG=de_DE", "--locale german", 2, "quillmar-check: unknown locale \"german\"" },
        { "LANG=de_DE", "--locale ''", 2, "quillmar-check: unknown locale \"\"" },
        { "LANG=german", "", 2,
            "quillmar-check: unknown locale \"german\" (expected a language and a country" },
        { "LANG=xx_YY", "--locale de_DE.UTF-8", 1, "" }, // 3/15/2024 is no date in German
        { "LANG=de_DE@euro", "", 1, "" }, // 3/15/2024 is no date in German
        { "LANG=C.UTF-8", "", 0, "" },
        { "LANG=POSIX", "", 0, "" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.environment) + " " + row.option);
        const std::string errPath = ::testing::TempDir() + "/check-locale.err";
        const std::string command = std::string("env -u LC_ALL -u LC_NUMERIC ") + row.environment + " "
            + QUILLMAR_CHECK_BINARY + " " + row.option + " " + DataPath("check.qform.json") + " "
            + DataPath("columns.csv") + " >/dev/null 2>" + errPath;
        const int status = std::system(command.c_str());
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), row.status);
        std::ifstream errFile(errPath);
        std::stringstream err;
        err << errFile.rdbuf();
        EXPECT_EQ(err.str().substr(0, std::string_view(row.err).size()), row.err);
        if (row.status != 2) {
            EXPECT_EQ(err.str(), "");
        }
    }
}

// The messages follow the locale's language, the constraint names never change, and --messages en keeps
// the English for scripts.
TEST(CsvCheck, ToolPrintsItsMessagesInTheLanguageOfTheLocale) {
    const struct {
        const char* environment;
        const char* option;
        const char* line; // a line of the report
    } rows[] = {
        { "LANG=C", "--locale de_DE",
            "row 1, OrderDate \"3/15/2024\" [vldCCMustBeDate]: Ungültige Datumseingabe." },
        { "LANG=de_DE.UTF-8", "", "geprüft: 2 Zeilen, 8 Werte; 2 fehlerhaft" },
        { "LANG=C", "--locale de_DE --messages en",
            "row 1, OrderDate \"3/15/2024\" [vldCCMustBeDate]: Invalid date entry." },
        { "LANG=C", "--locale de_DE --format json",
            R"({"row":1,"column":"OrderDate","value":"3/15/2024","bits":65536,"constraints":["vldCCMustBeDate"],"message":"Ungültige Datumseingabe."})" },
        { "LANG=C", "--locale en_US --messages de",
            "Spalte Comment: kein Feld des Formulars trägt diesen Namen; nicht geprüft" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.environment) + " " + row.option);
        const std::string outPath = ::testing::TempDir() + "/check-language.out";
        const std::string command = std::string("env -u LC_ALL -u LC_NUMERIC ") + row.environment + " "
            + QUILLMAR_CHECK_BINARY + " " + row.option + " " + DataPath("check.qform.json") + " "
            + DataPath("columns.csv") + " >" + outPath;
        const int status = std::system(command.c_str());
        ASSERT_TRUE(WIFEXITED(status));
        std::ifstream outFile(outPath);
        std::stringstream out;
        out << outFile.rdbuf();
        EXPECT_NE(out.str().find(std::string(row.line) + "\n"), std::string::npos) << out.str();
    }
    // A program whose translations are not beside it says so in one line and reports in English.
    std::string folder = (std::filesystem::path(::testing::TempDir()) / "quillmar-alone-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    const std::string alone = folder + "/quillmar-check";
    std::filesystem::copy_file(QUILLMAR_CHECK_BINARY, alone);
    const std::string out = folder + "/out";
    const std::string err = folder + "/err";
    // The dates of en_US break in de_DE: exit status 1.
    const int status = std::system((alone + " --locale de_DE " + DataPath("check.qform.json") + " "
        + DataPath("columns.csv") + " >" + out + " 2>" + err)
                                       .c_str());
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    std::stringstream outText;
    std::stringstream errText;
    outText << std::ifstream(out).rdbuf();
    errText << std::ifstream(err).rdbuf();
    EXPECT_EQ(errText.str(),
        "quillmar-check: the translations (quillmar-check-texts.so) are not installed beside " + alone
            + "; the report stays in English\n");
    EXPECT_TRUE(outText.str().starts_with("column Comment: no field of the form has this name"))
        << outText.str();
}

TEST(CsvCheck, TinyChunksOnManyThreadsGiveTheSequentialResult) {
    for (const char* file : { "quoted.csv", "columns.csv", "malformed.csv", "short.csv", "unclosed.csv",
             "broken.csv", "one.csv", "multiline.csv" }) {
        SCOPED_TRACE(file);
        CheckOptions sequential;
        sequential.threads = 1;
        const CheckRun expected = Check(file, sequential);
        // Mapped and read as a stream, which a pipe is.
        for (const bool mapped : { true, false }) {
            // Ranges of 13 bytes hold a quoted line break and the record's end after it.
            for (const size_t chunk : { 1, 7, 13, 64 }) {
                CheckOptions split;
                split.threads = 3;
                split.chunkBytes = chunk;
                split.mapFiles = mapped;
                const CheckRun run = Check(file, split);
                EXPECT_EQ(run.status, expected.status) << chunk << mapped;
                EXPECT_EQ(run.out, expected.out) << chunk << mapped;
                EXPECT_EQ(run.err, expected.err) << chunk << mapped;
            }
        }
    }
}

// A file cut short while it is mapped would end the process at the first read past its new end: the lost
// pages read as zeros instead, and the mapping says so.
TEST(CsvCheck, MappedFileThatShrinksReadsZerosAndSaysSo) {
    char path[] = "/tmp/quillmar-mapped-XXXXXX";
    const int descriptor = mkstemp(path);
    ASSERT_GE(descriptor, 0);
    const std::string bytes(3 * 65536, 'x');
    ASSERT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    {
        const std::unique_ptr<MappedFile> file = MappedFile::Map(descriptor);
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(file->Bytes()[70000], 'x');
        EXPECT_FALSE(file->Shrank());
        // Cut within a page: the page's tail reads as zeros without a fault.
        ASSERT_EQ(ftruncate(descriptor, 3 * 65536 - 10), 0);
        EXPECT_TRUE(file->Shrank());
        ASSERT_EQ(ftruncate(descriptor, 65536), 0);
        EXPECT_EQ(file->Bytes()[65535], 'x');
        EXPECT_EQ(file->Bytes()[3 * 65536 - 1], '\0');
        EXPECT_TRUE(file->Shrank());
    }
    close(descriptor);
    unlink(path);
}

} // namespace
} // namespace quillmar::check
