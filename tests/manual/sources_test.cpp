// No link of the help leads nowhere: entries, documents, headings, pictures.
#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QPdfDocument>
#include <QRegularExpression>
#include <map>
#include <set>

#include "desktop/document_places.h"
#include "desktop/document_widget.h"
#include "screens/help_documents.h"

namespace verlink::test {

namespace {

using desktop::DocumentPlaces;

const QString kPages = QStringLiteral(VERLINK_MANUAL);

QString Text_Of_File(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

/// Every Markdown file by its path below the folder, without its ending.
std::map<QString, QString> Sources() {
    std::map<QString, QString> sources;
    QDirIterator files(kPages, {QStringLiteral("*.md")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        sources[QDir(kPages).relativeFilePath(path).chopped(3)] = Text_Of_File(path);
    }
    return sources;
}

/// The documents that help entries open, the video left out.
std::set<QString> Documents() {
    std::set<QString> documents;
    for (const auto& [entry, document] : Help_Documents()) {
        const QString path = QString::fromUtf8(document);
        if (path.endsWith(QStringLiteral(".pdf"))) documents.insert(path);
    }
    return documents;
}

QString Document_Of(const QString& page) { return QStringLiteral("helpfiles/") + page + QStringLiteral(".pdf"); }

std::set<QString> Headings(const QString& markdown) {
    std::set<QString> names;
    static const QRegularExpression heading(QStringLiteral("^#+ (.*)$"), QRegularExpression::MultilineOption);
    for (const auto& match : heading.globalMatch(markdown))
        names.insert(DocumentPlaces::nameOf(match.captured(1).trimmed()));
    static const QRegularExpression formula(QStringLiteral("^\\$\\$.*\\{#([a-z0-9-]+)\\}$"),
                                            QRegularExpression::MultilineOption);
    for (const auto& match : formula.globalMatch(markdown)) names.insert(match.captured(1));
    static const QRegularExpression picture(QStringLiteral("!\\[[^\\]]*\\]\\(.*/([^/.]+)\\.[a-z]+\\)"));
    for (const auto& match : picture.globalMatch(markdown)) names.insert(QStringLiteral("fig-") + match.captured(1));
    return names;
}

std::vector<QString> Targets(const QString& markdown, bool pictures) {
    std::vector<QString> targets;
    static const QRegularExpression link(QStringLiteral("(!?)\\[[^\\]]*\\]\\(([^)]*)\\)"));
    for (const auto& match : link.globalMatch(markdown))
        if (match.captured(1).isEmpty() != pictures) targets.push_back(match.captured(2));
    return targets;
}

TEST(ManualSourcesTest, Every_help_entry_has_a_page_and_every_page_an_entry) {
    const std::map<QString, QString> sources = Sources();
    std::set<QString> made;
    for (const auto& [page, text] : sources) made.insert(Document_Of(page));
    EXPECT_EQ(made, Documents());
    EXPECT_EQ(made.size(), 32u);
}

TEST(ManualSourcesTest, Every_document_comes_out_with_pages_and_with_the_text_of_its_headings) {
    for (const QString& document : Documents()) {
        SCOPED_TRACE(document.toStdString());
        const QString path = desktop::helpDocument(document);
        ASSERT_FALSE(path.isEmpty());
        QPdfDocument pdf;
        ASSERT_EQ(pdf.load(path), QPdfDocument::Error::None);
        ASSERT_GT(pdf.pageCount(), 0);
        const DocumentPlaces places = DocumentPlaces::ofDocument(path);
        ASSERT_FALSE(places.headings.empty());
        EXPECT_EQ(places.headings.front().level, 1);
        for (const DocumentPlaces::Heading& heading : places.headings) {
            ASSERT_LT(heading.page, pdf.pageCount());
            EXPECT_TRUE(pdf.getAllText(heading.page).text().contains(heading.title))
                << heading.title.toStdString() << " on page " << heading.page + 1;
            EXPECT_GT(heading.top, 0);
            EXPECT_LT(heading.top, pdf.pagePointSize(heading.page).height());
        }
        for (int page = 0; page < pdf.pageCount(); ++page)
            EXPECT_GT(pdf.getAllText(page).text().size(), 100) << "page " << page + 1 << " is empty";
    }
}

const DocumentPlaces& Places_Of(const QString& path) {
    static std::map<QString, DocumentPlaces> known;
    const auto found = known.find(path);
    return found != known.end() ? found->second : known[path] = DocumentPlaces::ofDocument(path);
}

TEST(ManualSourcesTest, Every_link_has_its_heading_in_the_source_and_its_place_on_paper) {
    const std::map<QString, QString> sources = Sources();
    for (const auto& [page, text] : sources) {
        SCOPED_TRACE(page.toStdString());
        for (const QString& target : Targets(text, false)) {
            SCOPED_TRACE(target.toStdString());
            const QString file = target.section(QLatin1Char('#'), 0, 0);
            const QString name = target.section(QLatin1Char('#'), 1);
            QString there = page;
            if (!file.isEmpty()) {
                ASSERT_TRUE(file.endsWith(QStringLiteral(".md")));
                there = QDir::cleanPath(QFileInfo(page).path() + QLatin1Char('/') + file).chopped(3);
            }
            ASSERT_TRUE(sources.contains(there));
            if (!name.isEmpty()) {
                EXPECT_TRUE(Headings(sources.at(there)).contains(name));
            }
        }
        for (const DocumentPlaces::Link& link :
             DocumentPlaces::ofDocument(desktop::helpDocument(Document_Of(page))).links) {
            SCOPED_TRACE(link.target.toStdString());
            const QString path = desktop::helpDocument(link.target.section(QLatin1Char('#'), 0, 0));
            ASSERT_FALSE(path.isEmpty());
            const QString name = link.target.section(QLatin1Char('#'), 1);
            if (!name.isEmpty()) {
                EXPECT_NE(Places_Of(path).place(name), nullptr);
            }
        }
    }
}

TEST(ManualSourcesTest, A_page_that_has_links_has_them_on_paper_too) {
    for (const auto& [page, text] : Sources()) {
        const auto links = DocumentPlaces::ofDocument(desktop::helpDocument(Document_Of(page))).links;
        EXPECT_GE(links.size(), Targets(text, false).size()) << page.toStdString();
    }
}

TEST(ManualSourcesTest, Names_of_headings_are_unique_within_a_page) {
    for (const auto& [page, text] : Sources()) {
        std::set<QString> names;
        for (const auto& heading : DocumentPlaces::ofDocument(desktop::helpDocument(Document_Of(page))).headings)
            EXPECT_TRUE(names.insert(heading.name).second) << page.toStdString() << ": " << heading.name.toStdString();
    }
}

TEST(ManualSourcesTest, Every_picture_was_taken) {
    for (const auto& [page, text] : Sources()) {
        for (const QString& target : Targets(text, true)) {
            const QString path = QStringLiteral(VERLINK_PICTURES "/") + QFileInfo(target).fileName();
            EXPECT_FALSE(QImage(path).isNull()) << page.toStdString() << ": " << path.toStdString();
        }
    }
}

TEST(ManualSourcesTest, The_walks_for_its_pictures_reached_their_ends) {
    for (const char* account : {"road", "chapters"})
        EXPECT_TRUE(Text_Of_File(QStringLiteral(VERLINK_PICTURES "/%1.txt").arg(QLatin1String(account)))
                        .endsWith(QStringLiteral("\ncomplete\n")))
            << account;
}

TEST(ManualSourcesTest, The_pictures_are_of_the_run_that_the_worked_example_types) {
    const QString account = Text_Of_File(QStringLiteral(VERLINK_PICTURES "/road.txt"));
    for (const char* picture : {"input", "animate", "plot-acceleration", "dynamics", "balance", "print-data"})
        EXPECT_TRUE(account.contains(QStringLiteral("\npicture %1, 181 positions\n").arg(QLatin1String(picture))))
            << picture;
}

TEST(DocumentPlacesTest, Places_are_read_as_they_were_written) {
    DocumentPlaces places;
    places.headings.push_back({2, 3, 71.25, QStringLiteral("how-many-steps"), QStringLiteral("How many steps?")});
    places.labels.push_back({0, 4, 12.5, QStringLiteral("eq-closure"), {}});
    places.links.push_back({1, {10, 20, 30.5, 12}, QStringLiteral("helpfiles/a/b.pdf#c")});
    const DocumentPlaces read = DocumentPlaces::fromText(places.text());
    ASSERT_EQ(read.headings.size(), 1u);
    EXPECT_EQ(read.headings[0].level, 2);
    EXPECT_EQ(read.headings[0].page, 3);
    EXPECT_EQ(read.headings[0].top, 71.25);
    EXPECT_EQ(read.headings[0].title, QStringLiteral("How many steps?"));
    ASSERT_NE(read.place(QStringLiteral("how-many-steps")), nullptr);
    ASSERT_NE(read.place(QStringLiteral("eq-closure")), nullptr);
    EXPECT_EQ(read.place(QStringLiteral("eq-closure"))->page, 4);
    EXPECT_EQ(read.place(QStringLiteral("eq-closure"))->top, 12.5);
    EXPECT_EQ(read.place(QStringLiteral("how-many")), nullptr);
    ASSERT_EQ(read.links.size(), 1u);
    EXPECT_EQ(read.links[0].page, 1);
    EXPECT_EQ(read.links[0].area, QRectF(10, 20, 30.5, 12));
    EXPECT_EQ(read.links[0].target, QStringLiteral("helpfiles/a/b.pdf#c"));
}

TEST(DocumentPlacesTest, A_heading_is_named_by_its_words_in_small_letters) {
    EXPECT_EQ(DocumentPlaces::nameOf(QStringLiteral("How many steps?")), QStringLiteral("how-many-steps"));
    EXPECT_EQ(DocumentPlaces::nameOf(QStringLiteral("Link 4 Theta-Omega-Alpha Data")),
              QStringLiteral("link-4-theta-omega-alpha-data"));
}

}  // namespace

}  // namespace verlink::test
