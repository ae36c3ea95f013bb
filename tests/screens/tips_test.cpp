// Tips that differ from control to control of a row, or from state to state.
#include "core/linkage_door.h"
#include "core/results.h"
#include "platform/deed.h"
#include "shell/history.h"
#include "tests/screens/forces_fixture.h"

namespace verlink::test {
namespace {

using platform::ComboBox;
using platform::CommandButton;
using platform::Screens;
using platform::Visual;

class Tips : public Forces {
   protected:
    static std::string Of(const char* screen, const char* control, int index = platform::kNoIndex) {
        return Screens::Get(screen).Get<Visual>(control, index).Tip;
    }
    static bool Ends(const std::string& tip, const std::string& end) { return tip.ends_with(end); }
};

TEST_F(Tips, OfLoadsSayWhyALinkHasNone) {
    for (const char* box : {"txt_MagForce", "txt_AngForce", "txt_DistP", "txt_AngP", "txt_Torque"}) {
        EXPECT_TRUE(Ends(Of("frm_MassProp", box, 2), "; link 2 carries no external loads")) << box;
        for (const int link : {3, 4}) EXPECT_EQ(Of("frm_MassProp", box, link).find(';'), std::string::npos) << box;
    }
    for (const int link : {2, 4})
        EXPECT_TRUE(Ends(Of("frm_MassProp", "txt_Frict", link), "; friction acts on link 3 alone")) << link;
    EXPECT_EQ(Of("frm_MassProp", "txt_Frict", 3).find(';'), std::string::npos);
}

TEST_F(Tips, OfARowNameTheirLink) {
    const std::pair<const char*, const char*> rows[] = {
        {"txt_Mass", "Mass of link "},
        {"txt_Inertia", "Mass moment of inertia of link "},
        {"txt_DistCG", "Distance from the pivot of link "},
        {"txt_AngCG", "Angle from the line of centers of link "},
        {"txt_MagForce", "Magnitude of the constant external force on link "},
        {"txt_AngForce", "Direction of the external force on link "},
        {"txt_DistP", "Distance from the mass centre of link "},
        {"txt_AngP", "Angle from the line of centers of link "},
        {"txt_Torque", "External torque on link "},
        {"txt_Frict", "Friction force on link "}};
    for (const auto& [box, words] : rows)
        for (const int link : {2, 3, 4})
            EXPECT_TRUE(Of("frm_MassProp", box, link).starts_with(words + std::to_string(link))) << box << link;
    for (const int link : {2, 4}) {
        const std::string of = " of the counterweight on link " + std::to_string(link);
        EXPECT_TRUE(Of("frm_Balance", "txt_BerkMass", link).starts_with("Mass" + of));
        EXPECT_TRUE(Of("frm_Balance", "txt_Radius", link).starts_with("Radius" + of));
        EXPECT_TRUE(Of("frm_Balance", "txt_MRproduct", link).starts_with("Mass times radius" + of));
    }
}

TEST_F(Tips, OfSolveSayWithWhatItSolvesOrWhyItDoesNot) {
    auto& form = Screens::Get("frm_MassProp");
    const auto tip = [] { return Of("frm_MassProp", "cmd_Solve"); };
    const std::string plain = "Solve for the forces and torques at every step with the data shown";
    Inside(form, [&] {
        EXPECT_EQ(tip(), plain);
        Model.TorqueImported = true;
        form.Form_Activate();
        EXPECT_EQ(tip(), plain + " and the imported torque");
        Tick(form, "chk_Torque", false);
        EXPECT_EQ(tip(), plain);
        Model.TorqueImported = Model.DiskFile = true;
        Tick(form, "chk_Torque", true);
        EXPECT_EQ(tip(), "The torque table came with the file: clear its box, or leave and come back, to solve");
    });
}

TEST_F(Tips, OfSolveSayWhatIsMissingWhereAnUndoTookTheRun) {
    auto& form = Screens::Get("frm_MassProp");
    Run_Dropped();
    The_History().Begin();
    Inside(form, [&] {
        {
            const platform::Deed deed("weigh");
            Model.LinkMass(3) = 2;
        }
        The_History().Undo();
        EXPECT_FALSE(form.Get<CommandButton>("cmd_Solve").Enabled);
        EXPECT_EQ(Of("frm_MassProp", "cmd_Solve"), "Calculate the linkage on the input screen first");
    });
    Run_Holds();
    Inside(form, [] {
        EXPECT_EQ(Of("frm_MassProp", "cmd_Solve"),
                  "Solve for the forces and torques at every step with the data shown");
    });
}

TEST_F(Tips, OfAStudyTellItsFieldsApart) {
    for (const auto& [row, of] : {std::pair(1, " of the first field"), {2, " of the second field"}}) {
        for (const char* box : {"txt_From", "txt_To", "txt_Count"})
            EXPECT_NE(Of("frm_Studies", box, row).find(of), std::string::npos) << box << row;
    }
    EXPECT_EQ(Of("frm_Studies", "cmb_Sweep", 1), "The field that moves, as the model file calls it");
    EXPECT_EQ(Of("frm_Studies", "cmb_Sweep", 2), "A second field that moves, for a map; or none");
    for (int row = 1; row <= 6; ++row) {
        const std::string of = ", tolerance " + std::to_string(row);
        EXPECT_TRUE(Ends(Of("frm_Studies", "cmb_Tolerance", row), of)) << row;
        EXPECT_TRUE(Ends(Of("frm_Studies", "txt_PlusMinus", row), of)) << row;
        EXPECT_TRUE(Ends(Of("frm_Studies", "cmb_Spread", row), of)) << row;
    }
    for (const char* control : {"cmb_Statistic", "txt_Angle", "cmb_Variable", "cmb_Component"}) {
        EXPECT_TRUE(Ends(Of("frm_Studies", control, 0), " of the measure")) << control;
        EXPECT_TRUE(Ends(Of("frm_Studies", control, 1), " of the bound")) << control;
    }
    EXPECT_TRUE(Of("frm_Studies", "txt_Words", 0).starts_with("The measure in words"));
    EXPECT_TRUE(Of("frm_Studies", "txt_Words", 1).starts_with("The bound in words"));
}

TEST_F(Tips, OfATaskNameTheirPositionTheirPivotAndTheirWeight) {
    for (int i = 1; i <= 5; ++i) {
        const std::string at = " of position " + std::to_string(i);
        EXPECT_TRUE(Of("frm_Explore", "txt_X", i).starts_with("X" + at));
        EXPECT_TRUE(Of("frm_Explore", "txt_Y", i).starts_with("Y" + at));
        EXPECT_TRUE(Of("frm_Explore", "txt_Angle", i).starts_with("Angle" + at));
    }
    const char* pivots[] = {"left fixed pivot", "left moving pivot", "right fixed pivot", "right moving pivot"};
    const char* merits[] = {"a large transmission angle", "links of like lengths", "little room on the way",
                            "positions that are met by rounded lengths"};
    for (int i = 0; i < 4; ++i) {
        const std::string moving = i == 1 || i == 3 ? ", with the body in position 1:" : ":";
        EXPECT_TRUE(Of("frm_Explore", "txt_Area", i).starts_with(std::string("Place of the ") + pivots[i] + moving));
        EXPECT_EQ(Of("frm_Explore", "hsc_Weight", i), std::string("Weight of ") + merits[i] + " in the score, 0 to 10");
    }
    auto& count = Screens::Get("frm_Explore").Get<ComboBox>("cmb_Count");
    Inside(Screens::Get("frm_Explore"), [&] {
        EXPECT_EQ(Of("frm_Explore", "chk_Curves"), "The curves of Burmester are those of four positions");
        count.Choose(2);
        EXPECT_TRUE(Of("frm_Explore", "chk_Curves").starts_with("Draws the curves on which the pivots"));
        count.Choose(3);
        EXPECT_EQ(Of("frm_Explore", "chk_Curves"), "The curves of Burmester are those of four positions");
    });
}

TEST_F(Tips, OfTheLivePlotsNumberTheirFunctions) {
    for (int slot = 1; slot <= 4; ++slot) {
        const std::string number = std::to_string(slot);
        EXPECT_EQ(Of("frm_Animate", ("cmb_LiveVar" + number).c_str()), "The variable of function " + number);
        EXPECT_TRUE(
            Of("frm_Animate", ("cmb_LiveCom" + number).c_str()).starts_with("The component of function " + number));
        EXPECT_TRUE(
            Of("frm_Animate", ("cmb_LiveFrame" + number).c_str()).starts_with("The frame of function " + number));
    }
}

TEST_F(Tips, OfTheChoicesSayWhatEachIsFor) {
    EXPECT_EQ(Of("frm_Inputnew", "opt_Calctype", 1), "Calculate at one crank angle");
    EXPECT_TRUE(Of("frm_Inputnew", "opt_Calctype", 2).starts_with("Calculate at equal steps of time"));
    EXPECT_TRUE(Of("frm_Inputnew", "opt_Calctype", 3).starts_with("Calculate at equal steps of crank angle"));
    EXPECT_EQ(Of("frm_Inputnew", "opt_Modulo", 0), "Show angles from -180 to 180 degrees");
    EXPECT_EQ(Of("frm_Inputnew", "opt_Modulo", 1), "Show angles from 0 to 360 degrees");
    const char* drags[] = {"moves the coupler point", "changes the crank's length", "changes the rocker's length",
                           "moves the ground pivot O4", "changes the coupler's length"};
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(Ends(Of("frm_Inputnew", "opt_Shift_Drag", i), drags[i])) << i;
    EXPECT_EQ(Of("frm_PlotSelect1", "opt_Coord", 0), "Vectors in the global frame");
    EXPECT_EQ(Of("frm_PlotSelect1", "opt_Coord", 1), "Vectors in the frame that turns with a link");
    EXPECT_EQ(Of("frm_PlotSelect1", "opt_PrintSet", 0), "Choose all functions at once from a list");
    EXPECT_EQ(Of("frm_PlotSelect1", "opt_PrintSet", 1), "Choose function by function");
    EXPECT_TRUE(Of("frm_PlotSelect2", "opt_Plotstyle", 0).starts_with("Windows on one common axis"));
    EXPECT_EQ(Of("frm_PlotSelect2", "opt_Plotstyle", 1), "Graphs with labels, grid and legends");
    const char* backs[] = {"White graphs", "Blue graphs", "Gray graphs"};
    for (int i = 0; i < 3; ++i) EXPECT_EQ(Of("frm_Balance", "opt_Back", i), backs[i]);
}

}  // namespace
}  // namespace verlink::test
