// Letters that open the menus of a bar, also where two menus have the same.
#pragma once

#include <QList>
#include <QObject>

class QAction;
class QKeyEvent;
class QKeySequence;
class QMenuBar;

namespace verlink::desktop {

/// Of several menus with one letter it opens the first, and while one of them is open the next. Keys that walk along
/// the bar are its own meanwhile.
class MenuKeys : public QObject {
   public:
    /// Comes when the bar has its menus.
    explicit MenuKeys(QMenuBar& bar);

   protected:
    bool eventFilter(QObject* object, QEvent* event) override;

   private:
    QList<QAction*> named(const QKeySequence& letter) const;
    bool walks(const QKeyEvent& press) const;

    bool awaitsLetter(QObject& menu, const QKeyEvent& key);

    QMenuBar& bar_;
    bool alt_waits_ = false;  ///< the alt key is down over an open menu, and nothing has been pressed with it
    bool alt_late_ = false;   ///< it does its work
};

}  // namespace verlink::desktop
