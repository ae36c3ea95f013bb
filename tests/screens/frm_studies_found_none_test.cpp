// Studies of one linkage, of none that counts, of none so far: what is said of them, and that nothing older is shown.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "study/pace.h"
#include "tests/screens/frm_studies_found_fixture.h"

namespace verlink::test {
namespace {

constexpr char kNoTable[] = "There is no table to be saved. Start the study first.";

class StudiesOfNone : public StudiesFound {
   protected:
    void Expect_No_Table() {
        desktop.Expect_Message(kNoTable, platform::Answer::kOk, platform::Icon::kInformation);
        Pick_Menu(form, "mnu_CopyTable");
    }
    std::string Progress() { return form.lbl_Progress.Caption; }
    std::string Step() { return form.lbl_Step.Caption; }
    double Counted() {
        const auto& counts = form.his_Spread.Shown.Get().counts;
        return std::accumulate(counts.begin(), counts.end(), 0.0);
    }
};

TEST_F(StudiesOfNone, PaceIsWhatWasSolvedOverTheTimeThatItTook) {
    Inside([&] {
        Sweep_Cranks();
        Solve();
        EXPECT_EQ(Progress(), "21 linkages, " + study::Short_Number(21 / form.Found().seconds) + " a second.");
        Tolerate_Crank("0.03", "normal", "1000000000000");
        Press(form, "cmd_Start");
        const auto told = [&] {
            const study::Findings& found = form.Found();
            const double done = static_cast<double>(found.done), pace = done / found.seconds;
            const std::string of = std::to_string(found.done) + " of 1000000000000 linkages";
            if (found.ended) return "Stopped after " + of + ".";
            if (found.done == 0) return of + ".";
            return of + ", " + study::Short_Number(pace) + " a second, " + study::Time_Words((1e12 - done) / pace) +
                   " left.";
        };
        const auto expect_told = [&] {
            EXPECT_EQ(Progress(), told());
            EXPECT_EQ(form.cmd_Before.Enabled.Get(), form.Found().done > 0) << "so far there is none to pick";
            EXPECT_EQ(form.cmd_After.Enabled.Get(), form.Found().done > 0);
        };
        expect_told();
        while (form.Found().done == 0) {
            form.Timer1.Tick();
            expect_told();
        }
        EXPECT_TRUE(form.cmd_Stop.Enabled);
        Press(form, "cmd_Stop");
        To_The_End();
        EXPECT_EQ(Progress(), told());
    });
}

TEST_F(StudiesOfNone, WhatIsLeftIsLessThanTheWholeWouldTake) {
    Inside([&] {
        Tolerate_Crank("0.03", "normal", "10000000");
        Press(form, "cmd_Start");
        const auto time_of = [&](double linkages) {
            return study::Time_Words(linkages * form.Found().seconds / static_cast<double>(form.Found().done));
        };
        const auto left = [&] { return time_of(1e7 - static_cast<double>(form.Found().done)); };
        while (!form.Found().ended && (form.Found().done == 0 || left() == time_of(1e7))) form.Timer1.Tick();
        EXPECT_TRUE(Progress().ends_with(" a second, " + left() + " left.")) << Progress();
        Press(form, "cmd_Stop");
    });
}

TEST_F(StudiesOfNone, AChangeOnTheWayEndsIt) {
    Inside([&] {
        Tolerate_Crank("0.03", "normal", "1000000000000");
        Press(form, "cmd_Start");
        EXPECT_TRUE(form.Timer1.Enabled);
        EXPECT_TRUE(form.cmd_Stop.Enabled);
        Put_Box("txt_Seed", platform::kNoIndex, "3");
        EXPECT_FALSE(form.Timer1.Enabled);
        EXPECT_FALSE(form.cmd_Stop.Enabled);
        form.Timer1.OnTimer();
        EXPECT_EQ(Progress(), "") << "what it still did is not looked at";
        EXPECT_EQ(Step(), "Theta2 0 deg");
        EXPECT_FALSE(form.his_Spread.Visible);
    });
}

TEST_F(StudiesOfNone, ASweepOfOneLinkageHasItsRangeItsTableAndItsPick) {
    Inside([&] {
        Sweep_Cranks("1", "1", "1");
        Solve();
        EXPECT_EQ(Told(), "Of the model 7; in the sweep from 7 to 7.");
        EXPECT_EQ(Copied_Rows().size(), 2U);
        EXPECT_TRUE(form.cmd_Before.Enabled);
        EXPECT_TRUE(form.cmd_After.Enabled);
        Press(form, "cmd_Before");
        EXPECT_EQ(Picked(), "Linkage 1: L2 1 in;  max Veloc I 2,3:Mag 7 in/sec");
        EXPECT_FALSE(form.cmd_Before.Enabled);
        EXPECT_FALSE(form.cmd_After.Enabled);
        for (const auto& step : {form.cmd_Before.OnClick, form.cmd_After.OnClick}) {
            step();
            EXPECT_EQ(form.grf_Sweep.Cursor, 1) << "there is none before it and none behind";
        }
        EXPECT_FALSE(form.Picture1.OnSeize({0, 0, 0, 0.01})) << "a sweep has no cloud";
        EXPECT_EQ(Step(), "Theta2 0 deg");
    });
}

TEST_F(StudiesOfNone, AMapOfOneRowIsCountedAlongIt) {
    Inside([&] {
        EXPECT_EQ(form.map_Sweep.Shown().across.count, platform::Color_Map::Axis().count) << "nothing was solved yet";
        Sweep_Cranks("0.5", "1.5", "3");
        Choose(form.cmb_Sweep[2], "L4");
        Put_Box("txt_From", 2, "3");
        Put_Box("txt_To", 2, "3");
        Put_Box("txt_Count", 2, "1");
        EXPECT_EQ(form.map_Sweep.Shown().across.title, "");
        Solve();
        EXPECT_EQ(Told(), "Of the model 7; on the map from 3.5 to 10.5.");
        form.map_Sweep.OnPick({2, 0});
        EXPECT_EQ(Picked(), "Linkage 3: L2 1.5 in, L4 3 in;  max Veloc I 2,3:Mag 10.5 in/sec");
        EXPECT_EQ(form.map_Sweep.Picked.Get(), (platform::Color_Map::Cell{2, 0}));
        Press(form, "cmd_Before");
        EXPECT_EQ(form.map_Sweep.Picked.Get(), (platform::Color_Map::Cell{1, 0}));
        Put_Box("txt_Count", 1, "1");
        EXPECT_EQ(form.map_Sweep.Shown().across.title, "") << "it has gone with what was found";
        EXPECT_EQ(form.map_Sweep.Picked.Get(), platform::Color_Map::Cell());
        Solve();
        EXPECT_EQ(Told(), "Of the model 7; on the map from 3.5 to 3.5.");
    });
}

TEST_F(StudiesOfNone, ASpreadOfOneLinkageIsCountedAndTold) {
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "1");
        Solve();
        EXPECT_EQ(Counted(), 1);
        const auto& spread = form.Found().summary.measures[0].Spread();
        EXPECT_EQ(spread.Count(), 1U);
        const std::string only = Four(spread.Least());
        EXPECT_EQ(Told(), "Of the model 7, mean " + only + ", standard deviation 0;  98 of 100 between " + only +
                              " and " + only + ".");
        form.his_Spread.OnPick(spread.Least());
        EXPECT_NE(Picked().find(": 1 linkages; below that 0 of 100."), std::string::npos) << Picked();
        EXPECT_EQ(Copied_Rows().size(), 41U) << "a line for each bin, and their heads";
        EXPECT_EQ(Copied_Rows()[5][0], "50");
    });
}

