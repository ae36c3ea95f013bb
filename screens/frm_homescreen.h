// The hub: menus, the row of buttons, the status panel, the present linkage.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop_services.h"
#include "platform/overlaid_picture.h"
#include "platform/screen.h"
#include "screens/drawing_entry.h"
#include "screens/frm_help.h"
#include "screens/view_menu.h"

namespace verlink {

class frm_HomeScreen : public platform::Screen {
   public:
    frm_HomeScreen();

    using MenuEntry = platform::MenuEntry;
    using Button = platform::CommandButton;

    MenuEntry mnu_File{*this, "mnu_File", "&File"};
    MenuEntry mnu_New{mnu_File, "mnu_New", "&New"};
    MenuEntry mnu_Open{mnu_File, "mnu_Open", "&Open"};
    MenuEntry mnu_FileBar1{mnu_File, "mnu_FileBar1", ""};
    MenuEntry mnu_Save{mnu_File, "mnu_Save", "&Save"};
    MenuEntry mnu_Saveas{mnu_File, "mnu_Saveas", "Save &as"};
    MenuEntry mnu_FileBar2{mnu_File, "mnu_FileBar2", ""};
    MenuEntry mnu_Import{mnu_File, "mnu_Import", "&Import"};
    MenuEntry mnu_Lobetra{mnu_Import, "mnu_Lobetra", " Lobetra Drive Data"};
    MenuEntry mnu_Link_Data_Import{mnu_Import, "mnu_Link_Data_Import", " Linkage Drive Data"};
    MenuEntry mnu_Export{mnu_File, "mnu_Export", "&Export"};
    MenuEntry mnu_Link_Data_Export{mnu_Export, "mnu_Link_Data_Export", " Link 4 Theta-Omega-Alpha Data"};
    MenuEntry mnu_Export_Torque{mnu_Export, "mnu_Export_Torque", " Link 2 Driving Torque Data"};
    MenuEntry mnu_pdx{mnu_Export, "mnu_pdx", " Pendrix Input File"};
    MenuEntry mnu_FileBar3{mnu_File, "mnu_FileBar3", ""};
    MenuEntry mnu_Quit{mnu_File, "mnu_Quit", "&Quit"};
    MenuEntry mnu_FileBar4{mnu_File, "mnu_FileBar4", ""};
    MenuEntry mnu_Recent{mnu_File, "mnu_Recent", "&Recent Files"};
    /// The latest first, by number; as many are in sight as there are.
    platform::ControlArray<MenuEntry> mnu_RecentFile{
        mnu_Recent, "mnu_RecentFile", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, "Recent File"};
    MenuEntry mnu_FileBar5{mnu_File, "mnu_FileBar5", ""};
    MenuEntry mnu_Undo{mnu_File, "mnu_Undo", "Undo"};
    MenuEntry mnu_Redo{mnu_File, "mnu_Redo", "Redo"};

    MenuEntry mnu_Units{*this, "mnu_Units", "&Units"};
    platform::ControlArray<MenuEntry> mnu_pick{
        mnu_Units,
        "mnu_pick",
        {{1, "&in-lb-s"}, {2, "&ft-lb-s"}, {3, "m-kg-s (&SI)"}, {4, "&cm-kg-s"}, {5, "&mm-kg-s"}}};

    MenuEntry mnu_Examples{*this, "mnu_Examples", "&Examples"};
    MenuEntry mnu_Grashof{mnu_Examples, "mnu_Grashof", "&Grashof Test Linkage"};
    MenuEntry mnu_Hoekens{mnu_Examples, "mnu_Hoekens", "&Hoekens Straight Line Linkage"};
    MenuEntry mnu_Roberts{mnu_Examples, "mnu_Roberts", "&Roberts Straight Line Linkage"};
    MenuEntry mnu_Watts{mnu_Examples, "mnu_Watts", "&Watts Straight Line Linkage"};
    MenuEntry mnu_Cheby{mnu_Examples, "mnu_Cheby", "&Chebychev Straight Line Linkage"};
    MenuEntry mnu_Syntest{mnu_Examples, "mnu_Syntest", "&Synthesis Test Linkage"};

