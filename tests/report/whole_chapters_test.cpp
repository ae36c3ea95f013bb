// Chapters as they are read, line by line, of models whose numbers were put there by hand.
#include "tests/report/whole_chapters.h"

#include <cmath>
#include <map>
#include <regex>

#include "checks/words.h"
#include "core/results.h"

namespace verlink::test {

TEST_F(Whole_Chapters, TheLinkageHasItsLengthsInTheUnitShown) {
    const Lines inches{"# Linkage",
                       "Link 1 (Ground) | 2.667 | in",
                       "Link 2 (Crank) | 1.115 | in",
                       "Link 3 (Coupler) | 2.5 | in",
                       "Link 4 (Rocker) | 2.25 | in",
                       "Dist to Coupler Pt | 1.697 | in",
                       "Angle to Coupler Pt | -92.67 | deg",
                       "Angle of Link 1 | 12.35 | deg",
                       "Pivot O4, x | 2.605 | in",
                       "Pivot O4, y | 0.57 | in",
                       "Circuit | Crossed | ",
                       "# Drive"};
    Take_Linkage(1);
    Lines lines = Lines_In(Chapter::kModel);
    ASSERT_GE(lines.size(), inches.size());
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 12), inches);
    Take_Linkage(5);  // stored in metres
    lines = Lines_In(Chapter::kModel);
    EXPECT_EQ(lines[1], "Link 1 (Ground) | 2666.66 | mm");
    EXPECT_EQ(lines[9], "Pivot O4, y | 570.2 | mm");
}

TEST_F(Whole_Chapters, TheDriveHasTheRowsOfItsMode) {
    Take_Linkage(1);
    const auto drive = [](int mode) {
        Model.Calctype = mode;
        Model.LinkMass(2) = Model.LinkMass(3) = Model.LinkMass(4) = 0;
        const Lines lines = From(Lines_In(Chapter::kModel), "# Drive");
        return Lines(lines.begin() + 1, lines.end());
    };
    const Lines times{"Start Time | 0.25 | sec", "End Time | 1.5 | sec", "Delta Time | 0.125 | sec"};
    const Lines zero{"Theta Zero | 33.5 | deg", "Omega2 | 12.5 | rad/s", "Alpha2 | -3.75 | rad/s^2"};
    Model.FrictionForce = 0;
    for (const int link : {2, 3, 4}) Model.LinkInertia(link) = Model.ExtForceMag(link) = Model.ExtTorque(link) = 0;
    EXPECT_EQ(drive(1), (Lines{"Calculation Mode | One Position | ", zero[0], zero[1], zero[2]}));
    EXPECT_EQ(drive(2), (Lines{"Calculation Mode | Time Steps | ", times[0], times[1], times[2], zero[0],
                               "Omega Zero | 12.5 | rad/s", zero[2]}));
    EXPECT_EQ(drive(3), (Lines{"Calculation Mode | Angle Steps | ", "Min Theta | 10 | deg", "Max Theta | 350 | deg",
                               "Delta Theta | 2.5 | deg", zero[1]}));
    EXPECT_EQ(drive(4),
              (Lines{"Calculation Mode | Cam Driven | ", times[0], times[1], times[2], "Driven by | other.vlk | "}));
    EXPECT_EQ(drive(5), (Lines{"Calculation Mode | Link Driven | ", times[0], times[1], times[2],
                               "Driven by | other.vlk | ", "Delta 2 | 4.5 | deg"}));
    EXPECT_EQ(drive(0)[0], "Calculation Mode | One Position | ");
    EXPECT_EQ(drive(6)[0], "Calculation Mode | Link Driven | ");
}

TEST_F(Whole_Chapters, OneMassOrLoadAloneBringsTheirTable) {
    Take_Linkage(1);
    auto& m = Model;
    const auto clear = [&] {
        m.FrictionForce = 0;
        for (const int link : {2, 3, 4})
            m.LinkMass(link) = m.LinkInertia(link) = m.ExtForceMag(link) = m.ExtTorque(link) = 0;
    };
    const auto has = [&] { return !From(Lines_In(Chapter::kModel), "# Masses and loads").empty(); };
    clear();
    EXPECT_FALSE(has());
    m.FrictionForce = 1;
    EXPECT_TRUE(has());
    for (const int link : {2, 3, 4})
        for (Single* number : {&m.LinkMass(link), &m.LinkInertia(link), &m.ExtForceMag(link), &m.ExtTorque(link)}) {
            clear();
            *number = 0.5;
            EXPECT_TRUE(has()) << link;
        }
}

