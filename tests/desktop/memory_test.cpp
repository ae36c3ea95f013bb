// What windows hold while they are shown goes when they are hidden, and drawing over and over holds nothing.
#include <malloc.h>

#include <functional>

#include "desktop/picture_widget.h"
#include "tests/desktop/screens.h"

namespace verlink::test {

using namespace platform;

namespace {

/// Of what the process has asked for, in kB: holes between blocks do not count.
double InUse() {
    const auto info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / 1024;
}

/// By how much that grows over so many rounds, when the first have filled all caches.
double Growth(int rounds, const std::function<void()>& round) {
    for (int i = 0; i < 3; ++i) round();
    const double before = InUse();
    for (int i = 0; i < rounds; ++i) round();
    return InUse() - before;
}

void Draw(Picture& picture, int turn) {
    picture.Cls();
    picture.Scale(-2 - turn % 3, -2, 2, 2);
    for (int i = 0; i < 500; ++i) {
        picture.Line(0, 0, 0.004 * i, 1, 255);
        picture.Circle(0.004 * i, 1, 0.1, 0);
    }
}

TEST_F(ScreensTest, Windows_that_come_and_go_hold_nothing_afterwards) {
    const double grown = Growth(5, [this] {
        ForEach([](Screen&, desktop::Form& form) {
            form.show();
            QCoreApplication::processEvents();
            form.hide();
            QCoreApplication::processEvents();
        });
    });
    EXPECT_LT(grown, 2000);
}

TEST(MemoryTest, A_picture_that_is_drawn_again_and_again_holds_no_more) {
    Picture picture;
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(400, 400);
    widget.show();
    int turn = 0;
    const double grown = Growth(200, [&] {
        Draw(picture, ++turn);
        widget.paintNow();
        picture.Line(0, 0, 1, turn * 0.001, 0xFF00);
        widget.paintNow();
    });
    EXPECT_LT(grown, 500);
}

TEST(MemoryTest, A_hidden_picture_holds_no_pixels) {
    Picture picture;
    Draw(picture, 0);
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(1200, 1200);
    widget.show();
    QCoreApplication::processEvents();
    widget.hide();
    QCoreApplication::processEvents();
    const double hidden = InUse();
    widget.show();
    widget.grab();
    QCoreApplication::processEvents();
    const double shown = InUse();
    widget.hide();
    QCoreApplication::processEvents();
    EXPECT_GT(shown, hidden + 5000) << "a window of that size has at least that many pixels";
    EXPECT_LT(InUse(), hidden + 1000);
}

}  // namespace

}  // namespace verlink::test
