// The screen of studies: its settings are the record's, its numbers those of the linkages, and looking changes nothing.
#include <cmath>
#include <numeric>

#include "core/linkage_door.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/clipboard.h"
#include "screens/frm_homescreen.h"
#include "tests/screens/frm_studies_fixture.h"

namespace verlink::test {

TEST_F(Studies, AreTheLastEntryOfTools) {
    auto& home = dynamic_cast<frm_HomeScreen&>(platform::Screens::Get("frm_HomeScreen"));
    EXPECT_EQ(home.mnu_Tools.Children().back(), &home.mnu_Studies);
    desktop.Expect_Screen("frm_Studies", [](Screen& screen) { screen.Hide(); });
    Pick_Menu(home, "mnu_Studies");
}

TEST_F(Studies, OpeningAndLookingChangeNothing) {
    const std::string before = File_Content();
    Inside([&] {
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        EXPECT_EQ(form.txt_From[1].Text.Get(), "0.9");
        EXPECT_EQ(form.txt_To[1].Text.Get(), "1.1");
        EXPECT_EQ(form.lbl_SweepUnit[1].Caption.Get(), "in");
        EXPECT_FALSE(form.fra_Tolerance.Visible);
        Solve();
        form.hsc_Step.SetValue(9);
        EXPECT_EQ(form.lbl_Step.Caption.Get(), "Theta2 90 deg");
        Press(form, "cmd_After");
        Press(form, "cmd_After");
        EXPECT_EQ(form.grf_Sweep.Cursor, 2);
        Press(form, "cmd_Cancel");
    });
    EXPECT_EQ(Model.StudySettings, "");
    EXPECT_EQ(File_Content(), before);
    EXPECT_FALSE(The_History().Can_Undo());
    EXPECT_FALSE(form.Timer1.Enabled);
}

TEST_F(Studies, ASweepHasTheNumbersOfItsLinkages) {
    Inside([&] {
        Put_Box("txt_From", 1, "0.5");
        Put_Box("txt_To", 1, "1.5");
        Put_Box("txt_Count", 1, "21");
        Write(0, "max Veloc I 2,3:Mag");
        EXPECT_EQ(Choice(0).cmb_Statistic.Text, "max");
        Solve();
        ASSERT_EQ(form.grf_Sweep.NumPoints(), 21);
        study::Words words;
        words.sweeps = {"L2=0.5:1.5:21"};
        words.measures = {"max Veloc I 2,3:Mag"};
        const std::vector<float> expected = One_By_One(words);
        for (std::size_t i = 0; i < 21; ++i) {
            const double length = 0.5 + 0.05 * static_cast<double>(i);
            EXPECT_NEAR(form.grf_Sweep.Places[i], length, 1e-6);
            EXPECT_EQ(form.grf_Sweep.Sets()[0].values[i], expected[i]);
            // A pin of the crank goes as fast as its radius says.
            EXPECT_NEAR(form.grf_Sweep.Sets()[0].values[i], 7 * length, 1e-4);
        }
        EXPECT_EQ(form.grf_Sweep.GraphTitle, "max Veloc I 2,3:Mag (in/sec)");
        EXPECT_EQ(form.grf_Sweep.BottomTitle, "L2 (in)");
        EXPECT_EQ(form.lbl_Told.Caption.Get(), "Of the model 7; in the sweep from 3.5 to 10.5.");
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().starts_with("21 linkages")) << form.lbl_Progress.Caption.Get();
    });
}

TEST_F(Studies, AChangeIsOneStepOfUndoAndDropsWhatWasFound) {
    Inside([&] {
        Solve();
        EXPECT_EQ(form.grf_Sweep.NumPoints(), 41);
        Model_Saved();
        Put_Box("txt_From", 1, "20 mm");
        EXPECT_FALSE(Model.SavedFlag) << "the file has the settings, too";
        Settings kept;
        std::string fault;
        ASSERT_TRUE(study::Read_Settings(Model.StudySettings, kept, fault)) << fault;
        EXPECT_NEAR(kept.sweeps[0].from, 20 / 25.4, 1e-6);
        EXPECT_EQ(form.grf_Sweep.NumPoints(), 0);
        EXPECT_EQ(form.lbl_Progress.Caption.Get(), "");
        ASSERT_TRUE(The_History().Can_Undo());
        EXPECT_EQ(The_History().Steps(), 1U);
        Pick_Menu(form, "mnu_Undo");
        EXPECT_EQ(Model.StudySettings, "");
        EXPECT_TRUE(Model.SavedFlag);
        EXPECT_EQ(form.txt_From[1].Text.Get(), "0.9");
        Pick_Menu(form, "mnu_Redo");
        EXPECT_EQ(form.txt_From[1].Text.Get(), "0.7874016");
    });
}

