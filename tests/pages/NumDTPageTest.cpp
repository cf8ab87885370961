#include "pages/NumDTPage.h"
#include "pages/PageTestSupport.h"

#include <QCheckBox>

#include <tuple>
#include <vector>

namespace quillmar::pages {
namespace {

class NumDTPageTest : public PageTest {
protected:
    qt::QuillmarEdit* Field(const char* name) { return Find<qt::QuillmarEdit>(name); }
    QCheckBox* Box(const char* name) { return Find<QCheckBox>(name); }

    NumDTPage* page = Add(new NumDTPage(frame.Services()));
};

TEST_F(NumDTPageTest, LoadsTheFirstSelectedAndWritesEverySelected) {
    auto* a = AddControl("a");
    auto* b = AddControl("b");
    for (auto* field : { a, b })
        field->SetMustBeType(vldDouble);
    a->SetMaxNumberOfDecimals(4);
    a->SetMaxRelativeAccuracy(7);
    b->control().SetMinValue(u"1");
    b->SetMaxNumberOfDecimals(3);
    b->SetMaxRelativeAccuracy(5);
    b->SetMustBeNegative(true);
    b->SetThousandSeparator(vldTSAllowed);
    Open({ b, a });
    // Checking one sign rule unchecks the other.
    Click(Box("chkMustBePositive"));
    EXPECT_FALSE(Box("chkMustBeNegative")->isChecked());
    Click(Box("chkMustBeNegative"));
    EXPECT_FALSE(Box("chkMustBePositive")->isChecked());
    // A count above 32: its field puts back its maximum, tells why once and keeps the focus.
    TypeInto(Field("txtMaxNumberOfDecimals"), "40");
    QTest::keyClick(Field("txtMaxNumberOfDecimals")->lineEdit(), Qt::Key_Tab);
    QApplication::processEvents();
    ASSERT_EQ(alerts.messages.size(), 1u);
    EXPECT_EQ(alerts.messages[0].title, u"Invalid Entry: MaxNumberOfDecimals");
    EXPECT_EQ(Field("txtMaxNumberOfDecimals")->Text(), "32");
    EXPECT_EQ(QApplication::focusWidget(), Field("txtMaxNumberOfDecimals")->lineEdit());
    // An empty count leaves its property, an empty limit clears it.
    for (const char* name : { "txtMaxNumberOfDecimals", "txtMaxRelativeAccuracy", "txtMinValue" })
        TypeInto(Field(name), "");
    TypeInto(Field("txtMaxValue"), "9.50");
    // Applied with the focus still in a field: validating it rewrites it as understood, no edit of the
    // author's.
    EXPECT_TRUE(frame.Apply());
    EXPECT_EQ(alerts.messages.size(), 1u);
    EXPECT_TRUE(b->MaxNumberOfDecimals() == 3 && b->MaxRelativeAccuracy() == 5);
    EXPECT_TRUE(a->MaxNumberOfDecimals() == 4 && a->MaxRelativeAccuracy() == 7);
    EXPECT_TRUE(b->control().MinValue().IsEmptyString());
    EXPECT_EQ(a->control().MaxValue(), Variant(9.5));
    EXPECT_TRUE(a->MustBeNegative() && !a->MustBePositive());
    EXPECT_EQ(a->ThousandSeparator(), vldTSAllowed);
    EXPECT_FALSE(page->Changed());
}

const ShownMessage kMinAboveMax { u"MaxValue must be >= than MinValue.", u"Property Page: Min/MaxValue", 48 };
const ShownMessage kDefaultAboveMax { u"MaxValue is in a collision with the DefaultValue.",
    u"Property Page: MaxValue", 48 };
const ShownMessage kDefaultBelowMin { u"MinValue is in a collision with the DefaultValue.",
    u"Property Page: MinValue", 48 };

TEST_F(NumDTPageTest, RefusesLimitsThatContradictEachOtherOrTheDefault) {
    // name, type, the first field's default, min, max, message (none: accepted)
    const std::tuple<const char*, int32_t, const char16_t*, const char*, const char*, ShownMessage> rows[] = {
        { "min above max", vldInteger, u"", "6", "5", kMinAboveMax },
        { "equal limits", vldInteger, u"", "5", "5", {} },
        // Compared as numbers, not as texts.
        { "numbers by value", vldInteger, u"", "9", "10", {} },
        { "default above max", vldInteger, u"25", "10", "20", kDefaultAboveMax },
        { "default on max", vldInteger, u"20", "10", "20", {} },
        { "default above a lone max", vldInteger, u"25", "", "20", kDefaultAboveMax },
        { "default below min", vldInteger, u"5", "10", "20", kDefaultBelowMin },
        { "default below a lone min", vldCurrency, u"5", "10", "", kDefaultBelowMin },
        { "default on min", vldCurrency, u"10", "10", "", {} },
        // Times of day: 9:00 comes before 17:00 although its text sorts after it.
        { "times in order", vldTime, u"", "9:00", "17:00", {} },
        { "times reversed", vldTime, u"", "17:00", "9:00", kMinAboveMax },
        { "time default after max", vldTime, u"12:00", "", "9:30", kDefaultAboveMax },
        { "dates reversed", vldDate, u"", "1/2/2000", "12/1/1999", kMinAboveMax },
    };
    for (const auto& [name, type, defaultValue, min, max, message] : rows) {
        SCOPED_TRACE(name);
        auto* field = AddControl("field");
        auto* other = AddControl("other");
        for (auto* control : { field, other })
            control->SetMustBeType(type);
        field->control().SetDefaultValue(defaultValue);
        Open({ field, other });
        alerts = {};
        TypeInto(Field("txtMinValue"), min);
        TypeInto(Field("txtMaxValue"), max);
        Click(frame.ApplyButton());

        const bool refused = !message.text.empty();
        EXPECT_EQ(alerts.messages, refused ? std::vector { message } : std::vector<ShownMessage> {});
        EXPECT_EQ(alerts.beeps, refused ? 1 : 0);
        EXPECT_EQ(page->Changed(), refused);
        // A refusal writes nothing, to any selected control.
        EXPECT_EQ(other->control().MaxValue().IsEmptyString(), refused || !*max);
        // The focus goes to the limit named in the title, its whole text selected.
        qt::QuillmarEdit* focus
            = Field(message.title == kDefaultBelowMin.title ? "txtMinValue" : "txtMaxValue");
        if (refused) {
            EXPECT_EQ(QApplication::focusWidget(), focus->lineEdit());
            EXPECT_EQ(focus->lineEdit()->selectedText(), focus->Text());
        }
    }
}

TEST_F(NumDTPageTest, OffersTheFieldsOfTheSelectedType) {
    const char* const groups[] = { "txtMinValue lblMinValue txtMaxValue lblMaxValue",
        "chkMustBePositive chkMustBeNegative", "chkMustNotBeZero", "chkAllowScientificFormat",
        "txtMaxNumberOfDecimals lblMaxNumberOfDecimals txtMaxRelativeAccuracy lblMaxRelativeAccuracy",
        "cboSep1000 lblSep1000" };
    const std::pair<int32_t, const char*> rows[] = { { vldUnspecified, "000000" }, { vldString, "000000" },
        { vldByte, "101000" }, { vldCurrency, "111011" }, { vldDouble, "111111" }, { vldTime, "100000" } };
    auto* field = AddControl("field");
    Open({ field });
    for (const auto& [type, enabled] : rows) {
        SCOPED_TRACE(testing::Message() << "type " << type);
        field->SetMustBeType(type);
        ++clock.seconds;
        frame.SetSelectedControls({ field });
        for (int group = 0; group < 6; ++group)
            for (const QString& name : QString::fromLatin1(groups[group]).split(' '))
                EXPECT_EQ(Find<QWidget>(qPrintable(name))->isEnabled(), enabled[group] == '1')
                    << qPrintable(name);
    }
}

} // namespace
} // namespace quillmar::pages
