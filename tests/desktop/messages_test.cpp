// Messages show exactly what they are given and answer as they are answered.
#include "desktop/messages.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class MessagesTest : public DesktopTest {
   protected:
    /// Shows a message, lets the user look at the box, and gives the answer.
    Answer Show(const Message& message, std::function<void(QMessageBox&)> user) {
        Then("message", [user](QWidget& window) { user(static_cast<QMessageBox&>(window)); });
        return qt.Show_Message(message);
    }
};

void Press(QMessageBox& box, QMessageBox::StandardButton button) { box.button(button)->click(); }

QAbstractButton* Called(QMessageBox& box, const char* caption) {
    for (QAbstractButton* button : box.buttons())
        if (button->text().remove(u'&') == QString::fromLatin1(caption)) return button;
    ADD_FAILURE() << "no button " << caption;
    return box.buttons().constFirst();
}

TEST_F(MessagesTest, The_text_keeps_its_blanks_and_ends_its_lines) {
    const std::string text = std::string("   Indented   twice") + CR + CR + "  next" + CRLF + "<b>last</b> & so  ";
    Show({.text = text}, [](QMessageBox& box) {
        EXPECT_EQ(box.text(), "   Indented   twice\n\n  next\n<b>last</b> & so  ");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box.windowTitle(), "Verlink");
        Press(box, QMessageBox::Ok);
    });
}

TEST_F(MessagesTest, A_long_line_is_not_broken_where_the_display_has_the_room) {
    const std::string line(80, 'n');
    Show({.text = line + CR + "short"}, [](QMessageBox& box) {
        const auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        ASSERT_NE(label, nullptr);
        EXPECT_LT(label->height(), 3 * label->fontMetrics().lineSpacing());
        Press(box, QMessageBox::Ok);
    });
}

TEST_F(MessagesTest, Each_icon_is_the_one_told) {
    const std::pair<Icon, QMessageBox::Icon> icons[] = {{Icon::kExclamation, QMessageBox::Warning},
                                                        {Icon::kQuestion, QMessageBox::Question},
                                                        {Icon::kInformation, QMessageBox::Information},
                                                        {Icon::kNone, QMessageBox::NoIcon}};
    for (const auto& [icon, shown] : icons)
        Show({.text = "x", .icon = icon}, [shown = shown](QMessageBox& box) {
            EXPECT_EQ(box.icon(), shown);
            Press(box, QMessageBox::Ok);
        });
}

TEST_F(MessagesTest, Each_button_gives_its_answer_and_no_other_buttons_are_there) {
    using Pair = std::pair<const char*, Answer>;
    const std::pair<Buttons, std::vector<Pair>> sets[] = {
        {Buttons::kOk, {{"OK", Answer::kOk}}},
        {Buttons::kOkCancel, {{"OK", Answer::kOk}, {"Cancel", Answer::kCancel}}},
        {Buttons::kYesNo, {{"Yes", Answer::kYes}, {"No", Answer::kNo}}},
        {Buttons::kRetryCancel, {{"Retry", Answer::kRetry}, {"Cancel", Answer::kCancel}}},
        {Buttons::kAbortRetryIgnore,
         {{"Abort", Answer::kAbort}, {"Retry", Answer::kRetry}, {"Ignore", Answer::kIgnore}}}};
    for (const auto& [buttons, pairs] : sets)
        for (const auto& [button, answer] : pairs) {
            const std::size_t count = pairs.size();
            EXPECT_EQ(Show({.text = "x", .buttons = buttons},
                           [&, button = button](QMessageBox& box) {
                               EXPECT_EQ(static_cast<std::size_t>(box.buttons().size()), count);
                               Called(box, button)->click();
                           }),
                      answer);
        }
}

TEST_F(MessagesTest, Abort_Retry_and_Ignore_stand_in_this_order) {
    Show({.text = "x", .buttons = Buttons::kAbortRetryIgnore}, [](QMessageBox& box) {
        const int abort = Called(box, "Abort")->x(), retry = Called(box, "Retry")->x();
        EXPECT_LT(abort, retry);
        EXPECT_LT(retry, Called(box, "Ignore")->x());
        Called(box, "Ignore")->click();
    });
}

TEST_F(MessagesTest, Abort_Retry_and_Ignore_are_answered_by_Escape_and_by_closing_as_by_the_default) {
    const Answer answers[] = {Answer::kAbort, Answer::kRetry, Answer::kIgnore};
    for (const int number : {1, 2, 3}) {
        const Message message{.text = "x", .buttons = Buttons::kAbortRetryIgnore, .default_button = number};
        const Answer wanted = answers[number - 1];
        EXPECT_EQ(Show(message, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }), wanted);
        EXPECT_EQ(Show(message, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }), wanted);
        EXPECT_EQ(Show(message, [](QMessageBox& box) { box.close(); }), wanted);
    }
}

TEST_F(MessagesTest, The_default_button_is_the_one_told) {
    for (const int number : {1, 2})
        Show({.text = "x", .buttons = Buttons::kYesNo, .default_button = number}, [number](QMessageBox& box) {
            EXPECT_EQ(box.defaultButton(), box.button(number == 1 ? QMessageBox::Yes : QMessageBox::No));
            Press(box, QMessageBox::No);
        });
}

TEST_F(MessagesTest, Escape_is_No_or_Cancel_or_OK) {
    const std::pair<Buttons, Answer> answers[] = {{Buttons::kOk, Answer::kOk},
                                                  {Buttons::kOkCancel, Answer::kCancel},
                                                  {Buttons::kYesNo, Answer::kNo},
                                                  {Buttons::kRetryCancel, Answer::kCancel}};
    for (const auto& [buttons, answer] : answers)
        EXPECT_EQ(
            Show({.text = "x", .buttons = buttons}, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
            answer);
}

TEST_F(MessagesTest, The_hourglass_makes_way_for_a_message_and_comes_back) {
    qt.Set_Pointer(Pointer::kHourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Show({.text = "x"}, [](QMessageBox& box) {
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        Press(box, QMessageBox::Ok);
    });
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    qt.Set_Pointer(Pointer::kDefault);
    qt.Set_Pointer(Pointer::kDefault);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace

}  // namespace verlink::test
