// What the making of every kind of widget has in common.
#pragma once

#include <QSizePolicy>
#include <QWidget>

#include "desktop/form.h"
#include "desktop/text.h"
#include "platform/controls.h"

namespace verlink::desktop {

/// What all visible controls show alike: whether they are enabled and visible, and their tip.
void showVisual(QWidget* widget, const platform::Visual& control);

/// Names the widget, keeps its place when hidden, and shows the control now and at each change.
template <class Show>
void bind(Form& form, platform::Visual& control, QWidget* widget, Show show) {
    widget->setObjectName(toQt(control.ObjectName()));
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    control.Watcher = [widget, &control, show]() mutable {
        show();
        showVisual(widget, control);
    };
    control.Watcher();
    form.watch(widget, control);
}

/// The widget of a picture, a graph or a chart; null for any other control.
QWidget* makeDrawn(Form& form, platform::Control& control, QWidget* parent);

}  // namespace verlink::desktop
