// What each control of a screen does when a hand has come to it: what changes on the screen and in the model, and what
// is said, asked and shown. A line that changes in the logs is read before it is accepted.
#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <map>
#include <regex>
#include <thread>

#include "dynamics/dynacalc.h"
#include "platform/graph.h"
#include "platform/overlaid_picture.h"
#include "screens/frm_explore.h"
#include "screens/frm_studies.h"
#include "shell/history.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/screens/forces_fixture.h"
#include "tests/support/screen_words.h"
#include "tests/walk/hand.h"
#include "tests/walk/record.h"

namespace verlink::test {
namespace {

using namespace platform;
using walk::Action;

/// Answers each question once with what changes least and once with what goes on, and tells of it.
class Telling_Desktop : public ScriptedDesktop {
   public:
    explicit Telling_Desktop(const std::string& folder) { Documents = folder; }
    std::vector<std::string> Told;
    std::function<void(Screen&)> Serves;
    int Pauses_Left = 0;

    Answer Show_Message(const Message& message) override {
        Tell_Of("says", message.text);
        const Answer least = Harmless(message.buttons);
        if (!Again(message.text)) return least;
        switch (message.buttons) {
            case Buttons::kYesNo: return Answer::kYes;
            case Buttons::kOkCancel: return Answer::kOk;
            default: return least;
        }
    }
    std::optional<std::string> Ask_Open_File(const FileDialog& dialog) override { return File(dialog, "opens"); }
    std::optional<std::string> Ask_Save_File(const FileDialog& dialog) override { return File(dialog, "saves"); }
    bool Ask_Printer() override {
        Tell_Of("asks", "printer");
        return Again("printer");
    }
    void Print_Screen(Screen& screen) override { Tell_Of("prints", screen.Name()); }
    void Print_Pages(const std::vector<std::vector<std::string>>& pages) override {
        for (const auto& page : pages) Tell_Of("prints", std::to_string(page.size()) + " lines from " + page.front());
    }
    void Show_Beside(Screen& screen) override { Leave(screen); }
    void Serve_Events(Screen& screen, const std::function<bool()>&) override { Serves(screen); }
    bool Pause(std::chrono::nanoseconds) override { return --Pauses_Left > 0; }

    /// As soon as it is drawn, or has calculated.
    void Leave(Screen& screen) {
        Tell_Of("shows", screen.Name() + " " + screen.Caption().Get());
        for (Control* control : screen.Controls())
            if (auto* timer = dynamic_cast<Timer*>(control); timer && walk::Running(*timer)) timer->Tick();
        if (screen.Name() == "frm_Inputnew") Press(screen, "cmd_Calc");
        screen.Hide();
    }

