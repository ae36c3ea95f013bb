// The picture of the mechanism in real windows: its menu by mouse and by key, its files, the clipboard and its film.
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QSvgRenderer>

#include "animation/engine.h"
#include "animation/film.h"
#include "animation/linkage_dxf.h"
#include "core/window_sizes.h"
#include "desktop/picture_widget.h"
#include "platform/file_system.h"
#include "platform/pictures.h"
#include "platform/settings.h"
#include "shell/initialize.h"
#include "tests/desktop/user.h"
#include "tests/support/fixture.h"
#include "tests/support/gif_reader.h"

namespace verlink::test {

using namespace platform;

namespace {

class SavePictureTest : public DesktopTest {
   protected:
    /// On the animate screen, at the first position of a run of 37.
    void Animate(std::function<void(QWidget&)> user) {
        Initialize();
        Then("frm_Inputnew", [](QWidget& window) {
            Type(window, "txt_initial_2", QStringLiteral("10"));
            Click(window, "cmd_Calc");
            Click(window, "cmd_Done");
        });
        Then("frm_Animate", [this, user](QWidget& window) {
            auto& timer = Animating().Get<Timer>("Timer1");
            EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
            user(window);
            Animating().Hide();
        });
        Show_Centered("frm_Inputnew");
    }
    static Screen& Animating() { return Screens::Get("frm_Animate"); }
    static PictureBox& Box() { return Animating().Get<PictureBox>("Picture1"); }
    static desktop::PictureWidget& Picture(QWidget& window) { return Find<desktop::PictureWidget>(window, "Picture1"); }
    /// Without the frame, which shows where the focus is, and the ring around a joint under the pointer.
    static std::vector<std::uint32_t> Seen() { return Maker_Of(Box())->Paint(1).colors; }

    /// Takes the entry of that number when the menu has come up; with none it is left by Escape.
    static void Then_Take(QStringList& offered, int entry) {
        QTimer::singleShot(80, qApp, [&offered, entry] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (const QAction* action : menu->actions()) offered << action->text();
            if (entry < 0) return QTest::keyClick(menu, Qt::Key_Escape);
            menu->setActiveAction(menu->actions().at(entry));
            QTest::keyClick(menu, Qt::Key_Return);
        });
    }
    static QStringList By_Mouse(QWidget& window, int entry) {
        QStringList offered;
        Then_Take(offered, entry);
        const QPoint at = Picture(window).mapTo(&window, Picture(window).rect().center());
        QTest::mousePress(window.windowHandle(), Qt::RightButton, {}, at);
        QTest::mouseRelease(window.windowHandle(), Qt::RightButton, {}, at);
        QCoreApplication::processEvents();
        return offered;
    }
    static QStringList By_Key(QWidget& from, int entry) {
        QStringList offered;
        Then_Take(offered, entry);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, {1, 1}, from.mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(&from, &event);
        QCoreApplication::processEvents();
        return offered;
    }
    /// In the dialog: the entry of that number, a name, and Save.
    void Then_Save(const QString& title, int entry, const std::string& name) {
        Then("file", [this, title, entry, name](QWidget& window) {
            auto& dialog = static_cast<QFileDialog&>(window);
            EXPECT_EQ(dialog.windowTitle(), title);
            auto& kinds = Find<QComboBox>(dialog, "fileTypeCombo");
            while (kinds.currentIndex() < entry) QTest::keyClick(&kinds, Qt::Key_Down);
            while (kinds.currentIndex() > entry) QTest::keyClick(&kinds, Qt::Key_Up);
            Find<QLineEdit>(dialog, "fileNameEdit").setText(QString::fromStdString(Path(name)));
            dialog.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
        });
    }
    std::string Saved(const std::string& name) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return File_Exists(Path(name)); }));
        return Read_File(Path(name));
    }
};

const QStringList kOffered{"Save Picture...", "Copy Picture", "Save Motion...", "Save Drawing..."};

}  // namespace

TEST_F(SavePictureTest, The_menu_comes_by_a_right_click_and_by_the_menu_key_from_a_button) {
    Animate([](QWidget& window) {
        EXPECT_EQ(By_Mouse(window, -1), kOffered);
        // The joint under the pointer is lit from now on.
        const auto before = Seen();
        EXPECT_EQ(By_Mouse(window, -1), kOffered);
        EXPECT_EQ(By_Key(Picture(window), -1), kOffered);
        EXPECT_EQ(By_Key(Find<QWidget>(window, "cmd_Step"), -1), kOffered);
        EXPECT_TRUE(Seen() == before);
        EXPECT_FALSE(Model.LinkEdited);
    });
}

TEST_F(SavePictureTest, The_drawing_of_the_mechanism_is_saved_by_the_menu_of_its_picture) {
    Animate([this](QWidget& window) {
        Then_Save(QStringLiteral("Save drawing"), 0, "run.dxf");
        By_Mouse(window, 3);
        EXPECT_EQ(Saved("run.dxf"), Linkage_Dxf(Model, 0));
    });
}

