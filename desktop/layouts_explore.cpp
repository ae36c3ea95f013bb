// How the screen of linkages found sits: the task at the left, the chosen one in the middle, the gallery at the right.
#include <QLabel>

#include "desktop/diagram_pane.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

constexpr int kTaskDigits = 8, kPositions = 5;

QWidget* positions(Form& form) {
    auto* grid = new QGridLayout;
    grid->setSpacing(kGap / 2);
    for (int i = 0; i < 3; ++i) grid->addWidget(note(form.widget("lbl_Head", i)), 1, i + 1, Qt::AlignHCenter);
    for (int i = 1; i <= kPositions; ++i) {
        QWidget* x = numberBox(form.widget("txt_X", i), kTaskDigits);
        grid->addWidget(labelOf(form.widget("lbl_Position", i), x), i + 1, 0);
        grid->addWidget(x, i + 1, 1);
        grid->addWidget(numberBox(form.widget("txt_Y", i), kTaskDigits), i + 1, 2);
        grid->addWidget(numberBox(form.widget("txt_Angle", i), kTaskDigits), i + 1, 3);
    }
    QHBoxLayout* how = row();
    how->addWidget(numberBox(form.widget("cmb_Count"), 2));
    how->addWidget(form.widget("opt_Relative", 0));
    how->addWidget(form.widget("opt_Relative", 1));
    how->addStretch(1);
    how->addWidget(form.widget("cmd_Paste"));
    QVBoxLayout* all = column();
    all->addLayout(how);
    all->addLayout(grid);
    form.frame("fra_Positions")->setContent(all);
    return form.widget("fra_Positions");
}

QWidget* limits(Form& form) {
    auto* grid = new QGridLayout;
    grid->setSpacing(kGap / 2);
    int line = 0;
    const auto add = [&](QWidget* label, QWidget* box) {
        grid->addWidget(labelOf(label, box), line, 0);
        grid->addWidget(box, line++, 1);
    };
    for (int i = 0; i < 4; ++i) add(form.widget("lbl_Area", i), textBox(form.widget("txt_Area", i), 12));
    for (int i = 0; i < 3; ++i) {
        QWidget* box = numberBox(form.widget("txt_Limit", i), kTaskDigits);
        grid->addWidget(labelOf(form.widget("lbl_Limit", i), box), line, 0);
        QHBoxLayout* value = rowOf({box, form.widget("lbl_Unit", i)});
        value->addStretch(1);
        grid->addLayout(value, line++, 1);
    }
    add(form.widget("lbl_Drive"), textBox(form.widget("cmb_Drive"), 10));
    grid->addWidget(form.widget("chk_FullTurn"), line, 0, 1, 2);
    form.frame("fra_Limits")->setContent(grid);
    return form.widget("fra_Limits");
}

QWidget* weights(Form& form) {
    auto* grid = new QGridLayout;
    grid->setSpacing(kGap / 2);
    for (int i = 0; i < 4; ++i) {
        QWidget* bar = form.widget("hsc_Weight", i);
        grid->addWidget(labelOf(form.widget("lbl_Weight", i), bar), i, 0);
        grid->addWidget(bar, i, 1);
    }
    grid->setColumnStretch(1, 1);
    form.frame("fra_Weights")->setContent(grid);
    return form.widget("fra_Weights");
}

QLayout* map(Form& form) {
    constexpr int kSide = 170;
    PictureWidget* picture = form.picture("pic_Map");
    picture->setFixedSize(kSide, kSide);
    QVBoxLayout* which = column();
    which->addWidget(form.widget("lbl_Map"));
    which->addWidget(textBox(form.widget("cmb_Map"), 14));
    which->addWidget(form.widget("chk_Curves"));
    which->addStretch(1);
    QWidget* told = note(form.widget("lbl_Told"), true);
    told->setMinimumHeight(3 * told->fontMetrics().lineSpacing());
    which->addWidget(told);
    QHBoxLayout* all = row();
    all->addWidget(picture);
    all->addLayout(which, 1);
    return all;
}

