// quillmar-check on small committed CSV files: RFC 4180 quoting, a byte-order mark and CRLF, columns and
// fields that do not meet, malformed records, and the report of a file that breaks several rules.
#include "apps/check/CsvSource.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

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

TEST(CsvCheck, TinyChunksOnManyThreadsGiveTheSequentialResult) {
    for (const char* file :
        { "quoted.csv", "columns.csv", "malformed.csv", "short.csv", "unclosed.csv", "broken.csv" }) {
        SCOPED_TRACE(file);
        CheckOptions sequential;
        sequential.threads = 1;
        const CheckRun expected = Check(file, sequential);
        for (const size_t chunk : { 1, 7, 64 }) {
            CheckOptions split;
            split.threads = 3;
            split.chunkBytes = chunk;
            const CheckRun run = Check(file, split);
            EXPECT_EQ(run.status, expected.status) << chunk;
            EXPECT_EQ(run.out, expected.out) << chunk;
            EXPECT_EQ(run.err, expected.err) << chunk;
        }
    }
}

} // namespace
} // namespace quillmar::check
