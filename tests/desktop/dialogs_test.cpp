// File dialogs and printing, up to the files that they lead to.
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>

#include "desktop/file_dialogs.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "tests/desktop/user.h"
#include "tests/support/failing_system.h"

namespace verlink::test {

using namespace platform;

namespace {

constexpr char kOpenFilter[] = "Verlink (*.vlk)|*.vlk|All (*.*)|*.*|";

TEST(NameFiltersTest, Words_and_patterns_are_taken_apart) {
    const auto filters = desktop::nameFilters(kOpenFilter);
    ASSERT_EQ(filters.size(), 2u);
    EXPECT_EQ(filters[0].words, "Verlink (*.vlk)");
    EXPECT_EQ(filters[0].patterns, "*.vlk");
    EXPECT_EQ(filters[1].patterns, "*") << "all files, those without a point too";
    EXPECT_EQ(desktop::nameFilters("(*.vlk)|*.vlk|").size(), 1u);
    EXPECT_EQ(desktop::nameFilters("Two|*.a;*.b|")[0].patterns, "*.a *.b");
    EXPECT_TRUE(desktop::nameFilters("").empty());
    EXPECT_TRUE(desktop::nameFilters("words only").empty());
}

class FileDialogTest : public DesktopTest {
   protected:
    FileDialogTest() {
        for (const char* name : {"press.vlk", "other.txt", "noend"}) Write_File(Path(name), "x");
        Model.FilePath = Path("");
    }
    static QString NameIn(QFileDialog& dialog) {
        return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
    }
    static void Accept(QFileDialog& dialog, const QString& name) {
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(name);
        dialog.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
    }
    void ThenDialog(std::function<void(QFileDialog&)> user) {
        Then("file", [user](QWidget& window) { user(static_cast<QFileDialog&>(window)); });
    }
};

TEST_F(FileDialogTest, Open_shows_title_filters_and_the_folder_of_the_model) {
    ThenDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Open a model");
        EXPECT_EQ(dialog.nameFilters(), QStringList({"Verlink (*.vlk)", "All (*)"}));
        EXPECT_EQ(dialog.selectedNameFilter(), "Verlink (*.vlk)");
        EXPECT_EQ(dialog.directory().absolutePath().toStdString() + "/", Path(""));
        EXPECT_EQ(NameIn(dialog), "") << "a pattern is no name";
        Accept(dialog, QStringLiteral("press.vlk"));
    });
    EXPECT_EQ(qt.Ask_Open_File({"Open a model", kOpenFilter, 1, "*.vlk", false}), Path("press.vlk"));
}

TEST_F(FileDialogTest, A_cancelled_dialog_gives_nothing) {
    ThenDialog([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_EQ(qt.Ask_Open_File({"Open a model", kOpenFilter, 1, "*.vlk", false}), std::nullopt);
}

TEST_F(FileDialogTest, Save_proposes_the_name_and_adds_the_ending_that_was_left_out) {
    Model.FilePath = Path("press.vlk");
    ThenDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(NameIn(dialog), "Model1.vlk");
        EXPECT_EQ(dialog.directory().absolutePath().toStdString() + "/", Path(""));
        Accept(dialog, QStringLiteral("my model"));
    });
    EXPECT_EQ(qt.Ask_Save_File({"Save the Model", "(*.vlk)|*.vlk|", 1, "Model1.vlk", true}), Path("my model.vlk"));
}

TEST_F(FileDialogTest, Save_asks_before_it_overwrites) {
    ThenDialog([](QFileDialog& dialog) { Accept(dialog, QStringLiteral("press.vlk")); });
    Then("message", [](QWidget& window) {
        EXPECT_TRUE(static_cast<QMessageBox&>(window).text().contains("press.vlk"));
        static_cast<QMessageBox&>(window).button(QMessageBox::No)->click();
    });
    ThenDialog([](QFileDialog& dialog) { Accept(dialog, QStringLiteral("press.vlk")); });
    Then("message", [](QWidget& window) { static_cast<QMessageBox&>(window).button(QMessageBox::Yes)->click(); });
    EXPECT_EQ(qt.Ask_Save_File({"Save the Model", "(*.vlk)|*.vlk|", 1, "Model1.vlk", true}), Path("press.vlk"));
}

TEST_F(FileDialogTest, Save_without_the_prompt_overwrites_in_silence) {
    ThenDialog([](QFileDialog& dialog) { Accept(dialog, QStringLiteral("press.vlk")); });
    EXPECT_EQ(qt.Ask_Save_File({"Export", "(*.vlk)|*.vlk|", 1, "", false}), Path("press.vlk"));
}

TEST_F(FileDialogTest, A_name_with_a_folder_starts_there) {
    ASSERT_TRUE(Make_Folder(Path("sub")));
    ThenDialog([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath().toStdString(), Path("sub"));
        EXPECT_EQ(NameIn(dialog), "a.vlk");
        dialog.reject();
    });
    qt.Ask_Save_File({"Save the Model", "(*.vlk)|*.vlk|", 1, Path("sub/a.vlk"), true});
}

class frm_Sample : public Screen {
   public:
    frm_Sample() : Screen("frm_Sample") {}
    Label lbl_Text{*this, "lbl_Text", "Grashof Condition"};
    PictureBox Picture1{*this, "Picture1"};
};

