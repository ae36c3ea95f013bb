// From the process that dies to the one that comes after it: the copy, the offer, and what is cleaned up.
#include "shell/recovery.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "files/in_hand.h"
#include "files/model_file.h"
#include "platform/deed.h"
#include "platform/file_system.h"
#include "platform/temporaries.h"
#include "shell/copy.h"
#include "shell/history.h"
#include "shell/initialize.h"
#include "shell/run_log.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"

namespace verlink::test {
namespace {

namespace fs = std::filesystem;
using platform::Answer;
using platform::Buttons;
using platform::Icon;

/// Milliseconds that a copy is waited for.
constexpr int kPatience = 20000;
constexpr char kCrash[] = "The program did not shut down properly on its last run.";

const std::string kTask = "{\n  \"format\": \"verlink-design\",\n  \"version\": 1,\n  \"kind\": \"motion\"\n}\n";

class RecoveryTest : public Fixture {
   protected:
    RecoveryTest() {
        desktop.State = Path("state");
        Set_Identity();
        Initialize();
        Model.JustStarted = true;
    }
    ~RecoveryTest() override { End_Keeping(); }

    std::string Folder() const { return Path("state/verlink/"); }
    std::size_t Kept(const std::string& suffix) const {
        std::size_t count = 0;
        std::error_code none;
        for (const auto& entry : fs::directory_iterator(Folder(), none)) count += entry.path().extension() == suffix;
        return count;
    }
    /// Runs `life` in a process that has begun to keep copies, and is killed then.
    template <class Life>
    void Live_And_Die(Life life) {
        const pid_t child = ::fork();
        if (child == 0) {
            Begin_Keeping();
            life();
            ::kill(::getpid(), SIGKILL);
        }
        ::waitpid(child, nullptr, 0);
    }
    /// One that changed the crank and died without a word when the copy was there.
    void Leave_Crank(double crank, const std::string& path = "/models/press.vlk", const std::string& name = "press") {
        const std::size_t before = Kept(".copy");
        Live_And_Die([&] {
            Model.L2 = crank;
            Model.FilePath = path;
            Model.ModelName = name;
            Model.DesignTask = kTask;
            Keep_Copy(Model, true);
            for (int i = 0; i < kPatience && Kept(".copy") == before; ++i) ::usleep(1000);
        });
    }
    std::string Question(const std::string& model, const std::string& file) const {
        return "   " + model + " was changed and not saved.  A copy of it was kept less than a minute ago.   \r   " +
               file +
               "   \r\r   Do you want to go on with the copy?   \r"
               "   If not, it stays until a model is saved, and is offered at each start.   \r";
    }
    void Expect_Question(const std::string& model, const std::string& file, Answer answer) {
        desktop.Expect_Message(Question(model, file), answer, Icon::kQuestion, Buttons::kYesNo);
    }
};

TEST_F(RecoveryTest, ACopyThatIsTakenIsTheModelUnsavedWithItsPathAndKeptAnew) {
    Leave_Crank(1.03);
    Begin_Keeping();
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kYes);
    EXPECT_TRUE(Offer_Copies(Model));
    EXPECT_EQ(Model.L2, Single(1.03));
    EXPECT_EQ(Model.FilePath, "/models/press.vlk");
    EXPECT_EQ(Model.ModelName, "press");
    EXPECT_EQ(Model.DesignTask, kTask);
    EXPECT_FALSE(Model.SavedFlag);
    EXPECT_EQ(Kept(".copy"), 1U);
    EXPECT_TRUE(platform::File_Exists(Copy_File(Folder(), platform::This_Process())));
    EXPECT_FALSE(Offer_Copies(Model)) << "it is nobody else's any more";
}

TEST_F(RecoveryTest, ACopyThatIsTakenAtTheStartIsModified) {
    // As a new model is, but not as its file is.
    Live_And_Die([this] {
        Model.FilePath = "/models/press.vlk";
        Model.ModelName = "press";
        Keep_Copy(Model, true);
        for (int i = 0; i < kPatience && Kept(".copy") == 0; ++i) ::usleep(1000);
    });
    desktop.Expect_Message_With(kCrash);
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kYes);
    desktop.Expect_Screen("frm_Title", [](platform::Screen& title) {
        EXPECT_EQ(Model.FilePath, "/models/press.vlk");
        EXPECT_TRUE(Modified());
        Press(title, "cmd_Abort");
    });
    desktop.Expect_Screen("frm_Quit", [](platform::Screen& quit) { Press(quit, "cmd_YesQuit"); });
    Sub_Main("");
}

