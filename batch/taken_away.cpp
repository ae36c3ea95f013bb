// How each is made.
#include "batch/taken_away.h"

#include "animation/linkage_dxf.h"
#include "batch/drawer.h"
#include "batch/functions.h"
#include "batch/picture.h"
#include "batch/plot.h"
#include "core/linkage_model.h"
#include "files/sheet.h"
#include "output/model_facts.h"
#include "output/output_axis.h"
#include "output/run_sheet.h"
#include "output/table_sheet.h"
#include "output/transform.h"
#include "platform/guard.h"

namespace verlink {

namespace {

std::optional<Sheet> Sheet_Wanted(const BatchOptions& options, std::ostream& notes) {
    if (!options.fft) return Run_Sheet(Model, options.Local());
    if (Model.Calctype == run::kOnePosition) {
        notes << "verlink-batch: one position has no transform\n";
        return {};
    }
    Take_Function(*options.fft, kSlot);
    Use_Frame(options.Local());
    Model.FFTUnitLabel = Variable_Unit(kSlot);
    Do_DFT(Model.NSteps);
    const bool vector = !Model.ScalarFunction;
    return Transform_Sheet(Model, options.fft->label + (vector ? " " + options.fft->component : ""),
                           Model.HalfSamples - 1);
}

}  // namespace

std::optional<std::string> Workbook_File(const BatchOptions& options, std::ostream& notes) {
    const auto sheet = Sheet_Wanted(options, notes);
    if (!sheet) return {};
    std::optional<std::string> book;
    const auto failure = What_Failed([&] { book = Workbook(*sheet, Model_Facts(Model), Model.UserName); });
    if (failure) notes << "verlink-batch: the workbook cannot be made: " << failure->Trouble().Sentence() << '\n';
    return book;
}

std::optional<std::string> Drawing_File(const BatchOptions&, std::ostream&) {
    int step = 0;
    while (step < Model.NSteps && !Model.RunTable.Assembled(step)) ++step;
    return Linkage_Dxf(Model, step);
}

std::optional<std::string> Any_Picture(const BatchOptions& options, std::ostream& notes) {
    const std::string& path = *options.Result("--picture");
    if (options.plots.empty()) return Picture_File(path);
    std::string graph = Plot_Svg(options.plots, options.Local());
    const std::string end = End_Of(path);
    if (end == ".svg") return graph;
    if (Drawer_In_Force()) return Drawer_In_Force()(graph, end == ".pdf");
    notes << "verlink-batch: a graph cannot be made as " << end
          << ", since verlink-paper is not installed beside this program\n";
    return {};
}

std::optional<std::string> Film_File(const BatchOptions&, std::ostream& notes) {
    auto film = Motion_Gif();
    if (!film) notes << "verlink-batch: a run that does not move has no film\n";
    return film;
}

}  // namespace verlink
