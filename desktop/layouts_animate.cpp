// How the animate screen sits.
#include "desktop/layouts.h"

namespace verlink::desktop {

void layoutAnimate(Form& form, QWidget* room) { layoutPlain(form, room); }

}  // namespace verlink::desktop
