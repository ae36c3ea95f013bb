// The hand on the widget of a picture: taking, dragging, and the glass by wheel, buttons, fingers and keys.
#include <QNativeGestureEvent>
#include <QPainter>
#include <QPicture>
#include <QPointingDevice>
#include <QWheelEvent>
#include <optional>

#include "desktop/picture_widget.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class GesturesTest : public testing::Test {
   protected:
    GesturesTest() {
        picture.Scale(-2, -2, 2, 2);
        picture.Line(-1, -0.5, 1, 0.7, 0xFF00FF);
        widget.magnify();
        widget.resize(402, 402);
        widget.show();
        QCoreApplication::processEvents();
    }
    /// A place in parts of the picture.
    QPointF At(double across, double down) const {
        const QRectF area = widget.area();
        return {area.x() + across * area.width(), area.y() + down * area.height()};
    }
    void Mouse(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons,
               Qt::KeyboardModifiers keys = {}) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button, buttons, keys);
        QApplication::sendEvent(&widget, &event);
    }
    void Press(QPointF at, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        Mouse(QEvent::MouseButtonPress, at, button, button, keys);
    }
    void Move(QPointF at, Qt::MouseButtons buttons = Qt::LeftButton, Qt::KeyboardModifiers keys = {}) {
        Mouse(QEvent::MouseMove, at, Qt::NoButton, buttons, keys);
    }
    void Release(QPointF at, Qt::MouseButton button = Qt::LeftButton) {
        Mouse(QEvent::MouseButtonRelease, at, button, Qt::NoButton);
    }
    void Wheel(QPointF at, int angle, QPoint pixels = {}, const QPointingDevice* device = nullptr,
               Qt::KeyboardModifiers keys = {}) {
        QWheelEvent event(at, widget.mapToGlobal(at), pixels, {0, angle}, Qt::NoButton, keys, Qt::NoScrollPhase, false,
                          Qt::MouseEventNotSynthesized, device ? device : QPointingDevice::primaryPointingDevice());
        QApplication::sendEvent(&widget, &event);
    }
    /// The world under a place, as the program is told.
    QPointF World(QPointF at) {
        std::optional<Touch> told;
        widget.onSeize = [&](const Touch& touch) {
            told = touch;
            return false;
        };
        Press(at);
        Release(at);
        widget.onSeize = nullptr;
        return told ? QPointF(told->x, told->y) : QPointF(1e9, 1e9);
    }

    Picture picture;
    desktop::PictureWidget widget{picture, nullptr};
};

TEST_F(GesturesTest, The_wheel_zooms_about_the_pointer) {
    const QPointF at = At(0.25, 0.7);
    const QPointF before = World(at);
    EXPECT_NEAR(before.x(), -1, 1e-9);
    Wheel(at, 240);
    EXPECT_NEAR(widget.glass().factor, 1.44, 1e-9);
    EXPECT_NEAR(World(at).x(), before.x(), 1e-9);
    EXPECT_NEAR(World(at).y(), before.y(), 1e-9);
    Wheel(at, -240);
    EXPECT_EQ(widget.glass().factor, 1);
}

