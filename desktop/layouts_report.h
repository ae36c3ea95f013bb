// The layout of the screen that makes a report.
#pragma once

class QWidget;

namespace verlink::desktop {

class Form;

void layoutReport(Form& form, QWidget* room);

}  // namespace verlink::desktop
