// What the summary panels show of the linkage and of the run.
#include <gtest/gtest.h>

#include "core/linkage_model.h"
#include "dynamics/units.h"
#include "output/panels.h"
#include "screens/summary_panel.h"
#include "tests/support/fixture.h"

namespace verlink::test {

namespace {

struct Panels : Fixture {
    Panels() {
        Use_Units(1);
        Model.L1 = 2.667;
        Model.L2 = 1.115;
        Model.L3 = 2.5;
        Model.L4 = 2.25;
        Model.Rpa = 1.697;
        Model.Delta = -92.66;
        Model.CircuitName = "Open";
        Model.ThetaStartStr = "45";
        Model.ThetaEndStr = "405";
        Model.ThetaStepStr = "2";
        Model.ThetaZero = 30.5;
        Model.Omega2Input = 10;
        Model.Omega2 = -8;
        Model.Alpha2 = 1.5;
    }
    using Texts = std::vector<std::string>;
    template <class Controls>
    static Texts Captions(const Controls& controls, int first, int last) {
        Texts texts;
        for (const auto& control : controls)
            if (control->Index() >= first && control->Index() <= last) texts.push_back(control->Caption);
        return texts;
    }
    template <class Controls>
    static void Expect_Visible(const Controls& controls, int first, int last, bool visible) {
        for (const auto& control : controls) {
            if (control->Index() < first || control->Index() > last) continue;
            EXPECT_EQ(control->Visible.Get(), visible) << control->ObjectName();
        }
    }
    void Expect_All_Shown() const {
        Expect_Visible(panel.lbl_Linkout2, 0, 6, true);
        Expect_Visible(panel.lbl_Initial, 0, 6, true);
        Expect_Visible(panel.lbl_Unit, 1, 6, true);
    }

