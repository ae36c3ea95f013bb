// How the synthesis screens sit: the diagram in the middle, given data above it, a dyad at each side, results under
// each; and the Cayley diagram beside what it tells.
#include <QLabel>

#include "desktop/diagram_pane.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/layouts_linkage.h"
#include "desktop/layouts_output.h"
#include "desktop/picture_widget.h"

namespace verlink::desktop {

namespace {

/// A row of a group: the entries of `lbl_Name` and of its unit, Label13 or lbl_Length, and the box between them.
struct Line {
    int name;
    QWidget* box;
    const char* unit;
    int unit_index;
};

QWidget* framed(Form& form, const char* frame, std::initializer_list<Line> lines, int index = platform::kNoIndex) {
    NumberRows rows;
    for (const Line& line : lines)
        rows.add(form.widget("lbl_Name", line.name), line.box, form.widget(line.unit, line.unit_index));
    form.frame(frame, index)->setContent(rows.layout());
    return form.widget(frame, index);
}

QWidget* valueOf(Form& form, const char* label, int index) { return readOut(form.widget(label, index), 9); }

/// Two components side by side with one unit.
void addPair(Form& form, QHBoxLayout* line, int x, const char* x_box, int y, const char* y_box, int unit) {
    for (const auto& [name, box_name] : {std::pair{x, x_box}, std::pair{y, y_box}}) {
        QWidget* box = numberBox(form.widget(box_name), 8);
        line->addWidget(labelOf(form.widget("lbl_Name", name), box));
        line->addWidget(box);
    }
    line->addWidget(form.widget("lbl_Length", unit));
}

void addTurn(Form& form, QHBoxLayout* line, int name, const char* box_name, int unit) {
    QWidget* box = numberBox(form.widget(box_name), 8);
    line->addWidget(labelOf(form.widget("lbl_Name", name), box));
    line->addWidget(box);
    line->addWidget(form.widget("Label13", unit));
}

/// The title, the given data and the button that computes from them.
QLayout* head(Form& form, QLayout* given) {
    form.frame("fra_Given")->setContent(given);
    QHBoxLayout* all = row(kGroupGap);
    all->addWidget(form.widget("fra_Given"));
    all->addWidget(form.widget("cmd_Calc"), 0, Qt::AlignVCenter);
    all->addStretch(1);
    all->addWidget(note(form.widget("lbl_Header")), 0, Qt::AlignTop | Qt::AlignRight);
    return all;
}

QWidget* groundAngle(Form& form) {
    return framed(form, "fra_Ground", {{13, valueOf(form, "lbl_Theta1", 0), "Label13", 8}});
}

struct Pair {
    int symbol;
    const char* value;
};

QWidget* diagram(Form& form, std::initializer_list<Pair> more) {
    PictureWidget* picture = form.picture("Image1");
    picture->setMinimumSize(420, 420);
    auto* pane = new DiagramPane(picture, form.centralWidget());
    for (const char* name : {"lbl_Wmag", "lbl_Zmag", "lbl_Umag", "lbl_Smag"}) form.widget(name, 1);
    const Pair pairs[] = {{5, nullptr},        {6, nullptr},       {7, nullptr},      {8, nullptr},
                          {0, "lbl_Wmag_1"},   {1, "lbl_Zmag_1"},  {2, "lbl_Umag_1"}, {3, "lbl_Smag_1"},
                          {4, "lbl_P21mag"},   {9, "lbl_Theta"},   {10, "lbl_Phi"},   {11, "lbl_Sigma"},
                          {12, "lbl_Xi"},      {13, "lbl_Alpha2"}, {14, "lbl_Beta2"}, {15, "lbl_Gamma2"},
                          {16, "lbl_Theta1_1"}};
    const auto add = [&](const Pair& pair) {
        pane->add(form.widget("lbl_Symbol", pair.symbol), pair.value ? form.widget(pair.value) : nullptr);
    };
    for (const Pair& pair : pairs) add(pair);
    for (const Pair& pair : more) add(pair);
    return pane;
}

/// The whole window.
void put(Form& form, QWidget* room, QLayout* given, QLayout* left, std::initializer_list<Pair> marks, QLayout* right) {
    QVBoxLayout* all = page(room);
    all->addLayout(head(form, given));
    QHBoxLayout* columns = row(kGroupGap);
    columns->addLayout(left);
    QVBoxLayout* middle = column(4);
    middle->addWidget(diagram(form, marks), 1);
    middle->addWidget(collapse(note(form.widget("lbl_Reach"), true)));
    columns->addLayout(middle, 1);
    columns->addLayout(right);
    all->addLayout(columns, 1);
    QHBoxLayout* foot = row();
    foot->addWidget(note(form.widget("lbl_Scale")));
    constexpr int kWays = 4;
    QWidget* explore = form.widget("cmd_Explore");
    addWays(form, foot, "cmd_Print", "cmd_Cancel", "cmd_Done");
    foot->insertWidget(foot->count() - kWays, explore, 0, Qt::AlignVCenter);
    all->addLayout(foot);
}

QVBoxLayout* side(std::initializer_list<QWidget*> frames) {
    QVBoxLayout* all = columnOf(frames, 12);
    all->addStretch(1);
    return all;
}

QHBoxLayout* givenOfTwo(Form& form) {
    QHBoxLayout* given = row();
    addPair(form, given, 0, "txt_P21x", 1, "txt_P21y", 1);
    given->addSpacing(kGroupGap);
    addTurn(form, given, 2, "txt_Alpha2", 1);
    return given;
}

}  // namespace

void layoutSynth2A(Form& form, QWidget* room) {
    QHBoxLayout* given = givenOfTwo(form);
    QVBoxLayout* left = side({framed(form, "fra_Left",
                                     {{3, form.widget("txt_Theta"), "Label13", 2},
                                      {4, form.widget("txt_Beta2"), "Label13", 3},
                                      {5, form.widget("txt_Phi"), "Label13", 4}}),
                              framed(form, "fra_LeftCalc",
                                     {{9, valueOf(form, "lbl_Wmag", 0), "lbl_Length", 2},
                                      {10, valueOf(form, "lbl_Zmag", 0), "lbl_Length", 3}}),
                              groundAngle(form)});
    QVBoxLayout* right = side({framed(form, "fra_Right",
                                      {{6, form.widget("txt_Sigma"), "Label13", 5},
                                       {7, form.widget("txt_Gamma2"), "Label13", 6},
                                       {8, form.widget("txt_Xi"), "Label13", 7}}),
                               framed(form, "fra_RightCalc",
                                      {{11, valueOf(form, "lbl_Umag", 0), "lbl_Length", 4},
                                       {12, valueOf(form, "lbl_Smag", 0), "lbl_Length", 5}})});
    put(form, room, given, left, {{17, "lbl_Delta"}}, right);
}

void layoutSynth2B(Form& form, QWidget* room) {
    QHBoxLayout* given = givenOfTwo(form);
    QVBoxLayout* left =
        side({framed(form, "fra_Left",
                     {{10, form.widget("txt_Zmag"), "lbl_Length", 3},
                      {5, form.widget("txt_Phi"), "Label13", 4},
                      {4, form.widget("txt_Beta2"), "Label13", 3}}),
              framed(form, "fra_LeftCalc",
                     {{3, form.widget("txt_Theta"), "Label13", 2}, {9, form.widget("txt_Wmag"), "lbl_Length", 2}}),
              groundAngle(form)});
    QVBoxLayout* right =
        side({framed(form, "fra_Right",
                     {{12, form.widget("txt_Smag"), "lbl_Length", 5},
                      {7, form.widget("txt_Gamma2"), "Label13", 6},
                      {8, form.widget("txt_Xi"), "Label13", 7}}),
              framed(form, "fra_RightCalc",
                     {{6, form.widget("txt_Sigma"), "Label13", 5}, {11, form.widget("txt_Umag"), "lbl_Length", 4}})});
    put(form, room, given, left, {{17, "lbl_Delta"}}, right);
}

namespace {

/// A point of three positions: x and y over one unit.
QWidget* point(Form& form, int frame, const char* boxes, int name, int unit) {
    QHBoxLayout* line = row(6);
    for (int i = 0; i < 2; ++i) {
        QWidget* box = numberBox(form.widget(boxes, i), 7);
        line->addWidget(labelOf(form.widget("lbl_Name", name + i), box));
        line->addWidget(box);
    }
    line->addWidget(form.widget("lbl_Length", unit));
    form.frame("fra_Pivot", frame)->setContent(line);
    return form.widget("fra_Pivot", frame);
}

QWidget* linkLengths(Form& form) {
    NumberRows rows;
    for (int i = 0; i <= 5; ++i)
        rows.add(form.widget("lbl_Link", i), form.widget("txt_Linkout", i),
                 i == 5 ? form.widget("lbl_Degrees", 5) : form.widget("lbl_Units", i), 8);
    form.frame("fra_Links")->setContent(rows.layout());
    return form.widget("fra_Links");
}

}  // namespace

void layoutSynth3(Form& form, QWidget* room) {
    QHBoxLayout* given = row();
    addPair(form, given, 0, "txt_P21x", 1, "txt_P21y", 1);
    addTurn(form, given, 2, "txt_Alpha2", 1);
    given->addSpacing(kGroupGap);
    addPair(form, given, 14, "txt_P31x", 15, "txt_P31y", 6);
    addTurn(form, given, 16, "txt_Alpha3", 9);
    QVBoxLayout* left =
        side({framed(form, "fra_Left",
                     {{4, form.widget("txt_Beta2"), "Label13", 3}, {17, form.widget("txt_Beta3"), "Label13", 10}}),
              point(form, 0, "txt_O2", 19, 7), point(form, 2, "txt_P1", 23, 9),
              framed(form, "fra_LeftCalc",
                     {{9, valueOf(form, "lbl_Wmag", 0), "lbl_Length", 2},
                      {3, valueOf(form, "lbl_Direction", 0), "Label13", 2},
                      {10, valueOf(form, "lbl_Zmag", 0), "lbl_Length", 3},
                      {5, valueOf(form, "lbl_Direction", 1), "Label13", 4}}),
              groundAngle(form)});
    QVBoxLayout* right =
        side({framed(form, "fra_Right",
                     {{7, form.widget("txt_Gamma2"), "Label13", 6}, {18, form.widget("txt_Gamma3"), "Label13", 11}}),
              point(form, 1, "txt_O4", 21, 8),
              framed(form, "fra_RightCalc",
                     {{11, valueOf(form, "lbl_Umag", 0), "lbl_Length", 4},
                      {6, valueOf(form, "lbl_Direction", 2), "Label13", 5},
                      {12, valueOf(form, "lbl_Smag", 0), "lbl_Length", 5},
                      {8, valueOf(form, "lbl_Direction", 3), "Label13", 7}}),
              linkLengths(form)});
    put(form, room, given, left,
        {{17, nullptr},
         {18, "lbl_P31mag"},
         {19, "lbl_Alpha3"},
         {20, "lbl_Beta3"},
         {21, "lbl_Gamma3"},
         {22, "lbl_Delta2"},
         {23, "lbl_Delta3"}},
        right);
}

void layoutCayley(Form& form, QWidget* room) {
    PictureWidget* picture = form.picture("Picture1");
    picture->setMinimumSize(460, 460);
    auto* pane = new DiagramPane(picture, form.centralWidget());
    for (int i = 0; i < 4; ++i) pane->add(form.widget("lbl_Point", i));
    for (int i = 0; i < 3; ++i) pane->add(form.widget("pnl_CogLabel", i));

    form.frame("fra_Cognate")
        ->setContent(
            columnOf({form.widget("opt_Cognate", 0), form.widget("opt_Cognate", 1), form.widget("opt_Cognate", 2)}, 4));
    form.frame("fra_Grashof")->setContent(rowOf({form.widget("Pnl_Grashof")}));
    QVBoxLayout* told = side({form.widget("fra_Cognate"), linkLengths(form), form.widget("fra_Grashof")});

    QHBoxLayout* columns = row(kGroupGap);
    columns->addWidget(pane, 1);
    columns->addLayout(told);
    QHBoxLayout* foot = row();
    foot->addStretch(1);
    foot->addWidget(form.widget("cmd_Redraw"));
    foot->addWidget(forward(form.widget("cmd_Done")));
    equalWidths({form.widget("cmd_Redraw"), form.widget("cmd_Done")});
    QVBoxLayout* all = page(room);
    all->addLayout(columns, 1);
    all->addLayout(foot);
}

}  // namespace verlink::desktop