TEST_F(RecoveryTest, ACopyHasTheNameThatItsModelWasGivenNotThatOfTheFile) {
    Leave_Crank(1.03, "/models/press.vlk", "A stronger press");
    Begin_Keeping();
    Expect_Question("The model A stronger press", "Its file is /models/press.vlk", Answer::kYes);
    EXPECT_TRUE(Offer_Copies(Model));
    EXPECT_EQ(Model.ModelName, "A stronger press");
    EXPECT_EQ(Model.FilePath, "/models/press.vlk");
}

TEST_F(RecoveryTest, WhatIsChangedAfterTheStartIsKeptAndNoLongerWhenItIsUndone) {
    desktop.Expect_Screen("frm_Title", [this](platform::Screen& title) {
        const std::string copy = Copy_File(Folder(), platform::This_Process());
        EXPECT_FALSE(platform::File_Exists(copy));
        {
            const platform::Deed deed("Typed");
            Model.L2 = 1.25;
        }
        Prepare_To_Leave("SIGTERM");
        ASSERT_TRUE(platform::File_Exists(copy));
        const auto kept = Copy_Of(platform::Read_File(copy));
        ASSERT_TRUE(kept);
        EXPECT_EQ(kept->content, File_Content());
        The_History().Undo();
        Prepare_To_Leave("SIGTERM");
        EXPECT_FALSE(platform::File_Exists(copy));
        Press(title, "cmd_Abort");
    });
    desktop.Expect_Screen("frm_Quit", [](platform::Screen& quit) { Press(quit, "cmd_YesQuit"); });
    Sub_Main("");
}

TEST_F(RecoveryTest, AModelWithoutAFileComesBackWithoutOne) {
    Leave_Crank(1.03, "/home/ada/Documents/VERLINK/", "");
    Model.FilePath = "/elsewhere/";
    Begin_Keeping();
    Expect_Question("A model without a name", "It has no file yet.", Answer::kYes);
    EXPECT_TRUE(Offer_Copies(Model));
    EXPECT_EQ(Model.L2, Single(1.03));
    EXPECT_EQ(Model.FilePath, "/elsewhere/");
    EXPECT_EQ(Model.ModelName, "");
}

TEST_F(RecoveryTest, ARefusedCopyStaysUntilAModelIsSaved) {
    Leave_Crank(1.03);
    const Single before = Model.L2;
    Begin_Keeping();
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kNo);
    EXPECT_FALSE(Offer_Copies(Model));
    EXPECT_EQ(Model.L2, before);
    End_Keeping();

    Begin_Keeping();
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kNo);
    EXPECT_FALSE(Offer_Copies(Model)) << "the next start offers it again";
    Keep_Copy(Model, true);
    Keep_Copy(Model, false);
    EXPECT_EQ(Left_Copies(Folder()).size(), 1U);
    Drop_Refused();
    EXPECT_EQ(Left_Copies(Folder()).size(), 0U);
}

TEST_F(RecoveryTest, OfSeveralTheNewestIsOfferedFirstAndTheOthersWaitOnceOneIsTaken) {
    Leave_Crank(1.01, "/models/a.vlk", "a");
    ::usleep(5000);
    Leave_Crank(1.02, "/models/b.vlk", "b");
    ::usleep(5000);
    Leave_Crank(1.03, "/models/c.vlk", "c");
    Begin_Keeping();
    Expect_Question("The model c", "Its file is /models/c.vlk", Answer::kNo);
    Expect_Question("The model b", "Its file is /models/b.vlk", Answer::kYes);
    EXPECT_TRUE(Offer_Copies(Model));
    EXPECT_EQ(Model.L2, Single(1.02));
    ASSERT_EQ(Left_Copies(Folder()).size(), 2U);
    Drop_Refused();
    ASSERT_EQ(Left_Copies(Folder()).size(), 1U) << "what was never offered is not refused";
    EXPECT_EQ(Left_Copies(Folder())[0].copy.name, "a");
}

TEST_F(RecoveryTest, ThereIsACopyOnlyWhileTheModelIsModified) {
    Begin_Keeping();
    Keep_Copy(Model, true);
    Leave_Copy("SIGTERM");
    EXPECT_EQ(Kept(".copy"), 1U);
    End_Keeping();
    EXPECT_EQ(Kept(".copy"), 1U) << "what is left for the next start is left";
    EXPECT_EQ(Kept(".run"), 0U);
}

TEST_F(RecoveryTest, ANormalEndLeavesNothing) {
    Begin_Keeping();
    Keep_Copy(Model, true);
    End_Keeping();
    EXPECT_TRUE(fs::is_empty(Folder()));
}

TEST_F(RecoveryTest, AfterTheWordOfTheEndNothingChangesTheCopy) {
    Begin_Keeping();
    Model.L2 = 1.03;
    Keep_Copy(Model, true);
    Leave_Copy("SIGTERM");
    Model.L2 = 1.04;
    Keep_Copy(Model, true);
    Keep_Copy(Model, false);
    const auto copy = Copy_Of(platform::Read_File(Copy_File(Folder(), platform::This_Process())));
    ASSERT_TRUE(copy);
    Model.L2 = 0;
    Load_Model(copy->content);
    EXPECT_EQ(Model.L2, Single(1.03));
}

