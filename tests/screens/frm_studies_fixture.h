// A user on the screen of studies, with a crank-rocker in hand whose crank's pin goes at 7 in/sec for each inch of it.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "platform/deed.h"
#include "screens/frm_studies.h"
#include "shell/history.h"
#include "study/words.h"
#include "tests/support/fixture.h"
#include "tests/support/study_model.h"

namespace verlink::test {

using platform::Screen;
using study::Settings;

class Studies : public Fixture {
   protected:
    Studies() : form(dynamic_cast<frm_Studies&>(platform::Screens::Get("frm_Studies"))) {
        Begin_With_A_Crank_Rocker();
        The_History().Begin();
    }
    void Inside(const std::function<void()>& user) {
        desktop.Expect_Screen("frm_Studies", [user](Screen& screen) {
            user();
            screen.Hide();
        });
        form.ShowModal();
    }
    void Write(int index, const std::string& words) {
        Type(form, "txt_Words", index, words);
        form.MoveFocus(&form.cmd_Start);
    }
    void Choose(platform::ComboBox& list, const std::string& item) {
        form.MoveFocus(&list);
        const platform::Deed deed(list);
        const auto found = std::ranges::find(list.Items(), item);
        ASSERT_NE(found, list.Items().end()) << item;
        list.Choose(static_cast<int>(found - list.Items().begin()));
    }
    void Put_Box(const std::string& box, int index, const std::string& text) {
        Type(form, box, index, text);
        form.MoveFocus(&form.cmd_Start);
    }
    /// To the end, as the timer hears of it.
    void Solve() {
        Press(form, "cmd_Start");
        To_The_End();
    }
    void To_The_End() {
        while (form.Timer1.Enabled) {
            std::this_thread::yield();
            form.Timer1.Tick();
        }
    }
    /// Cranks of 0.5 to 1.5 inches, or as many millimetres, 0.05 apart.
    void Sweep_Cranks(const char* from = "0.5", const char* to = "1.5", const char* count = "21") {
        Put_Box("txt_From", 1, from);
        Put_Box("txt_To", 1, to);
        Put_Box("txt_Count", 1, count);
        Write(0, kPin);
    }
    /// Only the crank has a tolerance.
    void Tolerate_Crank(const std::string& plus_minus, const std::string& spread, const std::string& samples) {
        Choose_Option(form, "opt_Kind", 1);
        Put_Box("txt_PlusMinus", 1, plus_minus);
        for (int row = 2; row <= 4; ++row) Choose(form.cmb_Tolerance[row], "(none)");
        Choose(form.cmb_Spread[1], spread);
        Put_Box("txt_Samples", platform::kNoIndex, samples);
        Write(0, kPin);
    }
    /// The same study by the code that the batch runs, one linkage after the other.
    std::vector<float> One_By_One(const study::Words& words) {
        study::Design design = study::Design_Of(Model);
        EXPECT_EQ(study::Take_Limits(design), "");
        std::string fault;
        const study::Bench bench(study::Study_Of(words, design, fault).value());
        EXPECT_EQ(fault, "");
        study::Worker worker(bench);
        std::vector<float> fields(bench.Moved().size()), measures(1), all;
        for (study::Number i = 0; i < bench.Of().plan.Count().value(); ++i) {
            worker.Solve(i, fields, measures);
            all.push_back(measures[0]);
        }
        return all;
    }
    /// The measure that is 7 times the length of the crank, in the model's unit a second.
    static constexpr char kPin[] = "max Veloc I 2,3:Mag";
    Measure_Choice& Choice(int index) { return index == 0 ? form.measure : form.keep; }
    std::string Picked() { return form.lbl_Picked.Caption; }
    std::string Told() { return form.lbl_Told.Caption; }
    frm_Studies& form;
};

}  // namespace verlink::test
