// The table of the help entries and their documents.
#include "screens/help_documents.h"

namespace verlink {

namespace {

constexpr std::pair<const char*, const char*> kDocuments[] = {
    {"mnu_Manual", "helpfiles/Program_Manual.pdf"},
    {"mnu_CopyHelp", "helpfiles/general/CopyHelp.pdf"},
    {"mnu_UnitsHelp", "helpfiles/general/UnitsHelp.pdf"},
    {"mnu_PrintHelp", "helpfiles/general/PrintHelp.pdf"},
    {"mnu_FileGeneral", "helpfiles/general/Filemenu_help.pdf"},
    {"mnu_FFTHelp", "helpfiles/linkages/linkage_fft_help.pdf"},
    {"mnu_ExampleHelp", "helpfiles/linkages/linkage_examples_help.pdf"},
    {"mnu_PlotHelp", "helpfiles/linkages/linkage_plot_help.pdf"},
    {"mnu_LinkCalc", "helpfiles/linkages/linkage_calc_help.pdf"},
    {"mnu_AnimateHelp", "helpfiles/verlink/animate_help.pdf"},
    {"mnu_BalanceHelp", "helpfiles/verlink/balance_help.pdf"},
    {"mnu_CognateHelp", "helpfiles/verlink/cognate_help.pdf"},
    {"mnu_DynamicsHelp", "helpfiles/verlink/dynamics_help.pdf"},
    {"mnu_ExportHelp", "helpfiles/verlink/export_help.pdf"},
    {"mnu_ImportHelp", "helpfiles/verlink/import_help.pdf"},
    {"mnu_SynthHelp", "helpfiles/verlink/synthesis_help.pdf"},
    {"mnu_Linkdata", "helpfiles/verlink/linkage_data_help.pdf"},
    {"mnu_Video1", "helpfiles/verlink/tutorial.webm"},
    {"mnu_FilesHelp", "helpfiles/general/files_and_undoing.pdf"},
    {"mnu_HandHelp", "helpfiles/general/under_the_hand.pdf"},
    {"mnu_ChecksHelp", "helpfiles/general/checks_help.pdf"},
    {"mnu_ReportHelp", "helpfiles/general/report_help.pdf"},
    {"mnu_StudiesHelp", "helpfiles/general/studies_help.pdf"},
    {"mnu_ExploreHelp", "helpfiles/general/explore_help.pdf"},
    {"mnu_ConventionsHelp", "helpfiles/general/conventions.pdf"},
    {"mnu_TheoryHelp", "helpfiles/general/theory.pdf"},
    {"mnu_VerificationHelp", "helpfiles/general/verification.pdf"},
    {"mnu_MessagesHelp", "helpfiles/general/messages_help.pdf"},
    {"mnu_KeyboardHelp", "helpfiles/general/keyboard_help.pdf"},
    {"mnu_BatchHelp", "helpfiles/general/batch_help.pdf"},
    {"mnu_GlossaryHelp", "helpfiles/general/glossary.pdf"},
    {"mnu_CardHelp", "helpfiles/general/quick_reference.pdf"},
    {"mnu_WorkedHelp", "helpfiles/general/worked_examples.pdf"},
};

}  // namespace

std::string Help_Document(const std::string& entry) {
    for (const auto& [name, document] : kDocuments)
        if (entry == name) return document;
    return "";
}

std::string Screen_Help_Document(const std::string& caption) {
    if (caption.starts_with("Print Select")) return Help_Document("mnu_PrintHelp");
    for (const char* title : {"Select Plot Type", "Select Plot Data", "Output Screen"})
        if (caption.starts_with(title)) return Help_Document("mnu_PlotHelp");
    return "";
}

std::span<const std::pair<const char*, const char*>> Help_Documents() { return kDocuments; }

}  // namespace verlink
