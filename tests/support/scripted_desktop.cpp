// How the scripted desktop checks what it is asked, and how scripted users act.
#include "tests/support/scripted_desktop.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cstdlib>
#include <sstream>

#include "platform/deed.h"
#include "platform/guard.h"
#include "shell/failure_report.h"
#include "tests/support/files.h"

namespace verlink::test {

using namespace platform;

ScriptedDesktop::ScriptedDesktop() {
    Use_Desktop(this);
    Install_Reporter(Report_Error);
}

ScriptedDesktop::~ScriptedDesktop() {
    Verify();
    Use_Desktop(nullptr);
}

ScriptedDesktop& ScriptedDesktop::Expect_Message(std::string text, Answer answer, std::optional<Icon> icon,
                                                 std::optional<Buttons> buttons) {
    queue_.emplace_back(MessageExpected{std::move(text), false, answer, icon, buttons});
    return *this;
}

ScriptedDesktop& ScriptedDesktop::Expect_Message_With(std::string part, Answer answer) {
    queue_.emplace_back(MessageExpected{std::move(part), true, answer, {}, {}});
    return *this;
}

ScriptedDesktop& ScriptedDesktop::Expect_Open(std::optional<std::string> path) {
    queue_.emplace_back(FileExpected{false, std::move(path)});
    return *this;
}

ScriptedDesktop& ScriptedDesktop::Expect_Save(std::optional<std::string> path) {
    queue_.emplace_back(FileExpected{true, std::move(path)});
    return *this;
}

ScriptedDesktop& ScriptedDesktop::Expect_Printer(bool accepted) {
    queue_.emplace_back(PrinterExpected{accepted});
    return *this;
}

ScriptedDesktop& ScriptedDesktop::Expect_Screen(std::string name, std::function<void(Screen&)> user) {
    queue_.emplace_back(ScreenExpected{std::move(name), std::move(user)});
    return *this;
}

std::string ScriptedDesktop::Words(const Expected& expected) {
    if (const auto* message = std::get_if<MessageExpected>(&expected)) return "message: " + message->text;
    if (const auto* file = std::get_if<FileExpected>(&expected)) return file->save ? "save dialog" : "open dialog";
    if (std::holds_alternative<PrinterExpected>(expected)) return "printer dialog";
    return "screen " + std::get<ScreenExpected>(expected).name;
}

void ScriptedDesktop::Verify() {
    for (const Expected& expected : queue_) ADD_FAILURE() << "expected, and not asked for: " << Words(expected);
    queue_.clear();
}

template <class Kind>
std::optional<Kind> ScriptedDesktop::Take(const std::string& asked) {
    if (queue_.empty()) {
        ADD_FAILURE() << "asked for, and nothing was queued: " << asked;
        return {};
    }
    auto* kind = std::get_if<Kind>(&queue_.front());
    if (!kind) {
        ADD_FAILURE() << "asked for: " << asked << "\nnext in the queue: " << Words(queue_.front());
        return {};
    }
    Kind taken = std::move(*kind);
    queue_.pop_front();
    return taken;
}

Answer Harmless(Buttons buttons) {
    switch (buttons) {
        case Buttons::kYesNo: return Answer::kNo;
        case Buttons::kAbortRetryIgnore: return Answer::kIgnore;
        case Buttons::kOkCancel:
        case Buttons::kRetryCancel: return Answer::kCancel;
        case Buttons::kOk: break;
    }
    return Answer::kOk;
}

Answer ScriptedDesktop::Show_Message(const Message& message) {
    const auto expected = Take<MessageExpected>("message: " + message.text);
    if (!expected) return Harmless(message.buttons);
    if (expected->part)
        EXPECT_NE(message.text.find(expected->text), std::string::npos) << "message: " << message.text;
    else
        EXPECT_EQ(message.text, expected->text);
    if (expected->icon) {
        EXPECT_EQ(message.icon, *expected->icon) << "icon of: " << message.text;
    }
    if (expected->buttons) {
        EXPECT_EQ(message.buttons, *expected->buttons) << "buttons of: " << message.text;
    }
    return expected->answer;
}

std::optional<std::string> ScriptedDesktop::Ask_File(const FileDialog& dialog, bool save) {
    Dialogs.push_back(dialog);
    const auto expected = Take<FileExpected>("file dialog: " + dialog.title);
    if (!expected) return {};
    EXPECT_EQ(expected->save, save) << dialog.title;
    return expected->path;
}

std::optional<std::string> ScriptedDesktop::Ask_Open_File(const FileDialog& dialog) { return Ask_File(dialog, false); }
std::optional<std::string> ScriptedDesktop::Ask_Save_File(const FileDialog& dialog) { return Ask_File(dialog, true); }

bool ScriptedDesktop::Ask_Printer() {
    const auto expected = Take<PrinterExpected>("printer dialog");
    return expected && expected->accepted;
}

void ScriptedDesktop::Print_Screen(Screen& screen) {
    if (FailPrinting) Raise(FailPrinting);
    Printed.push_back(screen.Name());
}

void ScriptedDesktop::Register_File_Type(const FileType& type) {
    if (FailRegistering) Raise(FailRegistering);
    FileTypes.push_back(type);
}

void ScriptedDesktop::Print_Pages(const std::vector<std::vector<std::string>>& pages) {
    if (FailPrinting) Raise(FailPrinting);
    Pages.insert(Pages.end(), pages.begin(), pages.end());
}

void ScriptedDesktop::Serve_Events(Screen& screen, const std::function<bool()>& done) {
    const auto expected = Take<ScreenExpected>("screen " + screen.Name());
    if (expected) {
        EXPECT_EQ(expected->name, screen.Name());
        if (expected->name == screen.Name()) expected->user(screen);
    }
    if (done() || Ending()) return;
    if (expected) ADD_FAILURE() << "the user left " << screen.Name() << " open";
    screen.Hide();
}

void ScriptedDesktop::Show_Beside(Screen& screen) {
    const auto expected = Take<ScreenExpected>("screen " + screen.Name());
    if (!expected) return screen.Hide();
    EXPECT_EQ(expected->name, screen.Name());
    if (expected->name == screen.Name()) expected->user(screen);
}

void ScriptedDesktop::Set_Pointer(Pointer pointer) {
    PointerNow = pointer;
    Pointers.push_back(pointer);
}

void Press(Screen& screen, const std::string& button, int index) {
    auto& control = screen.Get<CommandButton>(button, index);
    if (!control.Enabled || !control.Visible) return;
    const Deed at_work(control);
    control.SetFocus();
    control.Click();
}

void Type(Screen& screen, const std::string& box, int index, const std::string& text) {
    auto& control = screen.Text(box, index);
    const Deed at_work(control, Deed::Kind::kTyped);
    control.SetFocus();
    if (!control.Locked) control.Type(text);
}

void Enter(Screen& screen, const std::string& box, int index, const std::string& text) {
    Type(screen, box, index, text);
    auto& control = screen.Text(box, index);
    const Deed at_work(control);
    control.Return();
}

void Choose_Option(Screen& screen, const std::string& option, int index) {
    auto& control = screen.Get<OptionButton>(option, index);
    if (!control.Enabled || !control.Visible) return;
    const Deed at_work(control);
    control.SetFocus();
    control.Click();
}

void Tick(Screen& screen, const std::string& box, bool on) {
    auto& control = screen.Get<CheckBox>(box);
    if (!control.Enabled || !control.Visible) return;
    const Deed at_work(control);
    control.SetFocus();
    if (control.Value.Get() != on) control.Click();
}

void Pick_Menu(Screen& screen, const std::string& entry, int index) {
    auto& control = screen.Get<MenuEntry>(entry, index);
    const Deed at_work(control);
    control.Click();
}

namespace {

std::string Digits(double value) {
    if (value == 0) return "0";
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 6);
    return {buffer, end.ptr};
}

template <class... Values>
std::string Row(const char* call, Values... values) {
    std::string row = call;
    ((row += " " + Digits(static_cast<double>(values))), ...);
    return row;
}

std::string ColorDigits(Color color) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, " %06X", static_cast<unsigned>(color));
    return buffer;
}

}  // namespace

