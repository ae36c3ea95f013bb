// Files that are no model, or a broken one: a report, never a crash, and a program that goes on.
#include <random>

#include "files/in_hand.h"
#include "platform/guard.h"
#include "tests/files/model_files.h"
#include "tests/files/moment.h"

namespace verlink::test {

namespace {

/// A desktop that keeps the messages instead of comparing them, for tests that cannot know each one.
class Listening : public ScriptedDesktop {
   public:
    std::vector<std::string> Messages;
    platform::Answer Show_Message(const platform::Message& message) override {
        Messages.push_back(message.text);
        return platform::Answer::kOk;
    }
};

/// "Error 62" from the words of a report; the whole text of any other message.
std::string Number_In(const std::string& message) {
    return message.starts_with("Error ") ? message.substr(0, message.find(' ', 6)) : message;
}

constexpr char kForeign[] = "This data file is not compatible with VERLINK. ";

std::string Report(int number, const std::string& words, const std::string& procedure) {
    return "Error " + std::to_string(number) + "   (" + words + ")  has occurred in " + procedure + "\r\n\r\n";
}
std::string Past_End() { return Report(62, "Input past end of file", "Read_Newfile"); }
std::string Mismatch() { return Report(13, "Type mismatch", "Read_Newfile"); }
std::string Overflow() { return Report(6, "Overflow", "Read_Newfile"); }
std::string Subscript(const std::string& procedure) { return Report(9, "Subscript out of range", procedure); }

}  // namespace

class Hostile : public ModelFiles {
   protected:
    ~Hostile() override { platform::Use_Desktop(&desktop); }

    /// Opens a file that a message refuses, and then sees that the model is as it was and the program still works.
    void Expect_Refused(const std::string& content, const std::string& message) {
        Run_Holds();
        const Moment before;
        desktop.Expect_Message(message);
        EXPECT_FALSE(Load_Model(content));
        EXPECT_EQ(before.Changed(), "");
        Expect_Usable();
    }

    static void Expect_Usable() {
        Convert_Units(1, 3);
        Convert_Units(3, 1);
        static const std::string good = Held(Fixture_File("torque_table.vlk"));
        EXPECT_TRUE(Load_Model(good));
        EXPECT_EQ(Model.L2, 8.25);
        EXPECT_EQ(Model.RunTable.ImportedTorque(4), 3);
    }

    const std::string valid = Held(Fixture_File("torque_table.vlk"));
};

TEST_F(Hostile, AnEmptyFile) { Expect_Refused("", Report(62, "Input past end of file", "Readfile")); }

TEST_F(Hostile, AFileOfTheTagAlone) {
    Expect_Refused("\"VERLINK\"", Report(62, "Input past end of file", "Readfile"));
    Expect_Refused("\"VERLINK\"\r\n", Report(62, "Input past end of file", "Readfile"));
}

TEST_F(Hostile, CutShortBehindEveryLine) {
    const auto lines = Lines(valid);
    Run_Holds();
    const Moment before;
    for (std::size_t kept = 2; kept < lines.size(); ++kept) {
        desktop.Expect_Message(Past_End());
        EXPECT_FALSE(Load_Model(Joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)}))) << kept;
        EXPECT_EQ(before.Changed(), "") << kept;
    }
    Expect_Usable();
}

TEST_F(Hostile, CutShortBehindEveryByte) {
    Listening listening;
    // The last number is as good cut short as whole, but for a point or a sign at its end.
    const std::size_t last = valid.find_last_of('\n', valid.size() - 2) + 1;
    for (std::size_t kept = 0; kept < valid.size(); ++kept) {
        listening.Messages.clear();
        const bool read = Load_Model(valid.substr(0, kept));
        if (kept > last) {
            EXPECT_TRUE(read) << kept;
            continue;
        }
        EXPECT_FALSE(read) << kept;
        ASSERT_EQ(listening.Messages.size(), 1U) << kept;
        const std::string told = Number_In(listening.Messages[0]);
        // Inside a number or a boolean what is left may be none of its kind.
        EXPECT_TRUE(told == "Error 62" || told == "Error 13") << kept << ": " << told;
    }
    Expect_Usable();
}

