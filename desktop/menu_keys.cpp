// Letters that open the menus of a bar, also where two menus have the same.
#include "desktop/menu_keys.h"

#include <QAction>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QShortcutEvent>

namespace verlink::desktop {

MenuKeys::MenuKeys(QMenuBar& bar) : QObject(&bar), bar_(bar) {
    bar_.installEventFilter(this);
    // An open menu takes the keys.
    for (const QAction* action : bar_.actions())
        if (action->menu()) action->menu()->installEventFilter(this);
}

QList<QAction*> MenuKeys::named(const QKeySequence& letter) const {
    QList<QAction*> all;
    for (QAction* action : bar_.actions())
        if (action->menu() && action->isEnabled() && action->isVisible() &&
            QKeySequence::mnemonic(action->text()) == letter)
            all << action;
    return all;
}

/// Keys that the screen may have as well.
bool MenuKeys::walks(const QKeyEvent& press) const {
    const int key = press.key();
    return bar_.hasFocus() && (key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up ||
                               key == Qt::Key_Down || key == Qt::Key_Space);
}

/// By itself the alt key closes an open menu as it goes down, and the letter would then open the first menu again. Here
/// it does so as it comes up, if no letter has come.
bool MenuKeys::awaitsLetter(QObject& menu, const QKeyEvent& key) {
    const bool down = key.type() == QEvent::KeyPress;
    if (key.key() != Qt::Key_Alt) {
        if (down) alt_waits_ = false;
        return false;
    }
    if (alt_late_) return false;
    if (!down && alt_waits_) {
        QKeyEvent late(QEvent::KeyPress, Qt::Key_Alt, Qt::AltModifier);
        alt_late_ = true;
        QCoreApplication::sendEvent(&menu, &late);
        alt_late_ = false;
    }
    alt_waits_ = down;
    return down;
}

bool MenuKeys::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && object == &bar_ && walks(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if ((event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) && object != &bar_ &&
        awaitsLetter(*object, *static_cast<QKeyEvent*>(event)))
        return true;
    QKeySequence letter;
    if (event->type() == QEvent::Shortcut && object == &bar_)
        letter = static_cast<QShortcutEvent*>(event)->key();
    else if (event->type() == QEvent::KeyPress && object != &bar_)
        letter = QKeySequence(static_cast<QKeyEvent*>(event)->keyCombination());
    const QList<QAction*> menus = letter.isEmpty() ? QList<QAction*>() : named(letter);
    if (menus.size() < 2) return QObject::eventFilter(object, event);
    const QAction* open = bar_.activeAction();
    const bool is_open = open && open->menu() && open->menu()->isVisible();
    const qsizetype at = is_open ? menus.indexOf(open) : -1;
    bar_.setActiveAction(menus[(at + 1) % menus.size()]);
    return true;
}

}  // namespace verlink::desktop