TEST_F(Whole_Chapters, MassesAndLoadsStandByLink) {
    Take_Linkage(5);
    auto& m = Model;
    for (const int link : {2, 3, 4}) {
        m.LinkMass(link) = 0.5 * link;
        m.LinkInertia(link) = 0.25 * link;
        m.CG(link, 0) = 0.125 * link;
        m.CG(link, 1) = link * 10 * M_PI / 180;
        m.ExtForceMag(link) = 5 * link;
        m.ExtForceAng(link) = 15 * link;
        m.ExtTorque(link) = 1.5 * link;
    }
    m.ForceDist3 = 0.01;
    m.ForceDist4 = 0.02;
    m.ForceAng3 = 33;
    m.ForceAng4 = 44;
    m.FrictionForce = 0.75;
    m.TorqueImported = true;
    m.TorqueFileName = "torque.txt";
    m.UnitLabel(11) = m.UnitLabel(13) = "of another thing";
    const std::string systems =
        "LRCS: local rotating coordinate system of the link, along its line of centers. GCS: global coordinate system.";
    const Lines expected{"# Masses and loads",
                         " | Link 2 | Link 3 | Link 4 | Unit",
                         "Mass of Link | 1.000 | 1.500 | 2.000 | kg",
                         "Mass Moment of Inertia about CG | 0.500 | 0.750 | 1.000 | kg-m^2",
                         "Distance to CG from Pivot | 250.00 | 375.00 | 500.00 | mm",
                         "Angle to CG in LRCS | 20.00 | 30.00 | 40.00 | degrees",
                         "Force Magnitude |  | 15 | 20 | N",
                         "Angle of Force in GCS |  | 45 | 60 | degrees",
                         "Distance to Force Point from CG |  | 10.00 | 20.00 | mm",
                         "Angle to Force Point in LRCS |  | 33 | 44 | degrees",
                         "Torque on Link |  | 4.500 | from torque.txt | N- m",
                         "Friction Force on Link |  | 0.75 |  | N",
                         systems};
    EXPECT_EQ(From(Lines_In(Chapter::kModel), "# Masses and loads"), expected);
}

TEST_F(Whole_Chapters, TheClassHasTogglesShapeAndPositions) {
    Take_Linkage(1);
    auto& m = Model;
    Run_Dropped();
    m.CircuitName = "Open";
    m.L1 = 4;
    m.L2 = 3;
    m.L3 = 2;
    m.L4 = 2.5;
    LoadLinkArray();
    m.Grashof_Code = "N";
    // acos((16 + 9 - 4.5 * 4.5) / 24) = 78.585 degrees
    m.Link1Angle = 0;
    EXPECT_EQ(Lines_In(Chapter::kClass)[1], "Toggles at +/- | 78.6 deg");
    m.Link1Angle = 0.5;
    EXPECT_EQ(Lines_In(Chapter::kClass)[1], "Toggles at +/- | 78.6 deg to link 1");
    EXPECT_EQ(Lines_In(Chapter::kClass)[2], "Circuit | Open");
    m.Grashof_Code = "G";
    m.Parallelogram = true;
    EXPECT_EQ(Lines_In(Chapter::kClass)[1], "Shape | Parallelogram");
    EXPECT_EQ(Lines_In(Chapter::kClass)[2], "Circuit | Open");
    m.Parallelogram = false;
    Make_The_Press();
    const auto calculated = [&](int steps, int open) {
        m.NSteps = steps;
        for (int step = 0; step <= 72; ++step) m.RunTable.Assembled(step) = step >= open;
        const Lines lines = Lines_In(Chapter::kClass);
        for (const std::string& line : lines)
            if (line.starts_with("Calculated | ")) return line.substr(13);
        return std::string();
    };
    EXPECT_EQ(calculated(72, 0), "73 positions, which all close");
    EXPECT_EQ(calculated(0, 0), "1 position, which all close");
    EXPECT_EQ(calculated(1, 0), "2 positions, which all close");
    EXPECT_EQ(calculated(72, 3), "73 positions, of which 70 close");
}

