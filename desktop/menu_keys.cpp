// Letters that open the menus of a bar, also where two menus have the same.
#include "desktop/menu_keys.h"

#include <QAction>
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

bool MenuKeys::eventFilter(QObject* object, QEvent* event) {
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