TEST_F(RecoveryTest, AStartTellsOfAProcessThatDiedThoughTheMarkerIsAnothers) {
    Live_And_Die([] {});
    EXPECT_TRUE(Look_Around().died);
    desktop.Expect_Message_With(kCrash);
    Check_for_Crash();
    Begin_Keeping();
    EXPECT_FALSE(Look_Around().died) << "it is told once";
}

TEST_F(RecoveryTest, AStartTellsNothingOfAProcessThatSaidItsEnd) {
    Live_And_Die([] { Leave_Copy("the end of the session"); });
    EXPECT_FALSE(Look_Around().died);
    Check_for_Crash();
}

TEST_F(RecoveryTest, AProcessThatIsEndedFromOutsideSaysWhyAndLeavesItsCopy) {
    Live_And_Die([] {
        Check_for_Crash();
        Model.L2 = 1.03;
        Keep_Copy(Model, true);
        Leave("SIGTERM");
    });
    ASSERT_EQ(Past_Runs(Folder()).size(), 1U);
    EXPECT_EQ(Past_Runs(Folder())[0].end, "SIGTERM");
    EXPECT_EQ(Kept(".copy"), 1U);
}

TEST_F(RecoveryTest, OfEachDeadProcessItIsKnownWhetherItSaidItsEnd) {
    const auto die = [this](const char* why) {
        const pid_t child = ::fork();
        if (child == 0) {
            Begin_Run_Log(Folder());
            if (why) Log_End(why);
            ::kill(::getpid(), SIGKILL);
        }
        ::waitpid(child, nullptr, 0);
    };
    die("the end of the session");
    const platform::Process said = Past_Runs(Folder()).at(0).process;
    die(nullptr);
    const auto runs = Past_Runs(Folder());
    ASSERT_EQ(runs.size(), 2U);
    const platform::Process silent = runs[0].process == said ? runs[1].process : runs[0].process;
    EXPECT_TRUE(Said_Its_End(said));
    EXPECT_FALSE(Said_Its_End(silent));
    platform::Process unknown = said;
    unknown.number += 1;
    unknown.start += 1;
    EXPECT_FALSE(Said_Its_End(unknown));
}

TEST_F(RecoveryTest, AnEndThatWasCalledOffIsTakenBackByTheNextChange) {
    Live_And_Die([] {
        Prepare_To_Leave("the end of the session");
        Keep_Copy(Model, true);
    });
    EXPECT_TRUE(Look_Around().died);
}

TEST_F(RecoveryTest, AStartSweepsTheFoldersInWhichADeadProcessWrote) {
    platform::Make_Folder(Path("models"));
    Live_And_Die([&] {
        platform::Write_File(Path("models/press.vlk"), "whole");
        std::string name = platform::Temporary_Beside(Path("models/press.vlk"));
        ::close(::mkstemp(name.data()));
    });
    EXPECT_EQ(std::distance(fs::directory_iterator(Path("models")), fs::directory_iterator()), 2);
    Begin_Keeping();
    EXPECT_EQ(std::distance(fs::directory_iterator(Path("models")), fs::directory_iterator()), 1);
}

TEST_F(RecoveryTest, AStartSweepsWhatADeadProcessLeftInTheStateFolderItself) {
    Live_And_Die([&] {
        std::string name = platform::Temporary_Beside(Folder() + "some.copy");
        ::close(::mkstemp(name.data()));
    });
    const auto files = [this] { return std::distance(fs::directory_iterator(Folder()), fs::directory_iterator()); };
    EXPECT_EQ(files(), 2) << "its log and its temporary";
    for (const auto& entry : fs::directory_iterator(Folder()))
        if (entry.path().extension() == ".run") fs::remove(entry.path());
    EXPECT_EQ(files(), 1) << "a temporary whose log is lost";
    Begin_Keeping();
    EXPECT_EQ(files(), 1) << "the log of this one";
    EXPECT_EQ(Kept(".run"), 1U);
}

TEST_F(RecoveryTest, TheTasksOfTheCopyCountAndThoseBesideTheFileWhereTheyCannotBeRead) {
    Begin_Keeping();
    platform::Write_File(Path("press.vlk"), File_Content());
    platform::Write_File(Path("press.vld"), kTask);
    const auto tasks_from = [this](const std::string& tasks) {
        platform::Process dead = platform::This_Process();
        dead.start -= 1;
        platform::Write_File(Copy_File(Folder(), dead), Copy_Text({Path("press.vlk"), "press", File_Content(), tasks,
                                                                   std::chrono::system_clock::now()}));
        Expect_Question("The model press", "Its file is " + Path("press.vlk"), Answer::kYes);
        EXPECT_TRUE(Offer_Copies(Model));
        return Model.DesignTask;
    };
    EXPECT_EQ(tasks_from("no tasks"), kTask);
    EXPECT_EQ(tasks_from(""), "") << "they were taken away";
}

