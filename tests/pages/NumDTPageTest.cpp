#include "pages/NumDTPage.h"
#include "control/Enums.h"
#include "pages/PageTestSupport.h"
#include "validation/Conversions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include <algorithm>
#include <string>
#include <vector>

namespace quillmar::pages {
namespace {

using standalone::ShownMessage;

const LocaleInfo us = LocaleInfo::FromName("en_US");

// True when a limit or default holds a value.
bool Holds(const Variant& value) {
    return !quillmar::TextOf(value, us).empty();
}

class NumDTPageTest : public PageTest {
protected:
    NumDTPageTest() { frame.AddPage(page); }

    qt::QuillmarEdit* Field(const char* name) { return Find<qt::QuillmarEdit>(name); }
    QCheckBox* Box(const char* name) { return Find<QCheckBox>(name); }
    QString Shown(const char* name) { return Field(name)->Text(); }
    bool HasFocus(const char* name) { return QApplication::focusWidget() == Field(name)->lineEdit(); }
    // Presses Apply as a person does: the field being left validates before the button is released.
    void Apply() {
        QTest::mousePress(frame.ApplyButton(), Qt::LeftButton);
        QApplication::processEvents();
        QTest::mouseRelease(frame.ApplyButton(), Qt::LeftButton);
        QApplication::processEvents();
    }

    NumDTPage* page = new NumDTPage(frame.Services());
};

TEST_F(NumDTPageTest, LoadsFromTheFirstSelectedControl) {
    auto* first = AddControl("first");
    first->SetMustBeType(vldDouble);
    first->control().SetMinValue(u"-2.5");
    first->control().SetMaxValue(u"1E+20");
    first->SetMaxNumberOfDecimals(3);
    first->SetMaxRelativeAccuracy(7);
    first->SetMustBeNegative(true);
    first->SetMustNotBeZero(true);
    first->SetAllowScientificFormat(true);
    first->SetThousandSeparator(vldTSAllowed);
    auto* second = AddControl("second");
    second->SetMustBeType(vldInteger);
    second->control().SetMaxValue(u"9");
    Open({ first, second });

    EXPECT_EQ(Shown("txtMinValue"), "-2.5");
    EXPECT_EQ(Shown("txtMaxValue"), "1E+20");
    EXPECT_EQ(Shown("txtMaxNumberOfDecimals"), "3");
    EXPECT_EQ(Shown("txtMaxRelativeAccuracy"), "7");
    EXPECT_TRUE(Box("chkMustBeNegative")->isChecked());
    EXPECT_FALSE(Box("chkMustBePositive")->isChecked());
    EXPECT_TRUE(Box("chkMustNotBeZero")->isChecked());
    EXPECT_TRUE(Box("chkAllowScientificFormat")->isChecked());
    EXPECT_EQ(Find<QComboBox>("cboSep1000")->currentText(), "Allowed");
    // The limit fields take values of the selected control's type.
    EXPECT_EQ(Field("txtMinValue")->MustBeType(), vldDouble);
    EXPECT_EQ(Field("txtMaxValue")->MustBeType(), vldDouble);
    EXPECT_FALSE(page->Changed());
}

TEST_F(NumDTPageTest, ApplyWritesEverySelectedControlInSelectionOrder) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    std::vector<std::string> log;
    for (auto* field : { a, b }) {
        field->SetMustBeType(vldDouble);
        QObject::connect(
            field, &qt::QuillmarEdit::PropertyChanged, field, [&log, field](const QString& name) {
                log.push_back((field->objectName() + ":" + name).toStdString());
            });
    }
    Open({ b, a });

    TypeInto(Field("txtMinValue"), "-4");
    TypeInto(Field("txtMaxValue"), "8.5");
    TypeInto(Field("txtMaxNumberOfDecimals"), "2");
    TypeInto(Field("txtMaxRelativeAccuracy"), "6");
    Click(Box("chkMustBePositive"));
    Click(Box("chkMustNotBeZero"));
    Click(Box("chkAllowScientificFormat"));
    auto* combo = Find<QComboBox>("cboSep1000");
    combo->setFocus();
    QTest::keyClick(combo, Qt::Key_Down);
    ASSERT_TRUE(page->Changed());
    log.clear();
    Apply();