   private:
    bool Again(const std::string& what) { return ++asked_[what] % 2 == 0; }
    std::optional<std::string> File(const FileDialog& dialog, const char* does) {
        Tell_Of(does, dialog.title + "|" + dialog.filter + "|" + dialog.file_name + "|" + dialog.kind);
        if (!Again(dialog.title)) return {};
        const std::size_t star = dialog.filter.find("|*");
        return Documents + "/made" +
               (star == std::string::npos
                    ? ""
                    : dialog.filter.substr(star + 2, dialog.filter.find_first_of("|;", star + 2) - star - 2));
    }
    void Tell_Of(const char* does, const std::string& what) { Told.push_back(std::string("    ") + does + " " + what); }
    std::map<std::string, int> asked_;
};

/// Another text that a box may take: of a number a larger one.
std::string Other_Than(const std::string& text) {
    double number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (!text.empty() && (read.ec != std::errc{} || read.ptr != text.data() + text.size())) return text + "x";
    char other[32];
    std::snprintf(other, sizeof other, "%.4g", 1.25 * number + 0.5);
    return other;
}

/// What a hand can do there, all of it.
std::vector<Action> Deeds_On(const Screen& screen, const Control& control) {
    const std::string &on = screen.Name(), &name = control.Name();
    const int index = control.Index();
    if (const auto* box = dynamic_cast<const TextBox*>(&control))
        return {walk::Go(on, name, index), walk::Type(on, name, index, Other_Than(box->Text)),
                walk::Return(on),          walk::Type(on, name, index, "1e"),
                walk::Return(on),          walk::Type(on, name, index, box->Text),
                walk::Return(on)};
    if (dynamic_cast<const CommandButton*>(&control)) return {2, walk::Press(on, name, index)};
    if (dynamic_cast<const OptionButton*>(&control)) return {walk::Option(on, name, index)};
    if (dynamic_cast<const CheckBox*>(&control)) return {walk::Tick(on, name, index), walk::Tick(on, name, index)};
    if (const auto* list = dynamic_cast<const ComboBox*>(&control)) {
        const int last = static_cast<int>(list->Items().size()) - 1;
        return {walk::Item(on, name, index, last), walk::Write(on, name, index, "zz"),
                walk::Double_List(on, name, index), walk::Item(on, name, index, 0), walk::Double_List(on, name, index)};
    }
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control))
        return {walk::Scroll(on, name, index, (bar->Min() + bar->Max()) / 2), walk::Thumb(on, name, index, bar->Max()),
                walk::Scroll(on, name, index, bar->Value())};
    if (const auto* box = dynamic_cast<const PictureBox*>(&control)) {
        std::vector<Action> deeds{walk::Click_Picture(on, name, index),
                                  walk::Double_Picture(on, name, index),
                                  walk::Mouse(on, name, index, 0.4, 0.3, 1, 0),
                                  walk::Hover(on, name, 0.3, 0.6),
                                  walk::Hover(on, name, -1, -1),
                                  walk::Haul(on, name, 0.5, 0.5, 0.6, 0.45, 0, index),
                                  walk::Turn_Wheel(on, name, 0.5, 0.5, 2, index)};
        for (const std::string& key : Single_Keys(box->Keys))
            for (const std::string& pressed : {key, std::string("Right"), std::string("Shift+Up"), std::string("Esc")})
                deeds.push_back(walk::On_Picture(on, name, pressed));
        return deeds;
    }
    if (dynamic_cast<const MenuEntry*>(&control)) return {2, walk::Pick(on, name, index)};
    if (dynamic_cast<const Graph*>(&control)) return {walk::Seek(on, name, index, 3)};
    if (dynamic_cast<const Histogram*>(&control) || dynamic_cast<const Color_Map*>(&control))
        return {walk::Seek(on, name, index, 1), walk::Seek(on, name, index, 40)};
    if (dynamic_cast<const Timer*>(&control)) return {2, walk::Pulse(on, name)};
    if (dynamic_cast<const Shortcut*>(&control)) return {walk::Keys(on, name)};
    return {};
}

/// What computes beside the screen comes to its end, as its timer hears of it.
void To_The_End(Screen& screen) {
    if (auto* explore = dynamic_cast<frm_Explore*>(&screen)) explore->Await_Search();
    if (auto* studies = dynamic_cast<frm_Studies*>(&screen))
        while (studies->Timer1.Enabled) {
            std::this_thread::yield();
            studies->Timer1.Tick();
        }
}

/// The number as it is shown, in fewer digits.
std::string Fewer_Digits(const std::string& word) {
    double number = 0;
    const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
    if (word.empty() || read.ec != std::errc{} || read.ptr != word.data() + word.size()) return word;
    char shorter[32];
    std::snprintf(shorter, sizeof shorter, "%.4g", number);
    return shorter;
}

/// A screen, of which model it is, and what was done on it before; backwards comes first what stands last.
struct Opened {
    const char* screen;
    const char* name = "";
    enum { kByAngle, kByTime, kDriven, kMillimetres, kNew } model = kByAngle;
    std::vector<Action> first = {};
    bool backwards = false;
    std::string Log() const { return std::string(screen) + name; }
};

class EachControl : public Forces, public testing::WithParamInterface<Opened> {
   protected:
    EachControl() {
        Set_Identity();
        Model.UserName = "Ada";
        Model.ModelName = "press";
        Model.FilePath = Path("press.vlk");
        Model.AspectRatio = 1.5;
        std::filesystem::create_directory(telling.Documents);
        if (GetParam().model == Opened::kByTime || GetParam().model == Opened::kMillimetres) {
            In_Units(5);
            Model.CircuitIndex = 2;
            Turn_Ground(25);
            Model.PolarCoords = false;
            GetParam().model == Opened::kByTime ? By_Time(0, 1, 0.1) : By_Angle(0, 360, 12);
        }
        if (GetParam().model == Opened::kDriven) By_Cam(20, 12);
        if (GetParam().model == Opened::kNew) New_Model();
        Run_Counts();
        telling.Serves = [this](Screen& screen) {
            screen.Name() == GetParam().screen && !at_work_ ? Go_On(screen) : telling.Leave(screen);
        };
    }

