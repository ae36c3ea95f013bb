// How the report is made without a screen.
#include "batch/report.h"

#include <cstdlib>
#include <ctime>

#include "core/linkage_model.h"
#include "core/text.h"
#include "report/chapters.h"
#include "report/setter.h"

namespace verlink {

namespace {

std::string Today() {
    // NOLINTBEGIN(concurrency-mt-unsafe): one thread
    const char* fixed = std::getenv("SOURCE_DATE_EPOCH");
    const std::time_t now = fixed ? static_cast<std::time_t>(Val(fixed)) : std::time(nullptr);
    const std::tm* date = fixed ? std::gmtime(&now) : std::localtime(&now);
    // NOLINTEND(concurrency-mt-unsafe)
    char text[32];
    return std::string(text, std::strftime(text, sizeof text, "%m/%d/%Y at %H:%M:%S", date));
}

}  // namespace

std::optional<std::string> Report_Pdf(const std::vector<FunctionChoice>& plots, bool local, std::ostream& notes) {
    if (!Setter_In_Force()) {
        notes << "verlink-batch: no report can be made, since verlink-paper is not installed beside this program\n";
        return std::nullopt;
    }
    Report_Wish wish{{kChapters.begin(), kChapters.end()}, {}, Today()};
    for (const FunctionChoice& plot : plots) {
        Output_Function function{plot.label, plot.component};
        if (!Has_Components(function)) function.component.clear();
        function.local = local && Has_Frames(function);
        wish.plots.push_back(function);
    }
    if (plots.empty()) wish.plots = Usual_Plots(Model);
    const auto on = [](double) { return true; };
    const auto report = Make_Report(Model, wish, on);
    return report ? Setter_In_Force()(*report, Paper_In_Force(), on) : std::nullopt;
}

}  // namespace verlink
