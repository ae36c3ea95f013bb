// What verlink-paper has more than verlink-batch: Qt, which sets pages without a display.
#include "batch/paper.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgRenderer>
#include <QTemporaryDir>

#include "batch/drawer.h"
#include "desktop/report_pages.h"
#include "report/setter.h"

namespace verlink {

namespace {

QByteArray pdfOf(QSvgRenderer& drawing) {
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    QPdfWriter document(&whole);
    constexpr int kPointsOfAnInch = 72;
    document.setResolution(kPointsOfAnInch);
    document.setPageLayout({QPageSize(drawing.defaultSize(), QPageSize::Point, {}, QPageSize::ExactMatch),
                            QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)});
    QPainter painter(&document);
    drawing.render(&painter);
    painter.end();
    return whole.data();
}

QByteArray pngOf(QSvgRenderer& drawing) {
    constexpr int kDensity = 2;
    QImage image(kDensity * drawing.defaultSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    image.save(&whole, "PNG");
    return whole.data();
}

std::string drawn(const std::string& svg, bool pdf) {
    QSvgRenderer drawing(QByteArray::fromStdString(svg));
    return (pdf ? pdfOf(drawing) : pngOf(drawing)).toStdString();
}

}  // namespace

void Get_Ready_For_Paper(const std::vector<std::string>& words, char** arguments, const std::filesystem::path&) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Some have no folder of a session, and need none: nobody sees a window.
    static const QTemporaryDir session;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", session.path().toLocal8Bit());
    static int given = static_cast<int>(words.size()) + 1;  // with the name
    static const QGuiApplication app(given, arguments);
    Use_Setter(desktop::setReport);
    Use_Drawer(drawn);
}

}  // namespace verlink
