// A copy of what was not saved: how it lies in a file, and how it is kept fresh.
#include "shell/copy.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "platform/file_system.h"
#include "platform/guard.h"
#include "platform/process.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using std::chrono::system_clock;

Model_Copy Some_Copy(const std::string& content) {
    return {"/models/press.vlk", "press", content, "{}\n", system_clock::time_point(1763780000123ms)};
}

Model_To_Copy Some_Model(const std::string& head) {
    return {"/models/press.vlk", "press", {head, {}, {}}, {}, system_clock::time_point(1763780000123ms)};
}

class CopyTest : public Fixture {
   protected:
    std::string File() const { return Path("copy"); }
    std::optional<Model_Copy> Held() const {
        std::string text;
        if (Failure_Of([&] { text = platform::Read_File(File()); }) != 0) return {};
        return Copy_Of(text);
    }
    bool Comes(const std::string& content, std::chrono::milliseconds within) const {
        const auto end = steady_clock::now() + within;
        while (steady_clock::now() < end) {
            if (const auto held = Held(); held && held->content == content) return true;
            std::this_thread::sleep_for(1ms);
        }
        return false;
    }
};

TEST_F(CopyTest, ACopyTellsAgainWhatWasPutIntoIt) {
    for (const std::string path : {"/models/press.vlk", "", "/a \"b\",c%41/\xc3\xa4\n.vlk", "/ends in/"}) {
        const Model_Copy copy{path, "a\r\nname", "\"VERLINK\"\r\nsize 3\nand more", "{\n}\n",
                              system_clock::time_point(17637ms)};
        const auto back = Copy_Of(Copy_Text(copy));
        ASSERT_TRUE(back) << path;
        EXPECT_EQ(back->path, copy.path);
        EXPECT_EQ(back->name, copy.name);
        EXPECT_EQ(back->content, copy.content);
        EXPECT_EQ(back->tasks, copy.tasks);
        EXPECT_EQ(back->changed, copy.changed);
    }
}

TEST_F(CopyTest, OneOfAnEarlierProgramHasNoTasks) {
    std::string text = Copy_Text(Some_Copy("\"VERLINK\"\r\n"));
    text.erase(text.find("tasks 3\n"), 8);
    text.resize(text.size() - 3);
    const auto back = Copy_Of(text);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->content, "\"VERLINK\"\r\n");
    EXPECT_EQ(back->tasks, "");
}

TEST_F(CopyTest, ACountThatIsNoNumberIsOfNothing) {
    Model_Copy none = Some_Copy("");
    none.tasks.clear();
    for (const std::string count : {"size ", "tasks "}) {
        std::string text = Copy_Text(none);
        text.replace(text.find(count + "0\n"), count.size() + 1, count + "x");
        const auto back = Copy_Of(text);
        ASSERT_TRUE(back) << count;
        EXPECT_EQ(back->content + back->tasks, "");
    }
}

TEST_F(CopyTest, WhatIsNotWholeIsNoCopy) {
    const std::string text = Copy_Text(Some_Copy("\"VERLINK\"\r\n"));
    ASSERT_TRUE(Copy_Of(text));
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_FALSE(Copy_Of(text.substr(0, length))) << length;
    EXPECT_FALSE(Copy_Of(text + "x"));
    EXPECT_FALSE(Copy_Of("\"VERLINK\"\r\n"));
    for (const std::string word : {"path ", "name ", "changed ", "size "}) {
        std::string lacks = text;
        const std::size_t line = lacks.find(word);
        lacks.erase(line, lacks.find('\n', line) + 1 - line);
        EXPECT_FALSE(Copy_Of(lacks)) << word;
    }
}

TEST_F(CopyTest, OfCopiesThatWereLeftTheNewestComesFirst) {
    platform::Process dead = platform::This_Process();
    const std::string folder = Path("left/");
    platform::Make_Folder(folder);
    for (const int minutes : {3, 1, 5, 2, 4}) {
        dead.start -= 1;
        Model_Copy copy = Some_Copy("");
        copy.changed += std::chrono::minutes(minutes);
        copy.name = std::to_string(minutes);
        platform::Write_File(Copy_File(folder, dead), Copy_Text(copy));
    }
    std::string names;
    for (const Left_Copy& left : Left_Copies(folder)) names += left.copy.name;
    EXPECT_EQ(names, "54321");
}

