// How the screen of studies sits: what moves and what is measured at the left, what it comes to in the middle, the
// linkage at the right.
#include <QComboBox>
#include <QLabel>
#include <algorithm>

#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

constexpr int kTight = 4, kStudyDigits = 6, kSweeps = 2, kTolerances = 6;

/// A list or a box that takes the room there is, however long its entries are.
QWidget* elastic(QWidget* widget, int letters) {
    const int least = letters * widget->fontMetrics().averageCharWidth() + 2 * kInset;
    if (auto* combo = qobject_cast<QComboBox*>(widget)) {
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(letters);
    } else {
        widget->setMinimumWidth(least);
    }
    widget->setSizePolicy(QSizePolicy::Expanding, widget->sizePolicy().verticalPolicy());
    return widget;
}

QWidget* unitLabel(QWidget* label) {
    // As wide as the longest unit, so that nothing moves when another comes.
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(QStringLiteral("rad/s")));
    return label;
}

QWidget* sweeps(Form& form) {
    auto* grid = new QGridLayout;
    grid->setSpacing(kTight);
    constexpr int kUnit = 3, kCount = 4;
    const int columns[] = {0, 1, 2, kCount};
    for (int i = 0; i < 4; ++i) grid->addWidget(note(form.widget("lbl_SweepHead", i)), 0, columns[i]);
    for (int row = 1; row <= kSweeps; ++row) {
        grid->addWidget(elastic(form.widget("cmb_Sweep", row), 7), row, 0);
        grid->addWidget(numberBox(form.widget("txt_From", row), kStudyDigits), row, 1);
        grid->addWidget(numberBox(form.widget("txt_To", row), kStudyDigits), row, 2);
        grid->addWidget(unitLabel(form.widget("lbl_SweepUnit", row)), row, kUnit);
        grid->addWidget(numberBox(form.widget("txt_Count", row), 4), row, kCount);
    }
    grid->setColumnStretch(0, 1);
    form.frame("fra_Sweep")->setContent(grid);
    return collapse(form.widget("fra_Sweep"));
}

QWidget* tolerances(Form& form) {
    auto* grid = new QGridLayout;
    grid->setSpacing(kTight);
    for (int i = 0; i < 4; ++i) grid->addWidget(note(form.widget("lbl_ToleranceHead", i)), 0, i);
    for (int row = 1; row <= kTolerances; ++row) {
        grid->addWidget(elastic(form.widget("cmb_Tolerance", row), 7), row, 0);
        grid->addWidget(numberBox(form.widget("txt_PlusMinus", row), kStudyDigits), row, 1);
        grid->addWidget(unitLabel(form.widget("lbl_ToleranceUnit", row)), row, 2);
        grid->addWidget(elastic(form.widget("cmb_Spread", row), 6), row, 3);
    }
    grid->setColumnStretch(0, 1);
    QHBoxLayout* random = row();
    for (const char* name : {"Samples", "Seed"}) {
        QWidget* box = numberBox(form.widget((std::string("txt_") + name).c_str()), 9);
        random->addWidget(labelOf(form.widget((std::string("lbl_") + name).c_str()), box));
        random->addWidget(box);
    }
    random->addStretch(1);
    QVBoxLayout* all = column(kTight);
    all->addLayout(grid);
    all->addLayout(random);
    form.frame("fra_Tolerance")->setContent(all);
    return collapse(form.widget("fra_Tolerance"));
}

