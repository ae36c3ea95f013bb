// How the shared parts of the batch tests work, and the check that the hand-made model file is a good one.
#include "tests/batch/batch_fixture.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>

#include "batch/batch.h"
#include "tests/support/files.h"
#include "tests/support/fixture.h"

namespace verlink::test {

ModelText::ModelText() {
    lines_.assign(184, "0");
    const auto quote = [this](int first, int last, const std::string& text) {
        for (int line = first; line <= last; ++line) Quote(line, text);
    };
    quote(1, 1, "VERLINK");
    quote(2, 2, "9.0");
    quote(3, 3, "Lever");
    quote(4, 4, "A. User");
    Set(5, "3");
    quote(6, 6, "03/14/2007");
    quote(7, 7, "15:09:26");
    Linkage({"2.667", "1.115", "2.5", "2.5"}, "1.697", "-92.66");
    Set(33, "#FALSE#");
    Times("0", "5", "0.05");
    Set(kOmega2, "10");
    Set(kAlpha2, "-5");
    Angles("45", "405", "10");
    Set(kCircuit, "1");
    Set(kUnits, "1");
    quote(46, 49, "N");
    Set(52, "16383");
    Set(53, "1");
    quote(54, 54, "2.2");
    Set(55, "10");
    quote(56, 56, "A lever");
    quote(57, 57, "Y");
    Set(81, "90");
    Set(kNSteps, "36");
    for (int line : {90, 91, 92, 94}) Set(line, "#FALSE#");
    quote(93, 93, "");
    Set(96, "1");
    quote(97, 183, "");
    quote(184, 184, "Last Item");
}

ModelText& ModelText::Set(int line, const std::string& value) {
    lines_.at(static_cast<std::size_t>(line - 1)) = value;
    return *this;
}

ModelText& ModelText::Linkage(const std::vector<std::string>& links, const std::string& rpa, const std::string& delta) {
    Set(kL1, links.at(0)).Set(kL2, links.at(1)).Set(kL3, links.at(2)).Set(kL4, links.at(3));
    Set(kRpa, rpa).Set(kDelta, delta);
    return Set(kLink1X, links[0]).Set(kLink1Y, "0").Set(kLink1Angle, "0").Set(kLink1AngleRad, "0");
}

ModelText& ModelText::Angles(const std::string& start, const std::string& end, const std::string& step) {
    return Quote(kThetaStart, start).Quote(kThetaEnd, end).Quote(kThetaStep, step).Set(kCalctype, "3");
}

ModelText& ModelText::Times(const std::string& start, const std::string& end, const std::string& step) {
    return Set(kTimeStart, start).Set(kTimeEnd, end).Set(kTimeStep, step).Set(kCalctype, "2");
}

ModelText& ModelText::Drive(int calctype, const std::vector<std::string>& rows) {
    lines_.resize(184);
    lines_.insert(lines_.end(), rows.begin(), rows.end());
    return Set(kCalctype, std::to_string(calctype)).Set(kNSteps, std::to_string(rows.size() - 1));
}

std::string ModelText::Content() const {
    std::string content;
    for (const std::string& line : lines_) content += line + "\r\n";
    return content;
}

CsvTable::CsvTable(const std::string& text) {
    std::vector<std::vector<std::string>> lines;
    std::vector<std::string> line;
    std::string field;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted && c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
            field += text[++i];
        } else if (c == '"') {
            quoted = !quoted;
        } else if (!quoted && (c == ',' || c == '\n')) {
            line.push_back(std::exchange(field, ""));
            if (c == '\n') lines.push_back(std::exchange(line, {}));
        } else {
            field += c;
        }
    }
    EXPECT_TRUE(line.empty() && field.empty() && !quoted) << "the table does not end with a line end";
    if (lines.empty()) return;
    header_ = lines.front();
    rows_.assign(lines.begin() + 1, lines.end());
    for (const auto& row : rows_) EXPECT_EQ(row.size(), header_.size());
}

const std::string& CsvTable::Text(int row, const std::string& column) const {
    const auto found = std::ranges::find(header_, column);
    if (found == header_.end()) throw std::out_of_range("no column " + column);
    return rows_.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(found - header_.begin()));
}

double CsvTable::At(int row, const std::string& column) const {
    return static_cast<double>(std::strtof(Text(row, column).c_str(), nullptr));
}

BatchFixture::BatchFixture() {
    std::string pattern = testing::TempDir() + "verlink-batch-XXXXXX";
    folder_ = ::mkdtemp(pattern.data());
}

BatchFixture::~BatchFixture() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string BatchFixture::Write(const std::string& name, const std::string& content) const {
    Put_File(Path(name), content);
    return Path(name);
}

std::string BatchFixture::Read(const std::string& path) {
    EXPECT_TRUE(std::filesystem::exists(path)) << path;
    return Held(path);
}

Outcome BatchFixture::Run(const std::vector<std::string>& arguments) {
    Reset_Model();
    std::ostringstream out, err;
    const int status = Batch_Main(arguments, out, err);
    return {status, out.str(), err.str()};
}

Outcome BatchFixture::Run(const ModelText& model, std::vector<std::string> options) const {
    options.insert(options.begin(), Write(model));
    return Run(options);
}

Outcome BatchFixture::Spawn(const std::vector<std::string>& arguments, const std::string& out) const {
    const std::string out_path = out.empty() ? Path("standard-output") : out;
    const std::string err_path = Path("standard-error");
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    constexpr int kWriting = O_WRONLY | O_CREAT | O_TRUNC;
    ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, out_path.c_str(), kWriting, 0600);
    ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err_path.c_str(), kWriting, 0600);
    std::vector<std::string> texts{VERLINK_BATCH};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    for (std::string& text : texts) words.push_back(text.data());
    words.push_back(nullptr);
    pid_t child = 0;
    const int failed = ::posix_spawn(&child, VERLINK_BATCH, &actions, nullptr, words.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) {
        ADD_FAILURE() << "cannot start " << VERLINK_BATCH;
        return {-1, "", ""};
    }
    int state = 0;
    ::waitpid(child, &state, 0);
    return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, out.empty() ? Read(out_path) : "", Read(err_path)};
}

TEST_F(BatchFixture, TheHandMadeModelRuns) {
    const Outcome outcome = Run(ModelText());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.Table().Rows(), 37);
}

TEST_F(BatchFixture, TablesAreReadBackWithTheirQuotes) {
    const CsvTable table("a,\"b,\"\"c\"\"\"\n1,2\n\"3\",-4.5\n");
    EXPECT_EQ(table.Header(), (std::vector<std::string>{"a", "b,\"c\""}));
    EXPECT_EQ(table.Rows(), 2);
    EXPECT_EQ(table.Text(1, "a"), "3");
    EXPECT_EQ(table.At(1, "b,\"c\""), -4.5);
}

}  // namespace verlink::test
