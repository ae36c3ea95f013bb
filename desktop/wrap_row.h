// Options between words, in one row where there is room for all, else under the words.
#pragma once

#include <QWidget>

namespace verlink::desktop {

class WrapRow : public QWidget {
   public:
    WrapRow(QWidget* parent, QWidget* before, QWidget* options, QWidget* after);
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

   protected:
    void resizeEvent(QResizeEvent* event) override;

   private:
    bool inOneRow(int width) const;

    QWidget *before_, *options_, *after_;
};

}  // namespace verlink::desktop
