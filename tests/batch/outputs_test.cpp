// Where the results of a batch go: never over an input or another result, nowhere when the run fails, and on to what is
// open already.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>

#include "tests/batch/batch_fixture.h"
#include "tests/support/failing_system.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

struct Outputs : BatchFixture {
    const std::string model = Write(ModelText());

    /// A line of the shell, with %B for the program, in the test's folder.
    Outcome Shell(std::string line) const {
        for (std::size_t at = 0; (at = line.find("%B", at)) != std::string::npos;) line.replace(at, 2, VERLINK_BATCH);
        line = "cd " + Path("") + " && exec 2> " + Path("errors") + "; " + line;
        const std::string call = "bash -c '" + line + "'";
        FILE* pipe = ::popen(call.c_str(), "r");
        std::string out;
        char block[4096];
        while (const std::size_t count = std::fread(block, 1, sizeof block, pipe)) out.append(block, count);
        const int state = ::pclose(pipe);
        return {WIFEXITED(state) ? WEXITSTATUS(state) : -1, out, Read(Path("errors"))};
    }
    std::string Table() const { return Run({model}).out; }

    void Expect_Refused(const std::vector<std::string>& options, const std::string& fault) const {
        std::vector<std::string> arguments{model};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const auto before = Files();
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.status, 2) << fault;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err.substr(0, outcome.err.find('\n')), "verlink-batch: " + fault);
        EXPECT_EQ(Files(), before);
    }
    /// All files of the folder with what they hold.
    std::vector<std::pair<std::string, std::string>> Files() const {
        std::vector<std::pair<std::string, std::string>> files;
        for (const auto& entry : fs::directory_iterator(Path("")))
            if (entry.is_regular_file()) files.emplace_back(entry.path(), Read(entry.path()));
        std::ranges::sort(files);
        return files;
    }
};

}  // namespace

// ---- one file for two ---------------------------------------------------------------------------------------------

TEST_F(Outputs, NoneIsAnInput) {
    for (const char* option : {"--csv", "--svg", "--save", "--export-out", "--export-pdx"})
        Expect_Refused({option, model}, std::string(option) + " and the model are one file, " + model);
    const std::string drive = Write("a.out", "drive"), torque = Write("a.trq", "torque");
    Expect_Refused({"--drive", drive, "--export-out", drive}, "--export-out and --drive are one file, " + drive);
    Expect_Refused({"--dynamics", "--torque", torque, "--export-trq", torque},
                   "--export-trq and --torque are one file, " + torque);
}

TEST_F(Outputs, NoneIsAnInputByAnotherName) {
    fs::create_symlink("model.vlk", Path("link.vlk"));
    fs::create_hard_link(model, Path("twin.vlk"));
    fs::create_directory(Path("sub"));
    for (const std::string& name : {Path("link.vlk"), Path("twin.vlk"), Path("sub/../model.vlk"), Path("./model.vlk")})
        Expect_Refused({"--csv", name}, "--csv and the model are one file, " + name);
}

TEST_F(Outputs, NoTwoAreOneFile) {
    Expect_Refused({"--csv", Path("a"), "--svg", Path("a")}, "--svg and --csv are one file, " + Path("a"));
    fs::create_directory(Path("sub"));
    Expect_Refused({"--csv", Path("a"), "--save", Path("sub/../a")},
                   "--save and --csv are one file, " + Path("sub/../a"));
    fs::create_symlink("b", Path("to b"));
    Expect_Refused({"--csv", Path("b"), "--svg", Path("to b")}, "--svg and --csv are one file, " + Path("to b"));
    fs::create_directory_symlink("sub", Path("to sub"));
    Expect_Refused({"--csv", Path("sub/c"), "--svg", Path("to sub/c")},
                   "--svg and --csv are one file, " + Path("to sub/c"));
    const std::string there = Write("there", "");
    fs::create_hard_link(there, Path("twin"));
    Expect_Refused({"--csv", there, "--svg", Path("twin")}, "--svg and --csv are one file, " + Path("twin"));
    EXPECT_EQ(Run({model, "--csv", "/dev/null", "--svg", "/dev/null"}).status, 0);
}

