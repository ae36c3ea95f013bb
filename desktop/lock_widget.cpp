// How the padlock is painted.
#include "desktop/lock_widget.h"

#include <QEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include "desktop/icons.h"

namespace verlink::desktop {

namespace {

constexpr int kWidth = 18, kHeight = 20, kIcon = 14;

}  // namespace

LockWidget::LockWidget(QWidget* parent) : QCheckBox(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
}

QSize LockWidget::sizeHint() const { return {kWidth, kHeight}; }

void LockWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    constexpr double kQuiet = 0.4;
    const bool plain = isChecked() || hasFocus() || underMouse();
    const QRect place((width() - kIcon) / 2, (height() - kIcon) / 2, kIcon, kIcon);
    painter.setOpacity(plain ? 1 : kQuiet);
    lineIcon(isChecked() ? Picto::kLocked : Picto::kUnlocked)
        .paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (!hasFocus()) return;
    painter.setOpacity(1);
    QStyleOptionFocusRect ring;
    ring.initFrom(this);
    ring.rect = rect();
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, &painter, this);
}

}  // namespace verlink::desktop
