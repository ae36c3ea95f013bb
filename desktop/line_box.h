// A line of text that can be marked as refused.
#pragma once

#include <QLineEdit>

namespace verlink::desktop {

class LineBox : public QLineEdit {
   public:
    using QLineEdit::QLineEdit;
    /// A red frame, and the words beside the box at once if it is being marked; empty words take the frame away.
    void setRefusal(const QString& words);
    bool refused() const { return !words_.isEmpty(); }

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    QString words_;
};

}  // namespace verlink::desktop
