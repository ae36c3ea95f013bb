// A measure or a bound between its lists and its words.
#include "tests/screens/frm_studies_fixture.h"

namespace verlink::test {
namespace {

using List = std::vector<std::string>;

class MeasureChoice : public Studies {
   protected:
    std::string Words(int index) { return Choice(index).txt_Words.Text; }
    struct On {
        bool angle, variable, component;
    };
    void Expect_On(int index, On on) {
        EXPECT_EQ(Choice(index).txt_Angle.Enabled.Get(), on.angle);
        EXPECT_EQ(Choice(index).cmb_Variable.Enabled.Get(), on.variable);
        EXPECT_EQ(Choice(index).cmb_Component.Enabled.Get(), on.component);
    }
    void Expect_Lists(int index, const std::string& statistic, const std::string& angle, const std::string& variable,
                      const std::string& component) {
        EXPECT_EQ(Choice(index).cmb_Statistic.Text.Get(), statistic);
        EXPECT_EQ(Choice(index).txt_Angle.Text.Get(), angle);
        EXPECT_EQ(Choice(index).cmb_Variable.Text.Get(), variable);
        EXPECT_EQ(Choice(index).cmb_Component.Text.Get(), component);
    }
};

TEST_F(MeasureChoice, ListsHaveWhatCanBeMeasuredAndABoundMayBeNone) {
    const List statistics{"min", "max", "mean", "rms", "range", "at", "deviation", "deviation line", "closes"};
    Inside([&] {
        EXPECT_EQ(Choice(0).cmb_Statistic.Items(), statistics);
        List with_none{"(none)"};
        with_none.insert(with_none.end(), statistics.begin(), statistics.end());
        EXPECT_EQ(Choice(1).cmb_Statistic.Items(), with_none);
        for (const int index : {0, 1}) {
            EXPECT_EQ(Choice(index).cmb_Component.Items(), (List{"X", "Y", "Mag", "Ang"}));
            EXPECT_EQ(Choice(index).cmb_Variable.Items().size(), 42U) << "all that a run, forces and a balance have";
        }
        EXPECT_EQ(Choice(0).cmb_Order, nullptr);
        EXPECT_EQ(Choice(1).cmb_Order->Items(), (List{"<", "<=", ">", ">="}));
        for (const int index : {0, 1})
            for (const platform::Visual* control : std::initializer_list<const platform::Visual*>{
                     &Choice(index).cmb_Statistic, &Choice(index).txt_Angle, &Choice(index).cmb_Variable,
                     &Choice(index).cmb_Component, &Choice(index).txt_Words})
                EXPECT_NE(control->Tip.Get(), "") << control->ObjectName();
    });
}

TEST_F(MeasureChoice, WordsSetTheListsThatTheyName) {
    Inside([&] {
        Write(0, "max Veloc CP:Mag");
        Expect_Lists(0, "max", "", "Veloc CP", "Mag");
        Expect_On(0, {false, true, true});
        Write(0, "at 72.5 Theta4");
        Expect_Lists(0, "at", "72.5", "Theta4", "");
        Expect_On(0, {true, true, false});
        Write(0, "closes");
        Expect_Lists(0, "closes", "", "", "");
        Expect_On(0, {false, false, false});
        Write(0, "deviation line");
        Expect_Lists(0, "deviation line", "", "", "");
        Write(0, "rms Accel CP:Ang");
        Expect_Lists(0, "rms", "", "Accel CP", "Ang");
        Write(0, "mux Theta4");
        Expect_Lists(0, "", "", "", "");
        Expect_On(0, {false, false, false});
        Write(1, "at 90 Coupler Pt:Y <= -2.5");
        Expect_Lists(1, "at", "90", "Coupler Pt", "Y");
        EXPECT_EQ(Choice(1).cmb_Order->Text.Get(), "<=");
        EXPECT_EQ(Choice(1).txt_Bound->Text.Get(), "-2.5");
        EXPECT_TRUE(Choice(1).cmb_Order->Enabled);
        EXPECT_TRUE(Choice(1).txt_Bound->Enabled);
        Write(1, "");
        Expect_Lists(1, "(none)", "", "", "");
        EXPECT_EQ(Choice(1).cmb_Order->Text.Get(), "");
        EXPECT_FALSE(Choice(1).cmb_Order->Enabled);
        EXPECT_FALSE(Choice(1).txt_Bound->Enabled);
    });
}

TEST_F(MeasureChoice, AllOfAChoiceThatIsOffIsOffAndItsListsComeBackWithItsWords) {
    Inside([&] {
        Write(1, "at 90 Coupler Pt:Y <= -2.5");
        Measure_Choice& bound = Choice(1);
        const std::vector<platform::Visual*> all{&bound.cmb_Statistic, &bound.txt_Words,     &bound.txt_Angle,
                                                 &bound.cmb_Variable,  &bound.cmb_Component, bound.cmb_Order.get(),
                                                 bound.txt_Bound.get()};
        for (const auto* control : all) EXPECT_TRUE(control->Enabled) << control->ObjectName();
        bound.Enable(false);
        for (const auto* control : all) EXPECT_FALSE(control->Enabled) << control->ObjectName();
        bound.Enable(true);
        for (const auto* control : all)
            EXPECT_EQ(control->Enabled.Get(), control == all[0] || control == all[1]) << control->ObjectName();
    });
}

TEST_F(MeasureChoice, ListsMakeTheWords) {
    Inside([&] {
        for (const char* statistic : {"max", "mean", "rms", "range"}) {
            Choose(Choice(0).cmb_Statistic, statistic);
            EXPECT_EQ(Words(0), std::string(statistic) + " Trans Ang");
        }
        Choose(Choice(0).cmb_Variable, "Veloc CP");
        EXPECT_EQ(Words(0), "range Veloc CP:X");
        for (const char* component : {"Y", "Mag", "Ang", "X"}) {
            Choose(Choice(0).cmb_Component, component);
            EXPECT_EQ(Words(0), std::string("range Veloc CP:") + component);
        }
        Choose(Choice(0).cmb_Variable, "Omega4");
        EXPECT_EQ(Words(0), "range Omega4");
        Choose(Choice(0).cmb_Statistic, "at");
        Put_Box("txt_Angle", 0, "45.5");
        EXPECT_EQ(Words(0), "at 45.5 Omega4");
        Choose(Choice(0).cmb_Statistic, "closes");
        EXPECT_EQ(Words(0), "closes");
        Choose(Choice(0).cmb_Statistic, "deviation");
        EXPECT_EQ(Words(0), "deviation");
        Choose(Choice(1).cmb_Statistic, "max");
        Put_Box("txt_Bound", 1, "12.5");
        for (const char* order : {"<", "<=", ">=", ">"}) {
            Choose(*Choice(1).cmb_Order, order);
            EXPECT_EQ(Words(1), std::string("max Trans Ang ") + order + " 12.5");
        }
        Choose(Choice(1).cmb_Statistic, "(none)");
        EXPECT_EQ(Words(1), "");
        EXPECT_EQ(form.The_Settings().keep, "");
    });
}

TEST_F(MeasureChoice, LeavingAListOrABoxThatWasNotTouchedChangesNothing) {
    Inside([&] {
        Write(0, "at  90.0 Coupler Pt");
        Write(1, "min  Trans Ang > 40");
        const std::size_t steps = The_History().Steps();
        for (const int index : {0, 1}) {
            Measure_Choice& choice = Choice(index);
            for (const auto& leave :
                 {choice.cmb_Statistic.OnLostFocus, choice.cmb_Variable.OnLostFocus, choice.cmb_Component.OnLostFocus,
                  choice.txt_Angle.OnLostFocus, choice.txt_Angle.OnReturn, choice.txt_Words.OnLostFocus,
                  choice.txt_Words.OnReturn})
                leave();
        }
        Choice(1).cmb_Order->OnLostFocus();
        Choice(1).txt_Bound->OnLostFocus();
        Choice(1).txt_Bound->OnReturn();
        EXPECT_EQ(Words(0), "at  90.0 Coupler Pt");
        EXPECT_EQ(Words(1), "min  Trans Ang > 40");
        EXPECT_EQ(The_History().Steps(), steps);
    });
}

TEST_F(MeasureChoice, AListThatIsEmptiedTakesNoWordsAway) {
    Inside([&] {
        Write(0, "max Theta4");
        Write(1, "min Trans Ang > 40");
        for (const int index : {0, 1}) {
            form.MoveFocus(&Choice(index).cmb_Statistic);
            Choice(index).cmb_Statistic.Text = "";
            form.MoveFocus(&form.cmd_Start);
        }
        EXPECT_EQ(form.The_Settings().measure, "max Theta4");
        EXPECT_EQ(form.The_Settings().keep, "min Trans Ang > 40");
    });
}

TEST_F(MeasureChoice, ReturnInABoxTakesItsText) {
    Inside([&] {
        Enter(form, "txt_Words", 0, "max Theta4");
        EXPECT_EQ(form.The_Settings().measure, "max Theta4");
        Enter(form, "txt_Words", 1, "max Theta4 < 90");
        Enter(form, "txt_Bound", 1, "80");
        EXPECT_EQ(form.The_Settings().keep, "max Theta4 < 80");
        Enter(form, "txt_Words", 0, "at 10 Theta4");
        Enter(form, "txt_Angle", 0, "20");
        EXPECT_EQ(form.The_Settings().measure, "at 20 Theta4");
    });
}

TEST_F(MeasureChoice, NothingOfItCanBeTouchedWhereTheSettingsCannotBeRead) {
    Inside([&] { Write(1, "at 90 Coupler Pt:Y <= 2"); });
    Model.StudySettings = "{\"version\": 7}";
    Inside([&] {
        for (const int index : {0, 1}) {
            Expect_On(index, {false, false, false});
            EXPECT_FALSE(Choice(index).cmb_Statistic.Enabled);
            EXPECT_FALSE(Choice(index).txt_Words.Enabled);
        }
        EXPECT_FALSE(Choice(1).cmb_Order->Enabled);
        EXPECT_FALSE(Choice(1).txt_Bound->Enabled);
        for (const auto& list : form.cmb_Sweep) EXPECT_FALSE(list->Enabled);
        for (const auto& list : form.cmb_Tolerance) EXPECT_FALSE(list->Enabled);
        EXPECT_FALSE(form.cmb_Frame.Enabled);
        EXPECT_FALSE(form.txt_Samples.Enabled);
        EXPECT_FALSE(form.txt_Seed.Enabled);
    });
    Model.StudySettings.clear();
    Inside([&] {
        for (const auto& list : form.cmb_Sweep) EXPECT_TRUE(list->Enabled);
        for (const auto& list : form.cmb_Tolerance) EXPECT_TRUE(list->Enabled);
        EXPECT_TRUE(form.cmb_Frame.Enabled);
        EXPECT_TRUE(form.txt_Samples.Enabled);
        EXPECT_TRUE(form.txt_Seed.Enabled);
        EXPECT_TRUE(Choice(0).cmb_Statistic.Enabled);
        EXPECT_TRUE(Choice(1).cmb_Statistic.Enabled);
    });
}

}  // namespace
}  // namespace verlink::test
