// The look of the manual on paper: A4, one column, quiet headings, pictures as wide as the text at most.
#include "tools/manual/typesetter.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QTextList>
#include <QTextTable>
#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/document_places.h"
#include "platform/file_system.h"
#include "platform/guard.h"

namespace verlink::manual {

namespace {

using desktop::DocumentPlaces;

// The document is laid out in pixels of 1/96 inch.
constexpr qreal kPaperWidth = 794;
constexpr qreal kPaperHeight = 1123;
constexpr qreal kMargin = 80;
constexpr qreal kPictureWidth = 560;  ///< at most
constexpr qreal kPointsPerPixel = 0.75;
constexpr int kResolution = 1200;
constexpr int kPixelsPerInch = 96;
constexpr qreal kTextSize = 10;  ///< points
constexpr std::size_t kMostBreaks = 60;

const QColor kInk(0x22, 0x22, 0x22);
const QColor kHeadingInk(0x1B, 0x3A, 0x5C);
const QColor kQuietInk(0x66, 0x66, 0x66);
const QColor kLine(0xC4, 0xCC, 0xD4);
const QColor kHeadBack(0xE9, 0xEE, 0xF3);

/// Takes pictures by their name from the folder of the pictures.
class Document : public QTextDocument {
   public:
    explicit Document(QString pictures) : pictures_(std::move(pictures)) {}
    QStringList amiss;

    QVariant loadResource(int type, const QUrl& url) override {
        if (type != QTextDocument::ImageResource) return QTextDocument::loadResource(type, url);
        static QHash<QString, QImage> known;
        const QString path = pictures_ + QLatin1Char('/') + QFileInfo(url.path()).fileName();
        if (!known.contains(path)) known.insert(path, QImage(path));
        if (!known[path].isNull()) return known[path];
        amiss << QStringLiteral("there is no picture ") + path;
        QImage blank(800, 100, QImage::Format_RGB32);
        blank.fill(kHeadBack);
        return blank;
    }

   private:
    QString pictures_;
};

QFont font() {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPointSizeF(kTextSize);
    return font;
}

void forEachBlock(const QTextDocument& document, const std::function<void(QTextBlock)>& deed) {
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) deed(block);
}

bool isPicture(const QTextBlock& block) {
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
void fitPictures(Document& document, const QTextBlock& block) {
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
            format.setHeaderRowCount(1);
            table->setFormat(format);
            for (int column = 0; column < table->columns(); ++column) {
                QTextTableCell cell = table->cellAt(0, column);
                QTextTableCellFormat head = cell.format().toTableCellFormat();
                head.setBackground(kHeadBack);
                cell.setFormat(head);
            }
        }
        dressTables(child);
    }
}

void dress(Document& document) {
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
            if (isPicture(block)) format.setLineHeight(100, QTextBlockFormat::ProportionalHeight);
            format.setTopMargin(isPicture(block) ? 8 : 0);
            format.setBottomMargin(cell ? 0 : block.textList() || isPicture(block) ? 4 : caption ? 14 : 9);
            if (caption || isPicture(block)) format.setAlignment(Qt::AlignHCenter);
            QTextCursor(block).setBlockFormat(format);
            dressWords(block, caption);
            fitPictures(document, block);
        }
        before = block;
    });
    dressTables(document.rootFrame());
}

int pageOf(qreal y) { return static_cast<int>(y / kPaperHeight); }

/// Where the second line of a block ends, or its only one: a line alone is left behind by nothing that leads to it.
qreal secondLine(const QTextBlock& block) {
    const QRectF area = block.document()->documentLayout()->blockBoundingRect(block);
    const QTextLayout* lines = block.layout();
    if (lines->lineCount() == 0) return area.bottom();
    const QTextLine line = lines->lineAt(std::min(1, lines->lineCount() - 1));
    return area.top() + line.y() + line.height() - 1;
}