TEST_F(Whole_Chapters, ExtremesAreTheLeastMeanAndMostOfTheStepsThatClose) {
    Make_The_Press();
    By_Angle(0, 40, 10);
    const double speeds[] = {9, -2.5, 4, 4, 1.25};
    for (int step = 0; step <= 4; ++step) Model.RunTable.Omega(step, 1) = speeds[step];
    const std::vector<Output_Function> functions{{"Omega3", "", false}};
    const auto lines = [&] { return Lines_Of({report::Extremes(Model, functions)}); };
    const std::string heads = "Function | Min | at deg | Avg | Max | at deg | Peak to Peak | Unit";
    EXPECT_EQ(lines(), (Lines{heads, "Omega3 | -2.50 | 10. | 3.15 | 9.00 | 0. | 11.50 | rad/sec"}));
    Model.RunTable.Assembled(0) = false;
    EXPECT_EQ(lines(), (Lines{heads, "Omega3 | -2.50 | 10. | 1.69 | 4.00 | 20. | 6.50 | rad/sec"}));
    for (int step = 0; step <= 4; ++step) Model.RunTable.Assembled(step) = step == 3;
    EXPECT_EQ(lines(), (Lines{heads, "Omega3 | 4.00 | 30. | 4.00 | 4.00 | 30. | 0.00 | rad/sec"}));
    Model.RunTable.Assembled(3) = false;
    EXPECT_EQ(lines(), Lines{heads});
}

TEST_F(Whole_Chapters, PlotsHaveALabelAtEveryThirtyDegreesWhereThereIsAStep) {
    Make_The_Press();
    const std::vector<Output_Function> functions{{"Veloc CP", "Mag", false}, {"w4 / w2", "", false}};
    const auto labels = [&] {
        const Report_Picture plot = report::Plot_Of(Model, functions[0]);
        EXPECT_EQ(plot.wide, 165);
        EXPECT_EQ(plot.high, 52);
        // 1.45 pixels for each of those of the paper, of which there are 96 to an inch.
        std::smatch size;
        EXPECT_TRUE(std::regex_search(plot.svg, size, std::regex("width=\"([0-9]+)\" height=\"([0-9]+)\"")));
        EXPECT_EQ(std::stoi(size[1]), int(1.45 * 165 / 25.4 * 96));
        EXPECT_EQ(std::stoi(size[2]), int(1.45 * 52 / 25.4 * 96));
        std::map<std::string, Lines> at_height;
        const std::regex text("<text x=\"[^\"]*\" y=\"([^\"]*)\" text-anchor=\"middle\"[^>]*>([^<]*)</text>");
        for (std::sregex_iterator at(plot.svg.begin(), plot.svg.end(), text), end; at != end; ++at)
            at_height[(*at)[1]].push_back((*at)[2]);
        Lines most;
        for (const auto& [height, words] : at_height)
            if (words.size() > most.size()) most = words;
        return Joined(most);
    };
    By_Angle(0, 120, 5);
    EXPECT_EQ(labels(), "0. | 30. | 60. | 90. | 120.");
    By_Angle(0, 120, 7.5);
    EXPECT_EQ(labels(), "0.0 | 30.0 | 60.0 | 90.0 | 120.0");
    By_Angle(0, 140, 7);
    EXPECT_EQ(labels(), "0. | 70. | 140.");
    By_Angle(0, 90, 30);
    EXPECT_EQ(labels(), "0. | 30. | 60. | 90.");
    By_Angle(0, 360, 60);
    EXPECT_EQ(labels().substr(0, 1), "0");
    EXPECT_EQ(labels().find("60"), std::string::npos) << "each tenth alone";
    By_Angle(0, 90, 5);
    Model.ThetaStep = 0;
    EXPECT_EQ(labels(), "0. | 0.") << "each tenth, where no step says how far they are apart";
    // 30 degrees are 6.0006 steps, which is round, or 6.0012.
    By_Angle(0, 100, 4.9995);
    EXPECT_EQ(std::ranges::count(labels(), '|'), 3);
    By_Angle(0, 100, 4.999);
    EXPECT_EQ(std::ranges::count(labels(), '|'), 2);
    By_Angle(0, 120, 5);
    Model.Omega2Input = 2;
    By_Time(0, 3, 0.125);
    EXPECT_EQ(labels(), "0.00 | 1.25 | 2.50");
    By_Angle(0, 120, 5);
    const Lines lines = Lines_In(Chapter::kPlots, functions);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_TRUE(lines[1].starts_with("Veloc CP Mag | "));
    EXPECT_TRUE(lines[2].starts_with("w4 / w2 | "));
    EXPECT_EQ(lines[3], "[Veloc CP Mag, mm/sec]");
    EXPECT_EQ(lines[4], "[w4 / w2, ratio]");
    EXPECT_TRUE(Lines_In(Chapter::kPlots, {}).empty());
}

