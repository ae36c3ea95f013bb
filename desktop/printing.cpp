// How a window fits a page.
#include "desktop/printing.h"

#include <QBuffer>
#include <QDir>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "desktop/picture_widget.h"
#include "desktop/text.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink::desktop {

std::unique_ptr<QPrinter> makePrinter() {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    if (QPrinterInfo::availablePrinterNames().isEmpty()) printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setPageMargins(QMarginsF(12, 12, 12, 12), QPageLayout::Millimeter);
    return printer;
}

bool askPrinter(QWidget* parent, QPrinter& printer, const QString& folder, const QString& name) {
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        QDir().mkpath(folder);
        printer.setOutputFileName(folder + u'/' + name + QStringLiteral(".pdf"));
    }
    QPrintDialog dialog(&printer, parent);
    return dialog.exec() == QDialog::Accepted;
}

namespace {

constexpr int kFootPoints = 7;

/// Writes the foot of the present page and gives back what is left of the page above it.
QSizeF writeFoot(QPainter& painter, const QPagedPaintDevice& paper, const QString& foot) {
    const int resolution = paper.logicalDpiX();
    const QSizeF page = paper.pageLayout().paintRectPixels(resolution).size();
    painter.resetTransform();  // a printer keeps that of the sheet before
    painter.save();
    QFont font = painter.font();
    font.setPixelSize(std::max(1, kFootPoints * resolution / 72));
    painter.setFont(font);
    const QFontMetricsF metrics(font);
    painter.drawText(QPointF(0, page.height() - metrics.descent()), foot);
    painter.restore();
    return {page.width(), page.height() - 1.5 * metrics.lineSpacing()};
}

bool paintWidget(QPagedPaintDevice& paper, QWidget& widget, const QString& foot) {
    // Straight on a printer a widget would become a picture of pixels; by way of a recording it stays vectors.
    QPicture recording;
    {
        const WholePictures whole(widget);
        QPainter recorder(&recording);
        widget.render(&recorder);
    }

    QPainter painter;
    if (!painter.begin(&paper)) return false;
    const QSizeF page = writeFoot(painter, paper, foot);
    const double scale = std::min(page.width() / widget.width(), page.height() / widget.height());
    painter.translate((page.width() - widget.width() * scale) / 2, 0);
    // A recording is played at its natural size, in inches; the page is to be filled instead.
    painter.scale(scale * recording.logicalDpiX() / paper.logicalDpiX(),
                  scale * recording.logicalDpiY() / paper.logicalDpiY());
    painter.drawPicture(0, 0, recording);
    return painter.end();
}

bool paintPages(QPagedPaintDevice& paper, const std::vector<std::vector<std::string>>& pages, const QString& foot) {
    QPainter painter;
    if (!painter.begin(&paper)) return false;
    const QSizeF page = writeFoot(painter, paper, foot);
    std::size_t widest = 80, longest = 66;
    for (const auto& lines : pages) {
        longest = std::max(longest, lines.size());
        for (const std::string& line : lines) widest = std::max(widest, line.size());
    }
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPixelSize(100);
    const QFontMetricsF hundred(font);
    const double across = page.width() / (static_cast<double>(widest) * hundred.horizontalAdvance(u'0'));
    const double down = page.height() / (static_cast<double>(longest) * hundred.lineSpacing());
    font.setPixelSize(std::max(1, static_cast<int>(100 * std::min(across, down))));
    painter.setFont(font);
    const QFontMetricsF metrics(font);
    bool first = true;
    for (const auto& lines : pages) {
        if (!std::exchange(first, false)) {
            if (!paper.newPage()) return false;
            writeFoot(painter, paper, foot);
        }
        double baseline = metrics.ascent();
        for (const std::string& line : lines) {
            painter.drawText(QPointF(0, baseline), QString::fromStdString(line));
            baseline += metrics.lineSpacing();
        }
    }
    return painter.end();
}

/// A PDF is made whole before it takes the place of the file.
template <class Paint>
bool print(QPrinter& printer, Paint paint) {
    if (printer.outputFormat() != QPrinter::PdfFormat) return paint(printer);
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    QPdfWriter paper(&whole);
    paper.setCreator(QStringLiteral("Verlink"));
    paper.setResolution(printer.resolution());
    paper.setPageLayout(printer.pageLayout());
    if (!paint(paper)) return false;
    const auto failure =
        What_Failed([&] { platform::Write_File(fromQt(printer.outputFileName()), whole.data().toStdString()); });
    if (failure) throw platform::RuntimeFailure(platform::kPrinterError, failure->Trouble());
    return true;
}

}  // namespace

bool printWidget(QPrinter& printer, QWidget& widget, const QString& foot) {
    return print(printer, [&](QPagedPaintDevice& paper) { return paintWidget(paper, widget, foot); });
}

bool printPages(QPrinter& printer, const std::vector<std::vector<std::string>>& pages, const QString& foot) {
    return print(printer, [&](QPagedPaintDevice& paper) { return paintPages(paper, pages, foot); });
}

}  // namespace verlink::desktop
