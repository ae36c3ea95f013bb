// How the screens sit on which plots and tables are chosen.
#include <QLabel>
#include <string>

#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

std::string numbered(const char* name, int number) { return name + std::to_string(number); }

/// A label over its box.
void addOver(QVBoxLayout* rows, QWidget* label, QWidget* box) {
    static_cast<QLabel*>(label)->setBuddy(box);
    rows->addWidget(note(label));
    rows->addWidget(textBox(box, 14));
}

/// What is chosen so far for a slot.
QWidget* chosen(Form& form, int slot) {
    FrameBox* frame = form.frame("fra_Plot", slot - 1);
    auto* function = form.get<QLabel>("lbl_Function", slot - 1);
    QVBoxLayout* lines = columnOf({function, note(form.widget("lbl_Component", slot - 1))}, 2);
    for (int i = 0; i < lines->count(); ++i) {
        auto* line = static_cast<QLabel*>(lines->itemAt(i)->widget());
        line->setMinimumHeight(line->fontMetrics().lineSpacing());
    }
    frame->setContent(lines);
    return frame;
}

/// A slot as a card: variable, component, take-over and clear, and under it what it has become.
QLayout* card(Form& form, int slot) {
    const auto widget = [&](const char* name) { return form.widget(numbered(name, slot).c_str()); };
    QVBoxLayout* rows = column(4);
    addOver(rows, form.widget("lbl_Var", slot - 1), widget("cmb_Var"));
    rows->addSpacing(4);
    if (form.has(numbered("cmb_Com", slot).c_str())) {
        addOver(rows, form.widget("lbl_Comp", slot - 1), widget("cmb_Com"));
        rows->addSpacing(4);
    }
    QWidget* take = widget("cmd_OK");
    QWidget* clear = widget("cmd_Clear");
    equalWidths({take, clear});
    QHBoxLayout* buttons = rowOf({take, clear});
    buttons->addStretch(1);
    rows->addLayout(buttons);
    form.frame(numbered("fra_Function", slot).c_str())->setContent(rows);
    QVBoxLayout* whole = column();
    whole->addWidget(widget("fra_Function"));
    whole->addWidget(chosen(form, slot));
    return whole;
}

QLayout* cards(Form& form, int slots) {
    QHBoxLayout* all = row(kGroupGap);
    for (int slot = 1; slot <= slots; ++slot) all->addLayout(card(form, slot), 1);
    return all;
}

/// Setup method and presets, beside one another.
QLayout* methods(Form& form) {
    form.frame("fra_Method")->setContent(rowOf({form.widget("opt_PrintSet", 0), form.widget("opt_PrintSet", 1)}));
    QHBoxLayout* preset = row();
    preset->addWidget(textBox(form.widget("cmb_Preset"), 30), 1);
    preset->addWidget(form.widget("cmd_ClearPreset"));
    form.frame("fra_Preset")->setContent(preset);
    QHBoxLayout* all = row(kGroupGap);
    all->addWidget(form.widget("fra_Method"));
    all->addWidget(form.widget("fra_Preset"), 1);
    return all;
}

/// A group whose options stand in one row beside its title.
QWidget* choice(Form& form, const char* frame, const char* options, int count) {
    QHBoxLayout* all = row();
    for (int i = 0; i < count; ++i) all->addWidget(form.widget(options, i));
    form.frame(frame)->setContentBeside(all);
    return form.widget(frame);
}

QHBoxLayout* ways(Form& form, QHBoxLayout* foot, const char* back) {
    foot->addStretch(1);
    foot->addWidget(form.widget("cmd_Last"), 0, Qt::AlignVCenter);
    QWidget* backward = form.widget(back);
    QWidget* onward = forward(form.widget("cmd_Done"));
    equalWidths({backward, onward});
    foot->addWidget(backward, 0, Qt::AlignVCenter);
    foot->addWidget(onward, 0, Qt::AlignVCenter);
    return foot;
}

