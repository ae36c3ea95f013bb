// The process of the tests with real widgets: a Qt application on the platform that needs no display.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStyleFactory>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// A folder that nobody else may look into, as sessions have one.
std::string PrivateFolder() {
    std::string pattern = testing::TempDir() + "verlink-session-XXXXXX";
    return ::mkdtemp(pattern.data());
}

/// The offscreen platform says at each window that it takes no size hints; everything else is worth reading.
void Log(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (text.contains(QStringLiteral("propagateSizeHints"))) return;
    std::fprintf(stderr, "Qt: %s\n", qPrintable(text));
    if (type == QtFatalMsg) std::abort();
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(PrivateFolder()));
    qInstallMessageHandler(Log);
    testing::InitGoogleTest(&argc, argv);
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    return RUN_ALL_TESTS();
}
