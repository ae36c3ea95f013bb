// Pictures of a graph, by the hand of the user: the menu of a right click, the dialog, and the files that come of it.
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPainter>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QSvgRenderer>
#include <QWindow>
#include <QXmlStreamReader>

#include "desktop/printing.h"
#include "files/picture_files.h"
#include "output/graph_scale.h"
#include "platform/file_system.h"
#include "platform/guard.h"
#include "tests/desktop/graph_fixture.h"

namespace verlink::test {

namespace {

class GraphPicturesTest : public GraphWidgetTest {
   protected:
    GraphPicturesTest() {
        Open();
        Fill(2, 360);
        graph.GraphTitle = "Omega4  (rad/sec)";
        Draw();
    }

    /// Opens the menu by a right click and takes the entry at a place in it.
    QStringList Take(int entry) {
        QStringList offered;
        QTimer::singleShot(50, widget.get(), [&offered, entry] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (const QAction* action : menu->actions()) offered << action->text();
            menu->setActiveAction(menu->actions().at(entry));
            QTest::keyClick(menu, Qt::Key_Return);
        });
        // Through the window, as a real click comes, and not to the widget that is meant to have it.
        QTest::mousePress(widget->windowHandle(), Qt::RightButton, {}, {200, 200});
        QTest::mouseRelease(widget->windowHandle(), Qt::RightButton, {}, {200, 200});
        // What was chosen is done when the menu has gone.
        Settle();
        return offered;
    }

    /// In the dialog: so many steps down in the list of kinds, a folder, a name without its end, and Save.
    void Then_Save(int kinds_down, const std::string& name) {
        Then("file", [this, kinds_down, name](QWidget& window) {
            auto& dialog = static_cast<QFileDialog&>(window);
            EXPECT_EQ(dialog.windowTitle(), "Save picture");
            EXPECT_EQ(dialog.nameFilters(),
                      QStringList({"PNG picture, 900 x 500 pixels (*.png)", "PNG picture, 1800 x 1000 pixels (*.png)",
                                   "PNG picture, 3600 x 2000 pixels (*.png)", "SVG drawing (*.svg)",
                                   "PDF document (*.pdf)"}));
            auto& edit = Find<QLineEdit>(dialog, "fileNameEdit");
            EXPECT_EQ(edit.text(), "plot.png");
            auto& kinds = Find<QComboBox>(dialog, "fileTypeCombo");
            for (int i = 0; i < kinds_down; ++i) QTest::keyClick(&kinds, Qt::Key_Down);
            for (int i = 0; i > kinds_down; --i) QTest::keyClick(&kinds, Qt::Key_Up);
            edit.setText(QString::fromStdString(Path(name)));
            dialog.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
        });
        EXPECT_EQ(Take(0), (QStringList{"Save Picture...", "Copy Picture"}));
    }

    static void Expect_Vectors_With_Words(const std::string& path, const std::vector<std::string>& words) {
        const std::string bytes = platform::Read_File(path);
        EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
        EXPECT_EQ(bytes.find("/Subtype /Image"), std::string::npos) << "vectors, and no picture of pixels";
        QProcess reader;
        reader.start(QStringLiteral("pdftotext"), {QString::fromStdString(path), QStringLiteral("-")});
        ASSERT_TRUE(reader.waitForFinished());
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().toStdString();
        const std::string text = reader.readAllStandardOutput().toStdString();
        for (const std::string& word : words) EXPECT_NE(text.find(word), std::string::npos) << word << " in " << text;
    }

    QRgb Curve(int set) const { return Rgb(Colors_Of(15).curves[static_cast<std::size_t>(set)]); }
    void Expect_Both_Curves(const QImage& picture) {
        const QImage image = picture.convertToFormat(QImage::Format_RGB32);
        for (const int set : {0, 1}) EXPECT_GT(Pixels(image, Curve(set)), 200) << "curve " << set;
    }
};

}  // namespace

TEST_F(GraphPicturesTest, Save_picture_writes_a_png_of_twice_the_size_on_screen) {
    Then_Save(0, "curves");
    const QImage image(QString::fromStdString(Path("curves.png")));
    EXPECT_EQ(image.size(), widget->size() * 2);
    Expect_Both_Curves(image);
}

