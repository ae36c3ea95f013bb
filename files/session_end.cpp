// The question about a modified model as the session ends.
#include "files/session_end.h"

#include "files/in_hand.h"
#include "files/model_file.h"
#include "platform/desktop.h"

namespace verlink {

using namespace platform;

bool May_End_Session(Screen& home) {
    if (!Modified()) return true;
    const Answer answer = The_Desktop().Show_Message(
        {.text = "The current data has not been saved.  Do you want to save it before resetting?",
         .icon = Icon::kQuestion,
         .buttons = Buttons::kYesNo});
    if (answer == Answer::kCancel) return false;
    if (answer != Answer::kYes) return true;
    Menu_Saveas(home);
    // A dialog that was cancelled, and a file that could not be written, leave it as it is.
    return !Modified();
}

}  // namespace verlink
