// A hand that is faster than the windows: what is pressed before the next screen is up does nothing, and nothing hangs.
#include <QAbstractButton>
#include <QDialog>
#include <QMenuBar>
#include <QPushButton>
#include <QRandomGenerator>
#include <QWindow>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <thread>

#include "desktop/pace.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;
using desktop::Form;

namespace {

/// Ends the process, with words, when nobody has said for so long that things go on.
class Watchdog {
   public:
    explicit Watchdog(std::string whose) : whose_(std::move(whose)), thread_([this] { Watch(); }) {}
    ~Watchdog() {
        ended_ = true;
        thread_.join();
    }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    void GoesOn() { ++beats_; }

   private:
    void Watch() {
        constexpr int kPatience = 600;  // tenths of a second
        int waited = 0;
        for (long seen = -1; !ended_; std::this_thread::sleep_for(std::chrono::milliseconds(100))) {
            const long beats = beats_;
            waited = beats == seen ? waited + 1 : 0;
            seen = beats;
            if (waited < kPatience) continue;
            std::fprintf(stderr, "FROZEN: %s, after %ld keys\n", whose_.c_str(), beats);
            std::_Exit(1);
        }
    }

    std::string whose_;
    std::atomic<long> beats_{0};
    std::atomic<bool> ended_{false};
    std::thread thread_;
};

struct Key {
    Qt::Key key;
    Qt::KeyboardModifiers with;
};

Key Letter(char letter, Qt::KeyboardModifiers with = Qt::AltModifier) {
    return {static_cast<Qt::Key>(Qt::Key_A + (letter - 'A')), with};
}

/// Where the keys of a keyboard go.
QWidget* Reached() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    QWidget* window = QApplication::activeModalWidget();
    if (!window)
        for (QWidget* candidate : QApplication::topLevelWidgets())
            if (dynamic_cast<Form*>(candidate) && candidate->isVisible()) window = candidate;
    if (!window) return nullptr;
    if (!window->isActiveWindow()) window->activateWindow();
    QWidget* focus = window->focusWidget();
    return focus ? focus : window;
}

void Strike(QWidget& at, const Key& key) { QTest::keyClick(&at, key.key, key.with); }

/// The windows of the screens, and which of them lies over which.
void ExpectOrder() {
    int lone = 0;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* form = dynamic_cast<Form*>(widget);
        if (!form || !form->windowHandle()) continue;
        const QWindow* above = form->windowHandle()->transientParent();
        lone += form->isVisible() && !above && !form->screen().Beside() ? 1 : 0;
        EXPECT_TRUE(form->isVisible() || !above) << form->screen().Name() << " is hidden, and over another";
        for (int ways = 0; above; above = above->transientParent())
            if (++ways > 30) {
                ADD_FAILURE() << form->screen().Name() << " lies over itself";
                break;
            }
        EXPECT_EQ(form->isVisible(), form->screen().Visible()) << form->screen().Name();
    }
    EXPECT_LE(lone, 1) << "one window is the lowest";
}

class FastHandTest : public DesktopTest {
   protected:
    static void Press(QWidget& window, std::initializer_list<Key> keys) {
        for (const Key& key : keys) Strike(window, key);
    }
    static std::vector<std::string> Up() {
        std::vector<std::string> names;
        for (Screen* screen : Screens::Made())
            if (screen->Visible()) names.push_back(screen->Name());
        return names;
    }
};

TEST_F(FastHandTest, Two_letters_in_one_breath_open_one_screen) {
    ThenArrive();
    Then("frm_HomeScreen", [this](QWidget& window) {
        Click(window, "cmd_Input");
        Click(window, "cmd_Dynamics");
        Press(window, {Letter('D'), Letter('B')});
        Model_Saved();
        Click(window, "cmd_Quit");
    });
    Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Done"); });
    Then("frm_Animate", [](QWidget& window) { Click(window, "cmd_Done"); });
    Then("frm_MassProp", [](QWidget& window) {
        Click(window, "cmd_Solve");
        Click(window, "cmd_Done");
    });
    Then("frm_MassProp", [](QWidget& window) {
        EXPECT_EQ(Up(), (std::vector<std::string>{"frm_HomeScreen", "frm_MassProp"}));
        QWidget* home = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (widget->objectName() == QStringLiteral("frm_HomeScreen")) home = widget;
        // The second letter comes while the first one's screen is up already.
        Find<QPushButton>(*home, "cmd_Balance").click();
        EXPECT_EQ(Up(), (std::vector<std::string>{"frm_HomeScreen", "frm_MassProp"}));
        Click(window, "cmd_Cancel");
    });
    Then("frm_Balance", [](QWidget& window) { Click(window, "cmd_back"); });
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
}

