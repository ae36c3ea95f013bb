// Studies in a real window: what is painted, what a click picks, and a study that goes on beside the hand.
#include <QImage>
#include <QPushButton>

#include "desktop/chart_widgets.h"
#include "platform/pictures.h"
#include "screens/frm_studies.h"
#include "tests/desktop/user.h"
#include "tests/support/study_model.h"

namespace verlink::test {

namespace {

using study::Settings;

class StudiesWindow : public DesktopTest {
   protected:
    StudiesWindow() { Begin_With_A_Crank_Rocker(); }
    static frm_Studies& Form() { return dynamic_cast<frm_Studies&>(platform::Screens::Get("frm_Studies")); }
    void Inside(const Settings& settings, const std::function<void(QWidget&)>& user) {
        Model.StudySettings = study::Settings_Text(settings);
        Then("frm_Studies", [user](QWidget& window) {
            user(window);
            Click(window, "cmd_Cancel");
        });
        Form().ShowModal();
    }
    static void Solve(QWidget& window) {
        Click(window, "cmd_Start");
        while (Form().Timer1.Enabled) QTest::qWait(20);
        QTest::qWait(20);
    }
    static QRgb At(QWidget& widget, const QPointF& place) {
        const QImage seen = widget.grab().toImage();
        return seen.pixel((place * seen.devicePixelRatio()).toPoint());
    }
};

}  // namespace

TEST_F(StudiesWindow, AMapIsColouredByItsValuesAndAClickPicksACell) {
    Settings settings;
    settings.sweeps[0] = {"L2", 0.9, 1.1, 5};
    settings.sweeps[1] = {"Omega2Input", 1, 3, 3};
    settings.measure = "max Veloc I 2,3:Mag";
    Inside(settings, [](QWidget& window) {
        Solve(window);
        auto& map = Find<desktop::ColorMapWidget>(window, "map_Sweep");
        ASSERT_TRUE(map.isVisible());
        EXPECT_EQ(map.accessibleName().toStdString(), "Map of max Veloc I 2,3:Mag (in/sec)");
        // The least value is dark, the greatest light.
        EXPECT_LT(qGray(At(map, map.placeOf({0, 0}))), 40);
        EXPECT_GT(qGray(At(map, map.placeOf({4, 2}))), 190);
        QTest::mouseClick(&map, Qt::LeftButton, {}, map.placeOf({3, 2}).toPoint());
        EXPECT_EQ(Form().lbl_Picked.Caption.Get(),
                  "Linkage 12: L2 1.05 in, Omega2Input 3 rad/s;  max Veloc I 2,3:Mag 3.15 in/sec");
        auto* maker = platform::Maker_Of(Form().map_Sweep);
        ASSERT_NE(maker, nullptr);
        const platform::Pixels pixels = maker->Paint(1);
        EXPECT_EQ(pixels.wide, map.width());
        EXPECT_NE(maker->File(platform::Picture_Kind::kSvg, 1).find("<svg"), std::string::npos);
        Click(window, "cmd_Take");
        EXPECT_EQ(double{Model.Omega2Input}, 3);
        EXPECT_NEAR(Model.L2, 1.05, 1e-6);
    });
}

TEST_F(StudiesWindow, AHistogramStandsOverItsScaleAndItsBarsAreCounted) {
    Settings settings;
    settings.kind = Settings::Kind::kTolerance;
    settings.tolerances[0] = {"L2", 0.03, study::Spread::kUniform};
    settings.samples = 3000;
    settings.measure = "max Veloc I 2,3:Mag";
    Inside(settings, [](QWidget& window) {
        Solve(window);
        auto& histogram = Find<desktop::HistogramWidget>(window, "his_Spread");
        ASSERT_TRUE(histogram.isVisible());
        EXPECT_LT(histogram.placeOf(6.8), histogram.placeOf(7.2));
        QTest::mouseClick(&histogram, Qt::LeftButton, {}, QPoint(qRound(histogram.placeOf(7)), histogram.height() / 2));
        EXPECT_TRUE(Form().lbl_Picked.Caption.Get().starts_with("Between ")) << Form().lbl_Picked.Caption.Get();
        // Uniform: the middle of the lowest row of bars is painted all along.
        const double y = histogram.height() * 0.8;
        const QRgb left = At(histogram, {histogram.placeOf(6.85) + 1, y});
        EXPECT_NE(left, qRgb(255, 255, 255));
        auto& bars = Find<desktop::BarsWidget>(window, "bar_Share");
        EXPECT_NE(bars.accessibleDescription().indexOf(QStringLiteral("L2 100 %")), -1);
    });
}

TEST_F(StudiesWindow, AStudyGoesOnBesideTheHandAndCanBeStopped) {
    Settings settings;
    settings.kind = Settings::Kind::kTolerance;
    settings.tolerances[0] = {"L2", 0.01, study::Spread::kNormal};
    settings.samples = study::Number{1} << 40U;
    Inside(settings, [](QWidget& window) {
        Click(window, "cmd_Start");
        while (Form().Found().done == 0) QTest::qWait(20);
        Find<QWidget>(window, "hsc_Step").setFocus();
        Form().hsc_Step.SetValue(9);
        EXPECT_TRUE(Form().lbl_Step.Caption.Get().starts_with("Theta2 90 deg")) << Form().lbl_Step.Caption.Get();
        const study::Number before = Form().Found().done;
        while (Form().Found().done == before) QTest::qWait(20);
        Click(window, "cmd_Stop");
        while (Form().Timer1.Enabled) QTest::qWait(20);
        EXPECT_TRUE(Form().lbl_Progress.Caption.Get().starts_with("Stopped after "));
        EXPECT_FALSE(Find<QPushButton>(window, "cmd_Stop").isEnabled());
    });
}

}  // namespace verlink::test