TEST_F(GraphPicturesTest, A_png_has_the_density_taken_which_is_offered_the_next_time) {
    Then_Save(1, "large");
    EXPECT_EQ(QImage(QString::fromStdString(Path("large.png"))).size(), widget->size() * 4);
    Then_Save(0, "as_large");
    EXPECT_EQ(QImage(QString::fromStdString(Path("as_large.png"))).size(), widget->size() * 4);
    Then_Save(-2, "small");
    const QImage small(QString::fromStdString(Path("small.png")));
    EXPECT_EQ(small.size(), widget->size());
    Expect_Both_Curves(small);
}

TEST_F(GraphPicturesTest, Save_picture_writes_an_svg_of_vectors_that_opens) {
    Then_Save(2, "curves");
    const QString path = QString::fromStdString(Path("curves.svg"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    int strokes = 0, images = 0;
    QString words;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            if (reader.name() == u"polyline" || reader.name() == u"path") ++strokes;
            if (reader.name() == u"image") ++images;
        }
        if (reader.isCharacters()) words += reader.text();
    }
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString();
    EXPECT_GT(strokes, 2);
    EXPECT_EQ(images, 0) << "vectors, and no picture of pixels";
    for (const char* text : {"Omega4  (rad/sec)", "Crank Angle (Deg)", "Function 1", "Function 2"})
        EXPECT_TRUE(words.contains(QString::fromLatin1(text))) << text;

    QSvgRenderer renderer(path);
    ASSERT_TRUE(renderer.isValid());
    QImage image(widget->size() * 2, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    Expect_Both_Curves(image);
}

TEST_F(GraphPicturesTest, Save_picture_writes_a_pdf_of_vectors_whose_words_can_be_read) {
    Then_Save(3, "curves");
    const std::string path = Path("curves.pdf");
    Expect_Vectors_With_Words(path, {"(rad/sec)", "Crank Angle (Deg)", "Function 1", "Function 2"});
}

TEST_F(GraphPicturesTest, On_paper_a_graph_is_vectors_too_on_every_background) {
    for (const int background : {15, 1, 7}) {
        SCOPED_TRACE(background);
        graph.Background = background;
        Draw();
        const std::string path = Path("paper.pdf");
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(QString::fromStdString(path));
        ASSERT_TRUE(desktop::printWidget(printer, *widget, QString()));
        Expect_Vectors_With_Words(path, {"(rad/sec)", "Crank Angle (Deg)", "Function 1", "Function 2"});
    }
}

TEST_F(GraphPicturesTest, A_cancelled_dialog_saves_nothing) {
    Then("file", [](QWidget& window) { static_cast<QFileDialog&>(window).reject(); });
    Take(0);
    EXPECT_FALSE(platform::File_Exists(Path("plot.png")));
}

TEST_F(GraphPicturesTest, A_picture_that_cannot_be_written_is_told) {
    Then("file", [this](QWidget& window) {
        auto& dialog = static_cast<QFileDialog&>(window);
        Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(Path("lost/plot.png")));
        dialog.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
    });
    ThenMessage(
        "The picture could not be written to " + Path("lost/plot.png") + ".\nThere is no folder " + Path("lost") + ".",
        QStringLiteral("OK"));
    Take(0);
}

TEST_F(GraphPicturesTest, The_end_of_the_name_tells_the_kind_and_a_lost_folder_is_no_picture) {
    const auto head = [&](const char* name, int bytes) {
        Write_Picture(*platform::Maker_Of(graph), Path(name), 2);
        QFile file(QString::fromStdString(Path(name)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.read(bytes);
    };
    EXPECT_EQ(head("plot.pdf", 5), "%PDF-");
    EXPECT_EQ(head("plot.png", 4), "\x89PNG");
    EXPECT_EQ(head("plot.SVG", 5), "<?xml");
    for (const char* name : {"nowhere/plot.png", "nowhere/plot.svg", "nowhere/plot.pdf"})
        EXPECT_EQ(Failure_Of([&] { Write_Picture(*platform::Maker_Of(graph), Path(name), 2); }), 76) << name;
}

TEST_F(GraphPicturesTest, Copy_picture_puts_both_curves_on_the_clipboard) {
    QApplication::clipboard()->clear();
    EXPECT_EQ(Take(1), (QStringList{"Save Picture...", "Copy Picture"}));
    const QImage image = QApplication::clipboard()->image();
    EXPECT_EQ(image.size(), widget->size() * 2);
    Expect_Both_Curves(image);
    const QByteArray vectors = QApplication::clipboard()->mimeData()->data(QStringLiteral("image/svg+xml"));
    EXPECT_TRUE(vectors.startsWith("<?xml"));
    EXPECT_TRUE(vectors.contains("Crank Angle (Deg)"));
}

}  // namespace verlink::test
