// How a walk goes from screen to screen, and when its rules are asked.
#include "tests/walk/walker.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <utility>

#include "platform/deed.h"
#include "platform/guard.h"
#include "screens/frm_explore.h"
#include "shell/history.h"
#include "tests/walk/hand.h"

namespace verlink::walk {

using namespace platform;

namespace {

/// From any screen home, the way out again where one led into another screen included.
constexpr int kWayHome = 24;

std::string Kind_Of(const std::string& text) { return text.substr(0, text.find_first_of("\r\n")); }

platform::Deed::Kind Kind_Of(walk::Deed deed) {
    switch (deed) {
        case walk::Deed::kType: return platform::Deed::Kind::kTyped;
        case walk::Deed::kPulse: return platform::Deed::Kind::kTimed;
        default: return platform::Deed::Kind::kWhole;
    }
}

Walker* walking = nullptr;

bool Time_Will_Tell() {
    for (const Screen* screen : Screens::Made())
        for (const Control* control : screen->Controls())
            if (const auto* timer = dynamic_cast<const Timer*>(control); timer && Running(*timer)) return true;
    return false;
}

bool Asks_About_Positions(const Message& message) {
    return message.buttons == Buttons::kAbortRetryIgnore && message.text.starts_with("Linkage cannot connect");
}

}  // namespace

Walker::Walker(User& user, const Places& places, Counts& counts)
    : user_(user), places_(places), counts_(counts), arrived_(user.Begins_At_The_Title()) {
    walking = this;
    [[maybe_unused]] static const bool follows = [] {
        The_History().Follow([](bool typed) {
            if (walking && !typed) walking->Note_Step();
        });
        return true;
    }();
}

Walker::~Walker() { walking = nullptr; }

template <class Rule>
bool Walker::Broken(const char* rule, Rule&& check) {
    if (without_.contains(rule)) return false;
    ++counts_.checks[rule];
    Found found = check();
    if (!found) return false;
    outcome_ = std::move(found);
    over_ = true;
    return true;
}

/// From the title to the home screen, which is no part of the walk.
bool Walker::Arrive(Screen& top, const Hand& deed) {
    if (arrived_) return true;
    if (top.Name() == "frm_Title") {
        deed(top, Press("frm_Title", "cmd_Start"));
        return false;
    }
    if (top.Name() == "frm_User") {
        deed(top, Type("frm_User", "txt_UserName", kNoIndex, "A walker"));
        deed(top, Press("frm_User", "cmd_Done"));
        return false;
    }
    arrived_ = true;
    return true;
}

void Walker::Serve(Screen& top, const std::function<bool()>& done, const Hand& deed) {
    while (!done() && !The_Desktop().Ending()) {
        if (!Arrive(top, deed)) continue;
        if (!over_) Rest(top);
        if (!over_) {
            if (const std::optional<Action> action = user_.Next(top, look_ && look_->screen != top.Name()))
                Perform(Where(top, *action), *action, deed);
            else
                over_ = true;
            continue;
        }
        if (outcome_ || !Go_Home(top, deed)) The_Desktop().End_Process();
    }
}

/// Every screen can be left by its own controls. False once the walk has come to its end.
/// Except: the user's screen asks for a name and a number before it goes.
bool Walker::Go_Home(Screen& top, const Hand& deed) {
    if (top.Name() == "frm_HomeScreen") {
        ++counts_.checks["ways home"];
        return false;
    }
    if (++home_steps_ > kWayHome) {
        outcome_ = Finding{"ways home", top.Name(), "the way home does not end; it has come to " + top.Name()};
        return false;
    }
    const int tries = ways_tried_[top.Name()]++;
    if (top.Name() == "frm_User") {
        deed(top, Type("frm_User", "txt_UserName", kNoIndex, "A walker"));
        deed(top, Type("frm_User", "txt_DesignNo", kNoIndex, "1"));
    }
    std::vector<Action> ways;
    for (const char* button : {"cmd_Start", "cmd_NoQuit", "cmd_Close", "cmd_CancelPlotData", "cmd_CancelPickPlot",
                               "cmd_Cancel", "cmd_back", "cmd_Done", "cmd_Back"})
        if (const Action way = Press(top.Name(), button); Possible(top, way)) ways.push_back(way);
    if (top.Name() == "frm_About") ways.push_back(Click(top.Name()));
    if (ways.empty()) {
        outcome_ = Finding{"ways home", top.Name(), "nothing on " + top.Name() + " leads out of it"};
        return false;
    }
    deed(top, ways[static_cast<std::size_t>(tries) % ways.size()]);
    return true;
}

void Walker::Perform(Screen& top, const Action& action, const Hand& deed) {
    ++counts_.actions;
    ++counts_.screens[top.Name()];
    if (log_) {
        std::fprintf(log_, "%s,\n", Line_Of(action).c_str());
        std::fflush(log_);
    }
    frames_.push_back({done_.size(), action, {}, top.Name()});
    done_.push_back(action);
    done_.back().replies.clear();
    pending_.Note(top, action);
    const bool typing = pending_.Any_In_Hand(top);
    Action here = action;
    if (here.deed == Deed::kDrop) here.text = places_.Path(here.text);
    // Pressing a button leaves the box that is being typed into, and takes it over; and what a timer does that has yet
    // to run down is not the looking's doing.
    if (action.looks && !look_ && (action.deed == Deed::kPick || !pending_.Any_In_Hand(top)) && !Time_Will_Tell())
        look_ = {top.Name(),
                 Line_Of(action),
                 Record_Words(),
                 Screen_Words(top),
                 std::make_unique<RunResults>(Model.RunTable),
                 Model.NSteps};
    // A search that ends by itself is the same each time, which one that is watched as it goes is not.
    auto* explore = dynamic_cast<frm_Explore*>(&top);
    if (explore) explore->Effort.coarse = true;
    // What stands beside changes nothing, whatever waits to be taken over on the others. Except: what is on its way
    // anyhow.
    const bool only_looks =
        top.Beside() ? !Time_Will_Tell() : !typing && !Waits_For_A_Hand(top) && Only_Looks(top, action);
    const Words before = only_looks ? Record_Words() : Words();
    try {
        // As a desktop does, under the name of the control.
        const Control* control = top.Find(action.control, action.index);
        const platform::Deed at_work(control ? Deed_Name(*control) : "closing", Kind_Of(action.deed));
        Guarded(control ? control->ObjectName() : top.Name(), [&] { deed(top, here); });
    } catch (const std::exception& thrown) {
        outcome_ = Finding{"thrown", action.screen + "." + action.control, thrown.what()};
        over_ = true;
    }
    if (explore) explore->Await_Search();
    told_last_ = std::move(frames_.back().told);
    frames_.pop_back();
    if (only_looks)
        Broken("exploring", [&]() -> Found {
            const Difference difference = Compare(before, Record_Words());
            if (!difference.Any()) return {};
            return Finding{"exploring", action.control, Line_Of(action) + ": " + difference.values};
        });
    // What cannot be followed is not followed, and nobody is asked. Except: links next to nothing, whose angles cannot
    // be computed, are told of as on any other road.
    constexpr int kShift = 1;
    if (action.deed == Deed::kHaul && action.keys != kShift && !typing)
        Broken("hauling", [&]() -> Found {
            if (told_last_.empty()) return {};
            if (told_last_.front().message.text.find("has occurred in Calculate") != std::string::npos) return {};
            return Finding{"hauling", top.Name(), "a drag of a joint says: " + told_last_.front().message.text};
        });
}

const std::vector<Reply>& Walker::Given_So_Far() const {
    static const std::vector<Reply> none;
    return frames_.empty() ? none : done_[frames_.back().place].replies;
}

void Walker::Given(const Reply& reply) {
    if (frames_.empty()) return;
    done_[frames_.back().place].replies.push_back(reply);
    if (!log_) return;
    std::fprintf(log_, "    // said: %s\n", Words_Of(reply).c_str());
    std::fflush(log_);
}

Answer Walker::Answer_Message(const Message& message) {
    if (Aside::On() || over_ || frames_.empty()) return Harmless(message.buttons);
    Answer answer = Answer::kOk;
    // A flood is cut short; the rule of messages will tell it.
    constexpr std::size_t kFlood = 60;
    if (message.buttons != Buttons::kOk && frames_.back().told.size() < kFlood) {
        const Reply reply = user_.To_Message(message, frames_.back().action, Given_So_Far());
        Given(reply);
        answer = reply.answer;
    } else {
        answer = Harmless(message.buttons);
    }
    if (Asks_About_Positions(message)) run_aborted_ = answer == Answer::kAbort;
    frames_.back().told.push_back({message, answer});
    return answer;
}

std::optional<std::string> Walker::Answer_File(const FileDialog& dialog, bool save) {
    if (Aside::On() || over_ || frames_.empty()) return {};
    const Reply reply = user_.To_File(dialog, save, frames_.back().action, Given_So_Far());
    Given(reply);
    if (!reply.path) return {};
    return places_.Path(*reply.path);
}

void Walker::Expect(const char* rule, bool so, const std::string& told) {
    if (over_ || !arrived_) return;
    Broken(rule, [&]() -> Found {
        if (so) return {};
        return Finding{rule, told.substr(0, told.find(' ')), told};
    });
}

bool Walker::Answer_Printer() {
    if (Aside::On() || over_ || frames_.empty()) return false;
    const Reply reply = user_.To_Printer(frames_.back().action, Given_So_Far());
    Given(reply);
    return reply.accepted;
}

/// The user has the screen before him and may act.
void Walker::Rest(Screen& top) {
    static const std::vector<Told> none;
    const std::vector<Told>& told = frames_.empty() ? none : frames_.back().told;
    for (const std::vector<Told>* messages : {&std::as_const(told_last_), &told}) {
        if (Broken("messages", [&] { return Messages_Are_Few(*messages); })) return;
        if (Broken("failures", [&] { return Failures_Are_Known(*messages); })) return;
    }
    told_last_.clear();
    pending_.Settle();
    Note_Transform(top);
    if (look_ && look_->screen == top.Name()) {
        End_Look(top);
        if (over_) return;
    }
    if (Broken("finite", [&] { return Drawn_Is_Finite(top); })) return;
    if (Broken("explore", [&] { return Explored_Linkages_Do_It(top); })) return;
    if (Broken("over", [&] { return What_Lies_Over_It_Is_Of_The_Model(top); })) return;
    if (Broken("positions", [] { return Marked_Positions_Are_Passed(); })) return;
    if (Broken("live plots", [&] { return Live_Plots_Are_Of_The_Run(top); })) return;
    if (Broken("boxes", [&] { return Screen_Shows_The_Record(top, pending_); })) return;
    if (Broken("studies", [&] { return Studies_Are_Of_The_Model(top, pending_); })) return;
    if (Broken("quiet line", [&] { return Quiet_Line_Is_Of_The_Model(top); })) return;
    if (Changed() || tried_screen_ != top.Name()) Check_Trials(top);
    tried_screen_ = top.Name();
    if (!over_) Broken("checks", [&] { return Results_Pass_Their_Checks(top); });
    if (!over_) Check_Undo(top);
    if (!over_ && ++rests_ % kill_every_ == 0) Broken("killed", [] { return A_Kill_Would_Lose_Nothing(); });
}

/// A step that was made is undone and done again, unless somebody looks or a box waits to be taken over.
void Walker::Check_Undo(Screen& top) {
    if (!before_.empty() && !look_ && !Waits_For_A_Hand(top)) {
        trying_undo_ = true;
        Broken("undo", [&] { return Undo_And_Redo_Bring_Back(before_); });
        trying_undo_ = false;
        standing_ = std::make_shared<Standing>();
    }
    before_.clear();
}

/// A deed has ended.
void Walker::Note_Step() {
    if (trying_undo_ || Aside::On()) return;
    const std::size_t steps = The_History().Steps();
    if (steps == steps_ + 1 && standing_)
        before_.push_back(standing_);
    else if (steps != steps_)
        before_.clear();  // undone by the user himself
    steps_ = steps;
    standing_ = std::make_shared<Standing>();
}

bool Walker::Changed() {
    Words words = Record_Words();
    const bool same_table = tried_table_ && std::memcmp(tried_table_.get(), &Model.RunTable, sizeof(RunResults)) == 0;
    const bool same_transform = std::memcmp(&tried_transform_.FFTResult, &Model.FFTResult, sizeof Model.FFTResult) == 0;
    if (same_table && same_transform && words == tried_) return false;
    tried_transform_.FFTResult = Model.FFTResult;
    tried_ = std::move(words);
    if (tried_table_)
        *tried_table_ = Model.RunTable;
    else
        tried_table_ = std::make_unique<RunResults>(Model.RunTable);
    return true;
}

void Walker::Check_Trials(Screen& top) {
    const bool calculated = Model.Calculated, forces = Model.DynamicsDone, balance = Model.BalanceDone;
    const bool transform = Model.FFTDone && transformed_;
    if (!calculated && !forces && !balance && !transform && !Is_Read_Back(top)) return;
    const Aside aside;
    if (Broken("read back", [&] { return Reading_Back_Changes_Nothing(aside, top, pending_); })) return;
    if (calculated) {
        if (Broken("Calculated", [&] { return Motion_Is_Of_The_Model(aside, run_aborted_); })) return;
        if (Broken("one story", [&] { return Record_Tells_One_Story(aside); })) return;
        if (trials_++ % files_every_ == 0 && Broken("files", [&] { return Saved_And_Opened_Is_The_Same(aside); }))
            return;
    }
    if (forces && Broken("DynamicsDone", [&] { return Forces_Are_Of_The_Model(aside); })) return;
    if (balance && Broken("BalanceDone", [&] { return Balance_Is_Of_The_Model(aside); })) return;
    if (transform) Broken("FFTDone", [&] { return Transform_Is_Of_The_Model(aside, *transformed_); });
}

void Walker::Note_Transform(const Screen& top) {
    // Leaving a box of the screen by its way out transforms and leaves at once.
    const bool there = top.Name() == "frm_FFT" || (!done_.empty() && done_.back().screen == "frm_FFT");
    if (there && Model.FFTDone) transformed_ = Transformed{Model};
}

namespace {

/// A text that is read as its menu opens, and refused, is not among what was typed and can be undone.
Words But_For_Undo(Words words, const Screen& top) {
    const bool refused = std::ranges::any_of(top.Controls(), [](const Control* control) {
        const auto* box = dynamic_cast<const TextBox*>(control);
        return box && box->Refused();
    });
    if (refused)
        std::erase_if(words, [](const auto& word) {
            return word.first.starts_with("mnu_Undo") || word.first.starts_with("mnu_Redo");
        });
    return words;
}

constexpr char kLine[] = "lbl_Why";

/// What a drag could not follow is told until something is drawn.
bool Tells_Of_A_Drag(const Words& words) {
    return std::ranges::any_of(words, [](const auto& word) {
        return word.first == kLine && word.second.find("Not followed: ") != std::string::npos;
    });
}

}  // namespace

/// Having looked, the user finds record, table, flags and boxes as before.
/// Except: the zeros at the end of a number in a box.
void Walker::End_Look(Screen& top) {
    const Look look = std::move(*look_);
    look_.reset();
    Broken("looking", [&]() -> Found {
        const std::string by = Kind_Of(look.action.substr(0, look.action.find(").") + 1));
        Difference difference = Compare(look.record, Record_Words());
        const char* what = "record";
        if (!difference.Any()) {
            difference = Compare_Results(*look.table, Model.RunTable, look.last, Results::kAll);
            if (difference.Any()) difference.names = "results";
            what = "table";
        }
        if (!difference.Any()) {
            Words before = But_For_Undo(look.boxes, top), now = But_For_Undo(Screen_Words(top), top);
            if (Tells_Of_A_Drag(before))
                for (Words* words : {&before, &now})
                    std::erase_if(*words, [](const auto& word) { return word.first == kLine; });
            difference = Compare(before, now);
            what = "screen";
        }
        if (!difference.Any()) return {};
        return Finding{"looking", by + ": " + what, look.action + ": " + difference.values};
    });
}

}  // namespace verlink::walk
