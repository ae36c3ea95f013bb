// How the screens around the work sit: title, user, home, help, about and quit.
#include "desktop/layouts.h"

namespace verlink::desktop {

void layoutTitle(Form& form, QWidget* room) { layoutPlain(form, room); }
void layoutUser(Form& form, QWidget* room) { layoutPlain(form, room); }
void layoutHomeScreen(Form& form, QWidget* room) { layoutPlain(form, room); }
void layoutHelp(Form& form, QWidget* room) { layoutPlain(form, room); }
void layoutAbout(Form& form, QWidget* room) { layoutPlain(form, room); }
void layoutQuit(Form& form, QWidget* room) { layoutPlain(form, room); }

}  // namespace verlink::desktop