TEST_F(Outputs, StandardOutputIsNoInputAndNoOtherOutputEither) {
    const std::string before = Read(model);
    const Outcome over = Shell("%B model.vlk >> model.vlk");
    EXPECT_EQ(over.status, 2);
    EXPECT_TRUE(over.err.starts_with("verlink-batch: standard output and the model are one file, model.vlk\n"))
        << over.err;
    EXPECT_EQ(Read(model), before);
    const Outcome twice = Shell("%B model.vlk --csv - --svg /dev/stdout");
    EXPECT_EQ(twice.status, 2);
    EXPECT_EQ(twice.out, "");
    EXPECT_TRUE(twice.err.starts_with("verlink-batch: --svg and --csv are one file, /dev/stdout\n")) << twice.err;
    EXPECT_EQ(Shell("%B model.vlk --classify --csv table > table").status, 2);
}

// ---- nothing is saved of a run that failed ------------------------------------------------------------------------

TEST_F(Outputs, NothingIsSavedWhenTheRunFails) {
    const std::string unsaved = "verlink-batch: " + Path("out.vlk") + " is not saved, since the run failed\n";
    const auto expect_unsaved = [&](const ModelText& text, std::vector<std::string> options) {
        const std::string old = Write("out.vlk", "old");
        options.insert(options.end(), {"--save", old, "--csv", Path("out.csv")});
        const Outcome outcome = Run(text, options);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_TRUE(outcome.err.ends_with(unsaved)) << outcome.err;
        EXPECT_EQ(Read(old), "old");
    };
    expect_unsaved(ModelText().Angles("90", "10", "5"), {});
    expect_unsaved(ModelText().Linkage({"10", "1", "2", "3"}, "1", "0"), {});
    expect_unsaved(ModelText().Set(kCalctype, "1"), {"--fft", "Omega4"});
    EXPECT_FALSE(fs::exists(Path("out.csv")));
    // Without a run nothing can fail but the saving.
    EXPECT_EQ(Run(ModelText().Angles("90", "10", "5"), {"--save", Path("out.vlk")}).status, 0);
    EXPECT_NE(Read(Path("out.vlk")), "old");
}

// ---- what is open already -----------------------------------------------------------------------------------------

TEST_F(Outputs, StandardOutputHasManyNamesAndKeepsWhatIsThere) {
    const std::string table = Table();
    for (const char* name : {"-", "/dev/stdout", "/dev/fd/1", "/proc/self/fd/1"}) {
        const Outcome outcome = Shell(std::string("(echo before; %B model.vlk --csv ") + name + "; echo after) > both");
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_EQ(Read(Path("both")), "before\n" + table + "after\n") << name;
    }
    Write("both", "before\n");
    Shell("%B model.vlk --csv /dev/stdout >> both");
    EXPECT_EQ(Read(Path("both")), "before\n" + table);
    EXPECT_EQ(Shell("%B model.vlk --csv /dev/stdout | cat").out, table);
}

TEST_F(Outputs, WhatIsPrintedComesBeforeWhatIsToldToGoThereToo) {
    const Outcome outcome = Shell("%B model.vlk --classify --csv -");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "Grashof_Code,LongText,ToggleDegrees\nY,Linkage is Grashof,\n" + Table());
}

TEST_F(Outputs, AModelAndADrawingGoToStandardOutputToo) {
    EXPECT_EQ(Shell("%B model.vlk --save -").out, ModelText().Content());
    EXPECT_EQ(Run({model, "--save", "-"}).out, ModelText().Content());
    EXPECT_EQ(Shell("%B model.vlk --csv table --svg -").out.substr(0, 5), "<svg ");
}