void LogSurface::Scale(double x1, double y1, double x2, double y2) { Calls.push_back(Row("Scale", x1, y1, x2, y2)); }
void LogSurface::Cls() { Calls.emplace_back("Cls"); }
void LogSurface::BackColor(Color color) { Calls.push_back("BackColor" + ColorDigits(color)); }
void LogSurface::DrawMode(int mode) { Calls.push_back(Row("DrawMode", mode)); }
void LogSurface::Line(double x1, double y1, double x2, double y2, Color color) {
    Calls.push_back(Row("Line", x1, y1, x2, y2) + ColorDigits(color));
}
void LogSurface::LineTo(double x, double y, Color color) { Calls.push_back(Row("LineTo", x, y) + ColorDigits(color)); }
void LogSurface::LineStep(double dx, double dy, Color color) {
    Calls.push_back(Row("LineStep", dx, dy) + ColorDigits(color));
}
void LogSurface::Circle(double x, double y, double radius, Color color) {
    Calls.push_back(Row("Circle", x, y, radius) + ColorDigits(color));
}
void LogSurface::PSet(double x, double y, Color color) { Calls.push_back(Row("PSet", x, y) + ColorDigits(color)); }
void LogSurface::PSet(double x, double y) { Calls.push_back(Row("PSet", x, y)); }

std::string LogSurface::Text() const {
    std::string text;
    for (const auto& call : Calls) text += call + "\n";
    return text;
}

void Expect_Log(const std::string& name, const LogSurface& surface) {
    const std::string path = std::string(VERLINK_TESTS) + "/logs/" + name + ".log";
    const std::string text = surface.Text(), held = Held(path);
    if (held == text) return;
    if (std::getenv("VERLINK_ACCEPT")) return Put_File(path, text);
    std::istringstream drawn(text), accepted(held);
    std::string now, then;
    int line = 1;
    while (std::getline(drawn, now) && std::getline(accepted, then) && now == then) ++line;
    ADD_FAILURE() << path << ":" << line << ": the drawing has\n" << now << "\nwhere the log has\n" << then;
}

}  // namespace verlink::test
