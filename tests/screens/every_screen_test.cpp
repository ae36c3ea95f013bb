// What holds on every screen: what a hand can take does something and says what it is for, boxes are ready to be typed
// over, the keys are those that users know, and what is off, hidden or chosen before the first look is so for a reason.
#include <map>
#include <set>

#include "core/model_on_screens.h"
#include "platform/controls.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using namespace platform;
using Names = std::set<std::string>;

/// "name_FIRST" to "name_LAST".
Names Each(const std::string& name, int first, int last, int by = 1) {
    Names names;
    for (int i = first; i <= last; i += by) names.insert(name + "_" + std::to_string(i));
    return names;
}
Names operator+(Names some, const Names& more) {
    some.insert(more.begin(), more.end());
    return some;
}
/// The same controls of the slots for functions.
Names Slots(int first, int last, std::initializer_list<const char*> parts) {
    Names names;
    for (int slot = first; slot <= last; ++slot)
        for (const char* part : parts) {
            const bool array = std::string(part).starts_with("lbl");
            names.insert(part + (array ? "_" + std::to_string(slot - 1) : std::to_string(slot)));
        }
    return names;
}

class EveryScreen : public Fixture {
   protected:
    EveryScreen() {
        Set_Identity();
        Initialize();
    }
    template <class Call>
    static void For_All_Screens(Call call) {
        Names names{"frm_Checks", "frm_Explore", "frm_Report", "frm_Studies"};
        for (const auto& [name, title] : Screens::Titles()) names.insert(name);
        for (const std::string& name : names) call(Screens::Get(name));
    }
    template <class Call>
    static void For_All(Call call) {
        For_All_Screens([&](Screen& screen) {
            for (Control* control : screen.Controls()) call(*control);
        });
    }
    static std::string Name_Of(const Control& control) { return control.Owner().Name() + "." + control.ObjectName(); }
    static std::string Keys_Of(const Control& control) {
        if (const auto* entry = dynamic_cast<const MenuEntry*>(&control)) return entry->Keys;
        if (const auto* button = dynamic_cast<const CommandButton*>(&control)) return button->Keys;
        if (const auto* shortcut = dynamic_cast<const Shortcut*>(&control)) return shortcut->Keys;
        return "";
    }
    static bool Is_Off(const Control& control) {
        if (const auto* entry = dynamic_cast<const MenuEntry*>(&control)) return !entry->Enabled;
        const auto* visual = dynamic_cast<const Visual*>(&control);
        return visual && !visual->Enabled;
    }
    static bool Is_Hidden(const Control& control) {
        const auto* visual = dynamic_cast<const Visual*>(&control);
        return visual && !visual->Visible;
    }
    static bool Is_Chosen(const Control& control) {
        if (const auto* tick = dynamic_cast<const CheckBox*>(&control)) return tick->Value;
        const auto* option = dynamic_cast<const OptionButton*>(&control);
        return option && option->Value;
    }
    static Names Those(const Screen& screen, bool (*are)(const Control&)) {
        Names names;
        for (const Control* control : screen.Controls())
            if (are(*control)) names.insert(control->ObjectName());
        return names;
    }
    using Table = std::map<std::string, Names>;
    static void Expect(const Table& table, bool (*are)(const Control&)) {
        For_All_Screens([&](const Screen& screen) {
            const auto row = table.find(screen.Name());
            EXPECT_EQ(Those(screen, are), row == table.end() ? Names() : row->second) << screen.Name();
        });
    }
};

TEST_F(EveryScreen, HasAHandlerForEachButtonTickOptionEntryAndKey) {
    // What is chosen there is read when it goes on; and it waits for nothing.
    const Names read_later{"frm_PrintSelect.opt_Coord_0", "frm_PrintSelect.opt_Coord_1",
                           "frm_PrintSelect.opt_Whereto_0", "frm_PrintSelect.opt_Whereto_1",
                           "frm_PrintSelect.opt_Whereto_2"};
    const auto heard = [](const Control& control) {
        if (const auto* button = dynamic_cast<const CommandButton*>(&control)) return bool(button->OnClick);
        if (const auto* key = dynamic_cast<const Shortcut*>(&control)) return bool(key->OnPress);
        if (const auto* bar = dynamic_cast<const ScrollBar*>(&control)) return bool(bar->OnChange);
        const auto* entry = dynamic_cast<const MenuEntry*>(&control);
        const bool does = entry && entry->Children().empty() && !entry->Caption.Get().empty();
        return !does || entry->OnClick || entry->OnOpen;
    };
    For_All([&](const Control& control) { EXPECT_TRUE(heard(control)) << Name_Of(control); });
    For_All([&](const Control& control) {
        const auto* option = dynamic_cast<const OptionButton*>(&control);
        const bool plot_data = control.Name() == "opt_Coord" || read_later.contains(Name_Of(control));
        EXPECT_TRUE(!option || option->OnClick || plot_data) << Name_Of(control);
    });
}

