// The picture is painted clean and crisp, and knows where the mouse is.
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <cstdlib>

#include "desktop/picture_widget.h"
#include "desktop/theme.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using platform::Picture;

namespace {

constexpr platform::Color kMagenta = 0xFF00FF, kGreen = 0x00FF00, kBlack = 0, kWhite = 0xFFFFFF;

QImage Painted(const Picture& picture, int side, double density = 1) {
    QImage image(qRound(side * density), qRound(side * density), QImage::Format_RGB32);
    image.setDevicePixelRatio(density);
    QPainter painter(&image);
    desktop::paintPicture(painter, picture, side);
    return image;
}

void DrawCurve(Picture& picture, platform::Color color) {
    picture.Line(4, 0, 4, 0, color);
    for (int i = 1; i <= 90; ++i) picture.LineTo(4 * std::cos(i * 0.0698), 3 * std::sin(i * 0.0698), color);
}

void DrawLinkage(Picture& picture, double angle, platform::Color color) {
    picture.Line(0, 0, std::cos(angle), std::sin(angle), color);
    picture.LineTo(3, 2, color);
    picture.LineTo(3, 0, color);
    picture.Circle(std::cos(angle), std::sin(angle), 0.1, color);
}

TEST(PaintTest, Frames_that_are_erased_leave_no_ghosts_and_no_holes) {
    Picture played;
    played.Scale(-5, -5, 5, 5);
    DrawCurve(played, kGreen);
    for (int i = 0; i < 60; ++i) {
        DrawLinkage(played, i * 0.1, kMagenta);
        DrawLinkage(played, i * 0.1, kWhite);
        DrawCurve(played, kGreen);
    }
    DrawLinkage(played, 6.0, kMagenta);

    Picture clean;
    clean.Scale(-5, -5, 5, 5);
    DrawCurve(clean, kGreen);
    DrawLinkage(clean, 6.0, kMagenta);
    EXPECT_EQ(Painted(played, 400), Painted(clean, 400));
    EXPECT_EQ(Painted(played, 400, 2), Painted(clean, 400, 2));
}

TEST(PaintTest, The_world_fills_the_square_with_y_downward) {
    Picture picture;
    picture.Scale(-1, 2, 3, 6);
    picture.PSet(-1 + 1, 2 + 3, kBlack);
    const QImage image = Painted(picture, 400);
    EXPECT_LT(qGray(image.pixel(100, 300)), 160);
    EXPECT_EQ(image.pixel(100, 100), qRgb(255, 255, 255));
}

TEST(PaintTest, Lines_along_the_axes_are_sharp_at_every_density) {
    for (const auto& [density, rows] : {std::pair{1.0, 1}, {1.5, 1}, {2.0, 3}}) {
        Picture picture;
        picture.Scale(-5, -5, 5, 5);
        picture.Line(-4.123, 0.3337, 4.2, 0.3337, kBlack);
        const QImage image = Painted(picture, 401, density);
        int darkest = 255, dark_rows = 0;
        for (int y = 0; y < image.height(); ++y) {
            const int gray = qGray(image.pixel(image.width() / 2, y));
            darkest = std::min(darkest, gray);
            if (gray < 128) ++dark_rows;
        }
        EXPECT_LT(darkest, 10) << "at density " << density;
        EXPECT_EQ(dark_rows, rows) << "at density " << density;
    }
}

TEST(PaintTest, Pens_grow_with_the_density) {
    Picture picture;
    picture.Scale(0, 0, 10, 10);
    picture.Line(1, 1, 9, 8, kBlack);
    const auto ink = [](const QImage& image) {
        double sum = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) sum += 255 - qGray(image.pixel(x, y));
        return sum / 255;
    };
    EXPECT_NEAR(ink(Painted(picture, 300, 2)) / ink(Painted(picture, 300)), 4, 0.1);
}

TEST(PaintTest, Nothing_is_painted_outside_the_square) {
    Picture picture;
    picture.Scale(0, 0, 1, 1);
    picture.Line(-1, 0.5, 2, 0.6, kBlack);
    QImage image(200, 100, QImage::Format_RGB32);
    image.fill(Qt::blue);
    QPainter painter(&image);
    painter.translate(50, 0);
    desktop::paintPicture(painter, picture, 100);
    painter.end();
    EXPECT_EQ(image.pixel(48, 50), qRgb(0, 0, 255));
    EXPECT_EQ(image.pixel(152, 59), qRgb(0, 0, 255));
}

