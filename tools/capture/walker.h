// Goes along the stops of a walk and takes pictures of it, or films it.
#pragma once

#include <QDir>
#include <QPointF>
#include <QRect>
#include <cstddef>
#include <string>

#include "platform/clip.h"
#include "tools/capture/walk.h"

class QFileDialog;
class QMessageBox;
class QWidget;

namespace verlink::desktop {
class PictureWidget;
class QtDesktop;
}  // namespace verlink::desktop

namespace verlink::capture {

class Film;

class Walker {
   public:
    /// The account of the walk goes to a file, when one is named.
    Walker(desktop::QtDesktop& desktop, const QDir& folder, Stops stops, std::string account);

    /// Films the walk in place of taking pictures.
    void Use(Film& film);
    void Start() { Later(300); }
    /// The last deed ends the process, so that nothing comes after it.
    bool Done() const { return next_ + (acted_ ? 1 : 0) >= stops_.size(); }
    /// The status of the process. A manual is made without the pictures of the rest of the way, and a test complains.
    int End();

   private:
    void Later(int ms);
    /// Milliseconds after a deed: in full where something is seen, and on a screen that has just come up, as it draws
    /// once more by itself.
    int Rest(const Stop& stop) const;
    void Save(QWidget& window, const Stop& stop);
    void Take(QWidget& window, const Cut& cut);
    void Keep(const QPixmap& picture, const std::string& name);
    void Answer(QMessageBox& box);
    void Answer(QFileDialog& dialog);
    void Go();
    void Show_Hand(Screen& screen, platform::Control& control);
    void Move_Mouse(Screen& screen, Mouse deed, platform::Point at);

    desktop::QtDesktop& desktop_;
    QDir folder_;
    Stops stops_;
    Film* film_ = nullptr;
    const platform::Control* hand_ = nullptr;  ///< where the hand was last
    bool over_drawing_ = false;                ///< the mouse is, in the stop that is on
    bool holds_ = false;                       ///< its left button is down
    QPointF mouse_;                            ///< in the window
    std::string account_file_;
    std::string account_, said_;
    const Stop* offered_ = nullptr;  ///< whose file was typed into a dialog
    std::size_t next_ = 0;
    bool acted_ = false;
    int waits_ = 0;
    int messages_ = 0;
};

}  // namespace verlink::capture
