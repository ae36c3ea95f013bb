// A task in, its linkages as a table, a gallery and a model out.
#include "batch/design.h"

#include "batch/batch.h"
#include "batch/csv.h"
#include "batch/exchange.h"
#include "batch/write.h"
#include "core/linkage_model.h"
#include "core/numeric.h"
#include "core/text.h"
#include "design/drawing.h"
#include "design/hand_over.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/file_system.h"

namespace verlink {

namespace {

using design::Distance;
using design::Found;
using design::kDegree;
using design::Solution;
using design::Task;

std::string Row_Of(const Task& task, const Solution& solution, std::size_t rank) {
    const auto& [linkage, j, genes, family] = solution;
    const Links links = Links_Of(linkage);
    const design::Point O2 = linkage.crank.fixed;
    std::string row = std::to_string(rank) + ',' + std::to_string(family);
    const auto add = [&](double value) { row += ',' + Shortest(value); };
    for (const double value : {links.L1, links.L2, links.L3, links.L4, Distance(linkage.coupler, linkage.crank.moving),
                               Delta_Of(linkage) / kDegree, O2.real(), O2.imag(), Ground_Angle(linkage) / kDegree})
        add(value);
    row += std::string(",") + (j.open ? "open" : "crossed") + (linkage.crank_is_left ? ",left" : ",right");
    for (std::size_t i = 0; i < task.positions.size(); ++i) add(j.crank[i] / kDegree);
    row += ',' + Csv_Field(Words_Of(j.kind));
    for (const double value : {j.transmission, j.proportion, Distance(j.room.low, j.room.high), j.miss.place,
                               j.miss.angle, j.rounded.place, j.rounded.angle, j.score})
        add(value);
    return row + '\n';
}

bool Read(const std::string& path, Task& task, std::ostream& err) {
    std::string fault;
    try {
        if (Read_Task(platform::Read_File(path), task, fault)) return true;
    } catch (const platform::RuntimeFailure& failure) {
        fault = Why(failure);
    }
    err << "verlink-batch: " << path << " cannot be read: " << fault << '\n';
    return false;
}

std::string Best_Model(const Task& task, const Found& found) {
    Use_Units(task.units);
    Hand_Over(task, found.solutions.front(), Model);
    Model.FigureTitle = task.title;
    return File_Content();
}

}  // namespace

std::string Solutions_Csv(const Task& task, const Found& found) {
    std::string table = "Rank,Family,L1,L2,L3,L4,Rpa,Delta,O2x,O2y,Link1Angle,Circuit,Crank";
    for (std::size_t i = 1; i <= task.positions.size(); ++i) table += ",Theta2_" + std::to_string(i);
    table +=
        ",Class,Transmission,LongestOverShortest,Room,PlaceError,AngleError,RoundedPlaceError,RoundedAngleError,"
        "Score\n";
    for (std::size_t i = 0; i < found.solutions.size(); ++i) table += Row_Of(task, found.solutions[i], i + 1);
    return table;
}

int Run_Design(const BatchOptions& options, Printout& print, std::ostream& err) {
    Task task;
    if (!Read(options.model, task, err)) return kFailed;
    design::Effort effort;
    if (options.best) effort.best = static_cast<std::size_t>(*options.best);
    const Found found = Find(task, effort);
    if (found.solutions.empty()) {
        err << "verlink-batch: " << found.words << '\n';
        return kFailed;
    }
    std::vector<Made> made;
    const std::string* csv = options.Result("--csv");
    if (csv || options.Table_Printed()) made.push_back({csv ? *csv : "-", Solutions_Csv(task, found)});
    if (const std::string* svg = options.Result("--svg")) made.push_back({*svg, Gallery_Svg(task, found)});
    if (options.save && !Save_Model(*options.save, Best_Model(task, found), print, err)) return kFailed;
    for (const Made& result : made)
        if (!Write_Result(result, print, err)) return kFailed;
    return print.Done(err) ? kDone : kFailed;
}

}  // namespace verlink
