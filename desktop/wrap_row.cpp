// Where the words and the options stand.
#include "desktop/wrap_row.h"

#include <algorithm>

#include "desktop/grid.h"

namespace verlink::desktop {

namespace {

constexpr int kBetweenRows = 2;

int heightOf(std::initializer_list<const QWidget*> widgets) {
    int height = 0;
    for (const QWidget* widget : widgets) height = std::max(height, widget->sizeHint().height());
    return height;
}

/// Side by side, each as wide as it likes.
void placeRow(std::initializer_list<QWidget*> widgets, int top, int height) {
    int left = 0;
    for (QWidget* widget : widgets) {
        const QSize size = widget->sizeHint();
        widget->setGeometry(left, top + (height - size.height()) / 2, size.width(), size.height());
        left += size.width() + kGap;
    }
}

}  // namespace

WrapRow::WrapRow(QWidget* parent, QWidget* before, QWidget* options, QWidget* after)
    : QWidget(parent), before_(before), options_(options), after_(after) {
    for (QWidget* widget : {before, options, after}) widget->setParent(this);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

bool WrapRow::inOneRow(int width) const {
    return before_->sizeHint().width() + options_->sizeHint().width() + after_->sizeHint().width() + 2 * kGap <= width;
}

int WrapRow::heightForWidth(int width) const {
    if (inOneRow(width)) return heightOf({before_, options_, after_});
    return heightOf({before_, after_}) + kBetweenRows + heightOf({options_});
}

QSize WrapRow::minimumSizeHint() const {
    const int words = before_->sizeHint().width() + kGap + after_->sizeHint().width();
    return {std::max(words, options_->sizeHint().width()), heightForWidth(0)};
}

void WrapRow::resizeEvent(QResizeEvent*) {
    if (inOneRow(width())) return placeRow({before_, options_, after_}, 0, heightOf({before_, options_, after_}));
    const int words = heightOf({before_, after_});
    placeRow({before_, after_}, 0, words);
    placeRow({options_}, words + kBetweenRows, heightOf({options_}));
}

}  // namespace verlink::desktop
