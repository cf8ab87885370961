#include "control/Quillmar.h"
#include "host/standalone/StandaloneHost.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace quillmar {
namespace {

using Log = std::vector<std::string>;

class Surface : public ::testing::Test {
protected:
    Surface() {
        control.SetEventListener(&events);
        control.SetInputSifting(vldNone);
    }
    standalone::StandaloneHost host { "en_US" };
    Quillmar control { host.Services() };
    standalone::RecordingEvents events;
};

TEST_F(Surface, TakesTheSizeTheEditBoxAccepted) {
    control.Resize(120, 40);
    EXPECT_EQ(host.container.width, 120);
    EXPECT_EQ(host.container.height, 40);
    control.Resize(80, 3); // lower than the edit box can be
    EXPECT_EQ(host.container.width, 80);
    EXPECT_EQ(host.container.height, host.editBox.MinimumHeight());
    // A host that cannot place the edit box still gets the size the box has.
    host.editBox.failMoves = true;
    host.container.width = host.container.height = 0;
    control.Resize(300, 90);
    EXPECT_EQ(host.container.width, 80);
    EXPECT_EQ(host.container.height, host.editBox.MinimumHeight());
}

TEST_F(Surface, KeepsTheFormsToolTip) {
    host.container.toolTipText = u"Pieces, 1 to 100";
    control.Show();
    EXPECT_EQ(host.editBox.ToolTipText(), u"Pieces, 1 to 100");
    host.container.toolTipText = u"Changed by the form";
    host.editBox.HoverAt(2);
    EXPECT_EQ(host.editBox.ToolTipText(), u"Changed by the form");
    host.container.toolTipText.reset(); // a host without tool tips: nothing changes, nothing fails
    control.Show();
    host.editBox.HoverAt(2);
    EXPECT_EQ(host.editBox.ToolTipText(), u"Changed by the form");
}

TEST_F(Surface, ForwardsEveryEventWithItsArgumentsInOrder) {
    host.editBox.TypeKey(u'a');
    host.editBox.DoubleClickAt(0);
    host.editBox.HoverAt(1);
    control.OLEDrag();
    host.editBox.DropText(1, u"xy");
    EXPECT_EQ(events.log,
        (Log { "KeyDown 65 0", "KeyPress 97", "Change", "KeyUp 65 0", "MouseDown 1 0 0 5", "MouseUp 1 0 0 5",
            "Click", "DblClick", "MouseUp 1 0 0 5", "MouseMove 0 0 7 5", "OLEStartDrag 1", "OLESetData 1",
            "OLEGiveFeedback 1 -1", "OLECompleteDrag 1", "OLEDragOver 1 1 0 7 5 0",
            "OLEDragDrop 1 1 0 7 5" }));
}

TEST_F(Surface, FormMayChangeTheArgumentsOfAnEvent) {
    struct Refuser : standalone::RecordingEvents {
        void OLEDragDrop(DataObject&, int32_t& effect, int16_t&, int16_t&, float&, float&) override {
            effect = 0;
        }
    } refuser;
    control.SetEventListener(&refuser);
    control.SetOLEDropMode(2);
    host.editBox.DropText(0, u"xy");
    EXPECT_EQ(control.Text(), u"");
    control.SetEventListener(&events);
    host.editBox.DropText(0, u"xy");
    EXPECT_EQ(control.Text(), u"xy");
    // A drop goes in as a paste would: its first line, cut to the room left.
    control.SetMaxLength(5);
    host.editBox.DropText(1, u"12\r\n3");
    EXPECT_EQ(control.Text(), u"x12y");
    host.editBox.DropText(0, u"345");
    EXPECT_EQ(control.Text(), u"3x12y");
}

// The focus marker tells fields apart by their windows.
TEST_F(Surface, EachFieldHasAWindowOfItsOwn) {
    standalone::StandaloneHost other;
    Quillmar second(other.Services());
    EXPECT_NE(control.hwnd(), second.hwnd());
}

// A host's edit box serves one control: a second one is refused at its construction, and once the first is
// gone the box serves the next.
TEST_F(Surface, HostServesOneControlAtATime) {
    standalone::StandaloneHost shared;
    auto first = std::make_unique<Quillmar>(shared.Services());
    first->SetMustBeType(vldInteger);
    EXPECT_THROW(Quillmar second(shared.Services()), std::logic_error);
    shared.editBox.TypeText(u"7a"); // still sifted by the first
    EXPECT_EQ(first->Text(), u"7");
    first.reset();
    Quillmar next(shared.Services());
    shared.editBox.TypeText(u"8");
    EXPECT_EQ(next.Text(), u"78");
}

} // namespace
} // namespace quillmar
