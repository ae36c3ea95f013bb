// The keys of a screen's controls, on its window.
#pragma once

#include <QKeySequence>
#include <QList>
#include <string>

class QAction;
class QKeyEvent;

namespace verlink::platform {
class Control;
class Shortcut;
class CommandButton;
}  // namespace verlink::platform

namespace verlink::desktop {

class Form;

/// "Ctrl+S F5" as Qt has it.
QList<QKeySequence> sequences(const std::string& keys);

/// What a shortcut of the screen does, for as long as the window takes input.
QAction* makeShortcut(Form& form, platform::Shortcut& shortcut);
/// Has the keys of a button click it, where it has some.
void bindKeys(Form& form, platform::CommandButton& button);

/// Is that key, while the control has the focus, its own? Boxes say so for themselves. `walked_to`: the focus was
/// brought there from control to control, and the space bar presses what it stands on.
bool keepsKey(const platform::Control& control, const QKeyEvent& event, bool walked_to);

}  // namespace verlink::desktop
