// The window of a screen: one widget for each of its controls, mirrored both ways.
#pragma once

#include <QButtonGroup>
#include <QMainWindow>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/deed.h"
#include "platform/desktop_services.h"
#include "platform/screen.h"

class QMenu;
class QPushButton;

namespace verlink::desktop {

class FrameBox;
class PictureWidget;

/// Shows a `platform::Screen`. The widgets come from the screen's controls, each named as its control's
/// `ObjectName()`; a layout (desktop/layouts.h) places them, and nothing else. Lives no longer than its screen.
class Form : public QMainWindow {
   public:
    explicit Form(platform::Screen& screen);
    ~Form() override;

    platform::Screen& screen() const { return screen_; }

    // For layouts. Controls are named as the screen declares them: widget("txt_Linkout", 1), or by their object
    // name: widget("txt_Linkout_1"). The tab order is the order in which a layout asks for its widgets, so ask in
    // reading order. A control that is hidden keeps its place unless `collapse` was said.

    /// The widget of a control. A name that the screen does not declare ends the process with a message.
    QWidget* widget(const char* name, int index = platform::kNoIndex);
    /// The widget of a control as what it is: get<QPushButton>("cmd_Calc").
    template <class Widget>
    Widget* get(const char* name, int index = platform::kNoIndex) {
        return static_cast<Widget*>(widget(name, index));
    }
    FrameBox* frame(const char* name, int index = platform::kNoIndex);
    PictureWidget* picture(const char* name, int index = platform::kNoIndex);
    /// A widget that is no control's and has its turn in the tab order all the same.
    QWidget* walkTo(QWidget* widget);
    /// The drawing of the screen: where the display allows it, the window comes up with that many pixels for it.
    void setHero(QWidget* drawing, int side);
    /// Does the screen declare it?
    bool has(const char* name, int index = platform::kNoIndex) const;

    // For the desktop and for tests.

    /// Takes the caption, place and size that the program wishes, as far as they have changed.
    void applyShape();
    void showCaption();
    /// The button that stops a run; null for none.
    QPushButton* stopButton() const { return buttonOf(screen_.StopButton); }
    /// The widget, menu action or timer of a control; null when it has none.
    QObject* objectOf(const platform::Control& control) const;
    /// Object names of the visible controls that the layout has not placed.
    std::vector<std::string> unplaced() const;
    /// How many twips a pixel of the display has.
    static double twipsPerPixel();

    /// Does what the user's hand asks, as a handler of that control: only while the window is the one in use and the
    /// control is open. A failure in it is reported under the control's name.
    void act(const platform::Control& control, const std::function<void()>& deed,
             platform::Deed::Kind kind = platform::Deed::Kind::kWhole);
    /// A file that the user has dropped on the window.
    void act(const std::function<void(const std::string&)>& deed, const std::string& what);
    /// Is the user's hand on this window: in sight, nothing over it, and no run plays?
    bool inUse() const;
    /// Does what comes by itself (a pulse, a document that has been read), wherever the user is.
    void happen(const platform::Control& control, const std::function<void()>& deed);
    /// Runs whenever colours or fonts of the desktop change.
    std::vector<std::function<void()>> restyle;
    /// The options of one array as one group.
    QButtonGroup* optionGroup(const std::string& name);
    /// Is this widget under the form's eye (focus, keys, wheel)?
    void watch(QWidget* widget, platform::Visual& control);
    /// When the focus is just coming by the mouse: the release over this box selects its text, as the press would
    /// only put the cursor there.
    void selectOnRelease(QWidget* widget) {
        if (mouse_focus_) select_on_release_ = widget;
    }

   protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

   private:
    void makeWidgets();
    void makeMenus();
    void nameTheNameless();
    void tellApart();
    bool onlyTells() const;
    void takePlace(bool size_changed);
    /// Its layout has made it larger than that: what would leave the display goes to the left and up, as far as it
    /// grew.
    void growInside(QSize before);
    QSize roomForHero(QSize size);
    bool undoes(QKeyEvent* event, QWidget* at);
    void addEntry(platform::MenuEntry& entry, QMenu* menu);
    void focusCame(platform::Visual& control, QWidget* widget, Qt::FocusReason reason);
    QPushButton* buttonOf(platform::CommandButton* button) const;

    platform::Screen& screen_;
    std::map<const platform::Control*, QObject*> objects_;
    std::map<QObject*, platform::Visual*> watched_;
    std::map<std::string, QButtonGroup*> groups_;
    std::vector<QWidget*> order_;  ///< as the layout asked for them
    QWidget* room_ = nullptr;
    QWidget* hero_ = nullptr;
    int hero_side_ = 0;
    QWidget* swallow_press_ = nullptr;
    QWidget* select_on_release_ = nullptr;
    QWidget* walked_to_ = nullptr;  ///< has the focus, by the tab key
    bool mouse_focus_ = false;      ///< the focus is coming by a press of the mouse
    bool closing_ = false;
    bool at_kept_place_ = false;  ///< it stands there still: until the program wishes for another size
    bool placed_ = false;         ///< where it stood in the last session has been taken over
    long left_ = -1, top_ = -1, width_ = -1, height_ = -1;  ///< the wish last applied
};

}  // namespace verlink::desktop
