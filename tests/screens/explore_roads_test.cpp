// The roads between the screens of synthesis and the one of all linkages: positions there, free choices and the linkage
// back.
#include <random>

#include "checks/designs.h"
#include "design/choices.h"
#include "design/hand_over.h"
#include "files/in_hand.h"
#include "screens/frm_explore.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_synth2a.h"
#include "screens/frm_synth2b.h"
#include "screens/frm_synth3.h"
#include "shell/history.h"
#include "tests/screens/synthesis_screens_fixture.h"

namespace verlink::test {

namespace {

using design::Choices;
using design::FourBar;
using design::Place;
using design::Solution;
using design::Task;
using platform::kNoIndex;
using platform::Screen;

struct ExploreRoads : SynthesisScreenTest {
    ExploreRoads() {
        engine.seed(20240611);
        // What a whole search takes longer for is of no matter here.
        explore.Effort.coarse = true;
    }

    frm_Synth2A& two_by_angles = Made<frm_Synth2A>("frm_Synth2A");
    frm_Synth2B& two_by_arms = Made<frm_Synth2B>("frm_Synth2B");
    frm_Synth3& three = Made<frm_Synth3>("frm_Synth3");
    frm_Explore& explore = Made<frm_Explore>("frm_Explore");

    void Show(Screen& screen, const std::function<void()>& user) {
        desktop.Expect_Screen(screen.Name(), [&](Screen& shown) {
            user();
            if (shown.Visible()) shown.Hide();
        });
        screen.ShowModal();
    }
    void On_Explore(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_Explore", [user](Screen& shown) {
            user();
            if (shown.Visible()) Press(shown, "cmd_Cancel");
        });
    }
    void Look_There(
        Synthesis_Screen& form, const std::function<void()>& user = [] {}) {
        On_Explore(user);
        Press(form, "cmd_Explore");
    }
    void Type_Three() {
        const std::pair<const char*, const char*> boxes[] = {{"txt_P21x", "4"},    {"txt_P21y", "1"},
                                                             {"txt_Alpha2", "30"}, {"txt_P31x", "6"},
                                                             {"txt_P31y", "4"},    {"txt_Alpha3", "60"}};
        for (const auto& [box, text] : boxes) Enter_Box(three, box, text);
    }
    static Task Kept() {
        Task task;
        std::string fault;
        EXPECT_TRUE(design::Read_Task(Model.DesignTask, task, fault)) << fault;
        return task;
    }

    double Number(double low, double high) { return std::uniform_real_distribution<>(low, high)(engine); }
    Task Random_Task(int positions, int units) {
        Task task;
        task.units = units;
        const double size = units == 5 ? 50 : 2;
        for (int i = 0; i < positions; ++i)
            task.positions.push_back({{Number(-size, size), Number(-size, size)}, Number(-90, 90)});
        return task;
    }
    static std::vector<Solution> Some_Of(const Task& task, std::size_t best = 10) {
        return design::Find(task, {.best = best, .threads = 1, .coarse = true, .rounds = 2}).solutions;
    }

    /// The largest departure of the record's linkage from the one found, as a part of the longest link.
    static double Departure(const FourBar& found) {
        const double f = Shown_Factor();
        const auto O2 = found.crank.fixed, A = found.crank.moving, B = found.other.moving, O4 = found.other.fixed;
        const auto delta = std::arg((found.coupler - A) / (B - A)) / kRadians;
        const double longest = std::max({std::abs(O4 - O2), std::abs(A - O2), std::abs(B - A), std::abs(B - O4)});
        const double size = std::max(longest, std::abs(found.coupler - A));
        const double arm = std::abs(found.coupler - A) / size;
        return std::max(
            {std::abs(Model.L1 * f - std::abs(O4 - O2)) / size, std::abs(Model.L2 * f - std::abs(A - O2)) / size,
             std::abs(Model.L3 * f - std::abs(B - A)) / size, std::abs(Model.L4 * f - std::abs(B - O4)) / size,
             std::abs(Model.Rpa * f - std::abs(found.coupler - A)) / size,
             arm * std::abs(std::remainder(Model.Delta - delta, 360)) * kRadians,
             std::abs(std::remainder(Model.Link1Angle - std::arg(O4 - O2) / kRadians, 360)) * kRadians});
    }

    struct Tally {
        int calculated = 0, refused = 0, exact = 0, open = 0, crossed = 0;
    };
    /// Calculates each of them on the screen.
    void Calculate_All(Synthesis_Screen& form, const Task& task, bool specified, double within, Tally& tally) {
        for (const Solution& solution : Some_Of(task, specified ? 4 : 10)) {
            Choices choices = design::Choices_Of(task, solution);
            choices.specified = specified;
            if (!form.Trouble_With(choices).empty()) {
                ++tally.refused;
                continue;
            }
            // It is typed as the screen comes up.
            form.Take_Choices(choices);
            form.Form_Activate();
            Calculate(form);
            const double off = Departure(solution.linkage);
            EXPECT_LT(off, within) << design::Task_Text(task);
            ++tally.calculated;
            tally.exact += off < 1e-5;
            (solution.judgement.open ? tally.open : tally.crossed) += 1;
        }
    }

