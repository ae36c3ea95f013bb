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
    /// A letter with Alt is no text, also where no mnemonic takes it.
    void keyPressEvent(QKeyEvent* event) override;
    /// Selects a number as a whole; its point parts no words.
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

   private:
    QString words_;
};

}  // namespace verlink::desktop
