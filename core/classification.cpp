// The Grashof condition, the toggle positions, and the words for them on the screens.
#include "core/classification.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/grashof.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/toggle.h"
#include "platform/guard.h"
#include "platform/screen.h"

namespace verlink {

using platform::kNoIndex;
using platform::Label;

const char kParallelogramMessage[] =
    "Your present linkage is a parallelogram,\r"
    "which has an infinity of cognates\r"
    "all of which have circular coupler curves.\r\r"
    "Cognate switching and the Cayley diagram are\r"
    "not available for parallelogram linkages\r"
    "as they have no value in this case.\r";

namespace {

constexpr const char* kScreens[] = {"frm_Inputnew", "frm_Animate"};

GrashofKind Classified() {
    const auto& length = Model.LinkArray;
    return Grashof_Kind({length(1), length(2), length(3), length(4)});
}

}  // namespace

GrashofKind Grashof_Kind(const Links& links) {
    std::array<Single, 4> s{links.L1, links.L2, links.L3, links.L4};
    const Single coupler = links.L3;
    std::sort(s.begin(), s.end());
    const Single extremes = s[0] + s[3];
    const Single others = s[1] + s[2];
    const Single three = s[0] + s[1] + s[2];
    if (three <= s[3]) return {"Can't Connect", "No Linkage", kCannotConnect};
    if (others < extremes) return {"Linkage is Non-Grashof", "Non-Grashof", "N"};
    if (others == extremes) return {"Special-Case Grashof Linkage", "Special Case", "SC"};
    if (s[0] == coupler) return {"Grashof Double-Rocker", "Grashof Double-Rocker", "Y"};
    return {"Linkage is Grashof", "Grashof", "Y"};
}

void Grashof() {
    Guarded("Grashof", [] {
        const GrashofKind kind = Classified();
        Model.Grashof_Code = kind.code;
        platform::With<Label>("frm_Cayley", "Pnl_Grashof", kNoIndex, [&](Label& l) { l.Caption = kind.short_text; });
        for (const char* screen : kScreens)
            platform::With<Label>(screen, "lbl_Grashof", kNoIndex, [&](Label& l) { l.Caption = kind.long_text; });
        platform::With<platform::Frame>("frm_Inputnew", "fra_toggle", kNoIndex,
                                        [&](platform::Frame& f) { f.Visible = kind.code == "N"; });
    });
}

Single Toggle_Angle(const Geometry& linkage) {
    const auto& length = linkage.LinkArray;
    const Single L1 = length(1), L2 = length(2), L3 = length(3), L4 = length(4);
    const Single K = Divide(L1 * L1 + L2 * L2 - L3 * L3 - L4 * L4, 2 * L2 * L1);
    const Single M = Divide(L4 * L3, L1 * L2);
    const Single outer = M + K, inner = K - M;
    return FNArcCos(std::fabs(outer) <= 1 ? outer : inner) * kRadToDeg;
}

double Toggle() {
    Single angle = 0;
    Guarded("Toggle", [&] {
        angle = Toggle_Angle(Model);
        // Limits are typed in the global frame.
        const char* unit = Model.Link1Angle == 0 ? "deg" : "deg to link 1";
        for (const char* screen : kScreens) {
            platform::With<Label>(screen, "lbl_Toggle", 0, [&](Label& l) { l.Caption = FNRoundStr(angle, 1); });
            platform::With<Label>(screen, "lbl_Toggle", 1, [&](Label& l) { l.Caption = unit; });
        }
        platform::With<platform::OptionButton>("frm_Inputnew", "opt_Calctype", 2,
                                               [](platform::OptionButton& o) { o.Enabled = false; });
    });
    return angle;
}

void Classify_Linkage() {
    Grashof();
    const bool toggles = Model.Grashof_Code == "N";
    if (toggles) Toggle();
    for (const char* screen : kScreens) {
        platform::With<platform::Frame>(screen, "fra_toggle", kNoIndex,
                                        [&](platform::Frame& f) { f.Visible = toggles; });
        for (const int index : {0, 1})
            platform::With<Label>(screen, "lbl_Toggle", index, [&](Label& l) { l.Visible = toggles; });
    }
}

bool Closes_Somewhere() { return Classified().code != kCannotConnect; }

const char* Grashof_Long_Text() {
    const char* text = "";
    Guarded("Grashof", [&] { text = Classified().long_text; });
    return text;
}

}  // namespace verlink
