// Screens are shown one from another, and each showing ends as it should.
#include <QPushButton>
#include <QWindow>
#include <cmath>

#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class frm_Shown : public Screen {
   public:
    explicit frm_Shown(const char* name) : Screen(name) {}
    void Form_Activate() override { said += "activate;"; }
    void Form_Return() override { said += "return;"; }
    void Form_QueryUnload(bool& cancel) override {
        said += "query;";
        cancel = refuse;
    }
    void Form_Unload() override { said += "unload;"; }
    void Form_Click() override { said += "click;"; }

    Label lbl_Text{*this, "lbl_Text", "text"};
    CommandButton cmd_Go{*this, "cmd_Go", "Go"};
    std::string said;
    bool refuse = false;
};

class ShowingTest : public DesktopTest {
   protected:
    ~ShowingTest() override { qt.discardForms(); }
    frm_Shown one{"frm_One"}, two{"frm_Two"};
};

TEST_F(ShowingTest, A_showing_lasts_until_the_screen_hides) {
    one.cmd_Go.OnClick = [this] { one.Hide(); };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    one.ShowModal();
    EXPECT_FALSE(qt.formOf(one).isVisible());
    EXPECT_EQ(one.said, "activate;");
}

TEST_F(ShowingTest, A_screen_shown_from_another_takes_the_input_until_it_hides) {
    one.cmd_Go.OnClick = [this] { two.ShowModal(); };
    two.cmd_Go.OnClick = [this] { two.Hide(); };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("frm_Two", [this](QWidget& window) {
        EXPECT_TRUE(qt.formOf(one).isVisible());
        EXPECT_EQ(window.windowModality(), Qt::WindowModal);
        EXPECT_EQ(window.windowHandle()->transientParent(), qt.formOf(one).windowHandle());
        Click(window, "cmd_Go");
    });
    Then("frm_One", [this](QWidget& window) {
        EXPECT_EQ(window.windowModality(), Qt::NonModal) << "a lone window is an ordinary one";
        EXPECT_EQ(one.said, "activate;return;");
        one.Hide();
    });
    one.ShowModal();
}

TEST_F(ShowingTest, A_screen_that_hides_before_it_shows_the_next_ends_when_that_has_ended) {
    std::string order;
    one.cmd_Go.OnClick = [&] {
        one.Hide();
        two.ShowModal();
        order += "two;";
    };
    two.cmd_Go.OnClick = [this] { two.Hide(); };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("frm_Two", [this](QWidget& window) {
        EXPECT_FALSE(qt.formOf(one).isVisible());
        EXPECT_EQ(window.windowModality(), Qt::NonModal);
        Click(window, "cmd_Go");
    });
    one.ShowModal();
    order += "one;";
    EXPECT_EQ(order, "two;one;");
}

TEST_F(ShowingTest, A_screen_may_be_shown_again_before_its_first_showing_has_returned) {
    int rounds = 0;
    one.cmd_Go.OnClick = [this] {
        one.Hide();
        two.ShowModal();
    };
    two.cmd_Go.OnClick = [&] {
        two.Hide();
        if (++rounds < 3) one.ShowModal();
    };
    for (int i = 0; i < 3; ++i) {
        Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
        Then("frm_Two", [](QWidget& window) { Click(window, "cmd_Go"); });
    }
    one.ShowModal();
    EXPECT_EQ(rounds, 3);
    EXPECT_FALSE(qt.formOf(one).isVisible());
    EXPECT_FALSE(qt.formOf(two).isVisible());
}