QWidget* choice(Form& form, int index) {
    auto* grid = new QGridLayout;
    grid->setSpacing(kTight);
    grid->addWidget(elastic(form.widget("cmb_Statistic", index), 9), 0, 0);
    grid->addWidget(numberBox(form.widget("txt_Angle", index), kStudyDigits), 0, 1);
    grid->addWidget(elastic(form.widget("cmb_Variable", index), 9), 1, 0);
    grid->addWidget(elastic(form.widget("cmb_Component", index), 4), 1, 1);
    int line = 2;
    if (form.has("cmb_Order", index)) {
        grid->addWidget(elastic(form.widget("cmb_Order", index), 3), line, 0);
        grid->addWidget(numberBox(form.widget("txt_Bound", index), kStudyDigits), line++, 1);
    }
    QHBoxLayout* words = row(kTight);
    words->addWidget(elastic(form.widget("txt_Words", index), 16), 1);
    if (index == 0) words->addWidget(form.widget("cmb_Frame"));
    grid->addLayout(words, line, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    const char* frame = index == 0 ? "fra_Measure" : "fra_Keep";
    form.frame(frame)->setContent(grid);
    return form.widget(frame);
}

QLayout* settings(Form& form) {
    form.frame("fra_Study")->setContentBeside(rowOf({form.widget("opt_Kind", 0), form.widget("opt_Kind", 1)}));
    QVBoxLayout* all =
        columnOf({form.widget("fra_Study"), sweeps(form), tolerances(form), choice(form, 0), choice(form, 1)});
    all->addStretch(1);
    return all;
}

/// A quiet text that keeps the place of so many lines.
QWidget* told(Form& form, const char* label, int lines) {
    QWidget* words = note(form.widget(label), true);
    words->setMinimumHeight(lines * words->fontMetrics().lineSpacing());
    static_cast<QLabel*>(words)->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    return words;
}

QLayout* found(Form& form) {
    constexpr int kLeast = 350;
    QVBoxLayout* plots = column();
    for (const char* plot : {"grf_Sweep", "map_Sweep"}) plots->addWidget(collapse(form.widget(plot)), 1);
    plots->addWidget(collapse(form.widget("his_Spread")), 3);
    plots->addWidget(collapse(form.widget("bar_Share")), 2);
    // Where nothing was found yet, their place stays empty.
    QWidget* place = around(form.widget("grf_Sweep")->parentWidget(), plots);
    place->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    place->setMinimumWidth(kLeast);
    QVBoxLayout* all = column(kTight);
    all->addWidget(place, 1);
    all->addWidget(told(form, "lbl_Told", 2));
    all->addWidget(told(form, "lbl_Picked", 2));
    QHBoxLayout* pick = row();
    for (const char* button : {"cmd_Before", "cmd_After"}) {
        QWidget* step = form.widget(button);
        step->setMaximumWidth(step->fontMetrics().horizontalAdvance(QStringLiteral("<")) + 4 * kInset);
        pick->addWidget(step);
    }
    pick->addWidget(form.widget("cmd_Take"));
    pick->addStretch(1);
    all->addLayout(pick);
    return all;
}

QLayout* mechanism(Form& form) {
    constexpr int kLeast = 300;
    PictureWidget* picture = form.picture("Picture1");
    picture->setMinimumSize(kLeast, kLeast);
    QVBoxLayout* all = column();
    all->addWidget(picture, 1);
    all->addWidget(form.widget("hsc_Step"));
    all->addWidget(told(form, "lbl_Step", 3));
    return all;
}

}  // namespace

void layoutStudies(Form& form, QWidget* room) {
    QHBoxLayout* columns = row(kGroupGap);
    constexpr int kSettings = 324;
    QWidget* left = around(room, settings(form));
    left->setFixedWidth(std::max(kSettings, left->minimumSizeHint().width()));
    columns->addWidget(left);
    columns->addLayout(found(form), 5);
    columns->addLayout(mechanism(form), 4);
    QHBoxLayout* foot = row();
    QVBoxLayout* words = column(0);
    words->addWidget(told(form, "lbl_Fault", 1));
    words->addWidget(told(form, "lbl_Progress", 1));
    foot->addLayout(words, 1);
    QWidget* start = forward(form.widget("cmd_Start"));
    QWidget* stop = form.widget("cmd_Stop");
    QWidget* back = form.widget("cmd_Cancel");
    equalWidths({back, stop, start});
    for (QWidget* button : {back, stop, start}) foot->addWidget(button);
    QVBoxLayout* all = page(room);
    all->addLayout(columns, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