    MenuEntry mnu_Cognate{*this, "mnu_Cognate", "&Cognates"};
    platform::ControlArray<MenuEntry> mnu_Cog{
        mnu_Cognate, "mnu_Cog", {{1, "Cognate &1"}, {2, "Cognate &2"}, {3, "Cognate &3"}}};
    MenuEntry mnu_Cayley{mnu_Cognate, "mnu_Cayley", "Cayley &Diagram"};

    MenuEntry mnu_Synthesis{*this, "mnu_Synthesis", "&Synthesis"};
    MenuEntry mnu_Twopos{mnu_Synthesis, "mnu_Twopos", "T&wo Position"};
    MenuEntry mnu_Twopos1{mnu_Twopos, "mnu_Twopos1", "Assume Three &Angles"};
    MenuEntry mnu_Twopos2{mnu_Twopos, "mnu_Twopos2", "Assume Mag and Angle of &Vector"};
    MenuEntry mnu_3pos{mnu_Synthesis, "mnu_3pos", "T&hree Position"};
    MenuEntry mnu_Unspec{mnu_3pos, "mnu_Unspec", "with &Unspecified Fixed Pivots"};
    MenuEntry mnu_Spec{mnu_3pos, "mnu_Spec", "with &Specified Fixed Pivots"};
    MenuEntry mnu_SynthesisBar1{mnu_Synthesis, "mnu_SynthesisBar1", ""};
    MenuEntry mnu_Explore{mnu_Synthesis, "mnu_Explore", "&Explore..."};

    MenuEntry mnu_FFT{*this, "mnu_FFT", "&FFT"};
    MenuEntry mnu_CalcFFT{mnu_FFT, "mnu_CalcFFT", "&Calculate FFT"};

    MenuEntry mnu_User{*this, "mnu_User", "&User"};
    MenuEntry mnu_UserName{mnu_User, "mnu_UserName", "User Name"};
    MenuEntry mnu_FilePath{mnu_User, "mnu_FilePath", "File Path"};
    MenuEntry mnu_AppPath{mnu_User, "mnu_AppPath", "Application Path"};
    MenuEntry mnu_ChangeUser{mnu_User, "mnu_ChangeUser", "Change Project/File Name"};

    MenuEntry mnu_Screen{*this, "mnu_Screen", "Screen Size"};
    MenuEntry mnu_Standardsize{mnu_Screen, "mnu_Standardsize", "Standard"};
    MenuEntry mnu_Fullscreen{mnu_Screen, "mnu_Fullscreen", "Maximize"};
    MenuEntry mnu_Aspect{mnu_Screen, "mnu_Aspect", "Aspect Ratio"};