TEST_F(ShowingTest, A_screen_shown_from_one_above_it_comes_to_the_top) {
    one.cmd_Go.OnClick = [this] { two.ShowModal(); };
    two.cmd_Go.OnClick = [this] { one.ShowModal(); };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("frm_Two", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("frm_One", [this](QWidget& window) {
        EXPECT_EQ(window.windowModality(), Qt::WindowModal);
        one.Hide();
    });
    Then("frm_Two", [this](QWidget&) { two.Hide(); });
    one.ShowModal();
    EXPECT_FALSE(two.Visible());
}

TEST_F(ShowingTest, A_screen_beside_is_in_use_with_the_others_and_closes_none) {
    frm_Shown beside("frm_Beside");
    bool told = false;
    beside.cmd_Go.OnClick = [&told] { told = true; };
    one.cmd_Go.OnClick = [&] {
        beside.ShowBeside();
        two.ShowModal();
    };
    two.cmd_Go.OnClick = [this] { two.Hide(); };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("frm_Beside", [&](QWidget& window) {
        EXPECT_EQ(Screen::Active(), &two);
        EXPECT_TRUE(qt.formOf(beside).inUse());
        EXPECT_TRUE(qt.formOf(two).inUse());
        EXPECT_FALSE(qt.formOf(one).inUse());
        Click(window, "cmd_Go");
        EXPECT_TRUE(told);
    });
    Then("frm_Two", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("frm_One", [&](QWidget&) {
        EXPECT_TRUE(qt.formOf(beside).isVisible());
        EXPECT_TRUE(qt.formOf(one).inUse());
        qt.formOf(beside).close();
        EXPECT_FALSE(beside.Visible());
        one.Hide();
    });
    one.ShowModal();
    EXPECT_EQ(one.said, "activate;return;") << "what stood beside was not above it";
    qt.discardForms();
}

TEST_F(ShowingTest, A_message_can_be_answered_with_a_screen_beside_in_use) {
    frm_Shown beside("frm_Beside");
    one.cmd_Go.OnClick = [&] {
        beside.ShowBeside();
        Tell("a message");
        one.Hide();
    };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("message", [&](QWidget& window) {
        EXPECT_TRUE(qt.formOf(beside).inUse());
        EXPECT_FALSE(qt.formOf(one).inUse());
        beside.Hide();
        QTest::keyClick(&window, Qt::Key_Return);
    });
    one.ShowModal();
    qt.discardForms();
}

TEST_F(ShowingTest, The_end_of_the_process_takes_what_stands_beside) {
    frm_Shown beside("frm_Beside");
    one.cmd_Go.OnClick = [&] {
        beside.ShowBeside();
        qt.End_Process();
    };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    one.ShowModal();
    EXPECT_FALSE(qt.formOf(beside).isVisible());
    qt.discardForms();
}

TEST_F(ShowingTest, The_end_of_the_process_ends_every_showing) {
    one.cmd_Go.OnClick = [this] { two.ShowModal(); };
    two.cmd_Go.OnClick = [this] { qt.End_Process(); };
    Then("frm_One", [](QWidget& window) { Click(window, "cmd_Go"); });
    Then("frm_Two", [](QWidget& window) { Click(window, "cmd_Go"); });
    one.ShowModal();
    EXPECT_TRUE(qt.Ending());
    EXPECT_FALSE(qt.formOf(one).isVisible());
    EXPECT_FALSE(qt.formOf(two).isVisible());
    two.ShowModal();
    EXPECT_FALSE(qt.formOf(two).isVisible()) << "nothing is shown any more";
}

TEST_F(ShowingTest, Closing_the_window_asks_the_screen) {
    Then("frm_One", [this](QWidget& window) {
        one.refuse = true;
        window.close();
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(one.said, "activate;query;");
        one.refuse = false;
        window.close();
    });
    one.ShowModal();
    EXPECT_EQ(one.said, "activate;query;query;unload;");
    EXPECT_FALSE(qt.formOf(one).isVisible());
}

TEST_F(ShowingTest, A_click_on_the_screen_or_on_a_label_is_told) {
    Then("frm_One", [this](QWidget& window) {
        QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(window.width() / 2, window.height() - 5));
        QTest::mouseClick(&Find<QWidget>(window, "lbl_Text"), Qt::LeftButton);
        EXPECT_EQ(one.said, "activate;click;click;");
        Click(window, "cmd_Go");
        EXPECT_EQ(one.said, "activate;click;click;");
        one.Hide();
    });
    one.ShowModal();
}

TEST_F(ShowingTest, Size_and_place_are_the_program_s_wish_and_the_user_s_hand_prevails_until_the_wish_changes) {
    const double twips = desktop::Form::twipsPerPixel();
    one.Width() = std::lround(500 * twips);
    one.Height() = std::lround(300 * twips);
    one.Left() = std::lround(100 * twips);
    one.Top() = std::lround(60 * twips);
    Then("frm_One", [&](QWidget& window) {
        EXPECT_EQ(window.size(), QSize(500, 300));
        EXPECT_EQ(window.pos(), QPoint(100, 60));
        window.resize(600, 350);
        one.Width() = one.Width().Get();
        one.Left() = one.Left().Get();
        EXPECT_EQ(window.size(), QSize(600, 350));
        one.Width() = std::lround(520 * twips);
        EXPECT_EQ(window.size(), QSize(520, 300));
        one.Width() = 10;
        EXPECT_GE(window.width(), window.minimumSizeHint().width());
        one.Caption() = "Input Screen  ";
        EXPECT_EQ(window.windowTitle(), "Input Screen") << "blanks at the end push the words out of a narrow bar";
        one.Hide();
    });
    one.ShowModal();
}

TEST_F(ShowingTest, The_display_has_room_for_the_home_screen_s_design_size) {
    const DisplaySize display = qt.Display();
    EXPECT_GT(display.height, 9480);
    EXPECT_GT(display.width, 11850);
    EXPECT_EQ(display.width_pixels, QGuiApplication::primaryScreen()->geometry().width());
    EXPECT_EQ(display.height_pixels, QGuiApplication::primaryScreen()->geometry().height());
}

}  // namespace

}  // namespace verlink::test