TEST_F(CopyTest, OnlyPlainFilesOfThatNameAreCopiesThatWereLeft) {
    platform::Process dead = platform::This_Process();
    const auto next = [&dead] {
        dead.start -= 1;
        return dead;
    };
    const std::string folder = Path("left/"), text = Copy_Text(Some_Copy("\"VERLINK\"\r\n"));
    platform::Make_Folder(folder);
    const auto leave = [&](const std::string& name) { platform::Write_File(folder + name, text); };
    const std::string left = platform::Name_Of(next()) + ".copy";
    leave(left);
    leave(platform::Name_Of(next()) + ".kept");
    leave("no process.copy");
    platform::Process parent = platform::This_Process();
    parent.number = ::getppid();
    parent.start = 0;
    for (const platform::Process& running : {platform::This_Process(), parent})
        leave(platform::Name_Of(running) + ".copy");
    std::filesystem::create_symlink(folder + left, folder + platform::Name_Of(next()) + ".copy");
    std::filesystem::create_directory(folder + platform::Name_Of(next()) + ".copy");
    platform::Write_File(folder + platform::Name_Of(next()) + ".copy", "something else");
    const auto found = Left_Copies(folder);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].file, folder + left);
    EXPECT_EQ(found[0].copy.name, "press");
}

TEST_F(CopyTest, AgesAreToldInWholeUnits) {
    EXPECT_EQ(Age_In_Words(-5s), "less than a minute ago");
    EXPECT_EQ(Age_In_Words(59s), "less than a minute ago");
    EXPECT_EQ(Age_In_Words(60s), "1 minute ago");
    EXPECT_EQ(Age_In_Words(59min), "59 minutes ago");
    EXPECT_EQ(Age_In_Words(60min), "1 hour ago");
    EXPECT_EQ(Age_In_Words(47h), "47 hours ago");
    EXPECT_EQ(Age_In_Words(48h), "2 days ago");
}

