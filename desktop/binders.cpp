// One function a kind of control: the widget, what it shows, and what the hand on it does.
#include "desktop/binders.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTimer>
#include <algorithm>
#include <memory>
#include <utility>

#include "desktop/bind.h"
#include "desktop/button.h"
#include "desktop/caption.h"
#include "desktop/document_widget.h"
#include "desktop/frame_box.h"
#include "desktop/grid_widget.h"
#include "desktop/keys.h"
#include "desktop/line_box.h"
#include "desktop/lock_widget.h"
#include "desktop/theme.h"
#include "platform/deed.h"
#include "platform/grid.h"
#include "platform/lock.h"

namespace verlink::desktop {

using namespace platform;

namespace {

/// A box that holds a refused text tells of that first.
QString tipOf(const Visual& control) {
    const auto* box = dynamic_cast<const TextBox*>(&control);
    const QString tip = lines(control.Tip);
    return box && box->Refused() ? lines(box->Note()) + u'\n' + tip : tip;
}

/// Sets the back colour of a control. What is derived keeps its colour while it is disabled; what is typed does
/// not, since nothing can be typed there then.
void paintBack(QWidget* widget, QPalette::ColorRole role, Color wished) {
    const QColor color = backColor(wished, widget->window()->palette());
    if (color.isValid() && widget->palette().color(QPalette::Active, role) == color) return;
    QPalette own;
    if (color.isValid()) {
        own.setColor(QPalette::Active, role, color);
        own.setColor(QPalette::Inactive, role, color);
        if (wished != kYellow) own.setColor(QPalette::Disabled, role, color);
    }
    widget->setPalette(own);
}

template <class Text>
void setIfOther(Text* widget, const QString& text) {
    if (widget->text() != text) widget->setText(text);
}

QWidget* make(Form& form, Label& control, QWidget* parent) {
    auto* label = new Caption(parent);
    const auto back = [label, &control] { label->setBack(backColor(control.BackColor, label->window()->palette())); };
    bind(form, control, label, [label, &control, back] {
        setIfOther(label, lines(control.Caption));
        if (control.ForeColor != kStyleColor) label->setFore(plainColor(control.ForeColor));
        label->setAnchor(control.At);
        back();
    });
    form.restyle.emplace_back(back);
    return label;
}

QWidget* make(Form& form, Frame& control, QWidget* parent) {
    auto* frame = new FrameBox(parent);
    const auto back = [frame, &control] { frame->setBack(backColor(control.BackColor, frame->window()->palette())); };
    bind(form, control, frame, [frame, &control, back] {
        if (frame->title() != lines(control.Caption)) frame->setTitle(lines(control.Caption));
        back();
    });
    form.restyle.emplace_back(back);
    return frame;
}

/// What is typed into is yellow unless the program says otherwise.
Color boxColor(const Visual& control) { return control.BackColor == kStyleColor ? kYellow : control.BackColor.Get(); }
/// What the program alone writes into is cyan likewise.
Color boxColor(const TextBox& control) {
    return control.Locked && control.BackColor == kStyleColor ? kCyan : boxColor(static_cast<const Visual&>(control));
}

QWidget* make(Form& form, TextBox& control, QWidget* parent) {
    auto* edit = new LineBox(parent);
    const auto back = [edit, &control] { paintBack(edit, QPalette::Base, boxColor(control)); };
    bind(form, control, edit, [&form, edit, &control, back, selected = false]() mutable {
        const bool other = edit->text() != toQt(control.Shown());
        setIfOther(edit, toQt(control.Shown()));
        edit->setRefusal(lines(control.Note()));
        if (other && !edit->hasFocus()) edit->setCursorPosition(0);  // a long text shows its beginning
        if (edit->isReadOnly() != control.Locked) edit->setReadOnly(control.Locked);
        back();
        if (control.SelectedAll && !selected) {
            edit->selectAll();
            form.selectOnRelease(edit);
        }
        selected = control.SelectedAll;
    });
    form.restyle.emplace_back(back);
    QObject::connect(edit, &QLineEdit::textEdited, edit, [&form, &control](const QString& text) {
        form.act(
            control,
            [&] {
                control.SelectedAll = false;
                control.Type(fromQt(text));
            },
            Deed::Kind::kTyped);
        control.Notify();
    });
    return edit;
}

QWidget* make(Form& form, CommandButton& control, QWidget* parent) {
    auto* button = new Button(parent);
    bind(form, control, button, [button, &control] { setIfOther(button, toQt(control.Caption)); });
    QObject::connect(button, &QPushButton::clicked, button, [&form, &control] {
        form.act(control, [&] {
            control.SetFocus();
            control.Click();
        });
    });
    bindKeys(form, control);
    return button;
}

QWidget* make(Form& form, OptionButton& control, QWidget* parent) {
    auto* button = new QRadioButton(parent);
    QButtonGroup* group = form.optionGroup(control.Name());
    if (group->checkedButton()) button->setFocusPolicy(Qt::ClickFocus);
    group->addButton(button);
    const auto show = [button, group, &control] {
        setIfOther(button, toQt(control.Caption));
        if (button->isChecked() == control.Value) return;
        const QSignalBlocker quiet(button);
        group->setExclusive(false);
        button->setChecked(control.Value);
        group->setExclusive(true);
        // The tab key comes to the choice in force.
        if (!control.Value) return;
        for (QAbstractButton* other : group->buttons())
            other->setFocusPolicy(other == button ? Qt::StrongFocus : Qt::ClickFocus);
    };
    bind(form, control, button, show);
    QObject::connect(button, &QRadioButton::clicked, button, [&form, &control] {
        form.act(control, [&] {
            control.SetFocus();
            control.Click();
        });
        // The handler may have decided otherwise.
        for (Control* other : control.Owner().Controls())
            if (other->Name() == control.Name()) other->Notify();
    });
    return button;
}

void connectTick(Form& form, CheckBox& control, QCheckBox* box) {
    QObject::connect(box, &QCheckBox::clicked, box, [&form, &control] {
        form.act(control, [&] {
            control.SetFocus();
            control.Click();
        });
        control.Notify();
    });
}

QWidget* make(Form& form, CheckBox& control, QWidget* parent) {
    auto* box = new QCheckBox(parent);
    bind(form, control, box, [box, &control] {
        setIfOther(box, toQt(control.Caption));
        if (box->isChecked() != control.Value) box->setChecked(control.Value);
    });
    connectTick(form, control, box);
    return box;
}

QWidget* make(Form& form, Lock& control, QWidget* parent) {
    auto* lock = new LockWidget(parent);
    bind(form, control, lock, [lock, &control] {
        lock->setAccessibleName(toQt(control.Caption));
        if (lock->isChecked() != control.Value) lock->setChecked(control.Value);
    });
    connectTick(form, control, lock);
    return lock;
}

/// The mouse on the line of a combo box.
class LineMouse : public QObject {
   public:
    explicit LineMouse(QLineEdit* line) : QObject(line), line_(line) { line->installEventFilter(this); }
    std::function<void()> onDoubleClick;
    /// The press that brings the focus only puts the cursor down: its release selects the text.
    bool select_on_release = false;

   protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        // Posted: the deed may show a screen and not return.
        if (event->type() == QEvent::MouseButtonDblClick) QTimer::singleShot(0, this, onDoubleClick);
        if (event->type() == QEvent::MouseButtonRelease && std::exchange(select_on_release, false))
            QTimer::singleShot(0, line_, &QLineEdit::selectAll);
        return QObject::eventFilter(object, event);
    }

   private:
    QLineEdit* line_;
};

QWidget* make(Form& form, ComboBox& control, QWidget* parent) {
    auto* combo = new QComboBox(parent);
    combo->setLineEdit(new LineBox(combo));
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    // By itself it picks the entry that its text names when it loses the focus, which nobody has asked for.
    QObject::disconnect(combo->lineEdit(), &QLineEdit::editingFinished, combo, nullptr);
    const auto back = [combo, &control] { paintBack(combo, QPalette::Base, boxColor(control)); };
    auto* mouse = new LineMouse(combo->lineEdit());
    mouse->onDoubleClick = [&form, &control] {
        if (control.OnDblClick && control.Enabled) form.act(control, control.OnDblClick);
    };
    bind(form, control, combo,
         [combo, mouse, &control, back, shown = std::vector<std::string>(), selected = false]() mutable {
             const QSignalBlocker quiet(combo);
             if (shown != control.Items()) {
                 shown = control.Items();
                 combo->clear();
                 for (const std::string& item : shown) combo->addItem(toQt(item));
             }
             if (combo->currentIndex() != control.ListIndex()) combo->setCurrentIndex(control.ListIndex());
             if (combo->currentText() != toQt(control.Text)) combo->setEditText(toQt(control.Text));
             if (!combo->hasFocus()) combo->lineEdit()->home(false);
             back();
             if (control.SelectedAll && !selected) {
                 combo->lineEdit()->selectAll();
                 mouse->select_on_release = QApplication::mouseButtons() != Qt::NoButton;
             }
             selected = control.SelectedAll;
         });
    form.restyle.emplace_back(back);
    QObject::connect(combo->lineEdit(), &QLineEdit::textEdited, combo, [&form, &control](const QString& text) {
        form.act(control, [&] {
            control.SelectedAll = false;
            control.Text = fromQt(text);
        });
        control.Notify();
    });
    QObject::connect(combo, &QComboBox::activated, combo, [&form, &control, combo](int index) {
        form.act(control, [&] { control.Choose(index); });
        control.Notify();
        combo->lineEdit()->home(false);
    });
    // What is longer than the box shows its beginning.
    QObject::connect(combo->lineEdit(), &QLineEdit::editingFinished, combo, [combo] {
        if (!combo->hasFocus()) combo->lineEdit()->home(false);
    });
    return combo;
}

/// The arrow keys move the thumb to where they point; the toolkit's own has them the other way round.
class Bar : public QScrollBar {
   public:
    explicit Bar(QWidget* parent) : QScrollBar(Qt::Horizontal, parent) {}

   protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right) return QScrollBar::keyPressEvent(event);
        const bool up = (event->key() == Qt::Key_Right) != invertedAppearance();
        triggerAction(up ? SliderSingleStepAdd : SliderSingleStepSub);
    }
};

QWidget* make(Form& form, ScrollBar& control, QWidget* parent) {
    auto* bar = new Bar(parent);
    bar->setFocusPolicy(Qt::StrongFocus);
    bind(form, control, bar, [bar, &control] {
        const QSignalBlocker quiet(bar);
        bar->setInvertedAppearance(control.Min() > control.Max());
        bar->setRange(std::min(control.Min(), control.Max()), std::max(control.Min(), control.Max()));
        bar->setSingleStep(control.SmallChange);
        bar->setPageStep(control.LargeChange);
        bar->setValue(control.Value());
    });
    QObject::connect(bar, &QScrollBar::actionTriggered, bar, [&form, &control, bar](int action) {
        const int wished = bar->sliderPosition();
        const bool drags = action == QAbstractSlider::SliderMove && bar->isSliderDown();
        form.act(
            control,
            [&] {
                if (drags)
                    control.Drag(wished);
                else
                    control.SetValue(std::clamp(wished, bar->minimum(), bar->maximum()));
            },
            drags ? Deed::Kind::kDrag : Deed::Kind::kWhole);
        bar->setSliderPosition(control.Value());
    });
    QObject::connect(bar, &QScrollBar::sliderReleased, bar, [&form, &control] {
        form.happen(control, [&] { control.Drop(); });
        Deed::Drag_Ended();
    });
    return bar;
}

QWidget* make(Form& form, Grid& control, QWidget* parent) {
    auto* grid = new GridWidget(control, parent);
    bind(form, control, grid, [grid] { grid->follow(); });
    return grid;
}

