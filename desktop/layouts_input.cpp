// How the input screen sits: the linkage at the left, how it is driven in the middle, the drawing at the right.
#include <QLabel>

#include "desktop/fold.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/layouts_linkage.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

QWidget* calculationMode(Form& form) {
    FrameBox* frame = form.frame("fra_calcmode");
    QVBoxLayout* modes = column(4);
    for (int mode = 1; mode <= 3; ++mode) modes->addWidget(form.widget("opt_Calctype", mode));
    modes->addWidget(note(form.widget("lbl_calctype"), true));
    frame->setContent(modes);
    return inOnePlace(frame->parentWidget(), {frame, note(form.widget("lbl_camdriven"), true)});
}

QWidget* initialConditions(Form& form) {
    NumberRows rows;
    rows.add(form.widget("lbl_Initial", 5), form.widget("txt_Thetazero"), form.widget("lbl_Unit", 5));
    for (int i = 0; i <= 4; ++i)
        rows.add(form.widget("lbl_Initial", i), form.widget("txt_initial", i), form.widget("lbl_Unit", i));
    FrameBox* frame = form.frame("fra_initial");
    frame->setContent(rows.layout());
    return frame;
}

QWidget* modulo(Form& form) {
    FrameBox* frame = form.frame("fra_Modulo");
    frame->setContent(rowOf({form.widget("opt_Modulo", 0), form.widget("opt_Modulo", 1)}));
    return frame;
}

}  // namespace

void layoutInputnew(Form& form, QWidget* room) {
    QVBoxLayout* linkage = column(12);
    linkage->addWidget(linkageData(form));
    linkage->addLayout(groundLink(form));
    linkage->addWidget(initialConditions(form));
    linkage->addStretch(1);

    QHBoxLayout* columns = row(0);
    fold(form, columns, around(room, linkage), FoldHandle::Side::kLeft, "Linkage",
         "the linkage and its initial conditions");

    QVBoxLayout* drive = column(12);
    drive->addWidget(calculationMode(form));
    drive->addWidget(circuit(form));
    drive->addWidget(modulo(form));
    drive->addWidget(grashof(form));
    drive->addWidget(toggles(form));
    drive->addStretch(1);
    drive->addWidget(form.widget("chk_autocalc"));
    drive->addWidget(form.widget("cmd_Calc"));

    fold(form, columns, around(room, drive), FoldHandle::Side::kLeft, "Drive", "the drive, circuit and Calculate");

    QVBoxLayout* drawing = column();
    drawing->addWidget(textBox(form.widget("txt_Figure")));
    drawing->addWidget(largePicture(form), 1);
    drawing->addWidget(quietLine(form));
    drawing->addLayout(stepBar(form));
    QHBoxLayout* steps = rowOf({form.widget("cmd_Step"), form.widget("cmd_Reset"), form.widget("cmd_Animate")});
    steps->addStretch(1);
    steps->addWidget(form.widget("chk_autoscale"));
    drawing->addLayout(steps);
    drawing->addWidget(shiftDrag(form, room, form.widget("pnl_shift", 0), form.widget("pnl_shift", 1)));

    columns->addLayout(drawing, 1);

    QHBoxLayout* foot = row();
    foot->addWidget(note(form.widget("lbl_Model")));
    foot->addStretch(1);
    foot->addWidget(form.widget("cmd_PlotPrint"));
    foot->addWidget(form.widget("cmd_Cancel"));
    foot->addWidget(forward(form.widget("cmd_Done")));
    equalWidths({form.widget("cmd_PlotPrint"), form.widget("cmd_Cancel"), form.widget("cmd_Done")});
    equalWidths({form.widget("cmd_Step"), form.widget("cmd_Reset"), form.widget("cmd_Animate")});

    QVBoxLayout* all = page(room);
    all->addLayout(columns, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
