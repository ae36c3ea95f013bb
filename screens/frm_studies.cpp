// The settings in boxes, and the study beside the screen.
#include "screens/frm_studies.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <thread>

#include "core/results.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "dynamics/typed_units.h"
#include "platform/guard.h"
#include "study/hand_over.h"
#include "study/words.h"

namespace verlink {

using platform::ComboBox;
using platform::TextBox;
using study::Number;

namespace {

constexpr int kPulse = 200;  ///< milliseconds
constexpr char kNoField[] = "(none)", kGlobal[] = "Global", kLocal[] = "Local";
constexpr Number kMost = Number{1} << 53U;

/// With the digits of a single; what is beyond those was written by a hand into a file.
std::string In_Digits(double kept, double factor) {
    const double shown = kept * factor;
    return std::fabs(shown) <= std::numeric_limits<float>::max() ? Text_Of(static_cast<Single>(shown)) : Text_Of(shown);
}
/// Failure 6 for what no field holds.
double Typed(const TextBox& box) {
    const double typed = Val(Ungrouped(box.Text.Get()));
    [[maybe_unused]] const Single held = typed;
    return typed;
}

/// A count that a hand has typed.
Number Count_In(const TextBox& box, Number least) {
    const double typed = std::round(Typed(box));
    return typed >= static_cast<double>(kMost) ? kMost : std::max(least, static_cast<Number>(std::max(typed, 0.0)));
}

/// As the model file has it, without the blanks that do not count.
std::string Field_Text(const ComboBox& list) {
    std::string field = list.Text.Get() == kNoField ? "" : list.Text.Get();
    std::erase(field, ' ');
    return field;
}

}  // namespace

frm_Studies::frm_Studies() : Screen("frm_Studies"), model_(Model) {
    Width() = kWorkWidth;
    Height() = kWorkHeight;
    DefaultButton = &cmd_Start;
    CancelButton = &cmd_Cancel;
    Timer1.Interval = kPulse;
    fra_Tolerance.Visible = grf_Sweep.Visible = map_Sweep.Visible = false;
    his_Spread.Visible = bar_Share.Visible = false;
    cmd_Stop.Enabled = cmd_Take.Enabled = cmd_Before.Enabled = cmd_After.Enabled = false;
    for (const auto& list : cmb_Spread)
        for (const auto spread : {study::Spread::kNormal, study::Spread::kUniform, study::Spread::kWorst})
            list->AddItem(study::Name_Of(spread));
    for (const char* frame : {kGlobal, kLocal}) cmb_Frame.AddItem(frame);
    Write_Tips();
    Bind();
    Serve_Undo(*this, [this] { Read_Record(); });
}

void frm_Studies::Write_Tips() {
    opt_Kind[0].Tip = "One field or two go through values at equal distances";
    opt_Kind[1].Tip = "Fields lie at random about the values of the model";
    for (int row = 1; row <= Settings::kSweeps; ++row) {
        const std::string of = row == 1 ? " of the first field" : " of the second field";
        cmb_Sweep[row].Tip = row == 1 ? "The field that moves, as the model file calls it"
                                      : "A second field that moves, for a map; or none";
        txt_From[row].Tip = "First value" + of + ", in the unit beside it";
        txt_To[row].Tip = "Last value" + of + ", in the unit beside it";
        txt_Count[row].Tip = "How many values" + of + ", both ends among them";
    }
    for (int row = 1; row <= Settings::kTolerances; ++row) {
        const std::string of = ", tolerance " + std::to_string(row);
        cmb_Tolerance[row].Tip = "A field that has a tolerance, as the model file calls it; or none" + of;
        txt_PlusMinus[row].Tip = "How far it is off at most, up and down, in the unit beside it" + of;
        cmb_Spread[row].Tip =
            "normal: three standard deviations are the tolerance; uniform: anywhere; worst: both ends" + of;
    }
    txt_Samples.Tip = "How many linkages are made at random";
    txt_Seed.Tip = "Another whole number makes other random linkages; the same one makes the same";
    cmb_Frame.Tip = "The frame of velocities and accelerations: global, or the local rotating one";
    grf_Sweep.Tip = "The measure over the field; a click picks the linkage there";
    map_Sweep.Tip = "The measure over both fields; a click picks the linkage there";
    his_Spread.Tip = "How the measure spreads; a click counts the linkages there";
    bar_Share.Tip = "How much of the spread comes from which field, and the measure's derivative by it";
    Picture1.Tip = "The linkage, and where its coupler point comes to lie; a click on a dot picks that linkage";
    hsc_Step.Tip = "The position of the run that is drawn";
    cmd_Before.Tip = "Pick the linkage before";
    cmd_After.Tip = "Pick the linkage that follows";
    cmd_Take.Tip = "The linkage that is picked becomes the one in hand";
    cmd_Start.Tip = "Solve all linkages of the study";
    cmd_Stop.Tip = "End the study, and keep what is there";
    cmd_Cancel.Tip = "Go back to the home screen; the settings stay with the model";
}

void frm_Studies::Bind() {
    opt_Kind.On(&platform::OptionButton::OnClick,
                [this](int kind) { Change([kind](Settings& s) { s.kind = static_cast<Settings::Kind>(kind); }); });
    Bind_Sweeps();
    Bind_Tolerances();
    Bind_Measures();
    cmd_Start.OnClick = [this] { cmd_Start_Click(); };
    cmd_Stop.OnClick = [this] { aside_.Stop(); };
    cmd_Take.OnClick = [this] { cmd_Take_Click(); };
    cmd_Cancel.OnClick = [this] { cmd_Cancel_Click(); };
    cmd_Before.OnClick = [this] { Step_Pick(-1); };
    cmd_After.OnClick = [this] { Step_Pick(1); };
    Timer1.OnTimer = [this] { Pulse(); };
    grf_Sweep.OnSeek = [this](int point) { Pick(static_cast<Number>(point - 1)); };
    map_Sweep.OnPick = [this](platform::Color_Map::Cell cell) {
        Pick(static_cast<Number>(cell.across) * settings_.sweeps[1].count + static_cast<Number>(cell.up));
    };
    his_Spread.OnPick = [this](double value) { Tell_Bin(value); };
    hsc_Step.OnChange = hsc_Step.OnScroll = [this] { Show_Picture(); };
    Picture1.Magnifies = true;
    Picture1.OnSeize = [this](const platform::Touch& touch) { return Pick_In_Cloud(touch); };
    table.mnu_CopyTable.Keys = "Ctrl+C";
}

void frm_Studies::Bind_Sweeps() {
    for (int row = 1; row <= Settings::kSweeps; ++row) {
        const auto at = static_cast<std::size_t>(row - 1);
        const auto quantity = [this, at] {
            return study::Shown_Field(settings_.sweeps.at(at).field, model_.Units).quantity;
        };
        const auto take = [this, at](const TextBox& box, double Settings::Swept::*value) {
            Change([&](Settings& s) {
                s.sweeps.at(at).*value = Typed(box) / study::Shown_Field(s.sweeps.at(at).field, s.units).factor;
            });
        };
        const auto limit = [this, quantity, take](TextBox& box, double Settings::Swept::*value) {
            Reads_As(box, model_, quantity);
            box.OnLostFocus = box.OnReturn = [&box, take, value] {
                if (box.Touched()) take(box, value);
            };
        };
        limit(txt_From[row], &Settings::Swept::from);
        limit(txt_To[row], &Settings::Swept::to);
        Reads_As(txt_Count[row], model_, Quantity::kNumber);
        txt_Count[row].OnLostFocus = txt_Count[row].OnReturn = [this, at, row] {
            if (txt_Count[row].Touched())
                Change([&](Settings& s) { s.sweeps.at(at).count = Count_In(txt_Count[row], 1); });
        };
        cmb_Sweep[row].OnClick = cmb_Sweep[row].OnLostFocus = [this, row] { Row_Changed(cmb_Sweep[row], row, true); };
    }
}

void frm_Studies::Bind_Tolerances() {
    for (int row = 1; row <= Settings::kTolerances; ++row) {
        const auto at = static_cast<std::size_t>(row - 1);
        TextBox& box = txt_PlusMinus[row];
        Reads_As(box, model_,
                 [this, at] { return study::Shown_Field(settings_.tolerances.at(at).field, model_.Units).quantity; });
        box.OnLostFocus = box.OnReturn = [this, at, &box] {
            if (!box.Touched()) return;
            Change([&](Settings& s) {
                s.tolerances.at(at).plus_minus =
                    std::fabs(Typed(box)) / study::Shown_Field(s.tolerances.at(at).field, s.units).factor;
            });
        };
        ComboBox& spread = cmb_Spread[row];
        spread.OnClick = spread.OnLostFocus = [this, at, &spread] {
            const auto& items = spread.Items();
            const auto found = std::ranges::find(items, spread.Text.Get());
            const study::Spread before = settings_.tolerances.at(at).spread;
            // What names none is put back.
            if (found == items.end()) spread.Text = study::Name_Of(before);
            const auto now = found == items.end() ? before : static_cast<study::Spread>(found - items.begin());
            if (now != before) Change([&](Settings& s) { s.tolerances.at(at).spread = now; });
        };
        ComboBox& field = cmb_Tolerance[row];
        field.OnClick = field.OnLostFocus = [this, row, &field] { Row_Changed(field, row, false); };
    }
    const auto whole = [this](TextBox& box, auto Settings::*value, Number least) {
        Reads_As(box, model_, Quantity::kNumber);
        box.OnLostFocus = box.OnReturn = [this, &box, value, least] {
            if (box.Touched()) Change([&](Settings& s) { s.*value = Count_In(box, least); });
        };
    };
    whole(txt_Samples, &Settings::samples, 1);
    whole(txt_Seed, &Settings::seed, 0);
}

void frm_Studies::Bind_Measures() {
    measure.OnChoose = [this](const std::string& words) { Change([&](Settings& s) { s.measure = words; }); };
    keep.OnChoose = [this](const std::string& words) { Change([&](Settings& s) { s.keep = words; }); };
    cmb_Frame.OnClick = cmb_Frame.OnLostFocus = [this] {
        const bool local = cmb_Frame.Text.Get() == kLocal;
        if (!local && cmb_Frame.Text.Get() != kGlobal)
            cmb_Frame.Text = settings_.local ? kLocal : kGlobal;
        else if (local != settings_.local)
            Change([&](Settings& s) { s.local = local; });
    };
}

/// Another field begins with values of its own.
void frm_Studies::Row_Changed(ComboBox& list, int row, bool sweeps) {
    const auto at = static_cast<std::size_t>(row - 1);
    const std::string field = Field_Text(list);
    if (field == (sweeps ? settings_.sweeps.at(at).field : settings_.tolerances.at(at).field)) return;
    Change([&](Settings& s) {
        const study::Design design = study::Design_Of(model_);
        if (sweeps)
            s.sweeps.at(at) = field.empty() ? Settings::Swept{} : study::Usual_Sweep(field, design);
        else
            s.tolerances.at(at) = field.empty() ? Settings::Tolerated{} : study::Usual_Tolerance(field, design);
    });
}

void frm_Studies::Form_Activate() {
    Guarded("frm_Studies.Activate", [this] {
        Fit_Screen(*this, kWorkWidth, kWorkHeight);
        Read_Record();
    });
}

void frm_Studies::Form_QueryUnload(bool& cancel) {
    cancel = false;
    Leave();
}

void frm_Studies::Read_Record() {
    unreadable_.clear();
    const study::Design design = study::Design_Of(model_);
    settings_ = study::Usual_Settings(design, model_.Units);
    std::string fault;
    Settings kept;
    if (!model_.StudySettings.empty()) {
        if (study::Read_Settings(model_.StudySettings, kept, fault))
            settings_ = study::In_Units(kept, model_.Units);
        else
            unreadable_ =
                "The settings that are kept with this model cannot be read, and stay as they are: " + fault + ".";
    }
    Fill();
    Follow();
}

void frm_Studies::Change(const std::function<void(Settings&)>& how) {
    if (filling_ || !unreadable_.empty()) return;
    // What failed is told, and the boxes show what stands.
    Guarded("frm_Studies.Change", [&] {
        Settings now = settings_;
        how(now);
        if (!(now == settings_)) Take_Task_Text(model_.StudySettings, study::Settings_Text(now));
    });
    Guarded("frm_Studies.Show", [this] { Read_Record(); });
}

void frm_Studies::Fill() {
    filling_ = true;
    Fill_Fields();
    opt_Kind[static_cast<int>(settings_.kind)].Value = true;
    Fill_Sweeps();
    Fill_Tolerances();
    measure.Show(settings_.measure);
    keep.Show(settings_.keep);
    cmb_Frame.Text = settings_.local ? kLocal : kGlobal;
    filling_ = false;
    Enable_All();
}

/// Those that move something in this model.
void frm_Studies::Fill_Fields() {
    const study::Design design = study::Design_Of(model_);
    std::vector<std::string> fields{kNoField};
    std::string fault;
    for (const study::Field& field : study::Fields())
        if (study::Field_Named(field.name, design, fault)) fields.emplace_back(field.name);
    if (fields == fields_) return;
    fields_ = fields;
    for (auto* lists : {&cmb_Sweep, &cmb_Tolerance})
        for (const auto& list : *lists) {
            list->Clear();
            for (const std::string& field : fields_) list->AddItem(field);
        }
}

void frm_Studies::Fill_Sweeps() {
    for (int row = 1; row <= Settings::kSweeps; ++row) {
        const Settings::Swept& swept = settings_.sweeps.at(static_cast<std::size_t>(row - 1));
        const study::Shown_As shown = study::Shown_Field(swept.field, model_.Units);
        const bool there = !swept.field.empty();
        cmb_Sweep[row].Text = there ? swept.field : kNoField;
        txt_From[row].Text = there ? In_Digits(swept.from, shown.factor) : "";
        txt_To[row].Text = there ? In_Digits(swept.to, shown.factor) : "";
        txt_Count[row].Text = there ? std::to_string(swept.count) : "";
        lbl_SweepUnit[row].Caption = shown.unit;
        txt_From[row].Enabled = txt_To[row].Enabled = txt_Count[row].Enabled = there;
    }
}

void frm_Studies::Fill_Tolerances() {
    for (int row = 1; row <= Settings::kTolerances; ++row) {
        const Settings::Tolerated& tolerated = settings_.tolerances.at(static_cast<std::size_t>(row - 1));
        const study::Shown_As shown = study::Shown_Field(tolerated.field, model_.Units);
        const bool there = !tolerated.field.empty();
        cmb_Tolerance[row].Text = there ? tolerated.field : kNoField;
        txt_PlusMinus[row].Text = there ? In_Digits(tolerated.plus_minus, shown.factor) : "";
        lbl_ToleranceUnit[row].Caption = shown.unit;
        cmb_Spread[row].Text = study::Name_Of(tolerated.spread);
        txt_PlusMinus[row].Enabled = cmb_Spread[row].Enabled = there;
    }
    txt_Samples.Text = std::to_string(settings_.samples);
    txt_Seed.Text = std::to_string(settings_.seed);
}

/// What cannot be read is not changed either.
void frm_Studies::Enable_All() {
    const bool readable = unreadable_.empty(), sweeps = settings_.kind == Settings::Kind::kSweep;
    fra_Sweep.Visible = sweeps;
    fra_Tolerance.Visible = !sweeps;
    for (const auto& option : opt_Kind) option->Enabled = readable;
    for (platform::Control* control : Controls()) {
        auto* visual = dynamic_cast<platform::Visual*>(control);
        const bool typed = dynamic_cast<TextBox*>(control) || dynamic_cast<ComboBox*>(control);
        if (typed && !readable) visual->Enabled = false;
    }
    if (!readable) return;
    for (auto* lists : {&cmb_Sweep, &cmb_Tolerance})
        for (const auto& list : *lists) list->Enabled = true;
    txt_Samples.Enabled = txt_Seed.Enabled = cmb_Frame.Enabled = true;
    measure.Enable(true);
    keep.Enable(true);
}

study::Design frm_Studies::Design_Now(std::string& fault) const {
    study::Design design = study::Design_Of(model_);
    fault = study::Take_Limits(design);
    return design;
}

std::optional<study::Study> frm_Studies::Study_Now(std::string& fault) const {
    const study::Design design = Design_Now(fault);
    if (!unreadable_.empty()) fault = unreadable_;
    if (!fault.empty()) return std::nullopt;
    const study::Words words = study::Words_Of(settings_);
    const bool sweeps = settings_.kind == Settings::Kind::kSweep;
    auto study = study::Study_Of(words, design, fault);
    if (!study) return study;
    if (study->plan.Moved().empty()) {
        fault = sweeps ? "Choose a field to sweep." : "Choose a field that has a tolerance.";
        return std::nullopt;
    }
    const bool two = study->plan.sweeps.size() > 1;
    if (sweeps && study->plan.Count().value() > (two ? kMapped : kPlotted)) {
        fault = "The plot takes " + std::to_string(kPlotted) + " values of one field at most, the map " +
                std::to_string(kMapped) + " of two; verlink-batch takes more.";
        return std::nullopt;
    }
    return study;
}

void frm_Studies::Follow() {
    std::string fault;
    const auto study = Study_Now(fault);
    lbl_Fault.Caption = fault;
    if (begun_ && (!study || study::Settings_Text(settings_) + study::Key_Of(study->design) != key_)) Drop();
    const study::Design design = Design_Now(fault);
    mechanism_.reset();
    if (fault.empty() && !design.Imported()) mechanism_.emplace(design);
    if (mechanism_) window_ = study::Window_Of(*mechanism_);
    hsc_Step.Enabled = mechanism_ && mechanism_->Last() > 0;
    hsc_Step.SetMax(mechanism_ ? mechanism_->Last() : 0);
    Show_Found();
}

void frm_Studies::Drop() {
    aside_.Stop();
    begun_ = false;
    found_ = {};
    picked_.reset();
    picked_mechanism_.reset();
    Timer1.Enabled = cmd_Stop.Enabled = false;
}

void frm_Studies::cmd_Start_Click() {
    Guarded("frm_Studies.cmd_Start", [this] {
        // Return in a list comes here without leaving it.
        if (const auto* list = dynamic_cast<ComboBox*>(Focus()); list && list->OnLostFocus) list->OnLostFocus();
        std::string fault;
        const auto study = Study_Now(fault);
        lbl_Fault.Caption = fault;
        if (!study) return;
        Drop();
        key_ = study::Settings_Text(settings_) + study::Key_Of(study->design);
        begun_ = true;
        aside_.Begin(*study, static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U)));
        Timer1.Enabled = cmd_Stop.Enabled = true;
        Pulse();
    });
}

void frm_Studies::Pulse() {
    if (!begun_) return;
    found_ = aside_.Look();
    if (found_.ended) Timer1.Enabled = cmd_Stop.Enabled = false;
    Show_Found();
}

void frm_Studies::cmd_Take_Click() {
    Guarded("frm_Studies.cmd_Take", [this] {
        if (!picked_) return;
        study::Hand_Over(aside_.The_Bench().Moved(), picked_fields_, model_);
        Read_Record();
    });
}

void frm_Studies::Leave() {
    aside_.Stop();
    aside_.Await();
    Pulse();
}

void frm_Studies::cmd_Cancel_Click() {
    Leave();
    Hide();
}

}  // namespace verlink
