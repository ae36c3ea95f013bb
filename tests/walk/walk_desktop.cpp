// The desktop of a walk without windows.
#include "tests/walk/walk_desktop.h"

#include "platform/guard.h"
#include "screens/register.h"
#include "shell/failure_report.h"
#include "shell/recovery.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"
#include "tests/walk/hand.h"

namespace verlink::walk {

using namespace platform;

Walk_Desktop::Walk_Desktop(Walker& walker, const Places& places) : walker_(walker), places_(places) {
    Use_Desktop(this);
    Install_Reporter(Report_Error);
}

Walk_Desktop::~Walk_Desktop() { Use_Desktop(nullptr); }

Answer Walk_Desktop::Show_Message(const Message& message) { return walker_.Answer_Message(message); }

std::optional<std::string> Walk_Desktop::Ask_Open_File(const FileDialog& dialog) {
    return walker_.Answer_File(dialog, false);
}

std::optional<std::string> Walk_Desktop::Ask_Save_File(const FileDialog& dialog) {
    return walker_.Answer_File(dialog, true);
}

bool Walk_Desktop::Ask_Printer() { return walker_.Answer_Printer(); }

void Walk_Desktop::Serve_Events(Screen& screen, const std::function<bool()>& done) {
    walker_.Serve(screen, done, [](Screen& top, const Action& action) { Do(top, action); });
}

std::string Walk_Desktop::Documents_Folder() { return places_.Folder(); }

std::string Walk_Desktop::State_Folder() { return places_.Folder() + "/state"; }

void Walk_Once(Walker& walker, const Places& places) {
    places.Prepare();
    Walk_Desktop desktop(walker, places);
    test::Reset_Model();
    Screens::Discard();
    Register_Screens();
    Sub_Main("");
    End_Keeping();
    Screens::Discard();
}

}  // namespace verlink::walk
