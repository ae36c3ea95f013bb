// Which layout places the widgets of which screen.
#pragma once

#include <string>

class QWidget;

namespace verlink::desktop {

class Form;

/// Places every widget of the form in `room`, the empty middle of the window, which it gives a layout of its own.
/// It declares no control and writes no text; desktop/grid.h has the pieces it is made of.
using Layout = void (*)(Form& form, QWidget* room);

/// The layout of a screen by name; `layoutPlain` where there is none.
Layout layoutFor(const std::string& screen);

/// All controls under one another in a scrolling column.
void layoutPlain(Form& form, QWidget* room);

void layoutCayley(Form& form, QWidget* room);
void layoutChecks(Form& form, QWidget* room);
void layoutExplore(Form& form, QWidget* room);
void layoutFFT(Form& form, QWidget* room);
void layoutBalance(Form& form, QWidget* room);
void layoutMassProp(Form& form, QWidget* room);
void layoutMatrix(Form& form, QWidget* room);
void layoutGraphs(Form& form, QWidget* room, int graphs);
void layoutAligned(Form& form, QWidget* room, int windows);
void layoutFunctions(Form& form, QWidget* room, int slots);
void layoutMyPlot4(Form& form, QWidget* room);
void layoutPlotType(Form& form, QWidget* room);
void layoutPrintData(Form& form, QWidget* room);
void layoutPrintSelect(Form& form, QWidget* room);
void layoutAbout(Form& form, QWidget* room);
void layoutAnimate(Form& form, QWidget* room);
void layoutHelp(Form& form, QWidget* room);
void layoutHomeScreen(Form& form, QWidget* room);
void layoutInputnew(Form& form, QWidget* room);
void layoutQuit(Form& form, QWidget* room);
void layoutReport(Form& form, QWidget* room);
void layoutStudies(Form& form, QWidget* room);
void layoutSynth2A(Form& form, QWidget* room);
void layoutSynth2B(Form& form, QWidget* room);
void layoutSynth3(Form& form, QWidget* room);
void layoutTitle(Form& form, QWidget* room);
void layoutUser(Form& form, QWidget* room);

}  // namespace verlink::desktop
