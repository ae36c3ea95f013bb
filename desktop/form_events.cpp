// How focus, keys, the mouse and closing reach the screen of a window.
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>

#include "desktop/form.h"
#include "desktop/keys.h"
#include "desktop/messages.h"
#include "desktop/pace.h"
#include "desktop/picture_widget.h"
#include "platform/guard.h"
#include "shell/history.h"

namespace verlink::desktop {

using namespace platform;

namespace {

bool takesKey(const QWidget* widget, const QKeyEvent& key) {
    const auto* picture = dynamic_cast<const PictureWidget*>(widget);
    return picture && picture->takes(key);
}

bool isReturn(const QKeyEvent& key) { return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter; }

}  // namespace

/// Undo and redo by their keys. What is being typed goes back first, as far as its line knows it.
bool Form::undoes(QKeyEvent* event, QWidget* at) {
    const bool undo = event->matches(QKeySequence::Undo);
    const bool redo = event->matches(QKeySequence::Redo) ||
                      (event->key() == Qt::Key_Y && event->modifiers() == Qt::ControlModifier) ||
                      (event->key() == Qt::Key_Z && event->modifiers() == (Qt::ControlModifier | Qt::ShiftModifier));
    if ((!undo && !redo) || !The_History().Serves(screen_)) return false;
    if (auto* line = qobject_cast<QLineEdit*>(at)) {
        const auto* box = dynamic_cast<TextBox*>(screen_.Focus());
        if (box && box->Touched() && (undo ? line->isUndoAvailable() : line->isRedoAvailable())) return false;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (!inUse()) return true;
    const Deed at_work(undo ? "undo" : "redo");
    Guarded(screen_.Name(), [undo] { undo ? The_History().Undo() : The_History().Redo(); });
    return true;
}

void Form::closeEvent(QCloseEvent* event) {
    event->ignore();
    if (!inUse()) return;
    const Deed at_work("closing");
    Guarded(screen_.Name(), [this] { screen_.Close(); });
}

/// Is there nothing on it but words?
bool Form::onlyTells() const {
    return std::all_of(watched_.begin(), watched_.end(), [](const auto& entry) {
        return dynamic_cast<const Label*>(entry.second) || dynamic_cast<const Frame*>(entry.second);
    });
}

bool Form::event(QEvent* event) {
    // Where no line edit has the keys.
    if (event->type() == QEvent::ShortcutOverride && undoes(static_cast<QKeyEvent*>(event), this)) return true;
    return QMainWindow::event(event);
}

void Form::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    const QSize before = event->oldSize();
    // No hand has made it smaller than its layout can be.
    if (before.width() < minimumWidth() || before.height() < minimumHeight()) growInside(before);
}

void Form::keyPressEvent(QKeyEvent* event) {
    if (undoes(event, this)) return;
    const auto press = [this](CommandButton* button) {
        auto* widget = buttonOf(button);
        if (!widget || !widget->isEnabled() || widget->isHidden()) return false;
        widget->click();
        return true;
    };
    const bool forward = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if ((forward || event->key() == Qt::Key_Escape) && onlyTells()) {
        // Such a screen goes by a click, and by these keys as well.
        if (inUse()) Guarded(screen_.Name(), [this] { screen_.Form_Click(); });
        return;
    }
    if (forward) {
        if (press(dynamic_cast<CommandButton*>(screen_.Focus())) || press(screen_.DefaultButton)) return;
    } else if (event->key() == Qt::Key_Escape) {
        if (press(screen_.CancelButton)) return;
    }
    QMainWindow::keyPressEvent(event);
}

void Form::mouseReleaseEvent(QMouseEvent* event) {
    QMainWindow::mouseReleaseEvent(event);
    // What labels, frames and the bare window leave over; a press that began elsewhere is no click.
    if (inUse() && rect().contains(event->position().toPoint()))
        Guarded(screen_.Name(), [this] { screen_.Form_Click(); });
}

void Form::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange && event->type() != QEvent::StyleChange) return;
    for (const auto& paint : restyle) paint();
}

void Form::focusCame(Visual& control, QWidget* widget, Qt::FocusReason reason) {
    const int before = interruptions();
    walked_to_ = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ? widget : nullptr;
    mouse_focus_ = reason == Qt::MouseFocusReason;
    act(control, [&] { screen_.MoveFocus(&control); });
    mouse_focus_ = false;
    // A message that came up on leaving the old control has eaten the release of this press: without the press
    // being dropped too, the button would stay down.
    if (reason == Qt::MouseFocusReason && interruptions() != before) swallow_press_ = widget;
}

bool Form::eventFilter(QObject* object, QEvent* event) {
    const auto found = watched_.find(object);
    if (closing_ || found == watched_.end()) return QMainWindow::eventFilter(object, event);
    auto* widget = static_cast<QWidget*>(object);
    switch (event->type()) {
        case QEvent::FocusIn:
            swallow_press_ = nullptr;
            select_on_release_ = nullptr;
            focusCame(*found->second, widget, static_cast<QFocusEvent*>(event)->reason());
            break;
        case QEvent::MouseButtonPress:
            if (swallow_press_ == widget) {
                swallow_press_ = nullptr;
                return true;
            }
            break;
        case QEvent::MouseButtonRelease:
            if (auto* edit = qobject_cast<QLineEdit*>(widget); edit && select_on_release_ == edit) {
                select_on_release_ = nullptr;
                if (!edit->hasSelectedText()) edit->selectAll();
            }
            break;
        case QEvent::Wheel:
            if (qobject_cast<QComboBox*>(widget)) {
                event->ignore();
                return true;
            }
            break;
        case QEvent::ShortcutOverride:
            if (undoes(static_cast<QKeyEvent*>(event), widget)) return true;
            if (takesKey(widget, *static_cast<QKeyEvent*>(event)) ||
                keepsKey(*found->second, *static_cast<QKeyEvent*>(event), walked_to_ == widget)) {
                event->accept();
                return true;
            }
            break;
        case QEvent::KeyPress:
            if (undoes(static_cast<QKeyEvent*>(event), widget)) return true;
            if (auto* box = dynamic_cast<TextBox*>(found->second);
                box && box->OnReturn && isReturn(*static_cast<QKeyEvent*>(event))) {
                act(*box, [box] { box->Return(); });
                return true;
            }
            break;
        default: break;
    }
    return QMainWindow::eventFilter(object, event);
}

}  // namespace verlink::desktop