    /// The menus come last, with what is there to be saved and undone then.
    void Go_On(Screen& screen) {
        while (screen.Visible() && !telling.Ending() && control_ < controls_.size()) {
            if (deeds_.empty()) deeds_ = Deeds_On(screen, *controls_[control_]);
            if (done_ >= deeds_.size()) {
                ++control_, done_ = 0;
                deeds_.clear();
                continue;
            }
            const Action& deed = deeds_[done_++];
            if (!walk::Possible(screen, deed)) continue;
            telling.Pauses_Left = 40;
            at_work_ = true;
            walk::Do(screen, deed);
            at_work_ = false;
            To_The_End(screen);
            Note(Line_Of(deed), screen);
        }
        screen.Hide();
    }

    /// Of the screen and the model what is new since the last time; a deed that does nothing is not told.
    void Note(const std::string& deed, Screen& screen) {
        const std::size_t so_far = words_.size();
        Say(deed + (screen.Visible() ? "" : " leaves"));
        for (const std::string& told : telling.Told) Say(told);
        telling.Told.clear();
        auto now = Words_By_Control(screen);
        static const std::regex pace(", [^,]* a second");  // is another in each run
        for (std::size_t i = 0; i < now.size(); ++i) {
            for (std::string& word : now[i])
                if (word.find(" a second") != std::string::npos) word = std::regex_replace(word, pace, "");
            const std::string line = New_In(now[i], before_[i]);
            if (!line.empty()) Say(now[i].front() + line);
        }
        before_ = std::move(now);
        std::string line;
        auto record = walk::Record_Words();
        for (std::size_t i = 0; i < record.size(); ++i)
            if (i >= record_.size() || record[i] != record_[i])
                line += ' ' + record[i].first + '=' + Fewer_Digits(record[i].second);
        if (!line.empty()) Say("    model" + line);
        record_ = std::move(record);
        if (words_.size() == so_far + 1 && screen.Visible()) words_.pop_back();
    }
    static std::string New_In(const std::vector<std::string>& now, const std::vector<std::string>& was) {
        std::string line;
        for (const std::string& word : now)
            if (std::find(was.begin(), was.end(), word) == was.end()) line += ' ' + word;
        for (const std::string& word : was) {
            const std::string what = word.substr(0, word.find(' '));
            const auto same = [&what](const std::string& other) { return other.substr(0, other.find(' ')) == what; };
            if (std::isalpha(static_cast<unsigned char>(what[0])) && std::none_of(now.begin(), now.end(), same))
                line += " not " + what;
        }
        return line;
    }
    /// In one line, without the folder of the test; of what is long the end is told by a sum.
    void Say(std::string line) {
        std::replace_if(
            line.begin(), line.end(), [](char letter) { return letter == '\r' || letter == '\n'; }, ' ');
        const std::string folder = Path("");
        for (std::size_t at = 0; (at = line.find(folder, at)) != std::string::npos;)
            line.replace(at, folder.size(), "~/");
        constexpr std::size_t kLong = 200;
        if (line.size() > kLong) {
            std::uint32_t sum = 2166136261U;
            for (const char letter : line) sum = (sum ^ static_cast<unsigned char>(letter)) * 16777619U;
            char end[32];
            std::snprintf(end, sizeof end, " ... %08x", static_cast<unsigned>(sum));
            line = line.substr(0, kLong) + end;
        }
        words_.push_back(line);
    }

    Telling_Desktop telling{Path("here")};
    std::vector<Control*> controls_;
    std::size_t control_ = 0, done_ = 0;
    std::vector<Action> deeds_;
    bool at_work_ = false;  ///< a deed that shows the screen anew
    std::vector<std::string> words_;
    std::vector<std::vector<std::string>> before_;
    walk::Words record_;
};

TEST_P(EachControl, DoesWhatItsLogTells) {
    if (GetParam().model != Opened::kNew) Solve_Forces(Model);
    Model.SynPositions =
        std::string(GetParam().screen).starts_with("frm_Synth2") ? 1 : 2;  // as the home screen leads there
    Screen& screen = Screens::Get(GetParam().screen);
    if (auto* explore = dynamic_cast<frm_Explore*>(&screen)) explore->Effort.coarse = true;
    controls_ = screen.Controls();
    const auto menus = std::stable_partition(controls_.begin(), controls_.end(), [](const Control* control) {
        return !dynamic_cast<const MenuEntry*>(control);
    });
    if (GetParam().backwards) std::reverse(controls_.begin(), menus);
    deeds_ = GetParam().first;
    if (!deeds_.empty()) controls_.insert(controls_.begin(), controls_.front());  // which is gone with them
    The_History().Begin();
    before_ = Words_By_Control(screen);
    record_ = walk::Record_Words();
    while (control_ < controls_.size() && !telling.Ending()) screen.ShowModal();
    Expect_Words("each_control_of_" + GetParam().Log(), words_);
}

