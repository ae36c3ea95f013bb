// Where windows stood in the last session.
#pragma once

#include <QList>
#include <QRect>
#include <QSize>

namespace verlink::desktop {

class Form;

/// Size and place in pixels, the frame's corner and what is inside it.
struct WindowPlace {
    QRect place;
    bool maximized = false;
};

/// Keeps where the window of a screen stands, together with the size that the program wishes for.
void keepPlace(const Form& form);
/// Puts the window where it was kept for a wish of that size; false when nothing was kept for it. `least` is what its
/// layout needs.
bool takeKeptPlace(Form& form, QSize least);

/// The place moved, and made smaller where need be, into the display on which most of it lies; the first where nothing
/// of it can be seen.
QRect withinDisplays(QRect place, const QList<QRect>& displays);

}  // namespace verlink::desktop
