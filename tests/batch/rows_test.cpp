// The file of rows: what it is found to be, how it is gone on with, and the lines of a summary that is put together.
#include <fcntl.h>
#include <unistd.h>

#include <optional>
#include <span>

#include "batch/study_file.h"
#include "batch/study_summary.h"
#include "platform/guard.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

using State = Rows_There::State;

const std::string kHeadLines = "# of a study\nLinkage,Width\n";

class Rows_Of_A_Study : public BatchFixture {
   protected:
    Rows_There Looked_At(const std::string& content, const std::string& end = "# end") const {
        return Look_At_Rows(Write("rows.csv", content), kHeadLines, end);
    }
};

std::vector<std::string> Lines_Of(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0, end = 0; (end = text.find('\n', at)) != std::string::npos; at = end + 1)
        lines.push_back(text.substr(at, end - at));
    return lines;
}

study::Summary Summed(const std::vector<float>& values, std::uint64_t first) {
    study::Summary summary({1.5F});
    for (const float value : values) summary.Add(std::span(&value, 1), first++);
    summary.solved = values.size();
    return summary;
}

}  // namespace

TEST_F(Rows_Of_A_Study, AreFoundUpToTheLastWholeLine) {
    const auto expect = [](const Rows_There& there, State state, std::uint64_t rows, const std::string& last,
                           std::size_t bytes) {
        EXPECT_EQ(there.state, state);
        EXPECT_EQ(there.rows, rows);
        EXPECT_EQ(there.last, last);
        EXPECT_EQ(there.bytes, bytes);
    };
    const std::size_t head = kHeadLines.size();
    expect(Look_At_Rows(Path("nowhere.csv"), kHeadLines, ""), State::kNone, 0, "", 0);
    expect(Looked_At(""), State::kNone, 0, "", 0);
    expect(Looked_At("# of a"), State::kNone, 0, "", 0);
    expect(Looked_At("# of a study\n"), State::kNone, 0, "", 13);
    expect(Looked_At("# of a study\nLinkage"), State::kNone, 0, "", 13);
    expect(Looked_At(kHeadLines), State::kPartly, 0, "", head);
    expect(Looked_At(kHeadLines + "1,5"), State::kPartly, 0, "", head);
    expect(Looked_At(kHeadLines + "1,5\n2,6\n3,"), State::kPartly, 2, "2,6", head + 8);
    expect(Looked_At(kHeadLines + "1,5\n2,6\n# end\n"), State::kWhole, 2, "2,6", head + 8);
    expect(Looked_At(kHeadLines + "1,5\n# end\n2,6\n"), State::kPartly, 2, "2,6", head + 8);
    expect(Looked_At(kHeadLines + "# end\n"), State::kWhole, 0, "", head);
    expect(Looked_At(kHeadLines + "1,5\n# end"), State::kPartly, 1, "1,5", head + 4);
    expect(Looked_At(kHeadLines + "1,5\n\n", ""), State::kPartly, 2, "", head + 5);
    EXPECT_EQ(Looked_At("# of another\nLinkage,Width\n1,5\n").state, State::kForeign);
    EXPECT_EQ(Looked_At("# of a study\nLinkage,Height\n1,5\n").state, State::kForeign);
    EXPECT_EQ(Looked_At("# end\n").state, State::kForeign);
}

TEST_F(Rows_Of_A_Study, ManyAreFoundAlsoWhereALineGoesOnBehindABlock) {
    std::string rows;
    for (int i = 1; i <= 20000; ++i) rows += std::to_string(i) + ",0.5\n";
    ASSERT_GT(rows.size(), 2U << 16U);
    const Rows_There there = Looked_At(kHeadLines + rows);
    EXPECT_EQ(there.rows, 20000U);
    EXPECT_EQ(there.last, "20000,0.5");
    EXPECT_EQ(there.bytes, kHeadLines.size() + rows.size());
}

TEST_F(Rows_Of_A_Study, GatherBesideTheFileAndTakeItsNameAtTheEnd) {
    const std::string path = Write("rows.csv", "before"), part = path + ".part";
    {
        Row_File file(path, "head\n");
        EXPECT_EQ(file.Part(), part);
        file.Add("1\n");
        EXPECT_EQ(Read(path), "before");
        EXPECT_EQ(Read(part), "head\n1\n");
        const auto taken = What_Failed([&] { Row_File(path, "head\n"); });
        ASSERT_TRUE(taken) << "another one writes it";
        EXPECT_NE(taken->Trouble().Words().find("another process writes it"), std::string::npos)
            << taken->Trouble().Words();
    }
    EXPECT_EQ(Read(path), "before");
    {
        Row_File file(path, "head\n", 5);
        file.Add("2\n3\n");
        file.Close();
    }
    EXPECT_EQ(Read(path), "head\n2\n3\n") << "what was behind so many bytes is gone";
    EXPECT_FALSE(std::filesystem::exists(part));
    Move_Back(path, part);
    EXPECT_FALSE(std::filesystem::exists(path));
    EXPECT_EQ(Read(part), "head\n2\n3\n");
    EXPECT_TRUE(What_Failed([&] { Move_Back(path, part); }));
    {
        Row_File file(path, "anew\n");
        file.Close();
    }
    EXPECT_EQ(Read(path), "anew\n");
    EXPECT_TRUE(What_Failed([&] { Row_File(Path("nowhere/rows.csv"), "head\n"); }));
}