TEST_F(Whole_Chapters, AGapInTheRunIsAGapInThePlot) {
    Make_The_Press();
    By_Angle(0, 40, 10);
    const auto drawn = [] { return report::Plot_Of(Model, {"Omega3", "", false}).svg; };
    const std::string whole = drawn();
    Model.RunTable.Assembled(2) = false;
    const std::string gap = drawn();
    EXPECT_NE(gap, whole);
    Model.RunTable.Omega(2, 1) = 1e6;
    EXPECT_EQ(drawn(), gap) << "what does not close has no value";
}

TEST_F(Whole_Chapters, CounterweightsStandInTheUnitsOfTheirSystem) {
    Make_The_Press();
    auto& m = Model;
    m.MRNeeded(2) = 0.12345F;
    m.MRNeeded(4) = 1.5;
    m.MRAngle(2) = 10.126 * M_PI / 180;
    m.MRAngle(4) = -M_PI / 2;
    m.BerkMass(2) = 2.12345F;
    m.BerkMass(4) = 3;
    m.BerkRadius(2) = 0.05;
    m.BerkRadius(4) = 0.06126F;
    const auto table = [&](int units) {
        Use_Units(units);
        const Lines lines = Lines_In(Chapter::kBalance);
        return Lines(lines.begin(), lines.begin() + 6);
    };
    EXPECT_EQ(table(5), (Lines{"Counterweight | Link 2 | Link 4 | Unit", "MR product needed | 0.123 | 1.500 | kg-m",
                               "at angle | 10.13 | -90.00 | degrees", "Mass | 2.123 | 3 | kg",
                               "Radius | 50 | 61.26 | mm", "MR product | 0.106 | 0.184 | kg-m"}));
    EXPECT_EQ(table(4)[1], "MR product needed | 0.123 | 1.500 | kg-m");
    EXPECT_EQ(table(3)[5], "MR product | 0.106 | 0.184 | kg-m");
    EXPECT_EQ(table(3)[4], "Radius | 0.05 | 0.061 | m");
    EXPECT_EQ(table(2)[1], "MR product needed | 0.123 | 1.500 | sl-ft");
    EXPECT_EQ(table(1)[5], "MR product | 0.106 | 0.184 | bl-in");
    EXPECT_EQ(table(1)[4], "Radius | 0.05 | 0.061 | in");
    Use_Units(5);
    const Lines lines = Lines_In(Chapter::kBalance);
    EXPECT_EQ(lines[6],
              "Full balance of the shaking force by counterweights on links 2 and 4. Angles are in the local rotating "
              "coordinate systems of the links. \"Balcd\" is with the counterweights.");
    const char* rows[] = {"F Shaking Mag", "F Shk Balcd Mag", "MShk Balcd", "F12 Balcd Mag", "F14 Balcd Mag"};
    ASSERT_EQ(lines.size(), 13U);
    for (std::size_t i = 0; i < std::size(rows); ++i)
        EXPECT_EQ(lines[8 + i].substr(0, lines[8 + i].find(" | ")), rows[i]);
}