TEST_F(Studies, WhatIsWrongGetsTheLineOfTheBatch) {
    Inside([&] {
        Write(0, "mux Theta4");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "there is no measure \"mux\"; did you mean max?");
        EXPECT_EQ(Choice(0).txt_Words.Text, "mux Theta4");
        EXPECT_EQ(Choice(0).cmb_Statistic.Text, "");
        Press(form, "cmd_Start");
        EXPECT_FALSE(form.Timer1.Enabled);
        Write(0, "max Theta4");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        Write(1, "min Trans Angl > 40");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "there is no variable \"Trans Angl\"; did you mean Trans Ang?");
        Write(1, "");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        form.MoveFocus(&form.cmb_Sweep[1]);
        form.cmb_Sweep[1].Text = "LinkMas(3)";
        form.MoveFocus(&form.cmd_Start);
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "a study moves no field \"LinkMas(3)\"; did you mean LinkMass(3)?");
        EXPECT_EQ(form.cmb_Sweep[1].Text.Get(), "LinkMas(3)");
        Choose(form.cmb_Sweep[1], "(none)");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "Choose a field to sweep.");
        Choose(form.cmb_Sweep[1], "L3");
        Put_Box("txt_Count", 1, "5001");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(),
                  "The plot takes 5000 values of one field at most, the map 250000 of two; verlink-batch takes more.");
    });
}

TEST_F(Studies, WhatMovesNothingInThisModelIsSaid) {
    Enter_Linkage(Road::kBoxes, [] {
        Model.PolarCoords = false;
        Model.Link1X = 4;
        Model.Link1Y = 0;
    });
    Inside([&] {
        EXPECT_EQ(form.cmb_Tolerance[4].Text.Get(), "Link1X");
        EXPECT_EQ(std::ranges::find(form.cmb_Sweep[1].Items(), "L1"), form.cmb_Sweep[1].Items().end());
        form.MoveFocus(&form.cmb_Sweep[1]);
        form.cmb_Sweep[1].Text = "L1";
        form.MoveFocus(&form.cmd_Start);
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "L1 follows from Link1X and Link1Y in this model; move those");
    });
    Model.StudySettings.clear();
    Model.Calctype = 4;
    Inside([&] {
        EXPECT_EQ(form.lbl_Fault.Caption.Get(),
                  "a study takes a model that is run by angle, by time or at one position");
    });
}

TEST_F(Studies, ANumberThatNoFieldHoldsIsToldAndTheBoxShowsWhatStands) {
    Inside([&] {
        for (const char* beyond : {"1e400", "1e39"}) {
            desktop.Expect_Message_With("6");
            Put_Box("txt_From", 1, beyond);
            EXPECT_EQ(form.txt_From[1].Text.Get(), "0.9");
        }
        EXPECT_EQ(Model.StudySettings, "");
    });
    Settings settings;
    settings.sweeps[0] = {"L2", -1e300, 1, 3};
    Model.StudySettings = study::Settings_Text(settings);
    Inside([&] {
        EXPECT_EQ(form.txt_From[1].Text.Get(), "-1E+300");
        Solve();
        EXPECT_TRUE(std::isnan(form.grf_Sweep.Sets()[0].values[0]));
        EXPECT_FALSE(std::isnan(form.grf_Sweep.Sets()[0].values[2]));
    });
}

TEST_F(Studies, WithoutARunItIsSaidWhatIsWanted) {
    Model.Calctype = 0;
    Inside([&] {
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "there is no run yet; the input screen makes one");
        Press(form, "cmd_Start");
        EXPECT_FALSE(form.Timer1.Enabled);
    });
}

