// Who goes along with the drawing hears every position that it shows, and when there is none any more.
#include "animation/shown.h"

#include <string>
#include <vector>

#include "animation/engine.h"
#include "core/linkage_model.h"
#include "core/results_turns.h"
#include "tests/support/drawing.h"

namespace verlink::test {
namespace {

/// "3" for a position that stands, "(3)" for a frame of a run, "-" for none.
class ShownPositions : public Drawing {
   protected:
    Stage stage;
    std::vector<std::string> heard;
    Position_Ear ear{stage, [this](const Shown& shown) {
                         const std::string step = std::to_string(shown.step);
                         heard.push_back(shown.Nothing() ? "-" : shown.playing ? "(" + step + ")" : step);
                     }};
    std::vector<std::string> Take() {
        std::vector<std::string> taken;
        taken.swap(heard);
        return taken;
    }
    using Heard = std::vector<std::string>;
};

TEST_F(ShownPositions, StepTellsThePositionThatItDraws) {
    By_Angle(0, 40, 10);
    Integer step = 3;
    Step(stage, step);
    EXPECT_EQ(Take(), (Heard{"3"}));
    EXPECT_EQ(ear.Step(), 3);
}

TEST_F(ShownPositions, AStepBeyondTheRunTellsTheFirstPosition) {
    By_Angle(0, 40, 10);
    Integer step = 5;
    Step(stage, step);
    EXPECT_EQ(Take(), (Heard{"0"}));
}

TEST_F(ShownPositions, ARunTellsEachFrameAndWhereItEnds) {
    By_Angle(0, 30, 10);
    Model.Cycles = 2;
    Animate(stage);
    EXPECT_EQ(Take(), (Heard{"-", "(0)", "(1)", "(2)", "(3)", "3", "-", "(0)", "(1)", "(2)", "(3)", "3"}));
}

TEST_F(ShownPositions, ARunWhoseEndDoesNotCloseEndsWithNothing) {
    By_Angle(0, 30, 10);
    Model.RunTable.Assembled(1) = false;
    Model.RunTable.Assembled(3) = false;
    Animate(stage);
    EXPECT_EQ(Take(), (Heard{"-", "(0)", "(2)", "-"}));
    EXPECT_EQ(ear.Step(), kNoStep);
}

TEST_F(ShownPositions, ARunThatIsStoppedTellsTheFrameThatStays) {
    By_Angle(0, 30, 10);
    Model.Cycles = 3;
    desktop.StopAtPause = 2;
    Animate(stage);
    EXPECT_EQ(Take(), (Heard{"-", "(0)", "(1)", "1"}));
}

TEST_F(ShownPositions, ACouplerPointAtTheOriginEndsTheCycleOnThePositionBefore) {
    By_Angle(0, 30, 10);
    for (int axis : {0, 1}) Model.RunTable.PointXY(2, 2, axis) = 0;
    Animate(stage);
    EXPECT_EQ(Take(), (Heard{"-", "(0)", "(1)", "1"}));
}

TEST_F(ShownPositions, APictureThatIsClearedShowsNothing) {
    By_Angle(0, 30, 10);
    DrawLinkage(stage, 2);
    Show_Nothing(stage);
    EXPECT_EQ(Take(), (Heard{"2", "-"}));
    EXPECT_EQ(stage.log.Calls.back(), "Cls");
}

TEST_F(ShownPositions, OnlyTheScreenThatIsDrawnOnIsMeant) {
    struct Other : Stage {
    } other;
    By_Angle(0, 30, 10);
    DrawLinkage(other, 1);
    EXPECT_EQ(Take(), Heard{});
    EXPECT_EQ(ear.Step(), kNoStep);
}

TEST_F(ShownPositions, AnEarThatHasGoneIsNotTold) {
    By_Angle(0, 30, 10);
    int told = 0;
    {
        const Position_Ear short_lived(stage, [&told](const Shown&) { ++told; });
        DrawLinkage(stage, 1);
    }
    DrawLinkage(stage, 2);
    EXPECT_EQ(told, 1);
}

TEST_F(ShownPositions, WhereResultsAreOthersEachIsToldAgainWhatItHeardLast) {
    struct Other : Stage {
    } other;
    Heard told;
    const Position_Ear elsewhere(other, [&told](const Shown& shown) {
        EXPECT_FALSE(shown.playing);
        told.push_back(shown.Nothing() ? "-" : std::to_string(shown.step));
    });
    const Position_Ear deaf(stage, nullptr);
    By_Angle(0, 30, 10);
    DrawLinkage(stage, 2);
    DrawLinkage(other, 1);
    Follow_Results();
    Take();
    told.clear();
    Follow_Results();
    EXPECT_EQ(Take(), Heard{});
    EXPECT_EQ(told, Heard{});
    Forces_Hold();
    Follow_Results();
    EXPECT_EQ(Take(), Heard{"2"});
    EXPECT_EQ(told, Heard{"1"});
    Nothing_Shown(other);
    told.clear();
    Forces_Dropped();
    Follow_Results();
    Follow_Results();
    EXPECT_EQ(Take(), Heard{"2"});
    EXPECT_EQ(told, Heard{"-"});
    EXPECT_EQ(deaf.Step(), 2) << "one that does not listen knows it all the same";
}

TEST(ShownAlone, TheFirstToListenIsToldLikeAllOthers) {
    platform::Screen screen("frm_Bare");
    std::vector<int> told;
    const Position_Ear ear(screen, [&told](const Shown& shown) { told.push_back(shown.step); });
    Position_Shown(screen, 3);
    Results_Put_Back();
    Follow_Results();
    EXPECT_EQ(told, (std::vector<int>{3, 3}));
}

}  // namespace
}  // namespace verlink::test
