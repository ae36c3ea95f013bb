// The task between the boxes and the model.
#include <algorithm>
#include <array>
#include <cmath>

#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/results.h"
#include "core/text.h"
#include "design/task_units.h"
#include "dynamics/shown_length.h"
#include "dynamics/typed_units.h"
#include "platform/clipboard.h"
#include "platform/desktop_services.h"
#include "platform/guard.h"
#include "screens/area_text.h"
#include "screens/frm_explore.h"
#include "screens/place_text.h"

namespace verlink {

namespace {

using design::Place;
using design::Point;
using design::Task;
using platform::TextBox;

constexpr int kHeaviest = 10;

/// As the list has them, in the order of `design::Drive`.
constexpr std::array<const char*, 3> kDrives{"the left side", "the right side", "either side"};
constexpr std::array<const char*, 4> kPlaces{"left fixed", "left moving", "right fixed", "right moving"};

std::string Number(double value, int decimals) { return std::isfinite(value) ? Text_Of(FNRound(value, decimals)) : ""; }

/// Empty for a text that is no number, or more than one.
std::optional<double> Value_Of(const std::string& text) {
    std::optional<double> value;
    const std::string plain = Ungrouped(text);
    if (Failure_Of([&] { value = Val(plain); }) != 0) return {};
    return value;
}

/// Round numbers in each system.
Task Begun_Task(int units) {
    constexpr std::array<double, 6> kScale{1, 1, 1, 0.1, 10, 100};
    Task task;
    task.units = units;
    task.positions = {{{0, 0}, 0}, {{4, 1}, 30}, {{6, 4}, 60}};
    for (Place& place : task.positions) place.at *= kScale.at(static_cast<std::size_t>(units));
    return task;
}

design::Area& Area_At(Task& task, int place) {
    design::Area* areas[] = {&task.left.fixed, &task.left.moving, &task.right.fixed, &task.right.moving};
    return *areas[place];
}

double& Weight_At(Task& task, int weight) {
    design::Weights& w = task.weights;
    double* weights[] = {&w.transmission, &w.proportion, &w.room, &w.rounding};
    return *weights[weight];
}

/// Typed the way that the task has it.
void Put_Positions(std::vector<Place> absolute, Task& task) {
    if (task.relative)
        for (std::size_t i = 1; i < absolute.size(); ++i) {
            absolute[i].at -= absolute[0].at;
            absolute[i].angle -= absolute[0].angle;
        }
    task.positions = std::move(absolute);
}

/// So many that no eye tells a step of the last one.
int Decimals_Of(double pixel) {
    constexpr int kMost = 5;
    return std::clamp(static_cast<int>(std::ceil(-std::log10(pixel / 2))), 0, kMost);
}

/// One step farther, as the last two positions go.
Place One_Farther(const std::vector<Place>& places) {
    const Place &last = places.back(), &before = places[places.size() - 2];
    return {2.0 * last.at - before.at, 2 * last.angle - before.angle};
}

}  // namespace

void frm_Explore::List_Boxes() {
    for (const char* drive : kDrives) cmb_Drive.AddItem(drive);
    for (const auto& bar : hsc_Weight) bar->SetMax(kHeaviest);
    constexpr double kInfinity = std::numeric_limits<double>::infinity(), kRightAngle = 90;
    for (int i = 1; i <= design::kMostPositions; ++i) {
        const std::string of = " of position " + std::to_string(i);
        const auto place = [i](Task& task) -> Place& { return task.positions[static_cast<std::size_t>(i - 1)]; };
        numbers_.push_back({&txt_X[i], "x" + of, -design::kLargestLength, design::kLargestLength,
                            [place](Task& task, double x) { place(task).at.real(x); }});
        numbers_.push_back({&txt_Y[i], "y" + of, -design::kLargestLength, design::kLargestLength,
                            [place](Task& task, double y) { place(task).at.imag(y); }});
        numbers_.push_back({&txt_Angle[i], "the angle" + of, -design::kLargestAngle, design::kLargestAngle,
                            [place](Task& task, double angle) { place(task).angle = angle; }});
    }
    numbers_.push_back({&txt_Limit[0], "the shortest link", 0, design::kLargestLength,
                        [](Task& task, double length) { task.shortest = length; }});
    numbers_.push_back({&txt_Limit[1], "the longest link", 0, design::kLargestLength,
                        [](Task& task, double length) { task.longest = length > 0 ? length : kInfinity; }});
    numbers_.push_back({&txt_Limit[2], "the transmission angle", 0, kRightAngle,
                        [](Task& task, double angle) { task.transmission = angle; }});
}

void frm_Explore::Bind_Task() {
    const auto take = [this](TextBox& box) {
        box.OnReturn = [this] { Task_Changed(); };
        box.OnLostFocus = [this] { Leave_Box([this] { Task_Changed(); }); };
        // What was typed is undone, and what was said of it goes with it.
        box.Text.Event = [this, &box] {
            if (filling_ || box.Touched() || fault_.empty()) return;
            fault_.clear();
            Say();
        };
    };
    const auto reads = [](auto& boxes, Quantity quantity) {
        for (const auto& box : boxes) Reads_As(*box, Model, quantity);
    };
    reads(txt_X, Quantity::kLength);
    reads(txt_Y, Quantity::kLength);
    reads(txt_Angle, Quantity::kAngle);
    for (const int length : {0, 1}) Reads_As(txt_Limit[length], Model, Quantity::kLength);
    Reads_As(txt_Limit[2], Model, Quantity::kAngle);
    for (const Number_Box& number : numbers_) take(*number.box);
    for (const auto& box : txt_Area) take(*box);
    cmb_Count.OnClick = [this] { Choose_Count(); };
    cmb_Drive.OnClick = [this] {
        Edit([this](Task& task) { task.drive = static_cast<design::Drive>(std::max(0, cmb_Drive.ListIndex())); });
    };
    opt_Relative.On(&platform::OptionButton::OnClick, [this](int) { Choose_Form(); });
    chk_FullTurn.OnClick = [this] { Edit([this](Task& task) { task.full_turn = chk_FullTurn.Value; }); };
    for (int i = 0; i < 4; ++i) hsc_Weight[i].OnChange = hsc_Weight[i].OnScroll = [this, i] { Choose_Weight(i); };
    cmd_Paste.OnClick = [this] { cmd_Paste_Click(); };
}

void frm_Explore::Take_Kept() {
    const int units = Model.Units;
    Task task = Begun_Task(units);
    kept_fault_.clear();
    if (!Model.DesignTask.empty()) {
        Task kept;
        std::string fault;
        bool taken = design::Read_Task(Model.DesignTask, kept, fault);
        if (taken) {
            kept = design::In_Units(kept, units);
            Task again;
            taken = design::Read_Task(design::Task_Text(kept), again, fault);
        }
        if (taken)
            task = kept;
        else
            kept_fault_ = "The task that is kept with the model cannot be read: " + fault +
                          ". It stays as it is until you change something here.";
    }
    fault_.clear();
    for (const Number_Box& number : numbers_) number.box->Settle();
    for (const auto& box : txt_Area) box->Settle();
    const bool same = task == task_ && found_.judged > 0;
    if (!same) spare_.clear();
    task_ = task;
    Fill();
    if (same) return Say();
    picked_ = false;
    Glance();
}

void frm_Explore::Show_Kept() {
    Guarded("frm_Explore.Show_Kept", [this] { Take_Kept(); });
}

void frm_Explore::Keep() {
    task_.units = Model.Units;
    kept_fault_.clear();
    Take_Task_Text(Model.DesignTask, design::Task_Text(task_));
}

void frm_Explore::Take_Task(const Task& task) {
    task_ = design::In_Units(task, Model.Units);
    spare_.clear();
    for (const Number_Box& number : numbers_) number.box->Settle();
    Keep();
    Fill();
    Glance();
}

void frm_Explore::Fill() {
    filling_ = true;
    const ShownLength shown = Shown_Length(task_.units);
    const int decimals = std::min(5, shown.decimals + 1);
    const std::string unit = shown.unit;
    lbl_Head[0].Caption = "x, " + unit;
    lbl_Head[1].Caption = "y, " + unit;
    for (const int length : {0, 1}) lbl_Unit[length].Caption = unit;
    Fill_Positions();
    for (int i = 0; i < 4; ++i)
        if (!txt_Area[i].Touched()) txt_Area[i].Text = Area_Text(Area_At(task_, i));
    const double limits[] = {task_.shortest, task_.longest, task_.transmission};
    for (int i = 0; i < 3; ++i)
        if (!txt_Limit[i].Touched()) txt_Limit[i].Text = Number(limits[i], decimals);
    cmb_Drive.Text = kDrives.at(static_cast<std::size_t>(task_.drive));
    chk_FullTurn.Value = task_.full_turn;
    for (int i = 0; i < 4; ++i)
        hsc_Weight[i].SetValue(std::clamp(static_cast<int>(std::lround(Weight_At(task_, i))), 0, kHeaviest));
    filling_ = false;
    Enable_Rows();
}

/// Behind the count stand, greyed, the positions that were there before.
void frm_Explore::Fill_Positions() {
    const int decimals = std::min(5, Shown_Length(task_.units).decimals + 1);
    cmb_Count.Text = std::to_string(task_.positions.size());
    opt_Relative[task_.relative ? 1 : 0].Value = true;
    Task all = task_;
    std::vector<Place> places = design::Absolute_Positions(task_);
    for (std::size_t i = places.size(); i < spare_.size(); ++i) places.push_back(spare_[i]);
    Put_Positions(places, all);
    for (int row = 1; row <= design::kMostPositions; ++row) {
        const bool there = row <= static_cast<int>(all.positions.size());
        const Place place = there ? all.positions[static_cast<std::size_t>(row - 1)] : Place{};
        const auto fill = [&](TextBox& box, double value) {
            if (!box.Touched()) box.Text = there ? Number(value, decimals) : "";
        };
        fill(txt_X[row], place.at.real());
        fill(txt_Y[row], place.at.imag());
        fill(txt_Angle[row], place.angle);
    }
}

void frm_Explore::Enable_Rows() {
    for (int i = 1; i <= design::kMostPositions; ++i)
        for (TextBox* box : {&txt_X[i], &txt_Y[i], &txt_Angle[i]})
            box->Enabled = i <= static_cast<int>(task_.positions.size());
    chk_Curves.Enabled = task_.positions.size() == 4;
    chk_Curves.Tip = chk_Curves.Enabled
                         ? "Draws the curves on which the pivots of all linkages through these four positions lie"
                         : "The curves of Burmester are those of four positions";
}

std::string frm_Explore::Read_Number(const Number_Box& number, Task& task) const {
    const std::string text = number.box->Text;
    const auto value = Value_Of(text);
    if (!value || !(*value >= number.least && *value <= number.most))
        return "\"" + text + "\" is not taken for " + number.what + ": it is to be a number from " +
               Text_Of(number.least) + " to " + Text_Of(number.most) + ".";
    Task tried = task;
    number.put(tried, *value);
    if (tried.longest <= tried.shortest)
        return "The longest link is to be longer than the shortest: " + number.what + " is not taken.";
    task = tried;
    return "";
}

std::string frm_Explore::Read_Area(int place, Task& task) const {
    const std::string text = txt_Area.begin()[place]->Text;
    const auto area = Area_Of(text);
    if (!area)
        return "\"" + text + "\" is no place for the " + kPlaces.at(static_cast<std::size_t>(place)) +
               " pivot: \"anywhere\", \"0 0 to 4 3\" or \"at 1 2, 3 4\".";
    Task tried = task;
    Area_At(tried, place) = *area;
    Task again;
    if (std::string fault; !design::Read_Task(design::Task_Text(tried), again, fault))
        return "The place of the " + std::string(kPlaces.at(static_cast<std::size_t>(place))) +
               " pivot is not taken: " + fault + ".";
    task = tried;
    return "";
}

bool frm_Explore::Read() {
    const auto touched = [](const auto& box) { return box->Touched(); };
    if (fault_.empty() && std::ranges::none_of(txt_Area, touched) &&
        std::ranges::none_of(numbers_, [](const Number_Box& number) { return number.box->Touched(); }))
        return true;
    Task task = task_;
    fault_.clear();
    const auto take = [&](TextBox& box, const auto& read) {
        if (!box.Touched()) return;
        const std::string fault = read();
        if (fault.empty())
            box.Settle();
        else if (fault_.empty())
            fault_ = fault;
    };
    for (const Number_Box& number : numbers_)
        if (number.box->Enabled) take(*number.box, [&] { return Read_Number(number, task); });
    for (int i = 0; i < 4; ++i) take(txt_Area[i], [&] { return Read_Area(i, task); });
    if (task != task_)
        Take_Edited(task);
    else
        Fill();
    Say();
    return fault_.empty();
}

void frm_Explore::Task_Changed() {
    if (!filling_) Guarded("frm_Explore.Task", [this] { Read(); });
}

void frm_Explore::Edit(const std::function<void(Task&)>& change) {
    if (filling_) return;
    Guarded("frm_Explore.Task", [&] {
        Task task = task_;
        change(task);
        if (task != task_) Take_Edited(task);
    });
}

void frm_Explore::Take_Edited(const Task& task) {
    task_ = task;
    Keep();
    Fill();
    Glance();
}

void frm_Explore::Choose_Count() {
    Edit([this](Task& task) {
        const auto count = static_cast<std::size_t>(Value_Of(cmb_Count.Text).value_or(0));
        if (count < design::kFewestPositions || count > design::kMostPositions) return;
        std::vector<Place> places = design::Absolute_Positions(task);
        for (std::size_t i = 0; i < spare_.size(); ++i)
            if (i < places.size()) spare_[i] = places[i];
        for (std::size_t i = spare_.size(); i < places.size(); ++i) spare_.push_back(places[i]);
        for (std::size_t i = places.size(); i < count; ++i)
            places.push_back(i < spare_.size() ? spare_[i] : One_Farther(places));
        places.resize(count);
        Put_Positions(places, task);
    });
}

/// The body stays where it is; its numbers are others.
void frm_Explore::Choose_Form() {
    Edit([this](Task& task) {
        const std::vector<Place> places = design::Absolute_Positions(task);
        task.relative = opt_Relative[1].Value;
        Put_Positions(places, task);
    });
}

/// What was found stays, and is scored and ordered anew.
void frm_Explore::Choose_Weight(int weight) {
    if (filling_) return;
    Guarded("frm_Explore.Weight", [&] {
        Task task = task_;
        const int before = std::clamp(static_cast<int>(std::lround(Weight_At(task, weight))), 0, kHeaviest);
        if (hsc_Weight[weight].Value() == before) return;
        Weight_At(task, weight) = hsc_Weight[weight].Value();
        const design::Weights& w = task.weights;
        if (w.transmission + w.proportion + w.room + w.rounding <= 0) {
            fault_ = "Something has to count in the score: one of the weights stays above 0.";
            Fill();
            return Say();
        }
        fault_.clear();
        task_ = task;
        Keep();
        Score_Anew();
    });
}

void frm_Explore::cmd_Paste_Click() {
    Guarded("frm_Explore.cmd_Paste", [this] {
        const auto places = Places_Of(platform::Pasted_Text());
        Task task = task_;
        if (places) task.positions = *places;
        Task again;
        std::string fault;
        if (!places)
            fault =
                "The clipboard does not hold two to five lines of three numbers each: x, y and the angle in degrees.";
        else if (!design::Read_Task(design::Task_Text(task), again, fault))
            fault = "The positions on the clipboard are not taken: " + fault + ".";
        if (!fault.empty()) return platform::Tell(fault, platform::Icon::kInformation);
        Take_Task(task);
    });
}

/// Where a hand puts it; the whole search follows when a hand asks for it.
void frm_Explore::Drag(const platform::Touch& touch) {
    if (held_.position == 0) return;
    Guarded("frm_Explore.Drag", [&] {
        std::vector<Place> places = design::Absolute_Positions(task_);
        Place& place = places[static_cast<std::size_t>(held_.position - 1)];
        const Point to(touch.x, touch.y);
        if (held_.turns) {
            const double turn = std::remainder(std::arg(to - place.at) / design::kDegree - place.angle, 360);
            place.angle = FNRound(place.angle + turn, 1);
        } else {
            const int decimals = Decimals_Of(touch.pixel);
            place.at = {FNRound(to.real(), decimals), FNRound(to.imag(), decimals)};
        }
        Task task = task_;
        Put_Positions(places, task);
        Task again;
        if (std::string fault; task != task_ && design::Read_Task(design::Task_Text(task), again, fault)) {
            moved_ = true;
            Take_Edited(task);
        }
        Light_Up(touch);
    });
}

}  // namespace verlink