QWidget* make(Form& form, DocumentView& control, QWidget* parent) {
    auto* view = new DocumentWidget(parent);
    const auto tell = [view, &control, &form] {
        control.Pages = view->pages();
        control.Finds = view->finds();
        control.Scale = view->scale();
        control.Headings.clear();
        if (control.Pages > 0)
            for (const DocumentPlaces::Heading& heading : view->headings())
                control.Headings.push_back({heading.level, fromQt(heading.title), fromQt(heading.name)});
        form.happen(control, [&] {
            if (control.Pages > 0) control.Page = view->page();
            if (control.OnChange) control.OnChange();
        });
    };
    struct Shown {
        std::string document, sought;
        int page = 1, find = 0;
        double zoom = 0;
    };
    bind(form, control, view, [view, &control, tell, shown = std::make_shared<Shown>()] {
        if (control.Document != shown->document) {
            const std::string wished = control.Document;
            shown->document = wished.substr(0, wished.find('#'));
            shown->page = 1;
            shown->find = 0;
            view->show(toQt(wished));
            control.Document = shown->document;
            tell();
        }
        if (control.Zoom != shown->zoom) view->setZoom(shown->zoom = control.Zoom);
        if (control.Sought != shown->sought) {
            shown->sought = control.Sought;
            std::vector<QString> library;
            for (const std::string& document : control.Library) library.push_back(toQt(document));
            control.Everywhere.clear();
            for (const DocumentWidget::Place& place : view->seekIn(library, toQt(shown->sought)))
                control.Everywhere.push_back({fromQt(place.document), fromQt(place.title), place.finds});
            view->seek(toQt(shown->sought));
        }
        if (control.Find != shown->find) view->setFind(shown->find = control.Find);
        if (control.Page != shown->page) view->setPage(shown->page = control.Page);
    });
    view->onChange = tell;
    view->onLink = [&control, &form](const QString& target) {
        form.act(control, [&] {
            if (control.OnLink) control.OnLink(fromQt(target));
        });
    };
    return view;
}

QObject* make(Form& form, Timer& control, QWidget* parent) {
    auto* timer = new QTimer(parent);
    timer->setObjectName(toQt(control.ObjectName()));
    control.Watcher = [timer, &control] {
        const bool runs = control.Enabled && control.Interval > 0;
        if (runs && (!timer->isActive() || timer->interval() != control.Interval)) timer->start(control.Interval);
        if (!runs) timer->stop();
    };
    control.Watcher();
    QObject::connect(timer, &QTimer::timeout, timer, [&form, &control] {
        const Deed at_work(control, Deed::Kind::kTimed);
        form.happen(control, [&] { control.Tick(); });
    });
    return timer;
}

}  // namespace

void showVisual(QWidget* widget, const Visual& control) {
    // Apart from what a disabled frame around it does.
    if (widget->isEnabledTo(widget->parentWidget()) != control.Enabled) widget->setEnabled(control.Enabled);
    widget->setVisible(control.Visible);
    const QString tip = tipOf(control);
    // A tip may hold a text of the model, which is shown as it stands.
    const QString shown = Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip;
    if (widget->toolTip() != shown) {
        widget->setToolTip(shown);
        widget->setAccessibleDescription(tip);
    }
}

QObject* makeObject(Form& form, Control& control, QWidget* parent) {
    if (auto* label = dynamic_cast<Label*>(&control)) return make(form, *label, parent);
    if (auto* frame = dynamic_cast<Frame*>(&control)) return make(form, *frame, parent);
    if (auto* box = dynamic_cast<TextBox*>(&control)) return make(form, *box, parent);
    if (auto* button = dynamic_cast<CommandButton*>(&control)) return make(form, *button, parent);
    if (auto* option = dynamic_cast<OptionButton*>(&control)) return make(form, *option, parent);
    if (auto* lock = dynamic_cast<Lock*>(&control)) return make(form, *lock, parent);
    if (auto* tick = dynamic_cast<CheckBox*>(&control)) return make(form, *tick, parent);
    if (auto* combo = dynamic_cast<ComboBox*>(&control)) return make(form, *combo, parent);
    if (auto* bar = dynamic_cast<ScrollBar*>(&control)) return make(form, *bar, parent);
    if (QWidget* drawn = makeDrawn(form, control, parent)) return drawn;
    if (auto* grid = dynamic_cast<Grid*>(&control)) return make(form, *grid, parent);
    if (auto* view = dynamic_cast<DocumentView*>(&control)) return make(form, *view, parent);
    if (auto* timer = dynamic_cast<Timer*>(&control)) return make(form, *timer, parent);
    if (auto* shortcut = dynamic_cast<Shortcut*>(&control)) return makeShortcut(form, *shortcut);
    return nullptr;
}

}  // namespace verlink::desktop