/// The number of a block that is to begin a page: a heading goes there with what follows it, and a picture with its
/// caption. -1 when all is well.
int tornApart(const QTextDocument& document) {
    const auto* layout = document.documentLayout();
    for (QTextBlock block = document.begin(); block.next().isValid(); block = block.next()) {
        const bool leads = block.blockFormat().headingLevel() > 0 || isPicture(block);
        if (!leads || block.blockFormat().pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore) continue;
        if (pageOf(layout->blockBoundingRect(block).top()) == pageOf(secondLine(block.next()))) continue;
        // A heading goes along with what it heads.
        while (block.previous().isValid() && block.previous() != document.begin() &&
               block.previous().blockFormat().headingLevel() > 0)
            block = block.previous();
        return block.blockNumber();
    }
    return -1;
}

void breakBefore(const QTextBlock& block) {
    QTextBlockFormat format = block.blockFormat();
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(block).setBlockFormat(format);
}

/// "general/UnitsHelp.md#decimals", seen from a page in "general", becomes "helpfiles/general/UnitsHelp.pdf#decimals".
QString targetOf(const QString& href, const QString& page) {
    const QString name = href.section(QLatin1Char('#'), 1);
    QString file = href.section(QLatin1Char('#'), 0, 0);
    if (file.isEmpty()) file = QFileInfo(page).fileName() + QStringLiteral(".md");
    QString path = QDir::cleanPath(QFileInfo(page).path() + QLatin1Char('/') + file);
    if (path.endsWith(QStringLiteral(".md"))) path.replace(path.size() - 3, 3, QStringLiteral(".pdf"));
    return QStringLiteral("helpfiles/") + path + (name.isEmpty() ? QString() : QLatin1Char('#') + name);
}

DocumentPlaces placesOf(const QTextDocument& document, const QString& page) {
    DocumentPlaces places;
    const auto* layout = document.documentLayout();
    forEachBlock(document, [&](const QTextBlock& block) {
        const QRectF area = layout->blockBoundingRect(block);
        if (const int level = block.blockFormat().headingLevel(); level > 0) {
            const int number = pageOf(area.top());
            places.headings.push_back({level, number, (area.top() - number * kPaperHeight) * kPointsPerPixel,
                                       DocumentPlaces::nameOf(block.text()), block.text()});
        }
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            const QTextFragment fragment = at.fragment();
            const QString href = fragment.charFormat().anchorHref();
            if (href.isEmpty()) continue;
            const int from = fragment.position() - block.position();
            const int to = from + fragment.length();
            for (int i = 0; i < block.layout()->lineCount(); ++i) {
                const QTextLine line = block.layout()->lineAt(i);
                const int begin = std::max(from, line.textStart());
                const int end = std::min(to, line.textStart() + line.textLength());
                if (begin >= end) continue;
                const qreal left = area.left() + line.cursorToX(begin);
                const qreal right = area.left() + line.cursorToX(end);
                const qreal top = area.top() + line.y();
                const int number = pageOf(top);
                places.links.push_back({number,
                                        {left * kPointsPerPixel, (top - number * kPaperHeight) * kPointsPerPixel,
                                         (right - left) * kPointsPerPixel, line.height() * kPointsPerPixel},
                                        targetOf(href, page)});
            }
        }
    });
    return places;
}

void paintFoot(QPainter& painter, const QString& title, int page, int pages) {
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(11);
    painter.setFont(font);
    painter.setPen(kQuietInk);
    const QRectF foot(kMargin, kPaperHeight - kMargin + 22, kPaperWidth - 2 * kMargin, 20);
    painter.drawText(foot, Qt::AlignLeft, title);
    painter.drawText(foot, Qt::AlignRight, QStringLiteral("%1 / %2").arg(page + 1).arg(pages));
}

