// The small services of the desktop: the file type, date and time, folders, the pace of a run, the manual.
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDate>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>
#include <chrono>
#include <filesystem>
#include <regex>

#include "desktop/desktop_entries.h"
#include "desktop/document_widget.h"
#include "desktop/file_type.h"
#include "desktop/pace.h"
#include "desktop/picture_widget.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "screens/frm_help.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

class FileTypeTest : public DesktopTest {
   protected:
    FileType type{"Verlink", "vlk", "/opt/verlink tools"};
    std::string Entry() const { return Path("data/applications/verlink.desktop"); }
    std::string Mime() const { return Path("data/mime/packages/verlink.xml"); }
};

TEST_F(FileTypeTest, The_extension_belongs_to_a_type_and_the_type_to_the_program) {
    qt.Register_File_Type(type);
    const std::string entry = Read_File(Entry()), mime = Read_File(Mime());
    EXPECT_NE(entry.find("Exec=\"/opt/verlink tools/verlink\" %f\n"), std::string::npos) << entry;
    EXPECT_NE(entry.find("MimeType=application/x-verlink;\n"), std::string::npos);
    EXPECT_NE(mime.find("<glob pattern=\"*.vlk\"/>"), std::string::npos);
    EXPECT_NE(mime.find("<comment>Verlink File</comment>"), std::string::npos);
    EXPECT_NE(entry.find("Icon=verlink\n"), std::string::npos);
    EXPECT_EQ(Read_File(Path("data/icons/hicolor/scalable/apps/verlink.svg")).substr(0, 4), "<svg");
}

TEST_F(FileTypeTest, What_is_written_is_sound_to_the_desktop_s_own_tools) {
    qt.Register_File_Type(type);
    QProcess check;
    check.start(QStringLiteral("desktop-file-validate"), {QString::fromStdString(Entry())});
    ASSERT_TRUE(check.waitForFinished());
    EXPECT_EQ(check.exitCode(), 0) << check.readAll().toStdString();
    EXPECT_TRUE(File_Exists(Path("data/mime/mime.cache")));
    EXPECT_NE(Read_File(Path("data/mime/globs2")).find("application/x-verlink:*.vlk"), std::string::npos);
    EXPECT_NE(Read_File(Path("data/applications/mimeinfo.cache")).find("application/x-verlink=verlink.desktop"),
              std::string::npos);
}

TEST_F(FileTypeTest, A_second_start_touches_nothing) {
    qt.Register_File_Type(type);
    const auto entry = std::filesystem::last_write_time(Entry());
    const auto cache = std::filesystem::last_write_time(Path("data/mime/mime.cache"));
    qt.Register_File_Type(type);
    EXPECT_EQ(std::filesystem::last_write_time(Entry()), entry);
    EXPECT_EQ(std::filesystem::last_write_time(Path("data/mime/mime.cache")), cache);
}

TEST_F(FileTypeTest, A_program_that_has_moved_is_written_anew) {
    qt.Register_File_Type(type);
    type.app_path = "/opt/new";
    qt.Register_File_Type(type);
    EXPECT_NE(Read_File(Entry()).find("Exec=\"/opt/new/verlink\" %f\n"), std::string::npos);
}

TEST_F(FileTypeTest, An_installed_program_that_the_system_knows_writes_nothing) {
    ASSERT_TRUE(Make_Folder(Path("usr/bin")));
    ASSERT_TRUE(Make_Folder(Path("usr/share/applications")));
    ASSERT_TRUE(Make_Folder(Path("usr/share/mime/packages")));
    Write_File(Path("usr/share/applications/verlink.desktop"), "");
    Write_File(Path("usr/share/mime/packages/verlink.xml"), "");
    qputenv("XDG_DATA_DIRS", QByteArray::fromStdString(Path("usr/share")));
    type.app_path = Path("usr/bin");
    qt.Register_File_Type(type);
    EXPECT_FALSE(File_Exists(Entry()));
    EXPECT_FALSE(File_Exists(Mime()));
    type.app_path = "/opt/verlink";
    qt.Register_File_Type(type);
    EXPECT_TRUE(File_Exists(Entry())) << "the system knows another program of that name";
    qunsetenv("XDG_DATA_DIRS");
}

