// What a study has come to, number by number: of a measure that is 7 times the length of the crank.
#include <cmath>
#include <map>
#include <numeric>
#include <set>

#include "core/numeric.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "tests/screens/frm_studies_found_fixture.h"
#include "tests/support/files.h"
#include "tests/support/foreign.h"

namespace verlink::test {
namespace {

TEST_F(StudiesFound, WhatIsPickedInTheSweepIsToldWithItsNumberItsFieldAndItsMeasure) {
    Inside([&] {
        EXPECT_FALSE(form.cmd_Before.Enabled);
        EXPECT_FALSE(form.cmd_After.Enabled);
        EXPECT_FALSE(form.cmd_Take.Enabled);
        Sweep_Cranks();
        Solve();
        EXPECT_TRUE(form.cmd_Before.Enabled);
        EXPECT_TRUE(form.cmd_After.Enabled);
        EXPECT_FALSE(form.cmd_Take.Enabled);
        EXPECT_EQ(form.grf_Sweep.Cursor, 0);
        const int drawings = form.grf_Sweep.Drawings();
        form.grf_Sweep.OnSeek(3);
        EXPECT_GT(form.grf_Sweep.Drawings(), drawings) << "with its cursor";
        EXPECT_EQ(Picked(), "Linkage 3: L2 0.6 in;  max Veloc I 2,3:Mag 4.2 in/sec");
        EXPECT_EQ(form.grf_Sweep.Cursor, 3);
        EXPECT_TRUE(form.cmd_Take.Enabled);
        Press(form, "cmd_Before");
        EXPECT_EQ(Picked(), "Linkage 2: L2 0.55 in;  max Veloc I 2,3:Mag 3.85 in/sec");
        Press(form, "cmd_Before");
        EXPECT_EQ(Picked(), "Linkage 1: L2 0.5 in;  max Veloc I 2,3:Mag 3.5 in/sec");
        EXPECT_FALSE(form.cmd_Before.Enabled);
        EXPECT_TRUE(form.cmd_After.Enabled);
        form.grf_Sweep.OnSeek(20);
        EXPECT_TRUE(form.cmd_After.Enabled) << "the last one is left";
        form.grf_Sweep.OnSeek(21);
        EXPECT_EQ(form.grf_Sweep.Cursor, 21);
        EXPECT_TRUE(form.cmd_Before.Enabled);
        EXPECT_FALSE(form.cmd_After.Enabled);
        form.cmd_After.OnClick();
        form.grf_Sweep.OnSeek(22);
        form.cmd_After.OnClick();
        EXPECT_EQ(form.grf_Sweep.Cursor, 21) << "there is none behind it";
        Press(form, "cmd_Start");
        EXPECT_EQ(Picked(), "") << "of a study that begins anew nothing is picked";
        EXPECT_FALSE(form.cmd_Take.Enabled);
        To_The_End();
    });
}

TEST_F(StudiesFound, TheFirstStepPicksTheFirstLinkage) {
    Inside([&] {
        Sweep_Cranks();
        form.cmd_After.OnClick();
        EXPECT_EQ(Picked(), "") << "nothing was found yet";
        Solve();
        Press(form, "cmd_Before");
        EXPECT_EQ(form.grf_Sweep.Cursor, 1);
        Press(form, "cmd_After");
        EXPECT_EQ(form.grf_Sweep.Cursor, 2);
    });
}

TEST_F(StudiesFound, ALinkageThatDoesNotCloseHasNoNumberAndIsPickedAllTheSame) {
    Inside([&] {
        Sweep_Cranks("1", "41", "3");
        Solve();
        form.grf_Sweep.OnSeek(3);
        EXPECT_EQ(Picked().substr(0, 20), "Linkage 3: L2 41 in;");
        EXPECT_TRUE(Picked().ends_with("Mag none in/sec")) << Picked();
        EXPECT_TRUE(std::isnan(form.grf_Sweep.Sets()[0].values[2]));
        const auto rows = Copied_Rows();
        ASSERT_GE(rows.size(), 4U);
        EXPECT_NEAR(std::stod(rows[1][2]), 7, 1e-5);
        EXPECT_EQ(rows[3][1], "41");
        EXPECT_FALSE(rows[3][2].starts_with("7"));
    });
}

TEST_F(StudiesFound, ProgressCountsWhatWasSolvedAndWhatWasKept) {
    Inside([&] {
        EXPECT_EQ(form.lbl_Progress.Caption.Get(), "");
        Sweep_Cranks("1", "1", "1");
        Solve();
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().starts_with("1 linkage")) << form.lbl_Progress.Caption.Get();
        EXPECT_FALSE(form.lbl_Progress.Caption.Get().starts_with("1 linkages"));
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().ends_with(".")) << form.lbl_Progress.Caption.Get();
        EXPECT_EQ(form.lbl_Progress.Caption.Get().find("kept"), std::string::npos);
        Sweep_Cranks();
        Write(1, std::string(kPin) + " > 6.9");
        Solve();
        // From 1 inch on.
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().starts_with("21 linkages")) << form.lbl_Progress.Caption.Get();
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().ends_with(", 11 kept.")) << form.lbl_Progress.Caption.Get();
        EXPECT_EQ(Told(), "Of the model 7; in the sweep from 7 to 10.5.");
    });
}

