// How each kind of control becomes a widget that shows it and hands the user's hand back to it.
#pragma once

namespace verlink::platform {
class Control;
}

class QObject;
class QWidget;

namespace verlink::desktop {

class Form;

/// The widget (or timer) of a control, bound both ways; null for kinds that show nothing of their own here.
QObject* makeObject(Form& form, platform::Control& control, QWidget* parent);

}  // namespace verlink::desktop