    MenuEntry mnu_HelpHeader{*this, "mnu_HelpHeader", "Help"};
    MenuEntry mnu_CopyHelp{mnu_HelpHeader, "mnu_CopyHelp", "Copying to Clipboard"};
    MenuEntry mnu_Menu{mnu_HelpHeader, "mnu_Menu", "Menu Items"};
    MenuEntry mnu_FileHelp{mnu_Menu, "mnu_FileHelp", "File"};
    MenuEntry mnu_FileGeneral{mnu_FileHelp, "mnu_FileGeneral", "General"};
    MenuEntry mnu_ImportHelp{mnu_FileHelp, "mnu_ImportHelp", "Import"};
    MenuEntry mnu_ExportHelp{mnu_FileHelp, "mnu_ExportHelp", "Export"};
    MenuEntry mnu_UnitsHelp{mnu_Menu, "mnu_UnitsHelp", "Units"};
    MenuEntry mnu_ExampleHelp{mnu_Menu, "mnu_ExampleHelp", "Examples"};
    MenuEntry mnu_CognateHelp{mnu_Menu, "mnu_CognateHelp", "Cognates"};
    MenuEntry mnu_SynthHelp{mnu_Menu, "mnu_SynthHelp", "Synthesis"};
    MenuEntry mnu_FFTHelp{mnu_Menu, "mnu_FFTHelp", "FFT"};
    MenuEntry mnu_Buttons{mnu_HelpHeader, "mnu_Buttons", "Buttons"};
    MenuEntry mnu_InputHelp{mnu_Buttons, "mnu_InputHelp", "Input"};
    MenuEntry mnu_Linkdata{mnu_InputHelp, "mnu_Linkdata", "Linkage Data"};
    MenuEntry mnu_LinkCalc{mnu_InputHelp, "mnu_LinkCalc", "Calculation"};
    MenuEntry mnu_AnimateHelp{mnu_Buttons, "mnu_AnimateHelp", "Animate"};
    MenuEntry mnu_PlotHelp{mnu_Buttons, "mnu_PlotHelp", "Plot"};
    MenuEntry mnu_PrintHelp{mnu_Buttons, "mnu_PrintHelp", "Print"};
    MenuEntry mnu_DynamicsHelp{mnu_Buttons, "mnu_DynamicsHelp", "Dynamics"};
    MenuEntry mnu_BalanceHelp{mnu_Buttons, "mnu_BalanceHelp", "Balance"};
    MenuEntry mnu_General{mnu_HelpHeader, "mnu_General", "General"};
    MenuEntry mnu_Manual{mnu_General, "mnu_Manual", "User Manual"};
    MenuEntry mnu_Video1{mnu_General, "mnu_Video1", "Video Tutorial"};
    MenuEntry mnu_HelpBar1{mnu_HelpHeader, "mnu_HelpBar1", ""};
    MenuEntry mnu_FilesHelp{mnu_HelpHeader, "mnu_FilesHelp", "Files and Undoing"};
    MenuEntry mnu_HandHelp{mnu_HelpHeader, "mnu_HandHelp", "Under the Hand"};
    MenuEntry mnu_ChecksHelp{mnu_HelpHeader, "mnu_ChecksHelp", "Checks"};
    MenuEntry mnu_ReportHelp{mnu_HelpHeader, "mnu_ReportHelp", "Report"};
    MenuEntry mnu_StudiesHelp{mnu_HelpHeader, "mnu_StudiesHelp", "Studies"};
    MenuEntry mnu_ExploreHelp{mnu_HelpHeader, "mnu_ExploreHelp", "Explore"};
    MenuEntry mnu_ReferenceHelp{mnu_HelpHeader, "mnu_ReferenceHelp", "Reference"};
    MenuEntry mnu_ConventionsHelp{mnu_ReferenceHelp, "mnu_ConventionsHelp", "Conventions"};
    MenuEntry mnu_TheoryHelp{mnu_ReferenceHelp, "mnu_TheoryHelp", "Theory"};
    MenuEntry mnu_VerificationHelp{mnu_ReferenceHelp, "mnu_VerificationHelp", "Verification"};
    MenuEntry mnu_MessagesHelp{mnu_ReferenceHelp, "mnu_MessagesHelp", "Messages"};
    MenuEntry mnu_KeyboardHelp{mnu_ReferenceHelp, "mnu_KeyboardHelp", "Keyboard"};
    MenuEntry mnu_BatchHelp{mnu_ReferenceHelp, "mnu_BatchHelp", "Without a Screen"};
    MenuEntry mnu_GlossaryHelp{mnu_ReferenceHelp, "mnu_GlossaryHelp", "Glossary"};
    MenuEntry mnu_CardHelp{mnu_ReferenceHelp, "mnu_CardHelp", "Quick Reference"};
    MenuEntry mnu_WorkedHelp{mnu_HelpHeader, "mnu_WorkedHelp", "Worked Examples"};
    Help_Key key_Help{*this};

    MenuEntry mnu_Version{*this, "mnu_Version", "&About"};
    MenuEntry mnu_About{mnu_Version, "mnu_About", "&About Verlink"};
    View_Menu view{*this, [this] { Show_Linkage(); }};
    MenuEntry mnu_ViewDrawingLine{view.mnu_View, "mnu_ViewDrawingLine", ""};
    Drawing_Entry drawing{view.mnu_View, "linkage", [this] { return Linkage_Drawing(); }};

