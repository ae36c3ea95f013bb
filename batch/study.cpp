// How a study is run: blocks of linkages, each made into rows by the thread that solves it.
#include "batch/study.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <optional>
#include <thread>

#include "batch/batch.h"
#include "batch/csv.h"
#include "batch/exchange.h"
#include "batch/run.h"
#include "batch/stop_signals.h"
#include "batch/study_file.h"
#include "batch/study_progress.h"
#include "batch/study_summary.h"
#include "batch/study_words.h"
#include "core/linkage_model.h"
#include "platform/file_system.h"
#include "study/in_order.h"
#include "study/study.h"

namespace verlink {

using study::Number;

namespace {

constexpr Number kBlock = 64;  ///< linkages

std::vector<std::string> Measure_Words(const study::Bench& bench) {
    std::vector<std::string> words;
    for (const study::Measure& measure : bench.Of().measures) words.push_back(measure.words);
    return words;
}

std::string Head_Of(const study::Bench& bench) {
    std::string head = "Linkage";
    for (const int field : bench.Moved())
        head += "," + Csv_Field(study::Fields()[static_cast<std::size_t>(field)].name);
    for (const std::string& words : Measure_Words(bench)) head += "," + Csv_Field(words);
    return head + '\n';
}

/// Rows of a worker.
class Row_Writer {
   public:
    explicit Row_Writer(const study::Bench& bench)
        : worker_(bench), fields_(bench.Moved().size()), measures_(bench.Of().measures.size()) {}

    /// The rows of linkages from the first to before the end that are kept.
    void Write(Number first, Number end, std::string& rows) {
        rows.clear();
        for (Number linkage = first; linkage < end; ++linkage) {
            if (!worker_.Solve(linkage, fields_, measures_)) continue;
            rows += std::to_string(linkage + 1);
            for (const float field : fields_) Cell(field, rows);
            for (const float measure : measures_) Cell(measure, rows);
            rows += '\n';
        }
    }

   private:
    static void Cell(float value, std::string& rows) {
        rows += ',';
        if (!study::Is_None(value)) rows += Shortest(value);
    }

    study::Worker worker_;
    std::vector<float> fields_, measures_;
};

/// What tells one study from another: FNV-1a of all that its rows depend on.
class Fingerprint {
   public:
    void Add(const std::string& text) {
        for (const char letter : text + '\n') value_ = (value_ ^ static_cast<unsigned char>(letter)) * 0x100000001b3U;
    }
    std::uint64_t Value() const { return value_; }

   private:
    std::uint64_t value_ = 0xcbf29ce484222325U;
};

std::uint64_t Identity_Of(const BatchOptions& options, const study::Study& study) {
    Fingerprint print;
    print.Add(study::Key_Of(study.design));
    print.Add(options.Local() ? "local" : "global");
    for (const auto* words :
         {&options.study.sweeps, &options.study.tolerances, &options.study.measures, &options.study.keeps}) {
        print.Add("");
        for (const std::string& word : *words) print.Add(word);
    }
    for (const auto& row : study.plan.list.rows)
        for (const double value : row) print.Add(Shortest(value));
    print.Add(options.study.summary ? "summary" : "rows");
    print.Add(std::to_string(study.plan.samples) + " " + std::to_string(study.plan.seed));
    return print.Value();
}

/// The linkages of a shard.
struct Range {
    Number first, end;
};

Range Range_Of(Number all, Number shard, Number shards) {
    const Number each = all / shards, more = all % shards;
    const auto before = [&](Number shards_before) { return each * shards_before + std::min(shards_before, more); };
    return {before(shard - 1), before(shard)};
}

/// Where rows go: standard output, or a file that is gone on with.
class Rows_Out {
   public:
    Rows_Out(Printout& print, const std::string* path) : print_(print), path_(path) {}

    void Begin(const std::string& head, std::optional<std::uint64_t> go_on) {
        if (path_)
            file_.emplace(*path_, head, go_on);
        else
            print_.Text(head);
    }
    void Add(const std::string& rows) {
        if (file_)
            file_->Add(rows);
        else
            print_.Text(rows);
    }
    void Close() {
        if (file_) file_->Close();
    }
    /// All at once.
    void Put(const std::string& text) { path_ ? platform::Write_File(*path_, text) : print_.Text(text); }
    /// Nobody reads on.
    bool Closed() const { return !file_ && print_.Closed(); }
    std::string Part() const { return file_ ? file_->Part() : ""; }

