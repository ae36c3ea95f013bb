// Which options there are, and what each takes.
#include "batch/option_rows.h"

#include <algorithm>
#include <iterator>

#include "batch/csv.h"
#include "batch/results.h"
#include "batch/study_rows.h"

namespace verlink {

namespace {

using Take = std::function<bool(const std::string&, BatchOptions&, std::string&)>;

bool Once(bool given, const std::string& option, std::string& fault) {
    if (given) fault = option + " is given twice";
    return !given;
}

/// An option that stands for itself.
Take Flag(bool BatchOptions::*flag) {
    return [flag](const std::string&, BatchOptions& options, std::string&) { return options.*flag = true; };
}

bool Is_Path(const std::string& option, const std::string& value, std::string& fault) {
    if (value.empty()) fault = option + " wants a path";
    return !value.empty();
}

Take Path(const std::string& option, std::optional<std::string> BatchOptions::*path) {
    return [=](const std::string& value, BatchOptions& options, std::string& fault) {
        if (!Once((options.*path).has_value(), option, fault) || !Is_Path(option, value, fault)) return false;
        options.*path = value;
        return true;
    };
}

Take Result(const ResultRow& row) {
    return [&row](const std::string& value, BatchOptions& options, std::string& fault) {
        if (!Once(options.Result(row.option) != nullptr, row.option, fault) || !Is_Path(row.option, value, fault))
            return false;
        const auto behind = std::ranges::upper_bound(options.results, &row, {}, &WantedResult::row);
        options.results.insert(behind, {&row, value});
        return true;
    };
}

bool Take_Set(const std::string& value, BatchOptions& options, std::string& fault) {
    const auto equals = value.find('=');
    if (equals == std::string::npos || equals == 0) {
        fault = "--set wants FIELD=VALUE, not \"" + value + "\"";
        return false;
    }
    options.sets.emplace_back(value.substr(0, equals), value.substr(equals + 1));
    return true;
}

bool Take_Units(const std::string& value, BatchOptions& options, std::string& fault) {
    if (value.size() != 1 || value[0] < '1' || value[0] > '5') {
        fault = "--convert-units wants a unit system from 1 to 5, not \"" + value + "\"";
        return false;
    }
    if (!Once(options.convert_units.has_value(), "--convert-units", fault)) return false;
    options.convert_units = value[0] - '0';
    return true;
}

bool Take_Best(const std::string& value, BatchOptions& options, std::string& fault) {
    constexpr std::uint64_t kMost = 1000;
    const auto count = Whole_Number(value);
    if (!count || *count < 1 || *count > kMost) {
        fault = "--best wants a whole number from 1 to 1000, not \"" + value + "\"";
        return false;
    }
    if (!Once(options.best.has_value(), "--best", fault)) return false;
    options.best = static_cast<int>(*count);
    return true;
}

bool Take_Example(const std::string& value, BatchOptions& options, std::string& fault) {
    if (!Once(options.example.has_value(), "--example", fault)) return false;
    options.example = value;
    return true;
}

bool Take_Frame(const std::string& value, BatchOptions& options, std::string& fault) {
    if (value != "global" && value != "local") {
        fault = "--frame wants global or local, not \"" + value + "\"";
        return false;
    }
    if (!Once(options.frame.has_value(), "--frame", fault)) return false;
    options.frame = value;
    return true;
}

/// "LABEL" or "LABEL:COMPONENT".
bool Take_Function(const std::string& option, const std::string& value, FunctionChoice& choice, std::string& fault) {
    const auto colon = value.rfind(':');
    choice.label = value.substr(0, colon);
    if (colon != std::string::npos) choice.component = value.substr(colon + 1);
    if (choice.label.empty()) {
        fault = option + " wants LABEL or LABEL:COMPONENT, not \"" + value + "\"";
        return false;
    }
    for (const char* component : {"X", "Y", "Mag", "Ang"})
        if (choice.component == component) return true;
    fault = "a component is X, Y, Mag or Ang, not \"" + choice.component + "\"";
    return false;
}

bool Take_Fft(const std::string& value, BatchOptions& options, std::string& fault) {
    return Once(options.fft.has_value(), "--fft", fault) && Take_Function("--fft", value, options.fft.emplace(), fault);
}

bool Take_Plot(const std::string& value, BatchOptions& options, std::string& fault) {
    constexpr std::size_t kFunctions = 4;
    if (options.plots.size() == kFunctions) {
        fault = "--plot is given more than four times";
        return false;
    }
    return Take_Function("--plot", value, options.plots.emplace_back(), fault);
}

const char kModel[] = "Model", kDesign[] = "Design", kForces[] = "Forces", kChecks[] = "Checks",
           kResults[] = "Results of a run", kFunctions[] = "Functions and frames", kPrinted[] = "Printed without a run",
           kSaving[] = "Saving", kProgram[] = "This program";

std::vector<OptionRow> Model_Rows() {
    return {
        {kModel, "--example", "NAME",
         "takes a built-in linkage in place of a file: grashof, hoekens,\n"
         "roberts, watts or cheby",
         Take_Example},
        {kModel, "--set", "FIELD=VALUE",
         "replaces a field of the model file, as if the file had held\n"
         "that value: --set L2=1.2 --set \"CG(3,1)=0.5\"",
         Take_Set, "[--set FIELD=VALUE]..."},
        {kModel, "--drive", "FILE",
         "imports the motion of the input link, as the menus do, once the\n"
         "fields are replaced: an .sva file of a cam program, or an .out\n"
         "file of another stage",
         Path("--drive", &BatchOptions::drive), "[--drive FILE.sva|FILE.out]"},
        {kModel, "--torque", "FILE",
         "imports a .trq file of another stage as the torque on link 4, as\n"
         "it stands there; goes with --dynamics, --balance or --save",
         Path("--torque", &BatchOptions::torque), "[--torque FILE.trq]"},
        {kDesign, "--design", "TASK.vld",
         "searches the linkages for a task of design, in place of a model:\n"
         "a table of them by --csv, a gallery by --svg, the best by --save",
         Path("--design", &BatchOptions::design)},
        {kDesign, "--best", "N", "how many linkages are wanted, 20 if not given", Take_Best},
        {kForces, "--dynamics", "",
         "solves for pin forces and torques with the external loads; the\n"
         "table gains them and the motion of the mass centres",
         Flag(&BatchOptions::dynamics)},
        {kForces, "--balance", "",
         "the same, and then balances the shaking force by counterweights\n"
         "at half the lengths of links 2 and 4, with a flywheel that\n"
         "leaves 0.05 of the torque's pulses; the table gains what they\n"
         "change, and its mass centres are those of the counterweights",
         Flag(&BatchOptions::balance)},
        {kChecks, "--check", "",
         "prints, in place of the table, a row for each check of the\n"
         "results: its verdict, the worst departure beside what is expected\n"
         "of single precision, and where; status 3 when one fails",
         Flag(&BatchOptions::check)},
    };
}

std::vector<OptionRow> Result_Option_Rows() {
    std::vector<OptionRow> rows;
    for (const ResultRow& row : Result_Rows()) rows.push_back({kResults, row.option, "FILE", row.words, Result(row)});
    return rows;
}

std::vector<OptionRow> Other_Rows() {
    return {
        {kFunctions, "--frame", "global|local",
         "the frame of the vectors: global if not given; in local each\n"
         "is seen from its own link",
         Take_Frame},
        {kFunctions, "--fft", "FUNCTION",
         "transforms a function and writes, in place of the table, a row\n"
         "for each harmonic: --fft \"Accel CP:Mag\"",
         Take_Fft, "[--fft \"LABEL[:COMPONENT]\"]"},
        {kFunctions, "--plot", "FUNCTION",
         "draws a function with --svg or --picture in place of the\n"
         "linkage, up to four in one graph, or with --report:\n"
         "--plot Omega4 --plot \"Veloc CP:Y\"",
         Take_Plot, "[--plot \"LABEL[:COMPONENT]\"]..."},
        {kPrinted, "--classify", "",
         "prints the Grashof code, its words, and the toggle angle in\n"
         "degrees of a non-Grashof linkage",
         Flag(&BatchOptions::classify)},
        {kPrinted, "--cognates", "",
         "prints a row for each of the three linkages that trace the same\n"
         "coupler curve, lengths as the file stores them, the angle in\n"
         "radians",
         Flag(&BatchOptions::cognates)},
        {kPrinted, "--balance-report", "",
         "prints a row for link 2 and for link 4: the mass-radius product\n"
         "that balances the linkage, its angle, the mass at half the\n"
         "link's length, and that length as the file stores it",
         Flag(&BatchOptions::balance_report)},
        {kSaving, "--save", "OUT.vlk", "writes the model again, with what was imported",
         Path("--save", &BatchOptions::save)},
        {kSaving, "--convert-units", "N",
         "converts it first: 1 in-lb-bl-s, 2 ft-lb-sl-s, 3 m-kg-N-s,\n"
         "4 cm-kg-N-s, 5 mm-kg-N-s",
         Take_Units},
        {kProgram, "--help", "", "prints this", Flag(&BatchOptions::help)},
        {kProgram, "--version", "", "prints the version", Flag(&BatchOptions::version)},
    };
}

}  // namespace

const std::vector<OptionRow>& Option_Rows() {
    static const std::vector<OptionRow> rows = [] {
        std::vector<OptionRow> all = Model_Rows();
        std::ranges::move(Result_Option_Rows(), std::back_inserter(all));
        std::ranges::move(Study_Rows(), std::back_inserter(all));
        std::ranges::move(Other_Rows(), std::back_inserter(all));
        return all;
    }();
    return rows;
}

}  // namespace verlink
