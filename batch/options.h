// The command line of verlink-batch.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "batch/study_options.h"

namespace verlink {

struct ResultRow;

/// An output variable and the component of it, "X", "Y", "Mag" or "Ang"; a scalar has none.
struct FunctionChoice {
    std::string label;
    std::string component = "X";
};

/// A result of the run and where it goes.
struct WantedResult {
    const ResultRow* row;
    std::string path;
};

struct BatchOptions {
    std::vector<std::string> models;                        ///< paths; none when an example stands in their place
    std::string model;                                      ///< the one of them that is in hand
    std::optional<std::string> example;                     ///< name of a built-in linkage
    std::vector<std::pair<std::string, std::string>> sets;  ///< field and value, in the order given
    std::vector<WantedResult> results;                      ///< in the order of the rows
    std::optional<std::string> design;                      ///< path of a task, which stands as the model too
    std::optional<int> best;                                ///< how many solutions of it are wanted
    std::optional<std::string> save;                        ///< path
    std::optional<std::string> drive, torque;               ///< paths of what is imported
    std::optional<int> convert_units;                       ///< 1 to 5
    std::optional<std::string> frame;                       ///< "global" or "local"
    std::optional<FunctionChoice> fft;                      ///< what to transform, in place of the table
    std::vector<FunctionChoice> plots;                      ///< up to four, in place of the linkage's picture
    bool dynamics = false, balance = false;  ///< what is solved after the run; balance wants the forces too
    bool check = false;                      ///< the checks of the results in place of the table
    StudyOptions study;                      ///< many linkages in place of one run
    bool classify = false, cognates = false, balance_report = false;
    bool help = false, version = false;  ///< either stands alone: nothing else is looked at

    /// The name of the model in hand, without folder and ending, or that of the example.
    std::string Name() const;
    /// Where a result goes, by the name of its option; null when it is not wanted.
    const std::string* Result(const std::string& option) const;

    /// Those that need no run, and keep the table off standard output.
    bool Without_Run() const { return classify || cognates || balance_report || save || convert_units; }
    bool Run_Wanted() const { return !results.empty() || check || !Without_Run(); }
    /// Whether the table goes to standard output without being told to.
    bool Table_Printed() const;
    /// Whether something goes to standard output without being told to.
    bool Prints() const { return classify || cognates || balance_report || check || Table_Printed(); }
    bool Forces_Wanted() const { return dynamics || balance; }
    bool Local() const { return frame == "local"; }
};

/// The options of each model of a call, with its name in place of "{name}" in every path.
std::vector<BatchOptions> Jobs_Of(const BatchOptions& options);

/// Reads the arguments behind the program's name. What is wrong with them goes to `fault`; then false.
bool Parse_Options(const std::vector<std::string>& arguments, BatchOptions& options, std::string& fault);

/// How the program is called, some lines.
std::string Batch_Usage();
/// The same, and what each option does.
std::string Batch_Help();

}  // namespace verlink
