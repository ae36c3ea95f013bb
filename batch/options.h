// The command line of verlink-batch.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace verlink {

/// An output variable and the component of it, "X", "Y", "Mag" or "Ang"; a scalar has none.
struct FunctionChoice {
    std::string label;
    std::string component = "X";
};

struct BatchOptions {
    std::string model;                                      ///< a path; empty when an example stands in its place
    std::optional<std::string> example;                     ///< name of a built-in linkage
    std::vector<std::pair<std::string, std::string>> sets;  ///< field and value, in the order given
    std::optional<std::string> csv, svg, save;              ///< paths
    std::optional<std::string> drive, torque;               ///< paths of what is imported
    std::optional<std::string> export_out, export_trq, export_pdx;  ///< paths
    std::optional<int> convert_units;                               ///< 1 to 5
    std::optional<std::string> frame;                               ///< "global" or "local"
    std::optional<FunctionChoice> fft;                              ///< what to transform, in place of the table
    std::vector<FunctionChoice> plots;                              ///< up to four, in place of the linkage's picture
    bool dynamics = false, balance = false;  ///< what is solved after the run; balance wants the forces too
    bool classify = false, cognates = false, balance_report = false;
    bool help = false, version = false;  ///< either stands alone: nothing else is looked at

    /// Those that need no run, and keep the table off standard output.
    bool Without_Run() const { return classify || cognates || balance_report || save || convert_units; }
    bool Export_Wanted() const { return export_out || export_trq || export_pdx; }
    bool Run_Wanted() const { return csv || svg || Export_Wanted() || !Without_Run(); }
    /// Whether something goes to standard output without being told to.
    bool Prints() const { return classify || cognates || balance_report || (Run_Wanted() && !csv && !Without_Run()); }
    bool Forces_Wanted() const { return dynamics || balance; }
    bool Local() const { return frame == "local"; }
};

/// Reads the arguments behind the program's name. What is wrong with them goes to `fault`; then false.
bool Parse_Options(const std::vector<std::string>& arguments, BatchOptions& options, std::string& fault);

/// How the program is used, some lines.
extern const char kBatchUsage[];

}  // namespace verlink
