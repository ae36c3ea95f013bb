// The look of documents on paper, the manual's and the reports': one column, quiet headings, tables with thin lines.
#pragma once

#include <QByteArray>
#include <QColor>
#include <QPageSize>
#include <QRectF>
#include <QString>
#include <QTextFormat>
#include <functional>
#include <memory>

class QPainter;
class QTextBlock;
class QTextDocument;

namespace verlink::desktop {

/// A document is laid out in pixels of 1/96 inch, as one page under the other.
struct Sheet {
    QPageSize::PageSizeId paper = QPageSize::A4;
    qreal width = 794, height = 1123;
    qreal margin = 80;

    int pageOf(qreal y) const { return static_cast<int>(y / height); }
};

inline const QColor kInk(0x22, 0x22, 0x22), kQuietInk(0x66, 0x66, 0x66), kHeadBack(0xE9, 0xEE, 0xF3);

void forEachBlock(const QTextDocument& document, const std::function<void(QTextBlock)>& deed);

/// The block becomes room for a picture of that number, as high as told, which is painted when the pages are. Its
/// caption is the block behind it.
void makeFigure(const QTextBlock& block, int number, qreal height);

/// A table with this property has no row of heads.
inline constexpr int kHeadless = QTextFormat::UserProperty + 2;
/// One with this property goes to the next page, with the block before it, rather than over two.
inline constexpr int kTogether = QTextFormat::UserProperty + 3;

/// The document that `make` makes, dressed and broken into pages, without a heading or a picture that is torn from what
/// follows it. Made again for each break; null when `goOn` has said no.
std::unique_ptr<QTextDocument> typeset(const std::function<std::unique_ptr<QTextDocument>()>& make, const Sheet& sheet,
                                       const std::function<bool()>& goOn);

struct Printing {
    QString title;  ///< of the file
    QString foot;   ///< of each page, beside its number
    /// Paints the figure of that number into the area.
    std::function<void(QPainter& painter, int number, const QRectF& area)> figure;
    /// Hears of each page, from 0; false ends it.
    std::function<bool(int page, int pages)> goOn;
};

/// As a PDF with vectors; empty when it was ended.
QByteArray pdfOf(QTextDocument& document, const Sheet& sheet, const Printing& printing);

}  // namespace verlink::desktop
