// What was chosen last on a selection screen, kept from session to session.
#pragma once

#include <map>
#include <string>

#include "platform/screen.h"

namespace verlink {

/// By control: the number of the option of an array that is on, and the texts of boxes. A slot is in it when it was
/// taken over.
using Selection = std::map<std::string, std::string>;

/// What is kept under a name; empty for nothing.
inline const std::string& Text_In(const Selection& last, const std::string& name) {
    static const std::string none;
    const auto found = last.find(name);
    return found == last.end() ? none : found->second;
}

/// What stands on the screen is its last selection from now on.
void Keep_Selection(const platform::Screen& screen);
/// Empty when nothing has been chosen on that screen yet.
Selection Last_Selection(const platform::Screen& screen);

/// The same of a screen by its name, which need not have been made.
Selection Selection_Kept(const std::string& screen);
/// The name of the screen on which something was chosen last for a plot; empty for none.
std::string Last_Plot_Screen();

/// Puts the option of an array on that the selection has, where it can be chosen.
void Choose_Option_Of(const platform::Screen& screen, const Selection& last, const std::string& options);
/// Puts a text of the selection into its box, where the screen has one.
void Fill_Box_Of(const platform::Screen& screen, const Selection& last, const std::string& box);

}  // namespace verlink
