// How the transform sits: its function at the top, the four graphs below.
#include <QLabel>

#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/layouts_output.h"

namespace verlink::desktop {

void layoutFFT(Form& form, QWidget* room) {
    QHBoxLayout* function = row();
    const auto add = [&](const char* label, int index, QWidget* box, int stretch) {
        function->addWidget(labelOf(form.widget(label, index), box));
        function->addWidget(box, stretch);
        function->addSpacing(kGap);
    };
    add("lbl_Var", 0, textBox(form.widget("cmb_Var1"), 16), 2);
    add("lbl_Comp", 0, textBox(form.widget("cmb_Com1"), 6), 0);
    add("lbl_Var", 1, numberBox(form.widget("cmb_Harmonics"), 5), 0);
    function->addStretch(1);
    function->addWidget(form.widget("cmd_Clear1"));
    function->addWidget(form.widget("cmd_Calc"));
    form.frame("fra_Function1")->setContent(function);

    auto* graphs = new QGridLayout;
    graphs->setSpacing(kGap);
    for (int i = 0; i <= 3; ++i) graphs->addWidget(form.widget("grf_Plot", i), i / 2, i % 2);

    QHBoxLayout* foot = row(12);
    for (const char* box : {"chk_HGrid", "chk_VGrid", "chk_Line", "chk_Sticks"}) foot->addWidget(form.widget(box));
    addWays(form, foot, "cmd_Print", "cmd_Cancel", "cmd_Done");

    QVBoxLayout* all = page(room);
    QHBoxLayout* top = row(kGroupGap);
    top->addWidget(form.widget("fra_Function1"), 1, Qt::AlignTop);
    top->addWidget(note(form.widget("lbl_Header")), 0, Qt::AlignTop);
    all->addLayout(top);
    all->addLayout(headerStrip(form));
    all->addLayout(graphs, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
