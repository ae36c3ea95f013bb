// The order of a batch: open, replace, convert, save, classify, run, write.
#include "batch/batch.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "batch/csv.h"
#include "batch/exchange.h"
#include "batch/forces.h"
#include "batch/functions.h"
#include "batch/headless_desktop.h"
#include "batch/options.h"
#include "batch/outputs.h"
#include "batch/picture.h"
#include "batch/plot.h"
#include "batch/run.h"
#include "core/classification.h"
#include "core/linkage_model.h"
#include "dynamics/dynacalc.h"
#include "dynamics/units.h"
#include "files/exports.h"
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

constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

const char kHelp[] =
    "\n"
    "Opens a model file, runs it, and writes what the links do at each step.\n"
    "\n"
    "  --example NAME       takes a built-in linkage in place of a file: grashof, hoekens,\n"
    "                       roberts, watts or cheby\n"
    "  --set FIELD=VALUE    replaces a field of the model file, as if the file had held\n"
    "                       that value: --set L2=1.2 --set \"CG(3,1)=0.5\"\n"
    "  --csv FILE           writes the table to a file instead of standard output\n"
    "  --svg FILE           draws the linkage at step 0 with its coupler curve\n"
    "  --frame global|local the frame of the vectors: global if not given; in local each\n"
    "                       is seen from its own link\n"
    "  --fft FUNCTION       transforms a function and writes, in place of the table, a row\n"
    "                       for each harmonic: --fft \"Accel CP:Mag\"\n"
    "  --plot FUNCTION      draws a function with --svg in place of the linkage; up to four\n"
    "                       in one graph: --plot Omega4 --plot \"Veloc CP:Y\"\n"
    "  --dynamics           solves for pin forces and torques with the external loads; the\n"
    "                       table gains them and the motion of the mass centres\n"
    "  --balance            the same, and then balances the shaking force by counterweights\n"
    "                       at half the lengths of links 2 and 4, with a flywheel that\n"
    "                       leaves 0.05 of the torque's pulses; the table gains what they\n"
    "                       change, and its mass centres are those of the counterweights\n"
    "  --classify           prints the Grashof code, its words, and the toggle angle in\n"
    "                       degrees of a non-Grashof linkage\n"
    "  --cognates           prints a row for each of the three linkages that trace the same\n"
    "                       coupler curve, lengths as the file stores them, the angle in\n"
    "                       radians\n"
    "  --balance-report     prints a row for link 2 and for link 4: the mass-radius product\n"
    "                       that balances the linkage, its angle, the mass at half the\n"
    "                       link's length, and that length as the file stores it\n"
    "  --drive FILE         imports the motion of the input link, as the menus do, once the\n"
    "                       fields are replaced: an .sva file of a cam program, or an .out\n"
    "                       file of another stage\n"
    "  --torque FILE        imports a .trq file of another stage as the torque on link 4, as\n"
    "                       it stands there; goes with --dynamics, --balance or --save\n"
    "  --export-out FILE    writes the motion of link 4, which drives another stage\n"
    "  --export-trq FILE    writes the driving torque of link 2; goes with --dynamics or\n"
    "                       --balance\n"
    "  --export-pdx FILE    writes the input of Pendrix\n"
    "  --save OUT.vlk       writes the model again, with what was imported\n"
    "  --convert-units N    converts it first: 1 in-lb-bl-s, 2 ft-lb-sl-s, 3 m-kg-N-s,\n"
    "                       4 cm-kg-N-s, 5 mm-kg-N-s\n"
    "  --help, --version    print this, or the version\n"
    "\n"
    "A FILE of - is standard output. No FILE may be one that the same call reads, or writes\n"
    "for something else. The model is not saved when the run that goes with it fails.\n"
    "\n"
    "A FUNCTION is a column of the table, by its label, and of a vector a component X, Y,\n"
    "Mag or Ang behind a colon; X if there is none.\n"
    "\n"
    "With --classify, --cognates, --balance-report or --save nothing is run unless --csv,\n"
    "--svg or an export is given too, and then the table is written only to the file of\n"
    "--csv.\n"
    "\n"
    "The table has a header line and a row for each step. Assembled is 1 where the\n"
    "position closed. Angles are degrees, lengths in the model's shown unit. The centrodes\n"
    "are in the global frame always; their lengths are in the unit that the file stores,\n"
    "metres where the screen shows centimetres or millimetres.\n"
    "\n"
    "Of a transform, harmonic 0 is the mean; the real and imaginary part, magnitude and\n"
    "phase of every other are doubled.\n"
    "\n"
    "Exit status: 0 done, 1 when the model cannot be read, run, solved or balanced or closes\n"
    "nowhere or a file cannot be written, 2 for wrong usage. Messages go to standard error.\n";

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
    if (record.Calctype > 3 && record.NSteps >= rows_driven) platform::Raise(platform::kEndOfFile);
    if (record.TorqueImported && record.NSteps >= rows_of_torque) platform::Raise(platform::kEndOfFile);
}