TEST_F(SavePictureTest, A_png_is_what_is_seen_at_the_density_taken_and_vectors_open) {
    Animate([this](QWidget& window) {
        Then_Save(QStringLiteral("Save picture"), 0, "small.png");
        By_Mouse(window, 0);
        QImage small;
        ASSERT_TRUE(small.loadFromData(QByteArray::fromStdString(Saved("small.png"))));
        const QRect area = Picture(window).area().toRect();
        EXPECT_EQ(small.size(), area.size());
        // Where the pointer is no joint is lit, and the frame is no part of the picture.
        QEvent gone(QEvent::Leave);
        QApplication::sendEvent(&Picture(window), &gone);
        const QImage seen = Picture(window).grab(area).toImage().convertToFormat(QImage::Format_RGB32);
        const QRect inner = QRect(QPoint(0, 0), area.size()).adjusted(2, 2, -2, -2);
        EXPECT_EQ(small.convertToFormat(QImage::Format_RGB32).copy(inner), seen.copy(inner));

        Then_Save(QStringLiteral("Save picture"), 2, "large.png");
        Pick(window, "mnu_SavePicture");
        QImage large;
        ASSERT_TRUE(large.loadFromData(QByteArray::fromStdString(Saved("large.png"))));
        EXPECT_EQ(large.size(), area.size() * 4);

        Then_Save(QStringLiteral("Save picture"), 3, "vectors.svg");
        Pick(window, "mnu_SavePicture");
        const std::string vectors = Saved("vectors.svg");
        EXPECT_EQ(vectors.find("<image"), std::string::npos);
        EXPECT_NE(vectors.find("#ff00ff"), std::string::npos) << "the links";
        EXPECT_TRUE(QSvgRenderer(QByteArray::fromStdString(vectors)).isValid());

        Then_Save(QStringLiteral("Save picture"), 4, "paper.pdf");
        Pick(window, "mnu_SavePicture");
        EXPECT_EQ(Saved("paper.pdf").substr(0, 5), "%PDF-");
    });
}

TEST_F(SavePictureTest, Under_the_glass_the_part_seen_is_saved_and_what_lies_over_it_as_well) {
    Animate([](QWidget& window) {
        Picture_Maker* maker = Maker_Of(Box());
        ASSERT_NE(maker, nullptr);
        const auto whole = maker->Paint(1).colors;
        const std::string vectors = maker->File(Picture_Kind::kSvg, 1);
        Pick(window, "mnu_ViewGrid");
        EXPECT_NE(maker->Paint(1).colors, whole);
        EXPECT_NE(maker->File(Picture_Kind::kSvg, 1), vectors);
        Pick(window, "mnu_ViewGrid");
        EXPECT_EQ(maker->Paint(1).colors, whole);
        Box().Through = Glass{.factor = 2, .across = 0.4, .down = 0.6};
        EXPECT_NE(maker->Paint(1).colors, whole);
        EXPECT_NE(maker->File(Picture_Kind::kSvg, 1), vectors);
        Box().Through = Glass{};
        Box().Lit = Light{.x = 0, .y = 0, .held = true};
        EXPECT_EQ(maker->Paint(1).colors, whole) << "the hand is no part of it";
    });
}

TEST_F(SavePictureTest, Copying_puts_pixels_and_vectors_on_the_clipboard) {
    Animate([](QWidget& window) {
        QApplication::clipboard()->clear();
        By_Mouse(window, 1);
        EXPECT_TRUE(QTest::qWaitFor([] { return !QApplication::clipboard()->image().isNull(); }));
        EXPECT_EQ(QApplication::clipboard()->image().size(), Picture(window).area().toRect().size() * 2);
        EXPECT_TRUE(QApplication::clipboard()->mimeData()->data(QStringLiteral("image/svg+xml")).startsWith("<?xml"));
    });
}

TEST_F(SavePictureTest, A_film_is_the_run_as_it_is_seen_with_what_lies_over_it) {
    Animate([this](QWidget& window) {
        Then_Save(QStringLiteral("Save motion"), 0, "run.gif");
        Pick(window, "mnu_ViewNames");
        for (int i = 0; i < 4; ++i) Click(window, "cmd_Step");
        const auto before = Seen();
        const QString number = Find<QLabel>(window, "lbl_StepNumber").text();
        By_Mouse(window, 2);
        const Gif_Read film = Read_Gif(Saved("run.gif"));
        EXPECT_EQ(film.wide, 360);
        EXPECT_EQ(film.frames.size(), Film_Of(Steps_Shown(Model, Model.RunTable), *Real_Stride(Model)).size());
        EXPECT_TRUE(Seen() == before);
        EXPECT_EQ(Find<QLabel>(window, "lbl_StepNumber").text(), number);
        EXPECT_TRUE(Find<QLabel>(window, "lbl_StepNumber").isVisible());

        std::vector<Pixels> painted;
        {
            const Frame_Taker taker([&](int) {
                auto* maker = Maker_Of(Box());
                painted.push_back(maker->Paint(360.0 / maker->Wide()));
                return painted.size() < 2;
            });
            verlink::Animate(Animating());
        }
        int most = 0;
        for (std::size_t p = 0; p < painted[0].colors.size(); ++p)
            most = std::max(most, Apart(film.frames[0].pixels[p], painted[0].colors[p]));
        EXPECT_LT(most, 16);
    });
}

TEST_F(SavePictureTest, Escape_ends_the_making_of_a_film_and_leaves_none) {
    Animate([this](QWidget& window) {
        Then_Save(QStringLiteral("Save motion"), 3, "run.gif");
        const auto before = Seen();
        bool told = false;
        auto& header = Animating().Get<Label>("lbl_Header");
        const auto shown = header.Watcher;
        header.Watcher = [&] {
            shown();
            if (header.Caption.Get().starts_with("Saving motion:\rpicture 2 of ")) {
                told = true;
                QApplication::postEvent(&window, new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
            }
        };
        Pick(window, "mnu_SaveMotion");
        header.Watcher = shown;
        EXPECT_TRUE(told);
        EXPECT_FALSE(File_Exists(Path("run.gif")));
        EXPECT_TRUE(Seen() == before);
    });
}

}  // namespace verlink::test
