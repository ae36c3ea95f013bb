// Texts between the program, UTF-8 with its own line ends, and Qt.
#pragma once

#include <QString>
#include <string>

namespace verlink::desktop {

inline QString toQt(const std::string& text) { return QString::fromStdString(text); }
inline std::string fromQt(const QString& text) { return text.toStdString(); }

/// CR, LF and CRLF each as one line end.
inline QString lines(const std::string& text) {
    QString shown = toQt(text);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

}  // namespace verlink::desktop
