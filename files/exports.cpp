// The contents of the export files, their writers and menu actions, and the import of a torque table.
#include "files/exports.h"

#include <utility>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/results.h"
#include "core/text.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink {

using namespace platform;

namespace {

constexpr char kMassProp[] = "frm_MassProp";
constexpr int kBlankLines = 12;
constexpr int kTrailingZeros = 28;

/// A line in free form: numbers with a blank in place of a plus sign and a blank behind, each in a zone of its own.
class FreeLine {
   public:
    FreeLine& Put(const std::string& number) {
        if (!line_.empty()) line_.resize((line_.size() / kZone + 1) * kZone, ' ');
        if (!number.starts_with('-')) line_ += ' ';
        line_ += number + ' ';
        return *this;
    }
    std::string Ended() const { return line_ + CRLF; }

   private:
    /// A number that fills its zone leaves the next one empty.
    static constexpr std::size_t kZone = 14;
    std::string line_;
};

template <class Number>
std::string Free_Line_Of(Number number) {
    return FreeLine().Put(Text_Of(number)).Ended();
}

template <class... Values>
void Put_Lines(TextWriter& writer, const Values&... values) {
    ((writer.Put(values), writer.EndLine()), ...);
}

/// Writes a content to `FilePath`. From then on Save writes the model there without asking, as after any file that
/// was written; after a failure it asks.
template <class Content>
bool Write_Export(const char* name, Content content) {
    const bool written = Guarded(name, [&] { Write_File(Model.FilePath, content()); });
    if (written)
        Model_Saved();
    else
        Model_Unsaved();
    return written;
}

/// Asks where to, and writes there; the path is that of before when nothing was written.
bool Export_To(Screen& home, const char* title, const char* kind, const char* filter, const std::string& file_name,
               bool (*write)()) {
    auto& dialog = home.Get<CommonDialog>("CommonDialog1");
    dialog.DialogTitle = title;
    dialog.Filter = filter;
    dialog.FilterIndex = 1;
    dialog.FileName = file_name;
    dialog.Kind = kind;
    dialog.OverwritePrompt = true;
    dialog.ShowSave();
    const std::string before = std::exchange(Model.FilePath, dialog.FileName);
    const bool written = write();
    if (!written) Model.FilePath = before;
    return written;
}

void Allow_Typing(int Index) {
    With<TextBox>(kMassProp, "txt_Torque", Index, [](TextBox& box) { box.Enabled = true; });
}

void Allow_Solving() {
    With<CommandButton>(kMassProp, "cmd_Solve", kNoIndex, [](CommandButton& button) { button.Enabled = true; });
}

void Untick_Import() {
    With<CheckBox>(kMassProp, "chk_Torque", kNoIndex, [](CheckBox& box) { box.Value = false; });
}

std::string Ask_For_Torque_File() {
    auto& dialog = Screens::Get(kMassProp).Get<CommonDialog>("CommonDialog1");
    dialog.DialogTitle = "Open a Torque Data file";
    dialog.Filter = "Torque Import (*.trq)|*.trq|(*.*)|*.*|";
    dialog.FilterIndex = 1;
    dialog.FileName = "*.trq";
    dialog.Kind = "torque";
    dialog.ShowOpen();
    return dialog.FileName;
}

void Take_Torque_File(int Index, const std::string& path) {
    const std::string content = Read_File(path);
    TextReader reader(content);
    bool Failed = false;
    Import_Torque_Data(reader, Failed);
    Allow_Solving();
    if (Failed) {
        Allow_Typing(Index);
        Model.TorqueImported = false;
        Untick_Import();
    } else {
        Model.FilePath = path;
        Model.TorqueFileName = StripFilename(Model.FilePath) + ".trq";
        Model.TorqueImported = true;
        // The next Save is not to write the model over the table.
        Model_Unsaved();
        if (!Model.JustStarted)
            Tell("File " + Model.FilePath + " of Torque data successfully read.", Icon::kInformation);
    }
    Refresh_Status();
}

}  // namespace

std::string Link4_Content() {
    const auto& table = Model.RunTable;
    std::string content = Free_Line_Of(Model.NSteps);
    for (const Single time : {Model.TimeStart, Model.TimeEnd, Model.TimeStep}) content += Free_Line_Of(time);
    for (int i = 0; i < kBlankLines; ++i) content += CRLF;
    for (int step = 0; step <= Model.NSteps; ++step) {
        const auto text = [step](const auto& values) { return Text_Of(values(step, 2)); };
        content += FreeLine().Put(text(table.Theta)).Put(text(table.Omega)).Put(text(table.Alpha)).Ended();
    }
    return content;
}

std::string Torque_Content() {
    // What an earlier solve has left in the table is of another model.
    const bool solved = Model.DynamicsDone;
    TextWriter writer;
    Put_Lines(writer, Model.NSteps);
    for (int step = 0; step <= Model.NSteps; ++step) {
        const Single torque = Model.RunTable.LinkTorque(step, 0);
        Put_Lines(writer, solved ? torque : Single(0));
    }
    return writer.Content();
}

