// A signal's handler may do next to nothing: it notes the signal in the log of the process and wakes the event loop,
// which does the rest.
#include "desktop/endings.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QGuiApplication>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

#include "platform/desktop_services.h"
#include "shell/recovery.h"
#include "shell/run_log.h"
#include "shell/startup.h"

namespace verlink::desktop {

namespace {

/// So long the program has to come to its end; then the alarm ends it.
constexpr unsigned kPatienceSeconds = 5;

constexpr std::array kSignals = {std::pair{SIGTERM, "SIGTERM"}, std::pair{SIGHUP, "SIGHUP"},
                                 std::pair{SIGINT, "SIGINT"}};

std::array<int, 2> wake = {-1, -1};
QtMessageHandler before = nullptr;

const char* nameOf(int number) {
    for (const auto& [signal, name] : kSignals)
        if (signal == number) return name;
    return "a signal";
}

extern "C" void onSignal(int number) {
    const int error = errno;
    Log_End(nameOf(number));
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const ssize_t count = ::write(wake[1], &byte, 1);
    ::alarm(kPatienceSeconds);
    errno = error;
}

bool isIgnored(int number) {
    struct sigaction now {};
    return ::sigaction(number, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

void displayLost() { Leave("the loss of the display"); }

/// Of a display that goes away the platforms of Qt say so and end the process, some without a further call.
void onMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.contains(QStringLiteral("connection broke")) || text.contains(QStringLiteral("connection experienced")))
        displayLost();
    if (before) before(type, context, text);
}

}  // namespace

Endings::Endings(platform::Desktop& desktop) : desktop_(desktop) {
    if (::pipe2(wake.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = new QSocketNotifier(wake[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] { arrived(); });
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this,
            [](QSessionManager&) { Prepare_To_Leave("the end of the session"); });
    for (const auto& [number, name] : kSignals) {
        if (isIgnored(number)) continue;
        struct sigaction action {};
        action.sa_handler = onSignal;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
}

Endings::~Endings() {
    for (const auto& [number, name] : kSignals)
        if (!isIgnored(number)) ::signal(number, SIG_DFL);
    for (int& end : wake) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

void Endings::arrived() {
    char number = 0;
    while (::read(wake[0], &number, 1) == 1) signal_ = number;
    if (signal_ == 0) return;
    Leave(nameOf(signal_));
    desktop_.End_Process();
    // Dialogs wait in loops of their own.
    QCoreApplication::exit(1);
}

void watchDisplay() {
    before = qInstallMessageHandler(onMessage);
    std::atexit(displayLost);
}

void dieOf(int signal) {
    ::signal(signal, SIG_DFL);
    ::raise(signal);
}

}  // namespace verlink::desktop
