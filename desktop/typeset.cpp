// How a document is dressed, broken into pages and painted.
#include "desktop/typeset.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextList>
#include <QTextTable>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace verlink::desktop {

namespace {

constexpr qreal kPictureWidth = 560;  ///< at most
constexpr qreal kBelowPicture = 4;
constexpr int kResolution = 1200;
constexpr int kPixelsPerInch = 96;
constexpr qreal kTextSize = 10;  ///< points
constexpr std::size_t kMostBreaks = 60;
constexpr int kFigure = QTextFormat::UserProperty + 1;

const QColor kHeadingInk(0x1B, 0x3A, 0x5C);
const QColor kLine(0xC4, 0xCC, 0xD4);

QFont font() {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPointSizeF(kTextSize);
    return font;
}

int figureOf(const QTextBlock& block) {
    const QTextBlockFormat format = block.blockFormat();
    return format.hasProperty(kFigure) ? format.intProperty(kFigure) : -1;
}

bool isPicture(const QTextBlock& block) {
    if (figureOf(block) >= 0) return true;
    for (auto at = block.begin(); !at.atEnd(); ++at)
        if (at.fragment().charFormat().isImageFormat()) return true;
    return false;
}

void dressHeading(QTextCursor& cursor, QTextBlockFormat format) {
    const int level = format.headingLevel();
    constexpr qreal kSizes[] = {22, 15, 12, 10.5};
    constexpr qreal kAbove[] = {0, 26, 18, 14};
    const int rank = std::clamp(level, 1, 4) - 1;
    format.setTopMargin(kAbove[rank]);
    format.setBottomMargin(level == 1 ? 16 : 6);
    cursor.setBlockFormat(format);
    QTextCharFormat letters;
    letters.setFontPointSize(kSizes[rank]);
    letters.setFontWeight(QFont::DemiBold);
    letters.setForeground(kHeadingInk);
    cursor.setCharFormat(letters);
}

/// Size, colour and family of the words of a paragraph, fragment by fragment.
void dressWords(const QTextBlock& block, bool caption) {
    struct Run {
        int from, to;
        QTextCharFormat format;
    };
    std::vector<Run> runs;
    for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QTextFragment fragment = at.fragment();
        QTextCharFormat letters;
        if (fragment.charFormat().isImageFormat()) continue;
        letters.setFontPointSize(caption ? kTextSize - 1 : kTextSize);
        letters.setForeground(caption ? kQuietInk : kInk);
        if (fragment.charFormat().isAnchor()) {
            letters.setForeground(QColor(0x0B, 0x57, 0xA4));
            letters.setFontUnderline(false);
        }
        if (fragment.charFormat().fontFixedPitch()) {
            letters.setFontFamilies({QStringLiteral("Liberation Mono"), QStringLiteral("DejaVu Sans Mono")});
            letters.setFontPointSize(kTextSize - 0.5);
        }
        runs.push_back({fragment.position(), fragment.position() + fragment.length(), letters});
    }
    QTextCursor cursor(block);
    for (const Run& run : runs) {
        cursor.setPosition(run.from);
        cursor.setPosition(run.to, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(run.format);
    }
}

/// A picture no wider than most of the text, at half the density it was taken with.
void fitPictures(QTextDocument& document, const QTextBlock& block) {
    std::vector<std::pair<int, QTextImageFormat>> fitted;
    for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QTextCharFormat format = at.fragment().charFormat();
        if (!format.isImageFormat()) continue;
        QTextImageFormat image = format.toImageFormat();
        const QImage picture = document.resource(QTextDocument::ImageResource, QUrl(image.name())).value<QImage>();
        const qreal width = std::min(kPictureWidth, picture.width() / 2.0);
        image.setWidth(width);
        if (picture.width() > 0) image.setHeight(std::round(width * picture.height() / picture.width()));
        fitted.emplace_back(at.fragment().position(), image);
    }
    for (const auto& [position, image] : fitted) {
        QTextCursor cursor(&document);
        cursor.setPosition(position);
        cursor.setPosition(position + 1, QTextCursor::KeepAnchor);
        cursor.setCharFormat(image);
    }
}

