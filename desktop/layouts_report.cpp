// How the screen of the report sits: chapters at the left, plots at the right.
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"

namespace verlink::desktop {

void layoutReport(Form& form, QWidget* room) {
    QVBoxLayout* chapters = column();
    for (int chapter = 0; form.has("chk_Chapter", chapter); ++chapter)
        chapters->addWidget(form.widget("chk_Chapter", chapter));
    chapters->addStretch(1);
    form.frame("fra_Chapters")->setContent(chapters);
    QVBoxLayout* plots = column();
    for (int plot = 1; form.has("cmb_Plot", plot); ++plot) {
        QHBoxLayout* line = row();
        QWidget* box = textBox(form.widget("cmb_Plot", plot), 18);
        line->addWidget(labelOf(form.widget("lbl_Plot", plot), box));
        line->addWidget(box, 1);
        plots->addLayout(line);
    }
    plots->addStretch(1);
    form.frame("fra_Plots")->setContent(plots);

    QHBoxLayout* middle = row(kGroupGap);
    middle->addWidget(form.widget("fra_Chapters"), 1);
    middle->addWidget(form.widget("fra_Plots"), 1);
    QHBoxLayout* foot = row();
    foot->addWidget(note(form.widget("lbl_Note")), 1);
    QWidget* back = form.widget("cmd_Cancel");
    QWidget* save = forward(form.widget("cmd_Save"));
    equalWidths({back, save});
    foot->addWidget(back);
    foot->addWidget(save);
    QVBoxLayout* all = page(room);
    all->addLayout(middle, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
