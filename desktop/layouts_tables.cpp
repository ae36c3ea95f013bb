// How tables sit: the grid fills the screen, what belongs to it stands beside and above.
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

void layoutChecks(Form& form, QWidget* room) {
    QHBoxLayout* foot = row();
    foot->addWidget(note(form.widget("lbl_Note")), 1);
    foot->addWidget(forward(form.widget("cmd_Done")));
    QVBoxLayout* all = page(room);
    QHBoxLayout* above = row();
    above->addWidget(title(form.widget("lbl_Summary")), 1);
    above->addWidget(note(form.widget("lbl_Header")));
    all->addLayout(above);
    // Sentences stand in it.
    constexpr int kLeastWidth = 1000;
    QWidget* table = form.widget("grd_Data");
    table->setMinimumWidth(kLeastWidth);
    all->addWidget(table, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
