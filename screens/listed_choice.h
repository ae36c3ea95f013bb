// A combo box whose text is an entry of its list.
#pragma once

#include <string>
#include <vector>

#include "platform/controls.h"

namespace verlink {

/// Looks up what a hand has typed into a box when the box is left: blanks around it and its case do not count, and
/// what it names is picked as from the list. What names nothing is told, and the choice before it comes back; so does
/// the choice before an emptied box. It is made when the box has its own handlers, which it calls.
class Listed_Choice {
   public:
    /// `what` is a kind of entry in the plural, for the message. On the way to one of `ways_out` nothing is told.
    Listed_Choice(platform::ComboBox& box, std::string what, std::vector<const platform::Control*> ways_out);
    Listed_Choice(const Listed_Choice&) = delete;

    void Add_Way_Out(const platform::Control& control) { ways_out_.push_back(&control); }
    /// The text becomes the entry that it names, without a pick; false when it names none, which was told. An empty
    /// text stays.
    bool Resolve();
    /// As on leaving; false when the choice is another than before, or the text was refused.
    bool Settle();
    /// There is no choice before the present one.
    void Forget();

   private:
    int Entry() const;
    bool On_Way_Out() const;
    void Put_Back();

    platform::ComboBox& box_;
    std::string what_;
    std::vector<const platform::Control*> ways_out_;
    std::string before_;    ///< the choice that stands
    bool touched_ = false;  ///< a hand has changed the text since
};

}  // namespace verlink