TEST_F(Hostile, EveryLineOfTheWrongKind) {
    const auto lines = Lines(valid);
    for (int line = 3; line <= static_cast<int>(lines.size()); ++line) {
        const std::string& held = lines[static_cast<std::size_t>(line - 1)];
        if (held.starts_with('"')) continue;
        for (const char* wrong : {"\"a text\"", "none", "", "#MAYBE#", "1.2.3", "--1", "1 2"}) {
            desktop.Expect_Message(Mismatch());
            EXPECT_FALSE(Load_Model(With_Line(valid, line, wrong))) << line << " " << wrong;
        }
    }
    Expect_Usable();
}

TEST_F(Hostile, NumbersAndBooleansInEachOthersPlaces) {
    Expect_Refused(With_Line(valid, 8, "#TRUE#"), Mismatch());
    Expect_Refused(With_Line(valid, 33, "1"), Mismatch());
    Expect_Refused(With_Line(valid, 33, "TRUE"), Mismatch());
}

TEST_F(Hostile, EveryNumberHuge) {
    const auto lines = Lines(valid);
    for (int line = 3; line <= 96; ++line) {
        const std::string& held = lines[static_cast<std::size_t>(line - 1)];
        if (held.starts_with('"') || held.starts_with('#')) continue;
        for (const char* huge : {"1E+39", "-1E+400", "99999999999999999999999999999999999999999"}) {
            desktop.Expect_Message(Overflow());
            EXPECT_FALSE(Load_Model(With_Line(valid, line, huge))) << line << " " << huge;
        }
    }
    Expect_Usable();
}

TEST_F(Hostile, ALineTooMany) {
    // Everything behind it stands one line too late: a text where the first number is wanted.
    auto lines = Lines(valid);
    lines.insert(lines.begin() + 4, "\"one more\"");
    Expect_Refused(Joined(lines), Mismatch());
}

TEST_F(Hostile, MoreStepsThanTheTableHas) {
    // Rows enough are there; the table ends at 2880.
    auto lines = Lines(valid);
    lines.resize(184);
    for (int step = 0; step < 33000; ++step) lines.emplace_back("1,2,3");
    const std::string many = Joined(lines);
    for (const char* steps : {"2881", "5000", "32767"})
        Expect_Refused(With_Line(many, 84, steps), Subscript("Read_Newfile"));
    // Without an imported run the same holds for the torques.
    Expect_Refused(With_Line(With_Line(many, 84, "2881"), 44, "1"), Subscript("Read_Newfile"));
    Expect_Refused(With_Line(many, 84, "32768"), Overflow());
}

TEST_F(Hostile, FewerThanNoSteps) {
    for (const char* steps : {"-1", "-435", "-32768"}) {
        EXPECT_TRUE(Load_Model(With_Line(valid, 84, steps))) << steps;
        Expect_Usable();
    }
}

TEST_F(Hostile, ARunTypeThatThereIsNot) {
    const std::string plain = Held(Fixture_File("rev9.vlk"));
    for (const char* type : {"0", "-1", "-32768"}) Expect_Refused(With_Line(plain, 44, type), Subscript("Readfile"));
    // Above 3 the drive table is wanted first.
    Expect_Refused(With_Line(plain, 44, "6"), Past_End());
    Expect_Refused(With_Line(valid, 44, "6"), Subscript("Readfile"));
    Expect_Refused(With_Line(valid, 44, "32767"), Subscript("Readfile"));
}

TEST_F(Hostile, AUnitSystemThatThereIsNot) {
    Expect_Refused(With_Line(valid, 45, "6"), Subscript("Readfile"));
    Expect_Refused(With_Line(valid, 45, "32767"), Subscript("Readfile"));
}