TEST_F(EveryScreen, SaysInOneLineWhatEachControlThatAHandTakesIsFor) {
    Set_Menus();  // which tells each button of the home screen why it is off
    For_All([&](const Control& control) {
        const auto* visual = dynamic_cast<const Visual*>(&control);
        if (!visual || dynamic_cast<const Label*>(visual) || dynamic_cast<const Frame*>(visual)) return;
        EXPECT_NE(visual->Tip.Get(), "") << Name_Of(control);
        EXPECT_EQ(visual->Tip.Get().find('\n'), std::string::npos) << Name_Of(control);
    });
}

TEST_F(EveryScreen, SelectsTheTextOfABoxThatIsReachedSoThatTypingReplacesIt) {
    For_All([](Control& control) {
        auto* box = dynamic_cast<TextBox*>(&control);
        const std::string screen = control.Owner().Name();
        // Read-outs, titles, and places of a task, which are longer than a number.
        if (!box || screen == "frm_Cayley" || control.Name() == "txt_Figure") return;
        if (screen == "frm_Explore" || screen == "frm_Studies") return;
        box->SelectedAll = false;
        if (box->OnGotFocus) box->OnGotFocus();
        EXPECT_TRUE(box->SelectedAll) << Name_Of(control);
    });
}

TEST_F(EveryScreen, ReadsNumbersInTheirUnitsWhereverNumbersAreTyped) {
    const Names words{"txt_Figure", "txt_UserName", "txt_Filename", "txt_Find", "txt_Area", "txt_Words"};
    // Whole numbers without a unit.
    const Names counts{"txt_Page", "txt_DesignNo"};
    For_All([&](const Control& control) {
        const auto* box = dynamic_cast<const TextBox*>(&control);
        if (!box || box->Locked || words.contains(box->Name()) || counts.contains(box->Name())) return;
        EXPECT_TRUE(box->Reads) << Name_Of(control);
    });
}

TEST_F(EveryScreen, HasTheKeysOfItsPrintingItsTableItsHistoryAndItsFiles) {
    std::map<std::string, std::string> by_name{{"mnu_Undo", "Ctrl+Z"},          {"mnu_Redo", "Ctrl+Shift+Z Ctrl+Y"},
                                               {"mnu_CopyTable", "Ctrl+C"},     {"mnu_New", "Ctrl+N"},
                                               {"mnu_Open", "Ctrl+O"},          {"mnu_Save", "Ctrl+S"},
                                               {"mnu_Saveas", "Ctrl+Shift+S"},  {"mnu_Quit", "Ctrl+Q"},
                                               {"mnu_Plus", "Ctrl++ Ctrl+= +"}, {"mnu_Normal", "Ctrl+0"},
                                               {"mnu_Minus", "Ctrl+- -"},       {"key_Help", "F1"}};
    const Names with_files{"frm_HomeScreen", "frm_Inputnew", "frm_Animate"};
    const Names with_tables{"frm_Matrix", "frm_Studies"};
    const std::map<std::string, std::string> own{{"frm_Animate.cmd_Animate", "Space"},
                                                 {"frm_Report.cmd_Save", "Ctrl+S"},
                                                 {"frm_Explore.key_Before", "Ctrl+PgUp"},
                                                 {"frm_Explore.key_Next", "Ctrl+PgDown"}};
    For_All([&](const Control& control) {
        const std::string &screen = control.Owner().Name(), &name = control.Name();
        std::string keys = by_name.contains(name) ? by_name.at(name) : "";
        const bool file =
            name == "mnu_New" || name == "mnu_Open" || name == "mnu_Save" || name == "mnu_Saveas" || name == "mnu_Quit";
        if (file && !with_files.contains(screen)) keys.clear();
        if (name == "mnu_CopyTable" && !with_tables.contains(screen)) keys.clear();
        if (name == "cmd_PlotPrint" || name == "cmd_PrintForm" || name == "cmd_Print") keys = "Ctrl+P";
        if (with_files.contains(screen) && (name == "key_Before" || name == "key_After"))
            keys = name == "key_Before" ? "Left" : "Right";
        if (own.contains(Name_Of(control))) keys = own.at(Name_Of(control));
        EXPECT_EQ(Keys_Of(control), keys) << Name_Of(control);
    });
}