bool Printed(std::ostream& out, std::ostream& err) {
    out.flush();
    if (!out) err << "verlink-batch: standard output cannot be written\n";
    return static_cast<bool>(out);
}

class Batch {
   public:
    Batch(const BatchOptions& options, std::ostream& out, std::ostream& err)
        : options_(options), out_(out), err_(err) {}

    int Run() {
        const int status = Work();
        if (!model_.empty()) err_ << "verlink-batch: " << *options_.save << " is not saved, since the run failed\n";
        return status;
    }

   private:
    int Work() {
        if (!Open()) return kFailed;
        if (options_.drive && !Take_Drive(*options_.drive, err_)) return kFailed;
        if (options_.torque && options_.save && !Take_Torque(*options_.torque, err_)) return kFailed;
        if (options_.convert_units) Convert(*options_.convert_units);
        // What a run changes of the model is not saved.
        if (options_.save) model_ = File_Content();
        if (!options_.Run_Wanted() && !Save()) return kFailed;
        if (options_.classify) Classify();
        if (options_.cognates && !Print_Cognates()) return kFailed;
        if (options_.balance_report && !Report_Balance()) return kFailed;
        bool done = !options_.Run_Wanted();
        if (options_.Run_Wanted() && Run_Model(err_)) {
            done = Tell_Of_Gaps(err_);
            // A run by angle or time drops the torque, also what was imported to be saved.
            if (options_.torque && options_.Forces_Wanted() && !Take_Torque(*options_.torque, err_)) return kFailed;
            // A step that cannot be solved spoils the status; the table keeps what was solved before it.
            if (options_.Forces_Wanted()) done = Solve_Forces(Model).solved && done;
            if (options_.balance && !Balance()) return kFailed;
            if (!Make_Results() || (done && !Save()) || !Write_Results()) return kFailed;
        }
        return Printed(out_, err_) && done ? kDone : kFailed;
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
        Model.Units = 1;
        Model.Calctype = 3;
        if (Guarded("Readfile", [this] {
                Replace_Fields(Model);
                Derive_From_File();
            }))
            return true;
        err_ << "verlink-batch: the example " << *options_.example << " cannot be read with these values\n";
        return false;
    }

    void Replace_Fields(LinkageModel& record) {
        if (options_.sets.empty()) return;
        const int rows_driven = record.Calctype > 3 ? record.NSteps + 1 : 0;
        const int rows_of_torque = record.TorqueImported ? record.NSteps + 1 : 0;
        for (const auto& [field, value] : options_.sets) Set_File_Field(field, value, record);
        Check_Tables(record, rows_driven, rows_of_torque);
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
        if (Is_Standard_Output(*options_.save)) return Write(*options_.save, content);
        Model.FilePath = *options_.save;
        return Writefile(content);
    }

