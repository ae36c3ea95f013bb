// The desktop of a program without a display: messages go to a stream, and nobody answers.
#pragma once

#include <ostream>

#include "platform/desktop_services.h"

namespace verlink {

/// Writes each message to the stream, its line ends as line feeds, and gives the answer that lets the work go on
/// unattended: OK, No, Ignore, and Cancel where there is nothing but Retry beside it. Dialogs are cancelled, no
/// screen stays up, printing is refused. The clock has no say in a run, so that date and time are empty.
class HeadlessDesktop : public platform::Desktop {
   public:
    explicit HeadlessDesktop(std::ostream& messages) : messages_(messages) {}

    /// How many messages have been shown.
    int Shown() const { return shown_; }

    platform::Answer Show_Message(const platform::Message& message) override;
    std::optional<std::string> Ask_Open_File(const platform::FileDialog&) override { return {}; }
    std::optional<std::string> Ask_Save_File(const platform::FileDialog&) override { return {}; }
    bool Ask_Printer() override { return false; }
    void Print_Screen(platform::Screen&) override { platform::Raise(platform::kPrinterError); }
    void Print_Pages(const std::vector<std::vector<std::string>>&) override {
        platform::Raise(platform::kPrinterError);
    }
    void Show_Window(platform::Screen&) override {}
    void Hide_Window(platform::Screen&) override {}
    void Serve_Events(platform::Screen& screen, const std::function<bool()>&) override { screen.Hide(); }
    void Set_Pointer(platform::Pointer) override {}
    platform::DisplaySize Display() override { return {28800, 16200, 1920, 1080}; }
    bool Pause(std::chrono::nanoseconds) override { return true; }
    std::string Session_User() override { return ""; }
    std::string Documents_Folder() override { return ""; }
    std::string Settings_Folder() override { return ""; }
    std::string Program_Folder() override { return ""; }
    std::string Date_Text() override { return ""; }
    std::string Time_Text() override { return ""; }
    void Register_File_Type(const platform::FileType&) override {}

   private:
    std::ostream& messages_;
    int shown_ = 0;
};

}  // namespace verlink
