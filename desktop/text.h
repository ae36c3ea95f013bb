// Texts between the program, UTF-8 with its own line ends, and Qt, and places.
#pragma once

#include <QPointF>
#include <QString>
#include <string>

#include "platform/clip.h"

namespace verlink::desktop {

inline QString toQt(const std::string& text) { return QString::fromStdString(text); }
inline QPointF toQt(platform::Point at) { return {at.x, at.y}; }
inline std::string fromQt(const QString& text) { return text.toStdString(); }

/// CR, LF and CRLF each as one line end.
inline QString lines(const std::string& text) {
    QString shown = toQt(text);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

}  // namespace verlink::desktop