TEST_F(EveryScreen, HasItsButtonsForReturnAndEscape) {
    struct Keys {
        const char *for_return, *for_escape;
    };
    const Keys plot{"cmd_Done", "cmd_Replot"}, grid{"cmd_PlotDone", "cmd_Back"},
        select{"cmd_Done", "cmd_CancelPlotData"}, synthesis{"cmd_Calc", "cmd_Cancel"}, none{"", ""};
    const std::map<std::string, Keys> table{{"frm_About", none},
                                            {"frm_Animate", {"cmd_Animate", ""}},
                                            {"frm_Balance", {"cmd_Calc", "cmd_back"}},
                                            {"frm_Cayley", {"cmd_Done", "cmd_Done"}},
                                            {"frm_Checks", {"cmd_Done", "cmd_Done"}},
                                            {"frm_Explore", {"cmd_Search", "cmd_Cancel"}},
                                            {"frm_FFT", synthesis},
                                            {"frm_Help", {"", "cmd_Close"}},
                                            {"frm_HomeScreen", {"cmd_Input", ""}},
                                            {"frm_Inputnew", synthesis},
                                            {"frm_MassProp", {"cmd_Solve", ""}},
                                            {"frm_Matrix", {"cmd_Done", "cmd_Back"}},
                                            {"frm_Myplot2", grid},
                                            {"frm_MyPlot3", grid},
                                            {"frm_MyPlot4", grid},
                                            {"frm_Plot1", plot},
                                            {"frm_Plot2", plot},
                                            {"frm_Plot3", plot},
                                            {"frm_PlotSelect1", select},
                                            {"frm_PlotSelect2", select},
                                            {"frm_PlotSelect3", select},
                                            {"frm_PlotSelect4", select},
                                            {"frm_PlotType", {"cmd_PickPlotDone", "cmd_CancelPickPlot"}},
                                            {"frm_PrintData", {"cmd_Done", "cmd_Reprint"}},
                                            {"frm_PrintSelect", {"cmd_Done", "cmd_Cancel"}},
                                            {"frm_Quit", {"cmd_NoQuit", "cmd_NoQuit"}},
                                            {"frm_Report", {"cmd_Save", "cmd_Cancel"}},
                                            {"frm_Studies", {"cmd_Start", "cmd_Cancel"}},
                                            {"frm_Synth2A", synthesis},
                                            {"frm_Synth2B", synthesis},
                                            {"frm_Synth3", synthesis},
                                            {"frm_Title", {"cmd_Start", ""}},
                                            {"frm_User", {"cmd_Done", ""}}};
    const auto name = [](const CommandButton* button) { return button ? button->Name() : std::string(); };
    For_All_Screens([&](const Screen& screen) {
        ASSERT_TRUE(table.contains(screen.Name())) << screen.Name();
        EXPECT_EQ(name(screen.DefaultButton), table.at(screen.Name()).for_return) << screen.Name();
        EXPECT_EQ(name(screen.CancelButton), table.at(screen.Name()).for_escape) << screen.Name();
        EXPECT_EQ(name(screen.StopButton), screen.Name() == "frm_Animate" ? "cmd_Reset" : "") << screen.Name();
        EXPECT_EQ(screen.StopKeys, screen.Name() == "frm_Animate" ? "Space" : "") << screen.Name();
    });
}