   private:
    Printout& print_;
    const std::string* path_;
    std::optional<Row_File> file_;
};

/// The file of rows or of what they come to; null for standard output.
const std::string* Path_Of(const BatchOptions& options) {
    const std::string* path = options.Result("--csv");
    return path && *path != "-" ? path : nullptr;
}

/// What a block of a summary leaves behind.
struct Nothing {};

class Study_Run {
   public:
    Study_Run(const BatchOptions& options, const study::Study& study, Printout& print, std::ostream& err, int columns)
        : options_(options),
          bench_(study),
          all_(study.plan.Count().value()),
          range_(Range_Of(all_, options.study.shard, options.study.shards)),
          lines_(Lines_Of_Part(Identity_Of(options, study), options.study.shard, options.study.shards, all_)),
          out_(print, Path()),
          err_(err),
          columns_(columns) {}

    int Run() {
        const StudyOptions& words = options_.study;
        const std::string begin = words.sharded ? lines_.begin : "";
        const std::string head = begin + (!words.summary  ? Head_Of(bench_)
                                          : words.sharded ? Summary_Head(Measure_Words(bench_))
                                                          : "");
        std::optional<std::uint64_t> go_on;
        if (words.resume) {
            const auto status = Resume(head, go_on);
            if (status) return *status;
        }
        if (Leftover()) return kFailed;
        const Stop_Signals signals;
        if (words.summary) return Sum_Up(head) ? kDone : Stopped();
        out_.Begin(head, go_on);
        const bool whole = Solve();
        if (failure_) throw *failure_;
        if (!whole) return Stopped();
        if (words.sharded) out_.Add(lines_.end);
        out_.Close();
        return kDone;
    }

   private:
    const std::string* Path() const { return Path_Of(options_); }

    /// Where a stopped study goes on; a status when there is nothing to do, or nothing can be done.
    std::optional<int> Resume(const std::string& head, std::optional<std::uint64_t>& go_on) {
        using State = Rows_There::State;
        const std::string& path = *Path();
        const std::string part = Row_File::Part_Of(path);
        const std::string end = options_.study.sharded ? lines_.end.substr(0, lines_.end.size() - 1) : "";
        Rows_There there = Look_At_Rows(part, head, end);
        const bool stopped = there.state != State::kNone;
        if (!stopped) there = Look_At_Rows(path, head, end);
        if (there.state == State::kNone) return std::nullopt;
        if (!Belongs(there)) return Foreign(stopped ? part : path);
        if (there.rows > 0) first_ = done_ = Number_Of_Row(there.last);
        if (!stopped) {
            // Rows under their own name are all that there were, of this study or of one with fewer linkages.
            if (there.state == State::kWhole || (end.empty() && first_ == range_.end)) return kDone;
            Move_Back(path, part);
        }
        go_on = there.bytes;
        return std::nullopt;
    }

    /// Rows that somebody has waited for are not written over because a word was forgotten.
    bool Leftover() {
        if (!Path() || options_.study.resume || options_.study.summary) return false;
        const std::string part = Row_File::Part_Of(*Path());
        if (!platform::Is_Plain_File(part)) return false;
        err_ << "verlink-batch: " << part
             << " is there from a study that was stopped: --resume goes on with it, or take it away\n";
        return true;
    }

    int Foreign(const std::string& path) {
        err_ << "verlink-batch: " << path << " is of another study\n";
        return kFailed;
    }

    /// The number in front of a row, which is that of the next linkage; 0 where there is none.
    static Number Number_Of_Row(const std::string& row) { return std::strtoull(row.c_str(), nullptr, 10); }

    /// Whether the last row is what this study makes of that linkage.
    bool Belongs(const Rows_There& there) {
        if (there.state == Rows_There::State::kForeign) return false;
        if (there.rows == 0) return true;
        const Number next = Number_Of_Row(there.last);
        if (next <= range_.first || next > range_.end) return false;
        std::string row;
        Row_Writer(bench_).Write(next - 1, next, row);
        return row == there.last + '\n';
    }

