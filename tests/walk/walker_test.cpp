// The walker himself: he does the same twice, leaves no trace where he tries, and his walks become short.
#include <cmath>

#include "core/runs.h"
#include "tests/walk/hand.h"
#include "tests/walk/record.h"
#include "tests/walk/walk_fixture.h"

namespace verlink::walk {
namespace {

using namespace platform;

std::vector<std::string> Lines_Of(const std::vector<Action>& actions) {
    std::vector<std::string> lines;
    for (const Action& action : actions) lines.push_back(Line_Of(action));
    return lines;
}

struct Walked {
    std::vector<Action> actions;
    std::string kind;
    Words record;
};

Walked Walk(User& user, const Places& places, const std::set<std::string>& without) {
    Counts counts;
    Walker walker(user, places, counts);
    walker.Leave_Out(without);
    Walk_Once(walker, places);
    return {walker.Done(), walker.Outcome() ? walker.Outcome()->rule + walker.Outcome()->kind : "", Record_Words()};
}

/// All rules, so that a walk goes on whatever it meets.
const std::set<std::string> kEvery = {"messages",   "failures",  "finite",       "boxes",       "read back",
                                      "Calculated", "one story", "DynamicsDone", "BalanceDone", "FFTDone",
                                      "files",      "looking",   "quiet line"};

TEST(Walker, ASeedIsAWalk) {
    const Places places;
    Random_User one(42, 120), again(42, 120), other(43, 120);
    const Walked first = Walk(one, places, kEvery), second = Walk(again, places, kEvery);
    ASSERT_GE(first.actions.size(), 100u);
    EXPECT_EQ(Lines_Of(first.actions), Lines_Of(second.actions));
    EXPECT_FALSE(Compare(first.record, second.record).Any());
    EXPECT_NE(Lines_Of(first.actions), Lines_Of(Walk(other, places, kEvery).actions));
}

TEST(Walker, WhatWasDoneIsDoneAgain) {
    const Places places;
    Random_User random(7, 150);
    const Walked first = Walk(random, places, kEvery);
    Repeating_User repeating(first.actions);
    const Walked second = Walk(repeating, places, kEvery);
    EXPECT_EQ(Lines_Of(first.actions), Lines_Of(second.actions));
    const Difference difference = Compare(first.record, second.record);
    EXPECT_FALSE(difference.Any()) << difference.values;
}

TEST(Walker, ATrialLeavesNoTrace) {
    struct Trying : Repeating_User {
        using Repeating_User::Repeating_User;
        std::optional<Action> Next(Screen& top, bool looking) override {
            if (auto action = Repeating_User::Next(top, looking)) return action;
            const Words record = Record_Words(), boxes = Screen_Words(top);
            const RunResults table = Model.RunTable;
            {
                const Aside aside;
                EXPECT_TRUE(Aside::On());
                Model.L2 = Model.LinkArray(2) = 0.25;
                Model.Link1Angle = 30;
                Integer Result = kRetrying;
                Calc_Setup(3, Result);
                EXPECT_TRUE(Compare_Results(table, Model.RunTable, 5, Results::kMotion).Any());
                top.Text("txt_Linkout", 1).Text = "0.25";
                top.Text("txt_Linkout", 2).SetFocus();
            }
            EXPECT_FALSE(Aside::On());
            EXPECT_FALSE(Compare(record, Record_Words()).Any());
            const Difference difference = Compare(boxes, Screen_Words(top));
            EXPECT_FALSE(difference.Any()) << difference.values;
            EXPECT_FALSE(Compare_Results(table, Model.RunTable, Model.NSteps, Results::kAll).Any());
            tried = true;
            return {};
        }
        bool tried = false;
    };
    const Places places;
    Trying user({Press("frm_HomeScreen", "cmd_Input"), Press("frm_Inputnew", "cmd_Calc")});
    Walk(user, places, kEvery);
    EXPECT_TRUE(user.tried);
}

TEST(Walker, OnlyWhatAHandReachesIsDone) {
    struct Looking : Repeating_User {
        Looking() : Repeating_User({}) {}
        std::optional<Action> Next(Screen& top, bool) override {
            EXPECT_FALSE(Possible(top, Press("frm_HomeScreen", "cmd_Plot"))) << "nothing is calculated";
            EXPECT_FALSE(Possible(top, Pick("frm_HomeScreen", "mnu_pdx"))) << "the entry above is closed";
            EXPECT_FALSE(Possible(top, Pick("frm_HomeScreen", "mnu_Import"))) << "it opens a menu";
            EXPECT_TRUE(Possible(top, Pick("frm_HomeScreen", "mnu_Lobetra")));
            EXPECT_TRUE(Possible(top, Press("frm_HomeScreen", "cmd_Input")));
            EXPECT_FALSE(Possible(top, Press("frm_Inputnew", "cmd_Calc"))) << "another screen";
            seen = true;
            return {};
        }
        bool seen = false;
    };
    const Places places;
    Looking user;
    Walk(user, places, {});
    EXPECT_TRUE(user.seen);
}

TEST(Walker, FewestKeepsWhatMattersInItsOrder) {
    std::vector<Action> actions;
    for (int i = 0; i < 60; ++i) actions.push_back(Go("frm_X", "box", i));
    actions[17] = std::move(actions[17]).Says(Answer::kYes).Opens("<folder>/mine.vlk");
    actions[44] = std::move(actions[44]).Says(Answer::kNo);
    const auto place = [](const std::vector<Action>& among, int index) {
        for (std::size_t i = 0; i < among.size(); ++i)
            if (among[i].index == index) return static_cast<int>(i);
        return -1;
    };
    const std::vector<Action> fewest = Fewest(actions, [&](const std::vector<Action>& some) {
        const int first = place(some, 17), second = place(some, 44);
        return first >= 0 && second > first && !some[static_cast<std::size_t>(first)].replies.empty();
    });
    EXPECT_EQ(Lines_Of(fewest), (std::vector<std::string>{"Go(\"frm_X\", \"box\", 17).Says(Answer::kYes)",
                                                          "Go(\"frm_X\", \"box\", 44)"}));
}

TEST(Walker, AnActionIsPrintedAsTheLineOfATest) {
    EXPECT_EQ(Line_Of(Type("frm_X", "txt_Box", 3, "a\"b\t")), "Type(\"frm_X\", \"txt_Box\", 3, \"a\\\"b\\011\")");
    EXPECT_EQ(Line_Of(Press("frm_X", "cmd_Y").Says(Answer::kAbort).Saves_Nothing().Prints(false).Looks()),
              "Press(\"frm_X\", \"cmd_Y\").Says(Answer::kAbort).Saves_Nothing().Prints(false).Looks()");
    EXPECT_EQ(Line_Of(Mouse("frm_X", "Picture1", kNoIndex, 0.25, 1, 1, 1)),
              "Mouse(\"frm_X\", \"Picture1\", kNoIndex, 0.25, 1, 1, 1)");
    EXPECT_EQ(Line_Of(Haul("frm_X", "Picture1", 0.25, 1, 0.5, -0.1, 2)),
              "Haul(\"frm_X\", \"Picture1\", 0.25, 1, 0.5, -0.1, 2)");
    EXPECT_EQ(Line_Of(Hover("frm_X", "Picture1", 0.25, 1).Looks()), "Hover(\"frm_X\", \"Picture1\", 0.25, 1).Looks()");
    EXPECT_EQ(Line_Of(Turn_Wheel("frm_X", "Picture1", 0.25, 1, -3)),
              "Turn_Wheel(\"frm_X\", \"Picture1\", 0.25, 1, -3)");
    EXPECT_EQ(Line_Of(On_Picture("frm_X", "Picture1", "Ctrl+Left")),
              "On_Picture(\"frm_X\", \"Picture1\", \"Ctrl+Left\")");
    const Finding finding{"boxes", "frm_X.box", "it says so"};
    EXPECT_EQ(Test_Of({Close("frm_X")}, finding),
              "TEST(WalkFound, boxes_frm_X_box) {\n    // it says so\n    Expect_Sound({\n        Close(\"frm_X\"),\n"
              "    });\n}\n");
}

}  // namespace
}  // namespace verlink::walk
