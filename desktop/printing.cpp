// How a window fits a page.
#include "desktop/printing.h"

#include <QDir>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QWidget>
#include <algorithm>

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

bool printWidget(QPrinter& printer, QWidget& widget) {
    QPainter painter;
    if (!painter.begin(&printer)) return false;
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    const double scale = std::min(page.width() / widget.width(), page.height() / widget.height());
    painter.translate((page.width() - widget.width() * scale) / 2, 0);
    painter.scale(scale, scale);
    widget.render(&painter);
    return painter.end();
}

}  // namespace verlink::desktop
