// Studies of few linkages or none, and what is left of one when it is dropped.
#include <string>

#include "core/numeric.h"
#include "platform/clipboard.h"
#include "tests/screens/frm_studies_fixture.h"

namespace verlink::test {
namespace {

using StudiesFew = Studies;

TEST_F(StudiesFew, ASweepOfOneLinkageIsToldAndPickedAsAnyOther) {
    Inside([&] {
        Sweep_Cranks("0.5", "0.5", "1");
        Solve();
        EXPECT_EQ(Told(), "Of the model 7; in the sweep from 3.5 to 3.5.");
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().starts_with("1 linkage, ")) << form.lbl_Progress.Caption.Get();
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().ends_with(" a second.")) << form.lbl_Progress.Caption.Get();
        EXPECT_TRUE(form.cmd_Before.Enabled);
        EXPECT_TRUE(form.cmd_After.Enabled);
        form.cmd_Before.OnClick();
        EXPECT_EQ(Picked(), "Linkage 1: L2 0.5 in;  max Veloc I 2,3:Mag 3.5 in/sec");
        EXPECT_FALSE(form.cmd_Before.Enabled);
        EXPECT_FALSE(form.cmd_After.Enabled);
        form.cmd_Before.OnClick();
        form.cmd_After.OnClick();
        EXPECT_EQ(form.grf_Sweep.Cursor, 1) << "there is no other";
        EXPECT_EQ(form.grf_Sweep.Sets()[0].legend, "");
    });
}

TEST_F(StudiesFew, AMapOfOneRowIsToldAndPickedAndLeavesNoAxes) {
    Inside([&] {
        Sweep_Cranks("0.5", "0.5", "1");
        Choose(form.cmb_Sweep[2], "L4");
        Put_Box("txt_Count", 2, "1");
        Solve();
        EXPECT_EQ(Told(), "Of the model 7; on the map from 3.5 to 3.5.");
        Sweep_Cranks("0.5", "1.5", "3");
        EXPECT_EQ(form.map_Sweep.Shown().across.title, "") << "what is dropped leaves none";
        EXPECT_EQ(form.map_Sweep.Shown().up.title, "");
        Solve();
        form.map_Sweep.OnPick({2, 0});
        EXPECT_EQ(form.map_Sweep.Picked.Get(), (platform::Color_Map::Cell{2, 0}));
    });
}

TEST_F(StudiesFew, ASpreadOfOneLinkageIsCountedAndSaved) {
    std::string copied;
    platform::Use_Clipboard([&copied](const std::string& text) { copied = text; });
    Inside([&] {
        Tolerate_Crank("0", "uniform", "1");
        Solve();
        double all = 0;
        for (const double count : form.his_Spread.Shown.Get().counts) all += count;
        EXPECT_EQ(all, 1);
        EXPECT_TRUE(Told().starts_with("Of the model 7, mean 7, ")) << Told();
        form.his_Spread.OnPick(8);
        EXPECT_TRUE(Picked().ends_with(": 0 linkages; below that 100 of 100.")) << Picked();
        Pick_Menu(form, "mnu_CopyTable");
        EXPECT_TRUE(copied.starts_with("Below share (%)\t")) << copied;
    });
    platform::Use_Clipboard(nullptr);
}

TEST_F(StudiesFew, AMeasureThatNoLinkageHasLeavesNoSpreadAndNoTable) {
    // At 180 degrees crank and ground are longer than the other two.
    Model.L2 = 3, Model.L4 = 2.2;
    Inside([&] {
        Tolerate_Crank("0.001", "uniform", "20");
        Write(0, "at 180 Trans Ang");
        ASSERT_EQ(form.lbl_Fault.Caption.Get(), "");
        form.hsc_Step.SetValue(18);
        Solve();
        EXPECT_EQ(form.Found().done, 20U);
        EXPECT_TRUE(form.his_Spread.Shown.Get().counts.empty());
        EXPECT_EQ(Told(), "");
        form.his_Spread.OnPick(7);
        EXPECT_EQ(Picked(), "");
        desktop.Expect_Message("There is no table to be saved. Start the study first.");
        Pick_Menu(form, "mnu_CopyTable");
    });
}

