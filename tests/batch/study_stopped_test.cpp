// Studies that are stopped, and what becomes of what they left: nothing of it is lost, nothing foreign is gone on with.
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <sstream>
#include <utility>

#include "batch/batch.h"
#include "batch/study_file.h"
#include "platform/failure.h"
#include "platform/guard.h"
#include "platform/system.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

/// A terminal whose user interrupts as soon as there is something to see.
struct Impatient : std::stringbuf {
    int sync() override {
        if (str().find('\r') != std::string::npos && !std::exchange(done, true)) ::raise(SIGINT);
        return 0;
    }
    bool done = false;
};

/// The call of that number fails; nothing waits for the disk.
struct Failing_Once : platform::System {
    explicit Failing_Once(const char* its_call, int its_error) : call(its_call), error(its_error) {
        platform::Use_System(this);
    }
    ~Failing_Once() override { platform::Use_System(nullptr); }
    int Open(const std::string& path, int flags) override {
        const int file = System::Open(path, flags);
        if (!end.empty() && path.ends_with(end)) calls = 0;
        open += file >= 0 ? 1 : 0;
        return file;
    }
    int Open_New(std::string& pattern) override {
        const int file = System::Open_New(pattern);
        open += file >= 0 ? 1 : 0;
        return file;
    }
    int Close(int file) override {
        const int closed = System::Close(file);
        --open;
        return Fails("close") ? -1 : closed;
    }
    ssize_t Read(int file, char* to, std::size_t count) override {
        return Fails("read") ? -1 : System::Read(file, to, count);
    }
    ssize_t Write(int file, const char* from, std::size_t count) override {
        return Fails("write") ? -1 : System::Write(file, from, count);
    }
    int Flush(int) override { return Fails("flush") ? -1 : 0; }
    int Rename(const std::string& from, const std::string& to) override {
        return to.ends_with(end) && Fails("rename") ? -1 : System::Rename(from, to);
    }
    bool Fails(const std::string& name) {
        if (name != call || ++calls != at) return false;
        errno = error;
        return true;
    }
    std::string call, end;
    int error, calls = 0, at = 0, open = 0;
};

class Stopped : public BatchFixture {
   protected:
    static Words Joined(Words first, const Words& more) {
        first.insert(first.end(), more.begin(), more.end());
        return first;
    }
    /// Two hundred linkages, whose rows say their numbers twice more.
    static Words Speeds(int last = 200) {
        const std::string end = std::to_string(last);
        return {"--sweep", "Omega2Input=1:" + end + ":" + end, "--measure", "max Omega2"};
    }
    static std::string Row(int number) {
        const std::string text = std::to_string(number);
        return text + "," + text + "," + text + "\n";
    }
    static std::string Rows(int first, int last) {
        std::string rows;
        for (int i = first; i <= last; ++i) rows += Row(i);
        return rows;
    }
    /// Interrupted at the first line that a terminal shows.
    Outcome Interrupted(const Words& options) const {
        Impatient terminal;
        std::ostringstream out;
        std::ostream err(&terminal);
        const int status = Batch_Main(Joined({model}, options), out, err, {80, false});
        return {status, out.str(), terminal.str().substr(terminal.str().rfind("\x1b[K") + 3)};
    }
    static constexpr char kHead[] = "Linkage,Omega2Input,max Omega2\n";
    const std::string model = Write(ModelText()), csv = Path("rows.csv"), part = csv + ".part";
};

}  // namespace

TEST_F(Stopped, AnInterruptEndsTheStudyBehindTheBlockAtWorkAndResumeEndsIt) {
    const Outcome stopped = Interrupted(Joined(Speeds(), {"--csv", csv}));
    EXPECT_EQ(stopped.status, 130);
    EXPECT_EQ(stopped.err,
              "verlink-batch: stopped after 64 of 200 linkages; " + part + " has them, and --resume goes on\n");
    EXPECT_EQ(Read(part), kHead + Rows(1, 64));
    EXPECT_FALSE(fs::exists(csv));
    const Outcome again = Interrupted(Joined(Speeds(), {"--csv", csv, "--resume"}));
    EXPECT_EQ(again.status, 130);
    EXPECT_EQ(again.err,
              "verlink-batch: stopped after 128 of 200 linkages; " + part + " has them, and --resume goes on\n");
    EXPECT_EQ(Run(Joined({model}, Joined(Speeds(), {"--csv", csv, "--resume"}))).status, 0);
    EXPECT_EQ(Read(csv), kHead + Rows(1, 200));
    EXPECT_FALSE(fs::exists(part));
}

