// The numbers of a report are those of the screens: same texts, same rounding, same units.
#include <gtest/gtest.h>

#include <sstream>

#include "core/classification.h"
#include "output/cartesian.h"
#include "output/plot_windows.h"
#include "output/reading.h"
#include "screens/frm_cayley.h"
#include "screens/frm_inputnew.h"
#include "screens/frm_massprop.h"
#include "screens/frm_myplot2.h"
#include "screens/frm_synth2a.h"
#include "screens/frm_synth3.h"
#include "tests/report/report_fixture.h"

namespace verlink::test {

using Texts = std::vector<std::string>;

TEST_F(Reports, TheLinkageIsThatOfTheInputScreen) {
    Make_The_Press();
    const Report report = Made();
    auto& input = dynamic_cast<frm_Inputnew&>(platform::Screens::Get("frm_Inputnew"));
    Inside(input, [&] {
        const auto box = [&](int index) { return input.txt_Linkout[index].Text.Get(); };
        const auto length = [&](int index, int unit) { return Texts{box(index), input.lbl_Units[unit].Caption}; };
        EXPECT_EQ(input.lbl_Units[1].Caption, "mm");
        EXPECT_EQ(Row_Of(report, Chapter::kModel, "Link 1 (Ground)"), length(0, 0));
        for (const int link : {1, 2, 3, 4})
            EXPECT_EQ(Row_Of(report, Chapter::kModel, input.lbl_Link[link].Caption), length(link, link));
        EXPECT_EQ(Row_Of(report, Chapter::kModel, input.lbl_Link[5].Caption), (Texts{box(5), "deg"}));
        EXPECT_EQ(Row_Of(report, Chapter::kModel, "Angle of Link 1"), (Texts{box(6), "deg"}));
        EXPECT_EQ(box(6), "30");
        EXPECT_EQ(Row_Of(report, Chapter::kModel, "Pivot O4, x"), length(15, 11));
        EXPECT_EQ(Row_Of(report, Chapter::kModel, "Pivot O4, y"), length(16, 12));
        for (int limit = 0; limit <= 3; ++limit)
            EXPECT_EQ(Row_Of(report, Chapter::kModel, input.lbl_Initial[limit].Caption),
                      (Texts{input.txt_initial[limit].Text, input.lbl_Unit[limit].Caption}));
        EXPECT_EQ(Row_Of(report, Chapter::kClass, "Grashof Condition"), Texts{input.lbl_Grashof.Caption});
    });
}

TEST_F(Reports, TheToggleAngleIsThatOfTheInputScreen) {
    Model.L2 = 3;
    Model.L3 = 2;
    Model.L4 = 2.5;
    Model.L1 = 4;
    Model.PolarCoords = true;
    Turn_Ground(30);
    By_Angle(30, 60, 10);
    const Report report = Made();
    ASSERT_EQ(Model.Grashof_Code, "N");
    auto& input = dynamic_cast<frm_Inputnew&>(platform::Screens::Get("frm_Inputnew"));
    Toggle();
    EXPECT_EQ(Row_Of(report, Chapter::kClass, "Toggles at +/-"),
              Texts{input.lbl_Toggle[0].Caption.Get() + " " + input.lbl_Toggle[1].Caption.Get()});
    EXPECT_EQ(input.lbl_Toggle[1].Caption, "deg to link 1");
}

TEST_F(Reports, MassesAndLoadsAreThoseOfTheDynamicsScreen) {
    Make_The_Press();
    const Report report = Made();
    auto& form = dynamic_cast<frm_MassProp&>(platform::Screens::Get("frm_MassProp"));
    Inside(form, [&] {
        const auto row = [&](const std::string& name, auto& boxes, const std::string& unit) {
            const Texts found = Row_Of(report, Chapter::kModel, name);
            ASSERT_EQ(found.size(), 4U) << name;
            for (int link = 2; link <= 4; ++link) {
                if (!boxes[link].Enabled) continue;
                EXPECT_EQ(found[static_cast<std::size_t>(link - 2)], boxes[link].Text.Get()) << name;
                EXPECT_FALSE(boxes[link].Text.Get().empty()) << name;
            }
            EXPECT_EQ(found[3], unit) << name;
        };
        const auto caption = [](const platform::Label& label) { return label.Caption.Get(); };
        row("Mass of Link", form.txt_Mass, caption(form.lbl_MassUnit));
        row("Mass Moment of Inertia about CG", form.txt_Inertia, caption(form.lbl_InertiaUnit));
        row("Distance to CG from Pivot", form.txt_DistCG, caption(form.Lbl_DistUnit[1]));
        row("Angle to CG in LRCS", form.txt_AngCG, caption(form.lbl_AngUnit[1]));
        row("Force Magnitude", form.txt_MagForce, caption(form.lbl_ForceUnit[1]));
        row("Angle of Force in GCS", form.txt_AngForce, caption(form.lbl_AngUnit[2]));
        row("Distance to Force Point from CG", form.txt_DistP, caption(form.Lbl_DistUnit[2]));
        row("Angle to Force Point in LRCS", form.txt_AngP, caption(form.lbl_AngUnit[3]));
        row("Torque on Link", form.txt_Torque, caption(form.lbl_TorqueUnit));
        row("Friction Force on Link", form.txt_Frict, caption(form.lbl_ForceUnit[2]));
    });
}

TEST_F(Reports, CounterweightsAndPulsesAreThoseOfTheBalancingScreen) {
    Make_The_Press(200);  // of areas with some digits
    const Report report = Made();
    Inside(balance, [&] {
        const auto both = [](const std::string& two, const std::string& four, const std::string& unit) {
            return Texts{two, four, unit};
        };
        const std::string product = balance.lbl_MRUnit.begin()->get()->Caption;
        EXPECT_EQ(Row_Of(report, Chapter::kBalance, "MR product needed"),
                  both(balance.lbl_MR2.Caption, balance.lbl_MR4.Caption, product));
        EXPECT_EQ(
            Row_Of(report, Chapter::kBalance, "at angle"),
            both(balance.lbl_Ang2.Caption, balance.lbl_Ang4.Caption, balance.lbl_AngUnit.begin()->get()->Caption));
        EXPECT_EQ(Row_Of(report, Chapter::kBalance, "Mass"),
                  both(balance.txt_BerkMass[2].Text, balance.txt_BerkMass[4].Text, balance.lbl_Unit[0].Caption));
        EXPECT_EQ(Row_Of(report, Chapter::kBalance, "Radius"),
                  both(balance.txt_Radius[2].Text, balance.txt_Radius[4].Text, balance.lbl_Unit[1].Caption));
        EXPECT_EQ(Row_Of(report, Chapter::kBalance, "MR product"),
                  both(balance.txt_MRproduct[2].Text, balance.txt_MRproduct[4].Text, product));
        Press(balance, "cmd_Calc");
        const std::vector<std::string>& lines = balance.pct_Pict1.Lines;
        // "    1   12.3      -4.5 "
        int pulses = 0;
        for (const std::string& line : lines) {
            std::istringstream words(line);
            std::string order, first, second, more;
            if (!(words >> order >> first >> second) || words >> more || order.size() > 2 ||
                first.find_first_not_of("-.0123456789") != std::string::npos)
                continue;
            ++pulses;
            EXPECT_EQ(Row_Of(report, Chapter::kFlywheel, order), (Texts{first, second})) << line;
        }
        EXPECT_GT(pulses, 0);
        const auto average = std::ranges::find(lines, "    Average Torque:");
        ASSERT_NE(average, lines.end());
        std::istringstream words(*(average + 1));
        std::string number, unit;
        ASSERT_TRUE(words >> number >> unit);
        EXPECT_LE(number.size(), std::min(number.find('.'), number.size()) + 3) << number;
        bool told = false;
        for (const Report_Piece& piece : Chapter_Of(report, Chapter::kFlywheel)->pieces) {
            const auto* text = std::get_if<Report_Text>(&piece);
            told |= text && text->words.starts_with("Average torque: " + number + " " + unit);
        }
        EXPECT_TRUE(told) << number;
        EXPECT_TRUE(Row_Of(report, Chapter::kFlywheel, std::to_string(pulses + 1)).empty());
    });
}

TEST_F(Reports, ExtremesAreThoseOfTheWindowsOfPlots) {
    Make_The_Press();
    const std::vector<Output_Function> functions{{"Veloc CP", "Mag", false},  {"Accel CP", "X", false},
                                                 {"Trans Ang", "", false},    {"Torque 12", "", false},
                                                 {"F Shaking", "Ang", false}, {"F Shk Balcd", "Y", false}};
    const Report report = Made(functions);
    Model.CoordSystem = 0;
    Model.SmallValue = 0.0001;
    auto& plot = dynamic_cast<frm_Myplot2&>(platform::Screens::Get("frm_Myplot2"));
    struct Chosen : platform::Screen {
        Chosen() : Screen("frm_Chosen") {}
        platform::ControlArray<platform::Label> lbl_Function{*this, "lbl_Function", {0, 1, 2, 3}};
        platform::ControlArray<platform::Label> lbl_Component{*this, "lbl_Component", {0, 1, 2, 3}};
    } chosen;
    for (const Output_Function& function : functions) {
        for (const int slot : {1, 2}) {
            Select_Variable(function.variable, slot);
            Set_Component(function.component, slot);
        }
        MyPlot(plot, chosen, 2);
        const Texts found = Row_Of(report, Chapter::kPlots, Words_Of(function));
        ASSERT_EQ(found.size(), 7U) << Words_Of(function);
        EXPECT_EQ(found[0], plot.lbl_Min[0].Caption.Get()) << Words_Of(function);
        EXPECT_EQ(found[3], plot.lbl_Max[0].Caption.Get()) << Words_Of(function);
        EXPECT_EQ(found[5], plot.lbl_Peak[0].Caption.Get()) << Words_Of(function);
        // The window has no room for the word.
        const std::string unit = plot.pnl_PlotUnits[0].Caption;
        EXPECT_EQ(found[6], unit == "Deg" ? "degrees" : unit) << Words_Of(function);
    }
}

TEST_F(Reports, ExtremesTellWhereTheyAreAndTheAverage) {
    Make_The_Press();
    const auto expect = [](double start, double apart, const std::string& at) {
        const Report report = Made();
        double sum = 0;
        int least = 0, most = 0;
        for (int step = 0; step <= Model.NSteps; ++step) {
            const double angle = Model.RunTable.Theta(step, 3);
            sum += angle;
            if (angle < Model.RunTable.Theta(least, 3)) least = step;
            if (angle > Model.RunTable.Theta(most, 3)) most = step;
        }
        const Texts row = Row_Of(report, Chapter::kClass, "Trans Ang");
        ASSERT_EQ(row.size(), 7U);
        EXPECT_NEAR(std::stod(row[1]), start + apart * least, 1e-3);
        EXPECT_NEAR(std::stod(row[2]), sum / (Model.NSteps + 1), 0.051);
        EXPECT_NEAR(std::stod(row[4]), start + apart * most, 1e-3);
        EXPECT_NE(least, 0);
        for (const Report_Piece& piece : Chapter_Of(report, Chapter::kClass)->pieces) {
            const auto* table = std::get_if<Report_Table>(&piece);
            if (!table || table->rows.front().front() != "Trans Ang") continue;
            EXPECT_EQ(table->heads, (Texts{"Function", "Min", at, "Avg", "Max", at, "Peak to Peak", "Unit"}));
        }
    };
    By_Angle(0, 350, 5);
    expect(0, 5, "at deg");
    Model.Omega2Input = 2;
    Model.Alpha2 = 0;
    By_Time(1, 3, 0.125);
    expect(1, 0.125, "at sec");
}

TEST_F(Reports, OfEqualValuesTheFirstIsTheExtreme) {
    Make_The_Press();
    By_Angle(20, 80, 5);
    const Output_Function still{"Omega2", "", false};
    const Report report = Made({still});
    const Texts row = Row_Of(report, Chapter::kPlots, Words_Of(still));
    ASSERT_EQ(row.size(), 7U);
    EXPECT_NEAR(std::stod(row[1]), 20, 1e-3);
    EXPECT_NEAR(std::stod(row[4]), 20, 1e-3);
}

TEST_F(Reports, ARunByAngleHasNoValuesThatOnlyOnesByTimeHave) {
    Make_The_Press();
    const Report by_angle = Made();
    for (const char* name : {"Theta Zero", "Omega Zero", "Alpha2", "Start Time", "End Time", "Delta Time"})
        EXPECT_EQ(Row_Of(by_angle, Chapter::kModel, name), Texts{}) << name;
    By_Time(1, 3, 0.125);
    const Report by_time = Made();
    for (const char* name : {"Theta Zero", "Omega Zero", "Alpha2", "Start Time", "End Time", "Delta Time"})
        EXPECT_EQ(Row_Of(by_time, Chapter::kModel, name).size(), 2U) << name;
    EXPECT_EQ(Row_Of(by_time, Chapter::kModel, "Min Theta"), Texts{});
}

TEST_F(Reports, FunctionsAreAllButTheTransform) {
    const std::vector<Output_Function> all = All_Functions();
    const auto has = [&](int number) {
        return std::ranges::count(all, Variable_Name(number), &Output_Function::variable);
    };
    for (int number = 1; number <= 42; ++number)
        EXPECT_EQ(has(number), Facts_Of(Variable_Name(number))->vector ? 4 : 1) << number;
    EXPECT_EQ(has(43), 0);
    for (const Output_Function& function : all) EXPECT_FALSE(function.local) << function.variable;
}

TEST_F(Reports, ForcesAndBalanceHaveARowForEachOfTheirVariables) {
    Make_The_Press();
    const Report report = Made();
    const auto expect = [&](Chapter chapter, const std::function<bool(int)>& wanted) {
        for (int number = 1; number <= 43; ++number) {
            const auto facts = Facts_Of(Variable_Name(number));
            const Output_Function function{Variable_Name(number), facts && facts->vector ? "Mag" : "", false};
            EXPECT_EQ(Row_Of(report, chapter, Words_Of(function)).empty(), !wanted(number)) << Words_Of(function);
        }
    };
    expect(Chapter::kForces, [](int number) { return number >= 26 && number <= 37; });
    expect(Chapter::kBalance, [](int number) { return number == 30 || (number >= 38 && number <= 41); });
    expect(Chapter::kFlywheel, [](int number) { return number == 31 || number == 42; });
}

TEST_F(Reports, PulsesBeginWithTheSideOfTheFirst) {
    Make_The_Press(200);
    std::vector<std::string> seconds;
    for (const double side : {1.0, -1.0}) {
        for (int step = 0; step <= Model.NSteps; ++step)
            Model.RunTable.BalancedMoment(step, 0) = side * Model.RunTable.BalancedMoment(step, 0);
        const Report report = Made();
        const auto& table = std::get<Report_Table>(Chapter_Of(report, Chapter::kFlywheel)->pieces[1]);
        const bool negative = std::stod(table.rows.at(0).at(1)) < 0;
        EXPECT_EQ(table.heads,
                  (Texts{"Order", negative ? "Neg Area" : "Pos Area", negative ? "Pos Area" : "Neg Area"}));
        seconds.push_back(table.heads[1]);
    }
    EXPECT_NE(seconds[0], seconds[1]) << "the other way round it begins with the other";
}

TEST_F(Reports, MassesAndLoadsAreThereAsSoonAsThereIsOne) {
    const auto there = [] { return !Row_Of(Made(), Chapter::kModel, "Mass of Link").empty(); };
    for (int link = 2; link <= 4; ++link) {
        Model.LinkMass(link) = Model.LinkInertia(link) = Model.ExtForceMag(link) = Model.ExtTorque(link) = 0;
    }
    Model.FrictionForce = 0;
    EXPECT_FALSE(there());
    Single* some[] = {&Model.FrictionForce, &Model.LinkMass(2), &Model.LinkInertia(3), &Model.ExtForceMag(4),
                      &Model.ExtTorque(4),  &Model.LinkMass(4), &Model.ExtForceMag(3), &Model.LinkInertia(2)};
    for (Single* one : some) {
        for (const double value : {1.0, 0.5}) {
            *one = value;
            EXPECT_TRUE(there());
        }
        *one = 0;
    }
}

TEST_F(Reports, NumbersOfATableStandBetweenItsNamesAndItsUnits) {
    Make_The_Press();
    int tables = 0;
    for (const Report_Chapter& chapter : Made().chapters)
        for (const Report_Piece& piece : chapter.pieces) {
            const auto* table = std::get_if<Report_Table>(&piece);
            if (!table || table->heads.empty() || table->heads.back() != "Unit") continue;
            ++tables;
            EXPECT_EQ(table->first_number, 1) << chapter.title;
            EXPECT_EQ(table->numbers, static_cast<int>(table->heads.size()) - 2) << chapter.title;
            for (const auto& row : table->rows) EXPECT_EQ(row.size(), table->heads.size()) << row.front();
        }
    EXPECT_GT(tables, 4);
    Model.Synthesized = true;
    for (const auto& [chapter, index] : {std::pair(Chapter::kModel, 1U), std::pair(Chapter::kClass, 0U),
                                         std::pair(Chapter::kFlywheel, 1U), std::pair(Chapter::kSynthesis, 4U)}) {
        const Report report = Made();
        const auto& table = std::get<Report_Table>(Chapter_Of(report, chapter)->pieces[index]);
        // Pulses are numbers in all columns, the class is words, and of two dyads the left one's are in a column.
        EXPECT_EQ(table.first_number, chapter == Chapter::kFlywheel ? 0 : 1) << Name_Of(chapter);
        EXPECT_EQ(table.numbers, chapter == Chapter::kFlywheel ? 3
                                 : chapter == Chapter::kClass  ? 0
                                                               : 1)
            << Name_Of(chapter);
    }
}

TEST_F(Reports, ASynthesisOfThreePositionsIsThatOfItsScreen) {
    In_Units(5);
    for (const bool pivots : {false, true}) {
        Model.SynPositions = pivots ? 3 : 2;
        Model.SpecifiedPivots = pivots;
        auto& form = dynamic_cast<frm_Synth3&>(platform::Screens::Get("frm_Synth3"));
        form.Form_Activate();
        desktop.Expect_Message_With(" The resulting link lengths and coupler point location are:");
        Press(form, "cmd_Calc");
        const Report report = Made();
        const auto row = [&](const std::string& name) { return Row_Of(report, Chapter::kSynthesis, name); };
        const auto box = [&](const char* name, int index = platform::kNoIndex) {
            return form.Text(name, index).Text.Get();
        };
        for (const char* name : {"P21x", "P21y", "P31x", "P31y"})
            EXPECT_EQ(row(name), (Texts{box(("txt_" + std::string(name)).c_str()), "mm"})) << name;
        for (const char* name : {"Alpha2", "Alpha3"})
            EXPECT_EQ(row(name), (Texts{box(("txt_" + std::string(name)).c_str()), "deg"})) << name;
        const char* names[] = {"O2", "O4", "P1"};
        for (const std::string name : names)
            for (const int axis : {0, 1})
                EXPECT_EQ(row(name + (axis == 0 ? "x" : "y")),
                          pivots ? (Texts{box(("txt_" + name).c_str(), axis), "mm"}) : Texts{})
                    << name;
        for (const std::string position : {"2", "3"})
            EXPECT_EQ(row("Beta" + position), (Texts{box(("txt_Beta" + position).c_str()), "Gamma" + position,
                                                     box(("txt_Gamma" + position).c_str()), "deg"}));
        EXPECT_EQ(row("W mag"), (Texts{form.lbl_Wmag[0].Caption, "U mag", form.lbl_Umag[0].Caption, "mm"}));
        EXPECT_EQ(row("Z mag"), (Texts{form.lbl_Zmag[0].Caption, "S mag", form.lbl_Smag[0].Caption, "mm"}));
        EXPECT_EQ(row("Theta"), (Texts{form.lbl_Theta.Caption, "Sigma", form.lbl_Sigma.Caption, "deg"}));
        EXPECT_EQ(row("Phi"), (Texts{form.lbl_Phi.Caption, "Xi", form.lbl_Xi.Caption, "deg"}));
    }
}

TEST_F(Reports, CognatesAreThoseOfTheirScreen) {
    Make_The_Press();
    Model.CognatesDue = true;
    for (int cognate = 1; cognate <= 3; ++cognate)
        for (int item = 0; item <= 6; ++item) Model.Cognates(cognate, item) = 99;
    const Report report = Made();
    auto& form = dynamic_cast<frm_Cayley&>(platform::Screens::Get("frm_Cayley"));
    Inside(form, [&] {
        for (int cognate = 0; cognate <= 2; ++cognate) {
            Choose_Option(form, "opt_Cognate", cognate);
            const auto found = [&](const std::string& name) {
                const Texts row = Row_Of(report, Chapter::kCognates, name);
                return row.size() == 4 ? row[static_cast<std::size_t>(cognate)] : "";
            };
            const char* names[] = {"Link 1 (Ground)", "Link 2 (Crank)",     "Link 3 (Coupler)",
                                   "Link 4 (Rocker)", "Dist to Coupler Pt", "Angle to Coupler Pt"};
            for (int i = 0; i < 6; ++i) EXPECT_EQ(found(names[i]), form.txt_Linkout[i].Text.Get()) << names[i];
        }
    });
}

}  // namespace verlink::test
