// How the input screen sits.
#include "desktop/layouts.h"

namespace verlink::desktop {

void layoutInputnew(Form& form, QWidget* room) { layoutPlain(form, room); }

}  // namespace verlink::desktop
