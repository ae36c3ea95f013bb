// Settings from session to session: what comes back, and what of a broken file does not.
#include "platform/settings.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "platform/file_system.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

using platform::Settings;
namespace fs = std::filesystem;

class SettingsTest : public Fixture {
   protected:
    std::string Folder() const { return Path("config/verlink"); }
    std::string File() const { return Folder() + "/settings"; }
    void Hold(const std::string& content) {
        fs::create_directories(Folder());
        std::ofstream(File(), std::ios::binary) << content;
    }
    Settings Opened() {
        Settings settings;
        settings.Open(Folder());
        return settings;
    }
};

const std::vector<std::string> kAwkward = {"a b", "",    "tab\there", "two\nlines", "back\\slash\\n",
                                           "a=b", "\\t", "ä",         "its end\n",  "\\"};

TEST_F(SettingsTest, WhatWasPutComesBackInTheNextSession) {
    Settings first = Opened();
    first.Put("screen.size", "maximized");
    first.Put("recent", kAwkward);
    first.Put("number", "-17");
    for (const std::string& text : kAwkward) {
        first.Put("text", text);
        first.Save();
        EXPECT_EQ(Opened().Text("text"), text);
    }
    const Settings second = Opened();
    EXPECT_EQ(second.Text("screen.size"), "maximized");
    EXPECT_EQ(second.List("recent"), kAwkward);
    EXPECT_EQ(second.Number("number"), -17);
}

TEST_F(SettingsTest, WhatWasPutForOneFolderDoesNotGoToTheNext) {
    Settings settings = Opened();
    settings.Put("a", "1");
    settings.Open(Path("other"));
    settings.Put("b", "2");
    settings.Save();
    EXPECT_FALSE(settings.Has("a"));
    EXPECT_EQ(platform::Read_File(Path("other/settings")), "Verlink settings 1\nb=2\n");
}

TEST_F(SettingsTest, NothingIsThereUntilItWasPut) {
    const Settings settings = Opened();
    EXPECT_FALSE(settings.Has("a"));
    EXPECT_EQ(settings.Text("a"), "");
    EXPECT_EQ(settings.Number("a"), std::nullopt);
    EXPECT_TRUE(settings.List("a").empty());
}

TEST_F(SettingsTest, AnEmptyListIsOneAndAListOfAnEmptyTextAnother) {
    Settings settings = Opened();
    settings.Put("none", std::vector<std::string>{});
    settings.Put("one", std::vector<std::string>{""});
    settings.Save();
    EXPECT_TRUE(Opened().Has("none"));
    EXPECT_TRUE(Opened().List("none").empty());
    EXPECT_EQ(Opened().List("one"), std::vector<std::string>{""});
}

TEST_F(SettingsTest, ATextThatIsNoWholeNumberIsNone) {
    Settings settings = Opened();
    for (const char* text : {"", "1.5", "12x", " 3", "99999999999999999999"}) {
        settings.Put("n", text);
        EXPECT_EQ(settings.Number("n"), std::nullopt) << text;
    }
}

TEST_F(SettingsTest, ABrokenFileCountsAsNoneAndIsReplacedByAWholeOne) {
    const std::string noise("\x00\x01\xff\n=\n\n\\", 9);
    for (const std::string& content :
         {noise, std::string("a=1\n"), std::string(), std::string("Verlink settings 2\na=1\n"),
          "Verlink settings 1\na=1\n" + noise, std::string(3 << 20, 'x'),
          "Verlink settings 1\na=1\nb=" + std::string(3 << 20, 'x') + "\n"}) {
        Hold(content);
        Settings settings = Opened();
        EXPECT_FALSE(settings.Has("a")) << content.size() << " bytes";
        settings.Put("b", "2");
        settings.Save();
        EXPECT_EQ(platform::Read_File(File()), "Verlink settings 1\nb=2\n");
    }
}

