// A picture with names and values that find their own places upon it.
#pragma once

#include <QWidget>
#include <vector>

namespace verlink::desktop {

class Caption;
class PictureWidget;

/// The picture fills the pane. Each label is placed near its anchor, clear of what is drawn and of the other labels,
/// whenever the pane, a text or an anchor changes. One that stands apart from its anchor has a thin line to it,
/// and one whose anchor lies beyond the picture is not there.
class DiagramPane : public QWidget {
   public:
    DiagramPane(PictureWidget* picture, QWidget* parent);

    /// A name, which has the anchor, and the value that follows it, if any.
    void add(QWidget* name, QWidget* value = nullptr);

   protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

   private:
    struct Entry {
        Caption* name;
        Caption* value;
    };
    class Leaders;
    void place();

    PictureWidget* picture_;
    Leaders* leaders_;
    std::vector<Entry> entries_;
};

}  // namespace verlink::desktop