TEST_F(FileTypeTest, An_entry_that_points_to_another_program_that_is_there_is_left_alone) {
    ASSERT_TRUE(Make_Folder(Path("data/applications")));
    ASSERT_TRUE(Make_Folder(Path("other place")));
    Write_File(Path("other place/verlink"), "#!/bin/sh\n");
    const std::string entry = "[Desktop Entry]\nType=Application\nName=Mine\nExec=\"" + Path("other place/verlink") +
                              "\" --own %f\nMimeType=application/x-verlink;\n";
    Write_File(Entry(), entry);
    // What cannot be started is not there.
    qt.Register_File_Type(type);
    EXPECT_NE(Read_File(Entry()), entry);
    std::filesystem::remove_all(Path("data/mime"));
    std::filesystem::permissions(Path("other place/verlink"), std::filesystem::perms::owner_all);
    Write_File(Entry(), entry);
    qt.Register_File_Type(type);
    EXPECT_EQ(Read_File(Entry()), entry);
    EXPECT_FALSE(File_Exists(Mime()));
    // The same program by another name is no other.
    std::filesystem::create_directory_symlink(Path("other place"), Path("link"));
    type.app_path = Path("link");
    qt.Register_File_Type(type);
    EXPECT_NE(Read_File(Entry()).find("Exec=\"" + Path("link") + "/verlink\" %f\n"), std::string::npos);
}

TEST_F(FileTypeTest, An_extension_that_another_program_opens_is_left_alone) {
    ASSERT_TRUE(Make_Folder(Path("data/applications")));
    ASSERT_TRUE(Make_Folder(Path("data/mime")));
    Write_File(Path("data/mime/globs2"), "50:model/x-other:*.vlk\n");
    Write_File(Path("data/applications/other.desktop"),
               "[Desktop Entry]\nExec=sh -c true\nMimeType=model/x-other;\n[Desktop Action]\nExec=nothing\n");
    qt.Register_File_Type(type);
    EXPECT_FALSE(File_Exists(Entry()));
    EXPECT_FALSE(File_Exists(Mime()));
    // One whose program is gone has no say.
    Write_File(Path("data/applications/other.desktop"), "[Desktop Entry]\nExec=/gone/other\nMimeType=model/x-other;\n");
    qt.Register_File_Type(type);
    EXPECT_TRUE(File_Exists(Entry()));
}

TEST_F(FileTypeTest, A_program_in_a_folder_that_others_may_write_does_not_register_itself) {
    namespace fs = std::filesystem;
    ASSERT_TRUE(Make_Folder(Path("shared/bin")));
    type.app_path = Path("shared/bin");
    for (const char* open : {"shared/bin", "shared"}) {
        fs::permissions(Path(open), fs::perms::all);
        qt.Register_File_Type(type);
        EXPECT_FALSE(File_Exists(Entry())) << open;
        fs::permissions(Path(open), fs::perms::owner_all);
    }
    // Below a sticky folder, as /tmp is, nobody takes the place of what is another's.
    fs::permissions(Path("shared"), fs::perms::all | fs::perms::sticky_bit);
    qt.Register_File_Type(type);
    EXPECT_TRUE(File_Exists(Entry()));
}

TEST_F(FileTypeTest, The_program_of_an_entry_is_read_as_the_desktop_reads_it) {
    const auto program = [](const char* line) {
        return desktop::programOf(QStringLiteral("[Desktop Entry]\nName=x\nExec=") + QString::fromLatin1(line) +
                                  QStringLiteral("\n[Other]\nExec=wrong\n"))
            .toStdString();
    };
    EXPECT_EQ(program("verlink %f"), "verlink");
    EXPECT_EQ(program("/opt/verlink/verlink"), "/opt/verlink/verlink");
    EXPECT_EQ(program(R"("/opt/with blank/verlink" %f)"), "/opt/with blank/verlink");
    EXPECT_EQ(program(R"("/opt/\\$HOME and \\"more\\" 100%%/verlink" %f)"), R"(/opt/$HOME and "more" 100%/verlink)");
    EXPECT_EQ(desktop::programOf(QStringLiteral("[Desktop Entry]\nName=x\n")), QString());
    type.app_path = R"(/opt/$a "b" \c 5%)";
    qt.Register_File_Type(type);
    EXPECT_EQ(desktop::programOf(QString::fromStdString(Read_File(Entry()))).toStdString(), type.app_path + "/verlink");
}

