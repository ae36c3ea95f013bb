// Texts that wait while their screen is away.
#include "screens/typed_aside.h"

#include "core/linkage_model.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

struct Waiting : Fixture {
    struct Two_Boxes : platform::Screen {
        Two_Boxes() : Screen("frm_Two_Boxes") {}
        platform::TextBox first{*this, "txt_First"}, second{*this, "txt_Second"};
    };
    void Fill() {
        ++filled;
        screen.first.Text = "1";
        screen.second.Text = "2";
    }
    void Leave() {
        aside.Keep(screen, [this] { Fill(); });
    }
    Waiting() {
        Fill();
        filled = 0;
    }
    Two_Boxes screen;
    Typed_Aside aside;
    int filled = 0;
};

}  // namespace

TEST_F(Waiting, NothingIsFilledWhereNothingWasTyped) {
    Leave();
    EXPECT_EQ(filled, 0);
    aside.Put_Back();
    EXPECT_FALSE(screen.first.Touched());
}

TEST_F(Waiting, ATextComesBackOverTheNumberThatWasBelowIt) {
    screen.first.Type("7");
    Leave();
    EXPECT_EQ(filled, 1);
    EXPECT_EQ(screen.first.Text, "1");
    EXPECT_FALSE(screen.first.Touched());
    aside.Put_Back();
    EXPECT_EQ(screen.first.Text, "7");
    EXPECT_TRUE(screen.first.Touched());
    EXPECT_EQ(screen.second.Text, "2");
    EXPECT_FALSE(screen.second.Touched());
    screen.first.Settle();
    screen.first.Text = "1";
    aside.Put_Back();
    EXPECT_EQ(screen.first.Text, "1") << "once";
}

TEST_F(Waiting, OverAnotherNumberInOtherUnitsOrInABoxThatIsOffItIsGone) {
    const std::function<void()> changes[] = {[this] { screen.first.Text = "3"; }, [] { Model.Units = 5; },
                                             [this] { screen.first.Enabled = false; },
                                             [this] { screen.first.Locked = true; }};
    for (const auto& change : changes) {
        SCOPED_TRACE(&change - changes);
        Model.Units = 1;
        screen.first.Enabled = true;
        screen.first.Locked = false;
        Fill();
        screen.first.Type("7");
        Leave();
        change();
        aside.Put_Back();
        EXPECT_NE(screen.first.Text, "7");
        EXPECT_FALSE(screen.first.Touched());
    }
}

TEST_F(Waiting, ALockedBoxHasNothingThatWaits) {
    screen.first.Type("7");
    screen.first.Locked = true;
    Leave();
    EXPECT_EQ(filled, 0);
}

}  // namespace verlink::test
