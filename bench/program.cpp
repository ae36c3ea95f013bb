// Starts the program without windows, for the benchmarks.
#include "bench/program.h"

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <ostream>
#include <streambuf>

#include "batch/headless_desktop.h"
#include "core/linkage_model.h"
#include "core/parameters.h"
#include "core/runs.h"
#include "core/text.h"
#include "platform/guard.h"
#include "screens/register.h"
#include "shell/failure_report.h"
#include "shell/initialize.h"
#include "shell/startup.h"

namespace verlink::bench {

namespace {

/// Swallows what is written.
class Nowhere : public std::streambuf {
   protected:
    int overflow(int character) override { return character; }
};

class Folder {
   public:
    Folder() {
        std::string pattern = std::filesystem::temp_directory_path().string() + "/verlink-bench-XXXXXX";
        if (!::mkdtemp(pattern.data())) std::abort();
        path_ = pattern;
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    const std::string& Path() const { return path_; }

   private:
    std::string path_;
};

const std::string& Scratch_Folder() {
    static const Folder folder;
    return folder.Path();
}

class BenchDesktop : public HeadlessDesktop {
   public:
    using HeadlessDesktop::HeadlessDesktop;
    std::string Documents_Folder() override { return Scratch_Folder(); }
};

}  // namespace

std::string Scratch(const std::string& name) { return Scratch_Folder() + "/" + name; }

double Processor_Time() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

void Start_Program() {
    static Nowhere nowhere;
    static std::ostream messages(&nowhere);
    static BenchDesktop desktop(messages);
    static bool started = false;
    if (started) return;
    started = true;
    platform::Use_Desktop(&desktop);
    Install_Reporter(Report_Error);
    Register_Screens();
    Sub_Main("");
}

void Take_Default_Linkage(int steps, int turns) {
    Start_Program();
    Initialize();
    Model.ThetaStart = 0;
    Model.ThetaEnd = 360.0 * turns;
    Model.ThetaStep = 360.0 * turns / (steps - 1);
    Model.ThetaStartRad = Model.ThetaStart * kDegToRad;
    Model.ThetaEndRad = Model.ThetaEnd * kDegToRad;
    Model.ThetaStepRad = Model.ThetaStep * kDegToRad;
    Model.ThetaStartStr = Text_Of(Model.ThetaStart);
    Model.ThetaEndStr = Text_Of(Model.ThetaEnd);
    Model.ThetaStepStr = Text_Of(Model.ThetaStep);
    Model.NSteps = Steps_Of(Model.ThetaStart, Model.ThetaEnd, Model.ThetaStep);
    Derive_Linkage(Leading::kInForce);
}

void Run(int mode) {
    Integer result;
    Calc_Setup(mode, result);
}

}  // namespace verlink::bench