TEST_F(Outputs, OpenFilesAndProcessesOfTheShellTakeResults) {
    const std::string table = Table();
    Shell("exec 7> seven; echo before >&7; %B model.vlk --csv /dev/fd/7; echo after >&7");
    EXPECT_EQ(Read(Path("seven")), "before\n" + table + "after\n");
    const Outcome piped = Shell("%B model.vlk --csv >(cat > piped) --svg >(cat > drawn); sleep 0.5");
    EXPECT_EQ(piped.err, "");
    EXPECT_EQ(Read(Path("piped")), table);
    EXPECT_EQ(Read(Path("drawn")).substr(0, 5), "<svg ");
    EXPECT_EQ(Shell("%B model.vlk --csv /dev/fd/9").err,
              "verlink-batch: /dev/fd/9 cannot be written: Device I/O error (it is not open for that)\n");
}

TEST_F(Outputs, WhatCannotBePrintedIsAFailure) {
    for (const char* option : {"--help", "--version"}) {
        const Outcome outcome = Spawn({option}, "/dev/full");
        EXPECT_EQ(outcome.status, 1) << option;
        EXPECT_EQ(outcome.err, "verlink-batch: standard output cannot be written\n");
    }
    EXPECT_EQ(Spawn({model, "--csv", "-"}, "/dev/full").status, 1);
    EXPECT_EQ(Shell("%B --help >&-").status, 1);
}

TEST_F(Outputs, AFileThatMayNotGrowSoLargeIsAFailureAndNotTheEnd) {
    Write("table", "old");
    const Outcome outcome = Shell("ulimit -f 1; %B model.vlk --csv table; echo $?");
    EXPECT_EQ(outcome.out, "1\n");
    EXPECT_EQ(outcome.err,
              "verlink-batch: table cannot be written: Disk full (it would be larger than a file may be)\n");
    EXPECT_EQ(Read(Path("table")), "old");
}

// ---- what is opened -----------------------------------------------------------------------------------------------

TEST_F(Outputs, PipesDevicesAndEndlessFilesAreRefusedAtOnce) {
    Shell("mkfifo pipe; truncate -s 1T huge.vlk");
    const auto start = std::chrono::steady_clock::now();
    const auto words = [&](const std::string& line) { return Shell("%B " + line).err; };
    const std::string refused = " cannot be read: Path/File access error (";
    EXPECT_EQ(words("pipe"), "verlink-batch: pipe" + refused + "it is a pipe and no file)\n");
    EXPECT_EQ(words("/dev/zero"), "verlink-batch: /dev/zero" + refused + "it is a device and no file)\n");
    EXPECT_EQ(words("huge.vlk"), "verlink-batch: huge.vlk" + refused + "it is larger than 64 MiB)\n");
    EXPECT_EQ(words("model.vlk --drive pipe.out"),
              "verlink-batch: pipe.out cannot be imported: File not found (there is no such file)\n");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

// ---- each writer, each call ---------------------------------------------------------------------------------------

struct BatchWriter {
    const char* option;
    bool dynamics;
};

class BatchWriters : public Outputs, public testing::WithParamInterface<BatchWriter> {};

TEST_P(BatchWriters, LeaveTheOldFileOrTheNewOneWholeAndTellWhicheverCallFails) {
    fs::create_directory(Path("out"));
    const std::string path = Path("out/a.file");
    std::vector<std::string> told;
    const auto arguments = [&] {
        std::vector<std::string> words{"--example", "grashof", GetParam().option, path};
        if (GetParam().dynamics) words.emplace_back("--dynamics");
        return words;
    };
    const int calls = Expect_Whole_Whatever_Fails({.path = path,
                                                   .old = "old",
                                                   .write = [&] { told.push_back(Run(arguments()).err); },
                                                   .told = [&] { return std::exchange(told, {}); }});
    EXPECT_GE(calls, 10);
}

INSTANTIATE_TEST_SUITE_P(All, BatchWriters,
                         testing::Values(BatchWriter{"--csv", false}, BatchWriter{"--svg", false},
                                         BatchWriter{"--save", false}, BatchWriter{"--export-out", false},
                                         BatchWriter{"--export-trq", true}, BatchWriter{"--export-pdx", false}),
                         [](const auto& writer) {
                             std::string name = writer.param.option;
                             std::erase(name, '-');
                             return name;
                         });

}  // namespace verlink::test
