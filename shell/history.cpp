// How steps are found, undone and done again.
#include "shell/history.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "core/results.h"
#include "core/results_turns.h"
#include "core/runs.h"
#include "dynamics/balancing.h"
#include "dynamics/dynacalc.h"
#include "files/model_file.h"
#include "platform/deed.h"
#include "platform/guard.h"
#include "platform/unheard.h"

namespace verlink {

using platform::Screen;
using platform::TextBox;

namespace {

/// What no run makes: it came from a file, or with something that the record does not keep.
struct Tables {
    std::vector<Single> drive, torque, flywheel, harmonics;
    bool operator==(const Tables& other) const {
        const auto same = [](const std::vector<Single>& a, const std::vector<Single>& b) {
            return std::ranges::equal(std::as_bytes(std::span(a)), std::as_bytes(std::span(b)));
        };
        return same(drive, other.drive) && same(torque, other.torque) && same(flywheel, other.flywheel) &&
               same(harmonics, other.harmonics);
    }
};

int Last_Step(const LinkageModel& model) { return std::min<int>(model.NSteps, kLastStep); }

/// Calls with each table that the model has at the moment, its array, and the row of it.
template <class Call>
void For_Tables(LinkageModel& model, Tables& tables, Call call) {
    RunResults& run = model.RunTable;
    if (model.Imported()) {
        call(tables.drive, run.DriveTheta, 0, Last_Step(model));
        call(tables.drive, run.Omega, 0, Last_Step(model));
        call(tables.drive, run.Alpha, 0, Last_Step(model));
    }
    if (model.TorqueImported) call(tables.torque, run.ImportedTorque, 0, Last_Step(model));
    if (model.BalanceDone) call(tables.flywheel, run.FlywheelTorque, 0, Last_Step(model));
    if (model.FFTDone)
        for (int row = 0; row <= 3; ++row) call(tables.harmonics, model.FFTResult, row, kLastStep);
}

std::string Values_Of_File() {
    std::string values;
    for (const FileField& field : File_Fields())
        std::visit(
            [&](const auto* place) {
                if constexpr (std::is_same_v<decltype(place), const std::string*>) {
                    const std::size_t length = place->size();
                    values.append(reinterpret_cast<const char*>(&length), sizeof length);
                    values += *place;
                } else {
                    values.append(reinterpret_cast<const char*>(place), sizeof *place);
                }
            },
            field.place);
    return values;
}

void Put_Values_Of_File(const std::string& values) {
    const char* at = values.data();
    for (const FileField& field : File_Fields())
        std::visit(
            [&](auto* place) {
                if constexpr (std::is_same_v<decltype(place), std::string*>) {
                    std::size_t length = 0;
                    std::memcpy(&length, at, sizeof length);
                    at += sizeof length;
                    place->assign(at, length);
                    at += length;
                } else {
                    std::memcpy(static_cast<void*>(place), at, sizeof *place);
                    at += sizeof *place;
                }
            },
            field.place);
}

/// What follows from the fields of a file and goes with them.
struct Beside : Geometry,
                Drive,
                CamDrive,
                CentrodeScratch,
                MassProperties,
                BalanceWeights,
                SynthesisData,
                Tasks,
                UnitSystem {
    explicit Beside(const LinkageModel& model)
        : Geometry(model),
          Drive(model),
          CamDrive(model),
          CentrodeScratch(model),
          MassProperties(model),
          BalanceWeights(model),
          SynthesisData(model),
          Tasks(model),
          UnitSystem(model) {}
    void Put(LinkageModel& model) const {
        static_cast<Geometry&>(model) = *this;
        static_cast<Drive&>(model) = *this;
        static_cast<CamDrive&>(model) = *this;
        // Where the first step does not close, the centrodes go by that of an earlier run.
        static_cast<CentrodeScratch&>(model) = *this;
        static_cast<MassProperties&>(model) = *this;
        static_cast<BalanceWeights&>(model) = *this;
        static_cast<SynthesisData&>(model) = *this;
        static_cast<Tasks&>(model) = *this;
        static_cast<UnitSystem&>(model) = *this;
    }
};

/// The flags of the model; those of the screens stay as they are.
void Put_Flags(const StatusFlags& flags, LinkageModel& model) {
    const bool open = model.InputScreenOpen, back = model.ScreenReturn, started = model.JustStarted;
    static_cast<StatusFlags&>(model) = flags;
    Results_Put_Back();
    model.InputScreenOpen = open;
    model.ScreenReturn = back;
    model.JustStarted = started;
}

}  // namespace

/// All that an undo gives back.
struct History::Moment {
    std::string values;  ///< of the file
    Beside beside;
    StatusFlags flags;
    std::string path, name;
    Integer harmonics, half_samples;
    std::string harmonic_unit;
    std::shared_ptr<const Tables> tables;
    std::shared_ptr<Document> document;
    int times_kept;  ///< of the document
};

History::History(LinkageModel& model) : model_(model) {
    platform::Watch_Deeds({.done = [this](const std::string& what, bool goes_on) { Done(what, goes_on); },
                           .by_itself = [this] { By_Itself(); },
                           .to_be_typed = [this](const platform::Control& control) { To_Be_Typed(control); },
                           .typed = [this] { Tell_Followers(true); }});
    Watch_Hand([this](Hand hand) { In_Hand(hand); });
    Begin();
}

History::~History() {
    platform::Watch_Deeds({});
    Watch_Hand({});
}

void History::Begin() {
    undo_.clear();
    redo_.clear();
    typed_.clear();
    taken_back_.clear();
    drag_has_step_ = false;
    counts_ = What_Counts();
    present_ = Take();
    Tell_Followers(false);
}

std::shared_ptr<History::Moment> History::Take() const {
    auto tables = std::make_shared<Tables>();
    For_Tables(model_, *tables, [](std::vector<Single>& table, auto& array, int row, int last) {
        if (last >= 0)
            table.insert(table.end(), array.Steps(0, last + 1, row), array.Steps(0, last + 1, row) + last + 1);
    });
    std::shared_ptr<const Tables> shared = std::move(tables);
    if (present_ && *present_->tables == *shared) shared = present_->tables;
    auto document = Document_In_Hand();
    const int times_kept = document->times_kept;
    return std::make_shared<Moment>(Moment{Values_Of_File(), Beside(model_), model_, model_.FilePath, model_.ModelName,
                                           model_.Harmonics, model_.HalfSamples, model_.FFTUnitLabel, std::move(shared),
                                           std::move(document), times_kept});
}

bool History::Is_Other(const std::string& counts) const {
    return counts != counts_ || model_.ModuloMode != present_->beside.ModuloMode ||
           Document_In_Hand() != present_->document;
}

void History::Done(const std::string& what, bool goes_on) {
    if (going_) return;
    std::string counts = What_Counts();
    const bool other = Is_Other(counts);
    if (other) {
        // A drag is one step, from where it began.
        if (!goes_on || !drag_has_step_) {
            undo_.push_back({what.empty() ? "change" : what, present_});
            if (undo_.size() > kSteps) undo_.erase(undo_.begin());
        }
        redo_.clear();
        // What stands typed was typed before it, into a box that may show another linkage now.
        typed_.clear();
        taken_back_.clear();
        drag_has_step_ = goes_on;
    } else if (!goes_on) {
        drag_has_step_ = false;
    }
    counts_ = std::move(counts);
    present_ = Take();
    if (other) Tell(Turn::kChanged);
    Tell_Followers(false);
}

void History::By_Itself() {
    if (going_) return;
    const std::string before = std::exchange(counts_, What_Counts());
    Model_Follows(before);
    present_ = Take();
    if (before != counts_) Tell(Turn::kChanged);
    Tell_Followers(false);
}

/// The file is the later model's from now on, and has the name that it was given.
void History::In_Hand(Hand hand) {
    if (platform::Unheard::On()) return;
    if (hand == Hand::kKept) {
        const std::string before = present_->name;
        for (auto* steps : {&undo_, &redo_})
            for (const Step& step : *steps) {
                Moment& moment = *step.moment;
                if (moment.document != Document_In_Hand()) continue;
                moment.path = model_.FilePath;
                if (moment.name == before) moment.name = model_.ModelName;
            }
        counts_ = What_Counts();
        present_ = Take();
    }
    Tell(hand == Hand::kCame ? Turn::kCame : Turn::kKept);
}

// Undo and redo.

void History::Put_Values(const Moment& moment) {
    Put_Values_Of_File(moment.values);
    moment.beside.Put(model_);
    model_.FilePath = moment.path;
    model_.ModelName = moment.name;
    Put_Flags(moment.flags, model_);
}

void History::Put_Tables(const Moment& moment) {
    Tables tables = *moment.tables;
    For_Tables(model_, tables, [](std::vector<Single>& table, auto& array, int row, int last) {
        if (last < 0) return;
        std::copy_n(table.begin(), last + 1, array.Steps(0, last + 1, row));
        table.erase(table.begin(), table.begin() + last + 1);
    });
}

void History::Make_Results_Anew(const Moment& moment) {
    const platform::Unheard nothing_new;
    if (moment.flags.RunStands) {
        Run_Unasked(model_);
        // It clears what was imported for it, and sets what it does not go by.
        Put_Values(moment);
        Put_Tables(moment);
    }
    if (moment.flags.DynamicsDone) Solve_Forces(model_);
    if (moment.flags.BalanceDone) Berkof_Calc(model_, model_.BerkMass, model_.BerkRadius);
}

void History::Put(const Moment& moment) {
    Put_Values(moment);
    Put_Tables(moment);
    Take_In_Hand(moment.document);
    Make_Results_Anew(moment);
    Put_Values(moment);
    model_.Harmonics = moment.harmonics;
    model_.HalfSamples = moment.half_samples;
    model_.FFTUnitLabel = moment.harmonic_unit;
}

bool History::Serves(const Screen& screen) const { return show_.contains(screen.Name()); }

void History::Serve(Screen& screen, std::function<void()> show) { show_[screen.Name()] = std::move(show); }

/// What the flags said then is not all so now: the file may be another, and off the input screen a run that stands
/// counts.
void History::Settle_Flags(const Moment& moment) {
    if (moment.times_kept != moment.document->times_kept && Modified()) Model_Unsaved();
    if (!model_.InputScreenOpen) Run_Counts();
}

namespace {

/// Set for its life.
class Going {
   public:
    explicit Going(bool& going) : going_(going) { going_ = true; }
    ~Going() { going_ = false; }
    Going(const Going&) = delete;
    Going& operator=(const Going&) = delete;

