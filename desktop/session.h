// The end of the desktop's session.
#pragma once

class QGuiApplication;

namespace verlink::desktop {

/// From now on the end of the session asks about a modified model, and waits where the user would rather go on.
void watchSession(QGuiApplication& application);

}  // namespace verlink::desktop
