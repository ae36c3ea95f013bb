// The desktop that listens, and the checks that every target makes.
#include "fuzz/harness.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <variant>

#include "batch/headless_desktop.h"
#include "core/linkage_model.h"
#include "core/runs.h"
#include "core/text.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/guard.h"
#include "shell/failure_report.h"
#include "shell/initialize.h"

namespace verlink::fuzz {

namespace {

/// Answers as nobody's desktop does, and keeps each message by itself.
class Listening : public HeadlessDesktop {
   public:
    explicit Listening(std::ostream& nowhere) : HeadlessDesktop(nowhere) {}
    std::vector<std::string> Messages;
    platform::Answer Show_Message(const platform::Message& message) override {
        Messages.push_back(message.text);
        return HeadlessDesktop::Show_Message(message);
    }
};

Listening& Ear() {
    static std::ostream nowhere(nullptr);
    static Listening desktop(nowhere);
    return desktop;
}

/// A value as a file shows it.
struct Shown {
    std::string operator()(const std::string* place) const { return *place; }
    std::string operator()(const bool* place) const { return *place ? "true" : "false"; }
    template <class Number>
    std::string operator()(const Number* place) const {
        return Text_Of(*place);
    }
};

struct Clear {
    template <class Value>
    void operator()(Value* place) const {
        *place = Value{};
    }
};

struct Is_Finite {
    bool operator()(const Single* place) const { return std::isfinite(static_cast<double>(*place)); }
    template <class Other>
    bool operator()(const Other*) const {
        return true;
    }
};

/// Whether a string that was written comes back as it was: a quote with the end of a value behind it does not.
bool Survives(const std::string& text) {
    for (std::size_t quote = text.find('"'); quote != std::string::npos; quote = text.find('"', quote + 1)) {
        const std::size_t next = text.find_first_not_of(" \t", quote + 1);
        if (next != std::string::npos && std::string_view(",\r\n").find(text[next]) != std::string_view::npos)
            return false;
    }
    return true;
}

std::vector<std::string> All_Shown() {
    std::vector<std::string> shown;
    for (const FileField& field : File_Fields()) {
        std::string text = std::visit(Shown{}, field.place);
        shown.push_back(Survives(text) ? std::move(text) : "?");
    }
    return shown;
}

std::string Tables() {
    std::string rows;
    const auto& table = Model.RunTable;
    for (int step = 0; step <= std::min<int>(Model.NSteps, kLastStep); ++step) {
        if (Model.Calctype > 3)
            rows += Text_Of(table.DriveTheta(step)) + " " + Text_Of(table.Omega(step, 0)) + " " +
                    Text_Of(table.Alpha(step, 0)) + "\n";
        if (Model.TorqueImported) rows += Text_Of(table.ImportedTorque(step)) + "\n";
    }
    return rows;
}

bool Starts_With_Any(const std::string& text, const std::vector<std::string>& starts) {
    return std::any_of(starts.begin(), starts.end(), [&](const auto& start) { return text.starts_with(start); });
}

/// Reads what was written; false when the count of time steps, which seven digits of the limits do not always give
/// again, has become one that no run can have.
bool Reread(const std::string& content) {
    Ear().Messages.clear();
    Readfile(content);
    if (Told().empty()) return true;
    const bool count = Model.Calctype == 2 && Told().size() == 1 &&
                       Told()[0] == "Error 6   (Overflow)  has occurred in Readfile\r\n\r\n";
    Check(count, "what was written cannot be read: " + Told()[0]);
    return false;
}

}  // namespace

void Start_Afresh() {
    platform::Use_Desktop(&Ear());
    Install_Reporter(Report_Error);
    // Making the record anew would take most of a run's time; what the readers write is cleared instead.
    for (const FileField& field : File_Fields()) std::visit(Clear{}, field.place);
    for (Single* value : {&Model.CamDiameter, &Model.CamDataLength2, &Model.CamCenterX, &Model.CamCenterY}) *value = 0;
    for (std::string* text : {&Model.FileTag, &Model.FileRev, &Model.FileFormat}) text->clear();
    auto& table = Model.RunTable;
    table.DriveTheta.Clear(kLastStep);
    table.Omega.Clear(kLastStep);
    table.Alpha.Clear(kLastStep);
    table.ImportedTorque.Clear(kLastStep);
    New_Model();
    Use_Units(1);
    Model.ProgramTag = "VERLINK";
    Model.ProgramCaps = "VERLINK";
    Model.RevNumber = "9.0";
    Model.FileVersion = "2.2";
    Model.JustStarted = true;
    Ear().Messages.clear();
}

const std::vector<std::string>& Told() { return Ear().Messages; }

void Check(bool holds, std::string_view words) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %.*s\n", static_cast<int>(words.size()), words.data());
    std::abort();
}

