// Letters that open the menus of a bar, also where two menus have the same.
#pragma once

#include <QList>
#include <QObject>

class QAction;
class QKeySequence;
class QMenuBar;

namespace verlink::desktop {

/// Of several menus with one letter it opens the first, and while one of them is open the next.
class MenuKeys : public QObject {
   public:
    /// Comes when the bar has its menus.
    explicit MenuKeys(QMenuBar& bar);

   protected:
    bool eventFilter(QObject* object, QEvent* event) override;

   private:
    QList<QAction*> named(const QKeySequence& letter) const;

    QMenuBar& bar_;
};

}  // namespace verlink::desktop
