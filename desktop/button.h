// A push button that can carry its icon above its caption.
#pragma once

#include <QPushButton>

namespace verlink::desktop {

class Button : public QPushButton {
   public:
    explicit Button(QWidget* parent);
    /// The icon stands over the caption from now on.
    void setIconAbove(const QIcon& icon, int side);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    bool above_ = false;
};

}  // namespace verlink::desktop
