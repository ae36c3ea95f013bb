// Which chapters there are, what each needs, and their order.
#include "report/chapters.h"

#include <algorithm>

#include "animation/engine.h"
#include "core/kept_record.h"
#include "core/text.h"
#include "output/reading.h"
#include "report/pieces.h"

namespace verlink {

using namespace report;

namespace {

constexpr char kNoRun[] = "Calculate the linkage on the input screen first.";
constexpr char kNoForces[] = "Solve the forces on the dynamics screen first.";
constexpr char kNoBalance[] = "Balance the linkage on the balancing screen first.";
constexpr char kNoSynthesis[] = "The lengths of this linkage do not come from a synthesis.";
constexpr char kParallelogram[] = "A parallelogram has no use for cognates.";

std::string Without_Run(const LinkageModel& model) { return model.RunStands ? "" : kNoRun; }
std::string Without_Forces(const LinkageModel& model) {
    return !model.RunStands ? kNoRun : model.DynamicsDone ? "" : kNoForces;
}
std::string Without_Balance(const LinkageModel& model) {
    return !model.RunStands ? kNoRun : model.BalanceDone ? "" : kNoBalance;
}

struct Row_Of_Chapters {
    Chapter chapter;
    const char *name, *title;
    std::string (*missing)(const LinkageModel& model);
    Pieces (*pieces)(LinkageModel& model, const Report_Wish& wish);
};

Pieces Plot_Pieces(const LinkageModel& model, const Report_Wish& wish) {
    const std::vector<Output_Function> functions = There(model, wish.plots);
    if (functions.empty()) return {};
    Pieces pieces{Extremes(model, functions)};
    for (const Output_Function& function : functions) pieces.emplace_back(Plot_Of(model, function));
    return pieces;
}

const Row_Of_Chapters kRows[] = {
    {Chapter::kModel, "model", "Data of the model", [](const LinkageModel&) { return std::string(); },
     [](LinkageModel& model, const Report_Wish&) { return Model_Pieces(model); }},
    {Chapter::kClass, "class", "Classification and limits", [](const LinkageModel&) { return std::string(); },
     [](LinkageModel& model, const Report_Wish&) { return Class_Pieces(model); }},
    {Chapter::kDrawing, "drawing", "Drawing", Without_Run,
     [](LinkageModel& model, const Report_Wish&) { return Pieces{Drawing_Of(model)}; }},
    {Chapter::kPlots, "plots", "Plots", Without_Run,
     [](LinkageModel& model, const Report_Wish& wish) { return Plot_Pieces(model, wish); }},
    {Chapter::kForces, "forces", "Forces and torques", Without_Forces,
     [](LinkageModel& model, const Report_Wish&) {
         return Pieces{Extremes(model, Functions_Of(Needs::kForces)),
                       Report_Text{"Magnitudes; a force's two numbers are the link that exerts it and the link that it "
                                   "acts on."}};
     }},
    {Chapter::kBalance, "balance", "Balance", Without_Balance,
     [](LinkageModel& model, const Report_Wish&) { return Balance_Pieces(model); }},
    {Chapter::kFlywheel, "flywheel", "Flywheel", Without_Balance,
     [](LinkageModel& model, const Report_Wish&) { return Flywheel_Pieces(model); }},
    {Chapter::kSynthesis, "synthesis", "Synthesis",
     [](const LinkageModel& model) { return std::string(model.Synthesized ? "" : kNoSynthesis); },
     [](LinkageModel& model, const Report_Wish&) { return Synthesis_Pieces(model); }},
    {Chapter::kCognates, "cognates", "Cognates",
     [](const LinkageModel& model) {
         return !model.RunStands ? kNoRun : model.Parallelogram ? kParallelogram : std::string();
     },
     [](LinkageModel& model, const Report_Wish&) { return Cognate_Pieces(model); }},
    {Chapter::kChecks, "checks", "Checks", Without_Run,
     [](LinkageModel& model, const Report_Wish&) { return Check_Pieces(model); }},
};

const Row_Of_Chapters& Row_For(Chapter chapter) {
    return *std::ranges::find(kRows, chapter, &Row_Of_Chapters::chapter);
}

std::string Program_Words(const LinkageModel& model) { return "Verlink " + model.RevNumber; }

Report_Table Block_Of(const LinkageModel& model, const std::string& made) {
    Report_Table table;
    table.numbers = 0;
    const auto row = [&](const char* what, const std::string& words) {
        if (!words.empty()) table.rows.push_back({what, words});
    };
    row("Name", model.ModelName);
    row("Design No.", Text_Of(model.DesignNumber));
    row("User", model.UserName);
    if (!model.DateStr.empty()) row("Date of the model", model.DateStr + " at " + model.TimeStr);
    row("Report made", made);
    row("Program", Program_Words(model));
    return table;
}

Pieces Pieces_Of(const Row_Of_Chapters& row, LinkageModel& model, const Report_Wish& wish) {
    const Kept_Record kept(model);
    Set_Palette();
    return row.pieces(model, wish);
}

}  // namespace

const char* Title_Of(Chapter chapter) { return Row_For(chapter).title; }
const char* Name_Of(Chapter chapter) { return Row_For(chapter).name; }
std::string Missing_For(Chapter chapter, const LinkageModel& model) { return Row_For(chapter).missing(model); }

std::vector<Output_Function> All_Functions() {
    constexpr int kLast = 42;  // the transform is no function of a run
    std::vector<Output_Function> all;
    for (int number = 1; number <= kLast; ++number) {
        const std::string name = Variable_Name(number);
        if (!Facts_Of(name)->vector) {
            all.push_back({name, "", false});
            continue;
        }
        for (const char* component : {"X", "Y", "Mag", "Ang"}) all.push_back({name, component, false});
    }
    return all;
}

std::vector<Output_Function> Usual_Plots(const LinkageModel& model) {
    return There(model, {{"Coupler Pt", "Y", false},
                         {"Veloc CP", "Mag", false},
                         {"Accel CP", "Mag", false},
                         {"Trans Ang", "", false},
                         {"Torque 12", "", false}});
}

std::optional<Report> Make_Report(LinkageModel& model, const Report_Wish& wish, const platform::Tell_Progress& tell) {
    Report report;
    report.title = !model.FigureTitle.empty() ? model.FigureTitle
                   : model.ModelName.empty()  ? "Linkage"
                                              : model.ModelName;
    report.block = Block_Of(model, wish.made);
    report.foot = model.ModelName + (model.ModelName.empty() ? "" : "   ") + Program_Words(model) +
                  (wish.made.empty() ? "" : "   " + wish.made);
    double done = 0;
    for (const Row_Of_Chapters& row : kRows) {
        if (!tell(done++ / static_cast<double>(std::size(kRows)))) return std::nullopt;
        if (std::ranges::find(wish.chapters, row.chapter) == wish.chapters.end() || !row.missing(model).empty())
            continue;
        Pieces pieces = Pieces_Of(row, model, wish);
        if (!pieces.empty()) report.chapters.push_back({row.title, std::move(pieces)});
    }
    return report;
}

}  // namespace verlink