    platform::Screen screen{"frm_Stage"};
    Summary_Panel panel{screen};
};

}  // namespace

TEST_F(Panels, CaptionsOfTheLinksAreFixed) {
    EXPECT_EQ(Captions(panel.lbl_LinkName, 0, 5),
              (Texts{"Link 1 (Ground)", "Link 2 (Crank)", "Link 3 (Coupler)", "Link 4 (Rocker)",
                     "Dist. from I 2,3 to Coupler Pt", "Angle from Link 3 to Coupler Pt"}));
    EXPECT_EQ(panel.fra_Links.Caption, "Linkage Data");
    EXPECT_EQ(panel.fra_Initial.Caption, "Initial Conditions");
}

TEST_F(Panels, LinkDataAreLengthsWithTheDecimalsOfTheUnitSystemAndTheTextOfTheAngle) {
    Model.DecLengthShown = 2;
    Show_Link_Data(screen);
    EXPECT_EQ(Captions(panel.lbl_Links, 0, 5), (Texts{"2.67", "1.12", "2.50", "2.25", "1.70", "-92.66"}));
}

TEST_F(Panels, LinkDataAreInTheShownUnitOfCentimetresAndMillimetres) {
    for (const auto& [units, first] : {std::pair(3, "2.7"), std::pair(4, "266.7"), std::pair(5, "2,667.0")}) {
        Use_Units(units);
        Model.DecLengthShown = 1;
        Show_Link_Data(screen);
        EXPECT_EQ(panel.lbl_Links[0].Caption, first);
    }
}

TEST_F(Panels, OfATimeRunNameTheThreeTimesAndTheStart) {
    Show_Time_Panel(screen);
    Expect_All_Shown();
    EXPECT_EQ(Captions(panel.lbl_Linkout2, 0, 6), (Texts{"Open", "45", "405", "2", "30.5", "10", "1.5"}));
    EXPECT_EQ(Captions(panel.lbl_Initial, 1, 6),
              (Texts{"Start Time", "End Time", "Delta Time", "Theta0", "Omega0", "Alpha0"}));
    EXPECT_EQ(Captions(panel.lbl_Unit, 1, 6), (Texts{"sec", "sec", "sec", "deg", "rad/s", "rad/s/s"}));
    EXPECT_EQ(Captions(panel.lbl_Units, 0, 4), Texts(5, "in"));
    EXPECT_NE(panel.lbl_Links[5].Caption, "");
}

TEST_F(Panels, OfADrivenRunNameTheTimesOfItsTableAndNoStartThatItHasNot) {
    // The texts of the limits are still those of 45 to 405 by 2.
    Model.TimeStart = 0.25F;
    Model.TimeStep = 1.0F / 360;
    Model.NSteps = 180;
    for (const int mode : {4, 5}) {
        Model.Calctype = 3;
        Show_Time_Panel(screen);
        Model.Calctype = mode;
        Show_Time_Panel(screen);
        EXPECT_EQ(Captions(panel.lbl_Linkout2, 0, 6), (Texts{"Open", "0.25", "0.75", "0.0028", "", "", ""}));
        EXPECT_EQ(Captions(panel.lbl_Initial, 1, 6), (Texts{"Start Time", "End Time", "Delta Time", "", "", ""}));
        EXPECT_EQ(Captions(panel.lbl_Unit, 1, 6), (Texts{"sec", "sec", "sec", "", "", ""}));
    }
}

TEST_F(Panels, OfAnAngleRunNameTheAnglesAndTheSpeedAndBlankTheRest) {
    Show_Time_Panel(screen);
    Use_Units(5);
    Model.DecLengthShown = 1;
    Show_Angle_Panel(screen);
    EXPECT_EQ(Captions(panel.lbl_Links, 0, 5),
              (Texts{"2,667.0", "1,115.0", "2,500.0", "2,250.0", "1,697.0", "-92.66"}));
    EXPECT_EQ(Captions(panel.lbl_Linkout2, 0, 6), (Texts{"Open", "45", "405", "2", "10", "", ""}));
    EXPECT_EQ(Captions(panel.lbl_Initial, 1, 6), (Texts{"Min Theta", "Max Theta", "Delta Theta", "Omega2", "", ""}));
    EXPECT_EQ(Captions(panel.lbl_Unit, 1, 6), (Texts{"deg", "deg", "deg", "rad/s", "", ""}));
    EXPECT_EQ(Captions(panel.lbl_Units, 0, 4), Texts(5, "mm"));
}

TEST_F(Panels, OfOnePositionShowPlainLengthsAndHideTheRange) {
    Show_Linkage_Panel(screen);
    EXPECT_EQ(Captions(panel.lbl_Links, 0, 5), (Texts{"2.667", "1.115", "2.5", "2.25", "1.697", "-92.66"}));
    EXPECT_EQ(Captions(panel.lbl_Units, 0, 4), Texts(5, "in"));
    Expect_Visible(panel.lbl_Linkout2, 0, 3, false);
    Expect_Visible(panel.lbl_Initial, 0, 3, false);
    Expect_Visible(panel.lbl_Unit, 0, 3, false);
    Expect_Visible(panel.lbl_Linkout2, 4, 6, true);
    EXPECT_EQ(Captions(panel.lbl_Linkout2, 4, 6), (Texts{"45", "-8", "1.5"}));
}

TEST_F(Panels, OfOnePositionAreInTheShownUnitOfCentimetresAndMillimetres) {
    Model.L1 = 0.02667;
    for (const auto& [units, length, unit] : {std::tuple(4, "2.667", "cm"), std::tuple(5, "26.67", "mm")}) {
        Use_Units(units);
        Show_Linkage_Panel(screen);
        EXPECT_EQ(panel.lbl_Links[0].Caption, length);
        EXPECT_EQ(Captions(panel.lbl_Units, 0, 4), Texts(5, unit));
    }
}

TEST_F(Panels, TheRunSaysWhichOneIsShown) {
    Model.Calctype = 1;
    Show_Run_Panel(screen);
    EXPECT_FALSE(panel.lbl_Initial[1].Visible);
    for (const auto& [calctype, first] : {std::pair(2, "Start Time"), std::pair(3, "Min Theta"),
                                          std::pair(4, "Start Time"), std::pair(5, "Start Time")}) {
        Model.Calctype = calctype;
        Show_Run_Panel(screen);
        EXPECT_TRUE(panel.lbl_Initial[1].Visible);
        EXPECT_EQ(panel.lbl_Initial[1].Caption, first) << calctype;
    }
}

TEST_F(Panels, AUnitIsNotShownBeforeItIsKnown) {
    for (const auto& label : panel.lbl_Units) EXPECT_EQ(label->Caption, "");
}

TEST_F(Panels, ValuesOfOnePositionKeepTheirNamesBehindAnotherRun) {
    Show_Time_Panel(screen);
    Show_Angle_Panel(screen);
    Show_Linkage_Panel(screen);
    EXPECT_EQ(Captions(panel.lbl_Initial, 4, 6), (Texts{"Theta2", "Omega2", "Alpha2"}));
    EXPECT_EQ(Captions(panel.lbl_Unit, 4, 6), (Texts{"deg", "rad/s", "rad/s/s"}));
}

TEST_F(Panels, TheRangeComesBackBehindOnePosition) {
    Show_Linkage_Panel(screen);
    Show_Angle_Panel(screen);
    Expect_All_Shown();
    Show_Linkage_Panel(screen);
    Show_Time_Panel(screen);
    Expect_All_Shown();
}

TEST_F(Panels, AScreenWithoutReadOutsIsLeftAlone) {
    platform::Screen bare("frm_Bare");
    Show_Linkage_Panel(bare);
    Show_Time_Panel(bare);
    Show_Angle_Panel(bare);
    EXPECT_TRUE(bare.Controls().empty());
}

}  // namespace verlink::test
