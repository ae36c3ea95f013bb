// A picture with labels at places of its drawing: the numbers along the axes of a plot.
#pragma once

#include <QWidget>
#include <vector>

class QLabel;

namespace verlink::desktop {

class PictureWidget;
class PlotHand;

/// The picture fills the pane; the labels lie upon it, black as the axes are, and move with it.
class PlotPane : public QWidget {
   public:
    PlotPane(PictureWidget* picture, QWidget* parent);

    /// On which side of its place a label stands.
    enum class Side { kLeft, kRight, kBelow, kAbove };
    /// The place is given in parts of the picture's width and height.
    void add(QLabel* label, double x, double y, Side side);

   protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

   private:
    struct Mark {
        QLabel* label;
        double x, y;
        Side side;
    };
    void place();

    PictureWidget* picture_;
    PlotHand* hand_ = nullptr;  ///< over picture and labels; null where there is nothing to be read
    std::vector<Mark> marks_;
};

}  // namespace verlink::desktop
