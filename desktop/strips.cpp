// How the height is shared.
#include "desktop/strips.h"

#include <QWidget>
#include <algorithm>

namespace verlink::desktop {

namespace {

constexpr int kApart = 2;

}  // namespace

Strips::~Strips() { qDeleteAll(items_); }

QLayoutItem* Strips::takeAt(int index) { return index >= 0 && index < items_.size() ? items_.takeAt(index) : nullptr; }

QList<QLayoutItem*> Strips::shown() const {
    QList<QLayoutItem*> shown;
    for (QLayoutItem* item : items_)
        if (!item->isEmpty()) shown.append(item);
    return shown;
}

int Strips::foot() const { return parentWidget() ? 2 * parentWidget()->fontMetrics().height() : 0; }

QSize Strips::minimumSize() const {
    const QList<QLayoutItem*> all = shown();
    QSize least;
    for (const QLayoutItem* item : all) least = least.expandedTo(QSize(item->minimumSize().width(), 0));
    const int strips = static_cast<int>(all.size());
    if (strips > 0) least.setHeight(strips * least_ + (strips - 1) * kApart + foot());
    return least;
}

void Strips::setGeometry(const QRect& place) {
    QLayout::setGeometry(place);
    const QList<QLayoutItem*> all = shown();
    const int strips = static_cast<int>(all.size());
    if (strips == 0) return;
    const int height = std::max(0, (place.height() - foot() - (strips - 1) * kApart) / strips);
    int top = place.top();
    for (QLayoutItem* item : all) {
        const int bottom = item == all.last() ? place.bottom() + 1 : top + height;
        item->setGeometry(QRect(place.left(), top, place.width(), bottom - top));
        top = bottom + kApart;
    }
}

}  // namespace verlink::desktop
