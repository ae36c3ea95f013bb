// Windows stand where they stood in the last session, as far as the displays allow it.
#include <QScreen>

#include "core/linkage_model.h"
#include "desktop/window_places.h"
#include "platform/settings.h"
#include "screens/register.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using namespace platform;

namespace {

TEST(WithinDisplaysTest, A_place_that_can_be_seen_stays) {
    const QList<QRect> displays = {{0, 0, 1366, 768}, {1366, 0, 1920, 1080}};
    for (const QRect& place : {QRect(10, 20, 800, 600), QRect(1500, 100, 1600, 900)})
        EXPECT_EQ(desktop::withinDisplays(place, displays), place);
}

TEST(WithinDisplaysTest, A_place_on_a_display_that_has_gone_is_brought_back_and_a_large_one_made_smaller) {
    const QList<QRect> one = {{0, 0, 1366, 768}};
    EXPECT_EQ(desktop::withinDisplays({2000, 100, 800, 600}, one), QRect(566, 100, 800, 600));
    EXPECT_EQ(desktop::withinDisplays({-5000, -70, 800, 600}, one), QRect(0, 0, 800, 600));
    const QRect large = desktop::withinDisplays({1366, 0, 1900, 1000}, one);
    EXPECT_EQ(large.left(), 0);
    EXPECT_EQ(large.width(), 1366);
    EXPECT_LT(large.height(), 768) << "and its title bar";
    const QRect between = desktop::withinDisplays({1300, 100, 400, 300}, {{0, 0, 1366, 768}, {1366, 0, 1920, 1080}});
    EXPECT_EQ(between, QRect(1366, 100, 400, 300)) << "where most of it lies";
}

class PlacesTest : public DesktopTest {
   protected:
    /// The next session of the same user.
    void StartAgain() {
        The_Settings().Save();
        qt.discardForms();
        Screens::Discard();
        Reset_Model();
        The_Settings().Open(qt.Settings_Folder());
    }
    void Show(const char* name, std::function<void(QWidget&)> user) {
        Then(name, [name, user](QWidget& window) {
            user(window);
            Screens::Get(name).Hide();
        });
        Screens::Get(name).ShowModal();
    }

    QSize kept_;
};

TEST_F(PlacesTest, A_window_comes_up_where_and_as_large_as_it_was_left) {
    The_Settings().Open(qt.Settings_Folder());
    QRect left;
    Show("frm_About", [&](QWidget& window) {
        window.resize(window.size() + QSize(31, 17));
        window.move(window.pos() + QPoint(-23, 5));
        left = {window.pos(), window.size()};
    });
    StartAgain();
    Show("frm_About", [&](QWidget& window) { EXPECT_EQ(QRect(window.pos(), window.size()), left); });
}

TEST_F(PlacesTest, A_broken_setting_is_none) {
    The_Settings().Open(qt.Settings_Folder());
    QRect standard;
    Show("frm_About", [&](QWidget& window) { standard = {window.pos(), window.size()}; });
    const auto wish = [] {
        Screen& screen = Screens::Get("frm_About");
        return std::vector<std::string>{std::to_string(screen.Width()), std::to_string(screen.Height())};
    };
    const std::vector<std::vector<std::string>> broken = {
        {}, {"x"}, {"1", "2", "3"}, {"0", "0", "99999999999", "0", "-5", "-5", "0"}, {"", "", "", "", "", "", ""}};
    for (std::vector<std::string> numbers : broken) {
        if (numbers.size() == 7) std::copy_n(wish().begin(), 2, numbers.begin());
        The_Settings().Put("window.frm_About", numbers);
        StartAgain();
        Show("frm_About", [&](QWidget& window) { EXPECT_EQ(QRect(window.pos(), window.size()), standard); });
    }
}

TEST_F(PlacesTest, A_place_far_away_comes_back_to_the_display) {
    The_Settings().Open(qt.Settings_Folder());
    QSize size;
    Show("frm_About", [&](QWidget& window) { size = window.size(); });
    std::vector<std::string> numbers = The_Settings().List("window.frm_About");
    ASSERT_EQ(numbers.size(), 7u);
    numbers[2] = "90000";
    numbers[3] = "-90000";
    The_Settings().Put("window.frm_About", numbers);
    StartAgain();
    Show("frm_About", [&](QWidget& window) {
        const QRect display = QGuiApplication::primaryScreen()->availableGeometry();
        EXPECT_TRUE(display.contains(QRect(window.pos(), window.size())));
        EXPECT_EQ(window.size(), size);
    });
}

TEST_F(PlacesTest, The_screen_size_is_that_of_the_last_session) {
    for (const bool maximized : {false, true, true, false}) {
        SCOPED_TRACE(maximized);
        qt.discardForms();
        Screens::Discard();
        Reset_Model();
        desktop::QtDesktop session;
        Use_Desktop(&session);
        const bool before = Model.FullScreen;
        EXPECT_FALSE(before);
        ThenArrive();
        Then("frm_HomeScreen", [&, maximized](QWidget& window) {
            Pick(window, maximized ? "mnu_Fullscreen" : "mnu_Standardsize");
            EXPECT_EQ(Model.FullScreen, maximized);
            kept_ = window.size();
            Click(window, "cmd_Quit");
        });
        Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
        Sub_Main("");

        session.discardForms();
        Screens::Discard();
        Reset_Model();
        desktop::QtDesktop next;
        Use_Desktop(&next);
        ThenArrive();
        Then("frm_HomeScreen", [&, maximized](QWidget& window) {
            EXPECT_EQ(Model.FullScreen, maximized);
            EXPECT_EQ(window.size(), kept_);
            Click(window, "cmd_Quit");
        });
        Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
        Sub_Main("");
        next.discardForms();
        Screens::Discard();
        Use_Desktop(&qt);
    }
}

}  // namespace

}  // namespace verlink::test
