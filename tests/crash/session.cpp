// The program with a user of its own, who goes on until the process is ended, and writes down what he does.
//
//     crash_session FOLDER edit SEED    types, drags and saves, at random, for ever
//     crash_session FOLDER PLACE        changes the linkage once, goes to that place and stays there:
//                                       home, question, file, playing, hanging
//     crash_session FOLDER look         goes home, changes nothing and stays there
//     crash_session FOLDER session      changes the linkage once, and the session takes the program down
//     crash_session FOLDER compositor   the same, and Qt ends the process as it does where a compositor has died
//     crash_session FOLDER quit         changes the linkage, saves it and quits
//
// A further word is the model that the program is started with. FOLDER/log has what he did, each line when it was done:
// what, when, and what the model's file would hold by then.
#include <fcntl.h>
#include <unistd.h>

#include <QAction>
#include <QApplication>
#include <QCryptographicHash>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <random>

#include "desktop/form.h"
#include "desktop/pace.h"
#include "desktop/picture_widget.h"
#include "desktop/program.h"
#include "files/model_file.h"

namespace verlink::test {

namespace {

using desktop::Form;

struct Script {
    std::string folder, place;
    unsigned seed = 0;
};
Script script;
int log_file = -1;

/// What is written down is on the disk when this returns.
void note(const std::string& what) {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    const QByteArray content = QByteArray::fromStdString(File_Content());
    const std::string line = what + "\t" + std::to_string(std::chrono::nanoseconds(now).count()) + "\t" +
                             QCryptographicHash::hash(content, QCryptographicHash::Sha1).toHex().toStdString() + "\n";
    if (::write(log_file, line.data(), line.size()) != static_cast<ssize_t>(line.size())) std::abort();
}

QWidget* windowInUse() {
    QWidget* window = QApplication::activeModalWidget();
    if (!window) {
        for (QWidget* candidate : QApplication::topLevelWidgets())
            if (dynamic_cast<Form*>(candidate) && candidate->isVisible()) window = candidate;
    }
    if (window && !window->isActiveWindow()) window->activateWindow();
    return window && window->isActiveWindow() ? window : nullptr;
}

template <class Widget>
Widget& find(QWidget& window, const char* name) {
    auto* found = window.findChild<Widget*>(QString::fromLatin1(name));
    if (!found) qFatal("no widget %s", name);
    return *found;
}

void click(QWidget& window, const char* button) { QTest::mouseClick(&find<QWidget>(window, button), Qt::LeftButton); }

void type(QWidget& window, const char* box, const QString& text) {
    auto& widget = find<QWidget>(window, box);
    widget.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&widget, text);
    QTest::keyClick(&widget, Qt::Key_Tab);
}

class User : public QObject {
   public:
    User() : random_(script.seed) {
        connect(&poll_, &QTimer::timeout, this, [this] { poll(); });
        poll_.start(2);
    }

   private:
    void poll() {
        if (posted_ || stays_ || desktop::inPause()) return;
        QWidget* window = windowInUse();
        if (!window || (!at_work_.empty() && at_work_.back() == window)) return;
        posted_ = true;
        // Posted, and not done here: a timer does not fire inside its own slot, and a deed may open a dialog.
        QTimer::singleShot(0, window, [this, window] {
            posted_ = false;
            at_work_.push_back(window);
            act(*window);
            at_work_.pop_back();
        });
    }

    void act(QWidget& window) {
        if (auto* box = qobject_cast<QMessageBox*>(&window)) return answer(*box);
        if (qobject_cast<QFileDialog*>(&window)) return chooseFile(window);
        const QString name = window.objectName();
        if (name == QStringLiteral("frm_Title")) return click(window, "cmd_Start");
        if (name == QStringLiteral("frm_User")) return giveName(window);
        if (name == QStringLiteral("frm_HomeScreen")) return atHome(window);
        if (name == QStringLiteral("frm_Inputnew")) return edit(window);
        if (name == QStringLiteral("frm_Animate")) return drag(window);
        if (name == QStringLiteral("frm_Quit")) return click(window, "cmd_YesQuit");
        qFatal("the user does not know %s", qPrintable(name));
    }

    void answer(QMessageBox& box) {
        QString said = box.text();
        said.replace(u'\n', u' ').replace(u'\t', u' ');
        note("told " + said.simplified().toStdString());
        if (edited_ && script.place == "question" && box.button(QMessageBox::Yes)) {
            stays_ = true;
            return note("there");
        }
        QAbstractButton* yes = box.button(QMessageBox::Yes);
        (yes ? yes : box.buttons().constFirst())->click();
    }