/// Whoever starts a program may leave it without standard input, whose number the next file then has.
TEST_F(Rows_Of_A_Study, AreLetGoOfUnderWhateverNumberTheyWereOpened) {
    const int kept = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);
    std::optional<Row_File> file;
    file.emplace(Path("rows.csv"), "head\n");
    EXPECT_NE(::fcntl(STDIN_FILENO, F_GETFD), -1);
    file.reset();
    EXPECT_EQ(::fcntl(STDIN_FILENO, F_GETFD), -1);
    ::dup2(kept, STDIN_FILENO);
    ::close(kept);
}

TEST_F(Rows_Of_A_Study, GoToADeviceAsTheyAre) {
    Row_File file("/dev/null", "head\n");
    EXPECT_EQ(file.Part(), "/dev/null");
    file.Add("1\n");
    file.Close();
    EXPECT_FALSE(std::filesystem::exists("/dev/null.part"));
    EXPECT_TRUE(std::filesystem::exists("/dev/null"));
}

TEST(Summary_Lines, OfPartsComeToTheSummaryOfTheWhole) {
    const std::vector<float> values{3, -1, 4, 1, -5, 9, 2, 6};
    const study::Summary left = Summed({values.begin(), values.begin() + 3}, 0);
    const study::Summary right = Summed({values.begin() + 3, values.end()}, 3);
    std::optional<study::Summary> sum;
    ASSERT_TRUE(Take_Summary(Lines_Of(Summary_Text(left, {1.5F})), sum));
    ASSERT_TRUE(Take_Summary(Lines_Of(Summary_Text(right, {1.5F})), sum));
    const std::vector<std::string> measures{"max \"a, b\""};
    const std::string csv = Summary_Csv(measures, *sum);
    EXPECT_EQ(csv, Summary_Csv(measures, Summed(values, 0)));
    const auto has = [&](const std::string& row) { return csv.find("\n" + row + "\n") != std::string::npos; };
    const std::string name = "\"max \"\"a, b\"\"\",";
    EXPECT_TRUE(csv.starts_with("Measure,What,At,Value\n,linkages,,8\n,kept,,8\n" + name + "none,,0\n"));
    EXPECT_TRUE(has(name + "mean,,2.375")) << csv;
    EXPECT_TRUE(has(name + "lowest,5,-5"));
    EXPECT_TRUE(has(name + "lowest,2,-1"));
    EXPECT_TRUE(has(name + "highest,6,9"));
    EXPECT_TRUE(has(name + "quantile,0,-5"));
    EXPECT_TRUE(has(name + "quantile,1,9"));
    // Twenty bins of 0.7 from -5 on: in the first -5 alone, in the last 9.
    EXPECT_TRUE(has(name + "histogram,-5,1")) << csv;
    std::size_t bins = 0, counted = 0;
    for (const std::string& line : Lines_Of(csv)) {
        if (line.find("histogram,") == std::string::npos) continue;
        ++bins;
        counted += static_cast<std::size_t>(std::stoi(line.substr(line.rfind(',') + 1)));
    }
    EXPECT_EQ(bins, 20U);
    EXPECT_EQ(counted, 8U);
    EXPECT_NE(csv.find(name + "histogram,8.3"), std::string::npos);
    EXPECT_EQ(Summary_Csv({"w"}, Summed({2, 2}, 0)).substr(0, 12), "Measure,What");
    EXPECT_NE(Summary_Csv({"w"}, Summed({2, 2}, 0)).find("w,histogram,2,2\n"), std::string::npos) << "one bin of all";
    EXPECT_EQ(
        Measures_Of(
            Summary_Head({"a", "max \"a, b\"", "c"}).substr(0, Summary_Head({"a", "max \"a, b\"", "c"}).size() - 1)),
        (std::vector<std::string>{"a", "max \"a, b\"", "c"}));
    EXPECT_TRUE(Is_Summary(Summary_Head({"a"})));
    EXPECT_FALSE(Is_Summary("Linkage,a"));
}

TEST(Summary_Lines, ThatAreNoneAreRefusedAndChangeNothing) {
    const auto lines = Lines_Of(Summary_Text(Summed({1, 2, 3}, 0), {1.5F}));
    std::optional<study::Summary> sum;
    const auto refused = [&](std::vector<std::string> some) { return !Take_Summary(some, sum) && !sum; };
    EXPECT_TRUE(refused({}));
    EXPECT_TRUE(refused({"3"}));
    EXPECT_TRUE(refused({lines.begin(), lines.end() - 1}));
    auto more = lines;
    more.emplace_back("1");
    EXPECT_TRUE(refused(more));
    for (const std::size_t at : {0U, 1U, 2U}) {
        for (const char* wrong : {"", "x", "3x", "-1", " 3", "99999999999999999999999"}) {
            auto broken = lines;
            broken[at] = wrong;
            EXPECT_TRUE(refused(broken)) << at << wrong;
        }
    }
    auto broken = lines;
    broken[3] = "none";
    EXPECT_TRUE(refused(broken));
    // Of other measures than those before it.
    ASSERT_TRUE(Take_Summary(lines, sum));
    EXPECT_FALSE(Take_Summary({"3", "3"}, sum));
    EXPECT_EQ(sum->solved, 3U);
}

}  // namespace verlink::test
