// What becomes of the linkage that is chosen: the one in hand, or free choices of a synthesis.
#include "core/linkage_model.h"
#include "core/results.h"
#include "core/window_sizes.h"
#include "design/choices.h"
#include "design/hand_over.h"
#include "platform/guard.h"
#include "screens/frm_explore.h"
#include "screens/synthesis_screen.h"
#include "screens/typed_positions.h"
#include "screens/view_menu.h"

namespace verlink {

namespace {

constexpr char kInput[] = "frm_Inputnew";
constexpr const char* kOfTwo[] = {"frm_Synth2A", "frm_Synth2B"};
constexpr char kOfThree[] = "frm_Synth3";

Synthesis_Screen& Synthesis(const char* name) { return dynamic_cast<Synthesis_Screen&>(platform::Screens::Get(name)); }

/// The one below, if it is of so many positions.
Synthesis_Screen* Below(std::size_t positions) {
    for (platform::Screen* screen : platform::Screens::Made()) {
        auto* synthesis = dynamic_cast<Synthesis_Screen*>(screen);
        if (synthesis && synthesis->Visible() && (screen->Name() == kOfThree) == (positions == 3)) return synthesis;
    }
    return nullptr;
}

/// The one of two positions that was used last, unless the other alone comes to the linkage.
int Method_For(const design::Choices& choices) {
    const int last = Model.SynMethod == 2 ? 2 : 1, other = 3 - last;
    const auto fits = [&](int method) { return Synthesis(kOfTwo[method - 1]).Trouble_With(choices).empty(); };
    return fits(last) || !fits(other) ? last : other;
}

void Show_Positions() {
    auto& choice = platform::Screens::Get(kInput).Get<View_Choice>("mnu_ViewPositions");
    if (!choice.On()) choice.Choose(true);
}

}  // namespace

void frm_Explore::Bind_Roads() {
    cmd_Use.OnClick = [this] { cmd_Use_Click(); };
    cmd_Choices.OnClick = [this] { cmd_Choices_Click(); };
}

void frm_Explore::Allow_Roads() {
    constexpr std::size_t kMost = 3;
    const design::Solution* solution = Chosen();
    cmd_Use.Enabled = solution && solution->judgement.Good() && !unseen_;
    cmd_Choices.Enabled = cmd_Use.Enabled.Get() && task_.positions.size() <= kMost;
}

void frm_Explore::Leave_Box(const std::function<void()>& take) {
    const std::optional<design::Solution> before = Chosen() ? std::optional(*Chosen()) : std::nullopt;
    take();
    unseen_ = unseen_ || (before && Chosen() && design::Apart_As_Driven(before->linkage, Chosen()->linkage) > 0);
    Allow_Roads();
    Listen();
}

void frm_Explore::cmd_Use_Click() {
    Guarded("frm_Explore.cmd_Use", [this] {
        if (!Chosen() || !Chosen()->judgement.Good() || unseen_) return;
        const design::Solution solution = *Chosen();
        Leave();
        design::Hand_Over(task_, solution, Model);
        if (Model.DesignTask.empty() || Task_In_Hand(Model) != task_)
            Take_Task_Text(Model.DesignTask, design::Task_Text(task_));
        Show_Positions();
        Hide();
        Arrive_At(kInput);
    });
}

void frm_Explore::cmd_Choices_Click() {
    Guarded("frm_Explore.cmd_Choices", [this] {
        const design::Solution* solution = Chosen();
        const std::size_t positions = task_.positions.size();
        if (!solution || !solution->judgement.Good() || unseen_ || positions > 3) return;
        design::Choices choices = design::Choices_Of(task_, *solution);
        Synthesis_Screen* below = Below(positions);
        choices.specified = below && Model.SpecifiedPivots;
        const int method = below || positions == 3 ? 0 : Method_For(choices);
        Synthesis_Screen& synthesis = below ? *below : Synthesis(positions == 3 ? kOfThree : kOfTwo[method - 1]);
        if (const std::string trouble = synthesis.Trouble_With(choices); !trouble.empty())
            return platform::Tell("Calculate would not come to this linkage: " + trouble + ". Use takes it as it is.",
                                  platform::Icon::kInformation);
        Leave();
        synthesis.Take_Choices(choices);
        Hide();
        if (below) return;
        if (method > 0) Model.SynMethod = method;
        Model.SynPositions = positions == 3 ? 2 : 1;
        Model.SpecifiedPivots = false;
        Arrive_At(synthesis.Name().c_str());
    });
}

}  // namespace verlink
