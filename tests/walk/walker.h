// One walk: what the user does, what he is asked on the way, and the rules after each of his actions.
#pragma once

#include <cstdio>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/support/scripted_desktop.h"
#include "tests/walk/action.h"
#include "tests/walk/places.h"
#include "tests/walk/record.h"
#include "tests/walk/rules.h"

namespace verlink::walk {

/// Whoever decides what is done.
class User {
   public:
    User() = default;
    virtual ~User() = default;
    User(const User&) = delete;
    User& operator=(const User&) = delete;
    /// Does he begin at the title, or has he come as far as the home screen?
    virtual bool Begins_At_The_Title() const { return false; }
    /// The next thing to do on this screen; nothing at the end of the walk. While the user only looks, he does what
    /// leads back.
    virtual std::optional<Action> Next(platform::Screen& top, bool looking) = 0;
    /// What is said within an action; `given` are its replies so far.
    virtual Reply To_Message(const platform::Message& message, const Action& action,
                             const std::vector<Reply>& given) = 0;
    virtual Reply To_File(const platform::FileDialog& dialog, bool save, const Action& action,
                          const std::vector<Reply>& given) = 0;
    virtual Reply To_Printer(const Action& action, const std::vector<Reply>& given) = 0;
};

/// How much was done and checked.
struct Counts {
    long walks = 0;
    long actions = 0;
    std::map<std::string, long> checks;   ///< by rule
    std::map<std::string, long> screens;  ///< actions by screen
};

using test::Harmless;

class Walker {
   public:
    Walker(User& user, const Places& places, Counts& counts);
    ~Walker();
    Walker(const Walker&) = delete;
    Walker& operator=(const Walker&) = delete;

    /// The user's part while a screen is up; `deed` does an action there.
    using Hand = std::function<void(platform::Screen& top, const Action& action)>;
    void Serve(platform::Screen& top, const std::function<bool()>& done, const Hand& deed);

    // What the program asks.
    platform::Answer Answer_Message(const platform::Message& message);
    std::optional<std::string> Answer_File(const platform::FileDialog& dialog, bool save);
    bool Answer_Printer();

    /// What the desktop itself has to say of an action, under the name of a rule of its own.
    void Expect(const char* rule, bool so, const std::string& told);

    /// Each action is written there before it is done, for walks that end in a crash.
    void Log_To(std::FILE* log) { log_ = log; }
    /// The files are tried at one change of the record in so many, since that takes longest.
    void Try_Files_Every(int changes) { files_every_ = changes; }
    /// The rule of kills waits for the disk.
    void Kill_Every(int rests) { kill_every_ = rests; }
    /// These rules are not asked: for finding what lies behind what is known.
    void Leave_Out(const std::set<std::string>& rules) { without_ = rules; }

    const std::vector<Action>& Done() const { return done_; }
    const Found& Outcome() const { return outcome_; }

   private:
    struct Frame {
        std::size_t place;  ///< in `done_`
        Action action;      ///< as it was given
        std::vector<Told> told;
        std::string screen_before;
    };
    struct Look {
        std::string screen;
        std::string action;
        Words record, boxes;
        std::unique_ptr<RunResults> table;
        int last;
    };

    bool Arrive(platform::Screen& top, const Hand& deed);
    void Perform(platform::Screen& top, const Action& action, const Hand& deed);
    void Rest(platform::Screen& top);
    void Check_Trials(platform::Screen& top);
    void End_Look(platform::Screen& top);
    void Note_Transform(const platform::Screen& top);
    bool Changed();
    void Check_Undo(platform::Screen& top);
    void Note_Step();
    bool Go_Home(platform::Screen& top, const Hand& deed);
    template <class Rule>
    bool Broken(const char* rule, Rule&& check);
    void Given(const Reply& reply);
    const std::vector<Reply>& Given_So_Far() const;

    User& user_;
    const Places& places_;
    Counts& counts_;
    std::FILE* log_ = nullptr;
    std::set<std::string> without_;
    std::vector<Action> done_;
    std::vector<Frame> frames_;
    std::vector<Told> told_last_;  ///< by the action that ended last
    Found outcome_;
    bool arrived_ = false;
    bool over_ = false;
    int home_steps_ = 0;
    std::map<std::string, int> ways_tried_;
    bool run_aborted_ = false;
    Pending pending_;
    // What was before each step that was made since the last trial of undo, and what stands now.
    std::vector<std::shared_ptr<const Standing>> before_;
    std::shared_ptr<const Standing> standing_;
    std::size_t steps_ = 0;
    bool trying_undo_ = false;
    std::optional<Look> look_;
    std::optional<Transformed> transformed_;
    // The record at the last trial.
    Words tried_;
    std::string tried_screen_;
    std::unique_ptr<RunResults> tried_table_;
    Transform tried_transform_;
    int trials_ = 0;
    int files_every_ = 6;
    int kill_every_ = 100, rests_ = 0;
};

}  // namespace verlink::walk
