// The manual is read in a real window.
#include <QComboBox>
#include <QDesktopServices>
#include <QLineEdit>
#include <QPdfPageNavigator>
#include <QPushButton>
#include <QScrollBar>
#include <algorithm>
#include <cstdio>
#include <set>
#include <string>

#include "desktop/document_pages.h"
#include "desktop/document_widget.h"
#include "platform/file_system.h"
#include "screens/frm_help.h"
#include "screens/help_documents.h"
#include "tests/desktop/user.h"

namespace verlink::test {

namespace {

using desktop::DocumentPages;
using desktop::DocumentWidget;
using platform::Screens;

/// Takes the files that would go to other programs.
class Player : public QObject {
    Q_OBJECT
   public:
    QList<QUrl> opened;
    Q_INVOKABLE void open(const QUrl& url) { opened << url; }
};

class ReaderTest : public DesktopTest {
   protected:
    ReaderTest() : screen(static_cast<frm_Help&>(Screens::Get("frm_Help"))), form(qt.formOf(screen)) { ActAlone(); }

    /// Opens the document of an entry as the program does, reads in it, and closes it.
    void Read(const char* entry, const std::function<void()>& reading) {
        Show_Help(Help_Document(entry), "reading");
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        form.resize(900, 700);
        QCoreApplication::processEvents();
        reading();
        screen.Hide();
    }

    DocumentWidget& Document() { return static_cast<DocumentWidget&>(*form.widget("WebBrowser1")); }
    DocumentPages& Pages() { return *Document().view(); }
    std::string Text(const char* label) { return screen.Get<platform::Label>(label).Caption; }
    double PixelsPerPoint() { return Pages().pageArea(0).width() / 595.0; }
    /// A link of the document in view.
    const desktop::DocumentPlaces::Link& Link_To(const char* target) {
        const auto& links = Pages().places().links;
        const auto found =
            std::ranges::find(links, QString::fromLatin1(target), &desktop::DocumentPlaces::Link::target);
        if (found == links.end()) throw std::runtime_error(std::string("no link to ") + target);
        return *found;
    }

