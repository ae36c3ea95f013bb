// How tables are filled, printed and written.
#include "output/tables.h"

#include <cmath>
#include <memory>
#include <optional>
#include <utility>

#include "core/linkage_model.h"
#include "core/model_on_screens.h"
#include "core/numeric.h"
#include "core/text.h"
#include "core/window_sizes.h"
#include "output/catalogue.h"
#include "output/output_axis.h"
#include "output/panels.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "platform/grid.h"
#include "platform/guard.h"
#include "platform/printer.h"

namespace verlink {

using platform::CRLF;
using platform::Grid;
using platform::Label;
using platform::Screen;

namespace {

constexpr int kFirstDataRow = 6;
constexpr char kTab[] = "\t";

/// File number 1, while it is open.
struct DataFile {
    std::string path;
    std::string content;
};
std::optional<DataFile> data_file;

std::string& Stream() {
    if (!data_file) platform::Raise(platform::kBadFileNameOrNumber);
    return data_file->content;
}

std::string Chosen(const char* labels, int slot) {
    std::string caption;
    platform::With<Label>("frm_PrintSelect", labels, slot - 1, [&](Label& label) { caption = label.Caption; });
    return caption;
}

std::string Shown(Single value) { return FNRoundStr(value, Model.DecimalPlaces); }

/// The lead cell of a row: time, crank angle or harmonic.
std::string Lead_Of(int row) { return Point_Text(row, Model.DecimalPlaces); }

/// Steps 0 to last by `PrintStep`; failure 5 for an increment that leads nowhere.
template <class Action>
void For_Each_Printed_Step(int last, Action action) {
    if (Model.PrintStep < 1) platform::Raise(platform::kInvalidCall);
    for (int i = 0; i <= last; i += Model.PrintStep) action(i);
}

std::string Value_At(int step, int slot) {
    Single value;
    Model.PlotSlot = slot;
    Transform_XY(step, slot, value);
    return Shown(value);
}

void Fill_Titles(Grid& grid) {
    struct Words {
        const char *first, *second, *third;
    };
    const Axis axis = Output_Axis();
    const Words words = axis == Axis::kHarmonic ? Words{"Harmonic", "Number", ""}
                        : axis == Axis::kAngle  ? Words{"Crank", "Angle", "deg"}
                                                : Words{"Time", "Step", "sec"};
    grid.SetCell(0, 0, words.first);
    grid.SetCell(1, 0, words.second);
    grid.SetCell(2, 0, words.third);
    grid.SetCell(3, 0, "Min");
    grid.SetCell(4, 0, "Avg");
    grid.SetCell(5, 0, "Max");
    for (int slot = 1; slot <= Model.PrintCount; ++slot) {
        grid.SetCell(0, slot, Chosen("lbl_Function", slot));
        grid.SetCell(1, slot, Chosen("lbl_Component", slot));
        grid.SetCell(2, slot, Slot_Unit(slot, "deg"));
    }
}

/// By slot, the values of all steps of the run, printed or not.
using Values = Table<Single, 1, 4, kLastStep + 1>;

std::unique_ptr<Values> Values_Of_Run(int last) {
    auto values = std::make_unique<Values>();
    for (int slot = 1; slot <= Model.PrintCount; ++slot) {
        Model.PlotSlot = slot;
        for (int i = 0; i <= last; ++i) Transform_XY(i, slot, (*values)(slot, i));
    }
    return values;
}

void Fill_Statistics(Grid& grid, const Values& values, int last) {
    const Element2 value = [&](int row, int i) { return values(row, i); };
    for (int slot = 1; slot <= Model.PrintCount; ++slot) {
        Single max, min, mean;
        Integer max_at, min_at;
        MaxMin2(value, slot, 0, last, max, min, max_at, min_at);
        Average2(0, last, value, "Pointer_I", slot, mean);
        grid.SetCell(3, slot, Shown(min));
        grid.SetCell(4, slot, Shown(mean));
        grid.SetCell(5, slot, Shown(max));
    }
}

}  // namespace

void Table_Titles(std::string& line1, std::string& line2, std::string& time, std::string& step, std::string& unit) {
    line1 = "Selected Linkage Parameters";
    line2.clear();
    if (Model.FFTFunction) {
        std::string function;
        platform::With<platform::ComboBox>("frm_FFT", "cmb_Var1", platform::kNoIndex,
                                           [&](platform::ComboBox& box) { function = box.Text; });
        line2 = "Fourier Transform of  " + function;
    }
    const Axis axis = Output_Axis();
    time = axis == Axis::kHarmonic ? "Harmonic" : axis == Axis::kAngle ? "Angle" : "Time";
    step = axis == Axis::kHarmonic ? "Number" : "Step";
    unit = axis == Axis::kHarmonic ? "" : axis == Axis::kAngle ? "Deg" : "Sec";
}

void Multiprint(Screen& screen) {
    bool shown = false;
    Guarded("Multiprint", [&] {
        auto& grid = screen.Get<Grid>("grd_Data");
        const int last = Last_Point();
        Model.GridCols = Model.PrintCount + 1;
        const double width = std::floor(static_cast<double>(grid.Width) * 0.94);
        const int old_rows = Model.GridRows;
        Model.GridRows = Divide(last, Model.PrintStep) + 7;
        grid.SetCols(Model.GridCols);
        for (int col = 0; col < Model.GridCols; ++col) {
            grid.SetColWidth(col, Integer(width / Model.GridCols));
            grid.SetColAlignment(col, 1);
            grid.SetFixedAlignment(col, 2);
        }
        if (Model.GridRows < old_rows) Clear_Grid(Model.GridRows, Model.GridCols);

        Centerform(screen);
        shown = true;  // what fails from here on leaves a table that is filled as far as it came
        std::string line1, line2, time, step, unit;
        Table_Titles(line1, line2, time, step, unit);
        Titlebox(screen);
        Put_Caption(screen, "lbl_Header2", platform::kNoIndex, line1);
        Put_Caption(screen, "lbl_Header3", platform::kNoIndex, line2);
        Show_Run_Panel(screen);

        grid.SetRows(Model.GridRows);
        Fill_Titles(grid);
        const auto values = Values_Of_Run(last);
        int row = kFirstDataRow;
        For_Each_Printed_Step(last, [&](int i) {
            grid.SetCell(row, 0, Lead_Of(i));
            for (int slot = 1; slot <= Model.PrintCount; ++slot) grid.SetCell(row, slot, Shown((*values)(slot, i)));
            ++row;
        });
        Fill_Statistics(grid, *values, last);
        grid.Refresh();
    });
    if (shown) screen.ShowModal();
}

void Clear_Grid(int rows, int cols) {
    platform::With<Grid>("frm_PrintData", "grd_Data", platform::kNoIndex, [&](Grid& grid) {
        for (grid.Row = 0; grid.Row < rows; ++grid.Row)
            for (grid.Col = 0; grid.Col < cols; ++grid.Col) grid.SetText("");
    });
}

void Print_Header() {
    auto& printer = platform::The_Printer();
    const auto blank = [&](int lines) {
        for (int i = 0; i < lines; ++i) printer.EndLine();
    };
    blank(3);
    printer.Zone().Print(Model.ProgramTag).Zone().Print("File: ").Print(Model.ModelName).Zone();
    printer.Print("Design #").Print(Text_Of(Model.DesignNumber)).Zone().Print("Page ").Print(Text_Of(printer.Page()));
    printer.EndLine();
    printer.Zone()
        .Print("By: ")
        .Print(Model.UserName)
        .Zone()
        .Print(Model.DateStr)
        .Zone()
        .Print(Model.TimeStr)
        .EndLine();
    blank(2);
    std::string line1, line2, time, step, unit;
    Table_Titles(line1, line2, time, step, unit);
    printer.Zone().Print(line1).EndLine();
    printer.Zone().Print(line2).EndLine();
    blank(1);
    const auto row = [&](const std::string& lead, auto cell) {
        printer.Zone().Print(lead).Zone();
        for (int slot = 1; slot <= 4; ++slot) printer.Print(cell(slot)).Zone();
        printer.EndLine();
    };
    row(time, [](int slot) { return Chosen("lbl_Function", slot); });
    row(step, [](int slot) { return Chosen("lbl_Component", slot); });
    row(unit, [](int slot) { return Slot_Unit(slot, "deg"); });
    blank(2);
}

void Print_to_Printer() {
    Guarded("Print_to_Printer", [] {
        constexpr int kRowsOfAPage = 60;
        auto& printer = platform::The_Printer();
        int rows = 0;
        For_Each_Printed_Step(Last_Point(), [&](int i) {
            if (rows > 0 && rows % kRowsOfAPage == 0) {
                printer.EndLine().EndLine();
                printer.NewPage();
            }
            if (rows++ % kRowsOfAPage == 0) Print_Header();
            printer.Zone().Print(Lead_Of(i)).Zone();
            for (int slot = 1; slot <= Model.PrintCount; ++slot) printer.Print(Value_At(i, slot)).Zone();
            printer.EndLine();
        });
        printer.EndDoc();
    });
}

void File_Header() {
    std::string& file = Stream();
    std::string first = Model.ProgramTag;
    first.resize((first.size() / 14 + 1) * 14, ' ');
    file +=
        first + "File " + kTab + Model.ModelName + kTab + kTab + "Design #" + kTab + Text_Of(Model.DesignNumber) + CRLF;
    file += Model.UserName + kTab + kTab + Model.DateStr + kTab + kTab + Model.TimeStr + CRLF;
    file += CRLF;
    std::string line1, line2, time, step, unit;
    Table_Titles(line1, line2, time, step, unit);
    file += "   " + line1 + CRLF + "   " + line2 + CRLF + CRLF;
    const auto row = [&](const std::string& lead, auto cell) {
        file += lead + kTab;
        for (int slot = 1; slot <= 4; ++slot) file += cell(slot) + kTab;
        file += CRLF;
    };
    row(time, [](int slot) { return Chosen("lbl_Function", slot); });
    row(step, [](int slot) { return Chosen("lbl_Component", slot); });
    row(unit, [](int slot) { return Slot_Unit(slot, "deg"); });
    file += CRLF;
}

void Row_Lead(int row) { Stream() += Lead_Of(row) + kTab; }

void Print_to_File() {
    Guarded("Print_to_File", [] {
        File_Header();
        For_Each_Printed_Step(Last_Point(), [](int i) {
            Row_Lead(i);
            for (int slot = 1; slot <= Model.PrintCount; ++slot) Stream() += Value_At(i, slot) + kTab;
            Stream() += CRLF;
        });
    });
}

void Open_Data_File(const std::string& path) { data_file = DataFile{path, {}}; }

void Close_Data_File() {
    if (!data_file) return;
    const DataFile closing = *std::exchange(data_file, std::nullopt);
    platform::Write_File(closing.path, closing.content);
}

}  // namespace verlink