void dressTables(const QTextFrame* frame) {
    for (QTextFrame* child : frame->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(child)) {
            QTextTableFormat format = table->format();
            format.setBorder(1);
            format.setBorderBrush(kLine);
            format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setBorderCollapse(true);
            format.setCellPadding(5);
            format.setCellSpacing(0);
            format.setTopMargin(4);
            format.setBottomMargin(12);
            const bool headed = !format.hasProperty(kHeadless);
            format.setHeaderRowCount(headed ? 1 : 0);
            table->setFormat(format);
            for (int column = 0; headed && column < table->columns(); ++column) {
                QTextTableCell cell = table->cellAt(0, column);
                QTextTableCellFormat head = cell.format().toTableCellFormat();
                head.setBackground(kHeadBack);
                cell.setFormat(head);
            }
        }
        dressTables(child);
    }
}

void dress(QTextDocument& document) {
    QTextBlock before;
    forEachBlock(document, [&](const QTextBlock& block) {
        QTextBlockFormat format = block.blockFormat();
        QTextCursor cursor(block);
        cursor.select(QTextCursor::BlockUnderCursor);
        if (format.headingLevel() > 0) {
            QTextCursor whole(block);
            whole.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            dressHeading(whole, format);
        } else {
            const bool caption = before.isValid() && isPicture(before);
            const bool cell = QTextCursor(block).currentTable() != nullptr;
            format.setLineHeight(caption || cell ? 112 : 125, QTextBlockFormat::ProportionalHeight);
            if (figureOf(block) >= 0)
                format = block.blockFormat();
            else if (isPicture(block))
                format.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
            format.setTopMargin(isPicture(block) ? 8 : 0);
            format.setBottomMargin(cell ? 0 : block.textList() || isPicture(block) ? kBelowPicture : caption ? 14 : 9);
            if (caption || isPicture(block)) format.setAlignment(Qt::AlignHCenter);
            QTextCursor(block).setBlockFormat(format);
            dressWords(block, caption);
            fitPictures(document, block);
        }
        before = block;
    });
    dressTables(document.rootFrame());
}

/// Where the second line of a block ends, or its only one: a line alone is left behind by nothing that leads to it.
qreal secondLine(const QTextBlock& block) {
    const QRectF area = block.document()->documentLayout()->blockBoundingRect(block);
    const QTextLayout* lines = block.layout();
    if (lines->lineCount() == 0) return area.bottom();
    const QTextLine line = lines->lineAt(std::min(1, lines->lineCount() - 1));
    return area.top() + line.y() + line.height() - 1;
}

/// The block with which what it leads to goes to another page: a heading goes along with what it heads.
QTextBlock firstOf(const QTextDocument& document, QTextBlock block) {
    while (block.previous().isValid() && block.previous() != document.begin() &&
           block.previous().blockFormat().headingLevel() > 0)
        block = block.previous();
    return block;
}

/// Before a table that is to stay together, where it does not and could.
QTextBlock beforeTornTable(const QTextDocument& document, const Sheet& sheet) {
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        if (!frame->frameFormat().hasProperty(kTogether)) continue;
        const auto* layout = document.documentLayout();
        const QRectF area = layout->frameBoundingRect(frame);
        constexpr qreal kEdge = 2;
        if (sheet.pageOf(area.top()) == sheet.pageOf(area.bottom() - kEdge)) continue;
        const QTextBlock before = firstOf(document, frame->firstCursorPosition().block().previous());
        // Its height has the margins in it between which it is torn.
        const qreal margins = 2 * sheet.margin, lead = area.top() - layout->blockBoundingRect(before).top();
        if (lead + area.height() - margins > sheet.height - margins) continue;
        if (before.blockFormat().pageBreakPolicy() != QTextFormat::PageBreak_AlwaysBefore) return before;
    }
    return {};
}

/// The number of a block that is to begin a page: a heading goes there with what follows it, and a picture with its
/// caption. -1 when all is well.
int tornApart(const QTextDocument& document, const Sheet& sheet) {
    const auto* layout = document.documentLayout();
    const QTextBlock table = beforeTornTable(document, sheet);
    const int tables = table.isValid() ? table.blockNumber() : -1;
    for (QTextBlock block = document.begin(); block.next().isValid(); block = block.next()) {
        if (block.blockNumber() == tables) return tables;
        const bool leads = block.blockFormat().headingLevel() > 0 || isPicture(block);
        if (!leads || block.blockFormat().pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore) continue;
        if (sheet.pageOf(layout->blockBoundingRect(block).top()) == sheet.pageOf(secondLine(block.next()))) continue;
        return firstOf(document, block).blockNumber();
    }
    return tables;
}

