// Frames of the film and their bytes.
#include "tools/capture/film.h"

#include <QFont>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <vector>

#include "tools/capture/hand_mark.h"

namespace verlink::capture {

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr int kStrip = 72;  ///< for the words
constexpr int kBorder = 12;

}  // namespace

Film::Film(std::FILE* stream) : stream_(stream) {
    good_ = std::fprintf(stream_, "YUV4MPEG2 W%d H%d F%d:1 Ip A1:1 C420jpeg\n", kWidth, kHeight, kPerSecond) > 0;
}

void Film::Show(QWidget& window, double seconds, const QWidget* ringed, std::optional<Pointer> pointer) {
    const QImage picture = window.grab().toImage();
    QImage frame(kWidth, kHeight, QImage::Format_RGB32);
    frame.fill(QColor(0x3A, 0x44, 0x50));
    QPainter painter(&frame);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);

    const QSizeF room(kWidth - 2 * kBorder, kHeight - kStrip - 2 * kBorder);
    const QSizeF size = QSizeF(window.size()).scaled(room, Qt::KeepAspectRatio).boundedTo(QSizeF(window.size()));
    const QRectF place(QPointF((kWidth - size.width()) / 2, kBorder + (room.height() - size.height()) / 2), size);
    painter.drawImage(place, picture);
    const double scale = size.width() / window.width();
    if (pointer) Paint_Hand(painter, place.topLeft() + pointer->at * scale, pointer->holds);
    if (ringed && ringed->isVisible()) {
        const QPointF centre = ringed->mapTo(&window, ringed->rect().center());
        painter.setPen(QPen(QColor(0xE0, 0x4F, 0x1B), 4));
        painter.drawEllipse(place.topLeft() + centre * scale, 22, 22);
    }
    QFont font = painter.font();
    font.setPixelSize(22);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(QRect(kBorder, kHeight - kStrip, kWidth - 2 * kBorder, kStrip - kBorder),
                     Qt::AlignCenter | Qt::TextWordWrap, QString::fromStdString(words_));
    painter.end();
    Write(frame, std::max(1, static_cast<int>(std::lround(seconds * kPerSecond))));
}

/// Full-range BT.601, one colour for four points.
void Film::Write(const QImage& frame, int times) {
    std::vector<unsigned char> bytes;
    bytes.reserve(static_cast<std::size_t>(kWidth) * kHeight * 3 / 2);
    const auto keep = [&bytes](double value) {
        bytes.push_back(static_cast<unsigned char>(std::clamp(std::lround(value), 0L, 255L)));
    };
    const auto row = [&frame](int y) { return reinterpret_cast<const QRgb*>(frame.constScanLine(y)); };
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            const QRgb c = row(y)[x];
            keep(0.299 * qRed(c) + 0.587 * qGreen(c) + 0.114 * qBlue(c));
        }
    for (const bool blue : {true, false})
        for (int y = 0; y < kHeight; y += 2)
            for (int x = 0; x < kWidth; x += 2) {
                int r = 0, g = 0, b = 0;
                for (const QRgb c : {row(y)[x], row(y)[x + 1], row(y + 1)[x], row(y + 1)[x + 1]}) {
                    r += qRed(c);
                    g += qGreen(c);
                    b += qBlue(c);
                }
                const double difference =
                    blue ? -0.168736 * r - 0.331264 * g + 0.5 * b : 0.5 * r - 0.418688 * g - 0.081312 * b;
                keep(difference / 4 + 128);
            }
    for (int i = 0; i < times && good_; ++i)
        good_ =
            std::fputs("FRAME\n", stream_) >= 0 && std::fwrite(bytes.data(), 1, bytes.size(), stream_) == bytes.size();
}

}  // namespace verlink::capture