TEST_F(StudiesOfNone, OfWhichNoneIsKeptThereIsNoSpreadNoCloudAndNoTable) {
    Inside([&] {
        Expect_No_Table();
        form.his_Spread.OnPick(7);
        EXPECT_EQ(Picked(), "");
        Tolerate_Crank("0.03", "uniform", "100");
        Solve();
        EXPECT_EQ(Counted(), 100);
        EXPECT_NE(Step(), "Theta2 0 deg");
        Write(1, std::string(kPin) + " > 100");
        EXPECT_EQ(Counted(), 0) << "it has gone with what was found";
        Solve();
        EXPECT_TRUE(Progress().ends_with(", 0 kept.")) << Progress();
        EXPECT_EQ(Counted(), 0);
        EXPECT_EQ(Told(), "");
        EXPECT_EQ(Step(), "Theta2 0 deg");
        EXPECT_FALSE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
        form.his_Spread.OnPick(7);
        EXPECT_EQ(Picked(), "");
        Expect_No_Table();
        Choose_Option(form, "opt_Kind", 0);
        Solve();
        EXPECT_EQ(Told(), "");
        for (const double value : form.grf_Sweep.Sets()[0].values) EXPECT_TRUE(std::isnan(value));
    });
}

TEST_F(StudiesOfNone, WithoutARunThereIsNoPicture) {
    LogSurface log;
    form.Picture1.Redirect(&log);
    Inside([&] {
        EXPECT_EQ(Step(), "Theta2 0 deg");
        form.hsc_Step.SetValue(9);
    });
    Model.Calctype = 0;
    log.Calls.clear();
    Inside([&] {
        EXPECT_EQ(Step(), "");
        EXPECT_FALSE(Has_Crank_Of(log, 1));
        EXPECT_FALSE(form.hsc_Step.Enabled);
        EXPECT_EQ(form.hsc_Step.Max(), 0);
        EXPECT_FALSE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
    });
    form.Picture1.Redirect(nullptr);
}

