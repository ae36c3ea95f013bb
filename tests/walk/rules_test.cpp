// Each rule notices what it is there for, and nothing where nothing is.
#include <chrono>
#include <cmath>
#include <filesystem>
#include <thread>

#include "core/linkage_model.h"
#include "core/results.h"
#include "platform/graph.h"
#include "platform/overlaid_picture.h"
#include "platform/process.h"
#include "screens/frm_explore.h"
#include "screens/frm_studies.h"
#include "shell/copy.h"
#include "shell/run_log.h"
#include "tests/walk/walk_fixture.h"

namespace verlink::walk {
namespace {

using namespace platform;

const std::vector<Action> kCalculated = {Press("frm_HomeScreen", "cmd_Input"), Press("frm_Inputnew", "cmd_Calc")};
const Action kStay = Go("frm_Inputnew", "txt_Figure");

std::vector<Action> Then(std::vector<Action> before, const std::vector<Action>& more) {
    before.insert(before.end(), more.begin(), more.end());
    return before;
}

const std::vector<Action> kAtHome =
    Then(kCalculated, {Pulse("frm_Inputnew", "Timer1"), Press("frm_Inputnew", "cmd_Cancel")});
const std::vector<Action> kSolved =
    Then(kAtHome, {Press("frm_HomeScreen", "cmd_Dynamics"), Press("frm_MassProp", "cmd_Solve")});
const std::vector<Action> kBalanced =
    Then(kAtHome, {Press("frm_HomeScreen", "cmd_Balance"), Press("frm_Balance", "cmd_Calc")});
const std::vector<Action> kTransformed =
    Then(kAtHome, {Pick("frm_HomeScreen", "mnu_CalcFFT"), Item("frm_FFT", "cmb_Var1", kNoIndex, 6)});

/// The rule that is broken; empty when none is.
std::string Broken_Rule(const std::vector<Action>& before, const std::function<void(Screen&)>& plant,
                        const Action& after) {
    const Places places;
    Counts counts;
    Planting_User user(before, plant, after);
    Walker walker(user, places, counts);
    walker.Try_Files_Every(1);
    walker.Kill_Every(1);
    Walk_Once(walker, places);
    EXPECT_GE(walker.Done().size(), before.size()) << "the way to the screen is not possible";
    return walker.Outcome() ? walker.Outcome()->rule : "";
}

void Nothing(Screen&) {}

TEST(WalkRules, Nothing_is_found_where_nothing_is) {
    EXPECT_EQ(Broken_Rule(kCalculated, Nothing, kStay), "");
    EXPECT_EQ(Broken_Rule(kSolved, Nothing, Go("frm_MassProp", "cmd_Solve")), "");
    EXPECT_EQ(Broken_Rule(kBalanced, Nothing, Go("frm_Balance", "cmd_Calc")), "");
    EXPECT_EQ(Broken_Rule(kTransformed, Nothing, Go("frm_FFT", "cmd_Calc")), "");
}

TEST(WalkRules, A_run_that_is_not_of_the_model) {
    EXPECT_EQ(Broken_Rule(
                  kCalculated, [](Screen&) { Model.RunTable.PointXY(3, 0, 0) = 7; }, kStay),
              "Calculated");
}

TEST(WalkRules, A_derived_value_that_does_not_follow) {
    EXPECT_EQ(Broken_Rule(
                  kCalculated, [](Screen&) { Model.CircuitName = "Crossed"; }, kStay),
              "one story");
}

TEST(WalkRules, A_box_that_shows_another_number) {
    EXPECT_EQ(Broken_Rule(
                  kCalculated, [](Screen& top) { top.Text("txt_Linkout", 1).Text = "9"; }, kStay),
              "boxes");
}

TEST(WalkRules, An_option_that_shows_another_choice) {
    EXPECT_EQ(Broken_Rule(
                  kCalculated, [](Screen&) { Model.PolarCoords = true; }, kStay),
              "boxes");
}

TEST(WalkRules, A_box_that_is_read_back_as_another_number) {
    EXPECT_EQ(Broken_Rule(
                  kAtHome,
                  [](Screen&) {
                      Model.LinkMass(3) = 1234.5;
                      Model.DecMass = 1;
                  },
                  Press("frm_HomeScreen", "cmd_Dynamics")),
              "")
        << "a mark between thousands is none of the number";
    EXPECT_EQ(Broken_Rule(
                  kCalculated,
                  [](Screen& top) {
                      Run_Dropped();
                      Model.Link1X = 1234.5;
                      Model.LinkArray(5) = 1234.5;
                      top.Text("txt_Linkout", 15).Text = "1,234.500";
                  },
                  kStay),
              "read back")
        << "the other form of link 1 is another place";
}

TEST(WalkRules, A_field_that_is_not_saved_as_it_is) {
    EXPECT_EQ(Broken_Rule(
                  kAtHome, [](Screen&) { Model.FileVersion = "x"; }, Go("frm_HomeScreen", "cmd_Input")),
              "files");
}

TEST(WalkRules, Results_that_are_not_of_the_model) {
    EXPECT_EQ(Broken_Rule(
                  kSolved, [](Screen&) { Model.RunTable.PinForce(2, 1, 0) += 1; }, Go("frm_MassProp", "cmd_Solve")),
              "DynamicsDone");
    EXPECT_EQ(Broken_Rule(
                  kBalanced, [](Screen&) { Model.RunTable.BerkTorque(2, 1) += 1; }, Go("frm_Balance", "cmd_Calc")),
              "BalanceDone");
    EXPECT_EQ(Broken_Rule(
                  kTransformed, [](Screen&) { Model.FFTResult(1, 0) += 1; }, Go("frm_FFT", "cmd_Calc")),
              "FFTDone");
}

TEST(WalkRules, Arrows_that_are_not_of_the_model) {
    const std::vector<Action> chosen =
        Then(kCalculated, {Pulse("frm_Inputnew", "Timer1"), Press("frm_Inputnew", "cmd_Step"),
                           Pick("frm_Inputnew", "mnu_ViewVelocities").Looks()});
    EXPECT_EQ(Broken_Rule(chosen, Nothing, kStay), "");
    EXPECT_EQ(Broken_Rule(
                  chosen, [](Screen& top) { top.Get<Overlaid_Picture>("Picture1").Over = Overlay(); }, kStay),
              "over");
    const auto shift = [](Screen& top) {
        Overlay shifted = top.Get<Overlaid_Picture>("Picture1").Over;
        shifted.marks.at(0).to.x += 1;
        top.Get<Overlaid_Picture>("Picture1").Over = shifted;
    };
    EXPECT_EQ(Broken_Rule(chosen, shift, kStay), "over");
}

TEST(WalkRules, A_mark_that_is_nowhere) {
    const auto spoil = [](Screen& top) {
        Overlay spoilt;
        spoilt.marks.push_back({.to = {std::nan(""), 0}});
        top.Get<Overlaid_Picture>("Picture1").Over = spoilt;
    };
    EXPECT_EQ(Broken_Rule(kCalculated, spoil, kStay), "finite");
}

TEST(WalkRules, Live_plots_of_another_run) {
    const std::vector<Action> watching =
        Then(kCalculated, {Press("frm_Inputnew", "cmd_Done"), Pulse("frm_Animate", "Timer1"),
                           Pick("frm_Animate", "mnu_ViewLive"), Item("frm_Animate", "cmb_LivePreset", kNoIndex, 5)});
    const Action after = Seek("frm_Animate", "grf_Live", 1, 7);
    EXPECT_EQ(Broken_Rule(watching, Nothing, after), "");
    EXPECT_EQ(Broken_Rule(
                  watching,
                  [](Screen& top) {
                      auto& graph = top.Get<Graph>("grf_Live", 2);
                      graph.ThisSet = 1;
                      graph.ThisPoint = 4;
                      graph.SetGraphData(1e3);
                  },
                  after),
              "live plots");
}

TEST(WalkRules, Studies_that_are_not_of_the_model) {
    const std::vector<Action> studies = Then(kAtHome, {Pick("frm_HomeScreen", "mnu_Studies")});
    const Action stay = Go("frm_Studies", "txt_Count", 1);
    const auto solved = [](Screen& screen) -> frm_Studies& {
        auto& form = dynamic_cast<frm_Studies&>(screen);
        form.cmd_Start_Click();
        while (form.Timer1.Enabled) form.Timer1.Tick();
        return form;
    };
    EXPECT_EQ(Broken_Rule(
                  studies, [&](Screen& screen) { solved(screen); }, stay),
              "");
    EXPECT_EQ(Broken_Rule(
                  studies, [](Screen& screen) { screen.Text("txt_From", 1).Text = "5"; }, stay),
              "studies");
    EXPECT_EQ(Broken_Rule(
                  studies,
                  [&](Screen& screen) {
                      solved(screen);
                      Model.Link1X = 1.1 * Model.Link1X;
                  },
                  stay),
              "studies");
}

TEST(WalkRules, Something_that_a_kill_would_lose) {
    const std::vector<Action> modified =
        Then(kCalculated, {Type("frm_Inputnew", "txt_Linkout", 1, "1.4"), Press("frm_Inputnew", "cmd_Calc")});
    const auto remove = [](Screen&) {
        // Copies that are on their way come first.
        std::this_thread::sleep_for(std::chrono::milliseconds(700));
        std::filesystem::remove(Copy_File(State_Folder(), This_Process()));
    };
    EXPECT_EQ(Broken_Rule(modified, Nothing, Go("frm_Inputnew", "cmd_Done")), "");
    EXPECT_EQ(Broken_Rule(modified, remove, Go("frm_Inputnew", "cmd_Done")), "killed");
}

TEST(WalkRules, Something_that_looking_has_changed) {
    const std::vector<Action> looks = Then(kAtHome, {Pick("frm_HomeScreen", "mnu_About").Looks()});
    EXPECT_EQ(Broken_Rule(looks, Nothing, Click("frm_About").Looks()), "");
    EXPECT_EQ(Broken_Rule(
                  looks, [](Screen&) { Model.TimeEnd = 17; }, Click("frm_About").Looks()),
              "looking");
    EXPECT_EQ(Broken_Rule(
                  looks, [](Screen&) { Model.RunTable.Theta(1, 1) += 1; }, Click("frm_About").Looks()),
              "looking");
    EXPECT_EQ(Broken_Rule(
                  looks, [](Screen&) { Screens::Get("frm_HomeScreen").Get<Label>("lbl_Name").Caption = "?"; },
                  Click("frm_About").Looks()),
              "looking");
}

TEST(WalkRules, A_screen_that_cannot_be_left) {
    EXPECT_EQ(Broken_Rule(
                  kCalculated,
                  [](Screen& top) {
                      for (const char* way : {"cmd_Cancel", "cmd_Done"}) top.Get<CommandButton>(way).Enabled = false;
                  },
                  kStay),
              "ways home");
}

TEST(WalkRules, A_quiet_line_about_another_position) {
    EXPECT_EQ(
        Broken_Rule(
            kCalculated,
            [](Screen& top) { top.Get<Label>("lbl_Why").Caption = "Transmission angle 12.3 deg, under 40."; }, kStay),
        "quiet line");
}

const std::vector<Action> kExplored = {Pick("frm_HomeScreen", "mnu_Explore"), Type("frm_Explore", "txt_X", 2, "4.5"),
                                       Press("frm_Explore", "cmd_Search")};
const Action kStayThere = Go("frm_Explore", "cmd_Search");

TEST(WalkRules, Linkages_that_do_their_task_are_no_finding) {
    EXPECT_EQ(Broken_Rule(kExplored, Nothing, kStayThere), "");
}

TEST(WalkRules, A_task_on_the_screen_that_is_not_the_models) {
    EXPECT_EQ(Broken_Rule(
                  kExplored,
                  [](Screen&) {
                      design::Task other;
                      other.positions = {{{0, 0}, 0}, {{5, 1}, 20}};
                      Model.DesignTask = design::Task_Text(other);
                  },
                  kStayThere),
              "explore");
}

TEST(WalkRules, A_linkage_that_misses_a_position_it_is_shown_for) {
    EXPECT_EQ(Broken_Rule(
                  kExplored,
                  [](Screen& top) {
                      const auto& shown = dynamic_cast<frm_Explore&>(top).Shown();
                      const_cast<design::Solution&>(shown.back()).linkage.other.fixed += 0.01;
                  },
                  kStayThere),
              "explore");
}

TEST(WalkRules, A_look_at_what_was_found_that_changes_the_model) {
    EXPECT_EQ(Broken_Rule(
                  kExplored, [](Screen& top) { top.Get<ComboBox>("cmb_Sort").OnClick = [] { Model.Rpa = 9; }; },
                  Item("frm_Explore", "cmb_Sort", kNoIndex, 2)),
              "exploring");
}

TEST(WalkRules, A_number_that_is_none_in_what_is_told_or_drawn) {
    EXPECT_EQ(Broken_Rule(
                  kAtHome, [](Screen& top) { top.Get<Label>("lbl_Status", 10).Caption = "it is nan"; },
                  Go("frm_HomeScreen", "cmd_Input")),
              "finite");
    EXPECT_NE(Broken_Rule(
                  kAtHome, [](Screen& top) { top.Get<Label>("lbl_Status", 10).Caption = "no field \"nan\""; },
                  Go("frm_HomeScreen", "cmd_Input")),
              "finite");
}

std::vector<Told> Said(const std::vector<std::string>& texts, Answer answer = Answer::kOk) {
    std::vector<Told> told;
    for (const std::string& text : texts) told.push_back({{.text = text}, answer});
    return told;
}

TEST(WalkRules, A_message_that_comes_again_and_again) {
    EXPECT_FALSE(Messages_Are_Few(Said({"a", "a", "a"})));
    EXPECT_FALSE(Messages_Are_Few(Said({"a", "a", "b", "a", "a"})));
    EXPECT_TRUE(Messages_Are_Few(Said({"b", "a", "a", "a", "a"})));
    EXPECT_TRUE(Messages_Are_Few(Said({"at 1", "at 2", "at 3", "at 4"}))) << "another number is no other message";
    EXPECT_FALSE(Messages_Are_Few(Said({"at 1", "at 2", "at 3", "at 4"}, Answer::kRetry))) << "asked for";
}

TEST(WalkRules, A_failure_that_nobody_knows) {
    EXPECT_FALSE(Failures_Are_Known(Said({"Error 53   (File not found)  has occurred in Anything\r\n\r\nhelp"})));
    EXPECT_FALSE(Failures_Are_Known(Said({"Error in Computing Simultaneous Equations at step    1"})));
    EXPECT_TRUE(Failures_Are_Known(Said({"Error 5   (Invalid procedure call)  has occurred in Drawone\r\n\r\n"})));
    EXPECT_TRUE(Failures_Are_Known(Said({"Error 62   (Input past end of file)  has occurred in Drawone\r\n"})));
}

}  // namespace
}  // namespace verlink::walk