void breakBefore(const QTextBlock& block) {
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).setBlockFormat(format);
}

void paintFoot(QPainter& painter, const Sheet& sheet, const QString& words, int page, int pages) {
    QFont small(QStringLiteral("Liberation Sans"));
    small.setPixelSize(11);
    painter.setFont(small);
    painter.setPen(kQuietInk);
    const QRectF foot(sheet.margin, sheet.height - sheet.margin + 22, sheet.width - 2 * sheet.margin, 20);
    painter.drawText(foot, Qt::AlignLeft, words);
    painter.drawText(foot, Qt::AlignRight, QStringLiteral("%1 / %2").arg(page + 1).arg(pages));
}

/// The figures whose room lies on a page.
void paintFigures(QPainter& painter, const QTextDocument& document, const Sheet& sheet, const QRectF& part,
                  const Printing& printing) {
    if (!printing.figure) return;
    forEachBlock(document, [&](const QTextBlock& block) {
        const int number = figureOf(block);
        if (number < 0) return;
        // A line without letters has no height of its own: its room ends above the caption.
        const qreal height = block.blockFormat().lineHeight();
        const qreal bottom = document.documentLayout()->blockBoundingRect(block.next()).top() - kBelowPicture;
        const QRectF area(sheet.margin, bottom - height, sheet.width - 2 * sheet.margin, height);
        if (part.contains(area.center())) printing.figure(painter, number, area);
    });
}

}  // namespace

void forEachBlock(const QTextDocument& document, const std::function<void(QTextBlock)>& deed) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) deed(block);
}

void makeFigure(const QTextBlock& block, int number, qreal height) {
    QTextBlockFormat format = block.blockFormat();
    format.setProperty(kFigure, number);
    format.setLineHeight(height, QTextBlockFormat::FixedHeight);
    QTextCursor(block).setBlockFormat(format);
}

std::unique_ptr<QTextDocument> typeset(const std::function<std::unique_ptr<QTextDocument>()>& make, const Sheet& sheet,
                                       const std::function<bool()>& goOn) {
    // Of a layout that was changed afterwards Qt draws a part only: each page break found begins it anew.
    std::unique_ptr<QTextDocument> made;
    std::vector<int> breaks;
    for (int torn = 0; torn >= 0 && breaks.size() < kMostBreaks;) {
        if (!goOn()) return nullptr;
        made = make();
        made->setDefaultFont(font());
        made->setDocumentMargin(sheet.margin);
        dress(*made);
        for (const int block : breaks) breakBefore(made->findBlockByNumber(block));
        made->setPageSize({sheet.width, sheet.height});
        torn = tornApart(*made, sheet);
        breaks.push_back(torn);
    }
    return made;
}

QByteArray pdfOf(QTextDocument& document, const Sheet& sheet, const Printing& printing) {
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    QPdfWriter writer(&whole);
    writer.setPageSize(QPageSize(sheet.paper));
    writer.setPageMargins(QMarginsF());
    writer.setResolution(kResolution);
    writer.setTitle(printing.title);
    writer.setCreator(QStringLiteral("Verlink"));
    QPainter painter;
    painter.begin(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.scale(static_cast<qreal>(kResolution) / kPixelsPerInch, static_cast<qreal>(kResolution) / kPixelsPerInch);
    const int pages = document.pageCount();
    for (int page = 0; page < pages; ++page) {
        if (printing.goOn && !printing.goOn(page, pages)) return {};
        if (page > 0) writer.newPage();
        painter.save();
        const QRectF part(0, page * sheet.height, sheet.width, sheet.height);
        painter.translate(0, -part.top());
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = part;
        context.palette.setColor(QPalette::Text, kInk);
        painter.setClipRect(part);
        document.documentLayout()->draw(&painter, context);
        paintFigures(painter, document, sheet, part, printing);
        painter.restore();
        paintFoot(painter, sheet, printing.foot, page, pages);
    }
    painter.end();
    return whole.data();
}

}  // namespace verlink::desktop