TEST_F(Studies, ListsAndWordsSayTheSame) {
    Inside([&] {
        Choose(Choice(0).cmb_Statistic, "at");
        EXPECT_EQ(Choice(0).txt_Words.Text, "at 0 Trans Ang");
        EXPECT_TRUE(Choice(0).txt_Angle.Enabled);
        EXPECT_FALSE(Choice(0).cmb_Component.Enabled);
        Put_Box("txt_Angle", 0, "90");
        Choose(Choice(0).cmb_Variable, "Coupler Pt");
        EXPECT_EQ(Choice(0).txt_Words.Text, "at 90 Coupler Pt:X");
        Choose(Choice(0).cmb_Component, "Mag");
        EXPECT_EQ(form.The_Settings().measure, "at 90 Coupler Pt:Mag");
        Choose(Choice(0).cmb_Statistic, "deviation line");
        EXPECT_EQ(form.The_Settings().measure, "deviation line");
        EXPECT_FALSE(Choice(0).cmb_Variable.Enabled);
        EXPECT_EQ(Choice(1).cmb_Statistic.Text, "(none)");
        Choose(Choice(1).cmb_Statistic, "min");
        EXPECT_EQ(form.The_Settings().keep, "min Trans Ang > 0");
        Choose(*form.keep.cmb_Order, "<=");
        Put_Box("txt_Bound", 1, "40");
        EXPECT_EQ(form.The_Settings().keep, "min Trans Ang <= 40");
        Choose(Choice(1).cmb_Statistic, "(none)");
        EXPECT_EQ(form.The_Settings().keep, "");
    });
}

TEST_F(Studies, WordsStayAsTheyWereWrittenUntilAListIsPicked) {
    Inside([&] {
        Write(0, "at  90.0 Coupler Pt");
        EXPECT_EQ(form.lbl_Fault.Caption.Get(), "");
        for (platform::Control* control : form.Controls())
            if (dynamic_cast<platform::Visual*>(control)) form.MoveFocus(control);
        EXPECT_EQ(form.The_Settings().measure, "at  90.0 Coupler Pt");
        EXPECT_EQ(The_History().Steps(), 1U);
        Choose(Choice(0).cmb_Component, "Y");
        EXPECT_EQ(form.The_Settings().measure, "at 90 Coupler Pt:Y");
    });
}

TEST_F(Studies, ReturnInAListTakesItsTextBeforeItStarts) {
    Inside([&] {
        form.MoveFocus(&form.cmb_Sweep[1]);
        form.cmb_Sweep[1].Text = "Omega2 Input";
        form.cmd_Start.Click();
        EXPECT_EQ(form.The_Settings().sweeps[0].field, "Omega2Input");
        EXPECT_EQ(form.lbl_SweepUnit[1].Caption.Get(), "rad/s");
        To_The_End();
        EXPECT_TRUE(form.Found().Whole());
        EXPECT_EQ(form.grf_Sweep.BottomTitle, "Omega2Input (rad/s)");
    });
}

TEST_F(Studies, TwoFieldsMakeAMapAndAPickBecomesTheLinkage) {
    Inside([&] {
        Put_Box("txt_Count", 1, "5");
        Choose(form.cmb_Sweep[2], "L4");
        Put_Box("txt_Count", 2, "3");
        Solve();
        EXPECT_TRUE(form.map_Sweep.Visible);
        EXPECT_FALSE(form.grf_Sweep.Visible);
        const platform::Color_Map::Content& map = form.map_Sweep.Shown();
        EXPECT_EQ(map.across.count, 5);
        EXPECT_EQ(map.up.count, 3);
        EXPECT_EQ(map.up.title, "L4 (in)");
        study::Words words;
        words.sweeps = {"L2=0.9:1.1:5", "L4=2.7:3.3:3"};
        words.measures = {"min Trans Ang"};
        const std::vector<float> expected = One_By_One(words);
        ASSERT_EQ(map.values.size(), 15U);
        for (std::size_t i = 0; i < 15; ++i) EXPECT_EQ(map.values[i], expected[i]) << i;
        const std::size_t steps = The_History().Steps();
        {
            const platform::Deed deed(form.map_Sweep);
            form.map_Sweep.OnPick({3, 2});
        }
        EXPECT_TRUE(form.lbl_Picked.Caption.Get().starts_with("Linkage 12: L2 1.05 in, L4 3.3 in;  min Trans Ang "))
            << form.lbl_Picked.Caption.Get();
        EXPECT_EQ(The_History().Steps(), steps);
        Press(form, "cmd_Take");
        EXPECT_FLOAT_EQ(static_cast<float>(double{Model.L2}), 1.05F);
        EXPECT_FLOAT_EQ(static_cast<float>(double{Model.L4}), 3.3F);
        EXPECT_FALSE(Model.RunStands);
        EXPECT_EQ(The_History().Steps(), steps + 1);
        EXPECT_TRUE(form.map_Sweep.Shown().values.empty());
        EXPECT_FALSE(form.cmd_Take.Enabled);
        Pick_Menu(form, "mnu_Undo");
        EXPECT_EQ(double{Model.L2}, 1);
        EXPECT_EQ(double{Model.L4}, 3);
    });
}

