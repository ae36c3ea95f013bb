// The tests' side of the desktop: answers are queued beforehand, and whatever is asked must be next in the queue.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/desktop_services.h"

namespace verlink::test {

/// The answer that changes least.
platform::Answer Harmless(platform::Buttons buttons);

/// A desktop that follows a script. An asking that is not next in the queue fails the test and gets the harmless
/// answer (OK, No, Ignore, cancelled; a screen is hidden at once); so does an expectation that nobody asked for.
class ScriptedDesktop : public platform::Desktop {
   public:
    ScriptedDesktop();
    ~ScriptedDesktop() override;

    /// A message with exactly this text; icon and buttons are checked when given.
    ScriptedDesktop& Expect_Message(std::string text, platform::Answer answer = platform::Answer::kOk,
                                    std::optional<platform::Icon> icon = {},
                                    std::optional<platform::Buttons> buttons = {});
    /// A message whose text has this part in it.
    ScriptedDesktop& Expect_Message_With(std::string part, platform::Answer answer = platform::Answer::kOk);
    /// A file dialog, which gives this path, or is cancelled; `dialog` is kept in `Dialogs`.
    ScriptedDesktop& Expect_Open(std::optional<std::string> path);
    ScriptedDesktop& Expect_Save(std::optional<std::string> path);
    ScriptedDesktop& Expect_Printer(bool accepted);
    /// The showing of a screen: `user` plays the user's part and has to hide it, or to end the process.
    ScriptedDesktop& Expect_Screen(std::string name, std::function<void(platform::Screen&)> user);

    /// Fails the test for whatever is still queued.
    void Verify();

    std::vector<platform::FileDialog> Dialogs;
    std::vector<std::string> Printed;             ///< names of the screens printed
    std::vector<std::vector<std::string>> Pages;  ///< lines of each page printed
    std::vector<std::chrono::nanoseconds> Pauses;
    std::size_t StopAtPause = 0;  ///< the user stops the run at that one of the `Pauses`, from 1; 0 for never
    std::vector<platform::FileType> FileTypes;
    platform::Pointer PointerNow = platform::Pointer::kDefault;
    std::vector<platform::Pointer> Pointers;  ///< each that was set
    std::string User = "tester";
    std::string Documents;  ///< set to a fresh folder by `Fixture`
    std::string State;      ///< empty: nothing is kept between runs
    std::string Settings;   ///< none are kept until a test names a folder
    std::string Program = "/opt/verlink";
    platform::DisplaySize Size{25600, 14400, 1920, 1080};
    long FailPrinting = 0;     ///< a failure for Print_Screen to raise
    long FailRegistering = 0;  ///< a failure for Register_File_Type to raise

    platform::Answer Show_Message(const platform::Message& message) override;
    std::optional<std::string> Ask_Open_File(const platform::FileDialog& dialog) override;
    std::optional<std::string> Ask_Save_File(const platform::FileDialog& dialog) override;
    bool Ask_Printer() override;
    void Print_Screen(platform::Screen& screen) override;
    void Print_Pages(const std::vector<std::vector<std::string>>& pages) override;
    void Show_Window(platform::Screen&) override {}
    void Hide_Window(platform::Screen&) override {}
    /// As with other screens, the user's part comes next in the queue; he may leave it open.
    void Show_Beside(platform::Screen& screen) override;
    void Serve_Events(platform::Screen& screen, const std::function<bool()>& done) override;
    void Set_Pointer(platform::Pointer pointer) override;
    platform::DisplaySize Display() override { return Size; }
    bool Pause(std::chrono::nanoseconds pause) override {
        Pauses.push_back(pause);
        return Pauses.size() != StopAtPause;
    }
    std::string Session_User() override { return User; }
    std::string Documents_Folder() override { return Documents; }
    std::string State_Folder() override { return State; }
    std::string Settings_Folder() override { return Settings; }
    std::string Program_Folder() override { return Program; }
    std::string Date_Text() override { return "11/21/2026"; }
    std::string Time_Text() override { return "10:15:00"; }
    void Register_File_Type(const platform::FileType& type) override;

   private:
    struct MessageExpected {
        std::string text;
        bool part;
        platform::Answer answer;
        std::optional<platform::Icon> icon;
        std::optional<platform::Buttons> buttons;
    };
    struct FileExpected {
        bool save;
        std::optional<std::string> path;
    };
    struct PrinterExpected {
        bool accepted;
    };
    struct ScreenExpected {
        std::string name;
        std::function<void(platform::Screen&)> user;
    };
    using Expected = std::variant<MessageExpected, FileExpected, PrinterExpected, ScreenExpected>;

    template <class Kind>
    std::optional<Kind> Take(const std::string& asked);
    std::optional<std::string> Ask_File(const platform::FileDialog& dialog, bool save);
    static std::string Words(const Expected& expected);
    std::deque<Expected> queue_;
};

// The user's hand on a screen.

/// Goes to the button (the box left gets its LostFocus event) and clicks it, if it is enabled and visible.
void Press(platform::Screen& screen, const std::string& button, int index = platform::kNoIndex);
/// Goes to the box and replaces its text, unless it is locked; leaving it is up to the next action.
void Type(platform::Screen& screen, const std::string& box, int index, const std::string& text);
/// `Type` and then Return.
void Enter(platform::Screen& screen, const std::string& box, int index, const std::string& text);
void Choose_Option(platform::Screen& screen, const std::string& option, int index);
void Tick(platform::Screen& screen, const std::string& box, bool on);
void Pick_Menu(platform::Screen& screen, const std::string& entry, int index = platform::kNoIndex);

/// A surface that writes each call as a line of text, minus zero as 0.
class LogSurface : public platform::Surface {
   public:
    std::vector<std::string> Calls;
    void Scale(double x1, double y1, double x2, double y2) override;
    void Cls() override;
    void BackColor(platform::Color color) override;
    void DrawMode(int mode) override;
    void Line(double x1, double y1, double x2, double y2, platform::Color color) override;
    void LineTo(double x, double y, platform::Color color) override;
    void LineStep(double dx, double dy, platform::Color color) override;
    void Circle(double x, double y, double radius, platform::Color color) override;
    void PSet(double x, double y, platform::Color color) override;
    void PSet(double x, double y) override;
    std::string Text() const;
};

/// Compares a log with tests/logs/<name>.log. A difference fails the test with the first line that differs; with
/// VERLINK_ACCEPT=1 in the environment the reference is replaced instead.
void Expect_Log(const std::string& name, const LogSurface& surface);

}  // namespace verlink::test
