// The report in real windows and on real pages: from the menu to the file, and what stands on the paper.
#include <QAction>
#include <QDir>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QProgressDialog>
#include <QPushButton>

#include "desktop/progress.h"
#include "desktop/report_pages.h"
#include "platform/file_system.h"
#include "shell/initialize.h"
#include "tests/desktop/user.h"

namespace verlink::test {

namespace {

const platform::Tell_Progress kOn = [](double) { return true; };

class ReportPages : public DesktopTest {
   protected:
    /// A title, a table, and so many pictures, each with a caption.
    static Report Small(int pictures = 1) {
        Report report;
        report.title = "Press \"No. 3\" <a & b>";
        report.block.numbers = 0;
        report.block.rows = {{"Name", "press"}};
        report.foot = "press   Verlink 9.0";
        report.chapters.push_back({"Numbers", {Report_Table{{"What", "How much"}, {{"Crank", "12.500"}}, 1, 1}}});
        report.chapters.push_back({"Pictures", {}});
        for (int i = 1; i <= pictures; ++i)
            report.chapters.back().pieces.emplace_back(Report_Picture{
                "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100\" height=\"100\" viewBox=\"0 0 100 100\">"
                "<circle cx=\"50\" cy=\"50\" r=\"40\" fill=\"#FF0000\"/></svg>",
                100, 100, "Caption " + std::to_string(i)});
        return report;
    }
    void Open(const std::string& pdf) {
        platform::Write_File(Path("a.pdf"), pdf);
        document.load(QString::fromStdString(Path("a.pdf")));
        ASSERT_EQ(document.status(), QPdfDocument::Status::Ready);
    }
    std::string Words(int page) { return document.getAllText(page).text().simplified().toStdString(); }
    /// How many millimetres of a page are red, from its first such row to its last.
    double Red_High(int page) {
        constexpr double kPerMillimetre = 4;
        const QSizeF points = document.pagePointSize(page);
        const QImage image = document.render(page, (points / 72 * 25.4 * kPerMillimetre).toSize());
        int first = -1, last = -1;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                if (color.alpha() == 0 || color.red() < 200 || color.green() > 60) continue;
                if (first < 0) first = y;
                last = y;
            }
        return first < 0 ? 0 : (last - first + 1) / kPerMillimetre;
    }

    QPdfDocument document;
};

}  // namespace

TEST_F(ReportPages, HaveTitleTableCaptionAndFootAsTheyStand) {
    const auto pdf = desktop::setReport(Small(), Paper::kA4, kOn);
    ASSERT_TRUE(pdf.has_value());
    Open(*pdf);
    ASSERT_EQ(document.pageCount(), 1);
    const std::string words = Words(0);
    for (const char* there : {"Press \"No. 3\" <a & b>", "Name", "What", "How much", "Crank", "12.500", "Pictures",
                              "Caption 1", "press Verlink 9.0", "1 / 1"})
        EXPECT_NE(words.find(there), std::string::npos) << there << " in " << words;
    EXPECT_EQ(document.pagePointSize(0).toSize(), QSize(595, 842));
}

TEST_F(ReportPages, AreOnLetterWhereThatIsUsed) {
    const auto pdf = desktop::setReport(Small(), Paper::kLetter, kOn);
    ASSERT_TRUE(pdf.has_value());
    Open(*pdf);
    EXPECT_EQ(document.pagePointSize(0).toSize(), QSize(612, 792));
}

TEST_F(ReportPages, HavePicturesAsLargeAsTheyAreToBeAndWithTheirCaptions) {
    const auto pdf = desktop::setReport(Small(5), Paper::kA4, kOn);
    ASSERT_TRUE(pdf.has_value());
    Open(*pdf);
    ASSERT_EQ(document.pageCount(), 3);
    // A circle of 80 mm, on the page of its caption; two stand 100 mm and the caption's room apart.
    EXPECT_NEAR(Red_High(0), 80, 0.6);
    EXPECT_NE(Words(0).find("Caption 1"), std::string::npos);
    EXPECT_GT(Red_High(1), 180);
    EXPECT_LT(Red_High(1), 195);
    EXPECT_NE(Words(1).find("Caption 3"), std::string::npos);
    EXPECT_NE(Words(2).find("Caption 5"), std::string::npos);
}

TEST_F(ReportPages, HoldNoPixels) {
    const auto pdf = desktop::setReport(Small(), Paper::kA4, kOn);
    ASSERT_TRUE(pdf.has_value());
    EXPECT_EQ(pdf->find("/Subtype /Image"), std::string::npos);
}

TEST_F(ReportPages, AreNotMadeWhenItIsNotToGoOn) {
    for (int stop = 1; stop <= 3; ++stop) {
        int told = 0;
        EXPECT_FALSE(desktop::setReport(Small(5), Paper::kA4, [&](double) { return ++told < stop; }).has_value());
        EXPECT_EQ(told, stop);
    }
}

TEST_F(ReportPages, ComeFromTheMenuOfTheHomeScreen) {
    const std::string path = Path("press.pdf");
    Initialize();
    Then("frm_Inputnew", [](QWidget& window) {
        Type(window, "txt_initial_2", QStringLiteral("10"));
        Click(window, "cmd_Calc");
        platform::Screens::Get("frm_Inputnew").Hide();
    });
    platform::Screens::Get("frm_Inputnew").ShowModal();
    Then("frm_Report", [&](QWidget& window) {
        ThenFile(path);
        Click(window, "cmd_Save");
    });
    platform::Screens::Get("frm_Report").ShowModal();
    Open(platform::Read_File(path));
    EXPECT_GT(document.pageCount(), 2);
    EXPECT_NE(Words(0).find("Link 2 (Crank)"), std::string::npos);
}

TEST_F(ReportPages, ShowTheirProgressOnceItTakesLong) {
    ActAlone();
    bool seen = false, early = false;
    desktop::showProgress("Making the report", [&](const platform::Tell_Progress& tell) {
        const auto dialog = [] {
            for (QWidget* widget : QApplication::topLevelWidgets())
                if (auto* found = qobject_cast<QProgressDialog*>(widget)) return found;
            return static_cast<QProgressDialog*>(nullptr);
        };
        tell(0.9);
        early = dialog()->isVisible();
        for (int i = 0; i < 20 && !dialog()->isVisible(); ++i) {
            QTest::qSleep(60);
            tell(0.01);
        }
        seen = dialog()->isVisible();
        EXPECT_TRUE(tell(0.2));
        dialog()->findChild<QPushButton*>()->click();
        EXPECT_FALSE(tell(0.3));
    });
    EXPECT_FALSE(early);
    EXPECT_TRUE(seen);
}

}  // namespace verlink::test
