// Which calls the program that sets pages takes over, and where it is found.
#include "batch/paper.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <optional>

#include "tests/batch/batch_fixture.h"

namespace verlink::test {

namespace fs = std::filesystem;

namespace {

using Words = std::vector<std::string>;

class Handing_Over : public BatchFixture {
   protected:
    Handing_Over() { fs::create_directories(Path("bin")); }
    /// A program that notes its own name and its words.
    void Install(const std::string& place) const {
        fs::create_directories(fs::path(Path(place)).parent_path());
        const std::string path = Write(place, "#!/bin/sh\necho " + place + " \"$@\" > '" + Path("started") + "'\n");
        fs::permissions(path, fs::perms::owner_all);
    }
    /// What is started in place of a process with these words; nothing where that one goes on.
    std::optional<std::string> Started(Words words) const {
        constexpr int kGoesOn = 77;
        std::string name = "verlink-batch";
        std::vector<char*> arguments{name.data()};
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const pid_t child = ::fork();
        if (child == 0) {
            Get_Ready_For_Paper(words, arguments.data(), Path("bin"));
            ::_exit(kGoesOn);
        }
        int state = 0;
        ::waitpid(child, &state, 0);
        EXPECT_TRUE(WIFEXITED(state));
        if (WEXITSTATUS(state) == kGoesOn) return {};
        EXPECT_EQ(WEXITSTATUS(state), 0);
        return Read(Path("started"));
    }
};

}  // namespace

TEST_F(Handing_Over, IsOfReportsAndOfGraphsAsPicturesWithTheSameWords) {
    Install("bin/verlink-paper");
    EXPECT_EQ(Started({"a.vlk", "--report", "a.pdf"}), "bin/verlink-paper a.vlk --report a.pdf\n");
    EXPECT_EQ(Started({"--report=a.pdf", "a.vlk"}), "bin/verlink-paper --report=a.pdf a.vlk\n");
    EXPECT_EQ(Started({"--plot", "Omega4", "--picture", "a.png", "a.vlk"}),
              "bin/verlink-paper --plot Omega4 --picture a.png a.vlk\n");
    EXPECT_EQ(Started({"a.vlk", "--picture=a.png", "--plot=Omega4"}),
              "bin/verlink-paper a.vlk --picture=a.png --plot=Omega4\n");
    for (const Words& words : {Words{}, Words{"a.vlk"}, Words{"a.vlk", "--picture", "a.png"},
                               Words{"a.vlk", "--plot", "Omega4", "--svg", "a.svg"}, Words{"a.vlk", "--reports"}})
        EXPECT_FALSE(Started(words)) << words.size();
}

TEST_F(Handing_Over, IsToTheProgramBesideOrElseToTheOneThatIsInstalledWithIt) {
    EXPECT_FALSE(Started({"a.vlk", "--report", "a.pdf"})) << "there is none";
    Install("libexec/verlink/verlink-paper");
    EXPECT_EQ(Started({"--report"}), "libexec/verlink/verlink-paper --report\n");
    Install("bin/verlink-paper");
    EXPECT_EQ(Started({"--report"}), "bin/verlink-paper --report\n");
}

}  // namespace verlink::test