TEST_F(GesturesTest, A_picture_without_a_glass_leaves_the_wheel_to_others) {
    desktop::PictureWidget plain(picture, nullptr);
    plain.resize(200, 200);
    QWheelEvent event({50, 50}, {50, 50}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&plain, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(plain.glass(), Glass{});
}

TEST_F(GesturesTest, The_middle_button_moves_the_picture_and_so_does_a_drag_on_empty_ground) {
    for (const Qt::MouseButton button : {Qt::MiddleButton, Qt::LeftButton}) {
        widget.setGlass({2, 0.5, 0.5});
        const QPointF from = At(0.5, 0.5), to = At(0.6, 0.3);
        const QPointF held = World(from);
        Press(from, button);
        Move(At(0.55, 0.4), button);
        EXPECT_EQ(widget.cursor().shape(), Qt::SizeAllCursor);
        Move(to, button);
        Release(to, button);
        EXPECT_NEAR(World(to).x(), held.x(), 1e-9);
        EXPECT_NEAR(World(to).y(), held.y(), 1e-9);
        EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
    }
}

TEST_F(GesturesTest, A_click_that_trembles_moves_nothing) {
    Press(At(0.5, 0.5));
    Move(At(0.5, 0.5) + QPointF(1, 1));
    Release(At(0.5, 0.5) + QPointF(1, 1));
    EXPECT_EQ(widget.glass(), Glass{});
}

TEST_F(GesturesTest, A_double_click_fits) {
    widget.setGlass({5, 0.2, 0.3});
    Press(At(0.5, 0.5));
    Release(At(0.5, 0.5));
    Mouse(QEvent::MouseButtonDblClick, At(0.5, 0.5), Qt::LeftButton, Qt::LeftButton);
    Release(At(0.5, 0.5));
    EXPECT_EQ(widget.glass(), Glass{});
}

TEST_F(GesturesTest, A_second_press_soon_after_the_first_takes_again_and_does_not_fit) {
    int taken = 0, let_go = 0, drags = 0;
    widget.onSeize = [&](const Touch&) { return ++taken > 0; };
    widget.onDrag = [&](const Touch&) { ++drags; };
    widget.onLetGo = [&] { ++let_go; };
    widget.setGlass({5, 0.2, 0.3});
    Press(At(0.5, 0.5));
    Release(At(0.5, 0.5));
    Mouse(QEvent::MouseButtonDblClick, At(0.5, 0.5), Qt::LeftButton, Qt::LeftButton);
    Move(At(0.6, 0.5));
    Release(At(0.6, 0.5));
    EXPECT_EQ(taken, 2);
    EXPECT_EQ(drags, 1);
    EXPECT_EQ(let_go, 2);
    EXPECT_EQ(widget.glass().factor, 5);
}

TEST_F(GesturesTest, What_is_taken_follows_from_the_first_real_move_to_the_release) {
    std::vector<Touch> told;
    int let_go = 0;
    widget.onSeize = [&](const Touch& at) {
        told.push_back(at);
        return true;
    };
    widget.onDrag = [&](const Touch& at) { told.push_back(at); };
    widget.onLetGo = [&] { ++let_go; };
    widget.setGlass({4, 0.5, 0.5});
    Press(At(0.5, 0.5), Qt::LeftButton, Qt::ControlModifier);
    Move(At(0.5, 0.5) + QPointF(1, 0));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told[0].keys, 2);
    EXPECT_NEAR(told[0].pixel, 4.0 / 400 / 4, 1e-12);
    Move(At(0.75, 0.5), Qt::LeftButton, Qt::AltModifier);
    // Back at the place of the press it goes on following.
    Move(At(0.5, 0.5), Qt::LeftButton, Qt::ShiftModifier);
    ASSERT_EQ(told.size(), 3U);
    EXPECT_NEAR(told[1].x, 0.25, 1e-9);
    EXPECT_EQ(told[1].keys, 4);
    EXPECT_NEAR(told[2].x, 0, 1e-9);
    EXPECT_EQ(told[2].keys, 1);
    // Another button changes nothing of that.
    Mouse(QEvent::MouseButtonPress, At(0.5, 0.5), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    Mouse(QEvent::MouseButtonRelease, At(0.5, 0.5), Qt::RightButton, Qt::LeftButton);
    EXPECT_EQ(let_go, 0);
    Release(At(0.5, 0.5));
    EXPECT_EQ(let_go, 1);
    EXPECT_EQ(widget.glass().factor, 4);
}

TEST_F(GesturesTest, A_release_that_a_message_has_eaten_is_noticed_at_the_next_move) {
    int let_go = 0;
    std::vector<Touch> hovered;
    widget.onSeize = [](const Touch&) { return true; };
    widget.onLetGo = [&] { ++let_go; };
    widget.onHover = [&](const Touch& at) { hovered.push_back(at); };
    Press(At(0.5, 0.5));
    Move(At(0.6, 0.6));
    Move(At(0.6, 0.7), Qt::NoButton);
    EXPECT_EQ(let_go, 1);
    ASSERT_EQ(hovered.size(), 1U);
    EXPECT_NEAR(hovered[0].y, 0.8, 1e-9);
    Press(At(0.5, 0.5));
    widget.hide();
    EXPECT_EQ(let_go, 2);
}

TEST_F(GesturesTest, Two_fingers_on_a_pad_move_the_picture_and_with_the_control_key_zoom) {
    const QPointingDevice pad(QStringLiteral("pad"), 17, QInputDevice::DeviceType::TouchPad,
                              QPointingDevice::PointerType::Finger, QInputDevice::Capability::Scroll, 2, 3);
    Wheel(At(0.5, 0.5), 120, {40, -80}, &pad);
    EXPECT_EQ(widget.glass().factor, 1);
    EXPECT_NEAR(widget.glass().across, 0.4, 1e-9);
    EXPECT_NEAR(widget.glass().down, 0.7, 1e-9);
    Wheel(At(0.5, 0.5), 120, {0, 40}, &pad, Qt::ControlModifier);
    EXPECT_NEAR(widget.glass().factor, 1.2, 1e-9);
}

TEST_F(GesturesTest, A_pinch_that_the_platform_tells_zooms_about_the_fingers) {
    const QPointF at = At(0.8, 0.2);
    const QPointF before = World(at);
    const auto tell = [&](Qt::NativeGestureType type, double value, QPointF delta = {}) {
        QNativeGestureEvent event(type, QPointingDevice::primaryPointingDevice(), 2, at, at, widget.mapToGlobal(at),
                                  value, delta);
        QApplication::sendEvent(&widget, &event);
    };
    tell(Qt::ZoomNativeGesture, 0.5);
    EXPECT_NEAR(widget.glass().factor, 1.5, 1e-9);
    EXPECT_NEAR(World(at).x(), before.x(), 1e-9);
    const Glass zoomed = widget.glass();
    tell(Qt::PanNativeGesture, 0, {30, 0});
    EXPECT_NEAR(widget.glass().across, zoomed.across - 30.0 / 400 / 1.5, 1e-9);
    tell(Qt::SmartZoomNativeGesture, 1);
    EXPECT_EQ(widget.glass(), Glass{});
}

TEST_F(GesturesTest, Two_fingers_on_a_screen_pinch) {
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const QPoint middle = widget.rect().center();
    const auto touch = [&](int apart) { return std::pair{middle - QPoint(apart, 0), middle + QPoint(apart, 0)}; };
    auto [a, b] = touch(30);
    QTest::touchEvent(&widget, screen.get()).press(0, a, &widget).press(1, b, &widget);
    for (int apart = 35; apart <= 90; apart += 5) {
        std::tie(a, b) = touch(apart);
        QTest::touchEvent(&widget, screen.get()).move(0, a, &widget).move(1, b, &widget);
    }
    QTest::touchEvent(&widget, screen.get()).release(0, a, &widget).release(1, b, &widget);
    EXPECT_GT(widget.glass().factor, 2);
    EXPECT_LT(widget.glass().factor, 3.2);
    EXPECT_NEAR(widget.glass().across, 0.5, 0.02);
}

TEST_F(GesturesTest, Keys_zoom_move_and_fit_and_all_others_are_the_window_s) {
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_PageUp);
    QTest::keyClick(&widget, Qt::Key_PageUp);
    EXPECT_NEAR(widget.glass().factor, 1.44, 1e-9);
    EXPECT_EQ(widget.glass().across, 0.5);
    QTest::keyClick(&widget, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_GT(widget.glass().across, 0.5);
    QTest::keyClick(&widget, Qt::Key_Left, Qt::ShiftModifier);
    QTest::keyClick(&widget, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_NEAR(widget.glass().across, 0.5, 1e-12);
    EXPECT_GT(widget.glass().down, 0.5);
    QTest::keyClick(&widget, Qt::Key_PageDown);
    EXPECT_NEAR(widget.glass().factor, 1.2, 1e-9);
    QTest::keyClick(&widget, Qt::Key_Home);
    EXPECT_EQ(widget.glass(), Glass{});
    QTest::keyClick(&widget, Qt::Key_Right);
    QTest::keyClick(&widget, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(widget.glass(), Glass{});
}

TEST_F(GesturesTest, Keys_that_the_program_asks_for_are_told_by_name_with_what_is_held) {
    std::vector<Picture_Key> told;
    widget.onKey = [&](const Picture_Key& key) { told.push_back(key); };
    widget.setKeys("P Left Ctrl+Left Esc 7");
    widget.setFocus();
    QTest::keyClick(&widget, Qt::Key_P);
    QTest::keyClick(&widget, Qt::Key_Left, Qt::ControlModifier);
    QTest::keyClick(&widget, Qt::Key_7);
    QTest::keyClick(&widget, Qt::Key_Left, Qt::AltModifier);
    QTest::keyClick(&widget, Qt::Key_B);
    ASSERT_EQ(told.size(), 3U);
    EXPECT_EQ(told[0].key, "P");
    EXPECT_EQ(told[1].key, "Left");
    EXPECT_EQ(told[1].keys, 2);
    EXPECT_NEAR(told[1].pixel, 0.01, 1e-12);
    EXPECT_EQ(told[2].key, "7");
}

TEST_F(GesturesTest, The_light_is_on_the_screen_and_not_on_paper) {
    const QImage plain = widget.grab().toImage();
    widget.setLight(Light{0.5, -0.5, false});
    const QImage lit = widget.grab().toImage();
    widget.setLight(Light{0.5, -0.5, true});
    const QImage held = widget.grab().toImage();
    EXPECT_NE(lit, plain);
    EXPECT_NE(held, lit);
    // At its place, and of one size under the glass.
    const auto changed = [](const QImage& a, const QImage& b) {
        QRect around;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                if (a.pixel(x, y) != b.pixel(x, y)) around |= QRect(x, y, 1, 1);
        return around;
    };
    const QRect ring = changed(plain, lit);
    EXPECT_LT(std::abs(ring.center().x() - At(0.625, 0.375).x()), 1.5);
    widget.setLight({});
    widget.setGlass({6, 0.625, 0.375});
    const QImage near = widget.grab().toImage();
    widget.setLight(Light{0.5, -0.5, false});
    EXPECT_EQ(changed(near, widget.grab().toImage()).size(), ring.size());

    const auto on_paper = [&] {
        QPicture paper;
        QPainter painter(&paper);
        widget.render(&painter);
        painter.end();
        return QByteArray(paper.data(), static_cast<int>(paper.size()));
    };
    const QByteArray with_light = on_paper();
    widget.setLight({});
    EXPECT_EQ(on_paper(), with_light);
}

TEST_F(GesturesTest, The_pointer_takes_the_shape_that_the_program_wishes) {
    widget.setGrip(Grip::kOpenHand);
    EXPECT_EQ(widget.cursor().shape(), Qt::OpenHandCursor);
    widget.setGrip(Grip::kClosedHand);
    EXPECT_EQ(widget.cursor().shape(), Qt::ClosedHandCursor);
    widget.setGrip(Grip::kArrow);
    EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
}

}  // namespace

}  // namespace verlink::test
