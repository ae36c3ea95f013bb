// What is printed: that it all goes out, in its order, and what is said where it does not.
#include "batch/printout.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <sstream>

#include "batch/batch.h"
#include "platform/system.h"
#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

/// Takes everything, and tells only when it is flushed that it has no room.
struct Full : std::stringbuf {
    int sync() override { return -1; }
};

/// Notes at each flush whether a file is there.
struct Watching : std::stringbuf {
    explicit Watching(std::string its_path) : path(std::move(its_path)) {}
    int sync() override {
        there.push_back(fs::exists(path));
        return 0;
    }
    std::string path;
    std::vector<bool> there;
};

/// A pipe with both ends open.
struct Pipe {
    Pipe() { EXPECT_EQ(::pipe(ends), 0); }
    ~Pipe() {
        Leave();
        ::close(ends[1]);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    /// The reader has enough.
    void Leave() {
        if (ends[0] >= 0) ::close(ends[0]);
        ends[0] = -1;
    }
    std::string Name() const { return "/dev/fd/" + std::to_string(ends[1]); }
    int ends[2] = {-1, -1};
};

struct Printed : BatchFixture {
    const std::string model = Write(ModelText());

    static Outcome Run_To(std::streambuf& buffer, const std::vector<std::string>& arguments) {
        std::ostream out(&buffer);
        std::ostringstream err;
        const int status = Batch_Main(arguments, out, err);
        return {status, "", err.str()};
    }
};

}  // namespace

TEST_F(Printed, WhatHasNoRoomIsToldOnceAndFailsTheCall) {
    const std::string words = "verlink-batch: standard output cannot be written\n";
    const std::vector<std::vector<std::string>> calls{
        {"--help"},
        {"--version"},
        {model},
        {model, "--classify", "--cognates"},
        {model, "--sweep", "L2=1:1.1:2", "--measure", "closes"},
        {model, "--sweep", "L2=1:1.1:2", "--measure", "closes", "--summary"},
        {model, "--csv", "-", "--svg", Path("a.svg")}};
    for (const auto& call : calls) {
        Full full;
        const Outcome outcome = Run_To(full, call);
        EXPECT_EQ(outcome.status, 1) << call.back();
        EXPECT_EQ(outcome.err, words) << call.back();
    }
    EXPECT_TRUE(fs::exists(Path("a.svg")));
}

TEST_F(Printed, WhereNothingMoreGoesOutModelsThatOnlyPrintAreNotOpened) {
    Full full;
    const std::string none = Path("none.vlk");
    const Outcome printing = Run_To(full, {model, none});
    EXPECT_EQ(printing.status, 1);
    EXPECT_EQ(printing.err, model + ":\nverlink-batch: standard output cannot be written\n");
    // Those that have something to write are.
    const std::string other = Write("other.vlk", ModelText().Content());
    for (const char* option : {"--svg", "--save"}) {
        fs::remove(Path("other.out"));
        Full again;
        const Outcome both = Run_To(again, {model, other, "--classify", option, Path("{name}.out")});
        EXPECT_EQ(both.status, 1);
        const auto told = both.err.find("standard output cannot be written");
        EXPECT_NE(told, std::string::npos);
        EXPECT_EQ(both.err.rfind("standard output cannot be written"), told) << "once";
        EXPECT_TRUE(fs::exists(Path("other.out"))) << option;
    }
}

TEST_F(Printed, WhatIsPrintedIsOutBeforeAFileIsWritten) {
    Watching watching(Path("a.csv"));
    EXPECT_EQ(Run_To(watching, {model, "--classify", "--csv", Path("a.csv")}).status, 0);
    ASSERT_FALSE(watching.there.empty());
    EXPECT_FALSE(watching.there.front());
    EXPECT_TRUE(watching.there.back());
}

TEST(Reader_Of_A_Pipe, IsThereUntilTheOtherEndIsClosed) {
    Pipe pipe;
    EXPECT_FALSE(Reader_Gone(pipe.ends[1]));
    pipe.Leave();
    EXPECT_TRUE(Reader_Gone(pipe.ends[1]));
}

