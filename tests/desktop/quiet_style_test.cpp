// What the quiet style draws.
#include "desktop/quiet_style.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QImage>
#include <QRadioButton>
#include <algorithm>

namespace verlink::test {

namespace {

/// How much lighter than the window the lightest pixel of a button without a mark and without a text is.
int Lightness_Of_Ring(QAbstractButton& button, bool enabled) {
    desktop::QuietStyle style;
    button.setStyle(&style);
    const QPalette palette(QColor(0x31, 0x36, 0x3B), QColor(0x2A, 0x2E, 0x32));
    button.setPalette(palette);
    button.setEnabled(enabled);
    button.resize(24, 24);
    const QImage image = button.grab().toImage();
    int lightest = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) lightest = std::max(lightest, QColor(image.pixel(x, y)).lightness());
    button.setStyle(nullptr);
    return lightest - palette.color(QPalette::Window).lightness();
}

}  // namespace

TEST(QuietStyleTest, Empty_options_and_boxes_show_on_a_dark_desktop) {
    QRadioButton option;
    QCheckBox box;
    for (QAbstractButton* button : {static_cast<QAbstractButton*>(&option), static_cast<QAbstractButton*>(&box)}) {
        EXPECT_GT(Lightness_Of_Ring(*button, true), 60);
        EXPECT_GT(Lightness_Of_Ring(*button, false), 15) << "fainter where it cannot be used";
        EXPECT_LT(Lightness_Of_Ring(*button, false), Lightness_Of_Ring(*button, true));
    }
}

}  // namespace verlink::test
