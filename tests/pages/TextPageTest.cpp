#include "pages/TextPage.h"
#include "pages/PageTestSupport.h"

#include <QCheckBox>
#include <QLineEdit>

#include <string>

namespace quillmar::pages {
namespace {

// The rule boxes in page order, each named "chk" and its property, and the letter that stands for each: the
// character rules S, L, D, then the case rules P, W, U.
const char* const kRules[] = { "OnlyLettersWithSpace", "OnlyLetters", "NoDigits", "MustBeProperCase",
    "MustBeLowerCase", "MustBeUpperCase" };
const char kLetters[] = "SLDPWU";

class TextPageTest : public PageTest {
protected:
    QCheckBox* Box(char letter) {
        return Find<QCheckBox>((std::string("chk") + kRules[std::string(kLetters).find(letter)]).c_str());
    }
    // The letters of the checked rules, in page order.
    std::string Checked() {
        std::string checked;
        for (const char letter : std::string(kLetters))
            if (Box(letter)->isChecked()) checked += letter;
        return checked;
    }

    TextPage* page = Add(new TextPage(frame.Services()));
    QLineEdit* mask = Find<QLineEdit>("txtCustomMask");
};

TEST_F(TextPageTest, LoadsTheFirstSelectedAndWritesEverySelected) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    for (auto* field : { a, b })
        field->SetMustBeType(vldString);
    b->SetCustomMask("##-??");
    b->SetExtraIncludedCharacters("-");
    b->SetOnlyLettersWithSpace(true);
    b->SetMustBeProperCase(true);
    Open({ b, a });
    EXPECT_EQ(Checked(), "SP"); // the rest loaded is written back
    // An emptied mask clears the property.
    mask->selectAll();
    QTest::keyClick(mask, Qt::Key_Delete);
    QTest::keyClicks(Find<QLineEdit>("txtValidCharactersSet"), "ABC");
    Click(Box('L'));
    Click(Box('U'));
    Click(frame.ApplyButton());
    EXPECT_EQ(b->CustomMask(), "");
    EXPECT_EQ(a->ExtraIncludedCharacters(), "-");
    EXPECT_EQ(a->ValidCharactersSet(), "ABC");
    for (const char* rule : kRules)
        EXPECT_EQ(a->property(rule).toBool(), rule == kRules[1] || rule == kRules[5]) << rule;
}

TEST_F(TextPageTest, CheckingARuleUnchecksTheOthersOfItsGroupOnly) {
    // Every rule is clicked while each other rule of its group is checked; the two groups combine, and
    // unchecking a rule leaves the others as they are.
    const std::pair<char, const char*> steps[] = { { 'L', "L" }, { 'U', "LU" }, { 'D', "DU" }, { 'W', "DW" },
        { 'S', "SW" }, { 'P', "SP" }, { 'L', "LP" }, { 'U', "LU" }, { 'S', "SU" }, { 'P', "SP" },
        { 'D', "DP" }, { 'W', "DW" }, { 'L', "LW" }, { 'U', "LU" }, { 'L', "U" }, { 'U', "" } };
    auto* field = AddControl("field");
    field->SetMustBeType(vldString);
    Open({ field });
    for (const auto& [click, checked] : steps) {
        SCOPED_TRACE(click);
        Click(Box(click));
        EXPECT_EQ(Checked(), checked);
    }
    EXPECT_TRUE(page->Changed());
}

TEST_F(TextPageTest, OtherTypesShowTheSettingsDisabledAndStillWriteThemBack) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    for (const int32_t type : { vldUnspecified, vldString, vldDate }) {
        SCOPED_TRACE(testing::Message() << "type " << type);
        b->SetMustBeType(type);
        b->SetCustomMask("##");
        b->SetOnlyLetters(true);
        a->SetCustomMask("?");
        a->SetNoDigits(true);
        Open({ b, a });
        for (const QWidget* widget : page->findChildren<QWidget*>())
            EXPECT_EQ(widget->isEnabled(), type == vldString) << widget->objectName().toStdString();
        page->ApplyChanges();
        EXPECT_EQ(a->CustomMask(), "##");
        EXPECT_TRUE(a->OnlyLetters());
        EXPECT_FALSE(a->NoDigits());
    }
}

} // namespace
} // namespace quillmar::pages