TEST_F(FileTypeTest, A_data_home_that_cannot_be_written_is_failure_75) {
    Write_File(Path("data"), "a file stands where the folder would");
    try {
        qt.Register_File_Type(type);
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.Number(), 75);
    }
}

class ServicesTest : public DesktopTest {};

TEST_F(ServicesTest, Date_and_time_stand_as_month_day_year_and_on_the_twelve_hour_clock) {
    EXPECT_TRUE(std::regex_match(qt.Date_Text(), std::regex("[1-9][0-9]?/[1-9][0-9]?/[0-9]{4}"))) << qt.Date_Text();
    EXPECT_EQ(std::stoi(qt.Date_Text()), QDate::currentDate().month());
    EXPECT_TRUE(std::regex_match(qt.Time_Text(), std::regex("[1-9][0-9]?:[0-5][0-9]:[0-5][0-9] [AP]M")))
        << qt.Time_Text();
}

TEST_F(ServicesTest, Folders_have_no_separator_at_their_end_and_the_user_has_a_name) {
    EXPECT_EQ(qt.Documents_Folder().find(Path("")), 0u) << qt.Documents_Folder();
    EXPECT_NE(qt.Documents_Folder().back(), '/');
    EXPECT_NE(qt.Program_Folder().back(), '/');
    EXPECT_TRUE(File_Exists(qt.Program_Folder() + "/desktop_tests"));
    EXPECT_EQ(qt.Session_User(), ::getpwuid(::getuid())->pw_name);
}

TEST_F(ServicesTest, A_document_that_is_not_installed_is_named) {
    desktop::DocumentWidget view(nullptr);
    view.show(QStringLiteral("helpfiles/general/NoSuchDocument.pdf"));
    EXPECT_EQ(view.note(), "This document is not installed: helpfiles/general/NoSuchDocument.pdf");
}

TEST_F(ServicesTest, A_film_that_is_not_there_is_told_with_what_makes_it) {
    const auto reads = [](QWidget& window) {
        auto& view = static_cast<desktop::DocumentWidget&>(Find<QWidget>(window, "WebBrowser1"));
        EXPECT_EQ(view.note(),
                  "This document is not installed: helpfiles/verlink/no_such_film.webm\n\n"
                  "It is a film. Where Verlink was built from its sources, tools/screencast makes it there, in some "
                  "minutes; then this entry shows it.");
        Click(window, "cmd_Close");
    };
    Show_Help("helpfiles/verlink/no_such_film.webm", "frm_Homescreen.mnu_Video1");
    reads(qt.formOf(platform::Screens::Get("frm_Help")));
    EXPECT_FALSE(platform::Screens::Get("frm_Help").Visible());
}

TEST_F(ServicesTest, A_document_that_is_installed_is_shown) {
    const QTemporaryDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/help-XXXXXX"));
    {
        QPdfWriter writer(folder.filePath(QStringLiteral("page.pdf")));
        QPainter painter(&writer);
        painter.drawText(1000, 1000, QStringLiteral("a page"));
    }
    const QString name = QFileInfo(folder.path()).fileName();
    EXPECT_EQ(desktop::helpDocument(name + QStringLiteral("/page.pdf")),
              QFileInfo(folder.filePath(QStringLiteral("page.pdf"))).canonicalFilePath());
    desktop::DocumentWidget view(nullptr);
    view.resize(400, 500);
    view.show(name + QStringLiteral("/page.pdf"));
    EXPECT_EQ(view.note(), "");
    Write_File(folder.filePath(QStringLiteral("broken.pdf")).toStdString(), "no PDF");
    view.show(name + QStringLiteral("/broken.pdf"));
    EXPECT_TRUE(view.note().startsWith("This document cannot be shown: "));
    view.show(QString());
    EXPECT_EQ(view.note(), "");
}

