// Mouse and keys on the widgets of a window.
#include "tests/walk/widgets/hand.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>
#include <algorithm>
#include <vector>

#include "desktop/graph_widget.h"
#include "desktop/picture_widget.h"
#include "desktop/plot_hand.h"
#include "desktop/text.h"
#include "tests/walk/hand.h"

namespace verlink::walk {

using namespace platform;

namespace {

/// A timer has run down after so long, at the latest.
constexpr int kPulseMilliseconds = 400;

/// Keys that put a letter into a box.
QString Typeable(const std::string& text) {
    QString letters;
    for (const char letter : text)
        if (letter >= ' ' && letter <= '~') letters += QLatin1Char(letter);
    return letters;
}

/// Replaces what stands in a line, if the keys go there: leaving another box may have kept them.
void Write_Into(QLineEdit& line, const std::string& text) {
    QTest::mouseClick(&line, Qt::LeftButton);
    if (QApplication::focusWidget() != &line && !line.hasFocus()) return;
    QTest::keyClick(&line, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClicks(&line, Typeable(text));
}

/// On the mark itself: beside its words a wide button does not take the click.
void Click_Mark(QWidget& button) { QTest::mouseClick(&button, Qt::LeftButton, {}, {8, button.height() / 2}); }

void Choose_Item(QComboBox& list, int item) {
    if (item < 0 || item >= list.count()) return;
    list.setFocus(Qt::MouseFocusReason);
    if (!list.hasFocus() && !list.lineEdit()->hasFocus()) return;
    list.setCurrentIndex(item);
    Q_EMIT list.activated(item);
}

void Move_Bar(QScrollBar& bar, const Action& action) {
    bar.setFocus(Qt::MouseFocusReason);
    if (action.deed == Deed::kScroll) return bar.setSliderPosition(action.value);
    bar.setSliderDown(true);
    bar.setSliderPosition((bar.value() + action.value) / 2);
    bar.setSliderPosition(action.value);
    bar.setSliderDown(false);
}

void Move_Mouse(desktop::PictureWidget& picture, const Action& action) {
    const QRectF place = picture.area();
    const QPointF at(place.x() + action.x * place.width(), place.y() + action.y * place.height());
    Qt::MouseButtons buttons;
    if (action.buttons & 1) buttons |= Qt::LeftButton;
    if (action.buttons & 2) buttons |= Qt::RightButton;
    if (action.buttons & 4) buttons |= Qt::MiddleButton;
    Qt::KeyboardModifiers keys;
    if (action.keys & 1) keys |= Qt::ShiftModifier;
    if (action.keys & 2) keys |= Qt::ControlModifier;
    if (action.keys & 4) keys |= Qt::AltModifier;
    if (buttons != Qt::NoButton) picture.setFocus(Qt::MouseFocusReason);
    QMouseEvent move(QEvent::MouseMove, at, picture.mapToGlobal(at), Qt::NoButton, buttons, keys);
    QApplication::sendEvent(&picture, &move);
}

QPointF Place_On(const desktop::PictureWidget& picture, double x, double y) {
    const QRectF place = picture.area();
    return {place.x() + x * place.width(), place.y() + y * place.height()};
}

/// What lies over the picture and takes the mouse, else the picture.
QWidget& Under_The_Mouse(desktop::PictureWidget& picture) {
    for (QObject* beside : picture.parentWidget()->children())
        if (auto* hand = dynamic_cast<desktop::PlotHand*>(beside)) return *hand;
    return picture;
}

void Send_Mouse(desktop::PictureWidget& picture, QEvent::Type type, QPointF at, Qt::MouseButtons buttons, int held) {
    Qt::KeyboardModifiers keys;
    if (held & 1) keys |= Qt::ShiftModifier;
    if (held & 2) keys |= Qt::ControlModifier;
    if (held & 4) keys |= Qt::AltModifier;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QWidget& under = Under_The_Mouse(picture);
    const QPointF there = picture.mapToGlobal(at);
    QMouseEvent event(type, under.mapFromGlobal(there), there, button, buttons, keys);
    QApplication::sendEvent(&under, &event);
}

void Haul_Over(desktop::PictureWidget& picture, const Action& a) {
    picture.setFocus(Qt::MouseFocusReason);
    const QPointF from = Place_On(picture, a.x, a.y), to = Place_On(picture, a.to_x, a.to_y);
    Send_Mouse(picture, QEvent::MouseButtonPress, from, Qt::LeftButton, a.keys);
    for (const double part : {0.3, 0.7, 1.0})
        Send_Mouse(picture, QEvent::MouseMove, from + part * (to - from), Qt::LeftButton, a.keys);
    Send_Mouse(picture, QEvent::MouseButtonRelease, to, Qt::NoButton, a.keys);
}

void Turn_Wheel_Over(desktop::PictureWidget& picture, const Action& a) {
    const QPointF at = Place_On(picture, a.x, a.y);
    QWidget& under = Under_The_Mouse(picture);
    const QPointF there = picture.mapToGlobal(at);
    QWheelEvent event(under.mapFromGlobal(there), there, {}, {0, 120 * a.value}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&under, &event);
}

void Press_On(desktop::PictureWidget& picture, const std::string& keys) {
    picture.setFocus(Qt::TabFocusReason);
    if (!picture.hasFocus()) return;
    const QKeyCombination key = QKeySequence::fromString(desktop::toQt(keys), QKeySequence::PortableText)[0];
    QTest::keyClick(&picture, key.key(), key.keyboardModifiers());
}

/// The widget or menu entry of the action's control as what it is.
template <class Kind>
Kind* Of(const desktop::Form& form, const Action& action) {
    const Control* control = form.screen().Find(action.control, action.index);
    return control ? dynamic_cast<Kind*>(form.objectOf(*control)) : nullptr;
}

template <class Kind, class Deed>
void With_Widget(const desktop::Form& form, const Action& action, Deed deed) {
    if (auto* widget = Of<Kind>(form, action)) deed(*widget);
}

void Wait_For_Pulse(const platform::Timer& timer) {
    // A timer that runs on after its pulse is waited for as long.
    (void)QTest::qWaitFor([&timer] { return !timer.Enabled; }, kPulseMilliseconds);
}

void Press_Key(desktop::Form& form, Qt::Key key) {
    QWidget* focus = form.focusWidget();
    QTest::keyClick(focus ? focus : &form, key);
}

void Press_Sequence(desktop::Form& form, const QAction& keys) {
    const QKeyCombination key = keys.shortcut()[0];
    QWidget* focus = form.focusWidget();
    QTest::keyClick(focus ? focus : &form, key.key(), key.keyboardModifiers());
}

void Drop_File(desktop::Form& form, const std::string& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
    QDropEvent drop(QRectF(form.rect()).center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&form, &drop);
    QCoreApplication::processEvents();
}

}  // namespace

void Do_On_Widgets(desktop::Form& form, const Action& action) {
    switch (action.deed) {
        case Deed::kPress:
            return With_Widget<QPushButton>(form, action,
                                            [](auto& button) { QTest::mouseClick(&button, Qt::LeftButton); });
        case Deed::kType:
            return With_Widget<QLineEdit>(form, action, [&](auto& line) { Write_Into(line, action.text); });
        case Deed::kGo:
            return With_Widget<QWidget>(form, action, [](auto& widget) { widget.setFocus(Qt::TabFocusReason); });
        case Deed::kReturn: return Press_Key(form, Qt::Key_Return);
        case Deed::kEscape: return Press_Key(form, Qt::Key_Escape);
        case Deed::kOption:
        case Deed::kTick: return With_Widget<QWidget>(form, action, Click_Mark);
        case Deed::kItem:
            return With_Widget<QComboBox>(form, action, [&](auto& list) { Choose_Item(list, action.value); });
        case Deed::kWrite:
            return With_Widget<QComboBox>(form, action, [&](auto& list) { Write_Into(*list.lineEdit(), action.text); });
        case Deed::kDoubleList:
            With_Widget<QComboBox>(form, action,
                                   [](auto& list) { QTest::mouseDClick(list.lineEdit(), Qt::LeftButton); });
            return QCoreApplication::processEvents();
        case Deed::kPick: return With_Widget<QAction>(form, action, [](auto& entry) { entry.trigger(); });
        case Deed::kScroll:
        case Deed::kThumb: return With_Widget<QScrollBar>(form, action, [&](auto& bar) { Move_Bar(bar, action); });
        case Deed::kMouse:
            return With_Widget<desktop::PictureWidget>(form, action,
                                                       [&](auto& picture) { Move_Mouse(picture, action); });
        case Deed::kSeek:
            return With_Widget<desktop::GraphWidget>(form, action, [&](desktop::GraphWidget& graph) {
                auto* plot = graph.findChildren<QWidget*>(Qt::FindDirectChildrenOnly).constFirst();
                QTest::mouseClick(plot, Qt::LeftButton, {}, {graph.place(action.value - 1, 0).x(), plot->height() / 2});
            });
        case Deed::kPicture:
            return With_Widget<QWidget>(form, action, [](auto& box) { QTest::mouseClick(&box, Qt::LeftButton); });
        case Deed::kDoublePicture:
            With_Widget<QWidget>(form, action, [](auto& box) { QTest::mouseDClick(&box, Qt::LeftButton); });
            return QCoreApplication::processEvents();
        case Deed::kHover:
            return With_Widget<desktop::PictureWidget>(form, action, [&](auto& picture) {
                Send_Mouse(picture, QEvent::MouseMove, Place_On(picture, action.x, action.y), Qt::NoButton, 0);
            });
        case Deed::kHaul:
            return With_Widget<desktop::PictureWidget>(form, action,
                                                       [&](auto& picture) { Haul_Over(picture, action); });
        case Deed::kGlass:
            return With_Widget<desktop::PictureWidget>(form, action,
                                                       [&](auto& picture) { Turn_Wheel_Over(picture, action); });
        case Deed::kOnPicture:
            return With_Widget<desktop::PictureWidget>(form, action,
                                                       [&](auto& picture) { Press_On(picture, action.text); });
        case Deed::kScreen: return QTest::mouseClick(&form, Qt::LeftButton, {}, {3, form.height() - 3});
        case Deed::kClose: form.close(); return;
        case Deed::kPulse: return Wait_For_Pulse(*Timer_Of(action));
        case Deed::kKeys: return With_Widget<QAction>(form, action, [&](auto& keys) { Press_Sequence(form, keys); });
        case Deed::kDrop: return Drop_File(form, action.text);
    }
}

namespace {

std::string Shown_By(const QObject& object) {
    if (const auto* line = qobject_cast<const QLineEdit*>(&object)) return line->text().toStdString();
    if (const auto* list = qobject_cast<const QComboBox*>(&object)) return list->currentText().toStdString();
    if (const auto* mark = qobject_cast<const QAbstractButton*>(&object)) return mark->isChecked() ? "on" : "off";
    if (const auto* bar = qobject_cast<const QScrollBar*>(&object)) return std::to_string(bar->value());
    return "";
}

/// What the widget is to show; nothing for kinds that show no value.
std::string To_Show(const Control& control) {
    if (const auto* box = dynamic_cast<const TextBox*>(&control)) return box->Shown();
    if (const auto* list = dynamic_cast<const ComboBox*>(&control)) return list->Text;
    if (const auto* option = dynamic_cast<const OptionButton*>(&control)) return option->Value ? "on" : "off";
    if (const auto* check = dynamic_cast<const CheckBox*>(&control)) return check->Value ? "on" : "off";
    if (const auto* bar = dynamic_cast<const ScrollBar*>(&control)) return std::to_string(bar->Value());
    return "";
}

bool Shows_A_Value(const Control& control) {
    return dynamic_cast<const TextBox*>(&control) || dynamic_cast<const ComboBox*>(&control) ||
           dynamic_cast<const OptionButton*>(&control) || dynamic_cast<const CheckBox*>(&control) ||
           dynamic_cast<const ScrollBar*>(&control);
}

}  // namespace

std::string Unlike(const desktop::Form& form) {
    const std::vector<std::string> unplaced = form.unplaced();
    for (const Control* control : form.screen().Controls()) {
        const QObject* object = form.objectOf(*control);
        if (!object || std::ranges::find(unplaced, control->ObjectName()) != unplaced.end()) continue;
        if (Shows_A_Value(*control) && desktop::toQt(To_Show(*control)).toStdString() != Shown_By(*object))
            return control->ObjectName() + " shows \"" + Shown_By(*object) + "\" for \"" + To_Show(*control) + "\"";
        const auto* visual = dynamic_cast<const Visual*>(control);
        const auto* widget = qobject_cast<const QWidget*>(object);
        if (!visual || !widget) continue;
        if (visual->Enabled != widget->isEnabledTo(widget->parentWidget()))
            return control->ObjectName() + (visual->Enabled ? " is closed" : " is open");
        if (visual->Visible && widget->isHidden()) return control->ObjectName() + " is not there";
    }
    return "";
}

}  // namespace verlink::walk
