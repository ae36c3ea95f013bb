// A model from a stranger in real windows: its texts are letters, and nothing of it holds the program up.
#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QTextDocument>

#include "files/model_file.h"
#include "platform/desktop_services.h"
#include "platform/file_system.h"
#include "shell/initialize.h"
#include "shell/startup.h"
#include "tests/desktop/screens.h"

namespace verlink::test {

using namespace platform;

namespace {

constexpr char kMarkup[] = "<b>bold</b><img src=\"file:///etc/hostname\"><a href=\"file:///\">here</a>";

class StrangersTest : public ScreensTest {
   protected:
    StrangersTest() {
        Set_Identity();
        Initialize();
        Model.JustStarted = true;
    }
    /// A model each of whose names and titles is that text.
    void Open(const std::string& text) {
        for (const char* field : {"UserName", "DateStr", "TimeStr", "FigureTitle"})
            ASSERT_TRUE(Set_File_Field(field, text)) << field;
        const std::string content = File_Content();
        ASSERT_TRUE(Readfile(content, Path(text.substr(0, 3) + ".vlk")));
        ASSERT_EQ(Model.FigureTitle, text);
    }
};

}  // namespace

TEST_F(StrangersTest, No_window_reads_a_model_s_texts_as_markup) {
    Open(kMarkup);
    int labels = 0;
    ForEach([&](Screen& screen, desktop::Form& form) {
        for (Control* control : screen.Controls()) {
            if (auto* label = dynamic_cast<Label*>(control)) label->Caption = kMarkup;
            if (auto* visual = dynamic_cast<Visual*>(control)) visual->Tip = kMarkup;
        }
        for (const QLabel* label : form.findChildren<QLabel*>()) {
            if (!label->text().contains(u'<')) continue;
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->objectName().toStdString();
            ++labels;
        }
        for (const QWidget* widget : form.findChildren<QWidget*>())
            EXPECT_FALSE(Qt::mightBeRichText(widget->toolTip()) && widget->toolTip().contains(QStringLiteral("<img")))
                << widget->objectName().toStdString();
    });
    EXPECT_GT(labels, 100);
    Then("message", [](QWidget& window) {
        auto& box = static_cast<QMessageBox&>(window);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text().toStdString(), kMarkup);
        box.button(QMessageBox::Ok)->click();
    });
    Tell(kMarkup);
}

TEST_F(StrangersTest, The_longest_texts_hold_no_window_up) {
    Open(std::string(kLongestValue, 'W'));
    for (const char* name : {"frm_HomeScreen", "frm_Inputnew", "frm_Animate", "frm_User", "frm_Plot1"}) {
        Screen& screen = Screens::Get(name);
        const auto start = std::chrono::steady_clock::now();
        desktop::Form& form = qt.formOf(screen);
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
        form.grab();
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << name;
        form.hide();
    }
}

}  // namespace verlink::test