// On a screen the program paints by itself, on paper Qt does.
TEST(PaintTest, A_screen_shows_what_paper_does) {
    Picture picture;
    picture.Scale(-5, -5, 5, 5);
    DrawCurve(picture, kGreen);
    for (int i = 0; i < 8; ++i) DrawLinkage(picture, i * 0.7, kMagenta);
    picture.Line(-4.5, 0, 4.5, 0, kBlack);
    picture.Circle(1, 1, 3.3, kBlack);
    picture.Circle(-1e5, 0, 1e5 - 4, kBlack);
    picture.Line(-1e6, -1e6 + 1, 1e6, 1e6 + 1, kMagenta);
    for (int i = 0; i < 20; ++i) picture.PSet(-4 + 0.3 * i, 4, kBlack);
    for (const double density : {1.0, 2.0}) {
        const QImage paper = Painted(picture, 400, density);
        platform::PicturePixels pixels;
        pixels.Paint(picture, paper.width(), paper.height(), density);
        double apart = 0, ink = 0;
        for (int y = 0; y < paper.height(); ++y)
            for (int x = 0; x < paper.width(); ++x) {
                const int there = qGray(paper.pixel(x, y));
                const int here = qGray(pixels.Pixels()[static_cast<std::size_t>(y * paper.width() + x)]);
                apart += std::abs(there - here);
                ink += 255 - there;
            }
        EXPECT_GT(ink, 255 * 3000);
        EXPECT_LT(apart, 0.12 * ink) << "at density " << density;
    }
}

TEST(PaintTest, Vast_things_leave_the_rest_of_the_picture_white) {
    Picture picture;
    picture.Scale(-5, -5, 5, 5);
    for (int i = 0; i < 500; ++i) {
        picture.Line(-1e9, 1e9 - i * 0.01, 1e9, -1e9 - i * 0.01, kMagenta);
        picture.Circle(i * 1e7, 0, i * 1e7 + 3, kBlack);
        picture.LineTo(1e12, 1e15, kGreen);
    }
    EXPECT_EQ(Painted(picture, 400).pixel(1, 1), qRgb(255, 255, 255));
}

TEST(PictureWidgetTest, A_window_that_is_hidden_keeps_no_pixels_and_shows_them_again) {
    Picture picture;
    picture.Scale(0, 0, 1, 1);
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(202, 202);
    widget.show();
    picture.Line(0, 0.5, 1, 0.5, kMagenta);
    widget.paintNow();
    widget.hide();
    picture.Line(0.5, 0, 0.5, 0.2, kMagenta);
    widget.show();
    const QImage shown = widget.grab().toImage();
    EXPECT_EQ(shown.pixel(50, 101), qRgb(255, 0, 255));
    EXPECT_EQ(shown.pixel(101, 20), qRgb(255, 0, 255));
}

TEST(PictureWidgetTest, Much_is_painted_in_turns_between_which_the_window_answers_and_a_likeness_is_whole) {
    Picture picture;
    picture.Scale(-5, -5, 5, 5);
    for (int i = 0; i < 15000; ++i) picture.Line(-5, i * 6e-4 - 4.5, 5, 4.5 - i * 6e-4, i % 2 ? kMagenta : kGreen);
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(202, 202);
    widget.show();
    int answered = 0;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, [&] { answered += widget.paintedAll() ? 0 : 1; });
    answers.start(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return widget.paintedAll(); }));
    EXPECT_GE(answered, 2);
    const QImage shown = widget.grab().toImage();

    widget.resize(302, 302);
    widget.repaint();
    widget.resize(202, 202);
    widget.repaint();
    EXPECT_FALSE(widget.paintedAll());
    EXPECT_EQ(widget.grab().toImage(), shown);
}

TEST(PictureWidgetTest, Lines_of_text_are_printed_within_the_picture_only) {
    Picture picture;
    desktop::PictureWidget widget(picture, nullptr);
    widget.fill();
    widget.resize(60, 40);
    widget.setLines({"a line that is much wider than the picture", "two", "three", "four", "five", "six"});
    QPicture recording;
    QPainter recorder(&recording);
    widget.render(&recorder);
    recorder.end();

    QImage page(300, 200, QImage::Format_RGB32);
    page.fill(Qt::green);
    QPainter painter(&page);
    painter.drawPicture(0, 0, recording);
    painter.end();
    int inked = 0;
    for (int y = 0; y < page.height(); ++y)
        for (int x = 0; x < page.width(); ++x) {
            const bool within = x < 60 && y < 40;
            if (!within) {
                ASSERT_EQ(page.pixelColor(x, y), QColor(Qt::green)) << x << ',' << y;
            } else if (page.pixelColor(x, y).lightness() < 100) {
                ++inked;
            }
        }
    EXPECT_GT(inked, 50);
}

