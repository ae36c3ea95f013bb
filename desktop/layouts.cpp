// The layouts by name, and the one for screens that have none.
#include "desktop/layouts.h"

#include <QScrollArea>
#include <QVBoxLayout>
#include <map>

#include "desktop/form.h"
#include "desktop/grid.h"

namespace verlink::desktop {

namespace {

/// A layout of so many parts of a kind.
template <auto layout, int parts>
void parted(Form& form, QWidget* room) {
    layout(form, room, parts);
}

}  // namespace

Layout layoutFor(const std::string& screen) {
    static const std::map<std::string, Layout> layouts{
        {"frm_About", layoutAbout},
        {"frm_Animate", layoutAnimate},
        {"frm_Balance", layoutBalance},
        {"frm_Help", layoutHelp},
        {"frm_HomeScreen", layoutHomeScreen},
        {"frm_Inputnew", layoutInputnew},
        {"frm_MassProp", layoutMassProp},
        {"frm_Matrix", layoutMatrix},
        {"frm_Quit", layoutQuit},
        {"frm_FFT", layoutFFT},
        {"frm_Myplot2", parted<layoutAligned, 2>},
        {"frm_MyPlot3", parted<layoutAligned, 4>},
        {"frm_MyPlot4", layoutMyPlot4},
        {"frm_Plot1", parted<layoutGraphs, 1>},
        {"frm_Plot2", parted<layoutGraphs, 2>},
        {"frm_Plot3", parted<layoutGraphs, 4>},
        {"frm_PlotSelect1", parted<layoutFunctions, 4>},
        {"frm_PlotSelect2", parted<layoutFunctions, 2>},
        {"frm_PlotSelect3", parted<layoutFunctions, 4>},
        {"frm_PlotSelect4", parted<layoutFunctions, 1>},
        {"frm_PlotType", layoutPlotType},
        {"frm_PrintData", layoutPrintData},
        {"frm_PrintSelect", layoutPrintSelect},
        {"frm_Cayley", layoutCayley},
        {"frm_Checks", layoutChecks},
        {"frm_Explore", layoutExplore},
        {"frm_Report", layoutReport},
        {"frm_Studies", layoutStudies},
        {"frm_Synth2A", layoutSynth2A},
        {"frm_Synth2B", layoutSynth2B},
        {"frm_Synth3", layoutSynth3},
        {"frm_Title", layoutTitle},
        {"frm_User", layoutUser},
    };
    const auto found = layouts.find(screen);
    return found == layouts.end() ? layoutPlain : found->second;
}

void layoutPlain(Form& form, QWidget* room) {
    auto* outer = new QVBoxLayout(room);
    outer->setContentsMargins(0, 0, 0, 0);
    auto* scroll = new QScrollArea(room);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* inner = new QWidget(scroll);
    QVBoxLayout* rows = page(inner);
    for (platform::Control* control : form.screen().Controls())
        if (qobject_cast<QWidget*>(form.objectOf(*control)))
            rows->addWidget(form.widget(control->Name().c_str(), control->Index()));
    rows->addStretch(1);
    scroll->setWidget(inner);
    outer->addWidget(scroll);
}

}  // namespace verlink::desktop
