// How the command line is read: by CLI11, after the table of options, in the words of this program.
#include "batch/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <string_view>

#include "batch/exchange.h"
#include "batch/option_rows.h"
#include "batch/picture.h"
#include "batch/results.h"
#include "batch/study_rows.h"
#include "core/nearest.h"

namespace verlink {

namespace {

const char kPurpose[] = "\nOpens a model file, runs it, and writes what the links do at each step.\n\n";

const char kNotes[] =
    "A FILE of - is standard output. No FILE may be one that the same call reads, or writes\n"
    "for something else. The model is not saved when the run that goes with it fails.\n"
    "\n"
    "Of several models each is run by itself. In every FILE {name} stands for the model's\n"
    "name, without folder and ending: --csv \'out/{name}.csv\'. What is printed then has the\n"
    "model in front of each row. On a terminal a bar shows how far they are.\n"
    "\n"
    "A FUNCTION is a column of the table, by its label, and of a vector a component X, Y,\n"
    "Mag or Ang behind a colon; X if there is none.\n"
    "\n"
    "With --classify, --cognates, --balance-report or --save nothing is run unless a result\n"
    "of the run is wanted too, as by --csv, and then the table is not printed: it goes only\n"
    "to the file of --csv. With --json it is not printed either.\n"
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
    "nowhere, no linkage does a task, or a file cannot be written, 2 for wrong usage, 3 when\n"
    "a check fails; of several models the worst. Messages go to standard error.";

bool Takes_Value(const std::string& name) {
    return std::ranges::any_of(Option_Rows(),
                               [&](const OptionRow& row) { return row.name == name && !row.value.empty(); });
}

/// CLI11 takes "--option=" for an option whose value follows; here it is the empty value.
std::vector<std::string> With_Empty_Values(const std::vector<std::string>& arguments) {
    std::vector<std::string> words;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--") {
            words.insert(words.end(), arguments.begin() + static_cast<std::ptrdiff_t>(i), arguments.end());
            break;
        }
        const std::string name = argument.substr(0, argument.size() - (argument.ends_with('=') ? 1 : 0));
        words.push_back(Takes_Value(name) ? name : argument);
        if (!Takes_Value(name)) continue;
        if (argument != name)
            words.emplace_back();
        else if (i + 1 < arguments.size())
            words.push_back(arguments[++i]);
    }
    return words;
}

/// The help as this program sets it.
struct Layout : CLI::Formatter {
    Layout() { column_width(23); }
    std::string make_usage(const CLI::App*, std::string) const override { return Batch_Usage() + kPurpose; }
    std::string make_group(std::string group, bool positional, std::vector<const CLI::Option*> rows) const override {
        return CLI::Formatter::make_group(group, positional, rows).substr(1);
    }
};

[[noreturn]] void Refuse(const std::string& fault) { throw CLI::ParseError(fault, CLI::ExitCodes::ValidationError); }

/// Options are taken in the order given, so that the first fault is the one that is told.
void Add_Options(CLI::App& app, BatchOptions& options) {
    for (const OptionRow& row : Option_Rows()) {
        const auto take = [&row, &options](const std::string& value) {
            std::string fault;
            if (!row.take(value, options, fault)) Refuse(fault);
        };
        CLI::Option* option = nullptr;
        if (row.value.empty())
            option = app.add_flag_callback(
                            row.name, [take] { take(""); }, row.words)
                         ->disable_flag_override();
        else
            option = app.add_option(
                row.name,
                [take](const CLI::results_t& values) {
                    take(values.front());
                    return true;
                },
                row.words);
        option->group(row.group)->option_text(row.value)->trigger_on_parse();
    }
}

std::unique_ptr<CLI::App> Command_Line(BatchOptions& options) {
    auto app = std::make_unique<CLI::App>("", "verlink-batch");
    app->set_help_flag();
    app->formatter(std::make_shared<Layout>());
    app->footer(kNotes);
    app->allow_extras();
    Add_Options(*app, options);
    return app;
}

