#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace quillmar {
namespace {

using standalone::ShownMessage;

constexpr int32_t kClosest = vldACInsertClosest | vldACChecked;
constexpr int32_t kPrevious = vldACReturnPrevious | vldACChecked;
constexpr int32_t kDefault = vldACInsertDefault | vldACChecked;

// A quantity field as a form author declares it: a positive integer from 1 to 100, 50 by default.
void Quantity(Quillmar& field) {
    field.SetMustBeType(vldInteger);
    field.SetMustBePositive(true);
    field.SetMinValue(u"1");
    field.SetMaxValue(u"100");
    field.SetDefaultValue(u"50");
}

void WithActions(Quillmar& field, int32_t first, int32_t second, int32_t third) {
    field.SetActions({ {}, first, second, third });
}

const std::u16string kRange = u"An integer between 1 and 100 is required.";

// The message box as a new field shows it.
ShownMessage Box(const std::u16string& text) {
    return { text, u"Invalid Entry", IconExclamation };
}

struct ValidateCase {
    const char* name;
    std::function<void(Quillmar&)> declare;
    std::u16string typed;
    bool valid;
    std::u16string after;
    std::optional<ShownMessage> message; // with one beep; none: neither message nor beep
    std::u16string before = u""; // a text validated first, which becomes the previous valid value
    const char* locale = "en_US";
};

const ValidateCase kCases[] = {
    { "closest first", Quantity, u"250", false, u"100", Box(kRange + u"\r\nClosest value inserted.") },
    { "no previous value yet: the default, selected",
        [](Quillmar& f) {
            Quantity(f), WithActions(f, kPrevious, kDefault, kClosest), f.SetOnErrorSelectEntireField(true);
        },
        u"250", false, u"50", Box(kRange + u"\r\nDefault value inserted.") },
    { "the previous value", [](Quillmar& f) { Quantity(f), WithActions(f, kPrevious, kDefault, kClosest); },
        u"420", false, u"42", Box(kRange + u"\r\nPrevious value returned."), u"42" },
    { "the previous value in a comma locale",
        [](Quillmar& f) {
            Quantity(f), WithActions(f, kPrevious, kDefault, kClosest), f.SetMustBeType(vldDouble);
            f.SetMaxValue(u"99,5");
        },
        u"120,5", false, u"1,25",
        Box(u"A number between 1 and 99,5 is required.\r\nPrevious value returned."), u"1,25", "de_DE" },
    { "not a number: no closest value", Quantity, u"abc", false, u"50",
        Box(u"Invalid numeric entry.\r\nDefault value inserted.") },
    { "unchecked entries never run",
        [](Quillmar& f) {
            Quantity(f), WithActions(f, vldACReturnPrevious, vldACInsertDefault, vldACInsertClosest);
        },
        u"250", false, u"250", Box(kRange) },
    { "custom message without action line",
        [](Quillmar& f) {
            Quantity(f);
            f.SetErrorMessageMode(vldCustom);
            f.SetErrorMessage(u"Order 1 to 100 pieces.");
            f.SetMessageBoxIcon(vldMBICritical);
            f.SetMessageBoxTitle(u"Quantity");
        },
        u"250", false, u"100", ShownMessage { u"Order 1 to 100 pieces.", u"Quantity", IconStop } },
    { "basic message",
        [](Quillmar& f) { Quantity(f), f.SetErrorMessageMode(vldAutoBasic), f.SetMessageBoxIcon(3); }, u"250",
        false, u"100", ShownMessage { u"Invalid numeric entry.", u"Invalid Entry", IconInformation } },
    { "silent field", [](Quillmar& f) { Quantity(f), f.SetShowErrorMessage(false), f.SetBeeping(false); },
        u"250", false, u"100", std::nullopt },
    { "valid text rewritten as understood", Quantity, u"007", true, u"7", std::nullopt },
    { "rewrite switched off", [](Quillmar& f) { Quantity(f), f.SetShowAsUnderstood(false); }, u"007", true,
        u"007", std::nullopt },
    { "exponent form kept", [](Quillmar& f) { f.SetMustBeType(vldDouble), f.SetAllowScientificFormat(true); },
        u"1e3", true, u"1E+3", std::nullopt },
    { "exponent refused before any rewrite", [](Quillmar& f) { f.SetMustBeType(vldDouble); }, u"1e3", false,
        u"1000", Box(u"A number is required.\r\nClosest value inserted.") },
    { "large number stays in digits", [](Quillmar& f) { f.SetMustBeType(vldDouble); },
        u"150000000000000000000.0", true, u"150000000000000000000", std::nullopt },
    { "date in full", [](Quillmar& f) { f.SetMustBeType(vldDate); }, u"1/2/03", true, u"1/2/2003",
        std::nullopt },
    { "no type: always valid", [](Quillmar& f) { f.SetRequiredField(true); }, u"", true, u"", std::nullopt },
    { "final validation off", [](Quillmar& f) { Quantity(f), f.SetFinalValidationActive(false); }, u"250",
        true, u"250", std::nullopt },
    { "text default written unchecked",
        [](Quillmar& f) { f.SetMustBeType(vldString), f.SetCustomMask(u"###"), f.SetDefaultValue(u"abc"); },
        u"12", false, u"abc",
        Box(u"Invalid text entry.\r\nThis field must be in a form like ###.\r\nDefault value inserted.") },
    // Strong sifting repairs the final validation's own writes but never refuses them.
    { "default against the letters rule",
        [](Quillmar& f) {
            f.SetMustBeType(vldString), f.SetInputSifting(vldStrong), f.SetRequiredField(true);
            f.SetOnlyLetters(true), f.SetDefaultValue(u"N/A");
        },
        u"", false, u"N/A", Box(u"This field is required.\r\nDefault value inserted.") },
    { "default against the character set, its case repaired",
        [](Quillmar& f) {
            f.SetMustBeType(vldString), f.SetInputSifting(vldStrong), f.SetRequiredField(true);
            f.SetValidCharactersSet(u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"), f.SetMustBeUpperCase(true);
            f.SetDefaultValue(u"n.a.");
        },
        u"", false, u"N.A.", Box(u"This field is required.\r\nDefault value inserted.") },
    { "default against the no-digits rule",
        [](Quillmar& f) {
            f.SetMustBeType(vldString), f.SetInputSifting(vldStrong), f.SetNoDigits(true);
            f.SetCustomMask(u"??"), f.SetDefaultValue(u"00");
        },
        u"abc", false, u"00",
        Box(u"Invalid text entry.\r\nThis field must be in a form like ??.\r\nDefault value inserted.") },
};

TEST(Validate, CorrectsExplainsAndBeepsAsDeclared) {
    for (const ValidateCase& c : kCases) {
        SCOPED_TRACE(c.name);
        standalone::StandaloneHost host(c.locale);
        host.container.userMode = false; // the form is designed first, so the lists may be set
        Quillmar field(host.Services());
        field.SetInputSifting(vldNone); // the texts below stand for what a user left in the field
        c.declare(field);
        host.container.userMode = true;
        if (!c.before.empty()) {
            host.editBox.SetText(c.before);
            ASSERT_TRUE(field.Validate());
        }
        host.editBox.SetText(c.typed);
        // What a form would show for the text before it is left: the box's message less its action line.
        const std::u16string current = field.CurrentErrorMessage();
        EXPECT_EQ(current.empty(), field.IsValid());
        if (c.message && !current.empty()) {
            EXPECT_EQ(c.message->text.substr(0, current.size()), current);
        }
        EXPECT_EQ(field.Validate(), c.valid);
        EXPECT_EQ(field.Text(), c.after);
        EXPECT_EQ(host.alerts.beeps, c.message ? 1 : 0);
        if (c.message) {
            ASSERT_EQ(host.alerts.messages.size(), 1u);
            EXPECT_EQ(host.alerts.messages[0], *c.message);
        } else {
            EXPECT_TRUE(host.alerts.messages.empty());
        }
        if (c.valid && field.FinalValidationActive()) {
            EXPECT_EQ(field.CheckInput(), 0);
        }
        if (c.after != c.typed) { // the written text selected on request, else the caret at its end
            const bool selected = !c.valid && field.OnErrorSelectEntireField();
            const auto length = static_cast<int32_t>(c.after.size());
            EXPECT_EQ(field.SelStart(), selected ? 0 : length);
            EXPECT_EQ(field.SelLength(), selected ? length : 0);
        }
    }
}

TEST(Validate, AnInvalidFieldAlwaysHasAReasonToShow) {
    standalone::StandaloneHost host("en_US");
    Quillmar field(host.Services());
    Quantity(field);
    field.SetErrorMessageMode(vldCustom); // and no message of its own
    host.editBox.SetText(u"250");
    EXPECT_EQ(field.CurrentErrorMessage(), u"This entry is not valid.");
}

} // namespace
} // namespace quillmar
