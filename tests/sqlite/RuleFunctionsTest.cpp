// The form's rules as SQL functions on a connection of the program's own: typed values read as the texts a
// person types, the messages the fields show, and the faults that are SQL errors.
#include "sqlite/RuleFunctions.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace quillmar {
namespace {

// A form with a field of each kind; `maxQuantity` is three digits, so that a changed form keeps its size.
void WriteForm(const std::string& path, int maxQuantity) {
    std::ofstream(path, std::ios::trunc) << R"({
  "title": "Sq", "width": 400, "height": 200,
  "controls": [
    {"name": "Name", "label": "Name", "left": 10, "top": 10, "width": 100, "height": 21, "properties":
      {"MustBeType": "vldString", "OnlyLetters": true, "NoDigits": true, "ErrorMessageMode": "vldAutoAdvanced"}},
    {"name": "Quantity", "label": "Quantity", "left": 10, "top": 40, "width": 100, "height": 21, "properties":
      {"MustBeType": "vldInteger", "RequiredField": true, "MinValue": 1, "MaxValue": )"
                                         << maxQuantity << R"(, "ErrorMessageMode": "vldAutoAdvanced"}},
    {"name": "Price", "label": "Price", "left": 10, "top": 70, "width": 100, "height": 21, "properties":
      {"MustBeType": "vldDouble", "MaxNumberOfDecimals": 2, "MustNotBeZero": true, "ErrorMessageMode": "vldAutoBasic"}},
    {"name": "Day", "label": "Day", "left": 10, "top": 100, "width": 100, "height": 21, "properties":
      {"MustBeType": "vldDate", "MinValue": {"Date": "2020-01-01"}, "ErrorMessageMode": "vldAutoAdvanced"}},
    {"name": "Start", "label": "Start", "left": 10, "top": 130, "width": 100, "height": 21, "properties":
      {"MustBeType": "vldTime", "MaxValue": {"Time": "18:00:00"}}},
    {"name": "Code", "label": "Code", "left": 10, "top": 160, "width": 100, "height": 21, "properties":
      {"MustBeType": "vldString", "CustomMask": "##", "ErrorMessageMode": "vldCustom", "ErrorMessage": "Two digits."}}
  ]
})";
}

class RuleFunctions : public ::testing::Test {
protected:
    void SetUp() override {
        WriteForm(m_form, 500);
        ASSERT_EQ(sqlite3_open(":memory:", &m_db), SQLITE_OK);
        ASSERT_EQ(AddRuleFunctions(m_db), SQLITE_OK);
    }
    void TearDown() override { sqlite3_close(m_db); }

    // The one value `select` gives with the form's path bound to ?1 (nullopt for NULL), or the error.
    std::optional<std::string> Query(const std::string& select, std::string* error = nullptr) {
        sqlite3_stmt* statement = nullptr;
        std::optional<std::string> value;
        int step = sqlite3_prepare_v2(m_db, select.c_str(), -1, &statement, nullptr);
        if (step == SQLITE_OK) {
            sqlite3_bind_text(statement, 1, m_form.c_str(), -1, SQLITE_TRANSIENT);
            step = sqlite3_step(statement);
            if (step == SQLITE_ROW && sqlite3_column_type(statement, 0) != SQLITE_NULL)
                value = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
        }
        sqlite3_finalize(statement);
        if (error) *error = step == SQLITE_ROW ? "" : sqlite3_errmsg(m_db);
        return value;
    }

    // A file of each test's own: ctest runs the tests side by side.
    std::string m_form = ::testing::TempDir() + "/rules-"
        + ::testing::UnitTest::GetInstance()->current_test_info()->name() + ".qform.json";
    sqlite3* m_db = nullptr;
};

struct ValueCase {
    const char* field;
    const char* value; // an SQL literal, stored as its type
    const char* locale;
    const char* bits;
    const char* message; // nullptr: NULL
};

