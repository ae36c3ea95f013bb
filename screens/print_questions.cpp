// The words of the questions before a direct print.
#include "screens/print_questions.h"

#include "platform/guard.h"

namespace verlink {

using platform::CRLF;

namespace {

void Ask(const std::string& text, Integer& Result) {
    Result = static_cast<int>(platform::The_Desktop().Show_Message(
        {.text = text, .icon = platform::Icon::kQuestion, .buttons = platform::Buttons::kYesNo}));
}

}  // namespace

void Print_Note(Integer& Result) {
    Ask(std::string("Note: The image on this screen may not print correctly on some printers.") + CRLF + CRLF +
            "If this occurs, you can still get a printout of the screen by copying it to the clipboard" + CRLF +
            "with the key combo Alt-PrintScrn and pasting the image into a word processor," + CRLF +
            "a drawing program, or a graphics package, then printing it from that program." + CRLF + CRLF +
            "Do you want to send it to the printer now anyway?",
        Result);
}

void Print_Warning(Integer& Result) {
    Ask(std::string("You can print this form directly to a printer from here.") + CRLF + CRLF +
            "But a better quality print can be obtained by copying the" + CRLF +
            "screen to the clipboard with the key combo Alt-PrintScrn," + CRLF +
            "and pasting it into a word processing or graphics program," + CRLF +
            "then printing it from that program." + CRLF + CRLF + "Do you want to proceed with a direct print?",
        Result);
}

void Ask_And_Print(platform::Screen& screen, platform::CommonDialog& dialog, void (*question)(Integer& Result)) {
    Integer answer;
    question(answer);
    if (answer != static_cast<int>(platform::Answer::kYes)) return;
    dialog.ShowPrinter();
    platform::The_Desktop().Print_Screen(screen);
}

void Print_Form(platform::Screen& screen, platform::CommonDialog& dialog, const std::string& handler) {
    Guarded_Unless_Cancelled(handler, [&] { Ask_And_Print(screen, dialog, Print_Warning); });
}

void Tell_How_To_Copy() {
    platform::Tell("Use the Alt-PrintScrn key combo to copy the screen to the clipboard", platform::Icon::kInformation);
}

}  // namespace verlink
