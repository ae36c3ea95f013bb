// The chapters of a report, and the making of one from the model in hand.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "output/series.h"
#include "platform/progress.h"
#include "report/report.h"

namespace verlink {

struct LinkageModel;

enum class Chapter { kModel, kClass, kDrawing, kPlots, kForces, kBalance, kFlywheel, kSynthesis, kCognates, kChecks };
inline constexpr std::array kChapters{Chapter::kModel,    Chapter::kClass,   Chapter::kDrawing,  Chapter::kPlots,
                                      Chapter::kForces,   Chapter::kBalance, Chapter::kFlywheel, Chapter::kSynthesis,
                                      Chapter::kCognates, Chapter::kChecks};

/// What it is called in the report, and by those who keep or type it: "Balance", "balance".
const char* Title_Of(Chapter chapter);
const char* Name_Of(Chapter chapter);
/// Why the model has nothing for it as it stands, in a sentence; empty where it has.
std::string Missing_For(Chapter chapter, const LinkageModel& model);

struct Report_Wish {
    std::vector<Chapter> chapters;  ///< in the order of `kChapters`; those that the model has nothing for are left out
    std::vector<Output_Function> plots;  ///< of the run; those that cannot be had of it are left out
    std::string made;                    ///< date and time of the report
};

/// The report on the model in hand; nothing when it was not to go on. The pictures are drawn by what draws the screens,
/// with the record in force, which is as it was before whenever progress is told, and afterwards.
std::optional<Report> Make_Report(LinkageModel& model, const Report_Wish& wish, const platform::Tell_Progress& tell);

/// All functions of a run, in the global frame, as `Words_Of` tells them apart.
std::vector<Output_Function> All_Functions();

/// What stands in `plots` where nobody has chosen: the path and the speed of the coupler point, the transmission angle,
/// and the driving torque if it is solved.
std::vector<Output_Function> Usual_Plots(const LinkageModel& model);

}  // namespace verlink
