// The order of a batch: open, replace, convert, save, classify, run, write.
#include "batch/batch.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <sstream>
#include <utility>

#include "batch/check.h"
#include "batch/csv.h"
#include "batch/design.h"
#include "batch/exchange.h"
#include "batch/forces.h"
#include "batch/functions.h"
#include "batch/headless_desktop.h"
#include "batch/options.h"
#include "batch/outputs.h"
#include "batch/printout.h"
#include "batch/progress.h"
#include "batch/results.h"
#include "batch/run.h"
#include "batch/study.h"
#include "batch/write.h"
#include "core/classification.h"
#include "core/linkage_model.h"
#include "dynamics/dynacalc.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "shell/failure_report.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "synthesis/cognates.h"
#include "synthesis/examples.h"

namespace verlink {

namespace {

const char kClassified[] = "Grashof_Code,LongText,ToggleDegrees\n";

/// The desktop in force as long as this lives.
struct Session {
    explicit Session(platform::Desktop& desktop) {
        platform::Use_Desktop(&desktop);
        Install_Reporter(Report_Error);
    }
    ~Session() { platform::Use_Desktop(nullptr); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
};

/// Tries each replacement on the fresh record, so that a wrong one is told apart from a model that cannot be read.
bool Fields_Fit(const BatchOptions& options, std::string& fault) {
    for (const auto& [field, value] : options.sets) {
        try {
            if (Set_File_Field(field, value)) continue;
            fault = "a model file has no field \"" + field + "\"";
        } catch (const platform::RuntimeFailure& failure) {
            fault = "the field " + field + " cannot hold \"" + value + "\": " + failure.what();
        }
        return false;
    }
    return true;
}

/// The functions are looked up before a model is opened: each is a variable of a run.
bool Functions_Known(const BatchOptions& options, std::string& fault) {
    std::vector<FunctionChoice> wanted = options.plots;
    if (options.fft) wanted.push_back(*options.fft);
    for (const FunctionChoice& choice : wanted) {
        if (Is_Variable(choice.label, Last_Variable(options.dynamics, options.balance))) continue;
        fault = "there is no function \"" + choice.label + "\"";
        return false;
    }
    return true;
}

struct Example {
    const char* name;
    void (*load)();
};

constexpr Example kExamples[] = {
    {"grashof", Testlinkage_old}, {"hoekens", Hoekens}, {"roberts", Roberts}, {"watts", Watts}, {"cheby", Chebychev}};

const Example* Example_Named(const std::string& name) {
    const auto* found = std::ranges::find_if(kExamples, [&](const Example& example) { return name == example.name; });
    return found == std::end(kExamples) ? nullptr : found;
}

bool Example_Known(const BatchOptions& options, std::string& fault) {
    if (!options.example || Example_Named(*options.example)) return true;
    fault = "there is no example \"" + *options.example + "\"";
    return false;
}

/// Failure 62 when the model now wants rows of the drive or torque table that its file does not have.
void Check_Tables(const LinkageModel& record, int rows_driven, int rows_of_torque) {
    if (record.Imported() && record.NSteps >= rows_driven) platform::Raise(platform::kEndOfFile);
    if (record.TorqueImported && record.NSteps >= rows_of_torque) platform::Raise(platform::kEndOfFile);
}

/// The table of torques that a model came with or that was imported: a run by angle or by time drops it.
class Torques_In_Hand {
   public:
    explicit Torques_In_Hand(int rows) {
        for (int step = 0; Model.TorqueImported && step < rows; ++step)
            torques_.push_back(Model.RunTable.ImportedTorque(step));
    }
    /// False, and a word about it, where the run has another number of positions.
    bool Put_Back(std::ostream& notes) const {
        if (torques_.empty()) return true;
        if (static_cast<int>(torques_.size()) != Model.NSteps + 1) {
            notes << "verlink-batch: the model has torques for " << torques_.size() << " positions, and the run has "
                  << Model.NSteps + 1 << '\n';
            return false;
        }
        for (int step = 0; step <= Model.NSteps; ++step)
            Model.RunTable.ImportedTorque(step) = torques_[static_cast<std::size_t>(step)];
        Model.TorqueImported = true;
        return true;
    }