TEST_F(Hostile, LimitsThatCannotBeCounted) {
    const std::string angle = With_Line(Held(Fixture_File("rev9.vlk")), 44, "3");
    Expect_Refused(With_Line(angle, 42, "\"0\""), Report(11, "Division by zero", "Readfile"));
    Expect_Refused(With_Line(angle, 42, "\"0.0001\""), Report(6, "Overflow", "Readfile"));
    Expect_Refused(With_Line(angle, 41, "\"1E+300\""), Report(6, "Overflow", "Readfile"));
    Expect_Refused(With_Line(angle, 41, "\"1E+3000\""), Report(6, "Overflow", "Readfile"));
    const std::string time = With_Line(Held(Fixture_File("rev9.vlk")), 44, "2");
    Expect_Refused(With_Line(time, 36, "1E-30"), Report(6, "Overflow", "Readfile"));
}

TEST_F(Hostile, AngleStepsThatCountMoreThanTheTableHasLeaveAUsableModel) {
    // 90 degrees by 0.01 are 9000 steps, which an integer holds and the table does not.
    ASSERT_TRUE(Load_Model(With_Line(With_Line(Held(Fixture_File("rev9.vlk")), 44, "3"), 42, "\"0.01\"")));
    EXPECT_EQ(Model.NSteps, 9000);
    Expect_Usable();
}

TEST_F(Hostile, QuotesMissing) {
    std::string bare = valid;
    std::erase(bare, '"');
    EXPECT_TRUE(Load_Model(bare));
    EXPECT_EQ(Model.FigureTitle, "line 56");
    // One quote less takes the lines behind it into its string, up to one that has a quote at its end.
    Expect_Refused(With_Line(valid, 3, "\"line 3"), Mismatch());
    Expect_Refused(With_Line(valid, 184, "\"Last Item"), Past_End());
    // One at the front less is a text without quotes.
    EXPECT_TRUE(Load_Model(With_Line(valid, 3, "line 3\"")));
    EXPECT_EQ(Model.ModelName, "line 3\"");
}

TEST_F(Hostile, MegabytesOnOneLine) {
    const std::string much(8 * 1024 * 1024, 'x');
    const std::string digits(8 * 1024 * 1024, '7');
    desktop.Expect_Message(kForeign);
    EXPECT_FALSE(Load_Model(much));
    Expect_Refused("\"" + much, Report(62, "Input past end of file", "Readfile"));
    Expect_Refused(With_Line(valid, 8, digits), Overflow());
    Expect_Refused(With_Line(valid, 8, much), Overflow());
    Expect_Refused(With_Line(valid, 8, "0." + digits), Overflow());
    Expect_Refused(With_Line(valid, 4, "\"" + much + "\""), Overflow());
    Expect_Refused("\"VERLINK\"\r\n" + much, Report(6, "Overflow", "Readfile"));
    Expect_Refused(std::string(4 * 1024 * 1024, '"'), kForeign);
    Expect_Refused(std::string(4 * 1024 * 1024, ','), kForeign);
    Expect_Refused(std::string(4 * 1024 * 1024, '\0'), kForeign);
    Expect_Refused(std::string(4 * 1024 * 1024, ' '), Report(62, "Input past end of file", "Readfile"));
    Expect_Usable();
}

TEST_F(Hostile, AValueIsAsLongAsABoxCanMakeItAndNoLonger) {
    const std::string most(kLongestValue, 'x');
    EXPECT_TRUE(Load_Model(With_Line(valid, 4, "\"" + most + "\"")));
    EXPECT_EQ(Model.UserName.size(), most.size());
    EXPECT_TRUE(Load_Model(With_Line(valid, 8, "0." + std::string(kLongestValue - 2, '7'))));
    EXPECT_NEAR(Model.L2, 7.0 / 9, 1e-6);
    Expect_Refused(With_Line(valid, 4, "\"" + most + "x\""), Overflow());
    Expect_Refused(With_Line(valid, 4, most + "x"), Overflow());
    // What could not be read back is not taken from elsewhere either.
    EXPECT_TRUE(Set_File_Field("UserName", most));
    EXPECT_EQ(Failure_Of([&] { Set_File_Field("UserName", most + "x"); }), platform::kOverflow);
}

TEST_F(Hostile, TheSameInUtf16) {
    std::string wide = "\xff\xfe";
    for (const char c : valid) {
        wide += c;
        wide += '\0';
    }
    Expect_Refused(wide, kForeign);
}

