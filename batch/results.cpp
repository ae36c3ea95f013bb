// Which results there are, and what makes each.
#include "batch/results.h"

#include "batch/columns.h"
#include "batch/csv.h"
#include "batch/json.h"
#include "batch/picture.h"
#include "batch/plot.h"
#include "batch/report.h"
#include "batch/taken_away.h"
#include "core/linkage_model.h"
#include "files/exports.h"
#include "output/series.h"

namespace verlink {

namespace {

using Made = std::optional<std::string>;

/// Those of the run, or of what is transformed.
std::optional<std::vector<Column>> Columns_Wanted(const BatchOptions& options, std::ostream& notes) {
    if (!options.fft) return Run_Columns(options.Local());
    if (Model.Calctype != run::kOnePosition) return Transform_Columns(*options.fft, options.Local());
    notes << "verlink-batch: one position has no transform\n";
    return {};
}

Made Table(const BatchOptions& options, std::ostream& notes) {
    const auto columns = Columns_Wanted(options, notes);
    return columns ? Made(Csv(*columns)) : Made();
}

Made Tree(const BatchOptions& options, std::ostream& notes) {
    const auto columns = Columns_Wanted(options, notes);
    if (!columns) return {};
    Json_Heads heads{{"program", "verlink-batch " + Model.RevNumber},
                     {"model", options.Name()},
                     {"title", Model.FigureTitle},
                     {"frame", options.Local() ? "local" : "global"}};
    if (options.fft) heads.emplace_back("transformed", Words_Of({options.fft->label, options.fft->component}));
    return Json(heads, *columns);
}

Made Drawing(const BatchOptions& options, std::ostream&) {
    return options.plots.empty() ? Picture_Svg() : Plot_Svg(options.plots, options.Local());
}

template <std::string (*content)()>
Made Export(const BatchOptions&, std::ostream&) {
    return content();
}

constexpr ResultRow kRows[] = {
    {"--csv", "writes the table to a file instead of standard output", false, Table, true},
    {"--json", "writes the same as JSON, each column with its unit, null where a\nposition does not close", false, Tree,
     true},
    {"--xlsx", "writes the same as a workbook for spreadsheets, with statistics,\nand the model on a second sheet",
     false, Workbook_File, true},
    {"--svg", "draws the linkage at step 0 with its coupler curve", false, Drawing},
    {"--picture", "draws the same as --svg, as the end of the name says: .svg,\n.pdf or .png", false, Any_Picture},
    {"--motion", "writes the run as an animated GIF, in its own time", false, Film_File},
    {"--report",
     "writes the report on the run as a PDF, with all chapters that\nthere is something for; --plot names its plots",
     false,
     [](const BatchOptions& options, std::ostream& notes) {
         return Report_Pdf(options.plots, options.Local(), notes);
     }},
    {"--dxf", "draws the linkage to scale for a CAD program or a cutter, at its\nfirst position that closes", false,
     Drawing_File},
    {"--export-out", "writes the motion of link 4, which drives another stage", false, Export<Link4_Content>},
    {"--export-trq", "writes the driving torque of link 2; goes with --dynamics or\n--balance", true,
     Export<Torque_Content>},
    {"--export-pdx", "writes the input of Pendrix", false, Export<Pendrix_Content>},
};

}  // namespace

std::span<const ResultRow> Result_Rows() { return kRows; }

}  // namespace verlink
