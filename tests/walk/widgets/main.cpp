// Random walks over real widgets, on the platform that needs no display.
#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

#include "desktop/memory.h"
#include "desktop/quiet_style.h"
#include "tests/walk/program.h"
#include "tests/walk/walk_desktop.h"
#include "tests/walk/widgets/desktop.h"

namespace {

/// The offscreen platform says at each window what it cannot do; everything else is worth reading.
void Log(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (text.contains(QStringLiteral("This plugin does not support"))) return;
    std::fprintf(stderr, "Qt: %s\n", qPrintable(text));
    if (type == QtFatalMsg) std::abort();
}

}  // namespace

int main(int argc, char** argv) {
    verlink::desktop::returnLargeBlocks();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir session;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", session.path().toUtf8());
    qInstallMessageHandler(Log);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(new verlink::desktop::QuietStyle);
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    return verlink::walk::Walk_Program(argc, argv, verlink::walk::Walk_In_Windows, verlink::walk::Walk_Once);
}