   private:
    std::vector<Single> torques_;
};

/// A record as it is at the start of a process.
void Start_Afresh() {
    std::destroy_at(&Model);
    std::construct_at(&Model);
    Set_Identity();
    Model.JustStarted = true;
    Initialize();
    Use_Units(Model.Units);
}

/// One model of a call.
class Batch {
   public:
    Batch(const BatchOptions& options, Printout& print, std::ostream& err, int columns)
        : options_(options), print_(print), err_(err), columns_(columns) {}

    int Run() {
        const int status = Work();
        if (!model_.empty()) err_ << "verlink-batch: " << *options_.save << " is not saved, since the run failed\n";
        return status;
    }

   private:
    int Work() {
        if (!Open()) return kFailed;
        if (options_.study.Wanted()) return Study();
        if (options_.drive && !Take_Drive(*options_.drive, err_)) return kFailed;
        // In the units that the model came in, whatever it is converted to.
        if (options_.torque && options_.save && !Take_Torque(*options_.torque, err_)) return kFailed;
        if (options_.convert_units) Convert(*options_.convert_units);
        // What a run changes of the model is not saved.
        if (options_.save) model_ = File_Content();
        if (!options_.Run_Wanted() && !Save()) return kFailed;
        if (options_.classify) Classify();
        if (options_.cognates && !Print_Cognates()) return kFailed;
        if (options_.balance_report && !Report_Balance()) return kFailed;
        bool done = !options_.Run_Wanted();
        const Torques_In_Hand torques(options_.torque ? Model.NSteps + 1 : rows_of_torque_);
        if (options_.Run_Wanted() && Run_Model(err_)) {
            done = Tell_Of_Gaps(err_);
            const bool late = options_.torque && !options_.save;
            if (options_.Forces_Wanted() && !(late ? Take_Torque(*options_.torque, err_) : torques.Put_Back(err_)))
                return kFailed;
            // A step that cannot be solved spoils the status; the table keeps what was solved before it.
            if (options_.Forces_Wanted()) done = Solve_Forces(Model).solved && done;
            if (options_.balance && !Balance()) return kFailed;
            // Before functions are chosen for what is written.
            if (options_.check) checks_ = Checks_Of(Model);
            if (!Make_Results() || (done && !Save()) || !Write_Results()) return kFailed;
            if (options_.check) print_.Table(Check_Csv(checks_));
        }
        if (!print_.Done(err_) || !done) return kFailed;
        return Check_Status(checks_);
    }

    int Study() {
        const int status = Run_Study(options_, print_, err_, columns_);
        return print_.Done(err_) ? status : kFailed;
    }

    bool Open() {
        if (options_.example) return Load_Example();
        std::string content;
        try {
            content = platform::Read_File(options_.model);
        } catch (const platform::RuntimeFailure& failure) {
            err_ << "verlink-batch: " << options_.model << " cannot be read: " << Why(failure) << '\n';
            return false;
        }
        Model.FilePath = options_.model;
        if (Load_Model(content, [this](LinkageModel& record) { Replace_Fields(record); })) return true;
        err_ << "verlink-batch: " << options_.model << " cannot be read\n";
        return false;
    }

    bool Load_Example() {
        Example_Named(*options_.example)->load();
        if (Guarded("Readfile", [this] {
                Replace_Fields(Model);
                Enter_As_From_File();
            }))
            return true;
        err_ << "verlink-batch: the example " << *options_.example << " cannot be read with these values\n";
        return false;
    }

    void Replace_Fields(LinkageModel& record) {
        rows_of_torque_ = record.TorqueImported ? record.NSteps + 1 : 0;
        const int rows_driven = record.Imported() ? record.NSteps + 1 : 0;
        for (const auto& [field, value] : options_.sets) Set_File_Field(field, value, record);
        Check_Tables(record, rows_driven, rows_of_torque_);
    }

    static void Convert(int units) {
        const Integer old = Model.Units;
        if (old == units) return;
        Use_Units(units);
        Convert_Units(old, units);
    }

    bool Save() {
        if (!options_.save) return true;
        const std::string content = std::exchange(model_, {});
        return Save_Model(*options_.save, content, print_, err_);
    }

    void Classify() {
        Derive_Geometry();
        Grashof();
        const std::string toggle = Model.Grashof_Code == "N" ? Shortest(Toggle()) : "";
        print_.Table(kClassified + Model.Grashof_Code + "," + Csv_Field(Grashof_Long_Text()) + "," + toggle + "\n");
    }

