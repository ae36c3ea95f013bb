// A Qt application for tests, on the platform that needs no display.
#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>

#include "desktop/quiet_style.h"

namespace verlink::test {

/// Takes its folder of the session away with it.
class Offscreen {
   public:
    Offscreen(int& argc, char** argv) : prepared_(Prepare()), app_(argc, argv) {
        QApplication::setQuitOnLastWindowClosed(false);
        QApplication::setStyle(new desktop::QuietStyle);
        QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    }

   private:
    /// What Qt reads when the application is made.
    bool Prepare() const {
        if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", session_.path().toUtf8());
        qInstallMessageHandler(Log);
        return true;
    }

    /// The offscreen platform says at each window what it cannot do; everything else is worth reading.
    static void Log(QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (text.contains(QStringLiteral("This plugin does not support"))) return;
        std::fprintf(stderr, "Qt: %s\n", qPrintable(text));
        if (type == QtFatalMsg) std::abort();
    }

    QTemporaryDir session_;
    bool prepared_;
    QApplication app_;
};

}  // namespace verlink::test
