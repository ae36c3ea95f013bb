// Starts Verlink with its real windows, goes on to the home screen as fast as a hand could, says so, and quits.
#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QStyleFactory>
#include <QTimer>
#include <set>
#include <string>

#include "desktop/form.h"
#include "desktop/qt_desktop.h"
#include "platform/guard.h"
#include "screens/register.h"
#include "shell/failure_report.h"
#include "shell/startup.h"

namespace {

using verlink::platform::CommandButton;
using verlink::platform::Screen;

/// Acts on each window once, from the event loop that it runs.
class Hand {
   public:
    explicit Hand(verlink::desktop::QtDesktop& desktop) : desktop_(desktop) { Look_Later(); }

   private:
    void Look_Later() {
        QTimer::singleShot(0, [this] {
            Look_Later();
            Look();
        });
    }

    void Look() {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            box->accept();
            return;
        }
        Screen* screen = Screen::Active();
        if (!screen || !done_.insert(screen->Name()).second) return;
        if (screen->Name() == "frm_Title") {
            screen->Get<CommandButton>("cmd_Start").Click();
        } else if (screen->Name() == "frm_User") {
            screen->Text("txt_UserName").Text = "A. Designer";
            screen->Get<CommandButton>("cmd_Done").Click();
        } else {
            desktop_.formOf(*screen).repaint();
            const char up = 'u';
            if (::write(STDOUT_FILENO, &up, 1) != 1) ::_exit(1);
            verlink::Terminate();
        }
    }

    verlink::desktop::QtDesktop& desktop_;
    std::set<std::string> done_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    verlink::desktop::QtDesktop desktop;
    verlink::platform::Use_Desktop(&desktop);
    verlink::Install_Reporter(verlink::Report_Error);
    verlink::Register_Screens();
    const Hand hand(desktop);
    verlink::Sub_Main("");
    desktop.discardForms();
    verlink::platform::Screens::Discard();
    return 0;
}
