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

/// While one exists, any button that is pressed by its letter acts at once. By itself it would 100 ms later, wherever
/// the user is by then.
class PromptLetters : public QObject {
   public:
    PromptLetters();

   protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};

}  // namespace verlink::desktop
