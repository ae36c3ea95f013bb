// The groups that the input and animate screens share.
#pragma once

#include <QtGlobal>

#include "desktop/fold.h"

class QBoxLayout;
class QLayout;
class QWidget;

namespace verlink::desktop {

class Form;

/// The drawing, the hero of the screen: the window grows with it and never shrinks below it.
QWidget* largePicture(Form& form);
/// Lengths of links 2 to 4 and the coupler point.
QWidget* linkageData(Form& form);
/// Link 1 in its two forms, side by side, under the options that choose one.
QLayout* groundLink(Form& form);
/// "Circuit": its two options in one row.
QWidget* circuit(Form& form);
/// "Grashof Condition" and, in its place below, "Toggles at +/-".
QWidget* grashof(Form& form);
QWidget* toggles(Form& form);
/// The scroll bar over the steps with its legends under it.
QLayout* stepBar(Form& form);
/// What a shift-drag changes, under a drawing.
QWidget* shiftDrag(Form& form, QWidget* room, QWidget* before, QWidget* after);
/// The quiet line under a drawing, which says what cannot be. It has the place of two also while it is empty.
QWidget* quietLine(Form& form);
/// A column of the screen that folds: `name` is what that is kept under, `holds` says what is in there.
void fold(Form& form, QBoxLayout* columns, QWidget* column, FoldHandle::Side side, const char* name, const char* holds);

}  // namespace verlink::desktop
