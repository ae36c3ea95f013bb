// The widgets of pictures, graphs and charts, and what the hand on them does.
#include <string>

#include "desktop/bind.h"
#include "desktop/chart_widgets.h"
#include "desktop/graph_widget.h"
#include "desktop/picture_menu.h"
#include "desktop/picture_widget.h"
#include "desktop/plot_hand.h"
#include "platform/charts.h"
#include "platform/deed.h"
#include "platform/graph.h"
#include "platform/overlaid_picture.h"
#include "platform/plot_box.h"
#include "screens/picture_entries.h"

namespace verlink::desktop {

using namespace platform;

namespace {

/// The hand that takes what is drawn, and the one that moves the glass.
void bindHand(Form& form, PictureBox& control, PictureWidget* picture) {
    // Looking is no deed.
    const auto look = [&form, &control](const std::function<void()>& heard) {
        if (form.inUse() && control.Enabled) form.happen(control, heard);
    };
    if (control.OnHover) {
        picture->setMouseTracking(true);
        picture->onHover = [&control, look](const Touch& at) { look([&] { control.OnHover(at); }); };
    }
    if (control.OnLeave) picture->onLeave = [&control, look] { look(control.OnLeave); };
    if (control.OnSeize)
        picture->onSeize = [&form, &control](const Touch& at) {
            bool taken = false;
            form.act(
                control, [&] { taken = control.OnSeize(at); }, Deed::Kind::kDrag);
            return taken;
        };
    if (control.OnDrag)
        picture->onDrag = [&form, &control](const Touch& at) {
            form.act(
                control, [&] { control.OnDrag(at); }, Deed::Kind::kDrag);
        };
    if (control.OnRelease) picture->onLetGo = [&form, &control] { form.happen(control, control.OnRelease); };
    if (control.OnKey)
        picture->onKey = [&form, &control](const Picture_Key& key) {
            form.act(
                control, [&] { control.OnKey(key); }, Deed::Kind::kDrag);
        };
    if (control.Magnifies) picture->magnify();
    picture->onGlass = [&control](const Glass& glass) { control.Through = glass; };
    picture->onSize = [&form, &control](double across) {
        control.Across = across;
        if (control.OnPixel) form.happen(control, control.OnPixel);
    };
}

/// What files of a picture are called.
const char* nameOf(const PictureBox& control) {
    if (dynamic_cast<const PlotBox*>(&control)) return kPlotPicture;
    return control.Name() == "Picture1" && control.Owner().Name() != "frm_Cayley" ? kLinkagePicture : kDiagramPicture;
}

QWidget* make(Form& form, PictureBox& control, QWidget* parent) {
    auto* picture = new PictureWidget(control.Drawing(), parent);
    // One that chooses by a click is no more than the face of a button.
    if (!control.OnClick) new PictureMenu(control, *picture, nameOf(control), [picture] { return sourceOf(*picture); });
    auto* plot = dynamic_cast<PlotBox*>(&control);
    PlotHand* hand = plot ? new PlotHand(*plot, picture) : nullptr;
    bindHand(form, control, picture);
    picture->onMouseMove = [&form, &control](int button, int shift, double x, double y) {
        if (!control.OnMouseMove) return;
        form.act(
            control, [&] { control.OnMouseMove(button, shift, x, y); }, Deed::Kind::kDrag);
    };
    picture->onRelease = [] { Deed::Drag_Ended(); };
    picture->takesClicks = [&control] { return control.OnClick || control.OnDblClick; };
    picture->onClick = [&form, &control] {
        if (control.OnClick) form.act(control, control.OnClick);
    };
    picture->onDoubleClick = [&form, &control] {
        if (control.OnDblClick) form.act(control, control.OnDblClick);
    };
    auto* overlaid = dynamic_cast<Overlaid_Picture*>(&control);
    bind(form, control, picture, [picture, overlaid, hand, &control, &form, keys = std::string()]() mutable {
        picture->setLines(control.Lines);
        if (overlaid) picture->setOverlay(overlaid->Over);
        if (hand) hand->follow();
        picture->setLight(control.Lit);
        picture->setGrip(control.Pointer);
        if (keys != control.Keys.Get()) picture->setKeys(keys = control.Keys);
        if (picture->setGlass(control.Through) && control.OnPixel) form.happen(control, control.OnPixel);
    });
    return picture;
}

QWidget* make(Form& form, Graph& control, QWidget* parent) {
    auto* graph = new GraphWidget(control, parent);
    graph->onSeek = [&form, &control](int point) {
        form.act(
            control, [&] { control.OnSeek(point); }, Deed::Kind::kDrag);
    };
    graph->onSought = [&form, &control] {
        form.happen(control, [&] {
            if (control.OnSought) control.OnSought();
        });
        Deed::Drag_Ended();
    };
    bind(form, control, graph, [graph] { graph->follow(); });
    return graph;
}

QWidget* make(Form& form, Histogram& control, QWidget* parent) {
    auto* histogram = new HistogramWidget(control, parent);
    histogram->onPick = [&form, &control](double value) {
        if (control.OnPick) form.act(control, [&] { control.OnPick(value); });
    };
    bind(form, control, histogram, [histogram] { histogram->follow(); });
    return histogram;
}

QWidget* make(Form& form, Bars& control, QWidget* parent) {
    auto* bars = new BarsWidget(control, parent);
    bind(form, control, bars, [bars] { bars->follow(); });
    return bars;
}

QWidget* make(Form& form, Color_Map& control, QWidget* parent) {
    auto* map = new ColorMapWidget(control, parent);
    map->onPick = [&form, &control](Color_Map::Cell cell) {
        if (control.OnPick) form.act(control, [&] { control.OnPick(cell); });
    };
    bind(form, control, map, [map] { map->follow(); });
    return map;
}

}  // namespace

QWidget* makeDrawn(Form& form, Control& control, QWidget* parent) {
    if (auto* picture = dynamic_cast<PictureBox*>(&control)) return make(form, *picture, parent);
    if (auto* graph = dynamic_cast<Graph*>(&control)) return make(form, *graph, parent);
    if (auto* histogram = dynamic_cast<Histogram*>(&control)) return make(form, *histogram, parent);
    if (auto* bars = dynamic_cast<Bars*>(&control)) return make(form, *bars, parent);
    if (auto* map = dynamic_cast<Color_Map*>(&control)) return make(form, *map, parent);
    return nullptr;
}

}  // namespace verlink::desktop