    std::mt19937 engine;
};

constexpr double kSinglePrecision = 2e-4;

}  // namespace

TEST_F(ExploreRoads, TakeTypedPositionsThereAndComeBackToTheScreenAsItWasLeft) {
    Model.SynPositions = 2;
    const Single before = Model.P21x;
    Show(three, [&] {
        Type_Three();
        Enter_Box(three, "txt_Beta2", "12.5");
        Look_There(three, [&] {
            const Task& task = explore.The_Task();
            EXPECT_TRUE(task.relative);
            EXPECT_EQ(task.positions, (std::vector<Place>{{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}}));
            EXPECT_EQ(explore.txt_X[2].Text, "4");
        });
        EXPECT_EQ(three.txt_P21x.Text, "4");
        EXPECT_EQ(three.txt_Beta2.Text, "12.5");
        EXPECT_TRUE(three.txt_Beta2.Touched());
        EXPECT_EQ(Model.P21x, before);
    });
}

TEST_F(ExploreRoads, TwoPositionsGoThereFromBothTheirScreens) {
    Model.SynPositions = 1;
    for (Synthesis_Screen* form : std::initializer_list<Synthesis_Screen*>{&two_by_angles, &two_by_arms}) {
        Model.DesignTask.clear();
        Show(*form, [&] {
            Enter_Box(*form, "txt_P21x", "-1.5");
            Enter_Box(*form, "txt_P21y", "2");
            Enter_Box(*form, "txt_Alpha2", "-20");
            Look_There(*form);
        });
        EXPECT_EQ(Kept().positions, (std::vector<Place>{{{0, 0}, 0}, {{-1.5, 2}, -20}}));
    }
}

TEST_F(ExploreRoads, SpecifiedPivotsAreThePlacesOfTheFixedPivots) {
    Model.SynPositions = 3;
    Model.SpecifiedPivots = true;
    Show(three, [&] {
        Type_Three();
        const std::pair<const char*, std::pair<const char*, const char*>> points[] = {
            {"txt_O2", {"-1", "-2"}}, {"txt_O4", {"3", "-2"}}, {"txt_P1", {"0.5", "1.5"}}};
        for (const auto& [box, texts] : points) {
            Enter_Box(three, box, texts.first, 0);
            Enter_Box(three, box, texts.second, 1);
        }
        Look_There(three);
    });
    const Task task = Kept();
    EXPECT_EQ(task.positions[0].at, design::Point(0.5, 1.5));
    EXPECT_EQ(task.left.fixed.points, (std::vector<design::Point>{{-1, -2}}));
    EXPECT_EQ(task.right.fixed.points, (std::vector<design::Point>{{3, -2}}));
    // With the crank at the other pivot it is the same task.
    const std::string before = Model.DesignTask;
    Show(three, [&] {
        Type_Three();
        const std::pair<const char*, std::pair<const char*, const char*>> points[] = {
            {"txt_O4", {"-1", "-2"}}, {"txt_O2", {"3", "-2"}}, {"txt_P1", {"0.5", "1.5"}}};
        for (const auto& [box, texts] : points) {
            Enter_Box(three, box, texts.first, 0);
            Enter_Box(three, box, texts.second, 1);
        }
        Look_There(three);
    });
    EXPECT_EQ(Model.DesignTask, before);
}

TEST_F(ExploreRoads, ReplaceThePositionsOfTheTaskAndKeepItsLimitsAndWeights) {
    Model.SynPositions = 2;
    Task task;
    task.title = "A lid";
    task.positions = {{{10, 5}, 15}, {{11, 5}, 25}, {{12, 6}, 35}, {{13, 8}, 45}};
    task.shortest = 0.5;
    task.transmission = 35;
    task.full_turn = true;
    task.weights.room = 4;
    task.left.moving = {design::Area::Is::kWithin, {8, 3}, {12, 7}, {}};
    Model.DesignTask = design::Task_Text(task);
    Show(three, [&] {
        Type_Three();
        Look_There(three);
    });
    Task expected = task;
    expected.relative = true;
    expected.positions = {{{10, 5}, 15}, {{4, 1}, 30}, {{6, 4}, 60}};
    EXPECT_EQ(Kept(), expected);
}