/// What CLI11 refuses by itself: an option without its value, and a value where none is taken.
std::string Mismatch(const std::string& words) {
    const std::string first = words.substr(0, words.find_first_of(": "));
    const std::string name = (first.starts_with("-") ? "" : "--") + first;
    return name + (Takes_Value(name) ? " wants a value behind it" : " takes no value");
}

std::string No_Option(const std::string& word) {
    const std::string name = word.substr(0, word.find('='));
    std::vector<std::string> names;
    for (const OptionRow& row : Option_Rows()) names.push_back(row.name);
    const std::string meant = Nearest(name, names);
    return "there is no option " + name + (meant.empty() ? "" : "; did you mean " + meant + "?");
}

/// What is no option and no value of one: the models.
void Take_Models(const std::vector<std::string>& words, BatchOptions& options) {
    bool only_models = false;
    for (const std::string& word : words) {
        if (!only_models && word == "--") {
            only_models = true;
            continue;
        }
        if (!only_models && word.starts_with("-") && word.size() > 1) Refuse(No_Option(word));
        if (word.empty()) Refuse("no model is given");
        options.models.push_back(word);
    }
    if (options.design) {
        if (options.example || !options.models.empty())
            Refuse("--design stands in place of a model: \"" +
                   (options.example ? *options.example : options.models.front()) + "\" is one too many");
        options.models.push_back(*options.design);
    }
    if (!options.models.empty() && options.example)
        Refuse("--example stands in place of a model: \"" + options.models.front() + "\" is one too many");
    if (!options.example && options.models.empty())
        Refuse(options.study.merge ? "--merge wants the parts behind it" : "no model is given");
}

std::string Named(std::string path, const std::string& name) {
    constexpr std::string_view kPlace = "{name}";
    for (std::size_t at = 0; (at = path.find(kPlace, at)) != std::string::npos; at += name.size())
        path.replace(at, kPlace.size(), name);
    return path;
}

bool Forces_Missing(const BatchOptions& options, std::string& fault) {
    for (const WantedResult& result : options.results)
        if (result.row->forces && !options.Forces_Wanted())
            fault = std::string(result.row->option) + " goes with --dynamics or --balance";
    return !fault.empty();
}

bool Picture_Unknown(const BatchOptions& options, std::string& fault) {
    const std::string* path = options.Result("--picture");
    if (!path || Is_Picture_File(*path)) return false;
    fault = "--picture wants a name that ends in .svg, .pdf or .png, not \"" + *path + "\"";
    return true;
}

/// What is of a run, or changes a model, has nothing to do with a task of design.
bool Design_Disturbed(const BatchOptions& options, std::string& fault) {
    if (!options.design) {
        if (options.best) fault = "--best goes with --design";
        return options.best.has_value();
    }
    const std::pair<bool, const char*> others[] = {{!options.sets.empty(), "--set"},
                                                   {options.drive.has_value(), "--drive"},
                                                   {options.torque.has_value(), "--torque"},
                                                   {options.convert_units.has_value(), "--convert-units"},
                                                   {options.frame.has_value(), "--frame"},
                                                   {options.fft.has_value(), "--fft"},
                                                   {!options.plots.empty(), "--plot"},
                                                   {options.dynamics, "--dynamics"},
                                                   {options.balance, "--balance"},
                                                   {options.check, "--check"},
                                                   {options.classify, "--classify"},
                                                   {options.cognates, "--cognates"},
                                                   {options.balance_report, "--balance-report"}};
    for (const auto& [given, name] : others)
        if (given) fault = std::string(name) + " does not go with --design";
    for (const WantedResult& result : options.results)
        if (const std::string name = result.row->option; name != "--csv" && name != "--svg")
            fault = name + " does not go with --design";
    return !fault.empty();
}

