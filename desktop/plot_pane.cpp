// Where the labels upon a picture go.
#include "desktop/plot_pane.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/caption.h"
#include "desktop/picture_widget.h"
#include "desktop/plot_hand.h"

namespace verlink::desktop {

namespace {

constexpr int kAway = 3;      ///< pixels between a place and its label
constexpr int kWidth = 140;   ///< room for a label's text
constexpr int kAirAbove = 1;  ///< over the lower edge of the picture

}  // namespace

PlotPane::PlotPane(PictureWidget* picture, QWidget* parent) : QWidget(parent), picture_(picture) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(picture);
    for (QObject* child : picture->children())
        if (auto* hand = dynamic_cast<PlotHand*>(child)) hand_ = hand;
    if (hand_) hand_->setParent(this);
}

void PlotPane::add(QLabel* label, double x, double y, Side side) {
    layUpon(label, this);
    label->setAlignment(Qt::AlignVCenter | (side == Side::kLeft    ? Qt::AlignRight
                                            : side == Side::kRight ? Qt::AlignLeft
                                                                   : Qt::AlignHCenter));
    marks_.push_back({label, x, y, side});
}

void PlotPane::place() {
    const QRectF area = picture_->area();
    if (hand_) {
        hand_->setGeometry(area.toRect().translated(picture_->pos()));
        hand_->raise();
    }
    for (const Mark& mark : marks_) {
        const int high = mark.label->fontMetrics().height();
        const int x = qRound(picture_->x() + area.left() + mark.x * area.width());
        const int y = qRound(picture_->y() + area.top() + mark.y * area.height());
        QRect box(0, 0, kWidth, high);
        switch (mark.side) {
            case Side::kLeft: box.moveTopRight({x - kAway, y - high / 2}); break;
            case Side::kRight: box.moveTopLeft({x + kAway, y - high / 2}); break;
            case Side::kBelow: box.moveTopLeft({x - kWidth / 2, y + kAway}); break;
            case Side::kAbove: box.moveTopLeft({x - kWidth / 2, y - high - kAirAbove}); break;
        }
        if (mark.side == Side::kBelow) {
            // As wide as its text, and not beyond the edges.
            const int wide = mark.label->sizeHint().width();
            box = QRect(std::clamp(x - wide / 2, 1, std::max(1, width() - wide - 2)), box.y(), wide, high);
        }
        mark.label->setGeometry(box);
    }
}

void PlotPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (layout()) layout()->activate();
    place();
}

bool PlotPane::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        const bool done = QWidget::event(event);
        place();
        return done;
    }
    return QWidget::event(event);
}

}  // namespace verlink::desktop
