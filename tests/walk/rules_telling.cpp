// The rules of what is told and drawn.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "core/why_words.h"
#include "platform/graph.h"
#include "platform/overlaid_picture.h"
#include "screens/linkage_screen.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

using namespace platform;

namespace {

/// The text with its numbers taken out: the same words about another step are the same words.
std::string Without_Numbers(const std::string& text) {
    std::string words;
    for (const char letter : text)
        if (std::isdigit(static_cast<unsigned char>(letter)) == 0) words += letter;
    return words;
}

std::string First_Line(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \r\n");
    if (first == std::string::npos) return "";
    return text.substr(first, std::min<std::size_t>(text.find_first_of("\r\n", first) - first, 90));
}

struct Known_Failure {
    long number;
    const char* procedure;  ///< how its name begins; empty for any
};

/// Failures that an action of a user may have, and why.
constexpr Known_Failure kKnown[] = {
    // A place that cannot be read from, or written to, is told by the system's failure.
    {53, ""},
    {57, ""},
    {61, ""},
    {64, ""},
    {71, ""},
    {75, ""},
    {76, ""},
    // A file that breaks off, or holds a word where a number is due, or a number beyond its type or table.
    {62, "Read"},
    {13, "Read"},
    {6, "Read"},
    {9, "Read"},
    {11, "Read"},
    {62, "Import"},
    {13, "Import"},
    {6, "Import"},
    {9, "Import"},
    // A number that was typed and that no field holds, or a length of 0.
    {6, ""},
    {11, "Calculate"},
    // Links 2 to 4 that are all 0 have no cognates.
    {11, "Cayley"},
    // A linkage without extent, or beyond all sense, has no scale to be drawn in.
    {5, "Animate_Setup"},
    {5, "DrawCayley"},
    // A torque of more than ten pulses of a sign has no room in the table of pulses.
    {9, "Flywheel"},
    // A mass that is typed beside a product of 0 makes the radius 0, at which no product has a mass.
    {11, "frm_Balance.txt_MRproduct"},
    // At these a cancelled dialog is told, and nothing else comes of it.
    {32755, "frm_Homescreen.mnu_Link_Data_Import"},
    {32755, "frm_Homescreen.mnu_pdx"},
    {32755, "frm_Animate.cmd_PlotPrint"},
    {32755, "frm_Synth2A.cmd_Print"},
    {32755, "frm_Synth2B.cmd_Print"},
    {32755, "frm_Synth3.cmd_Print"},
    // Boxes that take nothing but a number.
    {13, "frm_Balance"},
    {13, "frm_User"},
    {13, "frm_MassProp"},
};

bool Is_Known(long number, const std::string& procedure) {
    return std::any_of(std::begin(kKnown), std::end(kKnown), [&](const Known_Failure& known) {
        return known.number == number && procedure.starts_with(known.procedure);
    });
}

bool Finite(const Picture& picture) {
    for (const double bound : {picture.Left(), picture.Top(), picture.Right(), picture.Bottom()})
        if (!std::isfinite(bound)) return false;
    return std::ranges::all_of(picture.Primitives(), [](const Picture::Primitive& p) {
        return !p.alive || (std::isfinite(p.x1) && std::isfinite(p.y1) && std::isfinite(p.x2) && std::isfinite(p.y2));
    });
}

bool Finite(const Overlay& over) {
    return std::ranges::all_of(over.marks, [](const Overlay::Mark& mark) {
        return std::isfinite(mark.from.x + mark.from.y + mark.to.x + mark.to.y + mark.radius);
    });
}

/// What stands in quotes is somebody's own word.
bool Says_No_Number(const std::string& text) {
    bool quoted = false;
    for (std::size_t at = 0; at + 3 <= text.size(); ++at) {
        if (text[at] == '"') quoted = !quoted;
        if (quoted) continue;
        const std::string word = text.substr(at, 3);
        const bool begins = at == 0 || std::isalpha(static_cast<unsigned char>(text[at - 1])) == 0;
        const bool ends = at + 3 == text.size() || std::isalpha(static_cast<unsigned char>(text[at + 3])) == 0;
        if (begins && ends && (word == "nan" || word == "inf")) return true;
    }
    return false;
}

}  // namespace

/// No message comes more than three times in a row within one action.
/// Except: where the user answers Retry he asks for the next position that does not close.
Found Messages_Are_Few(const std::vector<Told>& told) {
    constexpr std::size_t kInARow = 3;
    std::size_t row = 0;
    for (std::size_t i = 0; i < told.size(); ++i) {
        const bool same = i > 0 && Without_Numbers(told[i].message.text) == Without_Numbers(told[i - 1].message.text) &&
                          told[i - 1].answer != Answer::kRetry;
        row = same ? row + 1 : 1;
        if (row > kInARow)
            return Finding{"messages", First_Line(Without_Numbers(told[i].message.text)),
                           "more than three times in a row: " + First_Line(told[i].message.text)};
    }
    return {};
}

Found Failures_Are_Known(const std::vector<Told>& told) {
    for (const Told& message : told) {
        const std::string& text = message.message.text;
        if (!text.starts_with("Error ")) continue;
        const long number = std::strtol(text.c_str() + 6, nullptr, 10);
        const std::size_t in = text.find("has occurred in ");
        if (number == 0 || in == std::string::npos) continue;
        const std::string procedure = text.substr(in + 16, text.find('\r', in) - in - 16);
        if (!Is_Known(number, procedure))
            return Finding{"failures", std::to_string(number) + " in " + procedure, First_Line(text)};
    }
    return {};
}

/// What is drawn, plotted and told has finite numbers.
Found Drawn_Is_Finite(const Screen& top) {
    for (Control* control : top.Controls()) {
        if (auto* box = dynamic_cast<PictureBox*>(control); box && !Finite(box->Drawing()))
            return Finding{"finite", top.Name() + "." + control->ObjectName(), "a stroke that is nowhere"};
        if (auto* box = dynamic_cast<Overlaid_Picture*>(control); box && !Finite(box->Over))
            return Finding{"finite", top.Name() + "." + control->ObjectName(), "a mark that is nowhere"};
        if (auto* graph = dynamic_cast<Graph*>(control))
            for (const Graph::Set& set : graph->Sets())
                for (const double value : set.values)
                    if (std::isinf(value))
                        return Finding{"finite", top.Name() + "." + control->ObjectName(), "an infinite value"};
        const auto* label = dynamic_cast<Label*>(control);
        if (label && label->Visible && Says_No_Number(label->Caption))
            return Finding{"finite", top.Name() + "." + control->ObjectName(), "it says " + label->Caption.Get()};
    }
    return {};
}

Found Quiet_Line_Is_Of_The_Model(const Screen& top) {
    const auto* screen = dynamic_cast<const Linkage_Screen*>(&top);
    // Without a run it speaks of what was refused; of a hand that nothing followed it speaks until a position is shown.
    if (!screen || !Model.RunStands) return {};
    const std::string& said = screen->lbl_Why.Caption;
    if (said.empty() || said.starts_with("Not followed: ")) return {};
    const std::string so = screen->Shown_Step() == kNoStep ? "" : Why_Shown(Model, screen->Shown_Step());
    if (said == so) return {};
    return Finding{"quiet line", top.Name(), "it says \"" + said + "\" where \"" + so + "\" is so"};
}

}  // namespace verlink::walk