/// Whether what is asked for has somewhere to go.
bool Go_Together(const BatchOptions& options, std::string& fault) {
    if (Design_Disturbed(options, fault)) return false;
    if (options.convert_units && !options.save)
        fault = "--convert-units goes with --save";
    else if (!options.plots.empty() && !options.Result("--svg") && !options.Result("--picture") &&
             !options.Result("--report"))
        fault = "--plot goes with --svg, --picture or --report";
    else if (Picture_Unknown(options, fault))
        return false;
    else if (options.fft && options.Without_Run() && !options.Result("--csv") && !options.Result("--json"))
        fault = "--fft where nothing is run goes with --csv";
    else if (options.Forces_Wanted() && !options.Run_Wanted())
        fault = "--dynamics or --balance where nothing is run goes with --csv, --svg or an export";
    else if (options.drive && !Is_Drive_File(*options.drive))
        fault = "--drive wants an .sva or an .out file, not \"" + *options.drive + "\"";
    else if (Forces_Missing(options, fault))
        return false;
    else if (options.torque && !options.Forces_Wanted() && !options.save)
        fault = "--torque goes with --dynamics, --balance or --save";
    return fault.empty() && Study_Goes_Together(options, fault);
}

}  // namespace

const std::string* BatchOptions::Result(const std::string& option) const {
    const auto found =
        std::ranges::find_if(results, [&](const WantedResult& result) { return option == result.row->option; });
    return found == results.end() ? nullptr : &found->path;
}

bool BatchOptions::Table_Printed() const {
    return !Without_Run() && !check &&
           std::ranges::none_of(results, [](const WantedResult& result) { return result.row->is_table; });
}

std::string BatchOptions::Name() const { return example ? *example : std::filesystem::path(model).stem().string(); }

std::vector<BatchOptions> Jobs_Of(const BatchOptions& options) {
    BatchOptions common = options;
    common.models.clear();
    std::vector<BatchOptions> jobs;
    for (std::size_t i = 0; i < std::max<std::size_t>(options.models.size(), 1); ++i) {
        BatchOptions& job = jobs.emplace_back(common);
        if (!options.example) job.model = options.models[i];
        for (WantedResult& result : job.results) result.path = Named(result.path, job.Name());
        for (std::optional<std::string>* path : {&job.save, &job.drive, &job.torque})
            if (*path) *path = Named(**path, job.Name());
    }
    return jobs;
}

bool Parse_Options(const std::vector<std::string>& arguments, BatchOptions& options, std::string& fault) {
    options.help = std::ranges::find(arguments, "--help") != arguments.end();
    options.version = std::ranges::find(arguments, "--version") != arguments.end();
    if (options.help || options.version) return true;

    std::vector<std::string> words = With_Empty_Values(arguments);
    std::ranges::reverse(words);  // as CLI11 wants them
    try {
        const auto app = Command_Line(options);
        app->parse(std::move(words));
        Take_Models(app->remaining(), options);
    } catch (const CLI::ArgumentMismatch& mismatch) {
        fault = Mismatch(mismatch.what());
    } catch (const CLI::ParseError& refused) {
        fault = refused.what();
    }
    return fault.empty() && Go_Together(options, fault);
}

std::string Batch_Usage() {
    constexpr std::size_t kWidth = 88;
    const std::string indent(21, ' ');
    std::string usage, line = "usage: verlink-batch MODEL.vlk...";
    for (const OptionRow& row : Option_Rows()) {
        if (row.name == "--example" || row.name == "--design" || row.name == "--best" || row.name == "--merge" ||
            row.name == "--help" || row.name == "--version")
            continue;
        const std::string value = row.value.empty() ? "" : " " + row.value;
        const std::string words = row.usage.empty() ? "[" + row.name + value + "]" : row.usage;
        if (line.size() + 1 + words.size() > kWidth) usage += std::exchange(line, indent.substr(1)) + '\n';
        line += " " + words;
    }
    return usage + line + "\n       verlink-batch --example NAME, with the same options\n" +
           "       verlink-batch --design TASK.vld [--best N], with --csv, --svg or --save\n" +
           "       verlink-batch --merge OUT.csv PART...\n       verlink-batch --help | --version\n";
}

std::string Batch_Help() {
    BatchOptions none;
    return Command_Line(none)->help();
}

}  // namespace verlink