TEST_F(RecoveryTest, ACopyThatWasTakenStaysUntilThisProcessHasOneOfItsOwn) {
    Leave_Crank(1.03);
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kYes);
    EXPECT_TRUE(Offer_Copies(Model)) << "nothing is kept yet";
    EXPECT_EQ(Left_Copies(Folder()).size(), 1U);
}

TEST_F(RecoveryTest, AStartKnowsWhetherAnotherProcessRuns) {
    EXPECT_FALSE(Look_Around().running);
    int over[2];
    ASSERT_EQ(::pipe(over), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(over[1]);
        Begin_Keeping();
        char byte = 0;
        ::_exit(::read(over[0], &byte, 1) < 0);
    }
    while (Kept(".run") == 0) ::usleep(1000);
    EXPECT_TRUE(Look_Around().running);
    EXPECT_FALSE(Look_Around().died);
    for (const int end : over) ::close(end);
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(Look_Around().running);
    EXPECT_TRUE(Look_Around().died);
}

TEST_F(RecoveryTest, AnEndThatIsPreparedIsWrittenDownWithTheCopyAsItIs) {
    Live_And_Die([] {
        Model.L2 = 1.03;
        Keep_Copy(Model, true);
        Prepare_To_Leave("the end of the session");
    });
    ASSERT_EQ(Past_Runs(Folder()).size(), 1U);
    EXPECT_EQ(Past_Runs(Folder())[0].end, "the end of the session");
    ASSERT_EQ(Left_Copies(Folder()).size(), 1U);
    Prepare_To_Leave("without a log nothing is written");
}

TEST_F(RecoveryTest, WhatWasRefusedBeforeIsNotDroppedByAProcessThatBeginsAnew) {
    Leave_Crank(1.03);
    Begin_Keeping();
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kNo);
    EXPECT_FALSE(Offer_Copies(Model));
    End_Keeping();
    Begin_Keeping();
    Drop_Refused();
    EXPECT_EQ(Left_Copies(Folder()).size(), 1U);
}

TEST_F(RecoveryTest, SavingTheModelDropsTheCopiesThatWereRefused) {
    Leave_Crank(1.03);
    desktop.Expect_Message_With(kCrash);
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kNo);
    desktop.Expect_Screen("frm_Title", [this](platform::Screen& title) {
        EXPECT_EQ(Left_Copies(Folder()).size(), 1U);
        Model_Came();
        EXPECT_EQ(Left_Copies(Folder()).size(), 1U) << "another model was begun";
        Model_Kept();
        EXPECT_EQ(Left_Copies(Folder()).size(), 0U);
        Press(title, "cmd_Abort");
    });
    desktop.Expect_Screen("frm_Quit", [](platform::Screen& quit) { Press(quit, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(fs::is_empty(Folder())) << "a normal end leaves nothing";
}

TEST_F(RecoveryTest, WithoutAStateFolderNothingIsKeptAndNothingTold) {
    desktop.State.clear();
    Begin_Keeping();
    EXPECT_FALSE(fs::exists(platform::Name_Of(platform::This_Process()) + ".run")) << "in the folder at hand";
    Keep_Copy(Model, true);
    EXPECT_FALSE(Offer_Copies(Model));
    EXPECT_FALSE(Look_Around().died);
    Leave_Copy("SIGTERM");
}

TEST_F(RecoveryTest, AStateFolderThatCannotBeWrittenToIsReportedOnce) {
    platform::Write_File(Path("state"), "a file");
    desktop.Expect_Message_With("has occurred in Begin_Keeping");
    Begin_Keeping();
    Keep_Copy(Model, true);
}

TEST_F(RecoveryTest, ACopyThatIsNoModelIsToldAndStays) {
    Begin_Keeping();
    platform::Process dead = platform::This_Process();
    dead.start -= 1;
    platform::Write_File(Copy_File(Folder(), dead), Copy_Text({"/models/press.vlk", "press", "\"OTHER\"\r\n\"1\"\r\n",
                                                               "", std::chrono::system_clock::now()}));
    const double before = Model.L2;
    Expect_Question("The model press", "Its file is /models/press.vlk", Answer::kYes);
    desktop.Expect_Message("This data file is not compatible with VERLINK. ");
    EXPECT_FALSE(Offer_Copies(Model));
    EXPECT_EQ(Model.L2, before);
    Drop_Refused();
    EXPECT_EQ(Left_Copies(Folder()).size(), 1U);
}

}  // namespace
}  // namespace verlink::test
