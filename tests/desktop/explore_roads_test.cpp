// From a synthesis screen to all linkages and back in real windows, and on to the drawing with the positions marked.
#include <QImage>
#include <QLineEdit>

#include "core/window_sizes.h"
#include "desktop/picture_widget.h"
#include "dynamics/units.h"
#include "platform/overlaid_picture.h"
#include "platform/settings.h"
#include "screens/synthesis_screen.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class ExploreRoadsTest : public DesktopTest {
   protected:
    ExploreRoadsTest() {
        Set_Identity();
        Initialize();
        Use_Units(1);
        Model.SynPositions = 2;
    }
    static QString Text(QWidget& window, const char* box) { return Find<QLineEdit>(window, box).text(); }
    static void Type_Three(QWidget& window) {
        const std::pair<const char*, const char*> boxes[] = {{"txt_P21x", "4"},    {"txt_P21y", "1"},
                                                             {"txt_Alpha2", "30"}, {"txt_P31x", "6"},
                                                             {"txt_P31y", "4"},    {"txt_Alpha3", "60"}};
        for (const auto& [box, text] : boxes) Type(window, box, QString::fromLatin1(text));
    }
    static void Search(QWidget& window) {
        Click(window, "cmd_Search");
        auto& timer = Screens::Get("frm_Explore").Get<platform::Timer>("Timer1");
        ASSERT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }, 60000));
        ASSERT_TRUE(Find<QWidget>(window, "cmd_Use").isEnabled());
    }
};

}  // namespace

TEST_F(ExploreRoadsTest, Back_leaves_the_synthesis_screen_as_it_was_and_free_choices_are_typed_there) {
    Then("frm_Synth3", [&](QWidget& window) {
        Type_Three(window);
        Type(window, "txt_Beta2", QStringLiteral("12.5"));
        Then("frm_Explore", [](QWidget& explore) {
            EXPECT_EQ(Text(explore, "txt_X_2"), QStringLiteral("4"));
            EXPECT_EQ(Text(explore, "txt_Angle_3"), QStringLiteral("60"));
            Click(explore, "cmd_Cancel");
        });
        Click(window, "cmd_Explore");
        EXPECT_EQ(Text(window, "txt_P31x"), QStringLiteral("6"));
        EXPECT_EQ(Text(window, "txt_Beta2"), QStringLiteral("12.5"));
        Then("frm_Explore", [](QWidget& explore) {
            Search(explore);
            Click(explore, "cmd_Choices");
        });
        Click(window, "cmd_Explore");
        EXPECT_NE(Text(window, "txt_Beta2"), QStringLiteral("12.5"));
        EXPECT_NE(Text(window, "txt_Gamma3"), QStringLiteral("0.00"));
        const auto& report = Screens::Get("frm_Synth3").Get<platform::Label>("lbl_Reach");
        Then("message", [](QWidget& message) { QTest::keyClick(&message, Qt::Key_Return); });
        Click(window, "cmd_Calc");
        EXPECT_TRUE(report.Caption.Get().starts_with("The linkage reaches all positions on the "))
            << report.Caption.Get();
        Screens::Get("frm_Synth3").Hide();
    });
    Show_Centered("frm_Synth3");
}

TEST_F(ExploreRoadsTest, Use_leads_to_a_drawing_with_the_positions_marked) {
    constexpr QRgb kBody = 0xFFC85A00;
    Then("frm_Explore", [](QWidget& explore) {
        Search(explore);
        Click(explore, "cmd_Use");
    });
    Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Done"); });
    Then("frm_Animate", [](QWidget& window) {
        auto& timer = Screens::Get("frm_Animate").Get<platform::Timer>("Timer1");
        EXPECT_TRUE(QTest::qWaitFor([&timer] { return !timer.Enabled; }));
        const auto& over = Screens::Get("frm_Animate").Get<Overlaid_Picture>("Picture1").Over.Get();
        EXPECT_EQ(over.names.size(), 3U);
        ASSERT_EQ(over.legend.size(), 1U);
        EXPECT_TRUE(over.legend[0].text.starts_with("positions 1, 2, 3 passed")) << over.legend[0].text;
        const auto marked = [&window] {
            const QImage image = Find<desktop::PictureWidget>(window, "Picture1").grab().toImage();
            int count = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x) count += (image.pixel(x, y) | 0xFF000000) == kBody;
            return count;
        };
        EXPECT_GT(marked(), 20);
        Pick(window, "mnu_ViewPositions");
        EXPECT_EQ(marked(), 0);
        Screens::Get("frm_Animate").Hide();
    });
    Show_Centered("frm_Explore");
}

}  // namespace verlink::test