    bool Print_Cognates() {
        Derive_Geometry();
        if (Refuse_Parallelogram()) return false;
        SeedCognate();
        if (Model.L2 + Model.L3 + Model.L4 == 0) return false;  // said by then
        std::string table = "Cognate,L1,L2,L3,L4,Rpa,DeltaRad\n";
        for (int cognate = 1; cognate <= 3; ++cognate) {
            table += std::to_string(cognate);
            for (int item = 1; item <= 6; ++item) table += "," + Shortest(Model.Cognates(cognate, item));
            table += '\n';
        }
        print_.Table(table);
        return true;
    }

    bool Report_Balance() {
        Derive_Geometry();
        const std::string report = Balance_Report();
        print_.Table(report);
        return !report.empty();
    }

    /// Everything is made before anything is written.
    bool Make_Results() {
        for (const ResultRow& row : Result_Rows()) {
            const std::string* path = options_.Result(row.option);
            const bool printed = row.option == std::string("--csv") && options_.Table_Printed();
            if (!path && !printed) continue;
            std::optional<std::string> content = row.make(options_, err_);
            if (!content) return false;
            results_.push_back({path ? *path : "-", std::move(*content), std::string(row.option) == "--csv"});
        }
        return true;
    }

    bool Write_Results() {
        return std::ranges::all_of(results_, [this](const Made& result) { return Write_Result(result, print_, err_); });
    }

    const BatchOptions& options_;
    Printout& print_;
    std::ostream& err_;
    int columns_;             ///< of the terminal that a study shows itself on
    std::string model_;       ///< as it is to be saved, until it is
    int rows_of_torque_ = 0;  ///< that the model's file has
    std::vector<Made> results_;
    std::vector<Check> checks_;
};

/// All models, one after the other; the worst of their statuses. Messages of one among several stand below its name.
int Run_All(const std::vector<BatchOptions>& jobs, Printout& print, std::ostream& err, int columns) {
    Progress progress(err, columns, jobs.size());
    const bool several = jobs.size() > 1;
    int status = kDone;
    for (const BatchOptions& job : jobs) {
        if (several) progress.Show(static_cast<std::size_t>(&job - jobs.data()), job.model);
        std::ostringstream gathered;
        std::ostream& notes = several ? gathered : err;
        HeadlessDesktop desktop(notes);
        const Session session(desktop);
        Start_Afresh();
        print.Of_Model(job.model);
        status = std::max(status, Batch(job, print, notes, columns).Run());
        if (!gathered.str().empty()) {
            progress.Clear();
            err << job.model << ":\n" << gathered.str();
        }
        if (print.Closed() && job.results.empty() && !job.save) break;
    }
    return print.Unread() ? kNobodyReads : status;
}

int Refuse(const std::string& fault, std::ostream& err) {
    err << "verlink-batch: " << fault << '\n' << Batch_Usage();
    return kWrongUsage;
}

/// Help or version.
int Tell(const std::string& text, std::ostream& out, std::ostream& err) {
    Printout print(out);
    print.Text(text);
    if (print.Done(err)) return kDone;
    return print.Unread() ? kNobodyReads : kFailed;
}

}  // namespace

int Batch_Main(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err, Terminal terminal) {
    HeadlessDesktop desktop(err);
    const Session session(desktop);
    BatchOptions options;
    std::string fault;
    if (!Parse_Options(arguments, options, fault) || !Example_Known(options, fault) || !Fields_Fit(options, fault))
        return Refuse(fault, err);
    if (options.help) return Tell(Batch_Help(), out, err);
    Start_Afresh();
    if (options.version) return Tell("verlink-batch " + Model.RevNumber + '\n', out, err);
    if (options.study.merge) return Merge_Parts(options.models, *options.study.merge, err);
    const std::vector<BatchOptions> jobs = Jobs_Of(options);
    if (!Functions_Known(options, fault) || !Outputs_Apart(jobs, fault)) return Refuse(fault, err);
    if (!Folders_There(jobs, fault)) {
        err << "verlink-batch: " << fault << '\n';
        return kFailed;
    }
    Printout print(out, jobs.size() > 1);
    if (options.design) return Run_Design(jobs.front(), print, err);
    const bool room = !terminal.takes_output || !Writes_To_Standard_Output(jobs.front());
    return Run_All(jobs, print, err, room ? terminal.columns : 0);
}

}  // namespace verlink
