// The style for desktops that bring none of their own.
#pragma once

#include <QProxyStyle>

namespace verlink::desktop {

/// Fusion, with plain buttons in dialogs, and with rings around options and tick boxes that show on dark desktops too.
class QuietStyle : public QProxyStyle {
   public:
    QuietStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

/// Takes it, where the desktop brings no style of its own.
void useQuietStyle();

}  // namespace verlink::desktop
