// Tables saved and copied from the screens that show or choose them.
#include <algorithm>

#include "platform/clipboard.h"
#include "platform/file_system.h"
#include "platform/pictures.h"
#include "platform/settings.h"
#include "screens/frm_fft.h"
#include "screens/frm_matrix.h"
#include "screens/frm_printdata.h"
#include "screens/frm_printselect.h"
#include "tests/screens/plot_select_fixture.h"

namespace verlink::test {
namespace {

using platform::Screens;

class SaveTable : public SelectionScreenTest {
   protected:
    SaveTable() {
        Model.ModelName = "press";
        for (int step = 0; step <= Model.NSteps; ++step) Model.RunTable.Assembled(step) = true;
        platform::Use_Clipboard([this](const std::string& text) { copied = text; });
    }
    ~SaveTable() override { platform::Use_Clipboard(nullptr); }
    std::string Saved(platform::Screen& screen, const std::string& name, int entry) {
        platform::The_Settings().Put(platform::Entry_Setting("table"), std::to_string(entry));
        desktop.Expect_Save(Path(name));
        Pick_Menu(screen, "mnu_SaveTable");
        return platform::Read_File(Path(name));
    }
    static std::size_t Lines(const std::string& text) {
        return static_cast<std::size_t>(std::ranges::count(text, '\n'));
    }
    std::string copied;
};

}  // namespace

TEST_F(SaveTable, A_choice_of_functions_is_saved_as_chosen_and_stays_as_it_is) {
    auto& form = Activated<frm_PrintSelect>("frm_PrintSelect");
    desktop.Expect_Message("Choose the functions of the table first.", platform::Answer::kOk,
                           platform::Icon::kInformation);
    Pick_Menu(form, "mnu_SaveTable");
    Choose(form.cmb_Preset, Model.PresetList4(6));
    form.cmb_Step.Choose(1);
    const int step = Model.PrintStep, frame = Model.CoordSystem;
    const std::string all = Saved(form, "all.csv", 3), some = Saved(form, "some.csv", 4);
    EXPECT_EQ(desktop.Dialogs.back().file_name, "press_table.csv");
    EXPECT_EQ(Lines(all), 1U + static_cast<std::size_t>(Model.NSteps) + 1);
    EXPECT_EQ(Lines(some), 1U + static_cast<std::size_t>(Model.NSteps) / 2 + 1);
    EXPECT_EQ(Model.PrintStep, step);
    EXPECT_EQ(Model.CoordSystem, frame);
    EXPECT_TRUE(form.cmd_Done.Enabled);
    Pick_Menu(form, "mnu_CopyTable");
    EXPECT_EQ(Lines(copied), Lines(some));
    EXPECT_NE(copied.find('\t'), std::string::npos);
}

TEST_F(SaveTable, A_step_below_one_is_one_and_harmonics_are_saved_one_by_one) {
    auto& form = Activated<frm_PrintSelect>("frm_PrintSelect");
    Choose(form.cmb_Preset, Model.PresetList4(6));
    const auto rows = [&] { return Lines(Saved(form, "some.csv", 4)) - 1; };
    for (const char* step : {"1", "0", "-3", ""}) {
        form.cmb_Step.Text = step;
        EXPECT_EQ(rows(), static_cast<std::size_t>(Model.NSteps) + 1) << step;
    }
    form.cmb_Step.Text = "3";
    EXPECT_EQ(rows(), 2U);
    Model.Harmonics = 5;
    Choose(form.cmb_Preset, "Current FFT - Real, Imag, Mag, Phase");
    EXPECT_EQ(rows(), 6U);
}

TEST_F(SaveTable, A_table_on_the_screen_is_saved_with_its_heads) {
    auto& form = Activated<frm_PrintSelect>("frm_PrintSelect");
    Choose(form.cmb_Preset, Model.PresetList4(6));
    form.cmb_Step.Choose(0);
    std::string saved, head;
    desktop.Expect_Screen("frm_PrintData", [&](platform::Screen& screen) {
        saved = Saved(screen, "shown.csv", 1);
        const auto& grid = screen.Get<platform::Grid>("grd_Data");
        head = "Crank Angle (deg)";
        for (int col = 1; col < grid.Cols(); ++col)
            head += "," + grid.Cell(0, col) + " " + grid.Cell(1, col) + " (" + grid.Cell(2, col) + ")";
        Pick_Menu(screen, "mnu_CopyTable");
        screen.Hide();
    });
    Press(form, "cmd_Done");
    EXPECT_EQ(saved.substr(0, saved.find('\r')), head);
    EXPECT_EQ(Lines(saved), static_cast<std::size_t>(Model.NSteps) + 2);
    std::ranges::replace(saved, ',', '\t');
    EXPECT_EQ(copied, saved);
}

TEST_F(SaveTable, Equations_are_saved_with_all_their_digits_once_they_are_solved) {
    auto& form = dynamic_cast<frm_Matrix&>(Screens::Get("frm_Matrix"));
    desktop.Expect_Message("There are no equations to be saved. Solve for the forces first.", platform::Answer::kOk,
                           platform::Icon::kInformation);
    Pick_Menu(form, "mnu_SaveTable");
    std::vector<double> A(81), C(9);
    for (std::size_t i = 0; i < A.size(); ++i) A[i] = static_cast<double>(i) / 8;
    for (std::size_t i = 0; i < C.size(); ++i) C[i] = 100.0625 + static_cast<double>(i);
    PrintAmatrix(A, C);
    const std::string saved = Saved(form, "equations.csv", 1);
    EXPECT_TRUE(saved.starts_with("Equation,F12x coefficient (1 or in),")) << saved;
    EXPECT_NE(saved.find(",T12 coefficient (1),C right side (lb or lb-in)\r\n"), std::string::npos) << saved;
    EXPECT_NE(saved.find("\r\n2,1.125,1.25,1.375,1.5,1.625,1.75,1.875,2,2.125,101.0625\r\n"), std::string::npos)
        << saved;
    EXPECT_TRUE(saved.ends_with("\r\n9,9,9.125,9.25,9.375,9.5,9.625,9.75,9.875,10,108.0625\r\n")) << saved;
}

TEST_F(SaveTable, A_transform_is_saved_once_there_is_one) {
    auto& form = Activated<frm_FFT>("frm_FFT");
    desktop.Expect_Message("There is no transform to be saved. Calculate one first.", platform::Answer::kOk,
                           platform::Icon::kInformation);
    Pick_Menu(form, "mnu_SaveTable");
    form.cmb_Harmonics.Text = "2";
    form.cmb_Com1.Text = "Ang";
    Choose(form.cmb_Var1, "Veloc CP");
    ASSERT_TRUE(Model.FFTDone);
    const std::string saved = Saved(form, "transform.csv", 1);
    EXPECT_TRUE(saved.starts_with("Harmonic Number,Veloc CP Ang Real (degrees),")) << saved;
    EXPECT_NE(saved.find("Veloc CP Ang Phase (deg)\r\n0,"), std::string::npos) << saved;
    EXPECT_EQ(Lines(saved), 1U + static_cast<std::size_t>(Model.Harmonics) + 1);
}

}  // namespace verlink::test