TEST_F(StudiesFound, ThePlotIsOneCurveOverTheFieldWithItsPlacesAndItsUnit) {
    Inside([&] {
        Sweep_Cranks();
        EXPECT_EQ(form.grf_Sweep.BottomTitle, "");
        EXPECT_FALSE(form.grf_Sweep.Visible);
        Solve();
        EXPECT_TRUE(form.grf_Sweep.Visible);
        EXPECT_FALSE(form.map_Sweep.Visible);
        EXPECT_FALSE(form.his_Spread.Visible);
        EXPECT_FALSE(form.bar_Share.Visible);
        EXPECT_EQ(form.grf_Sweep.NumSets(), 1);
        EXPECT_EQ(form.grf_Sweep.GridStyle, 3);
        EXPECT_EQ(form.grf_Sweep.Sets()[0].unit, "in/sec");
        EXPECT_EQ(form.grf_Sweep.Sets()[0].legend, "");
        ASSERT_EQ(form.grf_Sweep.Places.size(), 21U);
        EXPECT_EQ(form.grf_Sweep.Labels()[0], "0.5");
        EXPECT_EQ(form.grf_Sweep.Labels()[10], "1");
        EXPECT_EQ(form.grf_Sweep.Labels()[20], "1.5");
        Solve();
        EXPECT_EQ(form.grf_Sweep.Places.size(), 21U) << "and no more when it is made again";
        EXPECT_EQ(form.grf_Sweep.BottomTitle, "L2 (in)");
        Put_Box("txt_Count", 1, "11");
        EXPECT_EQ(form.grf_Sweep.BottomTitle, "") << "nothing of what is gone";
    });
}

TEST_F(StudiesFound, TheMapHasItsAxesInTheUnitsOfTheModelAndMarksWhatIsPicked) {
    Use_Units(5);
    ASSERT_TRUE(Convert_Units(1, 5));
    Inside([&] {
        Sweep_Cranks("20", "30", "3");
        Choose(form.cmb_Sweep[2], "L4");
        Put_Box("txt_From", 2, "70");
        Put_Box("txt_To", 2, "80");
        Put_Box("txt_Count", 2, "2");
        Solve();
        const platform::Color_Map::Content& map = form.map_Sweep.Shown();
        EXPECT_EQ(map.title, "max Veloc I 2,3:Mag (mm/sec)");
        EXPECT_EQ(map.across.title, "L2 (mm)");
        EXPECT_EQ(map.up.title, "L4 (mm)");
        EXPECT_NEAR(map.across.from, 20, 1e-5);
        EXPECT_NEAR(map.across.to, 30, 1e-5);
        EXPECT_NEAR(map.up.from, 70, 1e-5);
        EXPECT_NEAR(map.up.to, 80, 1e-5);
        EXPECT_EQ(map.across.count, 3);
        EXPECT_EQ(map.up.count, 2);
        ASSERT_EQ(map.values.size(), 6U);
        for (std::size_t i = 0; i < 6; ++i) EXPECT_NEAR(map.values[i], i < 2 ? 140 : i < 4 ? 175 : 210, 1e-3);
        EXPECT_EQ(Told(), "Of the model 177.8; on the map from 140 to 210.");
        EXPECT_EQ(form.map_Sweep.Picked.Get(), platform::Color_Map::Cell());
        form.map_Sweep.OnPick({1, 1});
        EXPECT_EQ(Picked(), "Linkage 4: L2 25 mm, L4 80 mm;  max Veloc I 2,3:Mag 175 mm/sec");
        EXPECT_EQ(form.map_Sweep.Picked.Get(), (platform::Color_Map::Cell{1, 1}));
        Press(form, "cmd_After");
        EXPECT_EQ(form.map_Sweep.Picked.Get(), (platform::Color_Map::Cell{2, 0}));
        const auto rows = Copied_Rows();
        ASSERT_GE(rows.size(), 7U);
        EXPECT_EQ(rows[0], (std::vector<std::string>{"Linkage", "L2 (mm)", "L4 (mm)", "max Veloc I 2,3:Mag (mm/sec)"}));
        EXPECT_EQ(rows[6][0], "6");
        EXPECT_EQ(rows[6][1], "30");
        EXPECT_EQ(rows[6][2], "80");
        EXPECT_NEAR(std::stod(rows[6][3]), 210, 1e-3);
    });
}

