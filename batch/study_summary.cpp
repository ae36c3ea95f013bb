// The tables of a summary and of sensitivities.
#include "batch/study_summary.h"

#include <bit>

#include "batch/csv.h"

namespace verlink {

using namespace study;

namespace {

constexpr double kShares[] = {0, 0.01, 0.05, 0.25, 0.5, 0.75, 0.95, 0.99, 1};
constexpr int kBins = 20;
constexpr char kSummaryHead[] = "# summary";

std::string Cell(double value) { return Is_None(static_cast<float>(value)) ? "" : Shortest(value); }

class Rows {
   public:
    void Add(const std::string& measure, const std::string& what, const std::string& at, const std::string& value) {
        text_ += Csv_Field(measure) + "," + what + "," + at + "," + value + "\n";
    }
    const std::string& Text() const { return text_; }

   private:
    std::string text_ = "Measure,What,At,Value\n";
};

void Add_Histogram(Rows& rows, const std::string& measure, const Spread_Of_Values& spread) {
    std::vector<double> bounds;
    const double least = spread.Least(), width = (double{spread.Greatest()} - least) / kBins;
    bounds.reserve(kBins + 1);
    for (int i = 0; i < kBins; ++i) bounds.push_back(least + width * i);
    bounds.push_back(spread.Greatest());
    if (width == 0) return rows.Add(measure, "histogram", Cell(least), std::to_string(spread.Count()));
    const auto counts = spread.Between(bounds);
    for (std::size_t i = 0; i < counts.size(); ++i)
        rows.Add(measure, "histogram", Cell(bounds[i]), std::to_string(counts[i]));
}

void Add_Tally(Rows& rows, const std::string& measure, const Tally& tally) {
    rows.Add(measure, "none", "", std::to_string(tally.None()));
    const Spread_Of_Values& spread = tally.Spread();
    if (spread.Count() == 0) return;
    rows.Add(measure, "mean", "", Cell(tally.Mean()));
    rows.Add(measure, "standard deviation", "", Cell(tally.Deviation()));
    for (const double share : kShares) rows.Add(measure, "quantile", Cell(share), Cell(spread.Quantile(share)));
    Add_Histogram(rows, measure, spread);
    for (const Tally::Extreme& extreme : tally.Lowest())
        rows.Add(measure, "lowest", std::to_string(extreme.linkage + 1), Cell(extreme.value));
    for (const Tally::Extreme& extreme : tally.Highest())
        rows.Add(measure, "highest", std::to_string(extreme.linkage + 1), Cell(extreme.value));
}

/// Comma-separated fields, with quotes about those that need them.
std::vector<std::string> Fields_Of(const std::string& line) {
    std::vector<std::string> fields{""};
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == ',' && !quoted) {
            fields.emplace_back();
        } else if (line[i] != '"') {
            fields.back() += line[i];
        } else if (quoted && i + 1 < line.size() && line[i + 1] == '"') {
            fields.back() += line[i++];
        } else {
            quoted = !quoted;
        }
    }
    return fields;
}

}  // namespace

std::string Summary_Csv(const std::vector<std::string>& measures, const Summary& summary) {
    Rows rows;
    rows.Add("", "linkages", "", std::to_string(summary.solved));
    rows.Add("", "kept", "", std::to_string(summary.kept));
    for (std::size_t i = 0; i < measures.size(); ++i) Add_Tally(rows, measures[i], summary.measures[i]);
    return rows.Text();
}

std::string Summary_Head(const std::vector<std::string>& measures) {
    std::string head = kSummaryHead;
    for (const std::string& measure : measures) head += "," + Csv_Field(measure);
    return head + '\n';
}

bool Is_Summary(const std::string& head) { return head.starts_with(kSummaryHead); }

std::vector<std::string> Measures_Of(const std::string& head) {
    std::vector<std::string> fields = Fields_Of(head);
    fields.erase(fields.begin());
    return fields;
}

std::string Summary_Text(const Summary& summary, const std::vector<float>& nominal) {
    std::string text = std::to_string(summary.solved) + '\n' + std::to_string(summary.kept) + '\n';
    for (std::size_t i = 0; i < nominal.size(); ++i)
        text += std::to_string(std::bit_cast<std::uint32_t>(nominal[i])) + '\n' + summary.measures[i].Text();
    return text;
}

bool Take_Summary(const std::vector<std::string>& lines, std::optional<Summary>& summary) {
    constexpr std::size_t kHead = 2, kEach = 1 + Tally::kLines;
    if (lines.size() % kEach != kHead) return false;
    const auto solved = Whole_Number(lines[0]), kept = Whole_Number(lines[1]);
    if (!solved || !kept) return false;
    std::vector<float> nominal;
    for (std::size_t at = kHead; at < lines.size(); at += kEach) {
        const auto bits = Whole_Number(lines[at]);
        if (!bits) return false;
        nominal.push_back(std::bit_cast<float>(static_cast<std::uint32_t>(*bits)));
    }
    Summary part(nominal);
    part.solved = *solved;
    part.kept = *kept;
    for (std::size_t i = 0; i < nominal.size(); ++i) {
        const auto from = lines.begin() + static_cast<std::ptrdiff_t>(kHead + i * kEach + 1);
        if (!part.measures[i].Take({from, from + Tally::kLines})) return false;
    }
    if (!summary) summary = Summary(nominal);
    if (summary->measures.size() != part.measures.size()) return false;
    summary->Add(part);
    return true;
}

std::string Sensitivity_Csv(const Bench& bench) {
    std::string table = "Measure,Field,Nominal,Derivative,Deviation,Share\n";
    const std::vector<float> nominal = Nominal_Measures(bench);
    const auto all = Sensitivities(bench);
    for (std::size_t i = 0; i < all.size(); ++i)
        for (std::size_t j = 0; j < all[i].size(); ++j) {
            const int field = bench.Of().plan.tolerances[j].field;
            const Sensitivity& s = all[i][j];
            table += Csv_Field(bench.Of().measures[i].words) + "," +
                     Csv_Field(study::Fields()[static_cast<std::size_t>(field)].name) + "," + Cell(nominal[i]) + "," +
                     Cell(s.derivative) + "," + Cell(s.deviation) + "," + Cell(s.share) + "\n";
        }
    return table;
}

}  // namespace verlink