    int Threads(Number blocks) const {
        const int processors = static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
        const auto wanted = static_cast<Number>(options_.study.threads.value_or(processors));
        return static_cast<int>(std::clamp<Number>(blocks, 1, wanted));
    }
    Number Blocks() const { return (range_.end - first_ + kBlock - 1) / kBlock; }
    /// The linkages of a block.
    Range Block(Number block) const {
        const Number first = first_ + block * kBlock;
        return {first, std::min(first + kBlock, range_.end)};
    }
    /// A block is done; whether the next is wanted.
    bool Goes_On(Study_Progress& progress) {
        done_ = std::min(done_ + kBlock, range_.end);
        progress.Show(done_ - range_.first);
        return !(Stop_Signals::Asked() && done_ < range_.end) && !out_.Closed();
    }

    /// False when it was stopped.
    bool Solve() {
        Study_Progress progress(err_, columns_, range_.end - range_.first, first_ - range_.first);
        const auto worker = [this] {
            return [this, writer = Row_Writer(bench_)](Number block, std::string& rows) mutable {
                const Range range = Block(block);
                writer.Write(range.first, range.end, rows);
            };
        };
        return study::In_Order<std::string>(Blocks(), Threads(Blocks()), worker, [&](const std::string& rows) {
            try {
                out_.Add(rows);
            } catch (const platform::RuntimeFailure& failure) {
                failure_ = failure;
                return false;
            }
            return Goes_On(progress);
        });
    }

    /// Each thread has a summary of its own, and what they come to together does not depend on who did what.
    bool Sum_Up(const std::string& head) {
        Study_Progress progress(err_, columns_, range_.end - range_.first, 0);
        const std::vector<float> nominal = study::Nominal_Measures(bench_);
        std::vector<study::Summary> summaries(static_cast<std::size_t>(Threads(Blocks())), study::Summary(nominal));
        std::atomic<std::size_t> next{0};
        const auto worker = [&] {
            return [&, solver = study::Worker(bench_), fields = std::vector<float>(bench_.Moved().size()),
                    measures = std::vector<float>(nominal.size()),
                    &summary = summaries[next.fetch_add(1)]](Number block, Nothing&) mutable {
                const Range range = Block(block);
                for (Number linkage = range.first; linkage < range.end; ++linkage)
                    if (solver.Solve(linkage, fields, measures)) summary.Add(measures, linkage);
                summary.solved += range.end - range.first;
            };
        };
        const bool whole = study::In_Order<Nothing>(Blocks(), static_cast<int>(summaries.size()), worker,
                                                    [&](const Nothing&) { return Goes_On(progress); });
        if (!whole) return false;
        for (std::size_t i = 1; i < summaries.size(); ++i) summaries.front().Add(summaries[i]);
        out_.Put(head + (options_.study.sharded ? Summary_Text(summaries.front(), nominal) + lines_.end
                                                : Summary_Csv(Measure_Words(bench_), summaries.front())));
        return true;
    }

    /// What is there stays, and is told.
    int Stopped() {
        if (out_.Closed()) return kDone;
        err_ << "verlink-batch: stopped after " << done_ - range_.first << " of " << range_.end - range_.first
             << " linkages";
        if (Path() && !options_.study.summary && out_.Part() != *Path())
            err_ << "; " << out_.Part() << " has them, and --resume goes on";
        err_ << '\n';
        return kStopped;
    }

    const BatchOptions& options_;
    const study::Bench bench_;
    const Number all_;
    const Range range_;
    const Part_Lines lines_;
    Rows_Out out_;
    std::ostream& err_;
    int columns_;
    Number first_ = range_.first, done_ = range_.first;
    std::optional<platform::RuntimeFailure> failure_;
};

}  // namespace

int Run_Study(const BatchOptions& options, Printout& print, std::ostream& err, int columns) {
    if (!Take_Limits()) return kFailed;
    Derive_Geometry();
    std::string fault;
    const auto study = Study_Of(options, Model, fault);
    if (!study) {
        err << "verlink-batch: " << fault << '\n';
        return kWrongUsage;
    }
    try {
        if (!options.study.sensitivity) return Study_Run(options, *study, print, err, columns).Run();
        Rows_Out(print, Path_Of(options)).Put(Sensitivity_Csv(study::Bench(*study)));
        return kDone;
    } catch (const platform::RuntimeFailure& failure) {
        const platform::FileTrouble& trouble = failure.Trouble();
        err << "verlink-batch: " << trouble.path << " cannot be " << (trouble.writing ? "written: " : "read: ")
            << Why(failure) << '\n';
        return kFailed;
    }
}

}  // namespace verlink