TEST_F(StudiesFound, ASpreadIsCountedInFortyBinsFromTheLeastToTheGreatest) {
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "4000");
        EXPECT_FALSE(form.his_Spread.Visible);
        Solve();
        EXPECT_TRUE(form.his_Spread.Visible);
        EXPECT_TRUE(form.bar_Share.Visible);
        EXPECT_FALSE(form.grf_Sweep.Visible);
        const auto& shown = form.his_Spread.Shown.Get();
        const study::Tally& tally = form.Found().summary.measures[0];
        EXPECT_EQ(shown.title, "max Veloc I 2,3:Mag (in/sec)");
        ASSERT_EQ(shown.counts.size(), 40U);
        EXPECT_EQ(shown.from, tally.Spread().Least());
        EXPECT_EQ(shown.to, tally.Spread().Greatest());
        EXPECT_NEAR(shown.from, 7 * 0.97, 0.002);
        EXPECT_NEAR(shown.to, 7 * 1.03, 0.002);
        // Each bin has a fortieth, but for what chance does to 100 of them.
        for (const double count : shown.counts) EXPECT_NEAR(count, 100, 60);
        ASSERT_EQ(shown.lines.size(), 4U);
        const std::pair<const char*, double> lines[] = {
            {"model", 7}, {"1 %", 7 * (0.97 + 0.0006)}, {"99 %", 7 * (1.03 - 0.0006)}, {"50 %", 7}};
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(shown.lines[i].name, lines[i].first);
            EXPECT_NEAR(shown.lines[i].at, lines[i].second, i == 3 ? 0.03 : 0.003) << lines[i].first;
            EXPECT_EQ(shown.lines[i].faint, i > 0);
        }
        EXPECT_EQ(Told(), "Of the model 7, mean " + Four(tally.Mean()) + ", standard deviation " +
                              Four(tally.Deviation()) + ";  98 of 100 between " + Four(tally.Spread().Quantile(0.01)) +
                              " and " + Four(tally.Spread().Quantile(0.99)) + ".");
        const double wide = (shown.to - shown.from) / 40;
        const auto expect_bin = [&](double value, int bin) {
            form.his_Spread.OnPick(value);
            const double below = std::accumulate(shown.counts.begin(), shown.counts.begin() + bin, 0.0);
            EXPECT_EQ(Picked(), "Between " + Four(shown.from + bin * wide) + " and " +
                                    Four(shown.from + (bin + 1) * wide) + ": " +
                                    Text_Of(shown.counts[static_cast<std::size_t>(bin)]) + " linkages; below that " +
                                    Text_Of(FNRound(100 * below / 4000, 1)) + " of 100.");
        };
        expect_bin(shown.from + 13.5 * wide, 13);
        expect_bin(shown.from - 1, 0);
        expect_bin(shown.to + 1, 39);
    });
}