TEST_F(ExploreRoads, GoingThereAndBackWithTheSameDataChangesNothing) {
    Model.SynPositions = 2;
    Task task;
    task.title = "A lid";
    task.positions = {{{1, 2}, 10}, {{1 + 1.0 / 3, 3}, 30.12345}, {{2, 2.5}, 51}};
    const Solution solution = Some_Of(task).front();
    design::Hand_Over(task, solution, Model);
    // In a form that the program would write in another way.
    Model.DesignTask = design::Task_Text(task) + "\n";
    const std::string before = Model.DesignTask;
    Show(three, [&] {
        Look_There(three);
        EXPECT_EQ(Model.DesignTask, before);
        Calculate(three);
        Look_There(three);
    });
    // The calculation took the rounded numbers of the boxes.
    EXPECT_NE(Model.DesignTask, before);
    const std::string rounded = Model.DesignTask;
    Show(three, [&] { Look_There(three); });
    EXPECT_EQ(Model.DesignTask, rounded);
}

TEST_F(ExploreRoads, TheTaskOfBeforeComesBackByOneUndoAndWhatIsTypedStays) {
    Model.SynPositions = 2;
    Task task;
    task.positions = {{{0, 0}, 0}, {{1, 0}, 10}};
    Model.DesignTask = design::Task_Text(task);
    The_History().Begin();
    Show(three, [&] {
        Type_Three();
        Look_There(three);
        EXPECT_EQ(The_History().Steps(), 1U);
        EXPECT_EQ(The_History().Undo_What(), "Explore");
        Pick_Menu(three, "mnu_Undo");
        EXPECT_EQ(Model.DesignTask, design::Task_Text(task));
        EXPECT_EQ(three.txt_P31y.Text, "4");
        EXPECT_TRUE(three.txt_P31y.Touched());
        Pick_Menu(three, "mnu_Redo");
        EXPECT_EQ(Kept().positions.size(), 3U);
    });
}

TEST_F(ExploreRoads, LimitsInAnotherUnitAreConverted) {
    Model.SynPositions = 1;
    Task task;
    task.units = 1;
    task.positions = {{{1, 1}, 0}, {{2, 1}, 10}};
    task.shortest = 2;
    Model.DesignTask = design::Task_Text(task);
    Use_Units(5);
    Show(two_by_angles, [&] {
        Enter_Box(two_by_angles, "txt_P21x", "30");
        Look_There(two_by_angles);
    });
    EXPECT_EQ(Kept().units, 5);
    EXPECT_NEAR(Kept().shortest, 50.8, 1e-9);
    EXPECT_NEAR(Kept().positions[0].at.real(), 25.4, 1e-9);
    EXPECT_EQ(Kept().positions[1].at.real(), 30);
}

TEST_F(ExploreRoads, ANumberThatNoTaskTakesIsToldAndTheTaskStays) {
    Model.SynPositions = 1;
    Show(two_by_angles, [&] {
        Enter_Box(two_by_angles, "txt_P21x", "3000000");
        desktop.Expect_Message("the field positions[1].x is to lie between -1000000.0 and 1000000.0");
        Press(two_by_angles, "cmd_Explore");
    });
    EXPECT_EQ(Model.DesignTask, "");
}

TEST_F(ExploreRoads, FreeChoicesOfThreePositionsGiveTheSameLinkage) {
    Tally tally;
    for (int i = 0; i < 52; ++i) {
        const int units = i % 4 == 0 ? 5 : 1;
        Use_Units(units);
        Model.SynPositions = 2;
        Calculate_All(three, Random_Task(3, units), false, kSinglePrecision, tally);
    }
    EXPECT_GT(tally.calculated, 500);
    EXPECT_GT(tally.open, 50);
    EXPECT_GT(tally.crossed, 50);
    EXPECT_GT(tally.exact, tally.calculated * 9 / 10);
    EXPECT_LT(tally.refused, tally.calculated / 50);
}

TEST_F(ExploreRoads, FreeChoicesOfTwoPositionsGiveTheSameLinkageByBothMethods) {
    for (Synthesis_Screen* form : std::initializer_list<Synthesis_Screen*>{&two_by_angles, &two_by_arms}) {
        Tally tally;
        for (int i = 0; i < 24; ++i) {
            const int units = i % 4 == 0 ? 5 : 1;
            Use_Units(units);
            Model.SynPositions = 1;
            Calculate_All(*form, Random_Task(2, units), false, kSinglePrecision, tally);
        }
        EXPECT_GT(tally.calculated, 200);
        EXPECT_GT(tally.open, 20);
        EXPECT_GT(tally.crossed, 20);
        EXPECT_GT(tally.exact, tally.calculated * 9 / 10);
        EXPECT_LT(tally.refused, tally.calculated / 20);
    }
}

