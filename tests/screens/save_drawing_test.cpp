// Drawings saved from the screens that show a mechanism.
#include <cmath>
#include <complex>
#include <cstring>
#include <memory>

#include "animation/linkage_dxf.h"
#include "core/results.h"
#include "platform/file_system.h"
#include "screens/frm_cayley.h"
#include "screens/frm_homescreen.h"
#include "screens/frm_synth2a.h"
#include "synthesis/cognates.h"
#include "synthesis/dyad_diagram.h"
#include "synthesis/examples.h"
#include "tests/screens/frm_animate_fixture.h"
#include "tests/screens/synthesis_screens_fixture.h"
#include "tests/support/foreign.h"

namespace verlink::test {
namespace {

using platform::Answer;
using platform::Icon;
using platform::Screens;

constexpr char kNothing[] = "There is no linkage to be drawn. Calculate first.";

class DrawingOfTheRun : public AnimateScreen {
   protected:
    DrawingOfTheRun() { Model.ModelName = "press"; }
};

class DrawingOfHome : public Fixture {
   protected:
    DrawingOfHome() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Model.JustStarted = false;
        Model.ModelName = "press";
    }
    frm_HomeScreen& home = dynamic_cast<frm_HomeScreen&>(Screens::Get("frm_HomeScreen"));
};

class DrawingOfDyads : public SynthesisScreenTest {};

void Expect_Near(const std::vector<double>& numbers, std::size_t from, std::complex<double> place) {
    EXPECT_NEAR(numbers.at(from), place.real(), 1e-4);
    EXPECT_NEAR(numbers.at(from + 1), place.imag(), 1e-4);
}

}  // namespace

TEST_F(DrawingOfTheRun, Is_of_the_position_that_is_shown) {
    std::string drawn, first;
    After_First_Picture([&] {
        form.hsc_step.Drag(7);
        form.hsc_step.Drop();
        desktop.Expect_Save(Path("a.dxf"));
        Pick_Menu(form, "mnu_SaveDrawing");
        first = Linkage_Dxf(Model, 0);
        drawn = Linkage_Dxf(Model, 7);
    });
    const platform::FileDialog& dialog = desktop.Dialogs.back();
    EXPECT_EQ(dialog.title, "Save drawing");
    EXPECT_EQ(dialog.filter, "DXF drawing|*.dxf|");
    EXPECT_EQ(dialog.file_name, "press_linkage.dxf");
    EXPECT_EQ(dialog.kind, "drawing");
    EXPECT_TRUE(dialog.warn_before_overwriting);
    EXPECT_EQ(platform::Read_File(Path("a.dxf")), drawn);
    EXPECT_NE(drawn, first);
}

TEST_F(DrawingOfTheRun, Is_not_written_when_it_cannot_be_and_that_is_told) {
    After_First_Picture([&] {
        desktop.Expect_Save({});
        Pick_Menu(form, "mnu_SaveDrawing");
        desktop.Expect_Save(Path("lost/a.dxf"))
            .Expect_Message("The drawing could not be written to " + Path("lost/a.dxf") + ".\r\nThere is no folder " +
                                Path("lost") + ".",
                            Answer::kOk, Icon::kExclamation);
        Pick_Menu(form, "mnu_SaveDrawing");
    });
}

TEST_F(DrawingOfTheRun, Needs_a_run) {
    After_First_Picture([&] {
        Run_Dropped();
        desktop.Expect_Message(kNothing, Answer::kOk, Icon::kInformation);
        Pick_Menu(form, "mnu_SaveDrawing");
    });
}

TEST_F(DrawingOfHome, Is_of_the_model_in_hand_calculated_or_not_and_changes_nothing) {
    Model.NSteps = 36;
    Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
    Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
    Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
    home.Form_Activate();
    ASSERT_TRUE(home.Picture1.Visible);
    ASSERT_FALSE(Model.RunStands);
    const auto before = std::make_unique<LinkageModel>(Model);
    desktop.Expect_Save(Path("a.dxf"));
    Pick_Menu(home, "mnu_SaveDrawing");
    EXPECT_EQ(std::memcmp(&Model.RunTable, &before->RunTable, sizeof(Model.RunTable)), 0);
    EXPECT_FALSE(Model.RunStands);
    const Dxf_Read read = Read_Dxf(Path("a.dxf"));
    const auto crank = read.On("LINK_2"), curve = read.On("COUPLER_CURVE");
    ASSERT_EQ(crank.size(), 1U);
    Expect_Near(crank[0].numbers, 2, std::polar(double{Model.L2}, Model.ThetaStart * kDegToRad));
    ASSERT_EQ(curve.size(), 1U);
}