std::string Told(const testing::TestParamInfo<Opened>& named) { return named.param.Log().substr(4); }

INSTANTIATE_TEST_SUITE_P(All, EachControl,
                         testing::Values(Opened{"frm_Animate"}, Opened{"frm_Balance"}, Opened{"frm_Cayley"},
                                         Opened{"frm_Explore"}, Opened{"frm_FFT"}, Opened{"frm_Help"},
                                         Opened{"frm_HomeScreen"}, Opened{"frm_Inputnew"}, Opened{"frm_MassProp"},
                                         Opened{"frm_Matrix"}, Opened{"frm_PlotSelect1"}, Opened{"frm_PlotSelect2"},
                                         Opened{"frm_PlotSelect3"}, Opened{"frm_PlotSelect4"}, Opened{"frm_PlotType"},
                                         Opened{"frm_PrintSelect"}, Opened{"frm_Quit"}, Opened{"frm_Report"},
                                         Opened{"frm_Studies"}, Opened{"frm_Synth2A"}, Opened{"frm_Synth2B"},
                                         Opened{"frm_Synth3"}, Opened{"frm_Title"}, Opened{"frm_User"}),
                         Told);

// In millimetres, crossed, on a turned ground that is typed as a point.
INSTANTIATE_TEST_SUITE_P(ByTime, EachControl,
                         testing::Values(Opened{"frm_Animate", "_by_time", Opened::kByTime},
                                         Opened{"frm_FFT", "_by_time", Opened::kByTime},
                                         Opened{"frm_HomeScreen", "_by_time", Opened::kByTime},
                                         Opened{"frm_Inputnew", "_by_time", Opened::kByTime}),
                         Told);

INSTANTIATE_TEST_SUITE_P(InMillimetres, EachControl,
                         testing::Values(Opened{"frm_Balance", "_in_millimetres", Opened::kMillimetres},
                                         Opened{"frm_Cayley", "_in_millimetres", Opened::kMillimetres},
                                         Opened{"frm_MassProp", "_in_millimetres", Opened::kMillimetres}),
                         Told);

INSTANTIATE_TEST_SUITE_P(New, EachControl, testing::Values(Opened{"frm_HomeScreen", "_new", Opened::kNew}), Told);

INSTANTIATE_TEST_SUITE_P(Driven, EachControl,
                         testing::Values(Opened{"frm_Animate", "_driven", Opened::kDriven},
                                         Opened{"frm_Inputnew", "_driven", Opened::kDriven}),
                         Told);

const std::vector<Action> kPlotted{walk::Pick("frm_Animate", "mnu_ViewLive"),
                                   walk::Item("frm_Animate", "cmb_LivePreset", kNoIndex, 5)};
const std::vector<Action> kSwept{walk::Option("frm_Studies", "opt_Kind", 0),
                                 walk::Item("frm_Studies", "cmb_Sweep", 2, 4), walk::Press("frm_Studies", "cmd_Start"),
                                 walk::Seek("frm_Studies", "map_Sweep", kNoIndex, 40),
                                 walk::Press("frm_Studies", "cmd_After")};
const std::vector<Action> kSpread{walk::Option("frm_Studies", "opt_Kind", 1), walk::Press("frm_Studies", "cmd_Start"),
                                  walk::Seek("frm_Studies", "his_Spread", kNoIndex, 40),
                                  walk::Press("frm_Studies", "cmd_Before")};

INSTANTIATE_TEST_SUITE_P(WithResults, EachControl,
                         testing::Values(Opened{"frm_Animate", "_with_plots", Opened::kByAngle, kPlotted, true},
                                         Opened{"frm_Studies", "_swept", Opened::kByAngle, kSwept, true},
                                         Opened{"frm_Studies", "_spread", Opened::kByAngle, kSpread, true}),
                         Told);

}  // namespace
}  // namespace verlink::test