TEST_F(StudiesFound, WhatDoesNotSpreadStandsInTheMiddleOfANarrowScale) {
    Inside([&] {
        Tolerate_Crank("0", "uniform", "100");
        Solve();
        const auto& shown = form.his_Spread.Shown.Get();
        EXPECT_NEAR(shown.from, 7 - 0.007, 1e-4);
        EXPECT_NEAR(shown.to, 7 + 0.007, 1e-4);
        EXPECT_EQ(std::accumulate(shown.counts.begin(), shown.counts.end(), 0.0), 100);
        EXPECT_EQ(shown.counts[19] + shown.counts[20], 100);
    });
}

TEST_F(StudiesFound, SharesAndDerivativesAreThoseOfTheFieldsInTheirUnits) {
    for (const int units : {1, 5}) {
        SCOPED_TRACE(units);
        if (units == 5) {
            Use_Units(5);
            ASSERT_TRUE(Convert_Units(1, 5));
        }
        Inside([&] {
            Choose_Option(form, "opt_Kind", 1);
            Choose(form.cmb_Tolerance[1], "L2");
            Choose(form.cmb_Tolerance[2], "L4");
            for (int row = 3; row <= 4; ++row) Choose(form.cmb_Tolerance[row], "(none)");
            Put_Box("txt_Samples", platform::kNoIndex, "500");
            Write(0, kPin);
            Solve();
            const auto& bars = form.bar_Share.Shown.Get();
            EXPECT_EQ(bars.title, "Share of the spread; derivative");
            ASSERT_EQ(bars.bars.size(), 2U);
            EXPECT_EQ(bars.bars[0].name, "L2");
            EXPECT_EQ(bars.bars[0].length, 1);
            EXPECT_EQ(bars.bars[0].words, units == 1 ? "100 %   7 in/sec/in" : "100 %   7 mm/sec/mm");
            EXPECT_EQ(bars.bars[1].name, "L4");
            EXPECT_NEAR(bars.bars[1].length, 0, 1e-6);
            EXPECT_EQ(bars.bars[1].words.substr(0, 3), "0 %");
            Write(1, std::string(kPin) + " > 0");
            EXPECT_TRUE(form.bar_Share.Shown.Get().bars.empty()) << "dropped with the rest";
            Solve();
            EXPECT_EQ(form.bar_Share.Shown.Get().title, "Share of the spread of all; derivative");
            Write(1, "");
        });
    }
}

TEST_F(StudiesFound, TheTableOfASpreadHasTheSharesAndTheBins) {
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "2000");
        Solve();
        const auto& shown = form.his_Spread.Shown.Get();
        const auto rows = Copied_Rows();
        ASSERT_EQ(rows.size(), 41U);
        EXPECT_EQ(rows[0], (std::vector<std::string>{"Below share (%)", "max Veloc I 2,3:Mag (in/sec)",
                                                     "From bin (in/sec)", "Linkages bin"}));
        const std::map<std::size_t, double> shares = {{1, 0},  {2, 1},  {3, 5},  {4, 25}, {5, 50},
                                                      {6, 75}, {7, 95}, {8, 99}, {9, 100}};
        for (const auto& [row, share] : shares) {
            EXPECT_EQ(rows[row][0], Text_Of(share));
            EXPECT_NEAR(std::stod(rows[row][1]), 7 * (0.97 + 0.06 * share / 100), 0.03) << row;
        }
        EXPECT_NEAR(std::stod(rows[1][1]), shown.from, 1e-5);
        EXPECT_NEAR(std::stod(rows[9][1]), shown.to, 1e-5);
        double all = 0;
        for (std::size_t i = 0; i < 40; ++i) {
            EXPECT_NEAR(std::stod(rows[i + 1][2]), shown.from + (shown.to - shown.from) * static_cast<double>(i) / 40,
                        1e-5);
            all += std::stod(rows[i + 1][3]);
        }
        EXPECT_EQ(all, 2000);
        EXPECT_EQ(rows[10][0], rows[40][0]) << "below the shares both are empty";
        EXPECT_NE(rows[10][0], rows[9][0]);
    });
}