class PaceTest : public DesktopTest {
   protected:
    class frm_Sample : public Screen {
       public:
        frm_Sample() : Screen("frm_Sample") {}
        CommandButton cmd_Go{*this, "cmd_Go", "Go"};
        TextBox txt_Box{*this, "txt_Box", ""};
        PictureBox Picture1{*this, "Picture1"};
        platform::Timer Timer1{*this, "Timer1"};
    };

    PaceTest() : form(qt.formOf(screen)) {
        form.show();
        form.activateWindow();
        QCoreApplication::processEvents();
    }
    ~PaceTest() override { qt.discardForms(); }

    frm_Sample screen;
    desktop::Form& form;
};

TEST_F(PaceTest, A_frame_ends_a_pause_after_the_last_one_whatever_the_drawing_took) {
    const Clock::time_point last{};
    EXPECT_EQ(desktop::frameEnd(last, last + 2ms, 8ms), last + 8ms) << "the drawing does not add to the pause";
    EXPECT_EQ(desktop::frameEnd(last, last + 100ms, 8ms), last + 8ms) << "a late frame does not wait";
    EXPECT_EQ(desktop::frameEnd(last, last + 300ms, 8ms), last + 308ms) << "after a rest the pause begins anew";
}

TEST_F(PaceTest, Frames_last_at_least_their_pause) {
    EXPECT_TRUE(qt.Pause(5ms));
    const auto begin = Clock::now();
    for (int i = 0; i < 10; ++i) EXPECT_TRUE(qt.Pause(8ms));
    EXPECT_GE(Clock::now() - begin, 79ms);
}

TEST_F(PaceTest, The_first_frame_after_a_rest_waits_its_whole_pause) {
    EXPECT_TRUE(qt.Pause(0ms));
    std::this_thread::sleep_for(300ms);
    const auto begin = Clock::now();
    EXPECT_TRUE(qt.Pause(30ms));
    EXPECT_GE(Clock::now() - begin, 30ms);
}

TEST_F(PaceTest, A_pause_of_zero_paints_and_returns) {
    auto& picture = static_cast<desktop::PictureWidget&>(Find<QWidget>(form, "Picture1"));
    (void)picture.grab();
    class Painted : public QObject {
       public:
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++count;
            return false;
        }
    } painted;
    picture.installEventFilter(&painted);
    screen.Picture1.Canvas().Line(0, 0, 1, 1, 0);
    EXPECT_TRUE(qt.Pause(0ns));
    EXPECT_EQ(painted.count, 1);
    EXPECT_TRUE(qt.Pause(0ns));
    EXPECT_EQ(painted.count, 1) << "what has not changed is not painted again";
}

TEST_F(PaceTest, Mouse_and_keys_are_lost_while_a_run_plays) {
    int clicks = 0, ticks = 0;
    screen.cmd_Go.OnClick = [&] { ++clicks; };
    screen.Timer1.OnTimer = [&] { ++ticks; };
    screen.Timer1.Interval = 1;
    screen.Timer1.Enabled = true;
    Find<QWidget>(form, "txt_Box").setFocus();
    int deeds = 0;
    QTimer::singleShot(5, &form, [&] {
        ++deeds;
        Click(form, "cmd_Go");
        QTest::keyClick(&Find<QWidget>(form, "txt_Box"), Qt::Key_X);
        form.close();  // not the window on top
    });
    EXPECT_TRUE(qt.Pause(40ms));
    EXPECT_EQ(deeds, 1);
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(ticks, 0);
    EXPECT_EQ(screen.txt_Box.Text.Get(), "");
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(Find<QPushButton>(form, "cmd_Go").isDown());

    QTest::qWait(20);
    EXPECT_GT(ticks, 0);
    EXPECT_EQ(clicks, 0) << "what was lost does not come later";
    Click(form, "cmd_Go");
    EXPECT_EQ(clicks, 1);
}

}  // namespace

}  // namespace verlink::test
