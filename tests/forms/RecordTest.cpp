#include "apps/forms/Record.h"
#include "apps/forms/SubmitSummary.h"
#include "base/Enums.h"
#include "validation/DateTime.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

namespace quillmar::forms {
namespace {

double Serial(int year, int month, int day) {
    return *SerialFromDate(year, month, day);
}

TEST(Record, EachValueIsStoredAsItsTypedForm) {
    const struct {
        Variant value;
        int32_t type;
        StoredValue stored;
    } rows[] = {
        { Variant(), vldString, {} }, { u"", vldLong, {} }, // an empty field is NULL whatever its type
        { u"Ann Lee", vldString, u"Ann Lee" }, { uint8_t { 255 }, vldByte, int64_t { 255 } },
        { int16_t { -32768 }, vldInteger, int64_t { -32768 } },
        { int32_t { std::numeric_limits<int32_t>::min() }, vldLong, int64_t { -2147483648LL } },
        { 0.1f, vldSingle, 0.1 }, // not 0.100000001490116
        { 2.5, vldDouble, 2.5 }, { Currency { 12345000 }, vldCurrency, u"1234.5" },
        { Currency { -5 }, vldCurrency, u"-0.0005" },
        { Currency { std::numeric_limits<int64_t>::min() }, vldCurrency, u"-922337203685477.5808" },
        { Date { Serial(2024, 6, 15) }, vldDate, u"2024-06-15" }, { Date { 0.4375 }, vldTime, u"10:30:00" },
        { Date { 0.999999 }, vldTime, u"23:59:59" }, // never 24:00:00
        { Date { -1.25 }, vldTime, u"1899-12-29 06:00:00" }, // a time typed with its date keeps the date
        { u"1,5", vldDouble, u"1,5" }, // a text that did not convert is kept as typed
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value.Describe());
        EXPECT_EQ(StoredValueOf(row.value, row.type), row.stored);
    }
}

TEST(Record, DatesAreWrittenInTheProlepticGregorianCalendar) {
    const struct {
        int year, month, day;
        const char16_t* iso;
    } rows[] = {
        { 1899, 12, 30, u"1899-12-30" }, // day zero
        { 1899, 12, 29, u"1899-12-29" }, // negative days count back
        { 1800, 1, 1, u"1800-01-01" },
        { 1900, 3, 1, u"1900-03-01" }, // 1900 has no 29 February
        { 2000, 2, 29, u"2000-02-29" },
        { 100, 1, 1, u"0100-01-01" },
        { 9999, 12, 31, u"9999-12-31" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(std::u16string(row.iso)));
        EXPECT_EQ(IsoDate(Serial(row.year, row.month, row.day)), row.iso);
    }
    EXPECT_EQ(IsoDate(Serial(1800, 1, 1) - 0.5), u"1800-01-01"); // noon counts forward from the whole day
}

TEST(Record, TheDatabaseLiesBesideTheFormNamedAfterIt) {
    const struct {
        const char* form;
        const char* database;
    } rows[] = {
        { "examples/orders.qform.json", "examples/orders.sqlite" },
        { "/srv/a.b.qform.json", "/srv/a.b.sqlite" },
        { "stock.json", "stock.sqlite" },
        { ".qform.json", ".qform.sqlite" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.form);
        EXPECT_EQ(DefaultDatabasePath(row.form), row.database);
    }
}

TEST(Record, RecordsWithoutAFormFolderGoToTheUsersDataFolder) {
    const struct {
        const char* dataHome; // nullptr: unset
        const char* folder;
    } rows[] = {
        { "/srv/data", "/srv/data/quillmar" }, { nullptr, "/home/ann/.local/share/quillmar" },
        { "", "/home/ann/.local/share/quillmar" },
        { "data", "/home/ann/.local/share/quillmar" }, // a relative path is ignored
    };
    const char* home = std::getenv("HOME");
    const std::string savedHome = home ? home : "";
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    const std::optional<std::string> savedDataHome
        = dataHome ? std::optional<std::string>(dataHome) : std::nullopt;
    setenv("HOME", "/home/ann", 1);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.dataHome ? row.dataHome : "unset");
        row.dataHome ? setenv("XDG_DATA_HOME", row.dataHome, 1) : unsetenv("XDG_DATA_HOME");
        EXPECT_EQ(UserDataFolder(), row.folder);
    }
    setenv("HOME", savedHome.c_str(), 1);
    savedDataHome ? setenv("XDG_DATA_HOME", savedDataHome->c_str(), 1) : unsetenv("XDG_DATA_HOME");
}

TEST(Summary, ListsEachFieldWithItsMessageIndented) {
    EXPECT_EQ(SubmitSummary(
                  { { u"Order number", u"Invalid text entry.\r\nThis field must be in a form like ######." },
                      { u"Order date", u"This field is required." } }),
        u"The record was not stored. Please correct these 2 fields:\n"
        u"\n\u2022 Order number: Invalid text entry.\n    This field must be in a form like ######."
        u"\n\u2022 Order date: This field is required.");
    EXPECT_EQ(SubmitSummary({ { u"Quantity", u"An integer <= 100 is required." } }),
        u"The record was not stored. Please correct this field:\n\n\u2022 Quantity: An integer <= 100 is "
        u"required.");
}

} // namespace
} // namespace quillmar::forms
