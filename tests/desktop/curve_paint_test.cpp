// Curves of graphs by the pixel and as lines, with their gaps and dashes, at any distance.
#include "desktop/curve_paint.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QPicture>
#include <cmath>
#include <limits>

namespace verlink::test {

namespace {

constexpr int kWide = 300, kHigh = 100;
const double kNone = std::numeric_limits<double>::quiet_NaN();

QImage paper() {
    QImage image(kWide, kHigh, QImage::Format_RGB32);
    image.fill(Qt::white);
    return image;
}

QImage byPixel(const QVector<QPointF>& points, const QPen& pen, double density = 1) {
    QImage image(qRound(kWide * density), qRound(kHigh * density), QImage::Format_RGB32);
    image.setDevicePixelRatio(density);
    image.fill(Qt::white);
    QPainter painter(&image);
    desktop::paintCurve(painter, points, QRectF(0, 0, kWide, kHigh), pen);
    return image;
}

/// As on paper: lines that are recorded and painted by Qt.
QImage asLines(const QVector<QPointF>& points, const QPen& pen) {
    QPicture recording;
    QPainter recorder(&recording);
    desktop::paintCurve(recorder, points, QRectF(0, 0, kWide, kHigh), pen);
    recorder.end();
    QImage image = paper();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPicture(0, 0, recording);
    return image;
}

double inkOf(const QImage& image) {
    double ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) ink += 255 - qGray(image.pixel(x, y));
    return ink / 255;
}

double apart(const QImage& a, const QImage& b) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) sum += std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y)));
    return sum / 255;
}

QVector<QPointF> wave(int points, double turns, double height = 40) {
    QVector<QPointF> all;
    for (int i = 0; i < points; ++i) {
        const double part = static_cast<double>(i) / (points - 1);
        all.append({5 + 290 * part, 50 + height * std::sin(part * turns * 6.2831853)});
    }
    return all;
}

QPen dashed(double width) {
    QPen pen(Qt::black, width, Qt::SolidLine, Qt::FlatCap, Qt::RoundJoin);
    pen.setDashPattern({6, 4});
    return pen;
}

TEST(CurvePaintTest, A_screen_shows_what_paper_does) {
    for (const QPen& pen : {QPen(Qt::black, 1.5), QPen(Qt::black, 2.5, Qt::SolidLine, Qt::FlatCap), dashed(2.5)}) {
        const QImage lines = asLines(wave(1500, 2), pen);
        EXPECT_GT(inkOf(lines), 300);
        EXPECT_LT(apart(byPixel(wave(1500, 2), pen), lines), 0.2 * inkOf(lines));
    }
}

TEST(CurvePaintTest, Dashes_have_their_lengths_however_many_points_there_are) {
    for (const int points : {2, 30, 3000}) {
        const QImage image = byPixel(wave(points, 0), dashed(2));
        // From 5 on: 12 pixels of dash and 8 of gap.
        for (int i = 0; i < 14; ++i) {
            EXPECT_LT(qGray(image.pixel(5 + 20 * i + 6, 49)), 30) << points << ' ' << i;
            EXPECT_GT(qGray(image.pixel(5 + 20 * i + 16, 49)), 230) << points << ' ' << i;
        }
    }
}

TEST(CurvePaintTest, A_point_that_is_no_number_is_a_gap) {
    const QPen pen(Qt::black, 2);
    for (const double bad : {kNone, std::numeric_limits<double>::infinity()}) {
        const QVector<QPointF> points{{0, bad}, {10, 50}, {100, 50}, {120, bad}, {150, 50}, {250, 50}, {260, bad}};
        for (const QImage& image : {byPixel(points, pen), asLines(points, pen)}) {
            EXPECT_LT(qGray(image.pixel(60, 50)), 140);
            EXPECT_EQ(qGray(image.pixel(125, 50)), 255);
            EXPECT_LT(qGray(image.pixel(200, 50)), 140);
            EXPECT_EQ(qGray(image.pixel(280, 50)), 255);
        }
    }
}

TEST(CurvePaintTest, Points_closer_than_half_a_pixel_change_nothing_to_be_seen) {
    const QPen pen(Qt::black, 1.5);
    const QImage coarse = byPixel(wave(600, 1), pen), fine = byPixel(wave(60000, 1), pen);
    EXPECT_LT(apart(coarse, fine), 0.1 * inkOf(coarse));
    EXPECT_NEAR(inkOf(fine), inkOf(coarse), 0.03 * inkOf(coarse));
}

TEST(CurvePaintTest, Twice_the_density_has_four_times_the_ink) {
    const QPen pen(Qt::black, 2);
    EXPECT_NEAR(inkOf(byPixel(wave(500, 2), pen, 2)) / inkOf(byPixel(wave(500, 2), pen)), 4, 0.15);
}

TEST(CurvePaintTest, Sticks_go_from_end_to_end) {
    QImage image = paper();
    QPainter painter(&image);
    desktop::paintSticks(painter, {{50.5, 90}, {50.5, 20}, {80.5, 90}, {80.5, -1e9}}, QRectF(0, 0, kWide, kHigh),
                         QPen(QColor(0, 0, 0, 128), 1));
    painter.end();
    EXPECT_NEAR(qGray(image.pixel(50, 60)), 127, 3);
    EXPECT_EQ(qGray(image.pixel(50, 10)), 255);
    EXPECT_NEAR(qGray(image.pixel(80, 1)), 127, 3);
    EXPECT_EQ(qGray(image.pixel(65, 60)), 255);
}

TEST(CurvePaintTest, Nothing_is_painted_outside_the_area) {
    QImage image = paper();
    QPainter painter(&image);
    desktop::paintCurve(painter, wave(500, 3, 1e6), QRectF(100, 20, 50, 30), QPen(Qt::black, 2));
    desktop::paintCurve(painter, wave(500, 3), QRectF(), QPen(Qt::black, 2));
    painter.end();
    EXPECT_EQ(qGray(image.pixel(90, 30)), 255);
    EXPECT_EQ(qGray(image.pixel(160, 30)), 255);
    EXPECT_EQ(qGray(image.pixel(120, 60)), 255);
}

// The same took the toolkit 12 s where dashes were enlarged, and 21 s where a curve turned often.
TEST(CurvePaintTest, Far_enlarged_dashes_and_many_turns_are_painted_at_once) {
    QElapsedTimer timer;
    timer.start();
    for (const double height : {40.0, 1e8}) {
        byPixel(wave(2881, 720, height), dashed(2.5));
        asLines(wave(2881, 2, height), dashed(2.5));
    }
    EXPECT_LT(timer.elapsed(), 4000);
}

}  // namespace

}  // namespace verlink::test
