// An overlay with a painter, on a screen and on paper alike.
#pragma once

#include "platform/glass.h"
#include "platform/overlay.h"
#include "platform/picture.h"

class QPainter;
class QSizeF;

namespace verlink::desktop {

/// Into a rectangle of the size that the sight has, whose corner is the painter's origin; nothing comes outside.
void paintOverlay(QPainter& painter, const platform::Overlay& overlay, const platform::Sight& sight);

/// What is seen of a picture through a glass, with a size in logical pixels.
platform::Sight sightOf(const platform::Picture& picture, const QSizeF& size, const platform::Glass& glass = {});

}  // namespace verlink::desktop
