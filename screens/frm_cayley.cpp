// The screen of the cognates.
#include "screens/frm_cayley.h"

#include <cmath>
#include <complex>

#include "animation/engine.h"
#include "core/classification.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/window_sizes.h"
#include "platform/guard.h"
#include "screens/help_documents.h"
#include "synthesis/cognates.h"
#include "synthesis/diagram_dxf.h"

namespace verlink {

frm_Cayley::frm_Cayley() : Screen("frm_Cayley") {
    Set_Palette();
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    DefaultButton = CancelButton = &cmd_Done;
    opt_Cognate.On(&platform::OptionButton::OnClick, [this](int Index) { opt_Cognate_Click(Index); });
    mnu_Redraw.OnClick = cmd_Redraw.OnClick = [this] { mnu_Redraw_Click(); };
    mnu_Help.OnClick = [] { Show_Help(Help_Document("mnu_CognateHelp"), "frm_Cayley.mnu_Help"); };
    cmd_Done.OnClick = [this] { Hide(); };
    for (const auto& box : txt_Linkout) box->Locked = true;

    const char* tips[] = {"Take the first linkage, the one of the green lines",
                          "Take the second cognate, the one of the blue lines",
                          "Take the third cognate, the one of the red lines"};
    for (int i = 0; i < 3; ++i) opt_Cognate[i].Tip = tips[i];
    const char* values[] = {"Length of link 1, the ground, in the length unit shown",
                            "Length of link 2, the crank, in the length unit shown",
                            "Length of link 3, the coupler, in the length unit shown",
                            "Length of link 4, the rocker, in the length unit shown",
                            "Distance from the pin of links 2 and 3 to the coupler point, in the length unit shown",
                            "Angle from link 3 to the line to the coupler point, degrees"};
    for (int i = 0; i < 6; ++i) txt_Linkout[i].Tip = values[i];
    Picture1.Magnifies = true;
    Picture1.Tip = "Cayley's diagram: the three linkages with one coupler point; the wheel zooms, a double click fits";
    cmd_Redraw.Tip = "Draw the diagram again";
    cmd_Done.Tip = "Leave with the chosen cognate";
}

void frm_Cayley::Form_Activate() {
    Guarded("frm_Cayley.Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Mark_Present();
        Grashof();
        Fill();
        Draw();
    });
}

void frm_Cayley::Mark_Present() {
    Activating = true;
    opt_Cognate[Model.CognateNumber - 1].Value = true;
    Activating = false;
}

void frm_Cayley::Fill() {
    constexpr int kLengthDecimals = 3, kAngleDecimals = 2;
    const auto length = [](double stored) { return FNRoundStr(stored * Shown_Factor(), kLengthDecimals); };
    for (int i = 0; i <= 3; ++i) txt_Linkout[i].Text = length(Model.LinkArray(i + 1));
    txt_Linkout[4].Text = length(Model.Rpa);
    txt_Linkout[5].Text = FNRoundStr(Model.Delta, kAngleDecimals);
    for (const auto& label : lbl_Units) label->Caption = Model.UnitLabel(6);
}

void frm_Cayley::opt_Cognate_Click(int Index) {
    if (Activating) return;
    Guarded("frm_Cayley.opt_Cognate", [this, Index] {
        if (Refuse_Parallelogram()) return Mark_Present();
        Switch_Cognate(Index + 1);
        Fill();
    });
}

void frm_Cayley::Draw() {
    DrawCayley();
    Place_Labels();
}

std::optional<std::function<std::string()>> frm_Cayley::Diagram() {
    return [] { return Cayley_Dxf(Model); };
}

/// The names beside the corners and sides of the outer triangle.
void frm_Cayley::Place_Labels() {
    using Vector = std::complex<double>;
    const auto corners = Cayley_Corners();
    const Vector middle = (corners[0] + corners[1] + corners[2]) / 3.0;
    const platform::Picture& picture = Picture1.Drawing();
    const auto put = [&](Label& label, Vector at, Vector towards) {
        label.At = platform::Anchor{(at.real() - picture.Left()) / (picture.Right() - picture.Left()),
                                    (at.imag() - picture.Top()) / (picture.Bottom() - picture.Top()), towards.real(),
                                    towards.imag()};
    };
    const double ground = std::abs(corners[1] - corners[0]);
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vector away = corners[i] - middle;
        // Beside the rim of what is drawn there.
        const double rim = ground * (i < 3 ? 0.03 : 0.015);
        const Vector to_rim = std::abs(away) > 0 ? away / std::abs(away) * rim : 0.0;
        put(lbl_Point[static_cast<int>(i)], corners[i] + to_rim, away);
    }
    constexpr std::size_t kSides[][2] = {{0, 1}, {0, 2}, {1, 2}};
    for (int i = 0; i < 3; ++i) {
        const Vector from = corners[kSides[i][0]], to = corners[kSides[i][1]];
        const Vector at = (from + to) / 2.0;
        Vector aside = Vector(0, 1) * (to - from);
        if ((aside * std::conj(at - middle)).real() < 0) aside = -aside;
        put(pnl_CogLabel[i], at, aside);
    }
}

void frm_Cayley::mnu_Redraw_Click() {
    Guarded("frm_Cayley.mnu_Redraw", [this] { Draw(); });
}

}  // namespace verlink
