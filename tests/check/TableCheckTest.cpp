// quillmar-check over an SQLite table as the form application stores records: typed values are checked as
// the text a person would have typed in the locale.
#include "apps/check/TableSource.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace quillmar::check {
namespace {

struct TypedCase {
    const char* locale;
    StoredValue value;
    MustBeTypeConstants type;
    std::u16string text;
};

TEST(TableCheck, StoredValuesBecomeTheTextsTypedInTheLocale) {
    using Kind = StoredValue::Kind;
    const TypedCase cases[] = {
        { "de_DE", { Kind::Real, 0, 2.5, {} }, vldDouble, u"2,5" },
        { "de_DE", { Kind::Real, 0, 0.1f, {} }, vldSingle, u"0,1" }, // a single stored as a double
        { "en_US", { Kind::Real, 0, 1e20, {} }, vldDouble, u"100000000000000000000" },
        { "de_DE", { Kind::Integer, -42, 0, {} }, vldLong, u"-42" },
        { "de_DE", { Kind::Text, 0, 0, "1234.5" }, vldCurrency, u"1234,5" },
        { "de_DE", { Kind::Text, 0, 0, "2024-03-15" }, vldDate, u"15.03.2024" },
        { "en_US", { Kind::Text, 0, 0, "2024-03-15" }, vldDate, u"3/15/2024" },
        { "en_US", { Kind::Text, 0, 0, "14:30:00" }, vldTime, u"2:30:00 PM" },
        { "en_US", { Kind::Text, 0, 0, "2024-13-15" }, vldDate, u"2024-13-15" }, // not a date: as it is
        { "en_US", { Kind::Null, 0, 0, {} }, vldString, u"" },
    };
    for (const TypedCase& c : cases) {
        Settings settings;
        settings.MustBeType = c.type;
        const PreparedRules rules(settings, LocaleInfo::FromName(c.locale), 0);
        EXPECT_EQ(TypedText(c.value, rules), c.text) << c.locale << " type " << c.type;
    }
}

TEST(TableCheck, ChecksEveryRowOfTheTableAndNamesAMissingTable) {
    const std::string path = ::testing::TempDir() + "/records.sqlite";
    std::remove(path.c_str());
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db,
                  "CREATE TABLE Check1 (Quantity INTEGER, UnitPrice TEXT, OrderDate TEXT, SubmittedAt TEXT);"
                  "INSERT INTO Check1 VALUES (5, '1250.5', '2024-03-15', '2024-03-15T10:00:00');"
                  "INSERT INTO Check1 VALUES (600, NULL, '2019-01-01', '2024-03-15T10:01:00');",
                  nullptr, nullptr, nullptr),
        SQLITE_OK);
    sqlite3_close(db);
    const FormFields form
        = LoadFormFields(QUILLMAR_CHECK_DATA_DIR "/check.qform.json", LocaleInfo::FromName("de_DE"));
    ASSERT_EQ(form.error, "");

    std::FILE* out = std::tmpfile();
    std::FILE* err = std::tmpfile();
    EXPECT_EQ(CheckSqliteTable(form.fields, path, "Check1", {}, out, err), 1);
    std::rewind(out);
    char buffer[4096] = {};
    (void)std::fread(buffer, 1, sizeof buffer - 1, out);
    const std::string report = buffer;
    EXPECT_EQ(report.find("SubmittedAt"), std::string::npos)
        << "the records' own column is known: " << report;
    EXPECT_NE(report.find("row 2, Quantity \"600\" [vldCCMaxValue]"), std::string::npos) << report;
    EXPECT_NE(report.find("row 2, UnitPrice \"\" [vldCCRequiredField]"), std::string::npos) << report;
    EXPECT_NE(report.find("row 2, OrderDate \"01.01.2019\" [vldCCMinValue]"), std::string::npos) << report;
    EXPECT_NE(report.find("checked 2 rows, 6 values: 3 broken"), std::string::npos) << report;

    EXPECT_EQ(CheckSqliteTable(form.fields, path, "Orders", {}, out, err), 2);
    std::fclose(out);
    std::fclose(err);
}

} // namespace
} // namespace quillmar::check
