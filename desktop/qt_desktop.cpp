// How windows, waiting and the small services of the desktop are done in Qt.
#include "desktop/qt_desktop.h"

#include <pwd.h>
#include <unistd.h>

#include <QApplication>
#include <QClipboard>
#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QLocale>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QStandardPaths>
#include <QWindow>
#include <algorithm>

#include "core/linkage_model.h"
#include "desktop/file_dialogs.h"
#include "desktop/file_type.h"
#include "desktop/form.h"
#include "desktop/keys.h"
#include "desktop/messages.h"
#include "desktop/pace.h"
#include "desktop/printing.h"
#include "desktop/progress.h"
#include "desktop/report_pages.h"
#include "desktop/text.h"
#include "desktop/window_order.h"
#include "desktop/window_places.h"
#include "platform/clipboard.h"
#include "platform/settings.h"

namespace verlink::desktop {

using namespace platform;

QtDesktop::QtDesktop() {
    Use_Clipboard([](const std::string& text) { QApplication::clipboard()->setText(toQt(text)); },
                  [] { return fromQt(QApplication::clipboard()->text()); });
    Use_Progress(showProgress);
    Use_Setter(setReport);
}
QtDesktop::~QtDesktop() {
    Use_Clipboard(nullptr);
    Use_Progress(nullptr);
    Use_Setter(nullptr);
    discardForms();
}

Form& QtDesktop::formOf(Screen& screen) {
    std::unique_ptr<Form>& form = forms_[&screen];
    if (!form) form = std::make_unique<Form>(screen);
    return *form;
}

void QtDesktop::discardForms() {
    shown_.clear();
    beside_.clear();
    forms_.clear();
}

Form* QtDesktop::top() const { return shown_.empty() ? nullptr : shown_.back(); }

namespace {

/// While a dialog waits for the user, the hourglass of a run that asked for it would be a lie.
class PlainPointer {
   public:
    explicit PlainPointer(bool needed) : needed_(needed) {
        if (needed_) QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PlainPointer() {
        if (needed_) QApplication::restoreOverrideCursor();
    }
    PlainPointer(const PlainPointer&) = delete;
    PlainPointer& operator=(const PlainPointer&) = delete;

   private:
    bool needed_;
};

}  // namespace

Answer QtDesktop::Show_Message(const Message& message) {
    if (Ending()) return harmlessAnswer(message);
    const PlainPointer pointer(hourglass_);
    return showMessage(top(), message);
}

/// Models are looked for where the one in hand lies, all else where the last of its kind was.
QString QtDesktop::startFolder(const FileDialog& dialog) const {
    const QFileInfo path(toQt(Model.FilePath));
    const bool remembered = !dialog.folder.empty() && QFileInfo(toQt(dialog.folder)).isDir();
    if (remembered && !(dialog.kind == "model" && path.isFile())) return toQt(dialog.folder);
    if (!Model.FilePath.empty()) {
        if (path.isDir()) return path.absoluteFilePath();
        if (path.dir().exists()) return path.dir().absolutePath();
    }
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

std::optional<std::string> QtDesktop::Ask_Open_File(const FileDialog& dialog) {
    if (Ending()) return {};
    const PlainPointer pointer(hourglass_);
    return askOpenFile(top(), dialog, startFolder(dialog));
}

std::optional<std::string> QtDesktop::Ask_Save_File(const FileDialog& dialog) {
    if (Ending()) return {};
    const PlainPointer pointer(hourglass_);
    return askSaveFile(top(), dialog, startFolder(dialog));
}

QPrinter& QtDesktop::printer() {
    if (!printer_) printer_ = makePrinter();
    return *printer_;
}

bool QtDesktop::Ask_Printer() {
    if (Ending()) return false;
    const PlainPointer pointer(hourglass_);
    countInterruption();
    const std::string name = top() ? top()->screen().Name() : std::string("Verlink");
    return askPrinter(top(), printer(), toQt(Documents_Folder() + "/VERLINK"), toQt(name));
}

/// The head of a page has the name and the dates that the model was saved with, which may be another user's and of
/// long ago.
QString QtDesktop::footOf(bool headed) {
    QString foot = toQt("Printed " + Date_Text() + " at " + Time_Text() + ".");
    if (headed) foot += QStringLiteral(" Name, design number, date and time in the head are the model's own.");
    return foot;
}

void QtDesktop::Print_Screen(Screen& screen) {
    const bool headed = screen.FindAs<Label>("lbl_Header") != nullptr;
    if (!printWidget(printer(), formOf(screen), footOf(headed))) Raise(kPrinterError);
}

void QtDesktop::Print_Pages(const std::vector<std::vector<std::string>>& pages) {
    if (!printPages(printer(), pages, footOf(true))) Raise(kPrinterError);
}

/// Each window lies over the one that was shown before it. The toolkit follows that chain to its end, so it must have
/// one: a window that is hidden is out of it.
void QtDesktop::chain() {
    QWindow* below = nullptr;
    for (Form* form : shown_) {
        form->windowHandle()->setTransientParent(below);
        if (form->isVisible()) standOver(*form->windowHandle(), below);
        below = form->windowHandle();
    }
}

const QWindow* QtDesktop::waitingOver(WId window) const {
    const QWidget* waiting = QApplication::activeModalWidget();
    if (!waiting) return nullptr;
    const bool below = std::ranges::any_of(
        shown_, [&](const Form* form) { return form != waiting && form->internalWinId() == window; });
    return below ? waiting->windowHandle() : nullptr;
}

void QtDesktop::takeAway(Form& form) {
    std::erase(shown_, &form);
    std::erase(beside_, &form);
    form.hide();
    if (QWindow* window = form.windowHandle()) window->setTransientParent(nullptr);
    chain();
}

void QtDesktop::Show_Window(Screen& screen) {
    if (Ending()) return;
    countInterruption();
    Form& form = formOf(screen);
    if (form.isVisible() && top() != &form) takeAway(form);
    std::erase(shown_, &form);
    form.applyShape();
    // Only a window over others is modal: a lone one keeps all that the window manager offers. What stands beside them
    // is not closed by it.
    if (!form.isVisible()) form.setWindowModality(shown_.empty() ? Qt::NonModal : Qt::WindowModal);
    form.winId();
    shown_.push_back(&form);
    chain();
    form.show();
    // Showing a window forgets over which one it stands.
    standOver(*form.windowHandle(), form.windowHandle()->transientParent());
    form.raise();
    for (Form* beside : beside_)
        if (beside->screen().KeepsInSight) beside->raise();
    form.activateWindow();
}

void QtDesktop::Show_Beside(Screen& screen) {
    if (Ending()) return;
    Form& form = formOf(screen);
    form.applyShape();
    std::erase(beside_, &form);
    beside_.push_back(&form);
    if (form.isMinimized()) form.showNormal();
    form.show();
    form.raise();
    form.activateWindow();
}

void QtDesktop::Hide_Window(Screen& screen) {
    Form& form = formOf(screen);
    if (form.isVisible()) keepPlace(form);
    takeAway(form);
    The_Settings().Save();
    QWidget* below = QApplication::activeModalWidget();
    if (!below) below = top();
    if (below) below->activateWindow();
    endShowings();
}

void QtDesktop::Serve_Events(Screen&, const std::function<bool()>& done) {
    QEventLoop loop;
    showings_.push_back({&loop, done});
    while (!done() && !Ending()) {
        if (loop.exec() == 0) continue;
        // The session is going down, and no loop waits any more.
        if (!done()) End_Process();
    }
    showings_.pop_back();
}

void QtDesktop::endShowings() {
    for (const Showing& showing : showings_)
        if (Ending() || showing.done()) showing.loop->quit();
}

void QtDesktop::On_Ending() {
    shown_.insert(shown_.begin(), beside_.begin(), beside_.end());
    while (!shown_.empty()) {
        if (shown_.back()->isVisible()) keepPlace(*shown_.back());
        takeAway(*shown_.back());
    }
    The_Settings().Save();
    endShowings();
}

void QtDesktop::Set_Pointer(Pointer pointer) {
    const bool wanted = pointer == Pointer::kHourglass;
    if (wanted == hourglass_) return;
    hourglass_ = wanted;
    if (hourglass_)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

DisplaySize QtDesktop::Display() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double twips = Form::twipsPerPixel();
    const QSize available = screen->availableGeometry().size();
    const QSize whole = screen->geometry().size();
    return {std::lround(available.width() * twips), std::lround(available.height() * twips), whole.width(),
            whole.height()};
}

bool QtDesktop::Pause(std::chrono::nanoseconds pause) {
    if (Ending()) return false;
    Form* form = top();
    if (!form) return pauseFrame(pause);
    return pauseFrame(pause, form, form->stopButton(), sequences(form->screen().StopKeys));
}

std::string QtDesktop::Session_User() {
    if (const passwd* user = ::getpwuid(::getuid()); user && user->pw_name) return user->pw_name;
    return qEnvironmentVariable("USER").toStdString();
}

std::string QtDesktop::Documents_Folder() {
    return fromQt(QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)));
}

/// Qt has no name for it.
std::string QtDesktop::State_Folder() {
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return fromQt(
        QDir::cleanPath(QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state")));
}

std::string QtDesktop::Settings_Folder() {
    return fromQt(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
}

std::string QtDesktop::Program_Folder() { return fromQt(QCoreApplication::applicationDirPath()); }

std::string QtDesktop::Date_Text() {
    return fromQt(QLocale::c().toString(QDate::currentDate(), QStringLiteral("M/d/yyyy")));
}

std::string QtDesktop::Time_Text() {
    return fromQt(QLocale::c().toString(QTime::currentTime(), QStringLiteral("h:mm:ss AP")));
}

void QtDesktop::Register_File_Type(const FileType& type) { registerFileType(type); }

}  // namespace verlink::desktop
