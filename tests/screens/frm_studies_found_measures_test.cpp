// What a study tells of measures of every kind, of several fields, and of a model that has no measure itself.
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "tests/screens/frm_studies_found_fixture.h"

namespace verlink::test {
namespace {

using StudiesMeasured = StudiesFound;

TEST_F(StudiesMeasured, EachMeasureHasItsUnitInTheTitle) {
    const std::pair<const char*, const char*> titles[] = {{"closes", "closes"},
                                                          {"deviation line", "deviation line (in)"},
                                                          {"mean Theta4", "mean Theta4 (degrees)"},
                                                          {"max w4 / w2", "max w4 / w2 (ratio)"},
                                                          {"rms Veloc CP:Y", "rms Veloc CP:Y (in/sec)"},
                                                          {"mux Theta4", "mux Theta4"}};
    Inside([&] {
        for (const auto& [measure, title] : titles) {
            Write(0, measure);
            EXPECT_EQ(form.grf_Sweep.GraphTitle, title);
        }
    });
}

TEST_F(StudiesMeasured, OneWithoutAUnitIsToldByItsNumberAlone) {
    Inside([&] {
        Sweep_Cranks("1", "41", "3");
        Write(0, "closes");
        Solve();
        form.grf_Sweep.OnSeek(1);
        const std::string all = Four(form.grf_Sweep.Sets()[0].values[0]);
        EXPECT_EQ(Picked(), "Linkage 1: L2 1 in;  closes " + all);
        EXPECT_EQ(form.grf_Sweep.Sets()[0].unit, "");
        EXPECT_EQ(form.grf_Sweep.Sets()[0].values[2], 0) << "a crank that long closes nowhere";
        EXPECT_EQ(Copied_Rows()[0].back(), "closes");
        Tolerate_Crank("0.03", "uniform", "20");
        Write(0, "closes");
        Solve();
        ASSERT_EQ(form.bar_Share.Shown.Get().bars.size(), 1U);
        EXPECT_EQ(form.bar_Share.Shown.Get().bars[0].words, "none   0 1/in");
    });
}

TEST_F(StudiesMeasured, SharesOfTwoFieldsGoByTheSquaresOfWhatEachMakesOfIt) {
    Inside([&] {
        Tolerate_Crank("0.03", "normal", "4000");
        Choose(form.cmb_Tolerance[2], "Omega2Input");
        // The pin's speed is the crank's length times its speed: of the variance the second has twice that of the
        // first.
        Put_Box("txt_PlusMinus", 2, Text_Of(0.03 * 7 * std::sqrt(2)));
        Solve();
        const auto& bars = form.bar_Share.Shown.Get().bars;
        ASSERT_EQ(bars.size(), 2U);
        EXPECT_EQ(bars[0].name, "L2");
        EXPECT_EQ(bars[0].words, "33.3 %   7 in/sec/in");
        EXPECT_NEAR(bars[0].length, 0.5, 1e-3);
        EXPECT_EQ(bars[1].name, "Omega2Input");
        EXPECT_EQ(bars[1].words, "66.7 %   1 in/sec/rad/s");
        EXPECT_EQ(bars[1].length, 1);
        const double sigma = 0.01 * 7 * std::sqrt(3);
        EXPECT_NEAR(form.Found().summary.measures[0].Deviation(), sigma, 5 * sigma / std::sqrt(2 * 4000));
        EXPECT_TRUE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
        EXPECT_NE(Picked().find(" in, Omega2Input "), std::string::npos) << Picked();
    });
}

TEST_F(StudiesMeasured, AModelThatHasNoMeasureItselfHasNoLineInTheSpread) {
    // At half a turn the crank reaches L1 + L2, and coupler and rocker together 6.5: a crank of 2.5 does not close.
    Model.L2 = 2.51;
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "3000");
        Write(0, "at 180 Theta4");
        Solve();
        const auto& shown = form.his_Spread.Shown.Get();
        ASSERT_EQ(shown.lines.size(), 3U);
        EXPECT_EQ(shown.lines[0].name, "1 %");
        EXPECT_TRUE(Told().starts_with("Of the model none, mean ")) << Told();
        // From 2.48 to 2.5 of 2.48 to 2.54.
        const double closed = std::accumulate(shown.counts.begin(), shown.counts.end(), 0.0);
        EXPECT_NEAR(closed, 1000, 130);
        const auto& spread = form.Found().summary.measures[0].Spread();
        EXPECT_EQ(closed, static_cast<double>(spread.Count()));
        form.his_Spread.OnPick(shown.to);
        EXPECT_EQ(Picked().substr(0, 8), "Between ");
        EXPECT_LE(std::stod(Picked().substr(Picked().find("below that ") + 11)), 100);
        EXPECT_GT(std::stod(Picked().substr(Picked().find("below that ") + 11)), 50) << "of those that have a measure";
    });
}

TEST_F(StudiesMeasured, ALinkageWhoseFieldNoNumberHoldsIsPickedButNotTakenOrDrawn) {
    LogSurface log;
    form.Picture1.Redirect(&log);
    Settings settings;
    settings.sweeps[0] = {"L2", -1e300, 1.2, 3};
    Model.StudySettings = study::Settings_Text(settings);
    Inside([&] {
        Solve();
        form.grf_Sweep.OnSeek(3);
        EXPECT_EQ(Picked().substr(0, 22), "Linkage 3: L2 1.2 in; ");
        EXPECT_TRUE(form.cmd_Take.Enabled);
        EXPECT_TRUE(Has_Crank_Of(log, 1.2));
        log.Calls.clear();
        Press(form, "cmd_Before");
        Press(form, "cmd_Before");
        EXPECT_EQ(Picked(), "Linkage 1: L2 none in;  min Trans Ang none degrees");
        EXPECT_EQ(form.grf_Sweep.Cursor, 1);
        EXPECT_FALSE(form.cmd_Take.Enabled);
        EXPECT_TRUE(Has_Crank_Of(log, 1));
        EXPECT_FALSE(Has_Crank_Of(log, 1.2)) << "that was another one";
        const auto rows = Copied_Rows();
        EXPECT_EQ(rows.size(), 4U);
        EXPECT_EQ(rows[1][0], "1");
        EXPECT_EQ(rows[3][1], "1.2");
        EXPECT_EQ(rows[1][1], rows[1][2]) << "neither has a number";
    });
    form.Picture1.Redirect(nullptr);
}

TEST_F(StudiesMeasured, QuantilesStandWhereAnEvenSpreadHasThem) {
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "4000");
        Solve();
        const auto& lines = form.his_Spread.Shown.Get().lines;
        ASSERT_EQ(lines.size(), 4U);
        // From 6.79 to 7.21; an even spread of 4000 has its hundredths within 0.0007, its middle within 0.0033, as a
        // rule.
        EXPECT_NEAR(lines[1].at, 6.79 + 0.01 * 0.42, 0.003);
        EXPECT_NEAR(lines[2].at, 6.79 + 0.99 * 0.42, 0.003);
        EXPECT_NEAR(lines[3].at, 7, 0.015);
        Put_Box("txt_Samples", platform::kNoIndex, "4001");
        Solve();
        std::vector<float> all = One_By_One(study::Words_Of(form.The_Settings()));
        std::ranges::sort(all);
        const auto& of_more = form.his_Spread.Shown.Get().lines;
        EXPECT_EQ(of_more[1].at, all[40]) << "of 4000 others 1 in 100 is less";
        EXPECT_EQ(of_more[2].at, all[3960]);
        EXPECT_EQ(of_more[3].at, all[2000]);
    });
}

}  // namespace
}  // namespace verlink::test