    void chooseFile(QWidget& dialog) {
        if (edited_ && script.place == "file") {
            stays_ = true;
            return note("there");
        }
        const std::string path = script.folder + "/models/press.vlk";
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString(path));
        dialog.findChild<QDialogButtonBox*>()->buttons().constFirst()->click();
    }

    void giveName(QWidget& window) {
        type(window, "txt_UserName", QStringLiteral("A designer"));
        note("arriving");
        click(window, "cmd_Done");
    }

    void atHome(QWidget& home) {
        note("home");
        const bool can_save = find<QAction>(home, "mnu_Save").isEnabled();
        if (script.place == "edit") return can_save && random_() % 3 != 0 ? save(home) : click(home, "cmd_Input");
        if (!edited_ && script.place != "look") return click(home, "cmd_Input");
        if (script.place == "quit" && !saved_) return save(home);
        if (script.place == "quit") return click(home, "cmd_Quit");
        if (script.place == "file") return find<QAction>(home, "mnu_Saveas").trigger();
        if (script.place == "question") return find<QAction>(home, "mnu_New").trigger();
        if (script.place == "playing") return click(home, "cmd_Animate");
        stays_ = true;
        note("there");
        if (script.place == "session") QCoreApplication::exit(1);
        while (script.place == "hanging") ::sleep(1);
        if (script.place == "compositor") {
            qWarning("The Wayland connection broke. Did the Wayland compositor die?");
            ::_exit(1);
        }
    }

    void save(QWidget& home) {
        note("saving");
        find<QAction>(home, "mnu_Save").trigger();
        note("saved");
        saved_ = true;
    }

    void edit(QWidget& input) {
        const unsigned edits = script.place == "edit" ? 1 + random_() % 5 : 1;
        for (unsigned i = 0; i < edits; ++i) {
            note("editing");
            type(input, "txt_Linkout_1", QString::number(0.9 + double(random_() % 300) / 1000));
            note("edited");
            edited_ = true;
            QTest::qWait(static_cast<int>(random_() % 60));
        }
        click(input, "cmd_Calc");
        note("edited");
        click(input, "cmd_Done");
    }

    void drag(QWidget& animate) {
        if (script.place == "playing") return play(animate);
        if (script.place == "edit") {
            auto& picture = static_cast<desktop::PictureWidget&>(find<QWidget>(animate, "Picture1"));
            const QPointF middle = picture.area().center();
            const unsigned moves = random_() % 30;
            for (unsigned i = 0; i < moves; ++i) {
                const QPointF at = middle + QPointF(int(random_() % 80), int(random_() % 80));
                note("editing");
                QMouseEvent event(QEvent::MouseMove, at, picture.mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                                  Qt::ShiftModifier);
                QApplication::sendEvent(&picture, &event);
                note("edited");
                QTest::qWait(static_cast<int>(random_() % 16));
            }
        }
        click(animate, "cmd_Done");
    }

    void play(QWidget& animate) {
        type(animate, "txt_Cycles", QStringLiteral("900"));
        QTest::qWait(300);
        stays_ = true;
        note("there");
        click(animate, "cmd_Animate");
        note("stopped");
    }

    std::mt19937 random_;
    QTimer poll_;
    std::vector<QWidget*> at_work_;  ///< the windows of the deeds that have not returned yet
    bool posted_ = false, stays_ = false, edited_ = false, saved_ = false;
};

void engage() {
    auto* user = new User;
    user->setParent(QCoreApplication::instance());
}

}  // namespace

}  // namespace verlink::test

static void engageUser() { verlink::test::engage(); }
Q_COREAPP_STARTUP_FUNCTION(engageUser)

int main(int argc, char** argv) {
    using verlink::test::script;
    std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() < 2) {
        std::fputs("usage: crash_session FOLDER edit SEED | FOLDER PLACE [MODEL]\n", stderr);
        return 2;
    }
    script.folder = words[0];
    script.place = words[1];
    std::size_t taken = 2;
    if (script.place == "edit" && words.size() > 2) script.seed = static_cast<unsigned>(std::stoul(words[taken++]));
    verlink::test::log_file =
        ::open((script.folder + "/log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_SYNC | O_CLOEXEC, 0644);
    if (verlink::test::log_file < 0) {
        std::perror(script.folder.c_str());
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const auto& [name, below] : {std::pair{"HOME", "/home"},
                                      {"XDG_DATA_HOME", "/home/data"},
                                      {"XDG_CONFIG_HOME", "/home/config"},
                                      {"XDG_STATE_HOME", "/home/state"}})
        qputenv(name, QByteArray::fromStdString(script.folder + below));
    std::vector<char*> rest = {argv[0]};
    if (words.size() > taken) rest.push_back(argv[1 + taken]);
    rest.push_back(nullptr);
    return verlink::desktop::runProgram(static_cast<int>(rest.size()) - 1, rest.data());
}
