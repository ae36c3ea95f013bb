// The desktop of a walk without windows.
#pragma once

#include "platform/desktop_services.h"
#include "tests/walk/walker.h"

namespace verlink::walk {

/// While a screen is up the walker acts on it; what the program asks goes to him too. Time stands still.
class Walk_Desktop : public platform::Desktop {
   public:
    Walk_Desktop(Walker& walker, const Places& places);
    ~Walk_Desktop() override;

    platform::Answer Show_Message(const platform::Message& message) override;
    std::optional<std::string> Ask_Open_File(const platform::FileDialog& dialog) override;
    std::optional<std::string> Ask_Save_File(const platform::FileDialog& dialog) override;
    bool Ask_Printer() override;
    void Print_Screen(platform::Screen&) override {}
    void Print_Pages(const std::vector<std::vector<std::string>>&) override {}
    void Show_Window(platform::Screen&) override {}
    void Hide_Window(platform::Screen&) override {}
    void Serve_Events(platform::Screen& screen, const std::function<bool()>& done) override;
    void Set_Pointer(platform::Pointer) override {}
    platform::DisplaySize Display() override { return {25600, 14400, 1920, 1080}; }
    bool Pause(std::chrono::nanoseconds) override { return true; }
    std::string Session_User() override { return "walker"; }
    std::string Documents_Folder() override;
    std::string Settings_Folder() override { return ""; }
    std::string State_Folder() override;
    std::string Program_Folder() override { return "/opt/verlink"; }
    std::string Date_Text() override { return "11/21/2026"; }
    std::string Time_Text() override { return "10:15:00"; }
    void Register_File_Type(const platform::FileType&) override {}

   private:
    Walker& walker_;
    const Places& places_;
};

/// A walk from the start of the program to its end, on a fresh record and fresh screens.
void Walk_Once(Walker& walker, const Places& places);

}  // namespace verlink::walk
