// The order of a batch: open, replace, convert, save, classify, run, write.
#include "batch/batch.h"

#include "batch/csv.h"
#include "batch/functions.h"
#include "batch/headless_desktop.h"
#include "batch/options.h"
#include "batch/picture.h"
#include "batch/plot.h"
#include "batch/run.h"
#include "core/classification.h"
#include "core/initialize.h"
#include "core/linkage_model.h"
#include "dynamics/units.h"
#include "files/model_file.h"
#include "platform/file_system.h"
#include "shell/startup.h"

namespace verlink {

namespace {

constexpr int kDone = 0, kFailed = 1, kWrongUsage = 2;

const char kHelp[] =
    "\n"
    "Opens a model file, runs it, and writes what the links do at each step.\n"
    "\n"
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
    "  --classify           prints the Grashof code, its words, and the toggle angle in\n"
    "                       degrees of a non-Grashof linkage\n"
    "  --save OUT.vlk       writes the model again\n"
    "  --convert-units N    converts it first: 1 in-lb-bl-s, 2 ft-lb-sl-s, 3 m-kg-N-s,\n"
    "                       4 cm-kg-N-s, 5 mm-kg-N-s\n"
    "  --help, --version    print this, or the version\n"
    "\n"
    "A FUNCTION is a column of the table, by its label, and of a vector a component X, Y,\n"
    "Mag or Ang behind a colon; X if there is none.\n"
    "\n"
    "With --classify or --save nothing is run unless --csv or --svg is given too, and\n"
    "then the table is written only to the file of --csv.\n"
    "\n"
    "The table has a header line and a row for each step. Assembled is 1 where the\n"
    "position closed. Angles are degrees, lengths in the model's shown unit. The centrodes\n"
    "are in the global frame always; their lengths are in the unit that the file stores,\n"
    "metres where the screen shows centimetres or millimetres.\n"
    "\n"
    "Of a transform, harmonic 0 is the mean; the real and imaginary part, magnitude and\n"
    "phase of every other are doubled.\n"
    "\n"
    "Exit status: 0 done, 1 when the model cannot be read or run or closes nowhere or a\n"
    "file cannot be written, 2 for wrong usage. Messages go to standard error.\n";

/// The desktop in force as long as this lives.
struct Session {
    explicit Session(platform::Desktop& desktop) { platform::Use_Desktop(&desktop); }
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
        if (Is_Variable(choice.label)) continue;
        fault = "there is no function \"" + choice.label + "\"";
        return false;
    }
    return true;
}

/// Failure 62 when the model now wants rows of the drive or torque table that its file does not have.
void Check_Tables(int rows_driven, int rows_of_torque) {
    if (Model.Calctype > 3 && Model.NSteps >= rows_driven) platform::Raise(platform::kEndOfFile);
    if (Model.TorqueImported && Model.NSteps >= rows_of_torque) platform::Raise(platform::kEndOfFile);
}

class Batch {
   public:
    Batch(const BatchOptions& options, std::ostream& out, std::ostream& err)
        : options_(options), out_(out), err_(err) {}

    int Run() {
        if (!Open()) return kFailed;
        if (options_.convert_units) Convert(*options_.convert_units);
        if (options_.save && !Save()) return kFailed;
        if (options_.classify) Classify();
        bool done = !options_.Run_Wanted();
        if (!done && Run_Model(err_)) {
            done = Tell_Of_Gaps(err_);
            if (!Write_Results()) return kFailed;
        }
        out_.flush();
        if (!out_) {
            err_ << "verlink-batch: standard output cannot be written\n";
            return kFailed;
        }
        return done ? kDone : kFailed;
    }

   private:
    bool Open() {
        std::string content;
        try {
            content = platform::Read_File(options_.model);
        } catch (const platform::RuntimeFailure& failure) {
            err_ << "verlink-batch: " << options_.model << " cannot be read: " << failure.what() << '\n';
            return false;
        }
        Model.FilePath = options_.model;
        const auto replace = [this] {
            const int rows_driven = Model.Calctype > 3 ? Model.NSteps + 1 : 0;
            const int rows_of_torque = Model.TorqueImported ? Model.NSteps + 1 : 0;
            for (const auto& [field, value] : options_.sets) Set_File_Field(field, value);
            if (!options_.sets.empty()) Check_Tables(rows_driven, rows_of_torque);
        };
        if (Load_Model(content, replace)) return true;
        err_ << "verlink-batch: " << options_.model << " cannot be read\n";
        return false;
    }

    static void Convert(int units) {
        const Integer old = Model.Units;
        if (old == units) return;
        Use_Units(units);
        Convert_Units(old, units);
    }

    bool Save() {
        Model.FilePath = *options_.save;
        return Writefile();
    }

    void Classify() {
        Take_Geometry();
        Grashof();
        out_ << Model.Grashof_Code << ',' << Csv_Field(Grashof_Long_Text()) << ',';
        if (Model.Grashof_Code == "N") out_ << Shortest(Toggle());
        out_ << '\n';
    }

    bool Write_Results() {
        if (options_.csv || !options_.Without_Run()) {
            if (options_.fft && Model.Calctype == 1) {
                err_ << "verlink-batch: one position has no transform\n";
                return false;
            }
            const std::string table =
                options_.fft ? Transform_Csv(*options_.fft, options_.Local()) : Run_Table_Csv(options_.Local());
            if (!options_.csv)
                out_ << table;
            else if (!Write(*options_.csv, table))
                return false;
        }
        if (!options_.svg) return true;
        return Write(*options_.svg,
                     options_.plots.empty() ? Picture_Svg() : Plot_Svg(options_.plots, options_.Local()));
    }

    bool Write(const std::string& path, const std::string& content) {
        try {
            platform::Write_File(path, content);
            return true;
        } catch (const platform::RuntimeFailure& failure) {
            err_ << "verlink-batch: " << path << " cannot be written: " << failure.what() << '\n';
            return false;
        }
    }

    const BatchOptions& options_;
    std::ostream& out_;
    std::ostream& err_;
};

}  // namespace

int Batch_Main(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    HeadlessDesktop desktop(err);
    const Session session(desktop);
    BatchOptions options;
    std::string fault;
    if (!Parse_Options(arguments, options, fault) || !Fields_Fit(options, fault)) {
        err << "verlink-batch: " << fault << '\n' << kBatchUsage;
        return kWrongUsage;
    }
    Set_Identity();
    if (options.help) {
        out << kBatchUsage << kHelp;
        return kDone;
    }
    if (options.version) {
        out << "verlink-batch " << Model.RevNumber << '\n';
        return kDone;
    }
    Model.JustStarted = true;
    Initialize();
    Use_Units(Model.Units);
    if (!Functions_Known(options, fault)) {
        err << "verlink-batch: " << fault << '\n' << kBatchUsage;
        return kWrongUsage;
    }
    return Batch(options, out, err).Run();
}

}  // namespace verlink
