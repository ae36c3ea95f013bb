// Two users: one who does anything, and one who does what was done before.
#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/walk/walker.h"

namespace verlink::walk {

/// Anything that a hand can do on the screen before it, at random but so that it gets around.
class Random_User : public User {
   public:
    Random_User(std::uint64_t seed, int actions);
    bool Begins_At_The_Title() const override { return at_title_; }
    std::optional<Action> Next(platform::Screen& top, bool looking) override;
    Reply To_Message(const platform::Message& message, const Action& action, const std::vector<Reply>& given) override;
    Reply To_File(const platform::FileDialog& dialog, bool save, const Action& action,
                  const std::vector<Reply>& given) override;
    Reply To_Printer(const Action& action, const std::vector<Reply>& given) override;

   private:
    struct Choice {
        Action action;
        double weight;
    };
    using Choices = std::vector<Choice>;

    int Below(int count) { return static_cast<int>(random_() % static_cast<std::uint64_t>(count)); }
    bool Chance(double share) { return Below(10000) < static_cast<int>(share * 10000); }
    template <class Item>
    const Item& Any(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(Below(static_cast<int>(items.size())))];
    }

    Choices All(platform::Screen& top);
    void Add(Choices& choices, platform::Screen& top, platform::Control& control, double boxes);
    void Add_Picture(Choices& choices, const platform::Screen& top, const platform::PictureBox& box);
    Action Mouse_Over(const platform::Screen& top, const platform::PictureBox& box);
    /// A place on a picture, in parts of what is seen of it: often that of a joint.
    std::pair<double, double> Somewhere(const platform::PictureBox& box);
    std::optional<Action> Pick_One(Choices& choices);
    Action Way_Back(platform::Screen& top);
    std::string Text_For(const platform::Screen& top, const std::string& box, int index, const std::string& now);
    std::string Number_Near(const std::string& now);
    std::string Limit(int index);
    std::string Dropped();
    /// Uses of a control so far in this walk.
    double Worn(const Action& action);

    std::mt19937_64 random_;
    int left_;
    bool at_title_;
    std::map<std::string, int> used_;
};

/// What was done before, as far as it can be done now.
class Repeating_User : public User {
   public:
    explicit Repeating_User(std::vector<Action> actions) : actions_(std::move(actions)) {}
    bool Begins_At_The_Title() const override;
    std::optional<Action> Next(platform::Screen& top, bool looking) override;
    Reply To_Message(const platform::Message& message, const Action& action, const std::vector<Reply>& given) override;
    Reply To_File(const platform::FileDialog& dialog, bool save, const Action& action,
                  const std::vector<Reply>& given) override;
    Reply To_Printer(const Action& action, const std::vector<Reply>& given) override;

   private:
    std::vector<Action> actions_;
    std::size_t next_ = 0;
};

}  // namespace verlink::walk