    frm_Help& screen;
    desktop::Form& form;
};

TEST_F(ReaderTest, Every_entry_shows_its_document) {
    Read("mnu_Manual", [&] {
        for (const auto& [entry, document] : Help_Documents()) {
            if (!std::string(document).ends_with(".pdf")) continue;
            SCOPED_TRACE(entry);
            screen.Open(Help_Document(entry));
            QCoreApplication::processEvents();
            EXPECT_EQ(Document().note(), "");
            EXPECT_GT(screen.WebBrowser1.Pages, 0);
            EXPECT_EQ(Text("lbl_Pages"), "of " + std::to_string(screen.WebBrowser1.Pages));
            EXPECT_EQ(Find<QLineEdit>(form, "txt_Page").text(), "1");
            EXPECT_GE(Find<QComboBox>(form, "cmb_Contents").count(), 2);
            EXPECT_FALSE(Find<QPushButton>(form, "cmd_Back").isEnabled());
        }
    });
}

TEST_F(ReaderTest, Buttons_and_the_page_box_turn_pages) {
    Read("mnu_Manual", [&] {
        ASSERT_GT(screen.WebBrowser1.Pages, 3);
        EXPECT_FALSE(Find<QPushButton>(form, "cmd_PageBefore").isEnabled());
        Click(form, "cmd_PageAfter");
        EXPECT_EQ(screen.WebBrowser1.Page.Get(), 2);
        EXPECT_NEAR(Pages().verticalScrollBar()->value(), Pages().pageArea(1).top(), 1.5);
        EXPECT_EQ(Find<QLineEdit>(form, "txt_Page").text(), "2");
        Click(form, "cmd_PageBefore");
        EXPECT_EQ(screen.WebBrowser1.Page.Get(), 1);
        Type(form, "txt_Page", QStringLiteral("3"));
        QTest::keyClick(&Find<QLineEdit>(form, "txt_Page"), Qt::Key_Return);
        EXPECT_EQ(screen.WebBrowser1.Page.Get(), 3);
        Type(form, "txt_Page", QStringLiteral("1000"));
        QTest::keyClick(&Find<QLineEdit>(form, "txt_Page"), Qt::Key_Tab);
        EXPECT_EQ(screen.WebBrowser1.Page.Get(), 3) << "there is no such page";
        EXPECT_EQ(Find<QLineEdit>(form, "txt_Page").text(), "3");
    });
}

TEST_F(ReaderTest, Scrolling_tells_the_page_in_view) {
    Read("mnu_Manual", [&] {
        Pages().verticalScrollBar()->setValue(static_cast<int>(Pages().pageArea(2).top()) + 10);
        QCoreApplication::processEvents();
        EXPECT_EQ(screen.WebBrowser1.Page.Get(), 3);
        EXPECT_EQ(Find<QLineEdit>(form, "txt_Page").text(), "3");
    });
}

TEST_F(ReaderTest, A_word_is_found_marked_and_brought_into_view) {
    Read("mnu_Manual", [&] {
        EXPECT_FALSE(Find<QPushButton>(form, "cmd_FindAfter").isEnabled());
        Type(form, "txt_Find", QStringLiteral("freudenstein"));
        QTest::keyClick(&Find<QLineEdit>(form, "txt_Find"), Qt::Key_Return);
        const int named = Pages().finds();
        ASSERT_GT(named, 0);
        EXPECT_EQ(Text("lbl_Finds"), "1 of " + std::to_string(named));
        EXPECT_GT(Pages().verticalScrollBar()->value(), 0);

        Type(form, "txt_Find", QStringLiteral("theta"));
        Click(form, "cmd_FindAfter");
        const int finds = Pages().finds();
        ASSERT_GT(finds, 5);
        EXPECT_EQ(Text("lbl_Finds"), "1 of " + std::to_string(finds));
        Click(form, "cmd_FindBefore");
        EXPECT_EQ(Text("lbl_Finds"), std::to_string(finds) + " of " + std::to_string(finds)) << "round the end";
        Click(form, "cmd_FindAfter");
        EXPECT_EQ(Text("lbl_Finds"), "1 of " + std::to_string(finds));

        Type(form, "txt_Find", QStringLiteral("zzyzx"));
        EXPECT_EQ(Text("lbl_Finds"), "") << "not sought yet";
        Click(form, "cmd_FindAfter");
        EXPECT_EQ(Text("lbl_Finds"), "Not found");
    });
}

TEST_F(ReaderTest, A_word_is_found_in_all_documents_and_marked_in_each) {
    Read("mnu_LinkCalc", [&] {
        Type(form, "txt_Find", QStringLiteral("freudenstein"));
        QTest::keyClick(&Find<QLineEdit>(form, "txt_Find"), Qt::Key_Return);
        const auto places = screen.WebBrowser1.Everywhere;
        ASSERT_GT(places.size(), 1u);
        int all = 0;
        std::set<std::string> documents;
        for (const auto& place : places) {
            all += place.finds;
            documents.insert(place.document);
        }
        EXPECT_EQ(Find<QComboBox>(form, "cmb_Finds").count(), static_cast<int>(places.size()));
        std::set<std::string> stepped;
        std::set<std::string> told;
        for (int i = 0; i < all; ++i) {
            stepped.insert(screen.WebBrowser1.Document);
            told.insert(Text("lbl_Finds"));
            EXPECT_GT(Pages().finds(), 0) << "marked there too";
            const auto place =
                std::ranges::find(places, screen.WebBrowser1.Document.Get(), &platform::DocumentView::Place::document);
            ASSERT_NE(place, places.end());
            EXPECT_EQ(Pages().finds(), place->finds);
            Click(form, "cmd_FindAfter");
        }
        EXPECT_EQ(stepped, documents);
        EXPECT_EQ(told.size(), static_cast<std::size_t>(all)) << "each place once";
        EXPECT_EQ(screen.WebBrowser1.Document.Get(), Help_Document("mnu_LinkCalc")) << "round the end";
        Click(form, "cmd_Back");
        EXPECT_EQ(screen.WebBrowser1.Document.Get(), Help_Document("mnu_LinkCalc"));
    });
}

TEST_F(ReaderTest, Every_place_that_F1_leads_to_is_a_heading_of_its_document) {
    int headings = 0;
    for (const Help_Place& row : Help_Places()) {
        if (*row.heading == '\0') continue;
        const QString path = desktop::helpDocument(QString::fromStdString(Help_Document(row.entry)));
        ASSERT_FALSE(path.isEmpty()) << row.entry;
        EXPECT_NE(desktop::DocumentPlaces::ofDocument(path).place(QString::fromLatin1(row.heading)), nullptr)
            << row.entry << "#" << row.heading;
        ++headings;
    }
    EXPECT_GT(headings, 60);
}

TEST_F(ReaderTest, The_contents_lead_to_a_heading) {
    Read("mnu_LinkCalc", [&] {
        auto& contents = Find<QComboBox>(form, "cmb_Contents");
        const int entry = contents.findText(QStringLiteral("Methods"));
        ASSERT_GT(entry, 0);
        screen.cmb_Contents.Choose(entry);
        const auto* heading = Pages().places().place(QStringLiteral("methods"));
        ASSERT_NE(heading, nullptr);
        const double point = PixelsPerPoint();
        EXPECT_NEAR(Pages().verticalScrollBar()->value(), Pages().pageArea(heading->page).top() + heading->top * point,
                    3);
        EXPECT_EQ(screen.WebBrowser1.Document.Get(), Help_Document("mnu_LinkCalc")) << "the heading falls off";
    });
}

TEST_F(ReaderTest, The_Tab_key_goes_round_all_controls_and_leaves_the_page) {
    Read("mnu_Manual", [&] {
        Click(form, "cmd_PageAfter");
        Type(form, "txt_Find", QStringLiteral("crank"));
        QWidget* const start = &Pages();
        start->setFocus();
        std::set<QWidget*> reached;
        for (QWidget* at = form.focusWidget(); reached.insert(at).second; at = form.focusWidget())
            QTest::keyClick(at, Qt::Key_Tab);
        for (const char* name :
             {"cmb_Contents", "cmd_PageBefore", "txt_Page", "cmd_PageAfter", "cmd_Smaller", "cmd_Larger",
              "cmd_FitWidth", "txt_Find", "cmd_FindBefore", "cmd_FindAfter", "cmd_Close"})
            EXPECT_TRUE(reached.contains(&Find<QWidget>(form, name))) << name;
        EXPECT_TRUE(reached.contains(start));
        EXPECT_EQ(screen.WebBrowser1.Page.Get(), 2);
    });
}

TEST_F(ReaderTest, A_click_on_a_reference_goes_there_and_Back_returns) {
    Read("mnu_LinkCalc", [&] {
        const auto link = Link_To("helpfiles/verlink/import_help.pdf");
        Pages().goTo(link.page);
        const double point = PixelsPerPoint();
        const QPointF on_document = Pages().pageArea(link.page).topLeft() + link.area.center() * point;
        const QPoint place = (on_document - QPointF(0, Pages().verticalScrollBar()->value())).toPoint();
        const int page = screen.WebBrowser1.Page;
        QTest::mouseClick(Pages().viewport(), Qt::LeftButton, {}, place);
        EXPECT_EQ(screen.WebBrowser1.Document.Get(), "helpfiles/verlink/import_help.pdf");
        EXPECT_EQ(Document().note(), "");
        Click(form, "cmd_Back");
        EXPECT_EQ(screen.WebBrowser1.Document.Get(), Help_Document("mnu_LinkCalc"));
        EXPECT_EQ(screen.WebBrowser1.Page.Get(), page);
        EXPECT_FALSE(Find<QPushButton>(form, "cmd_Back").isEnabled());
    });
}

TEST_F(ReaderTest, A_reference_within_the_document_can_be_followed_twice) {
    Read("mnu_Manual", [&] {
        const auto link = Link_To("helpfiles/Program_Manual.pdf#limits");
        const QString target = link.target;
        Pages().onLink(target);
        const int there = Pages().verticalScrollBar()->value();
        EXPECT_GT(there, 0);
        Pages().goTo(0);
        Pages().onLink(target);
        EXPECT_EQ(Pages().verticalScrollBar()->value(), there);
    });
}

TEST_F(ReaderTest, Pages_are_shown_larger_smaller_and_as_wide_as_the_window) {
    Read("mnu_Manual", [&] {
        const double fitted = Pages().scale();
        Click(form, "cmd_Larger");
        EXPECT_NEAR(Pages().scale(), fitted * 1.25, 0.001);
        Click(form, "cmd_Smaller");
        Click(form, "cmd_Smaller");
        EXPECT_NEAR(Pages().scale(), fitted / 1.25, 0.001);
        Click(form, "cmd_FitWidth");
        EXPECT_NEAR(Pages().scale(), fitted, 0.001);
        for (int i = 0; i < 20; ++i) Click(form, "cmd_Larger");
        EXPECT_NEAR(Pages().scale(), 5, 0.001);
    });
}

TEST_F(ReaderTest, The_place_in_view_stays_when_the_window_changes) {
    Read("mnu_Manual", [&] {
        Pages().goTo(2, 100);
        form.resize(700, 500);
        QCoreApplication::processEvents();
        const double point = PixelsPerPoint();
        EXPECT_NEAR(Pages().verticalScrollBar()->value(), Pages().pageArea(2).top() + 100 * point, 3);
    });
}

TEST_F(ReaderTest, Pages_lie_where_links_and_marks_expect_them) {
    Read("mnu_Manual", [&] {
        Pages().goTo(1);
        QTest::qWait(400);  // pages are painted in their own time
        const QImage shown = Pages().viewport()->grab().toImage();
        const QRectF page = Pages().pageArea(1).translated(0, -Pages().verticalScrollBar()->value());
        const int y = shown.height() / 2;
        const QRgb paper = qRgb(255, 255, 255);
        EXPECT_EQ(shown.pixel(static_cast<int>(page.left()) + 2, y), paper);
        EXPECT_NE(shown.pixel(static_cast<int>(page.left()) - 2, y), paper);
        EXPECT_EQ(shown.pixel(static_cast<int>(page.right()) - 3, y), paper);
        EXPECT_NE(shown.pixel(static_cast<int>(page.right()) + 2, y), paper);
    });
}

TEST_F(ReaderTest, The_video_goes_to_the_users_player) {
    Player player;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &player, "open");
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/../helpfiles/verlink/");
    const std::string video = (folder + QStringLiteral("for_the_test.webm")).toStdString();
    platform::Write_File(video, "no film");
    Document().show(QStringLiteral("helpfiles/verlink/for_the_test.webm"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    ASSERT_EQ(player.opened.size(), 1);
    EXPECT_TRUE(player.opened[0].toLocalFile().endsWith(QStringLiteral("/for_the_test.webm")));
    EXPECT_TRUE(Document().note().startsWith("Your video player shows this document: "));
    EXPECT_EQ(Document().pages(), 0);
    std::remove(video.c_str());
}

TEST_F(ReaderTest, Escape_closes_the_manual) {
    Show_Help(Help_Document("mnu_UnitsHelp"), "frm_Homescreen.mnu_UnitsHelp");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    EXPECT_EQ(screen.Focus()->Name(), "WebBrowser1");
    QTest::keyClick(form.focusWidget() ? form.focusWidget() : &form, Qt::Key_Escape);
    EXPECT_FALSE(screen.Visible());
}

}  // namespace

}  // namespace verlink::test

#include "reader_test.moc"