TEST_F(EveryScreen, IsOffBeforeTheFirstLookWhereNothingCanBeDoneYet) {
    const Names history{"mnu_Undo", "mnu_Redo"}, selection{"cmd_Last", "cmd_Done"};
    const Names all_of_slots =
        Slots(1, 4, {"fra_Function", "lbl_Var", "cmb_Var", "lbl_Comp", "cmb_Com", "cmd_OK", "cmd_Clear"});
    Expect({{"frm_Animate", history},
            {"frm_Explore", Each("txt_X", 4, 5) + Each("txt_Y", 4, 5) + Each("txt_Angle", 4, 5) +
                                Names{"chk_Curves", "cmd_Earlier", "cmd_Stop"}},
            {"frm_Help",
             {"cmb_Contents", "cmd_PageBefore", "txt_Page", "cmd_PageAfter", "cmd_Smaller", "cmd_Larger",
              "cmd_FitWidth", "cmd_Back", "txt_Find", "cmd_FindBefore", "cmd_FindAfter", "cmb_Finds"}},
            {"frm_HomeScreen",
             history + Each("mnu_Cog", 1, 3) +
                 Names{"mnu_New", "mnu_Save", "mnu_Saveas", "mnu_Export", "mnu_Recent", "mnu_Cayley", "mnu_CalcFFT",
                       "cmd_Animate", "cmd_Plot", "cmd_Print", "cmd_Dynamics", "cmd_Balance"}},
            {"frm_Inputnew", history + Names{"cmd_Step", "cmd_Animate", "cmd_Done"}},
            {"frm_MassProp",
             {"txt_MagForce_2", "txt_AngForce_2", "txt_DistP_2", "txt_AngP_2", "txt_Torque_2", "txt_Frict_2",
              "txt_Frict_4"}},
            {"frm_PlotSelect1", selection + Slots(2, 4, {"fra_Function"})},
            {"frm_PlotSelect2", selection + Slots(2, 2, {"fra_Function"})},
            {"frm_PlotSelect3", selection + Slots(2, 4, {"fra_Function"})},
            {"frm_PlotSelect4", selection},
            {"frm_PlotType", {"cmd_PickPlotDone"}},
            {"frm_PrintSelect", selection + all_of_slots + Names{"fra_coord", "opt_Coord_1"}},
            {"frm_Studies", history + Names{"cmd_Stop", "cmd_Take", "cmd_Before", "cmd_After"}},
            {"frm_Synth2A", history},
            {"frm_Synth2B", history},
            {"frm_Synth3", history}},
           Is_Off);
}

TEST_F(EveryScreen, HidesBeforeTheFirstLookWhatThereIsNothingToShowIn) {
    const Names live =
        Slots(1, 4, {"cmb_LiveVar", "cmb_LiveCom", "cmb_LiveFrame"}) + Each("grf_Live", 0, 4) +
        Each("opt_LiveScale", 0, 1) + Each("opt_LiveX", 0, 1) +
        Names{"fra_Live", "lbl_LivePreset", "cmb_LivePreset", "fra_LiveScale", "fra_LiveX", "lbl_LiveNote"};
    Expect({{"frm_Animate", live + Names{"fra_toggle"}},
            {"frm_Balance",
             Each("grf_Plot", 0, 1) + Each("lbl_Function", 0, 1) + Each("lbl_Component", 0, 1) + Names{"pct_Pict1"}},
            {"frm_Explore", Each("lbl_Number", 4, 5)},
            {"frm_HomeScreen", Each("lbl_Status", 0, 8) + Names{"Picture1", "lbl_Checks"}},
            {"frm_Inputnew", {"fra_toggle"}},
            {"frm_MyPlot4", Each("pnl_name", 0, 1) + Each("pnl_vector", 0, 1) +
                                Names{"lbl_StepLabel", "lbl_StepNumber", "lbl_StepUnit", "pnl_PlotUnits"}},
            {"frm_Studies", {"fra_Tolerance", "grf_Sweep", "map_Sweep", "his_Spread", "bar_Share"}}},
           Is_Hidden);
}