TEST_F(Studies, TolerancesSpreadTheMeasure) {
    Inside([&] {
        Choose_Option(form, "opt_Kind", 1);
        EXPECT_TRUE(form.fra_Tolerance.Visible);
        EXPECT_EQ(form.cmb_Tolerance[4].Text.Get(), "L1");
        Put_Box("txt_PlusMinus", 1, "0.03");
        for (int row = 2; row <= 4; ++row) Choose(form.cmb_Tolerance[row], "(none)");
        Choose(form.cmb_Spread[1], "uniform");
        Put_Box("txt_Samples", platform::kNoIndex, "5000");
        Write(0, "max Veloc I 2,3:Mag");
        Solve();
        const auto& counts = form.his_Spread.Shown.Get().counts;
        EXPECT_EQ(std::accumulate(counts.begin(), counts.end(), 0.0), 5000);
        const study::Tally& tally = form.Found().summary.measures[0];
        const double sigma = 7 * 0.03 / std::sqrt(3.0);
        EXPECT_NEAR(tally.Deviation(), sigma, 5 * sigma / std::sqrt(5000.0));
        ASSERT_EQ(form.bar_Share.Shown.Get().bars.size(), 1U);
        EXPECT_EQ(form.bar_Share.Shown.Get().bars[0].name, "L2");
        EXPECT_TRUE(form.bar_Share.Shown.Get().bars[0].words.starts_with("100 %"));
        const auto& lines = form.his_Spread.Shown.Get().lines;
        ASSERT_EQ(lines.size(), 4U);
        EXPECT_EQ(lines[3].at, tally.Spread().Quantile(0.5));
        EXPECT_EQ(lines[0].name, "model");
        EXPECT_NE(form.lbl_Step.Caption.Get().find("the coupler point of 2000 linkages, deviations "),
                  std::string::npos);
        form.his_Spread.OnPick(7);
        EXPECT_NE(form.lbl_Picked.Caption.Get().find(" linkages; below that "), std::string::npos);
        EXPECT_FALSE(form.cmd_Take.Enabled);
        EXPECT_TRUE(form.Picture1.OnSeize({0, 0, 0, 0.01}));
        EXPECT_TRUE(form.cmd_Take.Enabled);
    });
}

TEST_F(Studies, AStoppedStudyKeepsWhatIsThereAndSaysSo) {
    Inside([&] {
        Choose_Option(form, "opt_Kind", 1);
        Put_Box("txt_Samples", platform::kNoIndex, "1000000000000");
        Press(form, "cmd_Start");
        while (form.Found().done == 0) form.Timer1.Tick();
        EXPECT_NE(form.lbl_Progress.Caption.Get().find(" of 1000000000000 linkages, "), std::string::npos);
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().ends_with(" left."));
        Press(form, "cmd_Stop");
        To_The_End();
        EXPECT_TRUE(form.lbl_Progress.Caption.Get().starts_with("Stopped after ")) << form.lbl_Progress.Caption.Get();
        EXPECT_FALSE(form.cmd_Stop.Enabled);
        EXPECT_FALSE(form.his_Spread.Shown.Get().counts.empty());
        Press(form, "cmd_Start");
        Press(form, "cmd_Cancel");
    });
    EXPECT_FALSE(form.Timer1.Enabled);
    EXPECT_TRUE(form.Found().ended);
}