    for (auto* field : { a, b }) {
        SCOPED_TRACE(field->objectName().toStdString());
        EXPECT_EQ(field->control().MinValue(), Variant(-4.0));
        EXPECT_EQ(field->control().MaxValue(), Variant(8.5));
        EXPECT_EQ(field->MaxNumberOfDecimals(), 2);
        EXPECT_EQ(field->MaxRelativeAccuracy(), 6);
        EXPECT_TRUE(field->MustBePositive());
        EXPECT_FALSE(field->MustBeNegative());
        EXPECT_TRUE(field->MustNotBeZero());
        EXPECT_TRUE(field->AllowScientificFormat());
        EXPECT_EQ(field->ThousandSeparator(), vldTSAllowed);
    }
    // Each control in turn, its properties in a fixed order (later notices come from the control's own
    // interlocks).
    std::vector<std::string> expected;
    for (const std::string control : { "b:", "a:" })
        for (const char* name :
            { "MustBeNegative", "MustBePositive", "AllowScientificFormat", "MustNotBeZero", "MaxValue",
                "MinValue", "MaxNumberOfDecimals", "MaxRelativeAccuracy", "ThousandSeparator" })
            expected.push_back(control + name);
    std::vector<std::string> firstNotices;
    for (const std::string& entry : log)
        if (std::find(firstNotices.begin(), firstNotices.end(), entry) == firstNotices.end())
            firstNotices.push_back(entry);
    EXPECT_EQ(firstNotices, expected);
    EXPECT_FALSE(page->Changed());
}

TEST_F(NumDTPageTest, AnEmptyCountLeavesItsPropertyWhileAnEmptyLimitClearsIt) {
    auto* field = AddControl("field");
    field->SetMustBeType(vldDouble);
    field->SetMaxNumberOfDecimals(3);
    field->SetMaxRelativeAccuracy(5);
    field->control().SetMinValue(u"1");
    field->control().SetMaxValue(u"9");
    Open({ field });
    TypeInto(Field("txtMaxNumberOfDecimals"), "");
    TypeInto(Field("txtMaxRelativeAccuracy"), "");
    TypeInto(Field("txtMinValue"), "");
    TypeInto(Field("txtMaxValue"), "9.50");
    // Applied as a host does, with the focus still in the field: validating it as the page applies rewrites
    // it as understood, which is no edit of the author's.
    EXPECT_TRUE(frame.Apply());
    EXPECT_EQ(field->MaxNumberOfDecimals(), 3);
    EXPECT_EQ(field->MaxRelativeAccuracy(), 5);
    EXPECT_FALSE(Holds(field->control().MinValue()));
    EXPECT_EQ(field->control().MaxValue(), Variant(9.5));
    EXPECT_EQ(Shown("txtMaxValue"), "9.5");
    EXPECT_FALSE(page->Changed());
}

struct Refusal {
    const char* name;
    int32_t type;
    const char16_t* defaultValue;
    const char* min;
    const char* max;
    ShownMessage message; // empty text: accepted
    const char* focus;
};

const ShownMessage kMinAboveMax { u"MaxValue must be >= than MinValue.", u"Property Page: Min/MaxValue", 48 };
const ShownMessage kDefaultAboveMax { u"MaxValue is in a collision with the DefaultValue.",
    u"Property Page: MaxValue", 48 };
const ShownMessage kDefaultBelowMin { u"MinValue is in a collision with the DefaultValue.",
    u"Property Page: MinValue", 48 };

const Refusal kRefusals[] = {
    { "min above max", vldInteger, u"", "6", "5", kMinAboveMax, "txtMaxValue" },
    { "equal limits", vldInteger, u"", "5", "5", {}, nullptr },
    // Compared as numbers, not as texts.
    { "numbers by value", vldInteger, u"", "9", "10", {}, nullptr },
    { "default above max", vldInteger, u"25", "10", "20", kDefaultAboveMax, "txtMaxValue" },
    { "default on max", vldInteger, u"20", "10", "20", {}, nullptr },
    { "default above a lone max", vldInteger, u"25", "", "20", kDefaultAboveMax, "txtMaxValue" },
    { "default below min", vldInteger, u"5", "10", "20", kDefaultBelowMin, "txtMinValue" },
    { "default below a lone min", vldCurrency, u"5", "10", "", kDefaultBelowMin, "txtMinValue" },
    // Times of day: 9:00 comes before 17:00 although its text sorts after it.
    { "times in order", vldTime, u"", "9:00", "17:00", {}, nullptr },
    { "times reversed", vldTime, u"", "17:00", "9:00", kMinAboveMax, "txtMaxValue" },
    { "time default after max", vldTime, u"12:00", "", "9:30", kDefaultAboveMax, "txtMaxValue" },
    { "dates reversed", vldDate, u"", "1/2/2000", "12/1/1999", kMinAboveMax, "txtMaxValue" },
};

TEST_F(NumDTPageTest, RefusesLimitsThatContradictEachOtherOrTheDefault) {
    auto* field = AddControl("field");
    auto* other = AddControl("other");
    Open({ field, other });
    for (const Refusal& row : kRefusals) {
        SCOPED_TRACE(row.name);
        for (auto* control : { field, other }) {
            control->SetMustBeType(row.type);
            control->control().SetMinValue(u"");
            control->control().SetMaxValue(u"");
        }
        field->control().SetDefaultValue(row.defaultValue);
        clock.seconds += 1;
        frame.SetSelectedControls({ field, other });
        alerts = {};
        TypeInto(Field("txtMinValue"), row.min);
        TypeInto(Field("txtMaxValue"), row.max);
        Apply();

        const bool refused = !row.message.text.empty();
        EXPECT_EQ(alerts.messages, refused ? std::vector { row.message } : std::vector<ShownMessage> {});
        EXPECT_EQ(alerts.beeps, refused ? 1 : 0);
        EXPECT_EQ(page->Changed(), refused);
        // A refusal writes nothing, to any selected control.
        EXPECT_EQ(Holds(other->control().MaxValue()), !refused && *row.max);
        if (refused) {
            EXPECT_TRUE(HasFocus(row.focus));
            EXPECT_EQ(Field(row.focus)->lineEdit()->selectedText(), Field(row.focus)->Text());
        }
    }
}

struct Offer {
    int32_t type;
    bool range, sign, notZero, scientific, decimals, thousands;
};

TEST_F(NumDTPageTest, OffersTheFieldsOfTheSelectedType) {
    const Offer offers[] = {
        { vldUnspecified, false, false, false, false, false, false },
        { vldString, false, false, false, false, false, false },
        { vldByte, true, false, true, false, false, false },
        { vldCurrency, true, true, true, false, true, true },
        { vldDouble, true, true, true, true, true, true },
        { vldTime, true, false, false, false, false, false },
    };
    auto* field = AddControl("field");
    field->SetMaxNumberOfDecimals(4);
    Open({ field });
    for (const Offer& row : offers) {
        SCOPED_TRACE(testing::Message() << "type " << row.type);
        field->SetMustBeType(row.type);
        clock.seconds += 1;
        frame.SetSelectedControls({ field });
        const std::pair<std::vector<const char*>, bool> groups[] = {
            { { "txtMinValue", "lblMinValue", "txtMaxValue", "lblMaxValue" }, row.range },
            { { "chkMustBePositive", "chkMustBeNegative" }, row.sign },
            { { "chkMustNotBeZero" }, row.notZero },
            { { "chkAllowScientificFormat" }, row.scientific },
            { { "txtMaxNumberOfDecimals", "lblMaxNumberOfDecimals", "txtMaxRelativeAccuracy",
                  "lblMaxRelativeAccuracy" },
                row.decimals },
            { { "cboSep1000", "lblSep1000" }, row.thousands },
        };
        for (const auto& [names, enabled] : groups)
            for (const char* name : names)
                EXPECT_EQ(Find<QWidget>(name)->isEnabled(), enabled) << name;
        // A field that is off still shows the control's value.
        EXPECT_EQ(Shown("txtMaxNumberOfDecimals"), "4");
    }
}

TEST_F(NumDTPageTest, PositiveAndNegativeExcludeEachOther) {
    struct Step {
        const char* click;
        bool positive, negative;
    };
    const Step steps[] = {
        { "chkMustBePositive", true, false }, { "chkMustBeNegative", false, true },
        { "chkMustBeNegative", false, false }, // unchecking leaves the other as it is
    };
    auto* field = AddControl("field");
    field->SetMustBeType(vldLong);
    Open({ field });
    for (const Step& step : steps) {
        SCOPED_TRACE(step.click);
        Click(Box(step.click));
        EXPECT_EQ(Box("chkMustBePositive")->isChecked(), step.positive);
        EXPECT_EQ(Box("chkMustBeNegative")->isChecked(), step.negative);
    }
    EXPECT_TRUE(page->Changed());
}

TEST_F(NumDTPageTest, ACountAboveTheLimitIsCorrectedByTheFieldItself) {
    auto* field = AddControl("field");
    field->SetMustBeType(vldSingle);
    Open({ field });
    auto* decimals = Field("txtMaxNumberOfDecimals");
    TypeInto(decimals, "40");
    QTest::keyClick(decimals->lineEdit(), Qt::Key_Tab);
    QApplication::processEvents();
    ASSERT_EQ(alerts.messages.size(), 1u);
    EXPECT_EQ(alerts.messages[0].title, u"Invalid Entry: MaxNumberOfDecimals");
    EXPECT_EQ(alerts.messages[0].icon, 48);
    EXPECT_EQ(decimals->Text(), "32");
    EXPECT_TRUE(HasFocus("txtMaxNumberOfDecimals"));
    Apply();
    EXPECT_EQ(field->MaxNumberOfDecimals(), 32);
    EXPECT_EQ(alerts.messages.size(), 1u);
}

} // namespace
} // namespace quillmar::pages
