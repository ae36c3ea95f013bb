// Parts of a study: what their first lines say, and how they come together.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <set>
#include <sstream>

#include "batch/study_file.h"
#include "core/linkage_model.h"
#include "platform/system.h"
#include "study/design.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

/// Nothing waits for the disk.
struct Unflushed : platform::System {
    Unflushed() { platform::Use_System(this); }
    ~Unflushed() override { platform::Use_System(nullptr); }
    int Flush(int) override { return 0; }
};

class Merged : public BatchFixture {
   protected:
    static Words Joined(Words first, const Words& more) {
        first.insert(first.end(), more.begin(), more.end());
        return first;
    }
    Outcome Merge(const Words& parts) const {
        fs::remove(all);
        return Run(Joined({"--merge", all}, parts));
    }
    std::string First_Line(const Words& options, const ModelText& model = ModelText()) const {
        const Outcome part = Run(model, Joined(options, {"--shard", "1/1"}));
        EXPECT_EQ(part.status, 0) << part.err;
        return part.out.substr(0, part.out.find('\n'));
    }
    /// A part made by hand.
    std::string Part(const std::string& begin, const std::string& rest) const {
        return Write(std::to_string(++made), "# study " + begin + rest);
    }
    const Unflushed quick;
    const std::string all = Path("all.csv"), none = " is no part of a study\n";
    mutable int made = 0;
};

/// The 64-bit hash of Fowler, Noll and Vo by its published prime and offset basis, in decimals.
std::string Fnv_1a(const std::string& bytes) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211ULL;
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
    return digits;
}

}  // namespace

/// By it parts of other days and machines are known, so that it stays as it is.
TEST_F(Merged, APartNamesItsStudyByAllThatItsRowsDependOn) {
    const std::string list = Write("list.csv", "L3,L4\n2.5,2.25\n2.75,0.1\n");
    const std::string line =
        First_Line({"--sweep-list", list, "--sweep", "L2=1:1.2:3", "--tolerance", "Rpa=0.1", "--tolerance", "Delta=1",
                    "--samples", "2", "--seed", "7", "--measure", "closes", "--keep", "closes > 0"});
    const std::string key = study::Key_Of(study::Design_Of(Model));
    EXPECT_GT(std::count(key.begin(), key.end(), '\n'), 20);
    const std::string facts = key + "\nglobal\n\nL2=1:1.2:3\n\nRpa=0.1\nDelta=1\n\ncloses\n\ncloses > 0\n" +
                              "2.5\n2.25\n2.75\n0.1\nrows\n2 7\n";
    EXPECT_EQ(line, "# study " + Fnv_1a(facts) + ", shard 1/1 of 12 linkages");
}

TEST_F(Merged, WhateverChangesRowsMakesAnotherStudy) {
    const Words plain{"--tolerance", "L2=0.05", "--samples", "5", "--measure", "max Theta4"};
    std::set<std::string> lines{First_Line(plain)};
    const Words more[] = {{"--frame", "local"}, {"--sweep", "L3=2:3:2"},  {"--tolerance", "L4=1"},
                          {"--seed", "2"},      {"--measure", "closes"},  {"--set", "L4=2.4"},
                          {"--summary"},        {"--keep", "closes >= 1"}};
    for (const Words& words : more) EXPECT_TRUE(lines.insert(First_Line(Joined(plain, words))).second) << words[0];
    EXPECT_TRUE(lines.contains(First_Line(Joined(plain, {"--frame", "global", "--seed", "1", "--threads", "2"}))));
}

/// Blocks of a copy are 1 MiB.
TEST_F(Merged, PartsOfAnySizeAreCopiedWhole) {
    constexpr std::size_t kBlock = std::size_t{1} << 20U;
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, kBlock, kBlock + 1}) {
        std::string rows[2] = {std::string(size, '1'), std::string(size, '2')};
        for (std::string& each : rows)
            if (!each.empty()) each.back() = '\n';
        Words parts;
        for (const int shard : {2, 1}) {
            const std::string name = std::to_string(shard) + "/2";
            parts.push_back(
                Part("0, shard " + name + " of 9 linkages\nHead\n", rows[shard - 1] + "# end of shard " + name + "\n"));
        }
        EXPECT_EQ(Merge(parts).err, "");
        EXPECT_TRUE(Read(all) == "Head\n" + rows[0] + rows[1]) << size;
    }
}

TEST_F(Merged, APartThatIsCutOffMeanwhileIsToldAndNothingHasTheNameWanted) {
    const std::string first = Part("0, shard 1/2 of 9 linkages\nHead\n", "1\n# end of shard 1/2\n");
    const std::string second = Part("0, shard 2/2 of 9 linkages\nHead\n", "2\n3\n# end of shard 2/2\n");
    const std::uintmax_t size = fs::file_size(second);
    struct Cutting : Unflushed {
        ssize_t Write(int file, const char* from, std::size_t count) override {
            if (std::string(from, count) == "1\n") fs::resize_file(path, left);
            return System::Write(file, from, count);
        }
        std::string path;
        std::uintmax_t left = 0;
    } cutting;
    cutting.path = second;
    cutting.left = size - std::string("3\n# end of shard 2/2\n").size();
    const Outcome refused = Merge({first, second});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err, "verlink-batch: " + second + " breaks off: run its shard again\n");
    EXPECT_FALSE(fs::exists(all));
}