TEST_F(Hostile, BinaryNoise) {
    Listening listening;
    std::mt19937 random(31);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<std::size_t> length(1, 4000);
    for (int i = 0; i < 2000; ++i) {
        std::string noise(length(random), '\0');
        for (char& c : noise) c = static_cast<char>(byte(random));
        // Every other one with the tag before it.
        const bool tagged = i % 2 == 1;
        listening.Messages.clear();
        EXPECT_FALSE(Load_Model((tagged ? "\"VERLINK\"\r\n\"9.0\"\r\n" : "") + noise));
        ASSERT_EQ(listening.Messages.size(), 1U);
        const std::string told = Number_In(listening.Messages[0]);
        EXPECT_TRUE(told == "Error 62" || told == "Error 13" || told == "Error 6" || (!tagged && told == kForeign))
            << told;
    }
    Expect_Usable();
}

TEST_F(Hostile, AValidFileWithBytesChangedAddedOrLost) {
    Listening listening;
    std::mt19937 random(62);
    const std::string bytes = std::string("\"#,.+-eE0123456789\r\n \tTRUEx\xff") + '\0';
    std::uniform_int_distribution<std::size_t> any(0, bytes.size() - 1);
    int read = 0, refused = 0;
    for (int i = 0; i < 6000; ++i) {
        std::string content = valid;
        for (int change = 0; change <= i % 4; ++change) {
            const std::size_t at = std::uniform_int_distribution<std::size_t>(0, content.size() - 1)(random);
            switch (random() % 3) {
                case 0: content[at] = bytes[any(random)]; break;
                case 1: content.insert(at, 1, bytes[any(random)]); break;
                default: content.erase(at, 1); break;
            }
        }
        listening.Messages.clear();
        const std::string before = i % 20 == 0 ? File_Content() : "";
        const bool whole = Load_Model(content);
        whole ? ++read : ++refused;
        EXPECT_EQ(whole, listening.Messages.empty());
        if (!whole && !before.empty()) {
            EXPECT_EQ(File_Content(), before) << content;
        }
        for (const auto& message : listening.Messages) {
            const std::string told = Number_In(message);
            EXPECT_TRUE(told == "Error 62" || told == "Error 13" || told == "Error 6" || told == "Error 9" ||
                        told == "Error 11" || told == kForeign)
                << told;
        }
        // What was made of it can be put into a file, but for steps that the table does not have.
        if (Model.NSteps <= kLastStep) {
            EXPECT_GT(File_Content().size(), 500U);
        }
    }
    EXPECT_GT(read, 1000);
    EXPECT_GT(refused, 1000);
    Expect_Usable();
}

TEST_F(Hostile, ThroughTheMenuTheProgramStaysUsable) {
    auto& home = platform::Screens::Get("frm_HomeScreen");
    Put_File(Path("bad.vlk"), With_Line(valid, 44, "9"));
    // 90 degrees by 0.01 are 9000 steps; the table for a drive of 5000 steps ends at 2881.
    const std::string many = With_Line(With_Line(Held(Fixture_File("rev9.vlk")), 44, "3"), 42, "\"0.01\"");
    Put_File(Path("many.vlk"), many);
    Put_File(Path("long.vlk"), With_Line(valid, 84, "5000"));
    Model_Saved();
    Model_Kept();
    desktop.Expect_Open(Path("bad.vlk"));
    desktop.Expect_Message(Subscript("Readfile"));
    Menu_Open(home);
    // Without the input screen, which would refuse to calculate so many.
    Model.JustStarted = true;
    desktop.Expect_Open(Path("many.vlk"));
    Menu_Open(home);
    EXPECT_EQ(Model.NSteps, 9000);
    Model.JustStarted = false;
    desktop.Expect_Open(Path("long.vlk"));
    desktop.Expect_Message(Past_End());
    Menu_Open(home);
    EXPECT_EQ(Model.NSteps, 9000) << "of the model before";
    desktop.Expect_Open(Fixture_File("rev9.vlk"));
    Expect_Read(Fixture_File("rev9.vlk"));
    Menu_Open(home);
    EXPECT_EQ(Model.ModelName, "rev9");
    EXPECT_EQ(Model.Calctype, 1);
}

}  // namespace verlink::test
