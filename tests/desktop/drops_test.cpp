// Files that are dropped on real windows.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

#include "platform/file_system.h"
#include "shell/startup.h"
#include "tests/desktop/user.h"

namespace verlink::test {

using namespace platform;

namespace {

class DropsTest : public DesktopTest {
   protected:
    static std::string Sample(const std::string& name) { return std::string(VERLINK_SAMPLES) + "/" + name; }

    /// What comes of it when that is dragged over the widget and let go; whether it was taken.
    static bool Drop(QWidget& widget, const QMimeData& data) {
        const QPointF middle = QRectF(widget.rect()).center();
        QDragEnterEvent enter(middle.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &enter);
        // As the window system has it: the first widget upwards that takes it.
        QWidget* target = &widget;
        while (target && !enter.isAccepted()) {
            target = target->parentWidget();
            if (!target || !target->acceptDrops()) continue;
            QDragEnterEvent again(middle.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(target, &again);
            if (again.isAccepted()) break;
            if (target->isWindow()) return false;
        }
        if (!target) return false;
        QDropEvent drop(middle, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(target, &drop);
        return drop.isAccepted();
    }
    static bool DropFile(QWidget& widget, const std::string& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        return Drop(widget, data);
    }
};

TEST_F(DropsTest, A_model_dropped_on_a_window_opens_also_when_it_falls_on_a_box) {
    const std::string path = Sample("crank_rocker.vlk");
    ThenArrive();
    Then("frm_HomeScreen", [path](QWidget& window) { EXPECT_TRUE(DropFile(window, path)); });
    ThenMessage("File " + path + " successfully read.", QStringLiteral("OK"));
    Then("frm_Inputnew", [path](QWidget& window) {
        Model_Saved();
        auto& box = Find<QLineEdit>(window, "txt_Linkout_1");
        const QString before = box.text();
        EXPECT_TRUE(DropFile(box, path));
        EXPECT_EQ(box.text(), before) << "the path is no length";
    });
    ThenMessage("File " + path + " successfully read.", QStringLiteral("OK"));
    Then("frm_Inputnew", [](QWidget& window) { Click(window, "cmd_Cancel"); });
    Then("frm_HomeScreen", [](QWidget& window) {
        Model_Saved();
        Click(window, "cmd_Quit");
    });
    Then("frm_Quit", [](QWidget& window) { Click(window, "cmd_YesQuit"); });
    Sub_Main("");
    EXPECT_TRUE(qt.Ending());
}

TEST_F(DropsTest, What_is_no_file_of_this_machine_is_not_taken) {
    Then("frm_HomeScreen", [](QWidget& window) {
        QMimeData far, words;
        far.setUrls({QUrl(QStringLiteral("https://example.org/a.vlk"))});
        words.setText(QStringLiteral("1.25"));
        EXPECT_FALSE(Drop(window, far));
        EXPECT_FALSE(Drop(window, words));
        Screens::Get("frm_HomeScreen").Hide();
    });
    Screens::Get("frm_HomeScreen").ShowModal();
}

TEST_F(DropsTest, A_window_that_is_not_on_top_takes_none) {
    Then("frm_HomeScreen", [](QWidget& window) { Pick(window, "mnu_About"); });
    QWidget& home = qt.formOf(Screens::Get("frm_HomeScreen"));
    Then("frm_About", [&home](QWidget&) {
        EXPECT_FALSE(DropFile(home, Sample("crank_rocker.vlk")));
        Screens::Get("frm_About").Hide();
        Screens::Get("frm_HomeScreen").Hide();
    });
    Screens::Get("frm_HomeScreen").ShowModal();
}

TEST_F(DropsTest, A_screen_that_takes_no_files_leaves_them) {
    Then("frm_PlotType", [](QWidget& window) {
        EXPECT_FALSE(window.acceptDrops());
        Screens::Get("frm_PlotType").Hide();
    });
    Screens::Get("frm_PlotType").ShowModal();
}

}  // namespace

}  // namespace verlink::test
