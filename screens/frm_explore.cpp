// The search beside, what is kept of what it found, and the ways out.
#include "screens/frm_explore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/typed_units.h"
#include "platform/guard.h"
#include "screens/edit_menu.h"

namespace verlink {

namespace {

using design::Class;
using design::Solution;

constexpr int kPulse = 40;  ///< milliseconds

constexpr std::array<const char*, 5> kOrders{"score", "transmission angle", "room", "longest over shortest link",
                                             "class"};
constexpr std::array<const char*, 6> kClasses{"all classes",   "full-turn cranks",   "crank-rockers",
                                              "double-cranks", "rockers that drive", "non-Grashof"};
constexpr std::array<const char*, 3> kCircuits{"both circuits", "open", "crossed"};

/// Its place in a list; the first for none.
template <std::size_t count>
int Place_In(const std::array<const char*, count>& list, const platform::ComboBox& box) {
    const auto found = std::ranges::find(list, box.Text.Get());
    return found == list.end() ? 0 : static_cast<int>(found - list.begin());
}

/// The larger, the better.
double Merit(const Solution& solution, int order) {
    const design::Judgement& j = solution.judgement;
    switch (order) {
        case 1: return j.transmission;
        case 2: return -design::Distance(j.room.low, j.room.high);
        case 3: return -j.proportion;
        case 4: return -static_cast<double>(j.kind);
        default: return j.score;
    }
}

bool Is_Of_Class(const Solution& solution, int entry) {
    const Class kind = solution.judgement.kind;
    switch (entry) {
        case 1: return design::Turns_Fully(design::Links_Of(solution.linkage));
        case 2: return kind == Class::kCrankRocker;
        case 3: return kind == Class::kDoubleCrank;
        case 4: return kind == Class::kDoubleRocker || kind == Class::kRockerCrank;
        case 5: return kind == Class::kNonGrashof || kind == Class::kSpecialCase;
        default: return true;
    }
}

/// What is known of one that does not do it, as far as it can be drawn.
Solution Drawable(const design::Thrown_Out& out) {
    Solution solution{out.linkage, out.judgement, {}, 0};
    solution.judgement.open = design::Is_Open(out.linkage);
    solution.judgement.crank = {};
    solution.judgement.room = design::Room_Of(out.linkage, solution.judgement.open, 0, 0);
    return solution;
}

std::string Count_Of(std::size_t count, const char* what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

frm_Explore::frm_Explore() : Screen("frm_Explore") {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    DefaultButton = &cmd_Search;
    CancelButton = &cmd_Cancel;
    for (int count = design::kFewestPositions; count <= design::kMostPositions; ++count)
        cmb_Count.AddItem(std::to_string(count));
    for (const char* order : kOrders) cmb_Sort.AddItem(order);
    for (const char* kind : kClasses) cmb_Class.AddItem(kind);
    for (const char* circuit : kCircuits) cmb_Circuit.AddItem(circuit);
    for (const char* pivot : kPivots) cmb_Map.AddItem(pivot);
    hsc_Stroke.SetMax(kStroke);
    Timer1.Interval = kPulse;
    List_Boxes();
    Write_Tips();
    cmb_Sort.Text = kOrders.front();
    cmb_Class.Text = kClasses.front();
    cmb_Circuit.Text = kCircuits.front();
    cmb_Map.Text = kPivots[0];
    txt_Least.Text = "0";
    chk_Curves.Value = true;
    Take_Kept();
    Bind();
}

void frm_Explore::Bind() {
    Bind_Task();
    Bind_Looks();
    Bind_Pictures();
    const std::vector<const platform::Control*> ways_out{&cmd_Cancel};
    lists_.push_back(std::make_unique<Listed_Choice>(cmb_Count, "numbers of positions", ways_out));
    lists_.push_back(std::make_unique<Listed_Choice>(cmb_Drive, "sides", ways_out));
    lists_.push_back(std::make_unique<Listed_Choice>(cmb_Sort, "orders", ways_out));
    lists_.push_back(std::make_unique<Listed_Choice>(cmb_Class, "classes", ways_out));
    lists_.push_back(std::make_unique<Listed_Choice>(cmb_Circuit, "circuits", ways_out));
    lists_.push_back(std::make_unique<Listed_Choice>(cmb_Map, "pivots", ways_out));
    cmd_Search.OnClick = [this] { cmd_Search_Click(); };
    cmd_Stop.OnClick = [this] { cmd_Stop_Click(); };
    Bind_Roads();
    cmd_Cancel.OnClick = [this] { cmd_Cancel_Click(); };
    Timer1.OnTimer = [this] { Pulse(); };
    Serve_Undo(*this, [this] { Show_Kept(); });
}

void frm_Explore::Bind_Looks() {
    const auto list = [this] { Guarded("frm_Explore.List", [this] { List_Shown(); }); };
    for (platform::ComboBox* box : {&cmb_Sort, &cmb_Class, &cmb_Circuit}) box->OnClick = list;
    Reads_As(txt_Least, Model, Quantity::kAngle);
    const auto least = [this, list] {
        if (txt_Least.Touched()) list();
    };
    txt_Least.OnReturn = least;
    txt_Least.OnLostFocus = [this, least] { Leave_Box(least); };
    chk_ThrownOut.OnClick = list;
    cmb_Map.OnClick = [this] {
        map_seen_ = Seen_On_Map();
        Show_Chosen();
    };
    chk_Curves.OnClick = [this] { Show_Chosen(); };
    cmd_Earlier.OnClick = [this] {
        first_ = std::max(0, first_ - kShownAtOnce);
        Show_Gallery();
    };
    cmd_Later.OnClick = [this] {
        if (first_ + kShownAtOnce < static_cast<int>(shown_.size())) first_ += kShownAtOnce;
        Show_Gallery();
    };
    key_Before.OnPress = [this] { Pick(chosen_ - 1); };
    key_Next.OnPress = [this] { Pick(chosen_ + 1); };
    for (int i = 0; i < kShownAtOnce; ++i) pic_Found[i].OnClick = [this, i] { Pick(first_ + i); };
    hsc_Stroke.OnChange = hsc_Stroke.OnScroll = [this] { Show_Pose(); };
    cmd_Play.OnClick = [this] { Play_Or_Pause(); };
}

void frm_Explore::Form_Activate() {
    Guarded("frm_Explore.Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Take_Kept();
        txt_X[1].SetFocus();
    });
}

void frm_Explore::Form_QueryUnload(bool& cancel) {
    cancel = false;
    Leave();
}

void frm_Explore::cmd_Search_Click() {
    Guarded("frm_Explore.cmd_Search", [this] {
        if (!Read()) return;
        link_.reset();
        looked_ = Looked::kAtAGlance;  // the list of before is none of what this search has so far
        picked_ = false;
        search_.Begin(task_, Effort);
        Listen();
        Say();
    });
}

void frm_Explore::cmd_Stop_Click() {
    Guarded("frm_Explore.cmd_Stop", [this] {
        if (!search_.Runs()) return;
        if (const design::Found found = search_.Await(); found.judged > 0) Take_Found(found, Looked::kSearched);
        Say();
        Listen();
    });
}

void frm_Explore::Await_Search() {
    if (search_.Runs()) Take_Found(search_.To_Its_End(), Looked::kSearched);
}

/// Takes over what the search has found, and moves what plays.
void frm_Explore::Pulse() {
    if (std::exchange(unseen_, false)) Allow_Roads();
    if (playing_ != 0) Play_On();
    if (auto found = search_.Take())
        Take_Found(*found, Looked::kSearched);
    else
        Say();
    Listen();
}

void frm_Explore::Glance() {
    if (search_.Runs()) search_.Await();  // of another task
    link_.reset();
    curves_ = design::Curves_Of(task_);
    design::Effort effort;
    effort.coarse = true;
    // While a hand has a body, each move is to be seen at once; what it lets go is looked at more closely.
    if (held_.position > 0) effort.rounds = 1;
    Take_Found(design::Find(task_, effort), Looked::kAtAGlance);
}

void frm_Explore::Take_Found(const design::Found& found, Looked looked) {
    found_ = found;
    looked_ = looked;
    List_Shown();
    Listen();
}

void frm_Explore::List_Shown() {
    const std::optional<Solution> before = Chosen() ? std::optional(*Chosen()) : std::nullopt;
    for (platform::ComboBox* box : {&cmb_Sort, &cmb_Class, &cmb_Circuit}) box->Enabled = !chk_ThrownOut.Value;
    txt_Least.Enabled = !chk_ThrownOut.Value;
    shown_.clear();
    if (chk_ThrownOut.Value) {
        for (const design::Thrown_Out& out : found_.thrown_out) shown_.push_back(Drawable(out));
        // What jumps, jams or comes in another order says more than what lies beyond a limit.
        std::ranges::stable_sort(shown_, {}, [](const Solution& s) {
            return (static_cast<int>(s.judgement.refusal) + design::kRefusals -
                    static_cast<int>(design::Refusal::kCircuit)) %
                   design::kRefusals;
        });
    } else {
        std::ranges::copy_if(found_.solutions, std::back_inserter(shown_),
                             [this](const Solution& solution) { return Passes(solution); });
        if (const int order = Place_In(kOrders, cmb_Sort); order > 0)
            std::ranges::stable_sort(shown_, std::greater{}, [&](const Solution& s) { return Merit(s, order); });
    }
    Choose_Again(before);
    Say();
    Show_Gallery();
}

double frm_Explore::Least_Transmission() const {
    double least = 0;  // and stays so where the text is no number
    const std::string text = txt_Least.Text;
    Failure_Of([&] { least = Val(text); });
    return least;
}

bool frm_Explore::Passes(const Solution& solution) const {
    const int circuit = Place_In(kCircuits, cmb_Circuit);
    return Is_Of_Class(solution, Place_In(kClasses, cmb_Class)) &&
           (circuit == 0 || solution.judgement.open == (circuit == 1)) &&
           solution.judgement.transmission >= Least_Transmission();
}

/// By the weights of the task, which change nothing else of a judgement.
void frm_Explore::Score_Anew() {
    if (found_.solutions.empty()) return Say();
    const design::Judge judge(task_);
    for (Solution& solution : found_.solutions) solution.judgement = judge.Of(solution.linkage);
    std::ranges::stable_sort(found_.solutions, std::greater{}, [](const Solution& s) { return s.judgement.score; });
    List_Shown();
}

/// What a hand has picked stays in view as long as its like is there; else the first is.
void frm_Explore::Choose_Again(const std::optional<Solution>& before) {
    picked_ = picked_ && before && !shown_.empty();
    if (!picked_) {
        chosen_ = shown_.empty() ? -1 : 0;
        first_ = 0;
        return;
    }
    const auto like = std::ranges::min_element(shown_, {}, [&](const Solution& solution) {
        return design::Apart_As_Driven(solution.linkage, before->linkage);
    });
    chosen_ = static_cast<int>(like - shown_.begin());
    first_ = chosen_ / kShownAtOnce * kShownAtOnce;
}

std::string frm_Explore::Words_Of_Found() const {
    if (!found_.words.empty()) return found_.words;
    const std::string count = Count_Of(found_.solutions.size(), "linkage");
    if (looked_ == Looked::kAtAGlance) return count + " at a first glance. Search looks for all of them.";
    if (looked_ == Looked::kWithALink)
        return count + " with the link from " + Text_Of(FNRound(link_->fixed.real(), 3)) + ", " +
               Text_Of(FNRound(link_->fixed.imag(), 3)) + " to " + Text_Of(FNRound(link_->moving.real(), 3)) + ", " +
               Text_Of(FNRound(link_->moving.imag(), 3)) + ". Search looks for all again.";
    return count + " of " + std::to_string(found_.judged) + " judged" +
           (found_.stopped ? ", stopped before the end." : ".");
}

void frm_Explore::Say() {
    cmd_Stop.Enabled = search_.Runs();
    std::string words = Words_Of_Found();
    if (search_.Runs())
        words = "Searching, " + std::to_string(static_cast<int>(100 * search_.Part())) +
                " %: " + Count_Of(looked_ == Looked::kSearched ? found_.solutions.size() : 0, "linkage") + " so far.";
    if (!chk_ThrownOut.Value && shown_.size() < found_.solutions.size())
        words += shown_.empty() ? " The filter passes none of them."
                                : " The filter passes " + std::to_string(shown_.size()) + ".";
    if (chk_ThrownOut.Value)
        words += shown_.empty() ? " None was thrown out." : " Shown are some that were thrown out.";
    if (!kept_fault_.empty()) words = kept_fault_;
    if (!fault_.empty()) words = fault_;
    lbl_Progress.Caption = words;
}

void frm_Explore::cmd_Cancel_Click() {
    Leave();
    Hide();
}

void frm_Explore::Leave() {
    cmd_Stop_Click();
    if (playing_ != 0) Play_Or_Pause();
}

}  // namespace verlink
