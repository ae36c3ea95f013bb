// How the animate screen sits: the drawing at the left, how it plays and what it shows beside it, the data at the
// right.
#include <QLabel>
#include <QSplitter>

#include "desktop/fold.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/layouts_linkage.h"
#include "desktop/layouts_live.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

QLayout* playing(Form& form) {
    form.frame("fra_Speed")->setContent(columnOf({form.widget("hsc_speed"), note(form.widget("lbl_speed"))}, 2));
    form.frame("fra_Range")->setContent(rowOf({numberBox(form.widget("cmb_wait"), 4)}));
    form.frame("fra_Cycles")->setContent(rowOf({numberBox(form.widget("txt_Cycles"), 5)}));
    QVBoxLayout* all = column(12);
    all->addWidget(form.widget("fra_Speed"));
    all->addLayout(rowOf({form.widget("fra_Range"), form.widget("fra_Cycles")}));
    return all;
}

QLayout* showing(Form& form) {
    form.frame("fra_Settings")->setContent(rowOf({form.widget("chk_autoscale"), form.widget("chk_Trace")}));
    QVBoxLayout* shown =
        columnOf({form.widget("chk_Showlinks"), form.widget("chk_Coupler"), form.widget("chk_Centrodes")}, 4);
    QHBoxLayout* lines = rowOf(
        {form.widget("chk_CouplerLines"), numberBox(form.widget("txt_LineAngle"), 4), form.widget("lbl_LineAngle")}, 4);
    lines->addStretch(1);
    shown->addLayout(lines);
    form.frame("fra_Show")->setContent(shown);
    return columnOf({form.widget("fra_Settings"), form.widget("fra_Show")}, 12);
}

QWidget* initialConditions(Form& form) {
    NumberRows rows;
    for (int i = 0; i <= 2; ++i)
        rows.add(form.widget("lbl_Initial", i), form.widget("txt_initial", i), form.widget("lbl_Unit", i));
    rows.add(form.widget("lbl_Initial", 3), readOut(form.widget("lbl_Omega"), 9), form.widget("lbl_Unit", 3));
    // A driven run shows where its motion comes from in place of the boxes.
    FrameBox* frame = form.frame("fra_initial");
    frame->setContent(
        rowOf({inOnePlace(frame, {around(frame, rows.layout()), note(form.widget("lbl_camdriven"), true)})}));
    return frame;
}

}  // namespace

void layoutAnimate(Form& form, QWidget* room) {
    QVBoxLayout* drawing = column();
    drawing->addWidget(textBox(form.widget("txt_Figure")));
    drawing->addWidget(largePicture(form), 1);
    drawing->addWidget(quietLine(form));
    QHBoxLayout* position = row();
    position->addLayout(stepBar(form), 1);
    position->addWidget(form.widget("lbl_StepLabel"));
    position->addWidget(readOut(form.widget("lbl_StepNumber"), 7), 0, Qt::AlignVCenter);
    position->addWidget(form.widget("lbl_StepUnit"));
    drawing->addLayout(position);
    drawing->addWidget(shiftDrag(form, room, form.widget("pnl_ShiftDrag"), form.widget("pnl_ShiftDragNote")));
    // Panes that come beside or under the drawing share its place.
    auto* split = new QSplitter(Qt::Horizontal, room);
    split->setObjectName(QStringLiteral("qt_split_Drawing"));
    split->addWidget(around(split, drawing));
    split->setCollapsible(0, false);
    split->setStretchFactor(0, 1);
    addLivePane(form, split);

    QVBoxLayout* play = column(12);
    play->addLayout(playing(form));
    play->addLayout(showing(form));
    play->addWidget(circuit(form));
    play->addWidget(grashof(form));
    play->addWidget(toggles(form));
    play->addStretch(1);

    QVBoxLayout* data = column(12);
    data->addWidget(linkageData(form));
    data->addLayout(groundLink(form));
    data->addWidget(initialConditions(form));
    data->addStretch(1);
    data->addWidget(note(form.widget("lbl_Header"), true));
    data->addWidget(note(form.widget("lbl_Model"), true));

    QHBoxLayout* columns = row(0);
    columns->addWidget(split, 1);
    fold(form, columns, around(room, play), FoldHandle::Side::kRight, "Play", "speed, settings and circuit");
    fold(form, columns, around(room, data), FoldHandle::Side::kRight, "Data", "the linkage and its initial conditions");

    QHBoxLayout* foot = rowOf(
        {form.widget("cmd_Animate"), form.widget("cmd_Step"), form.widget("cmd_Reset"), form.widget("cmd_Recalc")});
    foot->addStretch(1);
    foot->addWidget(form.widget("cmd_PlotPrint"));
    foot->addWidget(form.widget("cmd_Back"));
    foot->addWidget(forward(form.widget("cmd_Done")));
    equalWidths({form.widget("cmd_Animate"), form.widget("cmd_Step"), form.widget("cmd_Reset"),
                 form.widget("cmd_Recalc"), form.widget("cmd_PlotPrint"), form.widget("cmd_Back"),
                 form.widget("cmd_Done")});

    QVBoxLayout* all = page(room);
    all->addLayout(columns, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