TEST_F(CopyTest, TheFirstIsWrittenAtOnceForItsOwnerAlone) {
    Copy_Keeper keeper(File(), 1h);
    std::this_thread::sleep_for(2ms);  // it waits for something to do
    keeper.Keep(Some_Model("first"));
    ASSERT_TRUE(Comes("first", 10s));
    EXPECT_EQ(Held()->path, "/models/press.vlk");
    struct stat status {};
    ASSERT_EQ(::stat(File().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST_F(CopyTest, WhileItRestsNothingIsWritten) {
    Copy_Keeper keeper(File(), 1h);
    keeper.Keep(Some_Model("first"));
    ASSERT_TRUE(Comes("first", 10s));
    keeper.Keep(Some_Model("second"));
    EXPECT_FALSE(Comes("second", 60ms));
    EXPECT_EQ(Held()->content, "first");
}

TEST_F(CopyTest, OfThoseThatComeWhileItRestsTheNewestIsWritten) {
    Copy_Keeper keeper(File(), 20ms);
    keeper.Keep(Some_Model("first"));
    ASSERT_TRUE(Comes("first", 10s));
    for (int i = 0; i < 1000; ++i) keeper.Keep(Some_Model(std::to_string(i)));
    EXPECT_TRUE(Comes("999", 10s));
}

TEST_F(CopyTest, WhatWasDroppedGoesAndMayComeAgain) {
    Copy_Keeper keeper(File(), 1ms);
    keeper.Keep(Some_Model("first"));
    ASSERT_TRUE(keeper.Flush());
    keeper.Drop();
    ASSERT_TRUE(keeper.Flush());
    EXPECT_FALSE(platform::File_Exists(File()));
    keeper.Keep(Some_Model("first"));
    ASSERT_TRUE(keeper.Flush());
    EXPECT_EQ(Held()->content, "first");
}

TEST_F(CopyTest, AFlushWaitsForTheDiskAndForNoRest) {
    Copy_Keeper keeper(File(), 1h);
    for (const char* content : {"first", "second", "third"}) {
        keeper.Keep(Some_Model(content));
        std::this_thread::sleep_for(2ms);  // it is at rest again
        ASSERT_TRUE(keeper.Flush(1h)) << "it is woken once the copy lies there";
        EXPECT_EQ(Held()->content, content);
    }
    keeper.Keep(Some_Model("fourth"));
    EXPECT_FALSE(Comes("fourth", 20ms)) << "the hurry is over";
    ASSERT_TRUE(keeper.Flush());
    ASSERT_TRUE(keeper.Flush()) << "nothing to hurry for";
    keeper.Keep(Some_Model("fifth"));
    EXPECT_FALSE(Comes("fifth", 20ms));
}

TEST_F(CopyTest, WhatIsKeptAlreadyIsNotWrittenAgainAndWhatIsNamedOtherwiseIs) {
    Copy_Keeper keeper(File(), 1h);
    keeper.Keep(Some_Model("first"));
    ASSERT_TRUE(keeper.Flush());
    std::filesystem::remove(File());
    keeper.Keep(Some_Model("first"));
    ASSERT_TRUE(keeper.Flush());
    EXPECT_FALSE(Held()) << "it was not written again";
    Model_To_Copy other = Some_Model("first");
    other.path = "/models/other.vlk";
    keeper.Keep(other);
    ASSERT_TRUE(keeper.Flush());
    ASSERT_TRUE(Held());
    EXPECT_EQ(Held()->path, "/models/other.vlk");
    other.name = "other";
    keeper.Keep(other);
    ASSERT_TRUE(keeper.Flush());
    EXPECT_EQ(Held()->name, "other");
}

TEST_F(CopyTest, AFrozenCopyStaysAsItIs) {
    Copy_Keeper keeper(File(), 1ms);
    keeper.Keep(Some_Model("first"));
    keeper.Freeze();
    keeper.Keep(Some_Model("second"));
    keeper.Drop();
    ASSERT_TRUE(keeper.Flush());
    EXPECT_EQ(Held()->content, "first");
}

TEST_F(CopyTest, TheEndWaitsForWhatWasToBeWritten) {
    {
        Copy_Keeper keeper(File(), 1h);
        keeper.Keep(Some_Model("first"));
        keeper.Keep(Some_Model("second"));
    }
    EXPECT_EQ(Held()->content, "second");
}

TEST_F(CopyTest, WhatCouldNotBeWrittenIsTriedAgain) {
    Copy_Keeper keeper(Path("folder/copy"), 1ms);
    keeper.Keep(Some_Model("first"));
    EXPECT_FALSE(keeper.Flush(1h)) << "it is told as soon as that is known";
    platform::Make_Folder(Path("folder"));
    const auto end = steady_clock::now() + 20s;
    while (!platform::File_Exists(Path("folder/copy")) && steady_clock::now() < end) std::this_thread::sleep_for(10ms);
    EXPECT_TRUE(Copy_Of(platform::Read_File(Path("folder/copy"))));
}

TEST_F(CopyTest, TheEndComesAlsoWhereNothingCanBeWritten) {
    Copy_Keeper keeper(Path("folder/copy"), 1ms);
    keeper.Keep(Some_Model("first"));
}

TEST_F(CopyTest, AFlushTriesAgainWhatHasFailed) {
    for (const std::string folder : {"one", "two", "three", "four", "five"}) {
        Copy_Keeper keeper(Path(folder + "/copy"), 1h);
        keeper.Keep(Some_Model("first"));
        ASSERT_FALSE(keeper.Flush());
        platform::Make_Folder(Path(folder));
        EXPECT_TRUE(keeper.Flush());
        EXPECT_TRUE(Copy_Of(platform::Read_File(Path(folder + "/copy"))));
    }
}

}  // namespace
}  // namespace verlink::test
