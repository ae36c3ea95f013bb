// How the room of words and the ink on a page are measured.
#include "tests/desktop/looks.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <set>

namespace verlink::test {

namespace {

/// Fractions of pixels are lost on the way from a font to a layout.
constexpr int kSlack = 1;

/// The words alone, without what a style puts around them.
QSize Words(const QAbstractButton& button) { return button.fontMetrics().size(Qt::TextShowMnemonic, button.text()); }

bool Fits(const QLabel& label) {
    if (label.text().isEmpty()) return true;
    const QRect room = label.contentsRect();
    const QRect words = label.fontMetrics().boundingRect(
        QRect(0, 0, label.wordWrap() ? room.width() : QWIDGETSIZE_MAX, QWIDGETSIZE_MAX),
        static_cast<int>(Qt::AlignLeft) | (label.wordWrap() ? Qt::TextWordWrap : 0) |
            (label.buddy() ? Qt::TextShowMnemonic : 0),
        label.text());
    return words.width() <= room.width() + kSlack && words.height() <= room.height() + kSlack;
}

bool Fits(const QAbstractButton& button) {
    const QSize words = Words(button);
    const bool marked = qobject_cast<const QRadioButton*>(&button) || qobject_cast<const QCheckBox*>(&button);
    return words.width() + (marked ? button.iconSize().width() : 0) <= button.width() + kSlack &&
           words.height() <= button.height() + kSlack;
}

QByteArray Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

}  // namespace

void Expect_Nothing_Clipped(const QWidget& window) {
    const auto told = [](const QWidget& widget, const QString& text) {
        return widget.objectName().toStdString() + " \"" + text.toStdString() + "\" in " +
               std::to_string(widget.width()) + " x " + std::to_string(widget.height());
    };
    for (const QLabel* label : window.findChildren<QLabel*>())
        if (label->isVisible()) {
            EXPECT_TRUE(Fits(*label)) << told(*label, label->text());
        }
    for (const QAbstractButton* button : window.findChildren<QAbstractButton*>())
        if (button->isVisible()) {
            EXPECT_TRUE(Fits(*button)) << told(*button, button->text());
        }
}

void Expect_One_Filled_Page(const std::string& pdf) {
    const QString file = QString::fromStdString(pdf);
    ASSERT_TRUE(QFile::exists(file)) << pdf;
    EXPECT_TRUE(Output(QStringLiteral("pdfinfo"), {file}).contains("Pages:           1\n"));
    const QString page = file.chopped(4);
    Output(QStringLiteral("pdftoppm"), {QStringLiteral("-r"), QStringLiteral("60"), QStringLiteral("-png"),
                                        QStringLiteral("-singlefile"), file, page});
    const QImage image(page + QStringLiteral(".png"));
    ASSERT_FALSE(image.isNull());
    QRect inked;
    std::set<QRgb> inks;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == qRgb(255, 255, 255)) continue;
            inked |= QRect(x, y, 1, 1);
            inks.insert(image.pixel(x, y));
        }
    EXPECT_GT(inks.size(), 20u) << "letters, boxes and lines";
    const double across = static_cast<double>(inked.width()) / image.width();
    const double down = static_cast<double>(inked.height()) / image.height();
    EXPECT_GT(std::max(across, down), 0.8) << across << " of the width, " << down << " of the height";
    EXPECT_GT(std::min(across, down), 0.4);
    QFile::remove(page + QStringLiteral(".png"));
}

std::vector<std::string> Words_On_Paper(const std::string& pdf) {
    std::vector<std::string> pages;
    const QByteArray words = Output(QStringLiteral("pdftotext"),
                                    {QStringLiteral("-layout"), QString::fromStdString(pdf), QStringLiteral("-")});
    // A form feed ends each page.
    for (const QByteArray& page : words.chopped(words.endsWith('\f') ? 1 : 0).split('\f'))
        pages.push_back(page.toStdString());
    return pages;
}

}  // namespace verlink::test