    MenuEntry mnu_Tools{*this, "mnu_Tools", "&Tools"};
    MenuEntry mnu_Checks{mnu_Tools, "mnu_Checks", "&Checks..."};
    MenuEntry mnu_Report{mnu_Tools, "mnu_Report", "&Report..."};
    MenuEntry mnu_Studies{mnu_Tools, "mnu_Studies", "&Studies..."};

    Button cmd_Input{*this, "cmd_Input", "&Input"};
    Button cmd_Animate{*this, "cmd_Animate", "&Animate"};
    Button cmd_Plot{*this, "cmd_Plot", "&Plot"};
    Button cmd_Print{*this, "cmd_Print", "P&rint"};
    Button cmd_Dynamics{*this, "cmd_Dynamics", "&Dynamics"};
    Button cmd_Balance{*this, "cmd_Balance", "&Balance"};
    Button cmd_Quit{*this, "cmd_Quit", "&Quit"};

    /// The present linkage at its first position that closes, calculated or not; the two labels are there until there
    /// is one.
    platform::Overlaid_Picture Picture1{*this, "Picture1"};
    platform::Label lbl_Name{*this, "lbl_Name", "Verlink"};
    platform::Label lbl_Advice{*this, "lbl_Advice",
                               "Choose Input to enter a linkage, or open a model from the File menu."};

    platform::Frame pnl_Status{*this, "pnl_Status", " Status:"};
    /// 0 to 8 the flags of the model, 9 and 10 its unit system.
    platform::ControlArray<platform::Label> lbl_Status{*this,
                                                       "lbl_Status",
                                                       {{0, "Calculated"},
                                                        {1, "Link Driven"},
                                                        {2, "Cam Driven"},
                                                        {3, "Dynamics"},
                                                        {4, "Balanced"},
                                                        {5, "FFT Done"},
                                                        {6, "Synthesized"},
                                                        {7, "Cognate 1"},
                                                        {8, "Saved"},
                                                        {9, "Units are:"},
                                                        {10, "in-lb-bl-s"}}};
    /// Name and file of the model in hand, and whether it was modified.
    platform::Label lbl_Model{*this, "lbl_Model"};
    /// In sight when a check of the results fails.
    platform::Label lbl_Checks{*this, "lbl_Checks"};
    platform::CommonDialog CommonDialog1{*this, "CommonDialog1"};

    void Form_Activate() override;
    void Form_Return() override;
    /// Runs `cmd_Quit` and keeps the window: the question there decides.
    void Form_QueryUnload(bool& cancel) override;
    /// Ends the process should the window go all the same.
    void Form_Unload() override;

    void cmd_Balance_Click();
    void cmd_Quit_Click();

    /// The linkage that the program starts with, if the user still wants it when he is asked.
    bool New_Linkage();
    void mnu_RecentFile_Click(int Index);
    void mnu_pick_Click(int Index);
    void mnu_Syntest_Click();
    void mnu_Cog_Click(int Index);
    void mnu_FilePath_Click();
    void mnu_Aspect_Click();

   private:
    std::vector<std::string> recent_;  ///< as the menu shows them
    /// Leads to a built-in linkage in inches, calculated, on the input screen.
    void Lead_To_Example(MenuEntry& entry, void (*example)());
    void Use_Inches();
    void Name_Keys();
    void Take_Kept_Size();
    void Take_Size(const char* told_as, bool full);
    void Keep_Size();
    void Show_Recent_Files();
    void Refresh();
    void Show_Linkage();
    /// What its picture shows, as a drawing.
    std::optional<std::function<std::string()>> Linkage_Drawing();
    void Show_Model();
    void Mark_Failing_Checks();
    void Bind_Buttons_And_Files();
    void Bind_Menus();
    void Bind_Synthesis();
    void Note_Status_Width();
};

}  // namespace verlink