    void Classify() {
        Take_Geometry();
        Grashof();
        out_ << Model.Grashof_Code << ',' << Csv_Field(Grashof_Long_Text()) << ',';
        if (Model.Grashof_Code == "N") out_ << Shortest(Toggle());
        out_ << '\n';
    }

    bool Print_Cognates() {
        Take_Geometry();
        if (Refuse_Parallelogram()) return false;
        SeedCognate();
        if (Model.L2 + Model.L3 + Model.L4 == 0) return false;  // said by then
        out_ << "Cognate,L1,L2,L3,L4,Rpa,DeltaRad\n";
        for (int cognate = 1; cognate <= 3; ++cognate) {
            out_ << cognate;
            for (int item = 1; item <= 6; ++item) out_ << ',' << Shortest(Model.Cognates(cognate, item));
            out_ << '\n';
        }
        return true;
    }

    bool Report_Balance() {
        Take_Geometry();
        const std::string report = Balance_Report();
        out_ << report;
        return !report.empty();
    }

    /// Everything is made before anything is written.
    bool Make_Results() {
        if (options_.csv || !options_.Without_Run()) {
            if (options_.fft && Model.Calctype == 1) {
                err_ << "verlink-batch: one position has no transform\n";
                return false;
            }
            results_.emplace_back(options_.csv.value_or("-"), options_.fft
                                                                  ? Transform_Csv(*options_.fft, options_.Local())
                                                                  : Run_Table_Csv(options_.Local()));
        }
        if (options_.svg)
            results_.emplace_back(*options_.svg,
                                  options_.plots.empty() ? Picture_Svg() : Plot_Svg(options_.plots, options_.Local()));
        if (options_.export_out) results_.emplace_back(*options_.export_out, Link4_Content());
        if (options_.export_trq) results_.emplace_back(*options_.export_trq, Torque_Content());
        if (options_.export_pdx) results_.emplace_back(*options_.export_pdx, Pendrix_Content());
        return true;
    }

    bool Write_Results() {
        return std::ranges::all_of(results_, [this](const auto& result) { return Write(result.first, result.second); });
    }

    bool Write(const std::string& path, const std::string& content) {
        if (Is_Standard_Output(path)) {
            out_ << content;
            return true;
        }
        out_.flush();  // what was printed before comes first, wherever the path leads
        try {
            platform::Write_File(path, content);
            return true;
        } catch (const platform::RuntimeFailure& failure) {
            err_ << "verlink-batch: " << path << " cannot be written: " << Why(failure) << '\n';
            return false;
        }
    }

    const BatchOptions& options_;
    std::ostream& out_;
    std::ostream& err_;
    std::string model_;                                         ///< as it is to be saved, until it is
    std::vector<std::pair<std::string, std::string>> results_;  ///< path and content
};

}  // namespace

int Batch_Main(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    HeadlessDesktop desktop(err);
    const Session session(desktop);
    BatchOptions options;
    std::string fault;
    if (!Parse_Options(arguments, options, fault) || !Example_Known(options, fault) || !Fields_Fit(options, fault)) {
        err << "verlink-batch: " << fault << '\n' << kBatchUsage;
        return kWrongUsage;
    }
    Set_Identity();
    if (options.help) {
        out << kBatchUsage << kHelp;
        return Printed(out, err) ? kDone : kFailed;
    }
    if (options.version) {
        out << "verlink-batch " << Model.RevNumber << '\n';
        return Printed(out, err) ? kDone : kFailed;
    }
    Model.JustStarted = true;
    Initialize();
    Use_Units(Model.Units);
    if (!Functions_Known(options, fault) || !Outputs_Apart(options, fault)) {
        err << "verlink-batch: " << fault << '\n' << kBatchUsage;
        return kWrongUsage;
    }
    return Batch(options, out, err).Run();
}

}  // namespace verlink
