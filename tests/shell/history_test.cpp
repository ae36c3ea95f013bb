// Steps of the model: how they are found, undone and done again, and what counts as modified.
#include <unistd.h>

#include "core/results.h"
#include "core/text.h"
#include "files/model_file.h"
#include "platform/deed.h"
#include "platform/file_system.h"
#include "screens/frm_animate.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_inputnew.h"
#include "screens/frm_massprop.h"
#include "tests/shell/history_fixture.h"
#include "tests/walk/record.h"

namespace verlink::test {

namespace {

TEST_F(HistoryTest, A_follower_that_fails_at_the_end_of_a_deed_is_reported_and_the_next_one_is_told) {
    static bool fails = false;
    static int told = 0;
    Steps().Follow([](bool) {
        if (std::exchange(fails, false)) platform::Raise(platform::kOverflow);
    });
    Steps().Follow([](bool) { ++told; });
    At_Home([&](Screen& home) {
        On_Input(home, [&](Screen& input) {
            desktop.Expect_Message_With("Error 6   (Overflow)  has occurred in History");
            fails = true;
            told = 0;
            Type(input, "txt_Linkout", 1, "1.25");
            EXPECT_GT(told, 0);
            EXPECT_EQ(input.Get<TextBox>("txt_Linkout", 1).Text, "1.25");
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryTest, Nothing_is_modified_by_the_start_nor_by_looking) {
    At_Home([&](Screen& home) {
        EXPECT_FALSE(Modified());
        EXPECT_EQ(Steps().Steps(), 0u);
        EXPECT_EQ(Told(home), "Model_1   -   Save asks where to   -   not modified");
        On_Input(home, [](Screen& input) {
            EXPECT_FALSE(Modified());
            Press(input, "cmd_Cancel");
        });
        EXPECT_TRUE(Model.Calculated);
        EXPECT_FALSE(Modified());
        EXPECT_EQ(Steps().Steps(), 0u);
        // Nothing asks to save.
        desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
        Press(home, "cmd_Quit");
    });
}

TEST_F(HistoryTest, A_box_left_is_a_step_and_comes_back_with_its_run) {
    At_Home([&](Screen& home) {
        On_Input(home, [&](Screen& input) {
            const walk::Words before = walk::Record_Words();
            const Single angle = Model.RunTable.Theta(3, 1);
            const std::string length = input.Text("txt_Linkout", 1).Text;
            Type(input, "txt_Linkout", 1, "1.25");
            EXPECT_EQ(Steps().Steps(), 0u);
            Press(input, "cmd_Calc");
            ASSERT_EQ(Steps().Steps(), 1u);
            EXPECT_EQ(Caption_Of(input, "mnu_Undo"), "Undo length of link 2");
            EXPECT_FALSE(input.Get<MenuEntry>("mnu_Redo").Enabled);
            EXPECT_TRUE(Modified());
            EXPECT_EQ(Told(input), "Model_1   -   Save asks where to   -   modified");
            const walk::Words after = walk::Record_Words();
            const Single moved = Model.RunTable.Theta(3, 1);
            EXPECT_NE(moved, angle);

            Undo(input);
            EXPECT_EQ(walk::Compare(before, walk::Record_Words()).values, "");
            EXPECT_EQ(Model.RunTable.Theta(3, 1), angle);
            EXPECT_TRUE(Model.RunStands);
            EXPECT_EQ(input.Text("txt_Linkout", 1).Text.Get(), length);
            EXPECT_FALSE(Modified());
            EXPECT_EQ(Caption_Of(input, "mnu_Undo"), "Undo");
            EXPECT_EQ(Caption_Of(input, "mnu_Redo"), "Redo length of link 2");

            Redo(input);
            EXPECT_EQ(walk::Compare(after, walk::Record_Words()).values, "");
            EXPECT_EQ(Model.RunTable.Theta(3, 1), moved);
            EXPECT_EQ(input.Text("txt_Linkout", 1).Text.Get(), "1.25");
            EXPECT_TRUE(Modified());
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryTest, What_is_being_typed_is_undone_before_the_model) {
    At_Home([&](Screen& home) {
        On_Input(home, [&](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.25");
            ASSERT_EQ(Steps().Steps(), 1u);
            const std::string shown = input.Text("txt_Linkout", 2).Text;
            Type(input, "txt_Linkout", 2, "9");
            Type(input, "txt_Linkout", 2, "9.5");
            EXPECT_EQ(Caption_Of(input, "mnu_Undo"), "Undo length of link 3");
            Undo(input);
            EXPECT_EQ(input.Text("txt_Linkout", 2).Text.Get(), shown);
            EXPECT_FALSE(input.Text("txt_Linkout", 2).Touched());
            EXPECT_EQ(Steps().Steps(), 1u);
            EXPECT_EQ(Model.L2, Single(1.25));
            EXPECT_EQ(Caption_Of(input, "mnu_Redo"), "Redo length of link 3");
            Redo(input);
            EXPECT_EQ(input.Text("txt_Linkout", 2).Text.Get(), "9.5");
            Undo(input);
            Undo(input);
            EXPECT_EQ(Steps().Steps(), 0u);
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryTest, A_new_linkage_an_example_and_an_opened_file_can_be_undone) {
    At_Home([&](Screen& home) {
        const walk::Words first = walk::Record_Words();
        desktop.Expect_Screen("frm_Inputnew", [](Screen& input) { Press(input, "cmd_Cancel"); });
        Pick_Menu(home, "mnu_Hoekens");
        EXPECT_EQ(Caption_Of(home, "mnu_Undo"), "Undo Hoekens Straight Line Linkage");
        EXPECT_TRUE(Modified());
        const walk::Words example = walk::Record_Words();

        desktop.Expect_Message_With("The current data has not been saved", Answer::kNo);
        desktop.Expect_Message_With("Please confirm", Answer::kOk);
        Pick_Menu(home, "mnu_New");
        EXPECT_FALSE(Modified());
        EXPECT_EQ(Caption_Of(home, "mnu_Undo"), "Undo New");

        desktop.Expect_Open(std::string(VERLINK_TESTS) + "/../samples/crank_rocker.vlk");
        desktop.Expect_Message_With("successfully read");
        desktop.Expect_Screen("frm_Inputnew", [](Screen& input) { Press(input, "cmd_Cancel"); });
        Pick_Menu(home, "mnu_Open");
        EXPECT_FALSE(Modified());
        EXPECT_EQ(Caption_Of(home, "mnu_Undo"), "Undo Open");

        Undo(home);
        EXPECT_EQ(Model.ModelName, "Model_1");
        EXPECT_FALSE(Modified());
        Undo(home);
        EXPECT_EQ(walk::Compare(example, walk::Record_Words()).values, "");
        EXPECT_TRUE(Modified());
        Undo(home);
        EXPECT_EQ(walk::Compare(first, walk::Record_Words()).values, "");
        EXPECT_FALSE(Modified());
        EXPECT_EQ(Steps().Steps(), 0u);
        Redo(home);
        Redo(home);
        Redo(home);
        EXPECT_EQ(Model.ModelName, "crank_rocker");
        EXPECT_FALSE(Steps().Can_Redo());
    });
}

TEST_F(HistoryTest, Units_and_circuit_are_steps_of_their_own) {
    At_Home([&](Screen& home) {
        desktop.Expect_Screen("frm_Inputnew", [&](Screen& input) {
            EXPECT_EQ(Caption_Of(input, "mnu_Undo"), "Undo m-kg-s (SI)");
            Choose_Option(input, "opt_OpenCross", 1);
            EXPECT_EQ(Steps().Steps(), 2u);
            EXPECT_EQ(Model.CircuitName, "Crossed");
            Undo(input);
            EXPECT_EQ(Model.CircuitName, "Open");
            EXPECT_TRUE(input.Get<OptionButton>("opt_OpenCross", 0).Value);
            Undo(input);
            EXPECT_EQ(Model.Units, 1);
            EXPECT_EQ(input.Get<Label>("lbl_Units", 1).Caption.Get(), "in");
            Press(input, "cmd_Cancel");
        });
        Pick_Menu(home, "mnu_pick", 3);
        EXPECT_TRUE(home.Get<MenuEntry>("mnu_pick", 1).Checked);
    });
}

TEST_F(HistoryTest, Masses_are_typed_and_solved_and_undone_with_their_forces) {
    At_Home([&](Screen& home) {
        On_Input(home, [](Screen& input) { Press(input, "cmd_Cancel"); });
        desktop.Expect_Screen("frm_MassProp", [&](Screen& masses) {
            const Single mass = Model.LinkMass(2);
            Type(masses, "txt_Mass", 2, "0.5");
            Type(masses, "txt_Mass", 3, "0.25");
            EXPECT_EQ(Steps().Undo_What(), "mass of link 3");
            Steps().Undo();
            EXPECT_NE(masses.Text("txt_Mass", 3).Text.Get(), "0.25");
            EXPECT_EQ(masses.Text("txt_Mass", 2).Text.Get(), "0.5");
            Press(masses, "cmd_Solve");
            EXPECT_EQ(Steps().Undo_What(), "Solve");
            EXPECT_TRUE(Model.DynamicsDone);
            const Single torque = Model.RunTable.LinkTorque(3, 0);
            Steps().Undo();
            EXPECT_FALSE(Model.DynamicsDone);
            EXPECT_EQ(Model.LinkMass(2), mass);
            EXPECT_EQ(Single(Val(masses.Text("txt_Mass", 2).Text.Get())), mass);
            Model.RunTable.LinkTorque(3, 0) = 0;
            Steps().Redo();
            EXPECT_TRUE(Model.DynamicsDone);
            EXPECT_EQ(Model.LinkMass(2), Single(0.5));
            EXPECT_EQ(Model.RunTable.LinkTorque(3, 0), torque);
            Press(masses, "cmd_Cancel");
        });
        Press(home, "cmd_Dynamics");
    });
}

TEST_F(HistoryTest, What_was_undone_is_gone_once_something_else_is_done) {
    At_Home([&](Screen& home) {
        On_Input(home, [&](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.25");
            Undo(input);
            EXPECT_TRUE(Steps().Can_Redo());
            Enter(input, "txt_Linkout", 1, "1.5");
            EXPECT_FALSE(Steps().Can_Redo());
            EXPECT_EQ(Caption_Of(input, "mnu_Redo"), "Redo");
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryTest, What_a_screen_does_as_it_shows_an_undone_step_is_none_of_its_own) {
    At_Home([&](Screen& home) {
        On_Input(home, [&](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.25");
            Steps().Serve(input, [] {
                Deed::So_Far();
                Deed::By_Itself();
            });
            Undo(input);
            EXPECT_EQ(Steps().Steps(), 0u);
            EXPECT_EQ(Steps().Redo_What(), "length of link 2");
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryTest, Flags_of_the_screens_are_not_undone) {
    At_Home([&](Screen& home) {
        On_Input(home, [&](Screen& input) {
            for (const bool flag : {true, false}) {
                Model.ScreenReturn = Model.JustStarted = Model.InputScreenOpen = !flag;
                Enter(input, "txt_Linkout", 1, flag ? "1.25" : "1.5");
                Model.ScreenReturn = Model.JustStarted = Model.InputScreenOpen = flag;
                Steps().Undo();
                EXPECT_EQ(Model.ScreenReturn, flag);
                EXPECT_EQ(Model.JustStarted, flag);
                EXPECT_EQ(Model.InputScreenOpen, flag);
            }
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryTest, An_imported_table_comes_back_with_its_step) {
    At_Home([&](Screen& home) {
        On_Input(home, [](Screen& input) { Press(input, "cmd_Cancel"); });
        const auto bring = [&home](double first) {
            const Deed import(home.Get<platform::CommandButton>("cmd_Input"));
            Model.TorqueImported = true;
            Model.LinkMass(2) = first;
            Model.RunTable.ImportedTorque(7) = first;
        };
        bring(1.5);
        bring(2.5);
        Steps().Undo();
        EXPECT_EQ(Model.RunTable.ImportedTorque(7), 1.5);
        Steps().Redo();
        EXPECT_EQ(Model.RunTable.ImportedTorque(7), 2.5);
        Steps().Undo();
        Steps().Undo();
        EXPECT_FALSE(Model.TorqueImported);
    });
}

TEST_F(HistoryTest, Angles_speeds_and_accelerations_of_an_imported_drive_come_back_with_their_step) {
    At_Home([&](Screen& home) {
        On_Input(home, [](Screen& input) { Press(input, "cmd_Cancel"); });
        const auto bring = [&home](int type, double first) {
            const Deed import(home.Get<platform::CommandButton>("cmd_Input"));
            Run_Dropped();
            Model.Calctype = type;
            Model.LinkMass(2) = first;
            Model.RunTable.DriveTheta(7) = first;
            Model.RunTable.Omega(7, 0) = first + 1;
            Model.RunTable.Alpha(7, 0) = first + 2;
        };
        for (const int type : {4, 5}) {
            bring(type, 1.5);
            bring(type, 2.5);
            Steps().Undo();
            EXPECT_EQ(Model.RunTable.DriveTheta(7), 1.5) << type;
            EXPECT_EQ(Model.RunTable.Omega(7, 0), 2.5) << type;
            EXPECT_EQ(Model.RunTable.Alpha(7, 0), 3.5) << type;
        }
    });
}

TEST_F(HistoryTest, Whoever_follows_is_told_of_a_new_beginning_and_that_nothing_is_typed) {
    static std::vector<bool> told;
    Steps().Follow([](bool typed) { told.push_back(typed); });
    told.clear();
    Steps().Begin();
    EXPECT_EQ(told, std::vector<bool>{false});
}

TEST_F(HistoryTest, A_drag_is_one_step_from_press_to_release) {
    At_Home([&](Screen& home) {
        On_Input(home, [](Screen& input) { Press(input, "cmd_Cancel"); });
        desktop.Expect_Screen("frm_Animate", [&](Screen& animate) {
            auto& picture = animate.Get<PictureBox>("Picture1");
            const Single Rpa = Model.Rpa;
            const auto drag = [&](double x) {
                const Deed at_work(picture, Deed::Kind::kDrag);
                picture.OnMouseMove(1, 1, x, 1);
            };
            for (const double x : {1.5, 1.6, 1.7, 1.8}) drag(x);
            EXPECT_EQ(Steps().Steps(), 1u);
            EXPECT_EQ(Caption_Of(animate, "mnu_Undo"), "Undo drag");
            Deed::Drag_Ended();
            drag(2);
            EXPECT_EQ(Steps().Steps(), 2u);
            Undo(animate);
            Undo(animate);
            EXPECT_EQ(Model.Rpa, Rpa);
            Press(animate, "cmd_Done");
        });
        Press(home, "cmd_Animate");
    });
}

TEST_F(HistoryTest, Two_hundred_steps_are_kept_and_the_oldest_go_first) {
    At_Home([&](Screen& home) {
        On_Input(home, [&](Screen& input) {
            for (int i = 0; i < 300; ++i) Enter(input, "txt_Linkout", 4, std::to_string(1 + i * 0.01));
            EXPECT_EQ(Steps().Steps(), History::kSteps);
            EXPECT_GE(History::kSteps, 200u);
            while (Steps().Can_Undo()) Undo(input);
            EXPECT_NEAR(Model.Rpa, 1 + 0.01 * (299 - int{History::kSteps}), 1e-5);
            Press(input, "cmd_Cancel");
        });
    });
}

TEST_F(HistoryTest, Saving_is_no_step_and_says_where_the_model_stands) {
    At_Home([&](Screen& home) {
        On_Input(home, [](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.25");
            Press(input, "cmd_Cancel");
        });
        EXPECT_TRUE(Modified());
        desktop.Expect_Save(Path("mine.vlk"));
        desktop.Expect_Message_With("successfully written");
        Pick_Menu(home, "mnu_Save");
        EXPECT_FALSE(Modified());
        EXPECT_EQ(Steps().Steps(), 1u);
        EXPECT_EQ(Told(home), "mine   -   mine.vlk   -   not modified");

        // What is undone behind a save is modified, lies in no file, and has the name all the same.
        Undo(home);
        EXPECT_TRUE(Modified());
        EXPECT_FALSE(Model.SavedFlag);
        EXPECT_EQ(Model.ModelName, "mine");
        EXPECT_EQ(Model.FilePath, Path("mine.vlk"));
        Redo(home);
        EXPECT_FALSE(Modified());
        EXPECT_TRUE(Model.SavedFlag);

        // Nor does it lie in the file any more when that has a later model.
        On_Input(home, [](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.5");
            Press(input, "cmd_Cancel");
        });
        desktop.Expect_Save(Path("mine.vlk"));
        desktop.Expect_Message_With("successfully written");
        Pick_Menu(home, "mnu_Save");
        EXPECT_TRUE(Model.SavedFlag);
        Undo(home);
        EXPECT_EQ(Model.L2, 1.25);
        EXPECT_TRUE(Modified());
        EXPECT_FALSE(Model.SavedFlag);
    });
}

TEST_F(HistoryTest, A_history_begins_with_the_model_as_it_stands) {
    // In a process of its own, since a second history would take the hand from the first.
    EXPECT_EXIT(
        {
            History history(Model);
            const double before = Model.L2;
            {
                const Deed deed("Typed");
                Model.L2 = before + 1;
            }
            const bool kept = history.Undo_What() == "Typed";
            history.Undo();
            ::_exit(kept && Model.L2 == before ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(HistoryTest, Whoever_listens_hears_of_changes_saves_and_other_models) {
    At_Home([&](Screen& home) {
        static std::string heard;
        heard.clear();
        Steps().Listen([](Turn turn) {
            heard += turn == Turn::kChanged ? "changed " : turn == Turn::kKept ? "kept " : "came ";
        });
        On_Input(home, [](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.25");
            Press(input, "cmd_Cancel");
        });
        EXPECT_EQ(heard, "changed ");
        Undo(home);
        EXPECT_EQ(heard, "changed changed ");
        desktop.Expect_Message_With("Please confirm", Answer::kOk);
        Pick_Menu(home, "mnu_New");
        EXPECT_EQ(heard.substr(16, 5), "came ");
    });
}

TEST_F(HistoryTest, The_end_of_the_session_asks_about_a_modified_model_alone) {
    At_Home([&](Screen& home) {
        EXPECT_TRUE(May_End_Session(home));
        On_Input(home, [](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.25");
            Press(input, "cmd_Cancel");
        });
        const char question[] = "The current data has not been saved.  Do you want to save it before resetting?";
        desktop.Expect_Message(question, Answer::kCancel, Icon::kQuestion, Buttons::kYesNo);
        EXPECT_FALSE(May_End_Session(home));
        desktop.Expect_Message(question, Answer::kYes);
        desktop.Expect_Save({});
        EXPECT_FALSE(May_End_Session(home));
        desktop.Expect_Message(question, Answer::kNo);
        EXPECT_TRUE(May_End_Session(home));
        desktop.Expect_Message(question, Answer::kYes);
        desktop.Expect_Save(Path("mine.vlk"));
        desktop.Expect_Message_With("successfully written");
        EXPECT_TRUE(May_End_Session(home));
        EXPECT_TRUE(May_End_Session(home));
    });
}

TEST_F(HistoryTest, Quitting_and_closing_ask_to_save_what_was_modified) {
    At_Home([&](Screen& home) {
        On_Input(home, [](Screen& input) {
            Enter(input, "txt_Linkout", 1, "1.25");
            Press(input, "cmd_Cancel");
        });
        // Whether it was calculated says nothing.
        Run_Dropped();
        desktop.Expect_Save({});
        desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
        home.Close();
        Undo(home);
        desktop.Expect_Screen("frm_Quit", [](Screen& quit) { Press(quit, "cmd_NoQuit"); });
        home.Close();
    });
}

TEST_F(HistoryTest, A_model_that_lies_in_no_file_is_modified_from_the_beginning) {
    At_Home([&](Screen&) {
        Model_Came_Unsaved();
        EXPECT_TRUE(Modified());
    });
}

}  // namespace

}  // namespace verlink::test
