// A tick box that is drawn as a padlock.
#pragma once

#include <QCheckBox>

namespace verlink::desktop {

/// Small, and quiet while it is open, plain to see while it is shut or has the keys or the pointer.
class LockWidget : public QCheckBox {
   public:
    explicit LockWidget(QWidget* parent);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

   protected:
    bool hitButton(const QPoint& place) const override { return rect().contains(place); }
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace verlink::desktop
