// The pane of live plots, beside the drawing.
#pragma once

class QSplitter;

namespace verlink::desktop {

class Form;

/// Puts the pane into the splitter, behind what is there. While the program hides its frame it takes no room at all;
/// its width is kept from session to session.
void addLivePane(Form& form, QSplitter* split);

}  // namespace verlink::desktop
