// What a widget shows as a picture that leaves the program: a file, pixels, the clipboard.
#pragma once

#include <QImage>
#include <QPaintDevice>
#include <QRect>
#include <QString>
#include <functional>

#include "platform/controls.h"
#include "platform/pictures.h"

class QWidget;

namespace verlink::desktop {

class PictureWidget;

/// How one is painted as it is seen now.
struct PictureSource {
    QString title;
    QSize size;                                  ///< logical pixels
    int dpi = 96;                                ///< by which its letters are as large as on the screen
    std::function<void(QPaintDevice&)> vectors;  ///< with a window of `size`
    std::function<QImage(double density)> image;
};

/// A part of a widget with all that lies upon it.
PictureSource sourceOf(QWidget& widget, const QRect& part, const QString& title);

/// A picture with the labels upon it, without what the pointer brings.
PictureSource sourceOf(PictureWidget& picture);

/// Makes pictures of a control, for as long as it lives, from what it is asked for each time.
class WidgetPicture : public platform::Picture_Maker {
   public:
    WidgetPicture(const platform::Control& control, std::function<PictureSource()> source);
    ~WidgetPicture() override;
    WidgetPicture(const WidgetPicture&) = delete;
    WidgetPicture& operator=(const WidgetPicture&) = delete;

    int Wide() const override { return source_().size.width(); }
    int High() const override { return source_().size.height(); }
    std::string File(platform::Picture_Kind kind, double density) override;
    platform::Pixels Paint(double density) override;
    void Copy() override;

   private:
    const platform::Control& control_;
    std::function<PictureSource()> source_;
};

}  // namespace verlink::desktop
