// The roads between the screens of synthesis and the one of all linkages: positions there, free choices back.
#include <charconv>

#include "core/linkage_model.h"
#include "core/results.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "design/choices.h"
#include "platform/guard.h"
#include "screens/frm_synth2a.h"
#include "screens/frm_synth2b.h"
#include "screens/frm_synth3.h"

namespace verlink {

namespace {

using design::Choices;
using design::Point;
using platform::TextBox;

/// Beyond this the numbers that a screen takes do not tell the linkage any more.
constexpr double kSinglePrecision = 1e-4;

/// What is read off a box: its text, but the stored number where no hand has touched a text that has fewer digits.
double Number_Of_Box(const TextBox& box, Single stored, double factor) {
    const double number = Val(Ungrouped(box.Text.Get()));
    return box.Touched() || Single(number / factor) == stored ? number : factor * stored;
}

std::string If_Off(double off, const char* what) {
    if (off <= kSinglePrecision) return "";
    return std::string("with ") + what + " it stands so near to none that their seven digits do not tell it";
}

}  // namespace

void Synthesis_Screen::cmd_Explore_Click() {
    Guarded(Name() + ".cmd_Explore", [this] {
        if (const auto task = With_Positions(Task_In_Hand(Model), Typed())) {
            const std::string text = design::Task_Text(*task);
            std::string fault;
            design::Task read;
            if (!design::Read_Task(text, read, fault)) return platform::Tell(fault, platform::Icon::kInformation);
            Take_Task_Text(Model.DesignTask, text);
        }
        Show_Centered("frm_Explore");
    });
}

Point Synthesis_Screen::Shown_Point(const TextBox& x, const TextBox& y, Single stored_x, Single stored_y) const {
    return {Number_Of_Box(x, stored_x, Factor()), Number_Of_Box(y, stored_y, Factor())};
}

double Synthesis_Screen::Shown_Angle(const TextBox& box, Single stored) { return Number_Of_Box(box, stored, 1); }

void Synthesis_Screen::Type_Number(TextBox& box, double value) {
    char digits[32];
    const auto [end, failed] = std::to_chars(std::begin(digits), std::end(digits), static_cast<float>(Single(value)));
    box.Type(std::string(digits, end));
}

void Synthesis_Screen::Type_Point(TextBox& x, TextBox& y, Point point) {
    Type_Number(x, point.real());
    Type_Number(y, point.imag());
}

void Synthesis_Screen::Take_Choices(const Choices& choices) {
    if (!Visible()) {
        to_type_ = [this, choices] { Type_Choices(choices); };
        return;
    }
    Type_Choices(choices);
}

Typed_Positions Synthesis_Screen::Typed() const {
    Typed_Positions typed;
    typed.moved = {{Shown_Point(txt_P21x, txt_P21y, Model.P21x, Model.P21y), Shown_Angle(txt_Alpha2, Model.SynAlpha2)}};
    return typed;
}

void Synthesis_Screen::Type_Choices(const Choices& choices) {
    Type_Point(txt_P21x, txt_P21y, choices.P21);
    Type_Number(txt_Alpha2, choices.alpha2);
    if (!txt_Beta2.Locked) Type_Number(txt_Beta2, choices.beta2);
    if (!txt_Gamma2.Locked) Type_Number(txt_Gamma2, choices.gamma2);
}

void Synthesis_Screen::Note_Shown() {
    const LinkageModel& m = Model;
    shown_.clear();
    for (
        const double number :
        {double{m.P21x},      double{m.P21y},     double{m.P31x},       double{m.P31y},      double{m.SynAlpha2},
         double{m.SynAlpha3}, double{m.SynBeta2}, double{m.SynBeta3},   double{m.SynGamma2}, double{m.SynGamma3},
         double{m.SynTheta},  double{m.SynPhi},   double{m.SynSigma},   double{m.SynXi},     double{m.SynZ},
         double{m.SynS},      double{m.SynWx},    double{m.SynWy},      double{m.SynUx},     double{m.SynUy},
         double{m.O2x},       double{m.O2y},      double{m.O4x},        double{m.O4y},       double{m.P1x},
         double{m.P1y},       double{m.L1},       double{m.L2},         double{m.L3},        double{m.L4},
         double{m.Rpa},       double{m.Delta},    double{m.Link1Angle}, double(m.Units),     double(m.SpecifiedPivots)})
        shown_ += Text_Of(number) + " ";
}

void Synthesis_Screen::Show_Undone() {
    const std::string before = shown_;
    Note_Shown();
    if (shown_ != before) Show_Model();
}

void Two_Position_Screen::Type_Choices(const Choices& choices) {
    Synthesis_Screen::Type_Choices(choices);
    const std::pair<TextBox*, Point> directions[] = {
        {&txt_Theta, choices.W}, {&txt_Phi, choices.Z}, {&txt_Sigma, choices.U}, {&txt_Xi, choices.S}};
    for (const auto& [box, vector] : directions)
        if (!box->Locked) Type_Number(*box, std::arg(vector) / design::kDegree);
}

std::string frm_Synth2A::Trouble_With(const Choices& choices) const {
    return If_Off(design::Off_By_Directions(choices), "the directions of all vectors given");
}

std::string frm_Synth2B::Trouble_With(const Choices& choices) const {
    return If_Off(design::Off_By_Arms(choices), "Z and S given");
}

void frm_Synth2B::Type_Choices(const Choices& choices) {
    Two_Position_Screen::Type_Choices(choices);
    // These two boxes are in stored units.
    Type_Number(txt_Zmag, std::abs(choices.Z) / Factor());
    Type_Number(txt_Smag, std::abs(choices.S) / Factor());
}

std::string frm_Synth3::Trouble_With(const Choices& choices) const {
    const std::string off = If_Off(design::Off_By_Turns(choices), "the turns of both links given");
    return off.empty() && choices.specified ? design::Trouble_By_Pivots(choices) : off;
}

Typed_Positions frm_Synth3::Typed() const {
    Typed_Positions typed = Synthesis_Screen::Typed();
    typed.moved.push_back(
        {Shown_Point(txt_P31x, txt_P31y, Model.P31x, Model.P31y), Shown_Angle(txt_Alpha3, Model.SynAlpha3)});
    if (!Model.SpecifiedPivots) return typed;
    const auto point = [this](const char* boxes, Single x, Single y) {
        return Shown_Point(Text(boxes, 0), Text(boxes, 1), x, y);
    };
    typed.pivots = {point("txt_O2", Model.O2x, Model.O2y), point("txt_O4", Model.O4x, Model.O4y),
                    point("txt_P1", Model.P1x, Model.P1y)};
    return typed;
}

void frm_Synth3::Type_Choices(const Choices& choices) {
    Synthesis_Screen::Type_Choices(choices);
    Type_Point(txt_P31x, txt_P31y, choices.P31);
    Type_Number(txt_Alpha3, choices.alpha3);
    if (!Model.SpecifiedPivots) {
        Type_Number(txt_Beta3, choices.beta3);
        Type_Number(txt_Gamma3, choices.gamma3);
        return;
    }
    Type_Point(txt_P1[0], txt_P1[1], choices.first);
    Type_Point(txt_O2[0], txt_O2[1], choices.first - choices.W - choices.Z);
    Type_Point(txt_O4[0], txt_O4[1], choices.first - choices.U - choices.S);
}

}  // namespace verlink
