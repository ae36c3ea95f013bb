// The label of a screen: plain text, a read-out in a box, or a badge.
#pragma once

#include <QColor>
#include <QLabel>
#include <optional>

#include "platform/label_places.h"

namespace verlink::desktop {

class Caption : public QLabel {
   public:
    enum class Look { kPlain, kReadOut, kBadge };

    explicit Caption(QWidget* parent);
    void setLook(Look look);
    /// The colour behind the text; an invalid one is the window's own.
    void setBack(const QColor& color);
    /// The colour of the text; an invalid one is the window's own.
    void setFore(const QColor& color);
    /// Is there a box around no text?
    void setBoxWhenEmpty(bool shown);
    QColor back() const { return back_; }
    /// Where the label belongs on the picture that it lies upon; a pane places it (desktop/diagram_pane.h).
    void setAnchor(const std::optional<platform::Anchor>& anchor);
    const std::optional<platform::Anchor>& anchor() const { return anchor_; }
    /// The text stands back a little, in a shade of the window's own colours.
    void setQuiet();

   protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

   private:
    bool quiet_ = false;
    Look look_ = Look::kPlain;
    QColor back_;
    bool box_when_empty_ = true;
    std::optional<platform::Anchor> anchor_;
};

/// Lays a label upon a picture: black as what is drawn, whatever the desktop's colours are, and no hindrance to the
/// mouse.
void layUpon(QLabel* label, QWidget* pane);

}  // namespace verlink::desktop