std::string Pendrix_Content() {
    // The coupler point becomes a pin of a triangle with sides Rpa, L3 and Rpb.
    Single Rpb, B;
    CosineLaw_Angle(Model.Rpa, Model.L3, Model.DeltaRad, Rpb);
    LawofSines(Rpb, Model.Rpa, Model.DeltaRad, B);
    const auto& theta = Model.RunTable.Theta;
    const Single Phase = theta(0, 0) - FNRound(B * kRadToDeg + theta(0, 1), 2);

    const std::string none;
    TextWriter writer;
    Put_Lines(writer, "PENDRIX", Model.RevNumber, Model.ModelName, Model.UserName, Model.DesignNumber, Model.DateStr,
              Model.TimeStr);
    Put_Lines(writer, Model.L1, Model.Rpa, Model.L2, Model.L4, Rpb, Model.L2, Integer(0), Integer(1), Phase);
    Put_Lines(writer, Model.TimeStart, Model.TimeEnd, Model.TimeStep, Model.ThetaZero, Model.Omega2Input, Model.Alpha2,
              Model.ThetaStartStr, Model.ThetaEndStr, Model.ThetaStepStr);
    Put_Lines(writer, Model.CircuitIndex, Model.Calctype, Model.Units, Model.TraceFlag, Model.RedrawFlag,
              Model.HideLinksFlag, Model.ShowCentrodesFlag, none, none, Model.ModuloMode, Model.PrintStep,
              Model.FigureTitle, Model.Grashof_Code, none, none);
    for (int i = 0; i < kTrailingZeros; ++i) Put_Lines(writer, Integer(0));
    return writer.Content();
}

bool Export_Link4_to_File() {
    if (!Write_Export("Export_Link4_to_File", Link4_Content)) return false;
    Tell("The angular data for link 4 of this linkage has been written to " + Model.FilePath + CR +
             "This file can be imported to program Verlink or Corvex" + CR +
             "and used as input data to drive the next stage of a multibar linkage.",
         Icon::kInformation);
    return true;
}

bool Export_Torque_Data() { return Write_Export("Export_Torque_Data", Torque_Content); }

bool Write_Pend() {
    if (!Write_Export("Write_Pend", Pendrix_Content)) return false;
    Tell(std::string("File was successfully written to ") + CR + Model.FilePath);
    return true;
}

void Menu_Link_Data_Export(Screen& home) {
    Guarded_Unless_Cancelled("frm_Homescreen.mnu_Link_Data_Export", [&] {
        Export_To(home, "Export Link 4 Data", "drive", "Verlink Export (*.out)|*.out|(*.*)|*.*|",
                  Model.ModelName + "_vlnk.out", Export_Link4_to_File);
        Refresh_Status();
    });
}

void Menu_Export_Torque(Screen& home) {
    Guarded_Unless_Cancelled("frm_Homescreen.mnu_Export_Torque", [&] {
        Export_To(home, "Export Link 2 Driving Torque Data", "torque", "Link 2 Torque Export (*.trq)|*.trq|(*.*)|*.*|",
                  Model.ModelName + "_vlnk.trq", Export_Torque_Data);
        Refresh_Status();
    });
}

void Menu_pdx(Screen& home) {
    // A cancelled dialog is reported here, and not at the other exports.
    Guarded("frm_Homescreen.mnu_pdx", [&] {
        if (Export_To(home, "Export the Model to Pendrix", "", "(*.pdx)|*.pdx", Model.ModelName + ".pdx", Write_Pend))
            Model.ModelName = StripFilename(Model.FilePath);
        Refresh_Status();
    });
}

void Import_Torque_Data(TextReader& reader, bool& Failed) {
    Failed = false;
    const auto failure = What_Failed([&] {
        const Integer N = reader.Short();
        if (N == Model.NSteps) {
            StepArray<Single> read;
            for (int step = 0; step <= N; ++step) read(step) = reader.Float();
            Model.RunTable.ImportedTorque = read;
            return;
        }
        Tell("This file has a different number of data than your current model and is incompatible",
             Icon::kExclamation);
        Failed = true;
    });
    if (!failure) return;
    Tell("An error has occurred in the Import_Torque_Data routine");
    Report_Failure(*failure, "Import_Torque_Data");
    Failed = true;
}

void Import_Torque(Integer Index, const std::string& path) {
    const auto failure = What_Failed([&] { Take_Torque_File(Index, path.empty() ? Ask_For_Torque_File() : path); });
    if (!failure) return;
    if (failure->Number() == kDialogCancelled) {
        Allow_Typing(Index);
        Allow_Solving();
        Untick_Import();
        return;
    }
    Tell("An error has occurred in the Import_Torque routine", Icon::kInformation);
    Report_Failure(*failure, "Import_Torque");
}

}  // namespace verlink