TEST_F(Merged, WhatBeginsAsNoPartDoesIsTold) {
    const std::string rest = "Head\n# end of shard 1/1\n";
    EXPECT_EQ(Merge({Part("0, shard 1/1 of 9 linkages\n", rest)}).status, 0);
    EXPECT_EQ(Read(all), "Head\n");
    for (const char* begin : {"0, shard 1/1 in 9 linkages\n", "0; shard 1/1 of 9 linkages\n", "0, shard 1 of 9\n",
                              "0, shard /1 of 9 linkages\n", "0, shard 1x1 of 9 linkages\n",
                              "0, shard -1/1 of 9 linkages\n", "0, shard 1"}) {
        const std::string part = Part(begin, rest);
        const Outcome refused = Merge({part, part});
        EXPECT_EQ(refused.status, 1);
        EXPECT_EQ(refused.err, "verlink-batch: " + part + none) << begin;
    }
    const std::string cut = Part("0, shard 1/1 of 9 linkages\n", "Head");
    EXPECT_EQ(Merge({cut}).err, "verlink-batch: " + cut + none);
    const std::string headless = Part("0, shard 1/1 of 9 linkages\n", "\n1\n# end of shard 1/1\n");
    EXPECT_EQ(Merge({headless}).status, 0);
    EXPECT_EQ(Read(all), "\n1\n");
    EXPECT_FALSE(fs::exists(all + ".part"));
}

TEST_F(Merged, PartsOfAnotherStudyAreToldByWhicheverOfTheirFirstLinesDiffers) {
    const std::string end = "# end of shard 2/2\n";
    const std::string first = Part("0, shard 1/2 of 9 linkages\nHead\n", "1\n# end of shard 1/2\n");
    EXPECT_EQ(Merge({first, Part("0, shard 2/2 of 9 linkages\nHead\n", "2\n" + end)}).status, 0);
    EXPECT_EQ(Read(all), "Head\n1\n2\n");
    for (const char* begin : {"1, shard 2/2 of 9 linkages\nHead\n", "0, shard 2/3 of 9 linkages\nHead\n",
                              "0, shard 2/2 of 8 linkages\nHead\n", "0, shard 2/2 of 9 linkages\nhead\n"}) {
        const std::string other = Part(begin, "2\n" + end);
        const Outcome refused = Merge({first, other});
        EXPECT_EQ(refused.status, 1);
        EXPECT_EQ(refused.err, "verlink-batch: " + other + " is of another study than " + first + "\n") << begin;
    }
}

TEST_F(Merged, FilesThatCannotBeReadOrWrittenAreTold) {
    const std::string good = Part("0, shard 1/1 of 9 linkages\n", "Head\n1\n# end of shard 1/1\n");
    const Outcome unread = Merge({good, Path("none")});
    EXPECT_EQ(unread.status, 1);
    EXPECT_TRUE(unread.err.starts_with("verlink-batch: " + Path("none") + " cannot be read: File not found"))
        << unread.err;
    {
        const Row_File other(all, "Head\n");
        EXPECT_EQ(Run({"--merge", all, good}).err,
                  "verlink-batch: " + all + " cannot be written: Path/File access error (another process writes it)\n");
        EXPECT_EQ(Read(all + ".part"), "Head\n");
    }
    const std::string out = Path("no folder/all.csv");
    const Outcome unwritten = Run({"--merge", out, good});
    EXPECT_EQ(unwritten.status, 1);
    EXPECT_TRUE(unwritten.err.starts_with("verlink-batch: " + out + " cannot be written: ")) << unwritten.err;
}

TEST_F(Merged, ALineOfASummaryThatIsNoneIsTold) {
    const Words study{"--sweep",    "Omega2Input=1:11:11", "--measure", "max Omega2", "--measure",
                      "max Alpha2", "--summary",           "--shard",   "1/1",        "--csv",
                      Path("part")};
    ASSERT_EQ(Run(ModelText(), study).status, 0);
    Words lines;
    std::istringstream text(Read(Path("part")));
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    ASSERT_GT(lines.size(), 6U);
    EXPECT_EQ(lines[1], "# summary,max Omega2,max Alpha2");
    EXPECT_EQ(lines[2], "11");
    EXPECT_EQ(lines[3], "11");
    const auto merged = [&] {
        std::string content;
        for (const std::string& line : lines) content += line + "\n";
        return Merge({Write("part", content)});
    };
    EXPECT_EQ(merged().status, 0);
    const Words whole = lines;
    for (std::size_t i = 2; i + 1 < whole.size(); ++i) {
        lines[i] = "x" + whole[i];
        EXPECT_EQ(merged().err, "verlink-batch: " + Path("part") + none) << i;
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ(merged().err, "verlink-batch: " + Path("part") + none) << i;
        lines = whole;
    }
    EXPECT_EQ(merged().status, 0);
    const std::string out = Path("no folder/all.csv");
    EXPECT_TRUE(Run({"--merge", out, Path("part")}).err.starts_with("verlink-batch: " + out + " cannot be written: "));
}

}  // namespace verlink::test
