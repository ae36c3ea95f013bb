// Files that are dropped on a window.
#pragma once

#include <QObject>

class QDropEvent;

namespace verlink::desktop {

class Form;

/// Lets the window of a screen that takes files take them, wherever on it they are dropped: also on a box, which would
/// write the path down. The first of several files counts.
class FileDrops : public QObject {
   public:
    explicit FileDrops(Form& form);

   protected:
    bool eventFilter(QObject* object, QEvent* event) override;

   private:
    bool wanted(const QDropEvent& event) const;
    void take(QDropEvent& event);

    Form& form_;
};

}  // namespace verlink::desktop
