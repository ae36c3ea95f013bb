// The user at the home screen, whose deeds the history keeps.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "platform/deed.h"
#include "shell/history.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using namespace platform;

class HistoryTest : public Fixture {
   protected:
    /// Has the user come as far as the home screen, where he does `deeds`, and leaves.
    void At_Home(const std::function<void(Screen&)>& deeds) {
        std::filesystem::create_directories(desktop.Documents + "/VERLINK");
        desktop.Expect_Screen("frm_Title", [](Screen& title) { Press(title, "cmd_Start"); });
        desktop.Expect_Screen("frm_User", [](Screen& user) {
            Type(user, "txt_UserName", kNoIndex, "A designer");
            Press(user, "cmd_Done");
        });
        desktop.Expect_Message_With("Your default path");
        desktop.Expect_Screen("frm_HomeScreen", [deeds](Screen& home) {
            deeds(home);
            The_Desktop().End_Process();
        });
        Sub_Main("");
    }
    void On_Input(Screen& home, const std::function<void(Screen&)>& deeds) {
        desktop.Expect_Screen("frm_Inputnew", deeds);
        Press(home, "cmd_Input");
    }
    static History& Steps() { return The_History(); }
    static void Undo(Screen& screen) { Pick_Menu(screen, "mnu_Undo"); }
    static void Redo(Screen& screen) { Pick_Menu(screen, "mnu_Redo"); }
    static std::string Caption_Of(Screen& screen, const char* entry) { return screen.Get<MenuEntry>(entry).Caption; }
    static std::string Told(Screen& screen) { return screen.Get<Label>("lbl_Model").Caption; }
};

class HistoryOfResults : public HistoryTest {
   protected:
    /// The user has been on the input screen, so that a run stands.
    void With_A_Run(const std::function<void(Screen&)>& deeds) {
        At_Home([this, deeds](Screen& home) {
            On_Input(home, [](Screen& input) { Press(input, "cmd_Cancel"); });
            deeds(home);
        });
    }
    static void Do(Screen& home, const std::function<void()>& what) {
        const Deed deed(home.Get<CommandButton>("cmd_Input"));
        what();
    }
};

}  // namespace verlink::test