TEST_F(DrawingOfHome, Needs_a_linkage) {
    Model.L3 = 0;
    home.Form_Activate();
    ASSERT_FALSE(home.Picture1.Visible);
    desktop.Expect_Message(kNothing, Answer::kOk, Icon::kInformation);
    Pick_Menu(home, "mnu_SaveDrawing");
}

TEST_F(DrawingOfHome, Of_the_cognates_is_as_Cayley_lays_them_out) {
    Testlinkage_old();
    Model.ModelName = "press";
    SeedCognate();
    auto& form = dynamic_cast<frm_Cayley&>(Screens::Get("frm_Cayley"));
    form.Form_Activate();
    desktop.Expect_Save(Path("a.dxf"));
    Pick_Menu(form, "mnu_SaveDrawing");
    EXPECT_EQ(desktop.Dialogs.back().file_name, "press_cognates.dxf");
    const Dxf_Read read = Read_Dxf(Path("a.dxf"));
    const double L2 = Model.L2, L3 = Model.L3, L4 = Model.L4, R = Model.Rpa, d = Model.DeltaRad;
    const std::complex<double> P = L2 + std::polar(R, d);
    const auto first = read.On("COGNATE_1");
    ASSERT_EQ(first.size(), 2U);
    const std::complex<double> corners[] = {0.0, L2, P, L2 + L3, L2 + L3 + L4};
    for (std::size_t i = 0; i < 5; ++i) Expect_Near(first[0].numbers, 1 + 2 * i, corners[i]);
    for (const char* layer : {"COGNATE_2", "COGNATE_3"}) {
        const auto other = read.On(layer);
        ASSERT_EQ(other.size(), 2U) << layer;
        ASSERT_EQ(other[0].numbers.size(), 11U);
        Expect_Near(other[0].numbers, 5, P);
    }
    // Parallelograms: the two sides at O2 and the two at O4 that meet at P.
    const auto second = read.On("COGNATE_2")[0].numbers;
    Expect_Near({second[3] + L2, second[4]}, 0, P);
    EXPECT_EQ(read.On("PIVOTS").size(), 9U);
    const auto point = read.On("COUPLER_POINT");
    ASSERT_EQ(point.size(), 1U);
    Expect_Near(point[0].numbers, 0, P);
}

TEST_F(DrawingOfDyads, Is_to_scale_in_all_positions_once_they_are_calculated) {
    auto& form = Made<frm_Synth2A>("frm_Synth2A");
    form.Form_Activate();
    desktop.Expect_Message("The diagram is not to scale yet. Calculate first.", Answer::kOk, Icon::kInformation);
    if (Dyads_In_Force(2).to_scale) Model.SynWx = 1000;
    Pick_Menu(form, "mnu_SaveDrawing");
    Calculate(form);
    desktop.Expect_Save(Path("a.dxf"));
    Pick_Menu(form, "mnu_SaveDrawing");
    const Dxf_Read read = Read_Dxf(Path("a.dxf"));
    const Vector W{Model.SynWx, Model.SynWy}, Z{Model.SynZx, Model.SynZy}, U{Model.SynUx, Model.SynUy};
    const Vector moved{Model.P21x, Model.P21y};
    const auto left = read.On("LEFT_DYAD"), right = read.On("RIGHT_DYAD"), point = read.On("COUPLER_POINT");
    ASSERT_EQ(left.size(), 2U);
    ASSERT_EQ(right.size(), 2U);
    ASSERT_EQ(point.size(), 2U);
    for (const auto& dyads : {left, right}) {
        Expect_Near(dyads[0].numbers, 5, 0.0);
        Expect_Near(dyads[1].numbers, 5, moved);
    }
    Expect_Near(left[0].numbers, 1, -W - Z);
    Expect_Near(left[0].numbers, 3, -Z);
    // Links keep their lengths from position to position.
    const auto link = [](const Dxf_Entity& dyad, std::size_t from) {
        return std::hypot(dyad.numbers[from + 2] - dyad.numbers[from], dyad.numbers[from + 3] - dyad.numbers[from + 1]);
    };
    EXPECT_NEAR(link(left[1], 1), std::abs(W), 1e-4);
    EXPECT_NEAR(link(left[1], 3), std::abs(Z), 1e-3);
    EXPECT_NEAR(link(right[1], 1), std::abs(U), 1e-4);
    Expect_Near(point[1].numbers, 0, moved);
}

}  // namespace verlink::test