TEST_F(StudiesFound, ThePictureHasTheModelTheLinkageThatIsPickedAndTheStepThatIsSet) {
    LogSurface log;
    form.Picture1.Redirect(&log);
    Inside([&] {
        Sweep_Cranks();
        EXPECT_TRUE(form.hsc_Step.Enabled);
        EXPECT_EQ(form.hsc_Step.Max(), 36);
        EXPECT_EQ(form.lbl_Step.Caption.Get(), "Theta2 0 deg");
        EXPECT_TRUE(Has_Crank_Of(log, 1));
        Solve();
        EXPECT_FALSE(Has_Crank_Of(log, 0.6));
        log.Calls.clear();
        form.grf_Sweep.OnSeek(3);
        EXPECT_TRUE(Has_Crank_Of(log, 0.6));
        EXPECT_TRUE(Has_Crank_Of(log, 1)) << "pale, below it";
        log.Calls.clear();
        form.hsc_Step.SetValue(18);
        EXPECT_EQ(form.lbl_Step.Caption.Get(), "Theta2 180 deg");
        EXPECT_TRUE(Has_Crank_Of(log, -0.6));
        log.Calls.clear();
        Put_Box("txt_Count", 1, "11");
        EXPECT_TRUE(Has_Crank_Of(log, -1));
        EXPECT_FALSE(Has_Crank_Of(log, -0.6)) << "what was found is gone, and so is what was picked";
        EXPECT_EQ(Picked(), "");
        EXPECT_EQ(form.lbl_Step.Caption.Get().find("coupler point"), std::string::npos);
    });
    form.Picture1.Redirect(nullptr);
}

TEST_F(StudiesFound, ASinglePositionHasNoBarAndOneThatDoesNotCloseIsSaid) {
    Model.Calctype = 1;
    Inside([&] {
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        EXPECT_FALSE(form.hsc_Step.Enabled);
        EXPECT_EQ(form.hsc_Step.Max(), 0);
    });
    Model.Calctype = 3;
    Model.L2 = 3, Model.L4 = 2.2;
    Inside([&] {
        ASSERT_EQ(form.lbl_Fault.Caption.Get(), "");
        form.hsc_Step.SetValue(18);
        EXPECT_EQ(form.lbl_Step.Caption.Get(), "This position does not close.");
        EXPECT_FALSE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
    });
}

TEST_F(StudiesFound, ADotOfTheCloudIsPickedWhereItStandsAndNowhereElse) {
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "1");
        Solve();
        ASSERT_NE(form.lbl_Step.Caption.Get().find(";  the coupler point of 1 linkages, deviations "),
                  std::string::npos)
            << form.lbl_Step.Caption.Get();
        EXPECT_TRUE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
        EXPECT_EQ(Picked().substr(0, 10), "Linkage 1:");
        Choose_Option(form, "opt_Kind", 0);
        EXPECT_FALSE(form.Picture1.OnSeize({0, 0, 0, 0.01})) << "a sweep has no cloud";
    });
}

TEST_F(StudiesFound, ATableThatIsSavedTellsWhatTheStudyWas) {
    Inside([&] {
        Sweep_Cranks();
        Solve();
        desktop.Expect_Save(Path("sweep.csv"));
        Pick_Menu(form, "mnu_SaveTable");
    });
    EXPECT_NE(Held(Path("sweep.csv")).find("Linkage"), std::string::npos);
}

