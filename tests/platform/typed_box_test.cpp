// A box that reads what a hand has typed: taken, refused once, taken all the same.
#include <gtest/gtest.h>

#include <string>

#include "platform/controls.h"
#include "platform/screen.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::test {
namespace {

using platform::Screen;
using platform::TextBox;

struct Form : Screen {
    Form() : Screen("frm_Form") {}
    TextBox txt_Length{*this, "txt_Length", "5"};
    platform::MenuEntry mnu_Save{*this, "mnu_Save", "Save"};
};

class TypedBoxTest : public testing::Test {
   protected:
    TypedBoxTest() {
        box.Reads = [this](const std::string& typed) {
            ++read;
            const std::size_t digits = std::min(typed.find_first_not_of("0123456789"), typed.size());
            return platform::Reading{typed.substr(0, digits), digits == typed.size() && digits > 0, "No number."};
        };
        box.Watcher = [this] { ++told; };
    }
    void Type_And_Leave(const std::string& text) {
        box.Type(text);
        box.Leave();
    }

    ScriptedDesktop desktop;
    Form form;
    TextBox& box = form.txt_Length;
    int read = 0, told = 0;
};

TEST_F(TypedBoxTest, ANumberIsTakenAndTheHandIsRemembered) {
    Type_And_Leave("12");
    EXPECT_EQ(box.Text, "12");
    EXPECT_TRUE(box.Touched());
    EXPECT_FALSE(box.State().typing);
    EXPECT_FALSE(box.Refused());
    EXPECT_EQ(box.Note(), "");
}

TEST_F(TypedBoxTest, IsReadOnceAndOnlyWhereAHandHasTyped) {
    box.Leave();
    EXPECT_EQ(read, 0);
    Type_And_Leave("12");
    box.Leave();
    EXPECT_EQ(read, 1);
    box.Reads = nullptr;
    Type_And_Leave("12 or so");
    EXPECT_EQ(box.Text, "12 or so");
    EXPECT_FALSE(box.Refused());
}

TEST_F(TypedBoxTest, ATextThatIsNotReadWholeStaysInSightWhileTheOldOneIsInForce) {
    Type_And_Leave("7x");
    EXPECT_TRUE(box.Refused());
    EXPECT_EQ(box.Shown(), "7x");
    EXPECT_EQ(box.Text, "5");
    EXPECT_FALSE(box.Touched());
    EXPECT_FALSE(box.State().typing);
    EXPECT_EQ(box.Note(), "No number.\n5 stays until the box is left again.\nLeaving it as it is then takes 7.");
}

TEST_F(TypedBoxTest, LeftAgainItsBeginningIsTakenAsTyped) {
    Type_And_Leave("7x");
    const int before = told;
    box.Leave();
    EXPECT_EQ(box.Text, "7");
    EXPECT_EQ(box.Shown(), "7");
    EXPECT_TRUE(box.Touched());
    EXPECT_FALSE(box.Refused());
    EXPECT_EQ(box.Note(), "");
    EXPECT_GT(told, before);
    // And is forgotten: the same slip is told anew.
    Type_And_Leave("7x");
    EXPECT_TRUE(box.Refused());
}

TEST_F(TypedBoxTest, ARefusedTextThatIsMendedIsNoLongerShownAsOne) {
    Type_And_Leave("7x");
    const int before = told;
    box.Type("5");  // what is in force, so that nothing but the refusal changes
    EXPECT_FALSE(box.Refused());
    EXPECT_EQ(box.Note(), "");
    EXPECT_EQ(told, before + 1);
    box.Leave();
    EXPECT_EQ(box.Text, "5");
    EXPECT_TRUE(box.Touched());
}

TEST_F(TypedBoxTest, ATextRefusedBeforeIsTakenThoughItWasMendedInBetween) {
    Type_And_Leave("7x");
    box.Type("7");
    Type_And_Leave("7x");
    EXPECT_FALSE(box.Refused());
    EXPECT_EQ(box.Text, "7");
}

TEST_F(TypedBoxTest, ARefusalLeavesTheMarkOfTheHandAsItWasBeforeTheTyping) {
    Type_And_Leave("6");
    box.Type("7");
    Type_And_Leave("7x");
    EXPECT_EQ(box.Text, "6");
    EXPECT_TRUE(box.Touched());
    box.Text = "5";
    EXPECT_FALSE(box.Touched());
    Type_And_Leave("8x");
    EXPECT_EQ(box.Text, "5");
    EXPECT_FALSE(box.Touched());
}

TEST_F(TypedBoxTest, WhatThereIsNothingToSayOfIsNotSaid) {
    box.Text = "";
    Type_And_Leave("x");
    EXPECT_EQ(box.Note(), "No number.\nLeaving it as it is then takes .");
    box.Text = "5";
    box.Reads = [](const std::string& typed) { return platform::Reading{typed, false, "Why not."}; };
    Type_And_Leave("x");
    EXPECT_EQ(box.Note(), "Why not.\n5 stays until the box is left again.");
}

TEST_F(TypedBoxTest, ARefusalIsToldToTheWatcherWhereTheTextIsTheSameAsWell) {
    box.Text = "x";
    box.Type("x");
    const int before = told;
    box.Leave();
    EXPECT_EQ(box.Text, "x");
    EXPECT_TRUE(box.Refused());
    EXPECT_EQ(told, before + 1);
}

TEST_F(TypedBoxTest, ForgettingARefusedTextShowsTheOneInForce) {
    Type_And_Leave("7x");
    const int before = told;
    box.Forget();
    EXPECT_EQ(box.Shown(), "5");
    EXPECT_EQ(box.Note(), "");
    EXPECT_EQ(told, before + 1);
    box.Forget();
    EXPECT_EQ(told, before + 1);
    Type_And_Leave("7x");
    EXPECT_TRUE(box.Refused());
}

TEST_F(TypedBoxTest, AnotherTextOfTheProgramDropsTheRefusalAndTheSameKeepsIt) {
    Type_And_Leave("7x");
    box.Text = "5";
    EXPECT_TRUE(box.Refused());
    box.Text = "6";
    EXPECT_FALSE(box.Refused());
    EXPECT_EQ(box.Shown(), "6");
}

TEST_F(TypedBoxTest, AMenuReadsWhatIsBeingTypedAndLeavesARefusalThatWasToldAsItIs) {
    box.SetFocus();
    box.Type("12");
    form.mnu_Save.Click();
    EXPECT_EQ(box.Text, "12");
    box.Type("7x");
    form.mnu_Save.Click();
    EXPECT_TRUE(box.Refused()) << "which does not count as left";
    box.Leave();
    EXPECT_TRUE(box.Refused());
    form.mnu_Save.Click();
    EXPECT_TRUE(box.Refused());
    box.Leave();
    EXPECT_EQ(box.Text, "7") << "left again";
}

TEST_F(TypedBoxTest, ReturnReadsTheBoxBeforeItIsHeard) {
    std::string heard;
    box.OnReturn = [&] { heard = box.Text; };
    box.Type("7x");
    box.Leave();
    box.Return();
    EXPECT_EQ(heard, "7");
    box.OnReturn = nullptr;
    box.Type("9");
    box.Return();
    EXPECT_EQ(box.Text, "9");
}

}  // namespace
}  // namespace verlink::test
