// Finds the documents of the manual and shows their pages.
#include "desktop/document_widget.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfSearchModel>
#include <QStackedLayout>
#include <QUrl>

#include "desktop/document_pages.h"

namespace verlink::desktop {

namespace {

bool isFilm(const QString& document) { return document.endsWith(QStringLiteral(".webm")); }

/// A build makes the manual by itself; its film takes minutes and is made when it is asked for.
QString notInstalled(const QString& document) {
    QString note = QStringLiteral("This document is not installed: ") + document;
    if (!isFilm(document)) return note;
    return note + QStringLiteral(
                      "\n\nIt is a film. Where Verlink was built from its sources, tools/screencast makes it there, in "
                      "some minutes; then this entry shows it.");
}

}  // namespace

QString helpDocument(const QString& document) {
    const QString program = QCoreApplication::applicationDirPath();
    for (const char* folder : {"/", "/../share/verlink/", "/../"}) {
        const QFileInfo file(program + QString::fromLatin1(folder) + document);
        if (file.isFile()) return file.canonicalFilePath();
    }
    return {};
}

DocumentWidget::DocumentWidget(QWidget* parent) : QWidget(parent), note_(new QLabel(this)) {
    pages_ = new DocumentPages(this);
    auto* stack = new QStackedLayout(this);
    note_->setAlignment(Qt::AlignCenter);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setMargin(24);
    stack->addWidget(note_);
    stack->addWidget(pages_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusProxy(pages_);
    pages_->onChange = [this] {
        if (onChange) onChange();
    };
    pages_->onLink = [this](const QString& target) {
        if (onLink) onLink(target);
    };
}

void DocumentWidget::show(const QString& document) {
    const QString file = document.section(QLatin1Char('#'), 0, 0);
    const QString name = document.section(QLatin1Char('#'), 1);
    if (file.isEmpty()) {
        say({});
    } else if (file != shown_ || !name.isEmpty()) {
        const QString path = helpDocument(file);
        if (path.isEmpty()) {
            say(notInstalled(file));
        } else if (isFilm(file)) {
            say((QDesktopServices::openUrl(QUrl::fromLocalFile(path))
                     ? QStringLiteral("Your video player shows this document: ")
                     : QStringLiteral("No player was found for this document: ")) +
                path);
        } else if (file != shown_ && !pages_->load(path)) {
            say(QStringLiteral("This document cannot be shown: ") + path);
        } else {
            note_->clear();
            if (file != shown_ && !sought_.isEmpty()) pages_->seek(sought_);
            shown_ = file;
            static_cast<QStackedLayout*>(layout())->setCurrentWidget(pages_);
            if (const auto* heading = pages_->places().place(name)) pages_->goTo(heading->page, heading->top);
        }
    }
    if (onChange) onChange();
}

void DocumentWidget::say(const QString& note) {
    shown_.clear();
    note_->setText(note);
    static_cast<QStackedLayout*>(layout())->setCurrentWidget(note_);
}

QString DocumentWidget::note() const { return note_->text(); }

int DocumentWidget::pages() const { return shown_.isEmpty() ? 0 : pages_->pages(); }
int DocumentWidget::page() const { return pages_->page() + 1; }

void DocumentWidget::setPage(int page) {
    if (page != this->page()) pages_->goTo(page - 1);
}

void DocumentWidget::setZoom(double zoom) { pages_->setZoom(zoom); }
double DocumentWidget::scale() const { return pages_->scale(); }

void DocumentWidget::seek(const QString& words) {
    sought_ = words;
    pages_->seek(words);
}

std::vector<DocumentWidget::Place> DocumentWidget::seekIn(const std::vector<QString>& documents,
                                                          const QString& words) const {
    std::vector<Place> places;
    if (words.isEmpty()) return places;
    QPdfDocument read;
    QPdfSearchModel search;
    search.setDocument(&read);
    for (const QString& document : documents) {
        const QString path = helpDocument(document);
        if (path.isEmpty() || read.load(path) != QPdfDocument::Error::None) continue;
        // The model counts the pages when it is given the words.
        search.setSearchString({});
        search.setSearchString(words);
        int finds = 0;
        for (int page = 0; page < read.pageCount(); ++page)
            finds += static_cast<int>(search.resultsOnPage(page).size());
        if (finds == 0) continue;
        const DocumentPlaces inside = DocumentPlaces::ofDocument(path);
        places.push_back({document, inside.headings.empty() ? document : inside.headings.front().title, finds});
    }
    search.setDocument(nullptr);
    return places;
}

int DocumentWidget::finds() const { return pages_->finds(); }
void DocumentWidget::setFind(int find) { pages_->goToFind(find - 1); }

const std::vector<DocumentPlaces::Heading>& DocumentWidget::headings() const { return pages_->places().headings; }

}  // namespace verlink::desktop
