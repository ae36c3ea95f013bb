// verlink-batch hands over to verlink-paper where letters are to be set: real processes, as an installed pair.
#include <QImage>
#include <QPdfDocument>
#include <QProcess>

#include "desktop/text.h"
#include "tests/desktop/user.h"

namespace verlink::test {

namespace {

class BatchPaper : public DesktopTest {
   protected:
    /// What is written to standard output and to standard error, and the status.
    struct Outcome {
        QByteArray out, err;
        int status;
    };
    Outcome Run(const QStringList& options) const {
        QProcess batch;
        batch.start(QStringLiteral(VERLINK_BATCH),
                    QStringList{QStringLiteral(VERLINK_SAMPLES "/crank_rocker.vlk"), QStringLiteral("--dynamics"),
                                QStringLiteral("--csv"), QStringLiteral("/dev/null")} +
                        options);
        EXPECT_TRUE(batch.waitForFinished(60'000));
        return {batch.readAllStandardOutput(), batch.readAllStandardError(), batch.exitCode()};
    }
    QString File(const char* name) const { return desktop::toQt(Path(name)); }
};

TEST_F(BatchPaper, A_report_comes_out_with_its_chapters) {
    const Outcome ran = Run({QStringLiteral("--report"), File("a.pdf")});
    ASSERT_EQ(ran.status, 0) << ran.err.toStdString();
    QPdfDocument report;
    ASSERT_EQ(report.load(File("a.pdf")), QPdfDocument::Error::None);
    QString words;
    for (int page = 0; page < report.pageCount(); ++page) words += report.getAllText(page).text();
    for (const char* chapter : {"Data of the model", "Classification and limits", "Drawing", "Plots",
                                "Forces and torques", "Cognates", "Checks"})
        EXPECT_TRUE(words.contains(QLatin1String(chapter))) << chapter;
    EXPECT_FALSE(words.contains(QLatin1String("Flywheel")));
}

TEST_F(BatchPaper, A_graph_comes_out_as_a_page_and_as_pixels) {
    const QStringList graph{QStringLiteral("--plot"), QStringLiteral("Torque 12"), QStringLiteral("--picture")};
    for (const char* name : {"a.pdf", "a.png", "a.svg"}) {
        const Outcome ran = Run(graph + QStringList{File(name)});
        ASSERT_EQ(ran.status, 0) << name << ran.err.toStdString();
    }
    QPdfDocument page;
    ASSERT_EQ(page.load(File("a.pdf")), QPdfDocument::Error::None);
    EXPECT_EQ(page.pageCount(), 1);
    EXPECT_EQ(page.pagePointSize(0), QSizeF(960, 600));
    const QImage pixels(File("a.png"));
    EXPECT_EQ(pixels.size(), QSize(1920, 1200));
    // The same curve on both.
    const QImage paper = page.render(0, pixels.size()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    int both = 0, one = 0;
    const auto blue = [](QRgb color) { return qAlpha(color) > 128 && qBlue(color) > 120 && qRed(color) < 90; };
    for (int y = 0; y < pixels.height(); ++y)
        for (int x = 0; x < pixels.width(); ++x) {
            const bool here = blue(pixels.pixel(x, y)), there = blue(paper.pixel(x, y));
            both += here && there ? 1 : 0;
            one += here != there ? 1 : 0;
        }
    EXPECT_GT(both, 3000);
    EXPECT_GT(both, one);
}

}  // namespace
}  // namespace verlink::test
