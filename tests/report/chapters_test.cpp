// Which chapters a report has, what it leaves of the model, and its drawing's scale.
#include <gtest/gtest.h>

#include <cmath>
#include <regex>

#include "core/results.h"
#include "files/model_file.h"
#include "report/pieces.h"
#include "report/setter.h"
#include "tests/report/report_fixture.h"

namespace verlink::test {

namespace {

std::vector<std::string> Titles(const Report& report) {
    std::vector<std::string> titles;
    for (const Report_Chapter& chapter : report.chapters) titles.push_back(chapter.title);
    return titles;
}

/// Lengths of the strokes of a picture, in its own pixels.
std::vector<double> Strokes(const std::string& svg) {
    static const std::regex stroke("M([-0-9.]+) ([-0-9.]+)L([-0-9.]+) ([-0-9.]+)");
    std::vector<double> lengths;
    for (std::sregex_iterator at(svg.begin(), svg.end(), stroke), end; at != end; ++at)
        lengths.push_back(
            std::hypot(std::stod((*at)[3]) - std::stod((*at)[1]), std::stod((*at)[4]) - std::stod((*at)[2])));
    return lengths;
}

}  // namespace

TEST_F(Reports, WithoutARunThereAreTheModelAndItsClassAlone) {
    Run_Dropped();
    EXPECT_EQ(Titles(Made()), (std::vector<std::string>{"Data of the model", "Classification and limits"}));
    EXPECT_EQ(Missing_For(Chapter::kDrawing, Model), "Calculate the linkage on the input screen first.");
}

TEST_F(Reports, AllChaptersOfABalancedLinkageStandInTheirOrder) {
    Make_The_Press();
    EXPECT_EQ(Titles(Made(Usual_Plots(Model))),
              (std::vector<std::string>{"Data of the model", "Classification and limits", "Drawing", "Plots",
                                        "Forces and torques", "Balance", "Flywheel", "Cognates", "Checks"}));
    EXPECT_EQ(Missing_For(Chapter::kSynthesis, Model), "The lengths of this linkage do not come from a synthesis.");
}

TEST_F(Reports, AChapterThatIsNotWishedForIsLeftOut) {
    const auto report = Make_Report(Model, {{Chapter::kCognates}, {}, ""}, [](double) { return true; });
    ASSERT_TRUE(report.has_value());
    EXPECT_EQ(Titles(*report), std::vector<std::string>{"Cognates"});
}

TEST_F(Reports, LookingLeavesTheRecordAsItWas) {
    Make_The_Press();
    Model.ShowCouplerFlag = "N";
    Model.ShowCentrodesFlag = "Y";
    Model.ZoomFactor = 1.5;
    Model.AnimMax = 77;
    Model.Synthesized = true;
    Model.CognatesDue = true;
    const std::string before = File_Content();
    const auto torque = Model.RunTable.FlywheelTorque;
    Made(Usual_Plots(Model));
    EXPECT_EQ(File_Content(), before);
    EXPECT_EQ(Model.ShowCouplerFlag, "N");
    EXPECT_EQ(Model.ShowCentrodesFlag, "Y");
    EXPECT_EQ(Model.ZoomFactor, 1.5);
    EXPECT_EQ(Model.AnimMax, 77);
    EXPECT_TRUE(Model.CognatesDue);
    EXPECT_TRUE(Model.BalanceDone);
    for (int step = 0; step <= Model.NSteps; ++step)
        ASSERT_EQ(Model.RunTable.FlywheelTorque(step), torque(step)) << step;
}

TEST_F(Reports, WhoHasHadEnoughOfItGetsNothing) {
    int told = 0;
    const auto report = Make_Report(Model, {{kChapters.begin(), kChapters.end()}, {}, ""},
                                    [&](double done) { return ++told < 3 && done < 1; });
    EXPECT_FALSE(report.has_value());
    EXPECT_EQ(told, 3);
}

TEST_F(Reports, TheCrankOfTheDrawingIsAsLongAsItsScaleSays) {
    for (const int units : {1, 5}) {
        if (units == 5) In_Units(units);
        const Single crank = Model.L2;
        const Report report = Made();
        const Report_Chapter* chapter = Chapter_Of(report, Chapter::kDrawing);
        ASSERT_NE(chapter, nullptr);
        const auto& picture = std::get<Report_Picture>(chapter->pieces.front());
        EXPECT_LE(picture.wide, 150);
        EXPECT_GT(picture.wide, 59);
        // "Scale 1 : 2. ..."
        std::smatch scale;
        ASSERT_TRUE(std::regex_search(picture.caption, scale, std::regex("^Scale ([0-9]+) : ([0-9]+)\\.")));
        const double factor = std::stod(scale[1]) / std::stod(scale[2]);
        const double shown_millimetres = units == 1 ? crank * 25.4 : crank * 1000;
        const double wanted = shown_millimetres * factor;
        double nearest = 1e9;
        const double pixel = picture.wide / std::lround(picture.wide / 25.4 * 96);
        for (const double stroke : Strokes(picture.svg))
            if (std::abs(stroke * pixel - wanted) < std::abs(nearest - wanted)) nearest = stroke * pixel;
        EXPECT_NEAR(nearest, wanted, 0.02) << picture.caption;
    }
}

TEST_F(Reports, ScalesAreRound) {
    EXPECT_EQ(report::Scale_For(140, 150).words, "1 : 1");
    EXPECT_EQ(report::Scale_For(151, 150).words, "1 : 2");
    EXPECT_EQ(report::Scale_For(301, 150).words, "1 : 5");
    EXPECT_EQ(report::Scale_For(2900, 150).words, "1 : 20");
    EXPECT_EQ(report::Scale_For(70, 150).words, "2 : 1");
    EXPECT_EQ(report::Scale_For(14, 150).words, "10 : 1");
    EXPECT_DOUBLE_EQ(report::Scale_For(301, 150).factor, 0.2);
}

TEST_F(Reports, PositionsThatDoNotCloseAreNoExtremes) {
    Model.L2 = 3;
    Model.L3 = 2;
    Model.L4 = 2.5;
    Model.L1 = 4;
    Model.PolarCoords = true;
    Turn_Ground(0);
    Model.NoConnectSeen = true;
    By_Angle(0, 180, 10);
    const Report report = Made();
    const auto row = Row_Of(report, Chapter::kClass, "Calculated");
    ASSERT_EQ(row.size(), 1U);
    int closed = 0;
    for (int step = 0; step <= 18; ++step) closed += Model.RunTable.Assembled(step) ? 1 : 0;
    EXPECT_EQ(row[0], "19 positions, of which " + std::to_string(closed) + " close");
    EXPECT_EQ(Row_Of(report, Chapter::kClass, "Circuit"), std::vector<std::string>{"Open"});
    const auto angle = Row_Of(report, Chapter::kClass, "Trans Ang");
    ASSERT_EQ(angle.size(), 7U);
    EXPECT_NE(angle[0], "0.000");
}

TEST_F(Reports, TheDrawingIsOfTheFirstPositionThatCloses) {
    Model.L1 = 4;
    Model.L2 = 3;
    Model.L3 = 2;
    Model.L4 = 2.5;
    Model.PolarCoords = true;
    Turn_Ground(0);
    Model.NoConnectSeen = true;
    // It closes within acos((9 + 16 - 4.5 * 4.5) / 24) = 78.58 degrees of the ground.
    By_Angle(250, 340, 10);
    ASSERT_FALSE(Model.RunTable.Assembled(3));
    const Report report = Made();
    const auto& picture = std::get<Report_Picture>(Chapter_Of(report, Chapter::kDrawing)->pieces.front());
    EXPECT_NE(picture.caption.find("The linkage at Theta2 = 290 deg"), std::string::npos) << picture.caption;
}

TEST_F(Reports, ANameWithMarksOfItsOwnIsTheTitleAsItStands) {
    Model.FigureTitle = "Press <3> & \"Co\"";
    EXPECT_EQ(Made().title, "Press <3> & \"Co\"");
}

TEST(Papers, LetterIsForTheCountriesThatUseIt) {
    EXPECT_EQ(Paper_For("en_US.UTF-8"), Paper::kLetter);
    EXPECT_EQ(Paper_For("es_MX"), Paper::kLetter);
    EXPECT_EQ(Paper_For("fr_CA.ISO-8859-1"), Paper::kLetter);
    EXPECT_EQ(Paper_For("de_DE.UTF-8@euro"), Paper::kA4);
    EXPECT_EQ(Paper_For("en_GB.UTF-8"), Paper::kA4);
    EXPECT_EQ(Paper_For("C"), Paper::kA4);
    EXPECT_EQ(Paper_For(""), Paper::kA4);
}

}  // namespace verlink::test
