// How the plots sit: graphs in their mount, aligned windows above one another, the polar plot.
#include <QLabel>

#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/layouts.h"
#include "desktop/layouts_output.h"
#include "desktop/picture_widget.h"
#include "desktop/plot_pane.h"

namespace verlink::desktop {

namespace {

constexpr int kMount = 2;  ///< pixels of the mount around a graph

/// What one window of an aligned plot shows, at its left: the function, and its extremes.
QLayout* aside(Form& form, int window) {
    auto* name = static_cast<QLabel*>(title(form.widget("pnl_LeftTitle", window)));
    name->setWordWrap(true);
    QHBoxLayout* what = rowOf({form.widget("pnl_Comp", window), note(form.widget("pnl_PlotUnits", window))}, 6);
    what->addStretch(1);
    auto* extremes = new QGridLayout;
    extremes->setContentsMargins(0, 0, 0, 0);
    extremes->setHorizontalSpacing(kGap);
    extremes->setVerticalSpacing(0);
    constexpr const char* kRows[][2] = {
        {"lbl_MaxName", "lbl_Max"}, {"lbl_MinName", "lbl_Min"}, {"lbl_PtoPName", "lbl_Peak"}};
    extremes->addWidget(note(form.widget("lbl_PeakName", window)), 0, 0, 1, 2);
    for (int i = 0; i < 3; ++i) {
        auto* value = form.get<QLabel>(kRows[i][1], window);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        extremes->addWidget(note(form.widget(kRows[i][0], window)), i + 1, 0);
        extremes->addWidget(value, i + 1, 1);
    }
    extremes->setColumnStretch(1, 1);
    QVBoxLayout* all = column(2);
    all->addWidget(name);
    all->addLayout(what);
    all->addLayout(extremes);
    all->addStretch(1);
    return all;
}

/// Parts of the picture's width and height at which the axes lie.
struct Margins {
    double left, right, top, bottom;  ///< in spans of x beside the axes, and in half heights
};
constexpr Margins kOfTwo{0.16, 0.04, 1.14, 1.4};
constexpr Margins kOfFour{0.18, 0.04, 1.15, 1.7};

/// The picture of a window, with the numbers at their places along the axes.
QWidget* alignedWindow(Form& form, int window, const Margins& margins) {
    PictureWidget* picture = form.picture("pct_Plot", window);
    picture->fill();
    picture->setMinimumSize(320, 100);
    auto* pane = new PlotPane(picture, form.centralWidget());
    const double wide = margins.left + 1 + margins.right, high = margins.top + margins.bottom;
    const auto x = [&](double part) { return (margins.left + part) / wide; };
    const auto y = [&](double value) { return (margins.top - value) / high; };
    pane->add(form.get<QLabel>("pnl_Ymax", window), x(-0.02), y(1), PlotPane::Side::kLeft);
    pane->add(form.get<QLabel>("pnl_zero", window), x(-0.02), y(0), PlotPane::Side::kLeft);
    pane->add(form.get<QLabel>("pnl_Ymin", window), x(-0.02), y(-1), PlotPane::Side::kLeft);
    const char* quarters[] = {"pnl_Xmin", "pnl_X1", "pnl_X2", "pnl_X3", "pnl_Xmax"};
    for (int i = 0; i < 5; ++i)
        pane->add(form.get<QLabel>(quarters[i], window), x(0.25 * i), y(-1), PlotPane::Side::kBelow);
    pane->add(form.get<QLabel>("pnl_BottomTitle", window), x(0.5), 1, PlotPane::Side::kAbove);
    return pane;
}

/// The plots with the summary at their side, and under them what else is chosen and the ways out.
void setBesideSummary(Form& form, QWidget* room, QLayout* plots, QWidget* (*choices)(Form&)) {
    QHBoxLayout* middle = row();
    middle->addLayout(plots, 1);
    middle->addWidget(foldingSummary(form));
    QHBoxLayout* foot = row();
    foot->addWidget(form.widget("cmd_Replot"));
    addWays(form, foot, "cmd_PlotPrint", "cmd_Back", "cmd_PlotDone");
    QVBoxLayout* all = page(room);
    all->addLayout(headerStrip(form));
    all->addLayout(middle, 1);
    if (choices) all->addWidget(choices(form));
    all->addLayout(foot);
}

/// What is shown and, while paused, of which step: one strip under the plot.
QWidget* polarChoices(Form& form) {
    QHBoxLayout* all = row();
    for (const char* name : {"chk_Envelope", "chk_Vectors", "chk_Pause", "cmd_Step"}) all->addWidget(form.widget(name));
    all->addSpacing(kGap);
    const auto add = [&](QWidget* name, QWidget* value, QWidget* unit) {
        all->addWidget(name);
        all->addWidget(readOut(value, 8));
        if (unit) all->addWidget(unit);
        all->addSpacing(4);
    };
    add(form.widget("lbl_StepLabel"), form.widget("lbl_StepNumber"), form.widget("lbl_StepUnit"));
    add(form.widget("pnl_name", 0), form.widget("pnl_vector", 0), form.widget("pnl_PlotUnits"));
    add(form.widget("pnl_name", 1), form.widget("pnl_vector", 1), nullptr);
    all->addStretch(1);
    return strip(form, "fra_Show", all);
}

}  // namespace

void layoutGraphs(Form& form, QWidget* room, int graphs) {
    auto* windows = new QGridLayout;
    windows->setSpacing(kMount);
    for (int i = 0; i < graphs; ++i)
        windows->addWidget(form.widget("grf_Plot", i), graphs == 4 ? i / 2 : i, graphs == 4 ? i % 2 : 0);
    form.frame("pct_Frame")->setMounted(windows, kMount);

    QHBoxLayout* middle = row();
    middle->addWidget(form.widget("pct_Frame"), 1);
    middle->addWidget(foldingSummary(form));

    QHBoxLayout* foot = row();
    foot->addWidget(strip(form, "fra_Grid", rowOf({form.widget("chk_HGrid"), form.widget("chk_VGrid")})));
    foot->addWidget(strip(form, "fra_Style", rowOf({form.widget("chk_Line"), form.widget("chk_Sticks")})));
    foot->addWidget(strip(form, "fra_Back",
                          rowOf({form.widget("opt_Back", 0), form.widget("opt_Back", 1), form.widget("opt_Back", 2)})));
    addWays(form, foot, "cmd_PlotPrint", "cmd_Replot", "cmd_Done");

    QVBoxLayout* all = page(room);
    all->addLayout(headerStrip(form));
    all->addLayout(middle, 1);
    all->addLayout(foot);
}

void layoutAligned(Form& form, QWidget* room, int windows) {
    auto* plots = new QGridLayout;
    plots->setHorizontalSpacing(kGap);
    plots->setVerticalSpacing(kGap - 2);
    plots->setColumnMinimumWidth(0, 124);
    plots->setColumnStretch(1, 1);
    for (int i = 0; i < windows; ++i) {
        plots->addLayout(aside(form, i), i, 0);
        plots->addWidget(alignedWindow(form, i, windows == 2 ? kOfTwo : kOfFour), i, 1);
        plots->setRowStretch(i, 1);
    }
    setBesideSummary(form, room, plots, nullptr);
}

void layoutMyPlot4(Form& form, QWidget* room) {
    PictureWidget* picture = form.picture("pct_Plot");
    picture->setMinimumSize(360, 360);
    auto* pane = new PlotPane(picture, form.centralWidget());
    constexpr double kAcross = 1.1, kDown = 1.115;
    const auto x = [](double part) { return (kAcross + part) / (2 * kAcross); };
    const auto y = [](double part) { return (kDown - part) / (2 * kDown); };
    pane->add(form.get<QLabel>("pnl_Xmin"), x(-1), y(-0.02), PlotPane::Side::kBelow);
    pane->add(form.get<QLabel>("pnl_Xmax"), x(1), y(-0.02), PlotPane::Side::kBelow);
    pane->add(form.get<QLabel>("pnl_Ymax"), x(0.02), y(1), PlotPane::Side::kRight);
    pane->add(form.get<QLabel>("pnl_Ymin"), x(0.02), y(-1), PlotPane::Side::kRight);
    pane->add(form.get<QLabel>("pnl_zero"), x(-0.02), y(-0.035), PlotPane::Side::kLeft);
    pane->add(form.get<QLabel>("pnl_Comp", 0), x(1.02), y(0.04), PlotPane::Side::kRight);
    pane->add(form.get<QLabel>("pnl_Comp", 1), x(-0.03), y(1.03), PlotPane::Side::kLeft);

    auto* name = static_cast<QLabel*>(title(form.widget("pnl_LeftTitle")));
    name->setAlignment(Qt::AlignCenter);
    QVBoxLayout* drawing = column(4);
    drawing->addWidget(name);
    drawing->addWidget(pane, 1);
    setBesideSummary(form, room, drawing, polarChoices);
}

}  // namespace verlink::desktop
