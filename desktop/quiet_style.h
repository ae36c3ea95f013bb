// The style for desktops that bring none of their own.
#pragma once

#include <QProxyStyle>

namespace verlink::desktop {

/// Fusion, with plain buttons in dialogs.
class QuietStyle : public QProxyStyle {
   public:
    QuietStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
};

}  // namespace verlink::desktop
