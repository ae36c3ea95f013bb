// The two ways in which a button is painted, and what its letter does.
#include "desktop/button.h"

#include <QApplication>
#include <QShortcutEvent>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>

namespace verlink::desktop {

namespace {
constexpr int kAround = 8, kBetween = 6;
}

Button::Button(QWidget* parent) : QPushButton(parent) { setAutoDefault(false); }

void Button::setIconAbove(const QIcon& icon, int side) {
    setIcon(icon);
    setIconSize({side, side});
    above_ = true;
    updateGeometry();
}

QSize Button::sizeHint() const {
    if (!above_) return QPushButton::sizeHint();
    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
    return {std::max(text.width(), iconSize().width()) + 2 * kAround + 8,
            iconSize().height() + kBetween + text.height() + 2 * kAround};
}

QSize Button::minimumSizeHint() const { return above_ ? sizeHint() : QPushButton::minimumSizeHint(); }

void Button::paintEvent(QPaintEvent* event) {
    if (!above_) {
        QPushButton::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = QIcon();
    painter.drawControl(QStyle::CE_PushButton, option);

    const int block = iconSize().height() + kBetween + fontMetrics().height();
    const int top = (height() - block) / 2;
    const QRect place((width() - iconSize().width()) / 2, top, iconSize().width(), iconSize().height());
    icon().paint(&painter, place, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
    const bool underlined = style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this) != 0;
    painter.drawItemText(QRect(0, place.bottom() + kBetween, width(), fontMetrics().height()),
                         Qt::AlignHCenter | (underlined ? Qt::TextShowMnemonic : Qt::TextHideMnemonic), palette(),
                         isEnabled(), text(), QPalette::ButtonText);
}

PromptLetters::PromptLetters() { qApp->installEventFilter(this); }

bool PromptLetters::eventFilter(QObject* object, QEvent* event) {
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous()) return false;
    auto* button = qobject_cast<QAbstractButton*>(object);
    if (button) button->click();
    return button != nullptr;
}

}  // namespace verlink::desktop
