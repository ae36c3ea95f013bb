// How the groups of the input and animate screens sit.
#include "desktop/layouts_linkage.h"

#include <QLabel>

#include "desktop/caption.h"
#include "desktop/fold.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/picture_widget.h"
#include "desktop/wrap_row.h"
#include "platform/lock.h"

namespace verlink::desktop {

QWidget* largePicture(Form& form) {
    QWidget* picture = form.picture("Picture1");
    constexpr int kLeast = 420, kWished = 460;
    picture->setMinimumSize(kLeast, kLeast);
    form.setHero(picture, kWished);
    return picture;
}

namespace {

/// The tab key comes to the locks when it has been to all boxes, so it is not asked for here.
QWidget* lockOf(Form& form, int box) {
    return qobject_cast<QWidget*>(form.objectOf(form.screen().Get<platform::Lock>("chk_Lock", box)));
}

}  // namespace

QWidget* linkageData(Form& form) {
    NumberRows rows;
    for (int link = 1; link <= 5; ++link)
        rows.addLocked(form.widget("lbl_Link", link), form.widget("txt_Linkout", link), lockOf(form, link),
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
    const auto add = [&form](NumberRows& rows, int box, QWidget* unit) {
        rows.addLocked(form.widget("lbl_Link", box), form.widget("txt_Linkout", box), lockOf(form, box), unit, 7);
    };
    add(pivot, 15, form.widget("lbl_Units", 11));
    add(pivot, 16, form.widget("lbl_Units", 12));
    form.frame("SSFrame3")->setContent(pivot.layout());
    NumberRows polar;
    add(polar, 0, form.widget("lbl_Units", 0));
    add(polar, 6, form.widget("lbl_Degrees", 6));
    form.frame("SSFrame1")->setContent(polar.layout());

    QVBoxLayout* all = column(4);
    all->addLayout(choice);
    all->addLayout(rowOf({form.widget("SSFrame3"), form.widget("SSFrame1")}));
    for (const int box : {1, 2, 3, 4, 5, 15, 16, 0, 6}) form.widget("chk_Lock", box);
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

QWidget* shiftDrag(Form& form, QWidget* room, QWidget* before, QWidget* after) {
    QHBoxLayout* targets = row();
    for (int target = 0; target <= 4; ++target) targets->addWidget(form.widget("opt_Shift_Drag", target));
    return new WrapRow(room, before, around(room, targets), note(after));
}

QWidget* quietLine(Form& form) {
    auto* line = form.get<Caption>("lbl_Why");
    note(line, true);
    line->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // What it says neither widens the window nor moves what is under it.
    line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    line->setFixedHeight(2 * line->fontMetrics().lineSpacing());
    return line;
}

void fold(Form& form, QBoxLayout* columns, QWidget* column, FoldHandle::Side side, const char* name,
          const char* holds) {
    auto* handle = new FoldHandle(form, column, side, QString::fromLatin1(name),
                                  QStringLiteral("the column with ") + QString::fromLatin1(holds));
    addFolding(columns, handle);
    form.walkTo(handle);
}

}  // namespace verlink::desktop
