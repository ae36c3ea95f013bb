// How the table sits: the grid fills the screen, the linkage's data beside it.
#include "desktop/form.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/layouts_output.h"

namespace verlink::desktop {

void layoutPrintData(Form& form, QWidget* room) {
    QHBoxLayout* middle = row();
    middle->addWidget(form.widget("grd_Data"), 1);
    middle->addWidget(foldingSummary(form));
    QHBoxLayout* foot = row();
    addWays(form, foot, "cmd_PrintForm", "cmd_Reprint", "cmd_Done");
    QVBoxLayout* all = page(room);
    all->addLayout(headerStrip(form));
    all->addLayout(middle, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
