// The menu View in the real window: what is chosen is to be seen over the picture, and is chosen still the next time.
#include <QAction>
#include <QImage>
#include <QPainter>
#include <QPicture>

#include "core/window_sizes.h"
#include "desktop/overlay_paint.h"
#include "desktop/picture_widget.h"
#include "platform/overlaid_picture.h"
#include "platform/settings.h"
#include "shell/initialize.h"
#include "tests/desktop/user.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using namespace platform;

namespace {

/// Of the arrows of acceleration, whose heads are filled.
constexpr QRgb kAcceleration = 0xFFC81E00;

class ViewTest : public DesktopTest {
   protected:
    /// On the animate screen, at the first position of a run.
    void Animate(std::function<void(QWidget&)> user) {
        Initialize();
        Then("frm_Inputnew", [](QWidget& window) {
            Click(window, "cmd_Calc");
            Click(window, "cmd_Done");
        });
        Then("frm_Animate", [user](QWidget& window) {
            auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
            EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
            user(window);
            Screens::Get("frm_Animate").Hide();
        });
        Show_Centered("frm_Inputnew");
    }
    static QAction& Entry(QWidget& window, const char* name) { return Find<QAction>(window, name); }
    static desktop::PictureWidget& Picture(QWidget& window) { return Find<desktop::PictureWidget>(window, "Picture1"); }
    static QImage Seen(QWidget& window) {
        return Picture(window).grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    static int Count(const QImage& image, QRgb color) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == color;
        return count;
    }
};

TEST_F(ViewTest, An_entry_that_is_picked_is_marked_and_drawn_and_goes_again) {
    Animate([](QWidget& window) {
        const QImage before = Seen(window);
        EXPECT_EQ(Count(before, kAcceleration), 0);
        EXPECT_FALSE(Entry(window, "mnu_ViewAccelerations").isChecked());
        Pick(window, "mnu_ViewAccelerations");
        EXPECT_TRUE(Entry(window, "mnu_ViewAccelerations").isChecked());
        EXPECT_GT(Count(Seen(window), kAcceleration), 20);
        Pick(window, "mnu_ViewAccelerations");
        EXPECT_FALSE(Entry(window, "mnu_ViewAccelerations").isChecked());
        EXPECT_EQ(Seen(window), before);
    });
}

TEST_F(ViewTest, Each_entry_shows_something_but_those_of_forces_which_say_why_not) {
    Animate([](QWidget& window) {
        const QImage before = Seen(window);
        for (const char* name : {"mnu_ViewPoles", "mnu_ViewVelocities", "mnu_ViewAccelerations", "mnu_ViewPinForces",
                                 "mnu_ViewShakingForce", "mnu_ViewCurvature", "mnu_ViewGrid", "mnu_ViewNames"}) {
            Pick(window, name);
            EXPECT_NE(Seen(window), before) << name;
            Pick(window, name);
            EXPECT_EQ(Seen(window), before) << name;
        }
        // The linkage stands where the run begins and ends.
        Pick(window, "mnu_ViewGhosts");
        EXPECT_EQ(Seen(window), before);
        Click(window, "cmd_Step");
        const QImage with = Seen(window);
        Pick(window, "mnu_ViewGhosts");
        EXPECT_NE(Seen(window), with);
    });
}

TEST_F(ViewTest, A_step_takes_the_arrows_along_and_leaves_none_behind) {
    Animate([](QWidget& window) {
        Click(window, "cmd_Reset");
        const QImage bare = Seen(window);
        Pick(window, "mnu_ViewAccelerations");
        const QImage first = Seen(window);
        Click(window, "cmd_Step");
        EXPECT_NE(Seen(window), first);
        Click(window, "cmd_Reset");
        EXPECT_EQ(Seen(window), first);
        Pick(window, "mnu_ViewAccelerations");
        EXPECT_EQ(Seen(window), bare);
    });
}

TEST_F(ViewTest, The_next_session_has_what_was_chosen_in_this_one) {
    The_Settings().Open(qt.Settings_Folder());
    Animate([](QWidget& window) {
        Pick(window, "mnu_ViewNames");
        Pick(window, "mnu_ViewAccelerations");
    });
    qt.discardForms();
    Screens::Discard();
    Reset_Model();
    The_Settings().Open(qt.Settings_Folder());
    Animate([](QWidget& window) {
        EXPECT_TRUE(Entry(window, "mnu_ViewNames").isChecked());
        EXPECT_TRUE(Entry(window, "mnu_ViewAccelerations").isChecked());
        EXPECT_FALSE(Entry(window, "mnu_ViewGrid").isChecked());
        EXPECT_GT(Count(Seen(window), kAcceleration), 20);
    });
}

TEST_F(ViewTest, While_a_run_plays_every_frame_has_its_arrows) {
    Animate([](QWidget& window) {
        Pick(window, "mnu_ViewAccelerations");
        int frames = 0, marked = 0;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            ++frames;
            marked += Count(Seen(window), kAcceleration) > 0;
        });
        look.start(20);
        Click(window, "cmd_Animate");
        look.stop();
        EXPECT_GT(frames, 0);
        EXPECT_EQ(marked, frames);
    });
}

TEST_F(ViewTest, On_paper_the_arrows_are_vectors_over_the_picture) {
    Animate([](QWidget& window) {
        QPicture bare, marked;
        const auto record = [&](QPicture& into) {
            QPainter painter(&into);
            Picture(window).render(&painter);
        };
        record(bare);
        Pick(window, "mnu_ViewAccelerations");
        record(marked);
        EXPECT_GT(marked.size(), bare.size());
        QImage paper(Picture(window).size(), QImage::Format_RGB32);
        paper.fill(Qt::white);
        QPainter painter(&paper);
        painter.drawPicture(0, 0, marked);
        painter.end();
        EXPECT_GT(Count(paper, kAcceleration), 20);
    });
}

TEST_F(ViewTest, Words_keep_their_size_at_any_density) {
    Overlay overlay;
    overlay.names = {{"Joint", {5, 5}, {1, 0}, 0}};
    const Sight sight{0, 0, 10, 10, 200, 200};
    const auto wide = [&](double density) {
        QImage image(QSize(200, 200) * density, QImage::Format_RGB32);
        image.setDevicePixelRatio(density);
        image.fill(Qt::white);
        QPainter painter(&image);
        desktop::paintOverlay(painter, overlay, sight);
        painter.end();
        int left = image.width(), right = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != 0xFFFFFFFF) {
                    left = std::min(left, x);
                    right = std::max(right, x);
                }
        return (right - left) / density;
    };
    EXPECT_GT(wide(1), 20);
    EXPECT_NEAR(wide(2) / wide(1), 1, 0.1);
}

}  // namespace

}  // namespace verlink::test