TEST_F(Stopped, AnInterruptIsToldWithoutAFileToo) {
    const Outcome printed = Interrupted(Speeds());
    EXPECT_EQ(printed.status, 130);
    EXPECT_EQ(printed.out, kHead + Rows(1, 64));
    EXPECT_EQ(printed.err, "verlink-batch: stopped after 64 of 200 linkages\n");
    const Outcome device = Interrupted(Joined(Speeds(), {"--csv", "/dev/null"}));
    EXPECT_EQ(device.status, 130);
    EXPECT_EQ(device.err, "verlink-batch: stopped after 64 of 200 linkages\n");
    const Outcome last = Interrupted(Speeds(64));
    EXPECT_EQ(last.status, 0) << "nothing was left to do";
    EXPECT_EQ(last.out, kHead + Rows(1, 64));
}

TEST_F(Stopped, AStudyThatNobodyTakesIsToldOnceAndGoesOnNoFurther) {
    struct Taking_Nothing : std::streambuf {
        int overflow(int letter) override {
            ++times;
            return letter == 'L' ? letter : traits_type::eof();
        }
        int times = 0;
    } closed;
    std::ostream out(&closed);
    std::ostringstream err;
    EXPECT_EQ(Batch_Main(Joined({model}, Speeds()), out, err), 1);
    EXPECT_EQ(err.str(), "verlink-batch: standard output cannot be written\n");
    EXPECT_EQ(closed.times, 2) << "the second letter of the head is the last that is tried";
}

TEST_F(Stopped, ResumeLeavesAHeadOfAnotherStudyAloneThoughNoRowsFollow) {
    const std::string head = "Linkage,Omega2Input,max Omega3\n";
    Write("rows.csv.part", head);
    const Outcome refused = Run(Joined({model}, Joined(Speeds(), {"--csv", csv, "--resume"})));
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err, "verlink-batch: " + part + " is of another study\n");
    EXPECT_EQ(Read(part), head);
}

TEST_F(Stopped, ASummaryThatIsStoppedIsNotWritten) {
    for (const Words& more : {Words{}, Words{"--csv", csv}, Words{"--csv", csv, "--shard", "1/1"}}) {
        const Outcome stopped = Interrupted(Joined(Joined(Speeds(), {"--summary"}), more));
        EXPECT_EQ(stopped.status, 130);
        EXPECT_EQ(stopped.out, "");
        EXPECT_EQ(stopped.err, "verlink-batch: stopped after 64 of 200 linkages\n");
        EXPECT_FALSE(fs::exists(csv) || fs::exists(part));
    }
}

TEST_F(Stopped, OfAShardAreCountedWithinIt) {
    const Words shard = Joined(Speeds(), {"--shard", "2/2", "--csv", csv});
    EXPECT_EQ(Interrupted(shard).err,
              "verlink-batch: stopped after 64 of 100 linkages; " + part + " has them, and --resume goes on\n");
    EXPECT_EQ(Run(Joined({model}, Joined(shard, {"--resume"}))).status, 0);
    const std::string resumed = Read(csv);
    EXPECT_NE(resumed.find(kHead + Rows(101, 200) + "# end of shard 2/2\n"), std::string::npos) << resumed;
    fs::remove(csv);
    EXPECT_EQ(Run(Joined({model}, shard)).status, 0);
    EXPECT_EQ(Read(csv), resumed);
}

