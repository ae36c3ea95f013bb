// How keys become actions of a window, and whose a key is that several could take.
#include "desktop/keys.h"

#include <QAction>
#include <QKeyEvent>

#include "desktop/form.h"
#include "desktop/text.h"
#include "platform/controls.h"

namespace verlink::desktop {

using namespace platform;

namespace {

QAction* actionFor(Form& form, const std::string& keys) {
    auto* action = new QAction(&form);
    action->setShortcuts(sequences(keys));
    form.addAction(action);
    return action;
}

}  // namespace

QList<QKeySequence> sequences(const std::string& keys) {
    QList<QKeySequence> all;
    for (const std::string& single : Single_Keys(keys))
        all << QKeySequence::fromString(toQt(single), QKeySequence::PortableText);
    return all;
}

QAction* makeShortcut(Form& form, Shortcut& shortcut) {
    QAction* action = actionFor(form, shortcut.Keys);
    action->setObjectName(toQt(shortcut.ObjectName()));
    shortcut.Watcher = [action, &shortcut] { action->setEnabled(shortcut.Enabled); };
    shortcut.Watcher();
    QObject::connect(action, &QAction::triggered, &form,
                     [&form, &shortcut] { form.act(shortcut, [&] { shortcut.Press(); }); });
    return action;
}

void bindKeys(Form& form, CommandButton& button) {
    if (button.Keys.Get().empty()) return;
    QAction* action = actionFor(form, button.Keys);
    action->setAutoRepeat(false);
    QObject::connect(action, &QAction::triggered, &form, [&form, &button] {
        form.act(button, [&] {
            if (!button.Enabled || !button.Visible) return;
            button.SetFocus();
            button.Click();
        });
    });
}

bool keepsKey(const Control& control, const QKeyEvent& event, bool walked_to) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) return false;
    const int key = event.key();
    const bool arrow = key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
    const bool space = key == Qt::Key_Space;
    if (dynamic_cast<const OptionButton*>(&control)) return arrow || space;
    if (dynamic_cast<const CheckBox*>(&control)) return space;
    if (dynamic_cast<const CommandButton*>(&control)) return space && walked_to;
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control)) return arrow && bar->KeepsArrows;
    return false;
}

}  // namespace verlink::desktop