void Check_Told(const std::vector<std::string>& procedures, const std::vector<std::string>& refusals) {
    const std::vector<std::string> failures = {"Error 6   (Overflow)", "Error 9   (Subscript out of range)",
                                               "Error 11   (Division by zero)", "Error 13   (Type mismatch)",
                                               "Error 62   (Input past end of file)"};
    for (const std::string& message : Told()) {
        if (std::find(refusals.begin(), refusals.end(), message) != refusals.end()) continue;
        const bool known = Starts_With_Any(message, failures) &&
                           std::any_of(procedures.begin(), procedures.end(), [&](const std::string& procedure) {
                               return message.ends_with(")  has occurred in " + procedure + "\r\n\r\n");
                           });
        Check(known, "a message that no file should cause: " + message);
    }
}

void Check_Record() {
    for (const FileField& field : File_Fields())
        Check(std::visit(Is_Finite{}, field.place), std::string("not finite: ") + field.name);
    Check(Model.CircuitSign == 1 || Model.CircuitSign == -1, "the circuit has a sign");
    Check(Model.Cycles >= 1, "there is a cycle to play");
    Check(Model.ZoomFactor != 0, "there is a zoom");
    Check(Model.ProgramTag == "VERLINK" && Model.RevNumber == "9.0" && Model.FileVersion == "2.2",
          "a file replaces nothing of the program's own");
}

void Check_Whole() {
    Check(Model.Units >= 1 && Model.Units <= 5, "the unit system exists");
    Check(!Model.UnitLabel(6).empty(), "units have labels");
    Check(Model.Calctype >= 1 && Model.Calctype <= 5, "the run type exists");
    Check(Model.LinkArray(2) == Model.L2 && Model.LinkArray(4) == Model.L4, "the links follow the lengths");

    std::string first;
    const long failure = Failure_Of([&] { first = File_Content(); });
    const bool tables = Model.Calctype > 3 || Model.TorqueImported;
    Check(failure == (tables && Model.NSteps > kLastStep ? platform::kSubscript : 0), "the model can be written");
    if (failure != 0) return;

    const int steps = Model.NSteps;
    const auto shown = All_Shown();
    const std::string rows = Tables();
    if (!Reread(first)) return;
    std::string second;
    if (Failure_Of([&] { second = File_Content(); }) != 0) {
        Check(Model.Calctype == 2 && Model.NSteps > kLastStep, "the model can be written again");
        return;
    }
    if (Model.NSteps == steps) {
        const auto again = All_Shown();
        for (std::size_t i = 0; i < shown.size(); ++i)
            Check(shown[i] == "?" || shown[i] == again[i],
                  std::string("came back otherwise: ") + File_Fields()[i].name);
        Check(Tables() == rows, "the tables came back otherwise");
        Check(second == first, "written again it is another file");
    } else {
        Check(Model.Calctype == 2, "the count of steps changed");
    }
    Check(Reread(second) && File_Content() == second, "a second round changes something");
}

void Check_Drive(bool read, int Calctype) {
    Check(read == Told().empty(), "a file is read whole, or it is told why not");
    Check_Record();
    if (read) {
        Check(Model.Calctype == Calctype, "the run is by the drive that was read");
        Check(Model.NSteps <= kLastStep, "a drive is longer than the record's table");
        Check_Whole();
    }
    Check_Run();
}

void Check_Run() {
    constexpr int kShort = 40;
    if (Model.NSteps > kShort) return;
    const std::string rows = Tables();
    Integer Result = 0;
    if (Model.Calctype > 3) {
        Imported_Run(Result);
        Check(Tables() == rows, "a run changes its drive");
    } else {
        Calc_Setup(Model.Calctype, Result);
    }
    Check_Record();
}

}  // namespace verlink::fuzz
