// What comes back with a step beside the values of the model, and who is told.
#include "core/results.h"
#include "core/results_turns.h"
#include "core/text.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "files/in_hand.h"
#include "files/model_file.h"
#include "platform/deed.h"
#include "platform/unheard.h"
#include "tests/shell/history_fixture.h"

namespace verlink::test {

TEST_F(HistoryOfResults, ABalanceComesBackWithItsFlywheelAndItsForces) {
    With_A_Run([](Screen& home) {
        Single force = 0, weight = 0;
        Do(home, [&] {
            Model.LinkMass(2) = 0.5;
            Solve_Forces(Model);
            Default_Weights(Model);
            Berkof_Calc(Model, Model.BerkMass, Model.BerkRadius);
            force = Model.RunTable.BalancedForce(3, 2);
            weight = Model.BerkMass(2);
            for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.FlywheelTorque(step) = 100 + step;
        });
        EXPECT_TRUE(Model.BalanceDone);
        Do(home, [] {
            Model.LinkMass(2) = 0.25;
            Forces_Dropped();
            for (int step = 0; step <= Model.NSteps; ++step) {
                Model.RunTable.FlywheelTorque(step) = 7;
                Model.RunTable.BalancedForce(step, 2) = 7;
            }
        });
        Steps().Undo();
        EXPECT_TRUE(Model.BalanceDone);
        EXPECT_TRUE(Model.DynamicsDone);
        EXPECT_EQ(Model.RunTable.BalancedForce(3, 2), force);
        EXPECT_EQ(Model.BerkMass(2), weight);
        for (int step = 0; step <= Model.NSteps; ++step) EXPECT_EQ(Model.RunTable.FlywheelTorque(step), 100 + step);
        Steps().Redo();
        EXPECT_FALSE(Model.BalanceDone);
        EXPECT_FALSE(Model.DynamicsDone);
        EXPECT_EQ(Model.LinkMass(2), Single(0.25));
    });
}

TEST_F(HistoryOfResults, ATransformComesBackWithAllItsHarmonicsTheirNumberAndTheirUnit) {
    With_A_Run([](Screen& home) {
        const auto transform = [&](int first) {
            Do(home, [first] {
                Model.LinkMass(2) = first;
                for (int row = 0; row <= 3; ++row)
                    for (int i = 0; i <= 2880; ++i) Model.FFTResult(i, row) = first + row + i;
                Model.Harmonics = first + 10;
                Model.HalfSamples = first + 20;
                Model.FFTUnitLabel = first == 1 ? "in" : "mm";
                Transform_Holds();
            });
        };
        transform(1);
        transform(2);
        Steps().Undo();
        EXPECT_TRUE(Model.FFTDone);
        EXPECT_EQ(Model.Harmonics, 11);
        EXPECT_EQ(Model.HalfSamples, 21);
        EXPECT_EQ(Model.FFTUnitLabel, "in");
        for (int row = 0; row <= 3; ++row)
            for (const int i : {0, 1, 1440, 2880}) EXPECT_EQ(Model.FFTResult(i, row), 1 + row + i) << row << " " << i;
        Steps().Redo();
        EXPECT_EQ(Model.Harmonics, 12);
        EXPECT_EQ(Model.FFTUnitLabel, "mm");
        EXPECT_EQ(Model.FFTResult(7, 3), 12);
    });
}

TEST_F(HistoryOfResults, TwoTablesThatDifferInOneNumberAreTwo) {
    With_A_Run([](Screen& home) {
        const auto bring = [&](int step, double value) {
            Do(home, [&] {
                Model.TorqueImported = true;
                Model.RunTable.ImportedTorque(step) = value;
            });
        };
        bring(0, 1);
        bring(Model.NSteps, 2);
        bring(Model.NSteps, 3);
        EXPECT_EQ(Steps().Steps(), 3U);
        Steps().Undo();
        EXPECT_EQ(Model.RunTable.ImportedTorque(Model.NSteps), 2);
        Steps().Undo();
        EXPECT_EQ(Model.RunTable.ImportedTorque(Model.NSteps), 0);
        EXPECT_EQ(Model.RunTable.ImportedTorque(0), 1);
    });
}

TEST_F(HistoryOfResults, ATableOfOnePositionComesBack) {
    At_Home([](Screen& home) {
        for (const double torque : {1.0, 2.0})
            Do(home, [torque] {
                Model.NSteps = 0;
                Model.TorqueImported = true;
                Model.RunTable.ImportedTorque(0) = torque;
            });
        Steps().Undo();
        EXPECT_EQ(Model.RunTable.ImportedTorque(0), 1);
        Steps().Redo();
        EXPECT_EQ(Model.RunTable.ImportedTorque(0), 2);
    });
}

TEST_F(HistoryOfResults, ATableWithoutPositionsIsTakenBackAsOneThatHasThem) {
    At_Home([](Screen& home) {
        for (const double mass : {1.0, 2.0})
            Do(home, [mass] {
                Model.NSteps = -2;
                Model.TorqueImported = true;
                Model.LinkMass(2) = mass;
            });
        Steps().Undo();
        EXPECT_EQ(Model.LinkMass(2), 1);
        Steps().Redo();
        EXPECT_EQ(Model.LinkMass(2), 2);
    });
}

TEST_F(HistoryOfResults, ANewBeginningForgetsWhatWasDoneUndoneTypedAndDragged) {
    With_A_Run([this](Screen& home) {
        const auto drag = [](double mass) {
            const Deed deed("drag", Deed::Kind::kDrag);
            Model.LinkMass(2) = mass;
        };
        Do(home, [] { Model.LinkMass(2) = 1; });
        Do(home, [] { Model.LinkMass(2) = 2; });
        Steps().Undo();
        drag(3);
        drag(4);
        EXPECT_EQ(Steps().Steps(), 2U);
        Steps().Begin();
        EXPECT_EQ(Steps().Steps(), 0U);
        EXPECT_FALSE(Steps().Can_Undo());
        EXPECT_FALSE(Steps().Can_Redo());
        drag(5);
        EXPECT_EQ(Steps().Steps(), 1U) << "a drag begins anew, too";
        Steps().Undo();
        EXPECT_EQ(Model.LinkMass(2), 4);
        Steps().Begin();
        EXPECT_FALSE(Steps().Can_Redo());

        desktop.Expect_Screen("frm_MassProp", [](Screen& masses) {
            Type(masses, "txt_Mass", 2, "0.5");
            Steps().Begin();
            EXPECT_FALSE(Steps().Can_Undo());
            Type(masses, "txt_Mass", 3, "0.25");
            Steps().Undo();
            EXPECT_TRUE(Steps().Can_Redo());
            Steps().Begin();
            EXPECT_FALSE(Steps().Can_Redo());
            Press(masses, "cmd_Solve");
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

TEST_F(HistoryOfResults, WhatTheProgramChangesByItselfIsNoStepLeavesTheModelUnmodifiedAndIsTold) {
    With_A_Run([](Screen& home) {
        static std::string heard;
        heard.clear();
        Steps().Listen([](Turn turn) {
            heard += turn == Turn::kChanged ? "changed " : turn == Turn::kKept ? "kept " : "came ";
        });
        static int followed = 0;
        Steps().Follow([](bool typed) { followed += !typed; });
        Deed::By_Itself();
        EXPECT_EQ(heard, "");
        followed = 0;
        Model.LinkMass(2) = 9;
        Deed::By_Itself();
        EXPECT_EQ(heard, "changed ");
        EXPECT_EQ(followed, 1);
        EXPECT_FALSE(Modified());
        EXPECT_EQ(Steps().Steps(), 0U);
        Do(home, [] {});
        EXPECT_EQ(heard, "changed ") << "a deed that changes nothing is not told as a change";
        EXPECT_EQ(Steps().Steps(), 0U);
        Do(home, [] { Model.LinkMass(2) = 10; });
        EXPECT_EQ(heard, "changed changed ");
        Model_Kept();
        EXPECT_EQ(heard, "changed changed kept ");
        {
            const Unheard silence;
            Model_Kept();
        }
        EXPECT_EQ(heard, "changed changed kept ");
        Steps().Undo();
        EXPECT_EQ(Model.LinkMass(2), 9);
    });
}

TEST_F(HistoryOfResults, AStepWithoutANameIsAChange) {
    With_A_Run([](Screen&) {
        {
            const Deed deed("");
            Model.LinkMass(2) = 9;
        }
        EXPECT_EQ(Steps().Undo_What(), "change");
    });
}

TEST_F(HistoryOfResults, AnglesBeyondATurnThatAreShownOtherwiseAreAStep) {
    With_A_Run([](Screen& home) {
        ASSERT_EQ(Model.ModuloMode, "abs");
        Do(home, [] { Model.ModuloMode = "mod"; });
        EXPECT_EQ(Steps().Steps(), 1U);
        Steps().Undo();
        EXPECT_EQ(Model.ModuloMode, "abs");
    });
}

TEST_F(HistoryOfResults, AModelThatHadANameOfItsOwnBeforeASaveKeepsIt) {
    With_A_Run([](Screen& home) {
        Do(home, [] {
            Model.ModelName = "first";
            Model.LinkMass(2) = 1;
        });
        Do(home, [] {
            Model.ModelName = "second";
            Model.LinkMass(2) = 2;
        });
        Do(home, [] { Model.LinkMass(2) = 3; });
        Model.ModelName = "saved";
        Model.FilePath = "/models/saved.vlk";
        Model_Kept();
        Steps().Undo();
        EXPECT_EQ(Model.ModelName, "saved") << "it had the name that was saved under another";
        EXPECT_EQ(Model.FilePath, "/models/saved.vlk");
        Steps().Undo();
        EXPECT_EQ(Model.ModelName, "first");
        EXPECT_EQ(Model.FilePath, "/models/saved.vlk");
    });
}

TEST_F(HistoryOfResults, AStepIsSavedWhereTheFileHasTheSameThoughItWasWrittenAgain) {
    With_A_Run([](Screen& home) {
        const auto mass = [&home](Single value) {
            Do(home, [value] {
                Model.LinkMass(2) = value;
                Model_Unsaved();
            });
        };
        const auto save = [] {
            Model_Saved();
            Model_Kept();
        };
        mass(1);
        save();
        mass(2);
        mass(1);
        save();
        Steps().Undo();
        EXPECT_FALSE(Model.SavedFlag);
        Steps().Undo();
        EXPECT_EQ(Model.LinkMass(2), 1);
        EXPECT_FALSE(Modified());
        EXPECT_TRUE(Model.SavedFlag);
    });
}

TEST_F(HistoryOfResults, OffTheInputScreenARunThatComesBackCounts) {
    With_A_Run([](Screen& home) {
        Run_Held_Back();
        Do(home, [] { Model.LinkMass(2) = 1; });
        Steps().Undo();
        EXPECT_TRUE(Model.RunStands);
        EXPECT_TRUE(Model.Calculated);
        Steps().Redo();
        Model.InputScreenOpen = true;
        Run_Held_Back();
        Do(home, [] { Model.LinkMass(2) = 2; });
        Do(home, [] { Model.LinkMass(2) = 3; });
        Steps().Undo();
        EXPECT_TRUE(Model.RunStands);
        EXPECT_FALSE(Model.Calculated) << "there it counts from the next action";
    });
}

TEST_F(HistoryOfResults, WhoeverShowsResultsCanSeeThatTheyAreThoseOfAnotherStep) {
    At_Home([](Screen& home) {
        Do(home, [] {
            Run_Dropped();
            Model.LinkMass(2) = 1;
        });
        Do(home, [] { Model.LinkMass(2) = 2; });
        const int turns = Results_Turns();
        Steps().Undo();
        EXPECT_FALSE(Model.RunStands);
        EXPECT_NE(Results_Turns(), turns);
    });
}

TEST_F(HistoryOfResults, AfterAnUndoStepGoesOnFromWhatTheScreenShows) {
    At_Home([&](Screen& home) {
        On_Input(home, [](Screen& input) {
            for (int i = 0; i < 7; ++i) Press(input, "cmd_Step");
            Enter(input, "txt_Linkout", 1, "1.25");
            Undo(input);
            const int shown = input.Get<ScrollBar>("hsc_step").Value();
            EXPECT_LT(shown, 4) << "it begins at the beginning";
            Press(input, "cmd_Step");
            EXPECT_EQ(input.Get<ScrollBar>("hsc_step").Value(), shown + 1);
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryOfResults, SettingsThatTheFileHasComeBackWithTheStep) {
    With_A_Run([](Screen& home) {
        const auto set = [&](int by) {
            Do(home, [by] {
                Model.LinkMass(2) = by;
                Model.PrintStep = 10 + by;
                Model.LineAngle = 20 + by;
                Model.FigureTitle = "Figure " + std::to_string(by);
            });
        };
        set(1);
        set(2);
        Steps().Undo();
        EXPECT_EQ(Model.PrintStep, 11);
        EXPECT_EQ(Model.LineAngle, 21);
        EXPECT_EQ(Model.FigureTitle, "Figure 1");
        Steps().Redo();
        EXPECT_EQ(Model.PrintStep, 12);
        EXPECT_EQ(Model.LineAngle, 22);
        EXPECT_EQ(Model.FigureTitle, "Figure 2");
    });
}

TEST_F(HistoryOfResults, StepsOfAnEarlierModelKeepItsFileWhenALaterOneIsSaved) {
    With_A_Run([](Screen& home) {
        Model.FilePath = "/models/first.vlk";
        Steps().Begin();
        Do(home, [] { Model.LinkMass(2) = 1; });
        Do(home, [] {
            Model.LinkMass(2) = 2;
            Model_Came_Unsaved();
        });
        Model.FilePath = "/models/second.vlk";
        Model_Kept();
        Steps().Undo();
        EXPECT_EQ(Model.LinkMass(2), 1);
        EXPECT_EQ(Model.FilePath, "/models/first.vlk");
    });
}

TEST_F(HistoryOfResults, BeingTakenToAnotherStepIsNobodysDeed) {
    With_A_Run([](Screen& home) {
        Do(home, [] { Model.LinkMass(2) = 1; });
        Do(home, [] { Model.LinkMass(2) = 2; });
        static int changes = 0;
        Steps().Listen([](Turn turn) { changes += turn == Turn::kChanged; });
        Steps().Serve(home, [&home] {
            Do(home, [] { Model.LinkMass(3) = 7; });
            Deed::By_Itself();
        });
        changes = 0;
        Steps().Undo();
        EXPECT_EQ(changes, 1) << "the undoing alone";
        EXPECT_EQ(Steps().Steps(), 1U);
        EXPECT_EQ(Model.LinkMass(2), 1);
        EXPECT_NE(Model.LinkMass(3), 7) << "what a screen does as it shows the step does not stay";
        EXPECT_TRUE(Steps().Can_Redo());
    });
}

}  // namespace verlink::test