TEST_F(Printed, AReaderOfAFileWhoHasEnoughIsNotToldAndTheRestIsWritten) {
    platform::Let_Writes_Fail(true);
    Pipe pipe;
    pipe.Leave();
    const Outcome outcome = Run({model, "--csv", pipe.Name(), "--svg", Path("a.svg")});
    EXPECT_EQ(outcome.status, kNobodyReads);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(fs::exists(Path("a.svg")));
    // Another failure of the same call is told all the same.
    Pipe second;
    second.Leave();
    const Outcome both = Run({model, "--csv", second.Name(), "--svg", Path("no folder/a.svg")});
    EXPECT_TRUE(both.err.starts_with("verlink-batch: " + Path("no folder/a.svg") + " cannot be written: ")) << both.err;
}

TEST_F(Printed, AnOpenFileIsOneWithItsNameAndWithItselfByNumber) {
    const int open = ::open(Path("a").c_str(), O_WRONLY | O_CREAT, 0600);
    ASSERT_GE(open, 0);
    const std::string number = "/dev/fd/" + std::to_string(open);
    for (const std::string& other : {Path("a"), number}) {
        const Outcome twice = Run({model, "--csv", other, "--svg", number});
        EXPECT_EQ(twice.status, 2);
        EXPECT_TRUE(twice.err.starts_with("verlink-batch: --svg and --csv are one file, " + number + "\n"))
            << twice.err;
    }
    EXPECT_EQ(Run({model, "--csv", number}).status, 0);
    ::close(open);
    EXPECT_EQ(Read(Path("a")), Run({model}).out);
    // Somebody is there, and yet it cannot be written.
    const int unwritable = ::open(Path("a").c_str(), O_RDONLY);
    const std::string name = "/dev/fd/" + std::to_string(unwritable);
    const Outcome refused = Run({model, "--csv", name});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err,
              "verlink-batch: " + name + " cannot be written: Device I/O error (it is not open for that)\n");
    ::close(unwritable);
}

TEST_F(Printed, StandardOutputIsNotTheModelThatItIsMadeOf) {
    const std::string before = Read(model);
    const int kept = ::dup(STDOUT_FILENO), over = ::open(model.c_str(), O_WRONLY | O_APPEND);
    ASSERT_GE(over, 0);
    ::dup2(over, STDOUT_FILENO);
    const Outcome printed = Run({model}), told = Run({model, "--save", "-"}), other = Run({model, "--csv", Path("a")});
    ::dup2(kept, STDOUT_FILENO);
    ::close(kept);
    ::close(over);
    EXPECT_EQ(printed.status, 2);
    EXPECT_TRUE(printed.err.starts_with("verlink-batch: standard output and the model are one file, " + model + "\n"))
        << printed.err;
    EXPECT_EQ(told.status, 2);
    EXPECT_TRUE(told.err.starts_with("verlink-batch: --save and the model are one file, -\n")) << told.err;
    EXPECT_EQ(other.status, 0) << "nothing is printed";
    EXPECT_EQ(Read(model), before);
}

/// As the system follows forty links, and no more.
TEST_F(Printed, AFileIsKnownBehindFortyLinks) {
    const auto chained = [&](const std::string& target, int links) {
        std::string last = target;
        for (int i = 1; i <= links; ++i) {
            const std::string link = target + " " + std::to_string(i);
            fs::create_symlink(last, Path(link));
            last = link;
        }
        return Path(last);
    };
    const std::string forty = chained("a", 40), more = chained("b", 41);
    const Outcome one = Run({model, "--csv", Path("a"), "--svg", forty});
    EXPECT_EQ(one.status, 2);
    EXPECT_TRUE(one.err.starts_with("verlink-batch: --svg and --csv are one file, " + forty + "\n")) << one.err;
    const Outcome two = Run({model, "--csv", Path("b"), "--svg", more});
    EXPECT_EQ(two.status, 1);
    EXPECT_TRUE(two.err.starts_with("verlink-batch: " + more + " cannot be written: ")) << two.err;
}

}  // namespace verlink::test
