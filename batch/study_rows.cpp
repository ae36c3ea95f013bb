// Which options a study has, and what each takes.
#include "batch/study_rows.h"

#include <algorithm>

#include "batch/csv.h"
#include "batch/results.h"

namespace verlink {

namespace {

using Take = decltype(OptionRow::take);

const char kStudies[] = "Studies of many linkages";

Take Words_Of_List(std::vector<std::string> StudyOptions::*list) {
    return [list](const std::string& value, BatchOptions& options, std::string&) {
        (options.study.*list).push_back(value);
        return true;
    };
}

Take Mark(bool StudyOptions::*flag) {
    return [flag](const std::string&, BatchOptions& options, std::string&) { return options.study.*flag = true; };
}

Take Path_Of(const std::string& option, std::optional<std::string> StudyOptions::*path) {
    return [=](const std::string& value, BatchOptions& options, std::string& fault) {
        if ((options.study.*path).has_value())
            fault = option + " is given twice";
        else if (value.empty())
            fault = option + " wants a path";
        options.study.*path = value;
        return fault.empty();
    };
}

template <class Whole>
Take Count(const std::string& option, std::uint64_t least, std::uint64_t most,
           std::optional<Whole> StudyOptions::*place) {
    return [=](const std::string& value, BatchOptions& options, std::string& fault) {
        const auto number = Whole_Number(value);
        if ((options.study.*place).has_value())
            fault = option + " is given twice";
        else if (!number || *number < least || *number > most)
            fault = option + " wants a whole number from " + std::to_string(least) + " to " + std::to_string(most) +
                    ", not \"" + value + "\"";
        if (fault.empty()) options.study.*place = static_cast<Whole>(*number);
        return fault.empty();
    };
}

/// "K/N"; what is near to one is told.
bool Take_Shard(const std::string& value, BatchOptions& options, std::string& fault) {
    StudyOptions& study = options.study;
    if (study.sharded) {
        fault = "--shard is given twice";
        return false;
    }
    const auto mark = std::min(value.find_first_not_of("0123456789"), value.size());
    const std::uint64_t shard = Whole_Number(value.substr(0, mark)).value_or(0);
    const std::uint64_t shards = mark < value.size() ? Whole_Number(value.substr(mark + 1)).value_or(0) : 0;
    if (shard >= 1 && shard <= shards && value[mark] == '/') {
        study.shard = shard;
        study.shards = shards;
        return study.sharded = true;
    }
    fault = "--shard wants K/N, K from 1 to N, not \"" + value + "\"";
    if (mark > 0 && shards > 0)
        fault += "; did you mean " + std::to_string(std::clamp<std::uint64_t>(shard, 1, shards)) + "/" +
                 std::to_string(shards) + "?";
    return false;
}

constexpr std::uint64_t kMost = std::uint64_t{1} << 53U, kMostThreads = 1024;

/// Results of one run that a study has none of.
const char* Result_Of_One_Run(const BatchOptions& options) {
    for (const WantedResult& result : options.results)
        if (result.row->option != std::string("--csv")) return result.row->option;
    if (options.check) return "--check";
    if (options.classify) return "--classify";
    if (options.cognates) return "--cognates";
    if (options.balance_report) return "--balance-report";
    if (options.save) return "--save";
    if (options.fft) return "--fft";
    if (options.balance) return "--balance";
    if (options.drive) return "--drive";
    if (options.torque) return "--torque";
    return nullptr;
}

/// Sensitivities are those of the model itself.
const char* Odd_With_Sensitivity(const StudyOptions& study) {
    if (!study.sweeps.empty()) return "--sweep";
    if (study.list) return "--sweep-list";
    if (!study.keeps.empty()) return "--keep";
    if (study.samples) return "--samples";
    if (study.seed) return "--seed";
    if (study.summary) return "--summary";
    if (study.resume) return "--resume";
    return study.sharded ? "--shard" : nullptr;
}

}  // namespace

std::vector<OptionRow> Study_Rows() {
    const auto again = [](const std::string& words) { return "[" + words + "]..."; };
    return {
        {kStudies, "--sweep", "RANGE",
         "takes a field from one value to another in so many values; several\n"
         "make a grid: --sweep L2=1:2:11 --sweep L4=2:4:21",
         Words_Of_List(&StudyOptions::sweeps), again("--sweep FIELD=FROM:TO:COUNT")},
        {kStudies, "--sweep-list", "FILE",
         "takes the values of fields from the rows of a table with their\nnames as its head",
         Path_Of("--sweep-list", &StudyOptions::list)},
        {kStudies, "--tolerance", "SPREAD",
         "spreads a field about its value: PLUSMINUS is three standard\n"
         "deviations (normal, if not said), or both ends of a uniform spread,\n"
         "or both ends themselves, all corners of which are tried (worst)",
         Words_Of_List(&StudyOptions::tolerances), again("--tolerance FIELD=PLUSMINUS[:normal|uniform|worst]")},
        {kStudies, "--samples", "N", "how many random linkages; 10000 if not given",
         Count("--samples", 1, kMost, &StudyOptions::samples)},
        {kStudies, "--seed", "S", "which random numbers; 1 if not given",
         Count("--seed", 0, kMost, &StudyOptions::seed)},
        {kStudies, "--measure", "WORDS",
         "a column of the study: min, max, mean, rms or range of a FUNCTION,\n"
         "its value at a crank angle, deviation of the coupler curve from\n"
         "that of the model or from a line, or the share that closes:\n"
         "--measure \"max Accel CP:Mag\" --measure \"at 90 Theta4\"\n"
         "--measure deviation --measure \"deviation line\" --measure closes",
         Words_Of_List(&StudyOptions::measures), again("--measure WORDS")},
        {kStudies, "--keep", "BOUND", "leaves out linkages beyond a bound: --keep \"min Trans Ang > 40\"",
         Words_Of_List(&StudyOptions::keeps), again("--keep BOUND")},
        {kStudies, "--summary", "",
         "prints, in place of the rows, counts, mean, standard deviation,\n"
         "quantiles, a histogram and the ten lowest and highest of each\n"
         "measure",
         Mark(&StudyOptions::summary)},
        {kStudies, "--sensitivity", "",
         "prints, in place of the rows, the derivative of each measure by\n"
         "each field that has a tolerance, and its share of the spread",
         Mark(&StudyOptions::sensitivity)},
        {kStudies, "--threads", "N", "how many threads solve; as many as processors if not given",
         Count("--threads", 1, kMostThreads, &StudyOptions::threads)},
        {kStudies, "--resume", "", "goes on behind the rows that a stopped study has left beside the\nfile of --csv",
         Mark(&StudyOptions::resume)},
        {kStudies, "--shard", "K/N", "solves the Kth of N parts of the study alone", Take_Shard},
        {kStudies, "--merge", "OUT.csv",
         "puts the parts named in place of models together, as one call\nwould have written them",
         Path_Of("--merge", &StudyOptions::merge)},
    };
}

bool Study_Goes_Together(const BatchOptions& options, std::string& fault) {
    const StudyOptions& study = options.study;
    const char* other = Result_Of_One_Run(options);
    const bool given = !study.sweeps.empty() || !study.keeps.empty() || !study.tolerances.empty();
    if (study.merge && (study.Wanted() || other || options.Result("--csv") || options.example))
        fault = "--merge goes with parts alone";
    else if (study.merge || !study.Wanted())
        return true;
    else if (study.measures.empty())
        fault = given ? "a study wants a --measure" : "a study wants --sweep or --tolerance, and a --measure";
    else if (other)
        fault = std::string(other) + " does not go with a study";
    else if (options.models.size() > 1)
        fault = "a study is of one model: \"" + options.models[1] + "\" is one too many";
    else if (study.sensitivity && study.tolerances.empty())
        fault = "--sensitivity goes with --tolerance";
    else if (const char* odd = Odd_With_Sensitivity(study); study.sensitivity && odd)
        fault = std::string(odd) + " does not go with --sensitivity";
    else if (study.resume && study.summary)
        fault = "--resume goes on with rows, and --summary has none";
    else if (study.resume && !options.Result("--csv"))
        fault = "--resume goes with --csv";
    else if ((study.samples || study.seed) && study.tolerances.empty())
        fault = std::string(study.samples ? "--samples" : "--seed") + " goes with --tolerance";
    return fault.empty();
}

}  // namespace verlink
