// The words of the failure reporter.
#include "shell/failure_report.h"

#include "platform/desktop_services.h"
#include "platform/guard.h"

namespace verlink {

using platform::CRLF;

namespace {

struct Advice {
    std::string text;
    platform::Icon icon = platform::Icon::kInformation;
};

const std::string kSaveAdvice = "You should try to save your model from the Home Screen's 'File' pulldown menu, ";
const std::string kCloseAdvice = "It may help to close other programs that are running at the same time.";

bool opening_clicked_file = false;

Advice Advice_For(long number) {
    switch (number) {
        case platform::kOutOfMemory:
            return {kSaveAdvice + CRLF + "then Quit this program and restart it to clear the memory." + CRLF +
                        kCloseAdvice + CRLF + "Good luck! ",
                    platform::Icon::kNone};
        case platform::kOutOfStack:
            return {kSaveAdvice + CRLF + "then Quit this program and restart it to clear the stacks." + CRLF +
                    kCloseAdvice + CRLF + "Good luck! "};
        case platform::kBadFileNameOrNumber:
            return {"The filename clicked on has a problem.  Try opening it from within the program."};
        case platform::kFileNotFound:
        case platform::kBadFileName: return {"There are no files with your chosen name in the selected directory"};
        case platform::kDeviceError: return {"Device I/O error- bad drive or disk - please try another"};
        case platform::kDiskFull: return {" The floppy disk in the drive is full - please substitute another"};
        case platform::kDiskNotReady: return {"Disk not ready - is the drive empty or its door open?"};
        case 32678:  // 7FA6, a failure of the common dialog
            return {"Out of memory.  Close other programs and retry."};
        default: return opening_clicked_file ? Advice_For(platform::kBadFileNameOrNumber) : Advice{""};
    }
}

}  // namespace

Opening_Clicked_File::Opening_Clicked_File() { opening_clicked_file = true; }

Opening_Clicked_File::~Opening_Clicked_File() { opening_clicked_file = false; }

void Report_Error(long ErrorNumber, const std::string& ProcName) {
    const Advice advice = Advice_For(ErrorNumber);
    std::string text = "Error " + std::to_string(ErrorNumber) + "   (" + platform::Failure_Description(ErrorNumber) +
                       ")  has occurred in " + ProcName + CRLF + CRLF + advice.text;
    if (Repeats() > 1 && !advice.text.empty()) text += CRLF;
    if (Repeats() > 1) text += "It has occurred " + std::to_string(Repeats()) + " times in this run.";
    const bool more = Repeats() > 1 || !advice.text.empty();
    if (const std::string words = Trouble().Words(); !words.empty())
        text += (more ? CRLF + std::string(CRLF) : "") + words;
    platform::Tell(text, advice.icon);
    // Before the home screen comes up, which may be for long.
    platform::The_Desktop().Set_Pointer(platform::Pointer::kDefault);
    if (ErrorNumber == platform::kOutOfMemory)
        if (platform::Screen* home = platform::Screens::Find("frm_HomeScreen")) home->ShowModal();
}

}  // namespace verlink
