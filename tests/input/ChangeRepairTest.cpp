#include "input/ChangeRepair.h"

#include <gtest/gtest.h>

#include <functional>

namespace quillmar {
namespace {

// A changed text, the rules of its field, and what the repair writes and decides.
struct RepairRow {
    const char* name;
    std::u16string text;
    MustBeTypeConstants type;
    std::function<void(Settings&)> declare;
    std::vector<RepairEdit> edits;
    bool refused = false;
    Refusal refusal = Refusal::None;
};

const RepairRow kRows[] = {
    { "nothing to repair", u"12", vldInteger, {}, {} },
    { "the empty text is left alone", u"", vldInteger, [](Settings& s) { s.MustBeNegative = true; }, {} },
    { "upper case, then proper case", u"ab cd", vldString,
        [](Settings& s) { s.MustBeUpperCase = s.MustBeProperCase = true; },
        { { u"AB CD", RepairSelection::Kept } } },
    { "spaces trimmed, the caret at the end", u" 42 ", vldInteger, {},
        { { u"42", RepairSelection::CaretAtEnd } } },
    { "trimmed to nothing, the minus alone", u"  ", vldInteger, [](Settings& s) { s.MustBeNegative = true; },
        { { u"", RepairSelection::CaretAtEnd }, { u"-", RepairSelection::AfterLeadingMinus } } },
    { "decimals cut", u"1.234", vldDouble, [](Settings& s) { s.MaxNumberOfDecimals = 2; },
        { { u"1.23", RepairSelection::Kept } }, false, Refusal::TooManyDecimals },
    { "decimals of an exponent form refused", u"1.234e5", vldDouble,
        [](Settings& s) { s.MaxNumberOfDecimals = 2, s.AllowScientificFormat = true; }, {}, true,
        Refusal::TooManyDecimals },
    { "a minus after the digits refused", u"12-", vldInteger, {}, {}, true, Refusal::NumberShape },
    { "a letter refused in a letters-only text", u"ab1", vldString, [](Settings& s) { s.OnlyLetters = true; },
        {}, true, Refusal::OnlyLetters },
};

TEST(RepairChangedText, WritesItsRepairsThenJudgesTheWholeText) {
    const LocaleInfo english = LocaleInfo::FromName("en_US");
    for (const RepairRow& row : kRows) {
        SCOPED_TRACE(row.name);
        Settings settings;
        settings.MustBeType = row.type;
        if (row.declare) row.declare(settings);
        TypeFlags flags;
        flags.NumericMode = IsNumericType(row.type);
        flags.TypeIsInteger = row.type == vldInteger;
        flags.TypeIsDouble = row.type == vldDouble;
        const ChangeRepair repair = RepairChangedText(row.text, settings, flags, english);
        ASSERT_EQ(repair.edits.size(), row.edits.size());
        for (size_t i = 0; i < row.edits.size(); ++i) {
            EXPECT_TRUE(repair.edits[i].text == row.edits[i].text) << i;
            EXPECT_EQ(repair.edits[i].selection, row.edits[i].selection) << i;
        }
        EXPECT_EQ(repair.refused, row.refused);
        EXPECT_EQ(repair.refusal, row.refusal);
    }
}

} // namespace
} // namespace quillmar
