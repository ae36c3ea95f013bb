// The reporter in force, and failures of a run gathered until it ends.
#include "platform/guard.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "platform/unheard.h"

namespace verlink {

namespace {

struct Report {
    long number;
    std::string procedure;
    platform::FileTrouble trouble;
    int count;
};

Reporter in_force = nullptr;
int gathering = 0;
std::vector<Report> gathered;
int repeats = 1;
platform::FileTrouble trouble_told;

void Tell(const Report& report) {
    if (!in_force) throw std::logic_error("no failure reporter is installed");
    repeats = report.count;
    trouble_told = report.trouble;
    in_force(report.number, report.procedure);
    repeats = 1;
    trouble_told = {};
}

}  // namespace

void Install_Reporter(Reporter reporter) { in_force = reporter; }

void Report_Failure(long ErrorNumber, const std::string& ProcName, const platform::FileTrouble& trouble) {
    if (platform::Unheard::On()) return;
    if (gathering == 0) return Tell({ErrorNumber, ProcName, trouble, 1});
    const auto same = std::find_if(gathered.begin(), gathered.end(), [&](const Report& report) {
        return report.number == ErrorNumber && report.procedure == ProcName &&
               report.trouble.Words() == trouble.Words();
    });
    if (same == gathered.end())
        gathered.push_back({ErrorNumber, ProcName, trouble, 1});
    else
        ++same->count;
}

Told_As_One::Told_As_One() { ++gathering; }

Told_As_One::~Told_As_One() {
    if (--gathering > 0) return;
    for (const Report& report : std::exchange(gathered, {})) Tell(report);
}

int Repeats() { return repeats; }

const platform::FileTrouble& Trouble() { return trouble_told; }

}  // namespace verlink