TEST_F(StudiesFound, AWorkbookTellsBesideTheModelHowMuchWasSolvedAndWhatItComesTo) {
    std::map<char, std::set<std::string>> formats;  // by column of the table
    const auto saved = [&](const std::string& name) {
        desktop.Expect_Save(Path(name));
        Pick_Menu(form, "mnu_SaveTable");
        const Xlsx_Read read = Read_Xlsx(Path(name));
        formats.clear();
        for (const auto& [cell, format] : read.formats)
            if (cell.starts_with("Study!")) formats[cell.at(6)].insert(format);
        std::map<std::string, std::pair<double, std::string>> facts;
        for (const auto& [cell, text] : read.texts) {
            const auto column = cell.find("!A");
            if (column == std::string::npos || !text.starts_with("Study: ")) continue;
            const std::string sheet = cell.substr(0, column + 1), row = cell.substr(column + 2);
            const auto unit = read.texts.find(sheet + "C" + row);
            facts[text.substr(7)] = {read.numbers.at(sheet + "B" + row), unit == read.texts.end() ? "" : unit->second};
        }
        return facts;
    };
    using Fact = std::pair<double, std::string>;
    Inside([&] {
        Sweep_Cranks();
        Solve();
        auto facts = saved("sweep.xlsx");
        using Formats = std::map<char, std::set<std::string>>;
        EXPECT_EQ(formats, (Formats{{'A', {"0"}}, {'B', {"0.000000"}}, {'C', {"0.000000"}}}));
        EXPECT_EQ(facts.size(), 2U);
        EXPECT_EQ(facts["linkages solved"], Fact(21, ""));
        EXPECT_EQ(facts["linkages in all"], Fact(21, ""));
        Tolerate_Crank("0.03", "uniform", "4000");
        Solve();
        facts = saved("spread.xlsx");
        EXPECT_EQ(formats, (Formats{{'A', {"0"}}, {'B', {"0.000000"}}, {'C', {"0.000000"}}, {'D', {"0"}}}));
        EXPECT_EQ(facts.size(), 5U);
        EXPECT_EQ(facts["linkages solved"], Fact(4000, ""));
        EXPECT_EQ(facts["linkages in all"], Fact(4000, ""));
        EXPECT_NEAR(facts["mean"].first, 7, 0.01);
        EXPECT_NEAR(facts["standard deviation"].first, 0.21 / std::sqrt(3), 0.003);
        EXPECT_EQ(facts["mean"].second, "in/sec");
        EXPECT_EQ(facts["standard deviation"].second, "in/sec");
        EXPECT_EQ(facts["share of L2"].second, "%");
        EXPECT_NEAR(facts["share of L2"].first, 100, 1e-3);
    });
}

TEST_F(StudiesFound, ACountThatIsTypedIsAWholeNumberOfAtLeastOne) {
    Inside([&] {
        const std::pair<const char*, const char*> texts[] = {{"7.6", "8"}, {"0", "1"}, {"-3", "1"}, {"2", "2"}};
        for (const auto& [typed, shown] : texts) {
            Put_Box("txt_Count", 1, typed);
            EXPECT_EQ(form.txt_Count[1].Text.Get(), shown) << typed;
        }
        Choose_Option(form, "opt_Kind", 1);
        Put_Box("txt_Seed", platform::kNoIndex, "-3");
        EXPECT_EQ(form.txt_Seed.Text.Get(), "0");
        Put_Box("txt_Samples", platform::kNoIndex, "0");
        EXPECT_EQ(form.txt_Samples.Text.Get(), "1");
        Put_Box("txt_PlusMinus", 1, "-0.5");
        EXPECT_EQ(form.txt_PlusMinus[1].Text.Get(), "0.5") << "up and down it is the same";
    });
}

TEST_F(StudiesFound, FrameAndSpreadTakeTheirWordsAloneAndPutOthersBack) {
    Inside([&] {
        EXPECT_EQ(form.cmb_Frame.Text.Get(), "Global");
        Choose(form.cmb_Frame, "Local");
        EXPECT_TRUE(form.The_Settings().local);
        form.MoveFocus(&form.cmb_Frame);
        form.cmb_Frame.Text = "Moon";
        form.MoveFocus(&form.cmd_Start);
        EXPECT_EQ(form.cmb_Frame.Text.Get(), "Local");
        Choose(form.cmb_Frame, "Global");
        EXPECT_FALSE(form.The_Settings().local);
        Choose_Option(form, "opt_Kind", 1);
        Choose(form.cmb_Spread[1], "worst");
        EXPECT_EQ(form.The_Settings().tolerances[0].spread, study::Spread::kWorst);
        form.MoveFocus(&form.cmb_Spread[1]);
        form.cmb_Spread[1].Text = "even";
        form.MoveFocus(&form.cmd_Start);
        EXPECT_EQ(form.cmb_Spread[1].Text.Get(), "worst");
        EXPECT_FALSE(form.cmb_Spread[6].Enabled) << "a row without a field";
        EXPECT_FALSE(form.txt_PlusMinus[6].Enabled);
        EXPECT_EQ(form.txt_PlusMinus[6].Text.Get(), "");
        EXPECT_TRUE(form.cmb_Tolerance[6].Enabled);
    });
}

}  // namespace
}  // namespace verlink::test
