// The menu of a picture: by a right click on it, or by the menu key anywhere on its window.
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <string>

#include "desktop/picture_source.h"

class QMenu;

namespace verlink::desktop {

/// Saves and copies what the control shows; on a screen whose run can be saved, that too. The widget's own.
class PictureMenu : public QObject {
   public:
    /// `what` follows the model's name in the names of files.
    PictureMenu(const platform::Visual& control, QWidget& widget, std::string what,
                std::function<PictureSource()> source);

    platform::Picture_Maker& maker() { return maker_; }

   protected:
    /// Also of what lies within the widget and keeps the mouse from it.
    bool eventFilter(QObject* object, QEvent* event) override;

   private:
    class ByKey;
    void offer(const QPoint& at);
    void fill(QMenu& menu);
    /// What the picture is known by among others of its window.
    QString title() const;

    const platform::Visual& control_;
    QWidget& widget_;
    std::string what_;
    WidgetPicture maker_;
};

}  // namespace verlink::desktop