TEST_F(Stopped, AShardIsGoneOnWithWhereverItBrokeOff) {
    const Words shard = Joined({model}, Joined(Speeds(9), {"--shard", "2/3", "--csv", csv}));
    const Words resume = Joined(shard, {"--resume"});
    ASSERT_EQ(Run(shard).status, 0);
    const std::string whole = Read(csv), end = "# end of shard 2/3\n";
    ASSERT_TRUE(whole.ends_with(kHead + Rows(4, 6) + end)) << whole;
    const std::string head = whole.substr(0, whole.size() - (Rows(4, 6) + end).size());
    const Failing_Once quick("", 0);
    for (const std::string& left : {std::string(), head.substr(0, 10), head.substr(0, head.find('\n') + 1),
                                    head.substr(0, head.size() - 1), head, head + "4", head + Rows(4, 4),
                                    head + Rows(4, 5) + "6,6,", head + Rows(4, 6), head + Rows(4, 6) + "# end", whole})
        for (const std::string& name : {csv, part}) {
            fs::remove(csv);
            fs::remove(part);
            Write(fs::path(name).filename(), left);
            const Outcome resumed = Run(resume);
            EXPECT_EQ(resumed.status, 0) << left << resumed.err;
            EXPECT_EQ(resumed.err, "");
            EXPECT_EQ(Read(csv), whole) << left;
            EXPECT_FALSE(fs::exists(part));
        }
    // Rows of its neighbours are none of its own.
    for (const std::string& foreign : {Rows(3, 3), Rows(7, 7), Rows(4, 7), std::string("4,4,5\n"), std::string("x\n"),
                                       std::string("0,0,0\n"), Rows(4, 5) + "\n"}) {
        fs::remove(csv);
        Write("rows.csv.part", head + foreign);
        const Outcome refused = Run(resume);
        EXPECT_EQ(refused.status, 1) << foreign;
        EXPECT_EQ(refused.err, "verlink-batch: " + part + " is of another study\n");
        EXPECT_EQ(Read(part), head + foreign);
    }
}

TEST_F(Stopped, ASummaryLeavesTheRowsOfAStoppedStudyAlone) {
    Write("rows.csv.part", "rows");
    EXPECT_EQ(Run(Joined({model}, Joined(Speeds(3), {"--summary", "--csv", csv}))).status, 0);
    EXPECT_TRUE(Read(csv).starts_with("Measure,What,At,Value\n,linkages,,3\n"));
    EXPECT_EQ(Read(part), "rows");
}

TEST_F(Stopped, ASystemThatFailsAtTheEndIsToldAndTheRowsStay) {
    const Words study = Joined({model}, Joined(Speeds(3), {"--csv", csv}));
    for (const char* call : {"flush", "close", "rename"}) {
        int calls = 0;
        {
            Failing_Once counted(call, 0);
            counted.end = "rows.csv";
            ASSERT_EQ(Run(study).status, 0);
            EXPECT_EQ(counted.open, 0) << "all that is opened is closed";
            calls = counted.calls;
        }
        fs::remove(csv);
        for (const int error : {EIO, EINTR}) {
            Failing_Once failing(call, error);
            failing.end = "rows.csv";
            failing.at = calls;
            const Outcome outcome = Run(study);
            EXPECT_EQ(failing.open, 0) << call;
            if (error == EINTR && std::string(call) != "rename") {
                EXPECT_EQ(outcome.status, 0) << call;
                EXPECT_EQ(outcome.err, "");
                EXPECT_EQ(Read(csv), kHead + Rows(1, 3));
            } else {
                EXPECT_EQ(outcome.status, 1) << call;
                EXPECT_TRUE(outcome.err.starts_with("verlink-batch: " + (std::string(call) == "rename" ? csv : part) +
                                                    " cannot be written: "))
                    << outcome.err;
                EXPECT_FALSE(fs::exists(csv));
                EXPECT_EQ(Read(part), kHead + Rows(1, 3));
            }
            fs::remove(csv);
            fs::remove(part);
        }
    }
}

TEST_F(Stopped, ResumeClosesWhatItLooksAtAndTellsWhatCannotBeMovedBack) {
    const Words fewer = Joined({model}, Joined(Speeds(3), {"--csv", csv}));
    const Words more =
        Joined({model}, {"--sweep", "Omega2Input=1:3:3", "--measure", "max Omega2", "--csv", csv, "--resume"});
    ASSERT_EQ(Run(fewer).status, 0);
    Failing_Once counted("rename", EIO);
    counted.end = ".part";
    counted.at = 1;
    EXPECT_EQ(Run(more).status, 0) << "what is whole stays where it is";
    EXPECT_EQ(counted.open, 0);
    Write("rows.csv", kHead + Rows(1, 2));
    const Outcome refused = Run(more);
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.starts_with("verlink-batch: " + csv + " cannot be written: ")) << refused.err;
    EXPECT_EQ(Read(csv), kHead + Rows(1, 2));
}

