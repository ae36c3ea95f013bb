// How the user of real windows answers.
#include "tests/walk/widgets/desktop.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPushButton>
#include <QTimer>

#include "platform/guard.h"
#include "screens/register.h"
#include "shell/failure_report.h"
#include "shell/recovery.h"
#include "shell/startup.h"
#include "tests/support/fixture.h"
#include "tests/walk/aside.h"
#include "tests/walk/widgets/hand.h"

namespace verlink::walk {

using namespace platform;
using desktop::Form;

namespace {

constexpr int kPollMilliseconds = 2;
/// A dialog that has not gone by then has refused what was said.
constexpr int kPollsAtMost = 60;

QString Word_Of(Answer answer) {
    switch (answer) {
        case Answer::kOk: return QStringLiteral("OK");
        case Answer::kCancel: return QStringLiteral("Cancel");
        case Answer::kAbort: return QStringLiteral("Abort");
        case Answer::kRetry: return QStringLiteral("Retry");
        case Answer::kIgnore: return QStringLiteral("Ignore");
        case Answer::kYes: return QStringLiteral("Yes");
        case Answer::kNo: return QStringLiteral("No");
    }
    return {};
}

/// Waits for the dialog that is about to come up, and answers it. What it asks in turn is agreed to; a dialog that
/// stays all the same is cancelled.
class Answering {
   public:
    explicit Answering(std::function<void(QDialog&)> answer) : answer_(std::move(answer)) {
        QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { Poll(); });
        poll_.start(kPollMilliseconds);
    }
    Answering(const Answering&) = delete;
    Answering& operator=(const Answering&) = delete;

   private:
    void Poll() {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->isVisible()) return;
        if (!dialog->isActiveWindow()) dialog->activateWindow();
        if (!first_) {
            first_ = dialog;
            // Posted: a timer does not fire inside its own slot, and an answer may bring up another dialog.
            QTimer::singleShot(0, dialog, [this, dialog] { answer_(*dialog); });
            return;
        }
        if (++polls_ > kPollsAtMost) {
            polls_ = 0;
            QTimer::singleShot(0, dialog, &QDialog::reject);
        } else if (auto* box = qobject_cast<QMessageBox*>(dialog); box && box != first_ && box != asked_) {
            asked_ = box;
            QAbstractButton* yes = box->button(QMessageBox::Yes);
            QTimer::singleShot(0, box, [box, yes] { yes ? yes->click() : box->accept(); });
        }
    }

    std::function<void(QDialog&)> answer_;
    QTimer poll_;
    QDialog* first_ = nullptr;
    QDialog* asked_ = nullptr;
    int polls_ = 0;
};

}  // namespace

Widget_Desktop::Widget_Desktop(Walker& walker, const Places& places) : walker_(walker) {
    for (const auto& [name, below] : {std::pair{"HOME", ""},
                                      {"XDG_DATA_HOME", "/data"},
                                      {"XDG_CONFIG_HOME", "/config"},
                                      {"XDG_STATE_HOME", "/state"}})
        qputenv(name, QByteArray::fromStdString(places.Folder() + below));
    Use_Desktop(this);
    Install_Reporter(Report_Error);
}

Widget_Desktop::~Widget_Desktop() {
    End_Keeping();
    discardForms();
    Screens::Discard();
    Use_Desktop(nullptr);
}

Answer Widget_Desktop::Show_Message(const Message& message) {
    const Answer wanted = walker_.Answer_Message(message);
    if (Aside::On()) return wanted;
    const Answering answering([wanted](QDialog& dialog) {
        auto& box = static_cast<QMessageBox&>(dialog);
        for (QAbstractButton* button : box.buttons())
            if (button->text().remove(u'&') == Word_Of(wanted)) return button->click();
    });
    const Answer given = QtDesktop::Show_Message(message);
    walker_.Expect("message box", given == wanted, "a message box was answered another way than its button says");
    return given;
}

std::optional<std::string> Widget_Desktop::Ask_File(const FileDialog& wish, bool save) {
    const std::optional<std::string> wanted = walker_.Answer_File(wish, save);
    if (Aside::On()) return {};
    const Answering answering([wanted](QDialog& dialog) {
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        auto* buttons = dialog.findChild<QDialogButtonBox*>();
        if (!wanted || !name || !buttons) return dialog.reject();
        name->setText(QString::fromStdString(*wanted));
        buttons->buttons().constFirst()->click();
    });
    return save ? QtDesktop::Ask_Save_File(wish) : QtDesktop::Ask_Open_File(wish);
}

std::optional<std::string> Widget_Desktop::Ask_Open_File(const FileDialog& dialog) { return Ask_File(dialog, false); }
std::optional<std::string> Widget_Desktop::Ask_Save_File(const FileDialog& dialog) { return Ask_File(dialog, true); }

bool Widget_Desktop::Ask_Printer() {
    const bool accepted = walker_.Answer_Printer();
    if (Aside::On()) return false;
    const Answering answering([accepted](QDialog& dialog) { accepted ? dialog.accept() : dialog.reject(); });
    return QtDesktop::Ask_Printer() && accepted;
}

void Widget_Desktop::Serve_Events(Screen& screen, const std::function<bool()>& done) {
    walker_.Serve(screen, done, [this](Screen& top, const Action& action) {
        Form& form = formOf(top);
        if (!form.isActiveWindow()) form.activateWindow();
        QCoreApplication::processEvents();
        // A timer may have led elsewhere meanwhile.
        if (Screen::Active() != &top && !top.Beside()) return;
        Do_On_Widgets(form, action);
        QCoreApplication::processEvents();
        if (Screen* active = Screen::Active(); active && active->Visible() && !Ending()) {
            const std::string unlike = Unlike(formOf(*active));
            walker_.Expect("widgets", unlike.empty(), active->Name() + "." + unlike);
        }
    });
}

void Walk_In_Windows(Walker& walker, const Places& places) {
    places.Prepare();
    Widget_Desktop qt(walker, places);
    test::Reset_Model();
    Screens::Discard();
    Register_Screens();
    Sub_Main("");
}

}  // namespace verlink::walk