TEST_F(EveryScreen, HasChosenBeforeTheFirstLookWhatMostWillWant) {
    const Names plot{"chk_HGrid", "chk_VGrid", "chk_Line", "opt_Back_0"};
    const Names linkage{"opt_Polar_0", "opt_OpenCross_0", "opt_Shift_Drag_0", "chk_autoscale"};
    const Names presets{"opt_Coord_0", "opt_PrintSet_0"};
    Expect({{"frm_Animate", linkage + Names{"chk_Showlinks", "chk_Coupler", "opt_LiveScale_0", "opt_LiveX_0"}},
            {"frm_Balance", {"opt_Back_0"}},
            {"frm_Explore", {"chk_Curves", "opt_Relative_0"}},
            {"frm_FFT", {"chk_Sticks"}},
            {"frm_Inputnew", linkage + Names{"opt_Calctype_3", "opt_Modulo_1", "chk_autocalc"}},
            {"frm_MyPlot4", {"chk_Envelope"}},
            {"frm_Plot1", plot},
            {"frm_Plot2", plot},
            {"frm_Plot3", plot},
            {"frm_PlotSelect1", presets},
            {"frm_PlotSelect2", presets + Names{"opt_Plotstyle_0"}},
            {"frm_PlotSelect3", presets + Names{"opt_Plotstyle_0"}},
            {"frm_PlotSelect4", {"opt_Coord_0"}},
            {"frm_PrintSelect", presets + Names{"opt_Whereto_0"}},
            {"frm_Report", Those(Screens::Get("frm_Report"), Is_Chosen)}},
           Is_Chosen);
}

TEST_F(EveryScreen, HasItsListsAndItsBarsFromTheBeginning) {
    const std::vector<std::string> components{"X", "Y", "Mag", "Ang"};
    const auto list = [](const char* screen, const char* name) {
        return Screens::Get(screen).Get<ComboBox>(name).Items();
    };
    using List = std::vector<std::string>;
    EXPECT_EQ(list("frm_Animate", "cmb_wait"), (List{"10", "20", "40", "100", "500"}));
    EXPECT_EQ(list("frm_FFT", "cmb_Com1"), components);
    EXPECT_EQ(list("frm_PrintSelect", "cmb_Step"), (List{"1", "2", "3", "5", "10"}));
    EXPECT_EQ(list("frm_PrintSelect", "cmb_Decimal"), (List{"0", "1", "2", "3", "4", "5", "6"}));
    EXPECT_EQ(list("frm_Studies", "cmb_Frame"), (List{"Global", "Local"}));
    for (const char* slot : {"1", "2", "3", "4"}) {
        EXPECT_EQ(list("frm_Animate", (std::string("cmb_LiveCom") + slot).c_str()), components);
        EXPECT_EQ(list("frm_Animate", (std::string("cmb_LiveFrame") + slot).c_str()), (List{"Global", "Local"}));
    }
    const auto& speed = Screens::Get("frm_Animate").Get<ScrollBar>("hsc_speed");
    EXPECT_EQ(speed.Max(), 32767);
    EXPECT_EQ(speed.Value(), 16383) << "the middle";
    EXPECT_EQ(speed.SmallChange, 100);
    EXPECT_EQ(speed.LargeChange, 1000);
    EXPECT_TRUE(speed.KeepsArrows);
    for (const char* screen : {"frm_Animate", "frm_Inputnew"}) {
        EXPECT_FALSE(Screens::Get(screen).Get<ScrollBar>("hsc_step").KeepsArrows) << "they step through the run";
        EXPECT_EQ(Screens::Get(screen).Get<Timer>("Timer1").Interval, 250);
    }
    EXPECT_EQ(Screens::Get("frm_Animate").Get<ScrollBar>("hsc_step").Max(), 0);
    EXPECT_EQ(Screens::Get("frm_Studies").Get<Timer>("Timer1").Interval, 200);
}

TEST_F(EveryScreen, HasItsOwnSizeBeforeItIsArrivedAt) {
    const std::map<std::string, std::pair<long, long>> sizes{{"frm_About", {6000, 3000}},
                                                             {"frm_Quit", {6000, 2250}},
                                                             {"frm_Report", {9000, 6000}},
                                                             {"frm_HomeScreen", {11850, 9480}}};
    For_All_Screens([&](Screen& screen) {
        const auto own = sizes.find(screen.Name());
        const auto [width, height] = own == sizes.end() ? std::pair<long, long>(11850, 8950) : own->second;
        EXPECT_EQ(screen.Width().Get(), width) << screen.Name();
        EXPECT_EQ(screen.Height().Get(), height) << screen.Name();
    });
}

}  // namespace
}  // namespace verlink::test