TEST_F(Stopped, RowsThatCannotBeReadOrAddedAreTold) {
    const Words resume = Joined({model}, Joined(Speeds(3), {"--csv", csv, "--resume"}));
    Write("rows.csv", kHead + Rows(1, 2));
    const std::pair<const char*, int> calls[] = {{"read", EIO}, {"write", EFBIG}};
    const std::string told[] = {csv + " cannot be read: Device I/O error",
                                part + " cannot be written: Disk full (it would be larger than a file may be)\n"};
    for (const std::size_t i : {0U, 1U}) {
        Failing_Once failing(calls[i].first, calls[i].second);
        failing.end = "rows.csv";
        failing.calls = -1000;  // until that is opened
        failing.at = 1;
        const Outcome refused = Run(resume);
        EXPECT_EQ(refused.status, 1);
        EXPECT_TRUE(refused.err.starts_with("verlink-batch: " + told[i])) << refused.err;
        EXPECT_EQ(failing.open, 0);
        EXPECT_EQ(Read(i == 0 ? csv : part), kHead + Rows(1, 2));
    }
}

/// They are read 64 KiB at a time, the last of which has a single byte here.
TEST_F(Stopped, RowsOfAnyLengthAreReadToTheirEndThoughASignalComes) {
    const std::string head = "Head\n", long_row((std::size_t{1} << 16U) - head.size() - 2, '1');
    Write("rows.csv", head + long_row + "\n2\n");
    Failing_Once interrupted("read", EINTR);
    interrupted.at = 1;
    const Rows_There there = Look_At_Rows(csv, head, "2");
    EXPECT_EQ(there.rows, 1U);
    EXPECT_EQ(there.last, long_row);
    EXPECT_EQ(there.bytes, (std::size_t{1} << 16U) - 1);
    EXPECT_EQ(there.state, Rows_There::State::kWhole);
    EXPECT_EQ(interrupted.calls, 4);
}

/// Whatever the system said of the call before.
TEST_F(Stopped, RowsOfWhichTheDiskTakesNothingAreToldAsAFullDisk) {
    struct Taking_Nothing : platform::System {
        Taking_Nothing() { platform::Use_System(this); }
        ~Taking_Nothing() override { platform::Use_System(nullptr); }
        ssize_t Write(int file, const char* from, std::size_t count) override {
            if (times == 0) return System::Write(file, from, count);
            --times;
            errno = EINTR;
            return 0;
        }
        int Flush(int) override { return 0; }
        int times = 0;
    } disk;
    Row_File rows(csv, kHead);
    disk.times = 3;
    const auto failure = What_Failed([&] { rows.Add(Row(1)); });
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->Number(), platform::kDiskFull);
    EXPECT_EQ(disk.times, 2) << "it is not tried again";
    EXPECT_EQ(Read(part), kHead);
}

TEST_F(Stopped, RowsThatAnotherProcessWritesAreLeftToIt) {
    Row_File other(csv, kHead);
    other.Add(Row(1));
    const Failing_Once counted("", 0);
    const Outcome refused = Run(Joined({model}, Joined(Speeds(3), {"--csv", csv, "--resume"})));
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err,
              "verlink-batch: " + part + " cannot be written: Path/File access error (another process writes it)\n");
    EXPECT_EQ(counted.open, 0);
    other.Add(Row(2));
    EXPECT_EQ(Read(part), kHead + Rows(1, 2));
}

TEST_F(Stopped, ASummaryCountsEachLinkageOnceAtTheEndsOfBlocksToo) {
    for (const int count : {1, 2, 63, 64, 65, 127, 128, 129}) {
        const std::string out = Run(Joined({model}, Joined(Speeds(count), {"--summary"}))).out,
                          all = std::to_string(count);
        EXPECT_TRUE(out.starts_with("Measure,What,At,Value\n,linkages,," + all + "\n,kept,," + all + "\n")) << out;
        EXPECT_EQ(Run(Joined({model}, Speeds(count))).out, kHead + Rows(1, count));
    }
}

/// One linkage counts for the rate, and of a shard its own are all.
TEST_F(Stopped, AStudyShowsItsRateFromTheFirstLinkage) {
    const Words shard = Joined(Speeds(3), {"--shard", "3/3"});
    for (const Words& study : {Speeds(1), shard, Joined(Speeds(1), {"--summary"}), Joined(shard, {"--summary"})}) {
        std::ostringstream out, err;
        EXPECT_EQ(Batch_Main(Joined({model}, study), out, err, {80, false}), 0);
        EXPECT_TRUE(err.str().starts_with("\r[##############################] 1/1  ")) << err.str();
        EXPECT_NE(err.str().find("/s  "), std::string::npos) << err.str();
        EXPECT_TRUE(err.str().ends_with("\x1b[K\r\x1b[K"));
    }
}

}  // namespace verlink::test
