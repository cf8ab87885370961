#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

namespace quillmar {
namespace {

// A required quantity field on its own host, as two fields of one form.
struct QuantityField {
    QuantityField() {
        control.SetMustBeType(vldInteger);
        control.SetMaxValue(u"10");
    }
    standalone::StandaloneHost host { "en_US" };
    Quillmar control { host.Services() };
};

class FocusExit : public ::testing::Test {
protected:
    FocusExit() {
        first.host.container.userMode = second.host.container.userMode = false;
        first.control.SetActions({ {}, 8, 16, 32 }); // no corrective action: the bad text stays
        second.control.SetActions({ {}, 8, 16, 32 });
    }
    ~FocusExit() override {
        // Leave the thread's marker clear for the next test.
        first.host.editBox.SetText(u"1");
        first.host.editBox.LeaveField();
    }
    QuantityField first;
    QuantityField second;
};

TEST_F(FocusExit, InvalidFieldKeepsTheFocusEachTimeItIsLeft) {
    first.host.editBox.SetText(u"99");
    for (int attempt = 1; attempt <= 2; ++attempt) {
        first.host.editBox.LeaveField();
        EXPECT_EQ(first.host.alerts.messages.size(), static_cast<size_t>(attempt));
        EXPECT_EQ(first.host.container.focusRequests, attempt);
        EXPECT_EQ(Quillmar::FocusHoldWindow(), first.control.hwnd());
    }
    first.host.editBox.SetText(u"9");
    first.host.editBox.LeaveField();
    EXPECT_EQ(first.host.container.focusRequests, 2);
    EXPECT_EQ(Quillmar::FocusHoldWindow(), 0);
}

TEST_F(FocusExit, HiddenFieldTakesTheMarkerSilently) {
    first.host.container.visible = false;
    first.host.editBox.SetText(u"99");
    first.host.editBox.LeaveField();
    EXPECT_TRUE(first.host.alerts.messages.empty());
    EXPECT_EQ(first.host.container.focusRequests, 0);
    EXPECT_EQ(Quillmar::FocusHoldWindow(), first.control.hwnd());
}

TEST_F(FocusExit, NothingHappensWithoutAutomaticFinalValidation) {
    first.host.editBox.SetText(u"99");
    first.control.SetValidationMode(vldSemiAutomatic);
    first.host.editBox.LeaveField();
    second.host.editBox.SetText(u"99");
    second.control.SetFinalValidationActive(false);
    second.host.editBox.LeaveField();
    EXPECT_TRUE(first.host.alerts.messages.empty() && second.host.alerts.messages.empty());
    EXPECT_EQ(first.host.alerts.beeps + second.host.alerts.beeps, 0);
}

} // namespace
} // namespace quillmar