/// The sketches of a layout's windows and the option under them.
QWidget* sketches(Form& form, int layout, QLayout* windows) {
    QVBoxLayout* all = column();
    all->addLayout(windows, 1);
    all->addWidget(form.widget("opt_PickPlot", layout), 0, Qt::AlignHCenter);
    form.frame("fra_PickPlot", layout)->setContent(all);
    return form.widget("fra_PickPlot", layout);
}

PictureWidget* sketch(Form& form, int number) {
    PictureWidget* picture = form.picture(numbered("Picture", number).c_str());
    if (number != 8) picture->fill();
    picture->setMinimumSize(60, 40);
    return picture;
}

}  // namespace

void layoutFunctions(Form& form, QWidget* room, int slots) {
    QVBoxLayout* inner = column(kGroupGap);
    if (form.has("fra_Method")) inner->addLayout(methods(form));
    inner->addLayout(cards(form, slots));
    form.frame("frm_Plotstyle")->setContent(inner);
    QHBoxLayout* foot = row(kGroupGap);
    foot->addWidget(choice(form, "fra_coord", "opt_Coord", 2));
    if (form.has("fra_Style")) foot->addWidget(choice(form, "fra_Style", "opt_Plotstyle", 2));
    ways(form, foot, form.has("cmd_Cancel") ? "cmd_Cancel" : "cmd_CancelPlotData");
    QVBoxLayout* all = page(room);
    all->addWidget(form.widget("frm_Plotstyle"));
    all->addStretch(1);
    all->addLayout(foot);
}

void layoutPlotType(Form& form, QWidget* room) {
    auto* types = new QGridLayout;
    types->setSpacing(kGroupGap);
    types->addWidget(sketches(form, 0, rowOf({sketch(form, 1)})), 0, 0);
    types->addWidget(sketches(form, 1, columnOf({sketch(form, 2), sketch(form, 3)})), 0, 1);
    auto* four = new QGridLayout;
    four->setSpacing(kGap);
    for (int i = 0; i < 4; ++i) four->addWidget(sketch(form, 4 + i), i / 2, i % 2);
    types->addWidget(sketches(form, 2, four), 1, 0);
    types->addWidget(sketches(form, 3, rowOf({sketch(form, 8)})), 1, 1);
    for (int i = 0; i < 2; ++i) {
        types->setRowStretch(i, 1);
        types->setColumnStretch(i, 1);
    }
    QHBoxLayout* foot = row();
    foot->addStretch(1);
    QWidget* back = form.widget("cmd_CancelPickPlot");
    QWidget* next = forward(form.widget("cmd_PickPlotDone"));
    equalWidths({back, next});
    foot->addWidget(back);
    foot->addWidget(next);
    QVBoxLayout* all = page(room);
    all->addLayout(types, 1);
    all->addLayout(foot);
}

void layoutPrintSelect(Form& form, QWidget* room) {
    QVBoxLayout* all = page(room);
    all->addLayout(methods(form));
    all->addSpacing(kGap);
    all->addLayout(cards(form, 4));
    all->addStretch(1);
    form.frame("fra_Step")->setContentBeside(rowOf({numberBox(form.widget("cmb_Step"), 4)}));
    form.frame("fra_Decimal")->setContentBeside(rowOf({numberBox(form.widget("cmb_Decimal"), 3)}));
    QHBoxLayout* target = row(kGroupGap);
    target->addWidget(choice(form, "fra_Whereto", "opt_Whereto", 3));
    target->addWidget(form.widget("fra_Step"));
    target->addWidget(form.widget("fra_Decimal"));
    target->addStretch(1);
    all->addLayout(target);
    QHBoxLayout* foot = row(kGroupGap);
    foot->addWidget(choice(form, "fra_coord", "opt_Coord", 2));
    all->addLayout(ways(form, foot, "cmd_Cancel"));
}

}  // namespace verlink::desktop