TEST_F(ExploreRoads, SpecifiedPivotsGiveTheSameLinkageOrItIsSaidThatTheyDoNot) {
    Tally tally;
    for (int i = 0; i < 80; ++i) {
        Model.SynPositions = 3;
        Model.SpecifiedPivots = true;
        // Their closed form has lengths to the fourth power in singles.
        Calculate_All(three, Random_Task(3, 1), true, 1e-2, tally);
    }
    EXPECT_GT(tally.calculated, 200);
    EXPECT_GT(tally.open, 20);
    EXPECT_GT(tally.crossed, 20);
    EXPECT_GT(tally.refused, 20);
}

TEST_F(ExploreRoads, FreeChoicesComeToTheScreenBelowOrToTheOneForSoManyPositions) {
    Model.SynPositions = 2;
    const auto search = [&] {
        Press(explore, "cmd_Search");
        while (explore.Timer1.Enabled) explore.Timer1.Tick();
        ASSERT_TRUE(explore.cmd_Choices.Enabled);
    };
    Show(three, [&] {
        Type_Three();
        Look_There(three, [&] {
            search();
            Press(explore, "cmd_Choices");
            EXPECT_FALSE(explore.Visible());
        });
        EXPECT_TRUE(three.txt_Beta2.Touched());
        Calculate(three);
        EXPECT_LT(Departure(explore.Shown()[0].linkage), kSinglePrecision);
    });
    Model.SpecifiedPivots = true;
    Show(explore, [&] {
        search();
        desktop.Expect_Screen("frm_Synth3", [&](Screen& shown) {
            EXPECT_FALSE(Model.SpecifiedPivots);
            Calculate(three);
            EXPECT_LT(Departure(explore.Shown()[0].linkage), kSinglePrecision);
            shown.Hide();
        });
        Press(explore, "cmd_Choices");
    });
}

TEST_F(ExploreRoads, UseHandsTheSynthesisDataOverAndTheChecksTellOfThem) {
    for (int i = 0; i < 12; ++i) {
        const int positions = 2 + i % 4;
        const Task task = Random_Task(positions, 1);
        for (const Solution& solution : Some_Of(task, 4)) {
            design::Hand_Over(task, solution, Model);
            EXPECT_TRUE(Model.Synthesized);
            EXPECT_EQ(Model.SynPositions, positions == 2 ? 1 : 2);
            EXPECT_FALSE(Model.SpecifiedPivots);
            const double within = 1e-4 * std::abs(W() + Z() + U() + S());
            for (int position = 2; position <= std::min(positions, 3); ++position) Expect_Both_Reach(position, within);
            std::vector<Check> told;
            checks::Add_Positions(Model, told);
            ASSERT_EQ(told.size(), 2U);
            EXPECT_EQ(told[0].verdict, Verdict::kGood) << told[0].meaning << design::Task_Text(task);
            EXPECT_EQ(told[1].verdict, Verdict::kGood) << told[1].meaning << design::Task_Text(task);
            const std::string order = positions == 2 ? "1, 2" : "1, 2, 3";
            const char* circuit = solution.judgement.open ? "open" : "crossed";
            const char* way =
                solution.judgement.crank[1] > solution.judgement.crank[0] ? "counterclockwise" : "clockwise";
            EXPECT_EQ(told[0].meaning, std::string("The linkage reaches all positions on the ") + circuit +
                                           " circuit, in the order " + order + " as the crank turns " + way + ".");
        }
    }
}

TEST_F(ExploreRoads, UseIsOneStepOfUndoAndTakesTheSynthesisScreenAway) {
    Model.SynPositions = 2;
    const Single length = Model.L2, way = Model.P21x;
    The_History().Begin();
    const auto user = [&](Screen&) {
        Type_Three();
        Look_There(three, [&] {
            Press(explore, "cmd_Search");
            while (explore.Timer1.Enabled) explore.Timer1.Tick();
            desktop.Expect_Screen("frm_Inputnew", [&](Screen& input) {
                EXPECT_FALSE(three.Visible());
                EXPECT_FALSE(explore.Visible());
                EXPECT_NE(Model.L2, length);
                EXPECT_EQ(Model.P21x, 4);
                EXPECT_EQ(The_History().Undo_What(), "Use");
                const std::size_t steps = The_History().Steps();
                Pick_Menu(input, "mnu_Undo");
                EXPECT_EQ(The_History().Steps(), steps - 1);
                EXPECT_EQ(Model.L2, length);
                EXPECT_EQ(Model.P21x, way);
                Press(input, "cmd_Cancel");
            });
            Press(explore, "cmd_Use");
        });
    };
    Show(Made<frm_HomeScreen>("frm_HomeScreen"), [&] {
        desktop.Expect_Screen("frm_Synth3", user);
        Pick_Menu(platform::Screens::Get("frm_HomeScreen"), "mnu_Unspec");
    });
}

}  // namespace verlink::test
