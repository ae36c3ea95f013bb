// What is alive is drawn again.
#include "platform/picture_part.h"

namespace verlink::platform {

Picture Part_Of(const Picture& picture, double left, double top, double right, double bottom, double pins) {
    using Kind = Picture::Primitive::Kind;
    Picture part;
    part.BackColor(picture.Back());
    part.Scale(left, top, right, bottom);
    for (const Picture::Primitive& drawn : picture.Primitives()) {
        if (!drawn.alive) continue;
        switch (drawn.kind) {
            case Kind::kSegment: part.Line(drawn.x1, drawn.y1, drawn.x2, drawn.y2, drawn.color); break;
            case Kind::kCircle: part.Circle(drawn.x1, drawn.y1, drawn.x2, drawn.color); break;
            case Kind::kPin: part.Pin(drawn.x1, drawn.y1, drawn.x2 / pins, drawn.color); break;
            case Kind::kMark:
                part.Mark({drawn.x1, drawn.y1, drawn.dx1 / pins, drawn.dy1 / pins},
                          {drawn.x2, drawn.y2, drawn.dx2 / pins, drawn.dy2 / pins}, drawn.color);
                break;
            case Kind::kDot: part.PSet(drawn.x1, drawn.y1, drawn.color); break;
        }
    }
    return part;
}

}  // namespace verlink::platform