QWidget* numberedPicture(Form& form) {
    constexpr int kLeast = 340;
    PictureWidget* picture = form.picture("Picture1");
    picture->setMinimumSize(kLeast, kLeast);
    auto* pane = new DiagramPane(picture, form.centralWidget());
    for (int i = 1; i <= kPositions; ++i) pane->add(form.widget("lbl_Number", i));
    return pane;
}

QLayout* chosen(Form& form) {
    QHBoxLayout* stroke = row();
    stroke->addWidget(form.widget("hsc_Stroke"), 1);
    stroke->addWidget(form.widget("cmd_Play"));
    QVBoxLayout* all = column();
    all->addWidget(numberedPicture(form), 1);
    all->addLayout(stroke);
    all->addWidget(note(form.widget("lbl_Stroke")));
    all->addLayout(map(form));
    return all;
}

QLayout* filter(Form& form) {
    QHBoxLayout* kinds = row();
    QWidget* kind = textBox(form.widget("cmb_Class"), 12);
    kinds->addWidget(labelOf(form.widget("lbl_Show"), kind));
    kinds->addWidget(kind, 1);
    kinds->addWidget(textBox(form.widget("cmb_Circuit"), 8));
    QHBoxLayout* least = row();
    QWidget* box = numberBox(form.widget("txt_Least"), 4);
    least->addWidget(labelOf(form.widget("lbl_Least"), box));
    least->addWidget(box);
    least->addWidget(form.widget("lbl_LeastUnit"));
    least->addStretch(1);
    least->addWidget(form.widget("chk_ThrownOut"));
    QHBoxLayout* order = row();
    order->addWidget(labelOf(form.widget("lbl_Sort"), form.widget("cmb_Sort")));
    order->addWidget(form.widget("cmb_Sort"), 1);
    QVBoxLayout* all = column();
    all->addLayout(order);
    all->addLayout(kinds);
    all->addLayout(least);
    return all;
}

QLayout* gallery(Form& form) {
    constexpr int kLeast = 120, kColumns = 2;
    auto* grid = new QGridLayout;
    grid->setSpacing(kGap);
    for (int i = 0; form.has("pic_Found", i); ++i) {
        PictureWidget* picture = form.picture("pic_Found", i);
        picture->setMinimumSize(kLeast, kLeast);
        QWidget* told = note(form.widget("lbl_Found", i), true);
        told->setMinimumHeight(2 * told->fontMetrics().lineSpacing());
        QVBoxLayout* one = column(2);
        one->addWidget(picture, 1);
        one->addWidget(told);
        grid->addLayout(one, i / kColumns, i % kColumns);
    }
    for (int i = 0; i < kColumns; ++i) grid->setColumnStretch(i, 1);
    QHBoxLayout* pages = row();
    pages->addStretch(1);
    pages->addWidget(form.widget("cmd_Earlier"));
    pages->addWidget(form.widget("lbl_Page"));
    pages->addWidget(form.widget("cmd_Later"));
    QVBoxLayout* all = column();
    all->addLayout(filter(form));
    all->addLayout(grid, 1);
    all->addLayout(pages);
    return all;
}

}  // namespace

void layoutExplore(Form& form, QWidget* room) {
    QVBoxLayout* task = columnOf({positions(form), limits(form), weights(form)});
    task->addStretch(1);
    QHBoxLayout* columns = row(kGroupGap);
    columns->addLayout(task);
    columns->addLayout(chosen(form), 3);
    columns->addLayout(gallery(form), 2);
    QHBoxLayout* foot = row();
    QWidget* progress = note(form.widget("lbl_Progress"), true);
    progress->setMinimumHeight(2 * progress->fontMetrics().lineSpacing());
    foot->addWidget(progress, 1);
    QWidget* search = form.widget("cmd_Search");
    QWidget* stop = form.widget("cmd_Stop");
    QWidget* back = form.widget("cmd_Cancel");
    QWidget* use = forward(form.widget("cmd_Use"));
    equalWidths({search, stop, back, use});
    for (QWidget* button : {search, stop, form.widget("cmd_Choices"), back, use}) foot->addWidget(button);
    QVBoxLayout* all = page(room);
    all->addLayout(columns, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