TEST_F(SettingsTest, ANameHasLettersDigitsPointsAndUnderlines) {
    std::string content = "Verlink settings 1\n";
    for (const char letter : std::string("azAZ09._`{@[/:-")) content += std::string("n") + letter + "=1\n";
    Hold(content);
    const Settings settings = Opened();
    for (const char letter : std::string("azAZ09._")) EXPECT_TRUE(settings.Has(std::string("n") + letter)) << letter;
    for (const char letter : std::string("`{@[/:-")) EXPECT_FALSE(settings.Has(std::string("n") + letter)) << letter;
}

TEST_F(SettingsTest, AListThatIsPutAgainIsWrittenWhereItIsAnother) {
    Settings settings = Opened();
    settings.Put("recent", std::vector<std::string>{"a", "b"});
    settings.Save();
    fs::remove(File());
    settings.Put("recent", std::vector<std::string>{"a", "b"});
    settings.Save();
    EXPECT_FALSE(fs::exists(File()));
    settings.Put("recent", std::vector<std::string>{"b"});
    settings.Save();
    EXPECT_EQ(Opened().List("recent"), std::vector<std::string>{"b"});
}

TEST_F(SettingsTest, AFileOfAMegabyteIsReadAndNoLargerOne) {
    const std::string head = "Verlink settings 1\na=1\nb=";
    const std::size_t most = 1024 * 1024;
    Hold(head + std::string(most - head.size() - 1, 'x') + "\n");
    EXPECT_TRUE(Opened().Has("b"));
    Hold(head + std::string(most - head.size(), 'x') + "\n");
    EXPECT_FALSE(Opened().Has("a"));
}

TEST_F(SettingsTest, OfAFileThatWasCutOffTheWholeLinesCount) {
    Hold("Verlink settings 1\na=1\nno sign\n=5\na b=5\nb=2\nc=3");
    const Settings settings = Opened();
    EXPECT_EQ(settings.Text("a"), "1");
    EXPECT_EQ(settings.Text("b"), "2");
    EXPECT_FALSE(settings.Has("c")) << "it may have been 31";
    EXPECT_FALSE(settings.Has("a b"));
}

TEST_F(SettingsTest, WhatIsNoFileIsNotReadAndHoldsNothingUp) {
    fs::create_directories(File());
    EXPECT_FALSE(Opened().Has("a"));
    fs::remove(File());
    ASSERT_EQ(::mkfifo(File().c_str(), 0600), 0);
    EXPECT_FALSE(Opened().Has("a")) << "nobody writes into the pipe";
}

TEST_F(SettingsTest, WhereNothingCanBeWrittenNobodyIsTold) {
    Hold("Verlink settings 1\na=1\n");
    fs::remove_all(Folder());
    std::ofstream(Folder()) << "a file in the place of the folder";
    Settings settings = Opened();
    settings.Put("b", "2");
    settings.Save();
    EXPECT_EQ(settings.Text("b"), "2") << "for this session";
}

TEST_F(SettingsTest, WithoutAFolderNothingIsWritten) {
    Settings settings;
    settings.Open("");
    settings.Put("a", "1");
    settings.Save();
    settings.Look_Again();
    EXPECT_EQ(settings.Text("a"), "1");
    EXPECT_FALSE(fs::exists(Path("config")));
    EXPECT_FALSE(fs::exists("settings"));
}

TEST_F(SettingsTest, TwoSessionsAtOnceKeepWhatEachHasPut) {
    Settings one = Opened(), other = Opened();
    one.Put("a", "1");
    one.Put("both", "one");
    one.Save();
    other.Put("b", "2");
    other.Put("both", "other");
    other.Save();
    const Settings next = Opened();
    EXPECT_EQ(next.Text("a"), "1");
    EXPECT_EQ(next.Text("b"), "2");
    EXPECT_EQ(next.Text("both"), "other");
    one.Look_Again();
    EXPECT_EQ(one.Text("b"), "2");
}

TEST_F(SettingsTest, AFileIsWrittenOnlyWhenSomethingHasChanged) {
    Settings settings = Opened();
    settings.Save();
    EXPECT_FALSE(fs::exists(File()));
    settings.Put("a", "1");
    settings.Save();
    fs::remove(File());
    settings.Put("a", "1");
    settings.Save();
    EXPECT_FALSE(fs::exists(File()));
}

}  // namespace
}  // namespace verlink::test
