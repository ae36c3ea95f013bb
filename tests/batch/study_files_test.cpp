// Rows of a study on systems that take little at once, are interrupted, or have no room.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "platform/system.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace {

/// Takes and gives so many bytes at once, is interrupted at every second call, and is full behind a number of bytes.
struct Slow_System : platform::System {
    explicit Slow_System(std::size_t at_once) : most(at_once) { platform::Use_System(this); }
    ~Slow_System() override { platform::Use_System(nullptr); }
    int Open(const std::string& path, int flags) override {
        if (refused.empty() || !path.ends_with(refused)) return System::Open(path, flags);
        errno = EROFS;
        return -1;
    }
    ssize_t Write(int file, const char* from, std::size_t count) override {
        if (Interrupted()) return -1;
        if (room == 0) return 0;
        const ssize_t written = System::Write(file, from, std::min({count, most, room}));
        room -= static_cast<std::size_t>(std::max<ssize_t>(written, 0));
        return written;
    }
    ssize_t Read(int file, char* to, std::size_t count) override {
        return Interrupted() ? -1 : System::Read(file, to, std::min(count, most));
    }
    int Flush(int file) override { return Interrupted() ? -1 : System::Flush(file); }
    bool Interrupted() {
        if (!interrupts || ++calls % 2 == 0) return false;
        errno = EINTR;
        return true;
    }
    std::size_t most, room = 1U << 30U;
    std::string refused;  ///< the end of paths that cannot be opened
    int calls = 0;
    bool interrupts = false;
};

class Study_Files : public BatchFixture {
   protected:
    std::vector<std::string> Study(const std::string& file) const {
        return {"--sweep", "Omega2Input=1:11:11", "--measure", "max Omega2", "--csv", Path(file)};
    }
    std::vector<std::string> Resumed(const std::string& file) const {
        auto words = Study(file);
        words.emplace_back("--resume");
        return words;
    }
};

}  // namespace

TEST_F(Study_Files, RowsAreWholeWhereTheSystemTakesOneByteAtOnceOrIsInterrupted) {
    ASSERT_EQ(Run(ModelText(), Study("plain.csv")).status, 0);
    const std::string plain = Read(Path("plain.csv"));
    EXPECT_EQ(plain.substr(plain.rfind("\n11,")), "\n11,11,11\n");
    for (const std::size_t at_once : {1, 2, 4096})
        for (const bool interrupts : {false, true}) {
            std::filesystem::remove(Path("slow.csv"));
            const std::string model = Write("m.vlk", ModelText().Content());
            Slow_System slow(at_once);
            slow.interrupts = interrupts;
            auto words = Study("slow.csv");
            words.insert(words.begin(), model);
            EXPECT_EQ(Run(words).status, 0);
            EXPECT_EQ(Read(Path("slow.csv")), plain);
        }
}

TEST_F(Study_Files, ADiskThatIsFullLeavesRowsThatAreGoneOnWith) {
    ASSERT_EQ(Run(ModelText(), Study("plain.csv")).status, 0);
    const std::string plain = Read(Path("plain.csv"));
    const std::string model = Write("m.vlk", ModelText().Content());
    auto words = Study("full.csv"), resumed = Resumed("full.csv");
    words.insert(words.begin(), model);
    resumed.insert(resumed.begin(), model);
    {
        Slow_System slow(1);
        slow.room = plain.size() - 5;
        const Outcome outcome = Run(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.err.find("full.csv"), std::string::npos) << outcome.err;
        EXPECT_NE(outcome.err.find(" cannot be written: Disk full (the disk is full)"), std::string::npos)
            << outcome.err;
        EXPECT_FALSE(std::filesystem::exists(Path("full.csv")));
    }
    Slow_System slow(1);
    slow.interrupts = true;
    EXPECT_EQ(Run(resumed).status, 0);
    EXPECT_EQ(Read(Path("full.csv")), plain);
    EXPECT_FALSE(std::filesystem::exists(Path("full.csv.part")));
}

TEST_F(Study_Files, AFileThatCannotBeOpenedIsToldWithTheReason) {
    ASSERT_EQ(Run(ModelText(), Study("rows.csv")).status, 0);
    const std::string rows = Read(Path("rows.csv")), model = Path("model.vlk");
    const auto refused = [&](const std::string& end, std::vector<std::string> words) {
        words.insert(words.begin(), model);
        Slow_System system(4096);
        system.refused = end;
        const Outcome outcome = Run(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_NE(outcome.err.find("(its disk can only be read)"), std::string::npos) << outcome.err;
        return outcome.err;
    };
    EXPECT_NE(refused("rows.csv", Resumed("rows.csv")).find("rows.csv cannot be read"), std::string::npos);
    EXPECT_NE(refused("new.csv.part", Study("new.csv")).find("new.csv.part cannot be written"), std::string::npos);
    EXPECT_EQ(Read(Path("rows.csv")), rows);
}

}  // namespace verlink::test
