// How the quiet style differs from Fusion.
#include "desktop/quiet_style.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

#include "desktop/theme.h"

namespace verlink::desktop {

int QuietStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

void QuietStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool round = element == PE_IndicatorRadioButton;
    if ((!round && element != PE_IndicatorCheckBox) || !isDark(option->palette)) return;
    // Fusion's own rings are darker than the window.
    QColor ring = option->palette.color(QPalette::Active, QPalette::WindowText);
    ring.setAlpha(option->state & State_Enabled ? 120 : 50);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(ring, 1));
    painter->setBrush(Qt::NoBrush);
    const QRectF edge = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (round)
        painter->drawEllipse(edge);
    else
        painter->drawRoundedRect(edge, 1, 1);
    painter->restore();
}

void useQuietStyle() {
    const QString style = QApplication::style()->name();
    if (style == QStringLiteral("windows") || style == QStringLiteral("fusion")) QApplication::setStyle(new QuietStyle);
}

}  // namespace verlink::desktop
