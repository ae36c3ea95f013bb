// A flat group: a thin rounded border, a bold title inside it, and what a layout puts there.
#pragma once

#include <QColor>
#include <QWidget>

class QLabel;
class QLayout;
class QVBoxLayout;

namespace verlink::desktop {

class FrameBox : public QWidget {
   public:
    explicit FrameBox(QWidget* parent);
    void setTitle(const QString& title);
    QString title() const;
    /// Puts a layout under the title; once.
    void setContent(QLayout* content);
    /// The same, at the right of the title in one low strip.
    void setContentBeside(QLayout* content);
    /// The same without a title, `width` pixels from the edge: the frame is a mount in its back colour.
    void setMounted(QLayout* content, int width);
    /// The colour behind everything; an invalid one is the window's own.
    void setBack(const QColor& color);
    QColor back() const { return back_; }

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QLabel* title_;
    QVBoxLayout* column_;
    QColor back_;
};

}  // namespace verlink::desktop
