// How the command line is read.
#include "batch/options.h"

#include <algorithm>

#include "batch/exchange.h"

namespace verlink {

const char kBatchUsage[] =
    "usage: verlink-batch MODEL.vlk [--set FIELD=VALUE]... [--csv FILE] [--svg FILE]\n"
    "                     [--frame global|local] [--fft \"LABEL[:COMPONENT]\"]\n"
    "                     [--plot \"LABEL[:COMPONENT]\"]...\n"
    "                     [--dynamics] [--balance] [--classify] [--cognates] [--balance-report]\n"
    "                     [--drive FILE.sva|FILE.out] [--torque FILE.trq]\n"
    "                     [--export-out FILE] [--export-trq FILE] [--export-pdx FILE]\n"
    "                     [--save OUT.vlk [--convert-units N]]\n"
    "       verlink-batch --example NAME, with the same options\n"
    "       verlink-batch --help | --version\n";

namespace {

/// The options that take a path.
std::optional<std::string>* Path_Of(BatchOptions& options, const std::string& name) {
    if (name == "--csv") return &options.csv;
    if (name == "--svg") return &options.svg;
    if (name == "--save") return &options.save;
    if (name == "--drive") return &options.drive;
    if (name == "--torque") return &options.torque;
    if (name == "--export-out") return &options.export_out;
    if (name == "--export-trq") return &options.export_trq;
    if (name == "--export-pdx") return &options.export_pdx;
    return nullptr;
}

/// The options that stand for themselves.
bool* Flag_Of(BatchOptions& options, const std::string& name) {
    if (name == "--classify") return &options.classify;
    if (name == "--cognates") return &options.cognates;
    if (name == "--balance-report") return &options.balance_report;
    if (name == "--dynamics") return &options.dynamics;
    if (name == "--balance") return &options.balance;
    return nullptr;
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
    if (options.convert_units) {
        fault = "--convert-units is given twice";
        return false;
    }
    options.convert_units = value[0] - '0';
    return true;
}

bool Take_Example(const std::string& value, BatchOptions& options, std::string& fault) {
    if (options.example) {
        fault = "--example is given twice";
        return false;
    }
    options.example = value;
    return true;
}

bool Take_Frame(const std::string& value, BatchOptions& options, std::string& fault) {
    if (value != "global" && value != "local") {
        fault = "--frame wants global or local, not \"" + value + "\"";
        return false;
    }
    if (options.frame) {
        fault = "--frame is given twice";
        return false;
    }
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
    if (options.fft) {
        fault = "--fft is given twice";
        return false;
    }
    return Take_Function("--fft", value, options.fft.emplace(), fault);
}

bool Take_Plot(const std::string& value, BatchOptions& options, std::string& fault) {
    constexpr std::size_t kFunctions = 4;
    if (options.plots.size() == kFunctions) {
        fault = "--plot is given more than four times";
        return false;
    }
    return Take_Function("--plot", value, options.plots.emplace_back(), fault);
}

/// The options that take a value and no path; null for any other name.
using Taker = bool (*)(const std::string& value, BatchOptions& options, std::string& fault);
Taker Taker_Of(const std::string& name) {
    if (name == "--set") return Take_Set;
    if (name == "--convert-units") return Take_Units;
    if (name == "--example") return Take_Example;
    if (name == "--frame") return Take_Frame;
    if (name == "--fft") return Take_Fft;
    if (name == "--plot") return Take_Plot;
    return nullptr;
}

/// Whether what is asked for has somewhere to go.
bool Go_Together(const BatchOptions& options, std::string& fault) {
    if (options.convert_units && !options.save)
        fault = "--convert-units goes with --save";
    else if (!options.plots.empty() && !options.svg)
        fault = "--plot goes with --svg";
    else if (options.fft && options.Without_Run() && !options.csv)
        fault = "--fft where nothing is run goes with --csv";
    else if (options.Forces_Wanted() && !options.Run_Wanted())
        fault = "--dynamics or --balance where nothing is run goes with --csv, --svg or an export";
    else if (options.drive && !Is_Drive_File(*options.drive))
        fault = "--drive wants an .sva or an .out file, not \"" + *options.drive + "\"";
    else if (options.export_trq && !options.Forces_Wanted())
        fault = "--export-trq goes with --dynamics or --balance";
    else if (options.torque && !options.Forces_Wanted() && !options.save)
        fault = "--torque goes with --dynamics, --balance or --save";
    return fault.empty();
}

}  // namespace

bool Parse_Options(const std::vector<std::string>& arguments, BatchOptions& options, std::string& fault) {
    options.help = std::ranges::find(arguments, "--help") != arguments.end();
    options.version = std::ranges::find(arguments, "--version") != arguments.end();
    if (options.help || options.version) return true;

    bool model_given = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (bool* flag = Flag_Of(options, argument)) {
            *flag = true;
            continue;
        }
        std::optional<std::string>* path = Path_Of(options, argument);
        const Taker taker = Taker_Of(argument);
        if (path || taker) {
            if (i + 1 == arguments.size()) {
                fault = argument + " wants a value behind it";
                return false;
            }
            const std::string& value = arguments[++i];
            if (taker) {
                if (!taker(value, options, fault)) return false;
            } else if (*path) {
                fault = argument + " is given twice";
                return false;
            } else if (value.empty()) {
                fault = argument + " wants a path";
                return false;
            } else {
                *path = value;
            }
            continue;
        }
        if (argument.starts_with("-") && argument.size() > 1) {
            fault = "there is no option " + argument;
            return false;
        }
        if (model_given) {
            fault = "one model at a time: \"" + argument + "\" is one too many";
            return false;
        }
        options.model = argument;
        model_given = true;
    }
    if (model_given && options.example) {
        fault = "--example stands in place of a model: \"" + options.model + "\" is one too many";
        return false;
    }
    if (!options.example && options.model.empty()) {
        fault = "no model is given";
        return false;
    }
    return Go_Together(options, fault);
}

}  // namespace verlink