TEST_F(StudiesFew, AMeasureThatIsNoughtStandsInTheMiddleOfANarrowScale) {
    Inside([&] {
        Tolerate_Crank("0.001", "uniform", "20");
        Write(0, "range Omega2");
        ASSERT_EQ(form.lbl_Fault.Caption.Get(), "");
        Solve();
        EXPECT_DOUBLE_EQ(form.his_Spread.Shown.Get().from, -1e-6);
        EXPECT_DOUBLE_EQ(form.his_Spread.Shown.Get().to, 1e-6);
    });
}

TEST_F(StudiesFew, ASpreadThatIsDroppedIsGoneFromItsChartAndFromThePicture) {
    Inside([&] {
        Tolerate_Crank("0.03", "uniform", "200");
        Solve();
        EXPECT_FALSE(form.his_Spread.Shown.Get().counts.empty());
        EXPECT_NE(form.lbl_Step.Caption.Get().find("coupler point"), std::string::npos);
        Put_Box("txt_Samples", platform::kNoIndex, "300");
        EXPECT_TRUE(form.his_Spread.Shown.Get().counts.empty());
        EXPECT_EQ(form.lbl_Step.Caption.Get(), "Theta2 0 deg");
        EXPECT_FALSE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
        Solve();
        Choose_Option(form, "opt_Kind", 0);
        form.his_Spread.OnPick(7);
        EXPECT_EQ(Picked(), "") << "a sweep has nothing to count";
    });
}

TEST_F(StudiesFew, WithoutAStudyThereIsNothingToCountNorToTake) {
    Inside([&] {
        form.his_Spread.OnPick(7);
        EXPECT_EQ(Picked(), "");
        const Single crank = Model.L2;
        form.cmd_Take.OnClick();
        Solve();
        form.cmd_Take.OnClick();
        EXPECT_EQ(Model.L2, crank);
        EXPECT_TRUE(Model.StudySettings.empty());
    });
}

TEST_F(StudiesFew, ARunOfTwoPositionsHasABarAndAModelWithoutARunHasNoPicture) {
    Model.ThetaEnd = 10, Model.ThetaEndRad = 10 * kDegToRad;
    Inside([&] {
        EXPECT_TRUE(form.hsc_Step.Enabled);
        EXPECT_EQ(form.hsc_Step.Max(), 1);
        EXPECT_EQ(form.lbl_Step.Caption.Get(), "Theta2 0 deg");
    });
    Model.Calctype = 0;
    Inside([&] {
        EXPECT_FALSE(form.hsc_Step.Enabled);
        EXPECT_EQ(form.hsc_Step.Max(), 0);
        EXPECT_EQ(form.lbl_Step.Caption.Get(), "");
    });
}

TEST_F(StudiesFew, CountsGoUpToTheMostThatAPlotAndAFileHold) {
    Inside([&] {
        Put_Box("txt_Count", 1, "5000");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        Choose(form.cmb_Sweep[2], "L4");
        Put_Box("txt_Count", 1, "500");
        Put_Box("txt_Count", 2, "500");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        Put_Box("txt_Count", 2, "501");
        EXPECT_NE(form.lbl_Fault.Caption.Get(), "");
        Choose_Option(form, "opt_Kind", 1);
        Put_Box("txt_Seed", platform::kNoIndex, "1e17");
        EXPECT_EQ(form.txt_Seed.Text.Get(), "9007199254740992") << "beyond, a number read back is another";
    });
}

TEST_F(StudiesFew, WhatCannotBeReadIsNotChangedByAListEither) {
    Model.StudySettings = "{\"version\": 7}";
    Inside([&] {
        form.cmb_Frame.Text = "Local";
        form.cmb_Frame.OnClick();
        form.opt_Kind[1].Value = true;
        form.opt_Kind[1].OnClick();
        EXPECT_EQ(Model.StudySettings, "{\"version\": 7}");
    });
}

TEST_F(StudiesFew, AStatisticThatIsEmptiedSaysNothing) {
    Inside([&] {
        Write(0, kPin);
        Write(1, "min Trans Ang > 40");
        for (const int index : {0, 1}) {
            form.MoveFocus(&Choice(index).cmb_Statistic);
            Choice(index).cmb_Statistic.Text = "";
            form.MoveFocus(&form.cmd_Start);
        }
        EXPECT_EQ(form.The_Settings().measure, kPin);
        EXPECT_EQ(form.The_Settings().keep, "min Trans Ang > 40");
    });
}

}  // namespace
}  // namespace verlink::test