TEST(PictureWidgetTest, The_picture_is_square_and_in_the_middle) {
    Picture picture;
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(500, 302);
    EXPECT_EQ(widget.area(), QRectF(100, 1, 300, 300));
    widget.resize(302, 500);
    EXPECT_EQ(widget.area(), QRectF(1, 100, 300, 300));
}

TEST(PictureWidgetTest, A_change_is_painted_once_and_at_the_latest_state) {
    Picture picture;
    picture.Scale(0, 0, 1, 1);
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(202, 202);
    widget.show();
    QCoreApplication::processEvents();
    picture.Line(0, 0.5, 1, 0.5, kMagenta);
    widget.paintNow();
    EXPECT_EQ(widget.grab().toImage().pixel(101, 101), qRgb(255, 0, 255));
    picture.Line(0, 0.5, 1, 0.5, kWhite);
    EXPECT_EQ(widget.grab().toImage().pixel(101, 101), qRgb(255, 255, 255));
}

TEST(PictureWidgetTest, The_paper_is_white_on_a_dark_desktop_too) {
    Picture picture;
    desktop::PictureWidget widget(picture, nullptr);
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::Base, QColor(0x10, 0x10, 0x10));
    widget.setPalette(dark);
    widget.resize(102, 102);
    EXPECT_EQ(widget.grab().toImage().pixel(50, 50), qRgb(255, 255, 255));
}

struct Move {
    int button, shift;
    double x, y;
};

TEST(PictureWidgetTest, A_move_with_a_button_down_tells_button_keys_and_place) {
    Picture picture;
    picture.Scale(-2, -2, 2, 2);
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(502, 402);
    std::vector<Move> moves;
    widget.onMouseMove = [&](int button, int shift, double x, double y) { moves.push_back({button, shift, x, y}); };
    const auto move = [&](QPointF at, Qt::MouseButtons buttons, Qt::KeyboardModifiers keys) {
        QMouseEvent event(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, buttons, keys);
        QApplication::sendEvent(&widget, &event);
    };
    const QRectF square = widget.area();
    move(square.center(), Qt::LeftButton, Qt::ShiftModifier);
    move(square.topLeft(), Qt::RightButton, Qt::ControlModifier);
    move(square.topLeft() + QPointF(300, 100), Qt::MiddleButton | Qt::LeftButton,
         Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    ASSERT_EQ(moves.size(), 3u);
    EXPECT_EQ(moves[0].button, 1);
    EXPECT_EQ(moves[0].shift, 1);
    EXPECT_NEAR(moves[0].x, 0, 1e-12);
    EXPECT_NEAR(moves[0].y, 0, 1e-12);
    EXPECT_EQ(moves[1].button, 2);
    EXPECT_EQ(moves[1].shift, 2);
    EXPECT_NEAR(moves[1].x, -2, 1e-12);
    EXPECT_NEAR(moves[1].y, -2, 1e-12);
    EXPECT_EQ(moves[2].button, 5);
    EXPECT_EQ(moves[2].shift, 7);
    EXPECT_NEAR(moves[2].x, 1, 1e-12);
    EXPECT_NEAR(moves[2].y, -1, 1e-12);
}

TEST(PictureWidgetTest, A_press_is_the_first_move) {
    Picture picture;
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(402, 402);
    std::vector<Move> moves;
    widget.onMouseMove = [&](int button, int shift, double x, double y) { moves.push_back({button, shift, x, y}); };
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::ShiftModifier, QPoint(101, 301));
    ASSERT_EQ(moves.size(), 1u);
    EXPECT_EQ(moves[0].button, 1);
    EXPECT_EQ(moves[0].shift, 1);
    EXPECT_NEAR(moves[0].x, 0.25, 1e-9);
    EXPECT_NEAR(moves[0].y, 0.75, 1e-9);
}

TEST(PictureWidgetTest, Moves_without_a_button_are_not_asked_for) {
    Picture picture;
    desktop::PictureWidget widget(picture, nullptr);
    EXPECT_FALSE(widget.hasMouseTracking());
}

TEST(PictureWidgetTest, It_prints_as_vectors) {
    Picture picture;
    picture.Scale(-5, -5, 5, 5);
    desktop::PictureWidget widget(picture, nullptr);
    widget.resize(400, 400);
    const QTemporaryDir folder;
    const auto printed = [&](const char* name) {
        const QString path = folder.filePath(QString::fromLatin1(name));
        QPdfWriter writer(path);
        QPainter painter(&writer);
        widget.render(&painter);
        painter.end();
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray empty = printed("empty.pdf");
    DrawCurve(picture, kGreen);
    const QByteArray drawn = printed("drawn.pdf");
    EXPECT_GT(drawn.size(), empty.size());
    EXPECT_FALSE(drawn.contains("/Subtype /Image"));
}

}  // namespace

}  // namespace verlink::test