TEST_F(RuleFunctions, TypedValuesAreCheckedAsTheTextsTypedInTheLocale) {
    const ValueCase cases[] = {
        { "Name", "'Ann'", "en_US", "0", nullptr },
        { "Name", "'ab1'", "en_US", "50331648",
            "Invalid text entry.\r\nOnly letters are allowed.\r\nDigits are not allowed." },
        { "Name", "NULL", "en_US", "0", nullptr }, // not required: an empty field is valid
        { "Quantity", "NULL", "en_US", "1", "This field is required." },
        { "Quantity", "500", "en_US", "0", nullptr },
        { "Quantity", "600", "en_US", "128", "An integer between 1 and 500 is required." },
        { "Quantity", "7.0", "en_US", "0", nullptr }, // a whole REAL is the integer typed
        { "Quantity", "7.5", "en_US", "512", "An integer between 1 and 500 is required." },
        { "Quantity", "'12'", "en_US", "0", nullptr },
        { "Price", "2.5", "de_DE", "0", nullptr }, // read as "2,5"
        { "Price", "'2.5'", "de_DE", "0", nullptr }, // a point number text takes the locale's separator
        { "Price", "2.505", "de_DE", "16384",
            "Ungültige Anzahl Nachkommastellen. Höchstens 2 sind zulässig." },
        { "Price", "0.0", "en_US", "16", "Invalid numeric entry." },
        { "Day", "'2020-01-01'", "de_DE", "0", nullptr },
        { "Day", "'2019-12-31'", "de_DE", "64", "Ein Datum nach dem 01.01.2020 ist erforderlich." },
        { "Day", "'2020-02-30'", "de_DE", "65536",
            "Ungültige Datumseingabe." }, // not a date: checked as it is
        { "Start", "'17:59:59'", "en_US", "0", nullptr },
        { "Start", "'18:00:01'", "en_US", "128", "A time before 6:00:00 PM is required." },
        { "Code", "12", "en_US", "0", nullptr },
        { "Code", "'1a'", "en_US", "262144", "Two digits." }, // the author's own message
    };
    for (const ValueCase& c : cases) {
        SCOPED_TRACE(std::string(c.field) + " " + c.value + " " + c.locale);
        const std::string arguments
            = std::string("?1, '") + c.field + "', " + c.value + ", '" + c.locale + "')";
        std::string error;
        EXPECT_EQ(Query("SELECT quillmar_broken(" + arguments, &error), c.bits);
        EXPECT_EQ(error, "");
        const auto message = Query("SELECT quillmar_check(" + arguments, &error);
        EXPECT_EQ(error, "");
        if (c.message)
            EXPECT_EQ(message, c.message);
        else
            EXPECT_EQ(message, std::nullopt);
    }
}

TEST_F(RuleFunctions, FaultsAreSqlErrorsNamingWhatIsWrong) {
    ASSERT_EQ(sqlite3_exec(m_db, "CREATE VIEW Checked AS SELECT quillmar_broken('f', 'Quantity', 1)", nullptr,
                  nullptr, nullptr),
        SQLITE_OK);
    const struct {
        const char* select;
        const char* error;
    } cases[] = {
        { "SELECT quillmar_check(?1, 'Colour', 'red')", "has no field \"Colour\"" },
        { "SELECT quillmar_broken('/nonexistent/orders.qform.json', 'Quantity', 1)",
            "quillmar_broken: /nonexistent/orders.qform.json" },
        { "SELECT quillmar_check(?1, 'Quantity', 1, 'xx_YY')", "unknown locale \"xx_YY\"" },
        { "SELECT quillmar_check(?1, 'Quantity', 1, '')", "unknown locale \"\"" },
        { "SELECT quillmar_check(NULL, 'Quantity', 1)", "the form file is NULL" },
        // A file named in SQL is never read on behalf of a schema someone else wrote.
        { "SELECT * FROM Checked", "unsafe use of quillmar_broken()" },
    };
    for (const auto& c : cases) {
        std::string error;
        (void)Query(c.select, &error);
        EXPECT_NE(error.find(c.error), std::string::npos) << c.select << ": " << error;
    }
}

TEST_F(RuleFunctions, AFormChangedBetweenTwoQueriesIsReadAgain) {
    const std::string select = "SELECT quillmar_broken(?1, 'Quantity', 600, 'en_US')";
    EXPECT_EQ(Query(select), "128");
    // The same size and a later time: only the modification time tells.
    const auto before = std::filesystem::last_write_time(m_form);
    WriteForm(m_form, 900);
    std::filesystem::last_write_time(m_form, before + std::chrono::seconds(2));
    EXPECT_EQ(Query(select), "0");
    std::filesystem::remove(m_form);
    std::string error;
    (void)Query(select, &error);
    EXPECT_NE(error.find(m_form), std::string::npos) << error;
}

} // namespace
} // namespace quillmar