TEST_F(Whole_Chapters, ASynthesisOfTwoPositionsHasWhatWasGivenAndItsDyads) {
    Make_The_Press();
    auto& m = Model;
    m.Synthesized = true;
    m.SynPositions = 1;
    m.SynMethod = 1;
    m.P21x = 0.01234F;
    m.P21y = -0.05;
    m.SynAlpha2 = 38.456F;
    m.SynBeta2 = 10.126F;
    m.SynGamma2 = -20.5;
    m.SynW = 0.11;
    m.SynU = 0.12;
    m.SynZ = 0.13;
    m.SynS = 0.14;
    m.SynTheta = 11.1239F;
    m.SynSigma = 22;
    m.SynPhi = 33;
    m.SynXi = 44;
    m.Link1Angle = 12.346F;
    Lines expected{"Two positions, three angles assumed.",
                   "# Given",
                   "P21x | 12.34 | mm",
                   "P21y | -50.00 | mm",
                   "Alpha2 | 38.46 | deg",
                   "# Dyads",
                   "Left dyad |  | Right dyad |  | Unit",
                   "Beta2 | 10.13 | Gamma2 | -20.50 | deg",
                   "W mag | 110 | U mag | 120 | mm",
                   "Theta | 11.12 | Sigma | 22.00 | deg",
                   "Z mag | 130 | S mag | 140 | mm",
                   "Phi | 33.00 | Xi | 44.00 | deg",
                   "Angle of the ground link: 12.35 deg."};
    Lines lines = Lines_In(Chapter::kSynthesis);
    ASSERT_EQ(lines.size(), 14U);
    const auto diagram = std::get<Report_Picture>(Chapter_Of(Made(), Chapter::kSynthesis)->pieces.back());
    EXPECT_EQ(diagram.wide, 110);
    EXPECT_EQ(diagram.high, 110);
    lines.pop_back();
    EXPECT_EQ(lines, expected);
    m.SynMethod = 2;
    EXPECT_EQ(Lines_In(Chapter::kSynthesis)[0], "Two positions, magnitude and angle of a vector assumed.");
    m.SynPositions = 2;
    lines = Lines_In(Chapter::kSynthesis);
    EXPECT_EQ(lines[0], "Three positions with unspecified fixed pivots.");
    EXPECT_EQ(*std::ranges::find_if(lines, [](const auto& line) { return line.starts_with("Theta"); }),
              "Theta | 11.124 | Sigma | 22 | deg");
    m.SynPositions = 3;
    EXPECT_EQ(Lines_In(Chapter::kSynthesis)[0], "Three positions with specified fixed pivots.");
    EXPECT_EQ(Lines_In(Chapter::kSynthesis)[15], "Left dyad |  | Right dyad |  | Unit");
}

TEST_F(Whole_Chapters, CognatesStandAsTheTablesHaveThem) {
    Make_The_Press();
    auto& m = Model;
    m.CognatesDue = false;
    m.CognateNumber = 2;
    for (int n = 1; n <= 3; ++n)
        for (int item = 0; item <= 6; ++item) m.Cognates(n, item) = n / 10.0 + item / 80.0;
    const Lines expected{"Three linkages trace the same coupler curve; the one in hand is cognate 2.",
                         " | Cognate 1 | Cognate 2 | Cognate 3 | Unit",
                         "Link 1 (Ground) | 112.500 | 212.500 | 312.500 | mm",
                         "Link 2 (Crank) | 125.000 | 225.000 | 325.000 | mm",
                         "Link 3 (Coupler) | 137.500 | 237.500 | 337.500 | mm",
                         "Link 4 (Rocker) | 150.000 | 250.000 | 350.000 | mm",
                         "Dist to Coupler Pt | 162.500 | 262.500 | 362.500 | mm",
                         "Angle to Coupler Pt | 0.10 | 0.20 | 0.30 | deg"};
    EXPECT_EQ(Lines_In(Chapter::kCognates), expected);
}

TEST_F(Whole_Chapters, ChecksStandWithTheMeaningOfThoseThatAreNotGood) {
    Make_The_Press();
    Model.RunTable.Omega(3, 1) = 99;
    const std::vector<Check> checks = Checks_Of(Model);
    Lines expected{Summary_Of(checks), "Check | Verdict | Worst | Expected | Unit | Where"}, meanings;
    for (const Check& check : checks) {
        expected.push_back(Joined({check.name, Words_Of(check.verdict), Check_Number(check.worst),
                                   Check_Number(check.expected), check.unit, check.where}));
        if (check.verdict != Verdict::kGood) meanings.push_back(check.name + ": " + check.meaning);
    }
    ASSERT_FALSE(meanings.empty());
    ASSERT_LT(meanings.size(), checks.size());
    expected.insert(expected.end(), meanings.begin(), meanings.end());
    EXPECT_EQ(Lines_In(Chapter::kChecks), expected);
    const auto report = Made();
    const auto& table = std::get<Report_Table>(Chapter_Of(report, Chapter::kChecks)->pieces[1]);
    EXPECT_EQ(table.first_number, 2);
    EXPECT_EQ(table.numbers, 2);
}

}  // namespace verlink::test
