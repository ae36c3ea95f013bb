// The formats, each made in memory.
#include "desktop/picture_source.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QMimeData>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QSvgGenerator>
#include <QWidget>
#include <cstring>
#include <utility>

#include "core/linkage_model.h"
#include "desktop/diagram_pane.h"
#include "desktop/picture_widget.h"
#include "desktop/plot_pane.h"
#include "desktop/text.h"
#include "platform/failure.h"

namespace verlink::desktop {

namespace {

constexpr double kClipboardDensity = 2;

/// While it lives, a picture is without what the pointer brings.
class Bare {
   public:
    explicit Bare(PictureWidget& picture) : picture_(picture) { picture_.setBare(true); }
    ~Bare() { picture_.setBare(false); }
    Bare(const Bare&) = delete;
    Bare& operator=(const Bare&) = delete;

   private:
    PictureWidget& picture_;
};

void hold(bool done) {
    if (!done) platform::Raise(platform::kOutOfMemory);
}

QByteArray pdfOf(const PictureSource& source) {
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    QPdfWriter document(&whole);
    document.setCreator(QStringLiteral("Verlink"));
    document.setTitle(source.title);
    // So that a point of the picture is one of the paper.
    document.setResolution(source.dpi);
    document.setPageLayout(QPageLayout(QPageSize(source.size, QPageSize::Point, {}, QPageSize::ExactMatch),
                                       QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
    source.vectors(document);
    return whole.data();
}

QByteArray svgOf(const PictureSource& source) {
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    QSvgGenerator document;
    document.setOutputDevice(&whole);
    document.setSize(source.size);
    document.setViewBox(QRect(QPoint(0, 0), source.size));
    document.setResolution(source.dpi);
    document.setTitle(source.title);
    source.vectors(document);
    return whole.data();
}

QByteArray pngOf(const PictureSource& source, double density) {
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    hold(source.image(density).save(&whole, "PNG"));
    return whole.data();
}

}  // namespace

PictureSource sourceOf(QWidget& widget, const QRect& part, const QString& title) {
    const auto draw = [&widget, part](QPainter& painter) {
        widget.render(&painter, QPoint(), QRegion(part), QWidget::DrawChildren);
    };
    return {.title = title,
            .size = part.size(),
            .dpi = widget.logicalDpiX(),
            .vectors =
                [draw, part](QPaintDevice& device) {
                    QPicture recording;
                    QPainter recorder(&recording);
                    draw(recorder);
                    recorder.end();
                    QPainter painter;
                    hold(painter.begin(&device));
                    painter.setWindow(QRect(QPoint(0, 0), part.size()));
                    // A recording is played at its natural size, in inches.
                    painter.scale(static_cast<double>(recording.logicalDpiX()) / device.logicalDpiX(),
                                  static_cast<double>(recording.logicalDpiY()) / device.logicalDpiY());
                    painter.drawPicture(0, 0, recording);
                    hold(painter.end());
                },
            .image =
                [draw, part](double density) {
                    QImage image((QSizeF(part.size()) * density).toSize(), QImage::Format_RGB32);
                    hold(!image.isNull());
                    image.setDevicePixelRatio(density);
                    image.fill(Qt::white);
                    QPainter painter;
                    hold(painter.begin(&image));
                    draw(painter);
                    hold(painter.end());
                    return image;
                }};
}

PictureSource sourceOf(PictureWidget& picture) {
    // The pane that it fills has the labels.
    QWidget* whole = picture.parentWidget();
    if (!dynamic_cast<PlotPane*>(whole) && !dynamic_cast<DiagramPane*>(whole)) whole = &picture;
    const QRect part = picture.area().toRect().translated(whole == &picture ? QPoint() : picture.pos());
    PictureSource source = sourceOf(*whole, part, toQt(Model.ModelName));
    source.vectors = [&picture, paint = source.vectors](QPaintDevice& device) {
        const Bare bare(picture);
        paint(device);
    };
    source.image = [&picture, paint = source.image](double density) {
        const Bare bare(picture);
        return paint(density);
    };
    return source;
}

WidgetPicture::WidgetPicture(const platform::Control& control, std::function<PictureSource()> source)
    : control_(control), source_(std::move(source)) {
    platform::Set_Picture_Maker(control_, this);
}

WidgetPicture::~WidgetPicture() { platform::Set_Picture_Maker(control_, nullptr); }

std::string WidgetPicture::File(platform::Picture_Kind kind, double density) {
    const PictureSource source = source_();
    switch (kind) {
        case platform::Picture_Kind::kPdf: return pdfOf(source).toStdString();
        case platform::Picture_Kind::kSvg: return svgOf(source).toStdString();
        default: return pngOf(source, density).toStdString();
    }
}

platform::Pixels WidgetPicture::Paint(double density) {
    const QImage image = source_().image(density).convertToFormat(QImage::Format_RGB32);
    platform::Pixels painted{image.width(), image.height(), {}};
    const auto wide = static_cast<std::size_t>(image.width());
    painted.colors.resize(wide * static_cast<std::size_t>(image.height()));
    for (int y = 0; y < image.height(); ++y)
        std::memcpy(painted.colors.data() + static_cast<std::size_t>(y) * wide, image.constScanLine(y),
                    wide * sizeof(std::uint32_t));
    for (std::uint32_t& color : painted.colors) color |= 0xFF000000U;
    return painted;
}

void WidgetPicture::Copy() {
    const PictureSource source = source_();
    auto* copied = new QMimeData;  // the clipboard's
    copied->setImageData(source.image(kClipboardDensity));
    copied->setData(QStringLiteral("image/svg+xml"), svgOf(source));
    QApplication::clipboard()->setMimeData(copied);
}

}  // namespace verlink::desktop
