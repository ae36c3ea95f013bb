// How the command line is read.
#include "batch/options.h"

#include <algorithm>

namespace verlink {

const char kBatchUsage[] =
    "usage: verlink-batch MODEL.vlk [--set FIELD=VALUE]... [--csv FILE] [--svg FILE]\n"
    "                     [--classify] [--save OUT.vlk [--convert-units N]]\n"
    "       verlink-batch --help | --version\n";

namespace {

/// The options that take a path.
std::optional<std::string>* Path_Of(BatchOptions& options, const std::string& name) {
    if (name == "--csv") return &options.csv;
    if (name == "--svg") return &options.svg;
    if (name == "--save") return &options.save;
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

}  // namespace

bool Parse_Options(const std::vector<std::string>& arguments, BatchOptions& options, std::string& fault) {
    options.help = std::ranges::find(arguments, "--help") != arguments.end();
    options.version = std::ranges::find(arguments, "--version") != arguments.end();
    if (options.help || options.version) return true;

    bool model_given = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--classify") {
            options.classify = true;
            continue;
        }
        std::optional<std::string>* path = Path_Of(options, argument);
        if (path || argument == "--set" || argument == "--convert-units") {
            if (i + 1 == arguments.size()) {
                fault = argument + " wants a value behind it";
                return false;
            }
            const std::string& value = arguments[++i];
            if (argument == "--set") {
                if (!Take_Set(value, options, fault)) return false;
            } else if (!path) {
                if (!Take_Units(value, options, fault)) return false;
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
    if (!model_given || options.model.empty()) {
        fault = "no model is given";
        return false;
    }
    if (options.convert_units && !options.save) {
        fault = "--convert-units goes with --save";
        return false;
    }
    return true;
}

}  // namespace verlink
