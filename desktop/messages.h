// Message boxes as the program words them.
#pragma once

#include "platform/desktop_services.h"

class QWidget;

namespace verlink::desktop {

/// The answer of a message that nobody has answered.
platform::Answer harmlessAnswer(const platform::Message& message);

platform::Answer showMessage(QWidget* parent, const platform::Message& message);

/// Grows whenever a message or a window comes up and takes the mouse and the keys away from the others.
int interruptions();
void countInterruption();

}  // namespace verlink::desktop