TEST_F(FastHandTest, Back_and_Help_and_Clear_in_one_breath_leave_a_selection_screen_usable) {
    ThenArrive();
    Then("frm_HomeScreen", [](QWidget& window) {
        Click(window, "cmd_Input");
        Click(window, "cmd_Plot");
        ExpectOrder();
        Model_Saved();
        Click(window, "cmd_Quit");
    });
    Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Done"); });
    Then("frm_Animate", [](QWidget& window) { Click(window, "cmd_Done"); });
    Then("frm_PlotType", [](QWidget& window) {
        Click(window, "opt_PickPlot_0");
        Click(window, "cmd_PickPlotDone");
    });
    Then("frm_PlotSelect1", [](QWidget& window) {
        // Each key goes to whatever window is up, without waiting for it.
        Watchdog dog("Back, Help, Clear");
        Press(window, {Letter('B'), Letter('H'), {Qt::Key_Return, {}}, Letter('H'), Letter('C'), Letter('B')});
        dog.GoesOn();
        ExpectOrder();
    });
    Then("frm_PlotType", [](QWidget& window) { Strike(window, {Qt::Key_Escape, {}}); });
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
}

/// Presses random keys, as fast as they are taken.
class RandomHand : public QObject {
   public:
    RandomHand(desktop::QtDesktop& qt, unsigned seed, int keys)
        : qt_(qt), random_(seed), left_(keys), dog_("a hand with the seed " + std::to_string(seed)) {
        Next();
    }

    std::set<std::string> visited;

   private:
    void Next() {
        QTimer::singleShot(0, this, [this] { Burst(); });
    }

    /// Comes before the keys: whatever they open, the next ones are pressed there.
    void Burst() {
        dog_.GoesOn();
        if (qt_.Ending()) return;
        Next();
        if (left_ <= 0) return WindDown();
        ExpectOrder();
        for (int keys = 1 + Any(3); keys > 0; --keys) {
            QWidget* widget = Any(12) == 0 ? Elsewhere() : Reached();
            --left_;
            if (!widget || qt_.Ending()) return;
            const std::string window = widget->window()->objectName().toStdString();
            if (window.starts_with("frm_")) visited.insert(window);
            // A hand that is asked whether to quit says no.
            const Key key = window == "frm_Quit" ? Key{Qt::Key_Escape, {}} : AnyKey(*widget->window());
            Strike(*widget, key);
        }
    }

    /// A window that is up, and maybe under another one.
    QWidget* Elsewhere() {
        std::vector<QWidget*> windows;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (dynamic_cast<Form*>(widget) && widget->objectName() != QStringLiteral("frm_Quit"))
                windows.push_back(widget);
        if (windows.empty()) return nullptr;
        QWidget* window = windows[static_cast<std::size_t>(Any(static_cast<int>(windows.size())))];
        return window->focusWidget() ? window->focusWidget() : window;
    }

    Key AnyKey(const QWidget& window) {
        const int kind = Any(20);
        if (kind < 8) return Captioned(window);
        if (kind == 8) return Letter(static_cast<char>('A' + Any(26)));
        if (kind < 11) return Letter(static_cast<char>('A' + Any(26)), Qt::NoModifier);
        if (kind < 13) return {static_cast<Qt::Key>(Qt::Key_0 + Any(10)), Qt::NoModifier};
        constexpr Qt::Key kKeys[] = {Qt::Key_Tab,  Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape,
                                     Qt::Key_Down, Qt::Key_Left, Qt::Key_Space,  Qt::Key_Delete, Qt::Key_Comma};
        return {kKeys[Any(std::size(kKeys))], Qt::NoModifier};
    }

    /// A letter that one of the window's buttons or menus goes by.
    Key Captioned(const QWidget& window) {
        std::vector<char> letters;
        const auto add = [&letters](const QString& text) {
            const qsizetype mark = text.indexOf(u'&');
            if (mark < 0 || mark + 1 >= text.size()) return;
            const char letter = text[mark + 1].toUpper().toLatin1();
            if (letter >= 'A' && letter <= 'Z') letters.push_back(letter);
        };
        for (const auto* button : window.findChildren<QAbstractButton*>()) add(button->text());
        for (const auto* menus : window.findChildren<QMenuBar*>())
            for (const QAction* menu : menus->actions()) add(menu->text());
        if (letters.empty()) return {Qt::Key_Return, Qt::NoModifier};
        return Letter(letters[static_cast<std::size_t>(Any(static_cast<int>(letters.size())))]);
    }

    void WindDown() {
        if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
            return;
        }
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) return dialog->reject();
        if (desktop::inPause()) return Strike(*Reached(), {Qt::Key_Escape, {}});
        qt_.End_Process();
    }

    int Any(std::size_t of) { return static_cast<int>(random_.bounded(static_cast<quint32>(of))); }

    desktop::QtDesktop& qt_;
    QRandomGenerator random_;
    int left_;
    Watchdog dog_;
};

class RandomHandTest : public DesktopTest, public testing::WithParamInterface<unsigned> {};

TEST_P(RandomHandTest, Any_keys_without_a_wait_hang_nothing) {
    ActAlone();
    RandomHand hand(qt, GetParam(), 2000);
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
    EXPECT_GE(hand.visited.size(), 5U) << "it came past the first screens";
}

INSTANTIATE_TEST_SUITE_P(Hands, RandomHandTest, testing::Values(1U, 2U, 3U));

}  // namespace

}  // namespace verlink::test