TEST_F(Studies, AWindowThatIsClosedEndsTheStudyAndIsGone) {
    Inside([&] {
        Tolerate_Crank("0.03", "normal", "1000000000000");
        Press(form, "cmd_Start");
        form.Close();
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_FALSE(form.Timer1.Enabled);
    EXPECT_TRUE(form.Found().ended);
}

TEST_F(Studies, WhatWasFoundOfAnotherLinkageIsGone) {
    Inside([&] { Solve(); });
    Inside([&] { EXPECT_EQ(form.grf_Sweep.NumPoints(), 41); });
    Enter_Linkage(Road::kBoxes, [] { Model.L3 = 3.6; });
    Inside([&] {
        EXPECT_EQ(form.grf_Sweep.NumPoints(), 0);
        EXPECT_EQ(form.lbl_Told.Caption.Get(), "");
    });
}

TEST_F(Studies, SettingsThatCannotBeReadAreSaidAndStay) {
    Model.StudySettings = "{\"version\": 7}";
    Inside([&] {
        EXPECT_EQ(form.lbl_Fault.Caption.Get(),
                  "The settings that are kept with this model cannot be read, and stay as they are: they were written "
                  "by a newer program.");
        EXPECT_FALSE(form.txt_From[1].Enabled);
        EXPECT_FALSE(form.opt_Kind[1].Enabled);
        EXPECT_FALSE(Choice(0).txt_Words.Enabled);
        Press(form, "cmd_Start");
        EXPECT_FALSE(form.Timer1.Enabled);
    });
    EXPECT_EQ(Model.StudySettings, "{\"version\": 7}");
    Model.StudySettings.clear();
    Inside([&] {
        EXPECT_TRUE(form.txt_From[1].Enabled);
        EXPECT_TRUE(form.opt_Kind[1].Enabled);
        EXPECT_TRUE(Choice(0).txt_Words.Enabled);
    });
}

TEST_F(Studies, SettingsAreShownInTheUnitsOfTheModel) {
    Settings settings;
    settings.sweeps[0] = {"L2", 0.5, 2, 3};
    Model.StudySettings = study::Settings_Text(settings);
    Use_Units(5);
    ASSERT_TRUE(Convert_Units(1, 5));
    const std::string before = Model.StudySettings;
    Inside([&] {
        EXPECT_EQ(form.txt_From[1].Text.Get(), "12.7");
        EXPECT_EQ(form.lbl_SweepUnit[1].Caption.Get(), "mm");
        Solve();
        EXPECT_NEAR(form.grf_Sweep.Places[2], 50.8, 1e-4);
        EXPECT_EQ(Model.StudySettings, before);
        Put_Box("txt_To", 1, "40");
        Settings kept;
        std::string fault;
        ASSERT_TRUE(study::Read_Settings(Model.StudySettings, kept, fault)) << fault;
        EXPECT_EQ(kept.units, 5);
        EXPECT_DOUBLE_EQ(kept.sweeps[0].to, 0.04);
        EXPECT_DOUBLE_EQ(kept.sweeps[0].from, 0.0127);
    });
}

TEST_F(Studies, ReturnInEachBoxTakesItsNumber) {
    Inside([&] {
        Enter(form, "txt_From", 1, "0.7");
        Enter(form, "txt_To", 1, "0.8");
        Enter(form, "txt_Count", 1, "5");
        const auto sweep = form.The_Settings().sweeps[0];
        EXPECT_NEAR(sweep.from, 0.7, 1e-6);
        EXPECT_NEAR(sweep.to, 0.8, 1e-6);
        EXPECT_EQ(sweep.count, 5U);
        Choose_Option(form, "opt_Kind", 1);
        Enter(form, "txt_PlusMinus", 1, "0.25 mm");
        Enter(form, "txt_PlusMinus", 4, "0.5");
        Enter(form, "txt_Samples", platform::kNoIndex, "321");
        Enter(form, "txt_Seed", platform::kNoIndex, "77");
        EXPECT_NEAR(form.The_Settings().tolerances[0].plus_minus, 0.25 / 25.4, 1e-6);
        EXPECT_NEAR(form.The_Settings().tolerances[3].plus_minus, 0.5, 1e-6);
        EXPECT_EQ(form.The_Settings().samples, 321U);
        EXPECT_EQ(form.The_Settings().seed, 77U);
    });
}

TEST_F(Studies, NumbersKeepAllTheirDigitsUntilOthersAreTyped) {
    Settings settings;
    settings.sweeps[0] = {"L2", 1.0 / 3, 2.0 / 3, 9};
    settings.tolerances[0] = {"L3", 1.0 / 7, study::Spread::kUniform};
    for (const auto kind : {Settings::Kind::kSweep, Settings::Kind::kTolerance}) {
        settings.kind = kind;
        Model.StudySettings = study::Settings_Text(settings);
        const std::string before = Model.StudySettings;
        Inside([&] {
            EXPECT_EQ(form.txt_From[1].Text.Get(), "0.3333333");
            EXPECT_EQ(form.txt_PlusMinus[1].Text.Get(), "0.1428571");
            for (platform::Control* control : form.Controls())
                if (auto* box = dynamic_cast<platform::TextBox*>(control); box && box->Enabled) {
                    form.MoveFocus(box);
                    if (box->OnReturn) box->OnReturn();
                    form.MoveFocus(&form.cmd_Start);
                }
            EXPECT_EQ(Model.StudySettings, before);
        });
    }
}

TEST_F(Studies, WhatIsChosenOrTypedAgainChangesNothing) {
    Inside([&] {
        Put_Box("txt_From", 1, "0.9");
        EXPECT_EQ(Model.StudySettings, "") << "it has been 0.9";
        EXPECT_FALSE(The_History().Can_Undo());
        Put_Box("txt_From", 1, "0.5");
        const std::string kept = Model.StudySettings;
        const std::size_t steps = The_History().Steps();
        Choose(form.cmb_Sweep[1], "L2");
        Choose(form.cmb_Frame, "Global");
        Choose_Option(form, "opt_Kind", 0);
        Choose(form.cmb_Spread[1], "normal");
        Choose(form.cmb_Tolerance[1], "L2");
        EXPECT_EQ(Model.StudySettings, kept);
        EXPECT_EQ(The_History().Steps(), steps);
        EXPECT_EQ(form.txt_From[1].Text.Get(), "0.5") << "the field keeps its own values";
    });
}

TEST_F(Studies, ARowThatLosesItsFieldIsEmptyAndOneThatGetsOneHasItsUsualValues) {
    Inside([&] {
        Choose(form.cmb_Sweep[2], "L4");
        EXPECT_EQ(form.txt_From[2].Text.Get(), "2.7");
        EXPECT_EQ(form.txt_To[2].Text.Get(), "3.3");
        EXPECT_EQ(form.lbl_SweepUnit[2].Caption.Get(), "in");
        Choose(form.cmb_Sweep[2], "(none)");
        for (auto* boxes : {&form.txt_From, &form.txt_To, &form.txt_Count}) {
            EXPECT_EQ((*boxes)[2].Text.Get(), "");
            EXPECT_FALSE((*boxes)[2].Enabled);
            EXPECT_TRUE((*boxes)[1].Enabled);
        }
        EXPECT_EQ(form.lbl_SweepUnit[2].Caption.Get(), "");
        Choose_Option(form, "opt_Kind", 1);
        form.MoveFocus(&form.cmb_Tolerance[5]);
        form.cmb_Tolerance[5].Text = "Del ta";
        form.MoveFocus(&form.cmd_Start);
        EXPECT_EQ(form.cmb_Tolerance[5].Text.Get(), "Delta");
        EXPECT_NE(form.txt_PlusMinus[5].Text.Get(), "");
        EXPECT_TRUE(form.txt_PlusMinus[5].Enabled);
        EXPECT_TRUE(form.cmb_Spread[5].Enabled);
        EXPECT_EQ(form.lbl_ToleranceUnit[5].Caption.Get(), "deg");
    });
}

TEST_F(Studies, TheTableIsCopiedOrItIsSaidThatThereIsNone) {
    std::string copied;
    platform::Use_Clipboard([&copied](const std::string& text) { copied = text; });
    Inside([&] {
        desktop.Expect_Message("There is no table to be saved. Start the study first.");
        Pick_Menu(form, "mnu_CopyTable");
        Put_Box("txt_Count", 1, "3");
        Write(0, "max Veloc I 2,3:Mag");
        Solve();
        EXPECT_TRUE(form.Press_Keys("Ctrl+C"));
        EXPECT_EQ(copied.substr(0, copied.find('\n')), "Linkage\tL2 (in)\tmax Veloc I 2,3:Mag (in/sec)\r");
        EXPECT_NE(copied.find("\n2\t1\t7"), std::string::npos) << copied;
        Choose_Option(form, "opt_Kind", 1);
        Put_Box("txt_Samples", platform::kNoIndex, "100");
        Solve();
        Pick_Menu(form, "mnu_CopyTable");
        EXPECT_NE(copied.find("\n50\t"), std::string::npos) << copied;
    });
    platform::Use_Clipboard(nullptr);
}

}  // namespace verlink::test
