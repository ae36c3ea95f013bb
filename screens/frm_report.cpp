// What is chosen goes into the report, and into the settings.
#include "screens/frm_report.h"

#include <algorithm>
#include <optional>

#include "core/linkage_model.h"
#include "core/window_sizes.h"
#include "files/picture_files.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/progress.h"
#include "platform/settings.h"
#include "report/chapters.h"
#include "report/setter.h"

namespace verlink {

namespace {

constexpr long kReportWidth = 9000, kReportHeight = 6000;
constexpr char kChapterSetting[] = "report.chapters", kPlotSetting[] = "report.plots";
constexpr char kNone[] = "(none)", kWhether[] = "Whether the report has this chapter";

std::vector<Output_Function> Offered(const LinkageModel& model) {
    std::vector<Output_Function> offered;
    for (const Output_Function& function : All_Functions()) {
        const Needs needs = Needs_Of(function);
        if (needs == Needs::kRun || (needs == Needs::kForces ? model.DynamicsDone : model.BalanceDone))
            offered.push_back(function);
    }
    return offered;
}

bool Names_A_Plot(const std::string& words) {
    const std::vector<Output_Function> all = All_Functions();
    return words == kNone || std::ranges::find(all, words, Words_Of) != all.end();
}

}  // namespace

frm_Report::frm_Report() : Screen("frm_Report") {
    Width() = kReportWidth;
    Height() = kReportHeight;
    DefaultButton = &cmd_Save;
    CancelButton = &cmd_Cancel;
    for (std::size_t i = 0; i < kChapters.size(); ++i)
        chk_Chapter[static_cast<int>(i)].Caption = Title_Of(kChapters.at(i));
    for (const auto& label : lbl_Plot) label->Caption = "Plot &" + std::to_string(label->Index());
    Write_Tips();
    Take_Kept();
    chk_Chapter.On(&platform::CheckBox::OnClick, [this](int) { Keep(); });
    cmb_Plot.On(&platform::ComboBox::OnClick, [this](int) {
        if (filling_) return;
        chosen_ = true;
        Keep();
    });
    for (const auto& box : cmb_Plot)
        typed_.push_back(
            std::make_unique<Listed_Choice>(*box, "functions", std::vector<const platform::Control*>{&cmd_Cancel}));
    cmd_Save.OnClick = [this] { cmd_Save_Click(); };
    cmd_Save.Keys = "Ctrl+S";
    cmd_Cancel.OnClick = [this] { Hide(); };
}

void frm_Report::Write_Tips() {
    for (const auto& box : chk_Chapter) box->Tip = kWhether;
    for (const auto& box : cmb_Plot)
        box->Tip = "A function of the run, plotted with its extremes; plot " + std::to_string(box->Index());
    cmd_Save.Tip = "Choose a file, and write the report as a PDF document";
    cmd_Cancel.Tip = "Go back to the home screen";
}

void frm_Report::Take_Kept() {
    const platform::Settings& settings = platform::The_Settings();
    const std::vector<std::string> names = settings.List(kChapterSetting);
    for (std::size_t i = 0; i < kChapters.size(); ++i)
        chk_Chapter[static_cast<int>(i)].Value =
            !settings.Has(kChapterSetting) || std::ranges::find(names, Name_Of(kChapters.at(i))) != names.end();
    chosen_ = settings.Has(kPlotSetting);
    const std::vector<std::string> plots = settings.List(kPlotSetting);
    for (int plot = 1; plot <= kPlots; ++plot)
        cmb_Plot[plot].Text =
            plot <= static_cast<int>(plots.size()) ? plots[static_cast<std::size_t>(plot - 1)] : kNone;
}

void frm_Report::Keep() {
    platform::Settings& settings = platform::The_Settings();
    std::vector<std::string> names;
    for (std::size_t i = 0; i < kChapters.size(); ++i)
        if (chk_Chapter[static_cast<int>(i)].Value) names.emplace_back(Name_Of(kChapters.at(i)));
    settings.Put(kChapterSetting, names);
    if (chosen_) settings.Put(kPlotSetting, Plots_Chosen());
    settings.Save();
}

std::vector<std::string> frm_Report::Plots_Chosen() {
    std::vector<std::string> plots;
    for (const auto& box : cmb_Plot) plots.push_back(box->Text);
    return plots;
}

void frm_Report::Form_Activate() {
    Guarded("frm_Report.Activate", [this] {
        Fit_Screen(*this, kReportWidth, kReportHeight);
        Show_Chapters();
        Fill_Lists();
        cmd_Save.Enabled = static_cast<bool>(Setter_In_Force());
        const char* paper = Paper_In_Force() == Paper::kLetter ? "Letter" : "A4";
        lbl_Note.Caption = std::string("The report is a PDF document, on ") + paper + " paper.";
    });
}

void frm_Report::Show_Chapters() {
    for (std::size_t i = 0; i < kChapters.size(); ++i) {
        platform::CheckBox& box = chk_Chapter[static_cast<int>(i)];
        const std::string missing = Missing_For(kChapters.at(i), Model);
        box.Enabled = missing.empty();
        box.Tip = missing.empty() ? kWhether : missing;
    }
}

/// A choice that this model does not offer stays in its box, and is left out of the report.
void frm_Report::Fill_Lists() {
    filling_ = true;
    std::vector<std::string> usual;
    for (const Output_Function& function : Usual_Plots(Model)) usual.push_back(Words_Of(function));
    usual.resize(kPlots, kNone);
    const std::vector<std::string> chosen = chosen_ ? Plots_Chosen() : usual;
    for (const auto& box : cmb_Plot) {
        box->Clear();
        box->AddItem(kNone);
        for (const Output_Function& function : Offered(Model)) box->AddItem(Words_Of(function));
        box->Text = chosen[static_cast<std::size_t>(box->Index() - 1)];
        box->Enabled = Missing_For(Chapter::kPlots, Model).empty();
    }
    filling_ = false;
}

void frm_Report::cmd_Save_Click() {
    Guarded("frm_Report.cmd_Save", [this] {
        // A choice that stands over from another model is left out; a text that was typed has to name one.
        for (std::size_t i = 0; i < typed_.size(); ++i)
            if (!Names_A_Plot(cmb_Plot[static_cast<int>(i) + 1].Text) && !typed_[i]->Resolve()) return;
        Report_Wish wish;
        for (std::size_t i = 0; i < kChapters.size(); ++i)
            if (chk_Chapter[static_cast<int>(i)].Value) wish.chapters.push_back(kChapters.at(i));
        const std::vector<std::string> chosen = Plots_Chosen();
        for (const std::string& words : chosen)
            for (const Output_Function& function : All_Functions())
                if (Words_Of(function) == words) wish.plots.push_back(function);
        wish.made = platform::The_Desktop().Date_Text() + " at " + platform::The_Desktop().Time_Text();
        const auto path = platform::Ask_File(
            {.title = "Save report",
             .filter = "PDF document|*.pdf|",
             .file_name = (Model.ModelName.empty() ? std::string("report") : Model.ModelName + "_report") + ".pdf",
             .warn_before_overwriting = true,
             .kind = "report"},
            true);
        if (!path) return;
        std::optional<std::string> content;
        platform::With_Progress("Making the report", [&](const platform::Tell_Progress& tell) {
            constexpr double kSaid = 0.4;  // of the time
            const auto report = Make_Report(Model, wish, [&](double done) { return tell(kSaid * done); });
            if (!report) return;
            content = Setter_In_Force()(*report, Paper_In_Force(),
                                        [&](double done) { return tell(kSaid + (1 - kSaid) * done); });
        });
        if (!content) return;
        if (const auto failure = What_Failed([&] { platform::Write_File(*path, *content); }))
            return Tell_Not_Written("The report could not be written to " + *path + ".", *failure);
        Hide();
    });
}

}  // namespace verlink