QByteArray pdfOf(QTextDocument& document, const QString& title) {
    QBuffer whole;
    whole.open(QIODevice::WriteOnly);
    QPdfWriter writer(&whole);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF());
    writer.setResolution(kResolution);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Verlink"));
    QPainter painter;
    painter.begin(&writer);
    painter.setRenderHint(QPainter::LosslessImageRendering);
    painter.scale(static_cast<qreal>(kResolution) / kPixelsPerInch, static_cast<qreal>(kResolution) / kPixelsPerInch);
    const int pages = document.pageCount();
    for (int page = 0; page < pages; ++page) {
        if (page > 0) writer.newPage();
        painter.save();
        const QRectF part(0, page * kPaperHeight, kPaperWidth, kPaperHeight);
        painter.translate(0, -part.top());
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = part;
        context.palette.setColor(QPalette::Text, kInk);
        painter.setClipRect(part);
        document.documentLayout()->draw(&painter, context);
        painter.restore();
        paintFoot(painter, title, page, pages);
    }
    painter.end();
    return whole.data();
}

/// What is amiss, or nothing.
QString write(const QString& file, const QByteArray& content) {
    const auto failure = What_Failed([&] { platform::Write_File(file.toStdString(), content.toStdString()); });
    if (!failure) return {};
    return QStringLiteral("cannot write ") + file + u' ' + QString::fromStdString(failure->Trouble().Sentence());
}

/// The line "[contents]" becomes a list of the headings of the second and third level that follow it.
QString withContents(const QString& markdown) {
    const QString mark = QStringLiteral("\n[contents]\n");
    const qsizetype at = markdown.indexOf(mark);
    if (at < 0) return markdown;
    QString list(QLatin1Char('\n'));
    for (const QString& line : markdown.mid(at).split(QLatin1Char('\n'))) {
        for (const auto& [lead, inset] : {std::pair("## ", ""), std::pair("### ", "    ")}) {
            if (!line.startsWith(QString::fromLatin1(lead))) continue;
            const QString title = line.mid(static_cast<qsizetype>(qstrlen(lead))).trimmed();
            list +=
                QStringLiteral("%1- [%2](#%3)\n").arg(QString::fromLatin1(inset), title, DocumentPlaces::nameOf(title));
        }
    }
    return QString(markdown).replace(at, mark.size(), list + QLatin1Char('\n'));
}

}  // namespace

QStringList setDocument(const Folders& folders, const QString& page) {
    QFile source(folders.sources + QLatin1Char('/') + page + QStringLiteral(".md"));
    if (!source.open(QIODevice::ReadOnly)) return {QStringLiteral("cannot read ") + source.fileName()};

    const QString markdown = withContents(QString::fromUtf8(source.readAll()));

    // Of a layout that was changed afterwards Qt draws a part only: each page break found begins it anew.
    std::unique_ptr<Document> made;
    std::vector<int> breaks;
    for (int torn = 0; torn >= 0 && breaks.size() < kMostBreaks;) {
        made = std::make_unique<Document>(folders.pictures);
        made->setDefaultFont(font());
        made->setDocumentMargin(kMargin);
        made->setMarkdown(markdown, QTextDocument::MarkdownDialectGitHub);
        dress(*made);
        for (const int block : breaks) breakBefore(made->findBlockByNumber(block));
        made->setPageSize({kPaperWidth, kPaperHeight});
        torn = tornApart(*made);
        breaks.push_back(torn);
    }
    Document& document = *made;

    const DocumentPlaces places = placesOf(document, page);
    const QString title = places.headings.empty() ? page : places.headings.front().title;
    const QString file = folders.documents + QLatin1Char('/') + page + QStringLiteral(".pdf");
    QDir().mkpath(QFileInfo(file).path());
    document.amiss << write(file, pdfOf(document, title));
    document.amiss << write(DocumentPlaces::fileOf(file), places.text().toUtf8());
    document.amiss.removeAll(QString());
    document.amiss.removeDuplicates();
    return document.amiss;
}

}  // namespace verlink::manual
