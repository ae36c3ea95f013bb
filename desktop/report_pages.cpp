// How a report becomes a document, and its pictures vectors on it.
#include "desktop/report_pages.h"

#include <QPainter>
#include <QSvgRenderer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <memory>
#include <vector>

#include "desktop/text.h"
#include "desktop/typeset.h"

namespace verlink::desktop {

namespace {

constexpr qreal kPixelsOfMillimetre = 96 / 25.4;
constexpr qreal kLetterWidth = 816, kLetterHeight = 1056;
constexpr qreal kSideMargin = 80;

Sheet sheetOf(Paper paper) {
    if (paper == Paper::kA4) return {};
    return {QPageSize::Letter, kLetterWidth, kLetterHeight, kSideMargin};
}

/// Writes one piece behind the other.
class Writer {
   public:
    explicit Writer(QTextDocument& document) : cursor_(&document) {}

    void write(const Report& report) {
        heading(1, report.title);
        write(report.block);
        for (const Report_Chapter& chapter : report.chapters) {
            heading(2, chapter.title);
            for (const Report_Piece& piece : chapter.pieces)
                std::visit([this](const auto& what) { write(what); }, piece);
        }
    }

   private:
    void heading(int level, const std::string& words) {
        QTextBlockFormat format;
        format.setHeadingLevel(level);
        block(format, words);
    }
    void write(const Report_Heading& piece) { heading(3, piece.words); }
    void write(const Report_Text& piece) { block({}, piece.words); }

    void write(const Report_Picture& piece) {
        // Behind a table a block without any letter would have no room at all.
        block({}, "\u00A0");
        makeFigure(cursor_.block(), figures_++, piece.high * kPixelsOfMillimetre);
        block({}, piece.caption);
    }

    void write(const Report_Table& piece) {
        const bool headed = !piece.heads.empty();
        std::size_t columns = piece.heads.size();
        for (const auto& texts : piece.rows) columns = std::max(columns, texts.size());
        if (columns == 0) return;
        QTextTableFormat format;
        if (!headed) format.setProperty(kHeadless, true);
        format.setProperty(kTogether, true);
        const int rows = static_cast<int>(piece.rows.size()) + (headed ? 1 : 0);
        QTextTable* table = cursor_.insertTable(rows, static_cast<int>(columns), format);
        int row = 0;
        if (headed) fill(*table, row++, piece.heads, piece);
        for (const auto& texts : piece.rows) fill(*table, row++, texts, piece);
        cursor_.movePosition(QTextCursor::End);
        fresh_ = true;
    }

    static void fill(QTextTable& table, int row, const std::vector<std::string>& texts, const Report_Table& piece) {
        for (int column = 0; column < static_cast<int>(texts.size()); ++column) {
            QTextCursor cell = table.cellAt(row, column).firstCursorPosition();
            QTextBlockFormat format;
            // What a row is about stays in one line.
            format.setNonBreakableLines(column == 0);
            if (column >= piece.first_number && column < piece.first_number + piece.numbers)
                format.setAlignment(Qt::AlignRight);
            cell.setBlockFormat(format);
            cell.insertText(toQt(texts[static_cast<std::size_t>(column)]));
        }
    }

    /// Behind a table, and at the beginning, there is an empty block already.
    void block(const QTextBlockFormat& format, const std::string& words) {
        if (fresh_)
            cursor_.setBlockFormat(format);
        else
            cursor_.insertBlock(format);
        cursor_.setCharFormat({});
        cursor_.insertText(toQt(words));
        fresh_ = false;
    }

    QTextCursor cursor_;
    bool fresh_ = true;
    int figures_ = 0;
};

std::vector<const Report_Picture*> picturesOf(const Report& report) {
    std::vector<const Report_Picture*> pictures;
    for (const Report_Chapter& chapter : report.chapters)
        for (const Report_Piece& piece : chapter.pieces)
            if (const auto* picture = std::get_if<Report_Picture>(&piece)) pictures.push_back(picture);
    return pictures;
}

/// In the middle of its room, as wide as it wants to be.
void paintPicture(QPainter& painter, const Report_Picture& picture, const QRectF& room) {
    const QSizeF size = QSizeF(picture.wide, picture.high) * kPixelsOfMillimetre;
    QSvgRenderer renderer(QByteArray::fromStdString(picture.svg));
    renderer.render(&painter, {QPointF(room.center().x() - size.width() / 2, room.top()), size});
}

}  // namespace

std::optional<std::string> setReport(const Report& report, Paper paper, const platform::Tell_Progress& tell) {
    constexpr double kLaidOut = 0.4;  ///< of the time
    const Sheet sheet = sheetOf(paper);
    double done = 0;
    const auto document = typeset(
        [&report] {
            auto made = std::make_unique<QTextDocument>();
            Writer(*made).write(report);
            return made;
        },
        sheet, [&] { return tell(done = (done + kLaidOut) / 2); });
    if (!document) return std::nullopt;
    const std::vector<const Report_Picture*> pictures = picturesOf(report);
    const QByteArray pdf = pdfOf(*document, sheet,
                                 {toQt(report.title), toQt(report.foot),
                                  [&](QPainter& painter, int number, const QRectF& area) {
                                      paintPicture(painter, *pictures[static_cast<std::size_t>(number)], area);
                                  },
                                  [&](int page, int pages) { return tell(kLaidOut + (1 - kLaidOut) * page / pages); }});
    if (pdf.isEmpty()) return std::nullopt;
    return pdf.toStdString();
}

}  // namespace verlink::desktop
