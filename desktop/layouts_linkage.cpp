// How the groups of the input and animate screens sit.
#include "desktop/layouts_linkage.h"

#include <QLabel>

#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

QWidget* largePicture(Form& form) {
    QWidget* picture = form.picture("Picture1");
    picture->setMinimumSize(460, 460);
    return picture;
}

QWidget* linkageData(Form& form) {
    NumberRows rows;
    for (int link = 1; link <= 5; ++link)
        rows.add(form.widget("lbl_Link", link), form.widget("txt_Linkout", link),
                 link == 5 ? form.widget("lbl_Degrees", 5) : form.widget("lbl_Units", link));
    FrameBox* frame = form.frame("fra_Links");
    frame->setContent(rows.layout());
    return frame;
}

QLayout* groundLink(Form& form) {
    QHBoxLayout* choice = row(kGroupGap);
    choice->addWidget(form.widget("opt_Polar", 0), 1);
    choice->addWidget(form.widget("opt_Polar", 1), 1);

    NumberRows pivot;
    pivot.add(form.widget("lbl_Link", 15), form.widget("txt_Linkout", 15), form.widget("lbl_Units", 11), 7);
    pivot.add(form.widget("lbl_Link", 16), form.widget("txt_Linkout", 16), form.widget("lbl_Units", 12), 7);
    form.frame("SSFrame3")->setContent(pivot.layout());
    NumberRows polar;
    polar.add(form.widget("lbl_Link", 0), form.widget("txt_Linkout", 0), form.widget("lbl_Units", 0), 7);
    polar.add(form.widget("lbl_Link", 6), form.widget("txt_Linkout", 6), form.widget("lbl_Degrees", 6), 7);
    form.frame("SSFrame1")->setContent(polar.layout());

    QVBoxLayout* all = column(4);
    all->addLayout(choice);
    all->addLayout(rowOf({form.widget("SSFrame3"), form.widget("SSFrame1")}));
    return all;
}

QWidget* circuit(Form& form) {
    FrameBox* frame = form.frame("fra_Circuit");
    frame->setContent(rowOf({form.widget("opt_OpenCross", 0), form.widget("opt_OpenCross", 1)}));
    return frame;
}

QWidget* grashof(Form& form) {
    FrameBox* frame = form.frame("SSFrame6");
    auto* outcome = form.get<QLabel>("lbl_Grashof");
    outcome->setWordWrap(true);
    outcome->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    outcome->setMinimumHeight(2 * outcome->fontMetrics().lineSpacing());
    frame->setContent(rowOf({outcome}));
    return frame;
}

QWidget* toggles(Form& form) {
    FrameBox* frame = form.frame("fra_toggle");
    auto* unit = form.get<QLabel>("lbl_Toggle", 1);
    // Over a turned ground it says its frame, too.
    unit->setWordWrap(true);
    unit->setMinimumHeight(2 * unit->fontMetrics().lineSpacing());
    QHBoxLayout* limits = rowOf({readOut(form.widget("lbl_Toggle", 0), 6)});
    limits->addWidget(unit, 1);
    frame->setContent(limits);
    return frame;
}

QLayout* stepBar(Form& form) {
    QHBoxLayout* legends = row();
    legends->addWidget(note(form.widget("pnl_cw")));
    legends->addStretch(1);
    legends->addWidget(note(form.widget("pnl_time")));
    legends->addStretch(1);
    legends->addWidget(note(form.widget("pnl_ccw")));
    QVBoxLayout* all = column(2);
    all->addWidget(form.widget("hsc_step"));
    all->addLayout(legends);
    return all;
}

QLayout* shiftDrag(Form& form, QWidget* before, QWidget* after) {
    QHBoxLayout* words = row();
    words->addWidget(before);
    words->addWidget(note(after));
    words->addStretch(1);
    QHBoxLayout* targets = row();
    for (int target = 0; target <= 4; ++target) targets->addWidget(form.widget("opt_Shift_Drag", target));
    targets->addStretch(1);
    QVBoxLayout* all = column(2);
    all->addLayout(words);
    all->addLayout(targets);
    return all;
}

}  // namespace verlink::desktop