TEST_F(StudiesOfNone, ARunOfTwoPositionsHasABarForThem) {
    Model.ThetaEnd = 10, Model.ThetaEndRad = 10 * kDegToRad;
    Inside([&] {
        EXPECT_EQ(form.hsc_Step.Max(), 1);
        EXPECT_TRUE(form.hsc_Step.Enabled);
        form.hsc_Step.SetValue(1);
        EXPECT_EQ(Step(), "Theta2 10 deg");
    });
}

TEST_F(StudiesOfNone, WhatWasPickedBeforeAChangeIsNotTaken) {
    Inside([&] {
        form.cmd_Take_Click();
        Sweep_Cranks();
        Solve();
        form.grf_Sweep.OnSeek(3);
        Put_Box("txt_Count", 1, "11");
        const std::size_t steps = The_History().Steps();
        form.cmd_Take_Click();
        EXPECT_EQ(double{Model.L2}, 1);
        EXPECT_EQ(The_History().Steps(), steps);
    });
}

TEST_F(StudiesOfNone, AMeasureThatIsZeroForAllStandsInTheMiddleOfANarrowScale) {
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "50");
        Write(0, "at 0 Theta2");
        Solve();
        const auto& shown = form.his_Spread.Shown.Get();
        EXPECT_NEAR(shown.from, -1e-6, 1e-12);
        EXPECT_NEAR(shown.to, 1e-6, 1e-12);
        EXPECT_EQ(shown.counts[19] + shown.counts[20], 50);
        const auto& bars = form.bar_Share.Shown.Get().bars;
        ASSERT_EQ(bars.size(), 1U);
        EXPECT_EQ(bars[0].words, "none   0 degrees/in") << "where nothing spreads, nothing has a share in it";
    });
}

TEST_F(StudiesOfNone, TheGreatestNumberOfAFieldHasItsDigits) {
    constexpr double kGreatest = std::numeric_limits<float>::max();
    Settings settings;
    settings.sweeps[0] = {"L2", kGreatest, kGreatest, 1};
    Model.StudySettings = study::Settings_Text(settings);
    Inside([&] {
        EXPECT_EQ(form.txt_From[1].Text.Get(), "3.402823E+38");
        Solve();
        form.grf_Sweep.OnSeek(1);
        EXPECT_EQ(Picked().substr(0, 32), "Linkage 1: L2 3.402823E+38 in;  ");
        EXPECT_EQ(Copied_Rows()[1][1], "3.4028235e+38");
    });
}

TEST_F(StudiesOfNone, CountsEndWhereAWholeNumberIsStillExactAndThePlotAndTheMapWhereTheySay) {
    constexpr char kTooMany[] =
        "The plot takes 5000 values of one field at most, the map 250000 of two; verlink-batch takes more.";
    Inside([&] {
        Put_Box("txt_Count", 1, "5000");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        Choose(form.cmb_Sweep[2], "L4");
        Put_Box("txt_Count", 2, "50");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        Put_Box("txt_Count", 2, "51");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), kTooMany);
        Press(form, "cmd_Start");
        EXPECT_FALSE(form.Timer1.Enabled);
        for (const char* beyond : {"9007199254740992", "9007199254740994", "1e20"}) {
            Put_Box("txt_Seed", platform::kNoIndex, beyond);
            EXPECT_EQ(form.The_Settings().seed, 9007199254740992U) << beyond;
        }
        Put_Box("txt_Seed", platform::kNoIndex, "9007199254740991");
        EXPECT_EQ(form.The_Settings().seed, 9007199254740991U);
        Choose_Option(form, "opt_Kind", 1);
        for (int row = 1; row <= 4; ++row) Choose(form.cmb_Tolerance[row], "(none)");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "Choose a field that has a tolerance.");
    });
}

TEST_F(StudiesOfNone, SettingsThatCannotBeReadAreNotReplacedByAHand) {
    const std::string newer = "{\"version\": 7}";
    Model.StudySettings = newer;
    Inside([&] {
        const std::size_t steps = The_History().Steps();
        form.measure.OnChoose("max Theta4");
        form.opt_Kind[1].OnClick();
        form.cmb_Frame.Text = "Local";
        form.cmb_Frame.OnLostFocus();
        EXPECT_EQ(Model.StudySettings, newer);
        EXPECT_EQ(The_History().Steps(), steps);
    });
}

}  // namespace
}  // namespace verlink::test
