// The desktop of a walk over real widgets.
#pragma once

#include "desktop/qt_desktop.h"
#include "tests/walk/walker.h"

namespace verlink::walk {

/// The program's own desktop, with a user in front of it: he acts on the window of the screen that is up, and presses
/// what he answers in the dialogs that come up. Nothing is waited for but timers.
class Widget_Desktop : public desktop::QtDesktop {
   public:
    Widget_Desktop(Walker& walker, const Places& places);
    ~Widget_Desktop() override;

    platform::Answer Show_Message(const platform::Message& message) override;
    std::optional<std::string> Ask_Open_File(const platform::FileDialog& dialog) override;
    std::optional<std::string> Ask_Save_File(const platform::FileDialog& dialog) override;
    bool Ask_Printer() override;
    void Serve_Events(platform::Screen& screen, const std::function<bool()>& done) override;
    bool Pause(std::chrono::nanoseconds) override { return QtDesktop::Pause(std::chrono::nanoseconds{0}); }
    void Register_File_Type(const platform::FileType&) override {}

   private:
    std::optional<std::string> Ask_File(const platform::FileDialog& dialog, bool save);
    Walker& walker_;
};

/// A walk from the start of the program to its end, in windows.
void Walk_In_Windows(Walker& walker, const Places& places);

}  // namespace verlink::walk
