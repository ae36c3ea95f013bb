// How the user of real windows waits for his turn.
#include "tests/desktop/user.h"

#include <QAction>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <filesystem>

#include "desktop/pace.h"
#include "files/in_hand.h"
#include "platform/guard.h"
#include "platform/screen.h"
#include "platform/settings.h"
#include "screens/register.h"
#include "shell/failure_report.h"
#include "shell/history.h"
#include "shell/recovery.h"
#include "tests/support/fixture.h"

namespace verlink::test {

using desktop::Form;

namespace {

constexpr int kPollMilliseconds = 5;
constexpr int kPuzzledMilliseconds = 500;

/// What a test calls a window.
std::string NameOf(const QWidget& window) {
    if (dynamic_cast<const QMessageBox*>(&window)) return "message";
    if (dynamic_cast<const QFileDialog*>(&window)) return "file";
    if (dynamic_cast<const QPrintDialog*>(&window)) return "printer";
    return window.objectName().toStdString();
}

/// The window that takes the user's hand, made the active one where no window manager does that. What stands beside is
/// that when it is the one that is waited for.
QWidget* WindowInUse(const std::string& wanted) {
    QWidget* window = QApplication::activeModalWidget();
    for (QWidget* candidate : QApplication::topLevelWidgets()) {
        const auto* form = dynamic_cast<Form*>(candidate);
        if (!form || !form->isVisible()) continue;
        const bool beside = form->screen().Beside();
        if (beside ? form->screen().Name() == wanted : !QApplication::activeModalWidget()) window = candidate;
        if (beside && window == candidate) break;
    }
    if (window && !window->isActiveWindow()) window->activateWindow();
    return window && window->isActiveWindow() ? window : nullptr;
}

void CloseForGood(QWidget& window) {
    if (auto* dialog = qobject_cast<QDialog*>(&window))
        dialog->reject();
    else if (auto* form = dynamic_cast<Form*>(&window))
        form->screen().Hide();
}

}  // namespace

DesktopTest::DesktopTest() {
    std::string pattern = testing::TempDir() + "verlink-XXXXXX";
    folder_ = ::mkdtemp(pattern.data());
    qputenv("HOME", QByteArray::fromStdString(folder_));
    qputenv("XDG_DATA_HOME", QByteArray::fromStdString(folder_ + "/data"));
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(folder_ + "/config"));
    qputenv("XDG_STATE_HOME", QByteArray::fromStdString(folder_ + "/state"));
    platform::Use_Desktop(&qt);
    Install_Reporter(Report_Error);
    Reset_Model();
    platform::The_Settings().Open("");
    platform::Screens::Discard();
    Register_Screens();
    Model_Came();
    The_History().Begin();
    QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { Poll(); });
    poll_.start(kPollMilliseconds);
}

DesktopTest::~DesktopTest() {
    End_Keeping();
    poll_.stop();
    for (const Deed& deed : deeds_) ADD_FAILURE() << "the user still waits for " << deed.window;
    qt.discardForms();
    platform::Screens::Discard();
    platform::Use_Desktop(nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

void DesktopTest::Then(const std::string& window, std::function<void(QWidget&)> deed) {
    deeds_.push_back({window, std::move(deed)});
}

void DesktopTest::ThenMessage(const std::string& text, QString button) {
    Then("message", [text, button](QWidget& window) {
        auto& box = static_cast<QMessageBox&>(window);
        EXPECT_EQ(box.text().toStdString(), text);
        for (QAbstractButton* candidate : box.buttons())
            if (candidate->text().remove(u'&') == button) return candidate->click();
        ADD_FAILURE() << "no button " << button.toStdString() << " under: " << box.text().toStdString();
        box.reject();
    });
}

void DesktopTest::ThenFile(const std::string& path) {
    Then("file", [path](QWidget& window) {
        window.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString(path));
        window.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
    });
}

void DesktopTest::ThenArrive() {
    Then("frm_Title", [](QWidget& window) { Click(window, "cmd_Start"); });
    Then("frm_User", [](QWidget& window) {
        Type(window, "txt_UserName", QStringLiteral("A designer"));
        QTest::keyClick(&Find<QWidget>(window, "txt_UserName"), Qt::Key_Return);
    });
    ThenMessage("Your default path for saved files is: " + qt.Documents_Folder() + "/VERLINK/", QStringLiteral("OK"));
}

void DesktopTest::Pick(QWidget& window, const char* entry) { Find<QAction>(window, entry).trigger(); }

void DesktopTest::Poll() {
    if (posted_ || desktop::inPause()) return;
    QWidget* window = WindowInUse(deeds_.empty() ? std::string() : deeds_.front().window);
    if (!window || (!at_work_.empty() && at_work_.back() == window)) return;
    if (!deeds_.empty() && deeds_.front().window == NameOf(*window)) {
        puzzled_ = 0;
        posted_ = true;
        // Posted, and not done here: a timer does not fire inside its own slot, and a deed may open a dialog.
        QTimer::singleShot(0, window, [this, window] {
            posted_ = false;
            if (deeds_.empty()) return;
            const Deed deed = std::move(deeds_.front());
            deeds_.pop_front();
            at_work_.push_back(window);
            deed.act(*window);
            at_work_.pop_back();
        });
        return;
    }
    puzzled_ = window == puzzling_ ? puzzled_ + kPollMilliseconds : 0;
    puzzling_ = window;
    if (puzzled_ < kPuzzledMilliseconds) return;
    puzzled_ = 0;
    std::string text = NameOf(*window);
    if (auto* box = qobject_cast<QMessageBox*>(window)) text += ": " + box->text().toStdString();
    ADD_FAILURE() << "a window came up, or stayed, that nothing was queued for: " << text
                  << "\nnext in the queue: " << (deeds_.empty() ? std::string("nothing") : deeds_.front().window);
    QTimer::singleShot(0, window, [window] { CloseForGood(*window); });
}

void DesktopTest::Click(QWidget& window, const char* button) {
    QTest::mouseClick(&Find<QWidget>(window, button), Qt::LeftButton);
}

void DesktopTest::Type(QWidget& window, const char* box, const QString& text) {
    auto& widget = Find<QWidget>(window, box);
    widget.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&widget, text);
}

}  // namespace verlink::test