class PrintingTest : public DesktopTest {
   protected:
    PrintingTest() {
        screen.Picture1.Canvas().Scale(0, 0, 1, 1);
        screen.Picture1.Canvas().Line(0, 0, 1, 1, 0xFF00FF);
    }
    ~PrintingTest() override { qt.discardForms(); }

    /// Shows the screen and prints it, as a screen's handler would.
    void Print() {
        Then("frm_Sample", [this](QWidget&) {
            try {
                if (qt.Ask_Printer()) qt.Print_Screen(screen);
            } catch (const RuntimeFailure& failure) {
                failure_number = failure.Number();
                failure_words = failure.Trouble().Words();
            }
            screen.Hide();
        });
    }
    /// The words on the sheets.
    std::string Words() {
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"), {QString::fromStdString(Pdf()), QStringLiteral("-")});
        EXPECT_TRUE(reader.waitForFinished());
        return reader.readAll().toStdString();
    }
    std::string Pdf() { return qt.Documents_Folder() + "/VERLINK/frm_Sample.pdf"; }

    frm_Sample screen;
    long failure_number = 0;
    std::string failure_words;
};

TEST_F(PrintingTest, Without_a_printer_a_PDF_lies_in_the_user_s_folder) {
    Print();
    Then("printer", [](QWidget& window) { static_cast<QPrintDialog&>(window).accept(); });
    screen.ShowModal();
    EXPECT_EQ(failure_number, 0);
    ASSERT_TRUE(File_Exists(Pdf()));
    EXPECT_EQ(Read_File(Pdf()).substr(0, 4), "%PDF");
    EXPECT_NE(Words().find("Grashof Condition"), std::string::npos);
    EXPECT_NE(Words().find("Printed " + qt.Date_Text() + " at "), std::string::npos);
    EXPECT_EQ(Words().find("head"), std::string::npos) << "it has none";
    EXPECT_EQ(Read_File(Pdf()).find("/Subtype /Image"), std::string::npos) << "vectors, and no picture of pixels";
}

TEST_F(PrintingTest, A_sheet_says_when_it_was_printed_and_whose_the_name_and_date_in_its_head_are) {
    constexpr char whose[] = "Name, design number, date and time in the head are the model's own.";
    class frm_Headed : public frm_Sample {
       public:
        Label lbl_Header{*this, "lbl_Header", "Ada\r Design No. 7\r\n1/2/1999\r at 9:05:00"};
    } headed;
    qt.Show_Window(headed);
    Then("printer", [](QWidget& window) { static_cast<QPrintDialog&>(window).accept(); });
    ASSERT_TRUE(qt.Ask_Printer());
    qt.Print_Screen(headed);
    std::string words = Words();
    for (const std::string& part : {std::string("1/2/1999"), "Printed " + qt.Date_Text() + " at ", std::string(whose)})
        EXPECT_NE(words.find(part), std::string::npos) << part << " in:\n" << words;

    // The same printer again: nothing of how the screen was fitted on its sheet is left.
    qt.Print_Pages({std::vector<std::string>(80, "a line of a table"), {"another page"}});
    words = Words();
    const std::size_t first = words.find(whose);
    EXPECT_NE(first, std::string::npos) << words;
    EXPECT_LT(words.find("a line of a table"), first);
    EXPECT_LT(first, words.find("another page"));
    EXPECT_NE(words.find(whose, first + 1), std::string::npos) << "on each page";
    qt.Hide_Window(headed);
    qt.discardForms();
}

TEST_F(PrintingTest, A_cancelled_printer_dialog_prints_nothing) {
    Print();
    Then("printer", [](QWidget& window) { static_cast<QPrintDialog&>(window).reject(); });
    screen.ShowModal();
    EXPECT_FALSE(File_Exists(Pdf()));
}

TEST_F(PrintingTest, A_printer_that_refuses_is_failure_482) {
    ASSERT_TRUE(Make_Folder(Pdf() + "/in the way"));
    Print();
    Then("printer", [](QWidget& window) { static_cast<QDialog&>(window).done(QDialog::Accepted); });
    screen.ShowModal();
    EXPECT_EQ(failure_number, 482);
    EXPECT_EQ(failure_words, Pdf() + "\rcannot be written: it is a folder.");
}

TEST_F(PrintingTest, An_old_print_is_whole_until_the_new_one_is) {
    ASSERT_TRUE(Make_Folder(qt.Documents_Folder() + "/VERLINK"));
    Write_File(Pdf(), "an old print");
    const auto print = [this](int which) {
        Then("printer", [](QWidget& window) { static_cast<QDialog&>(window).done(QDialog::Accepted); });
        ASSERT_TRUE(qt.Ask_Printer());
        FailingSystem system(which, ENOSPC);
        const auto failure = What_Failed([&] { qt.Print_Pages({{"a line"}}); });
        EXPECT_EQ(failure ? failure->Trouble().Words() : "",
                  which > 0 ? Pdf() + "\rcannot be written: the disk is full." : "");
    };
    int write = 0;
    Write_File(Path("probe"), "x");
    {
        FailingSystem system;
        Write_File(Path("probe"), "x");
        while (system.Calls.at(static_cast<std::size_t>(write)) != "Write") ++write;
    }
    qt.Show_Window(screen);
    print(write + 1);
    EXPECT_EQ(Read_File(Pdf()), "an old print");
    print(0);
    EXPECT_EQ(Read_File(Pdf()).substr(0, 4), "%PDF");
    qt.Hide_Window(screen);
}

}  // namespace

}  // namespace verlink::test