   private:
    bool& going_;
};

}  // namespace

void History::Go(std::vector<Step>& from, std::vector<Step>& to) {
    const Step step = std::move(from.back());
    from.pop_back();
    to.push_back({step.what, Take()});
    typed_.clear();
    taken_back_.clear();
    drag_has_step_ = false;
    const Going going(going_);
    Put(*step.moment);
    Settle_Flags(*step.moment);
    if (const Screen* top = Screen::Active(); top && Serves(*top)) {
        show_[top->Name()]();
        const Integer shown = model_.CurrentStep;
        // Drawing takes settings over from the screen.
        Put_Values(*step.moment);
        // Step goes on from what the screen shows, not from where it was then.
        model_.CurrentStep = shown;
        Settle_Flags(*step.moment);
    }
    counts_ = What_Counts();
    present_ = Take();
    Tell(Turn::kChanged);
}

const History::Typed* History::Last_Typed() const {
    const Screen* top = Screen::Active();
    const auto found = std::find_if(typed_.rbegin(), typed_.rend(), [&](const Typed& typed) {
        return typed.screen == top && typed.box->Touched() && typed.box->Text.Get() != typed.text;
    });
    return found == typed_.rend() ? nullptr : &*found;
}

const History::Typed* History::Last_Taken_Back() const {
    if (taken_back_.empty() || taken_back_.back().screen != Screen::Active()) return nullptr;
    return &taken_back_.back();
}

void History::To_Be_Typed(const platform::Control& control) {
    auto* box = dynamic_cast<TextBox*>(const_cast<platform::Control*>(&control));
    if (!box) return;
    taken_back_.clear();
    const auto known = std::find_if(typed_.begin(), typed_.end(), [&](const Typed& typed) { return typed.box == box; });
    const bool goes_on = known != typed_.end() && box->Touched();
    Typed typed = goes_on ? *known : Typed{box, &box->Owner(), box->Text};
    if (known != typed_.end()) typed_.erase(known);
    typed_.push_back(std::move(typed));
}

bool History::Can_Undo() const { return Last_Typed() || !undo_.empty(); }

bool History::Can_Redo() const { return Last_Taken_Back() || !redo_.empty(); }

std::string History::Undo_What() const {
    if (const Typed* typed = Last_Typed()) return platform::Deed_Name(*typed->box);
    return undo_.empty() ? std::string() : undo_.back().what;
}

std::string History::Redo_What() const {
    if (const Typed* typed = Last_Taken_Back()) return platform::Deed_Name(*typed->box);
    return redo_.empty() ? std::string() : redo_.back().what;
}

void History::Undo() {
    if (const Typed* typed = Last_Typed()) {
        TextBox& box = *typed->box;
        taken_back_.push_back({&box, &box.Owner(), box.Text});
        box.Text = std::string(typed->text);
        std::erase_if(typed_, [&](const Typed& other) { return other.box == &box; });
    } else if (!undo_.empty()) {
        Go(undo_, redo_);
    }
    Tell_Followers(false);
}

void History::Redo() {
    if (Last_Taken_Back()) {
        const Typed again = taken_back_.back();
        again.box->SetFocus();
        // A box that keeps the cursor, since its text is refused, comes first.
        if (again.screen->Focus() != again.box) return;
        taken_back_.pop_back();
        typed_.push_back({again.box, again.screen, again.box->Text});
        again.box->Type(again.text);
    } else if (!redo_.empty()) {
        Go(redo_, undo_);
    }
    Tell_Followers(false);
}

void History::Tell(Turn turn) const {
    for (const auto& listener : listeners_) Guarded("History", [&] { listener(turn); });
}

// The end of a deed is no place to fail: it is a destructor's.
void History::Tell_Followers(bool typed) const {
    for (const auto& follower : followers_) Guarded("History", [&] { follower(typed); });
}

History& The_History() {
    static History history(Model);
    return history;
}

}  // namespace verlink
