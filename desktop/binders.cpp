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

#include "desktop/button.h"
#include "desktop/caption.h"
#include "desktop/chart_widgets.h"
#include "desktop/document_widget.h"
#include "desktop/form.h"
#include "desktop/frame_box.h"
#include "desktop/graph_widget.h"
#include "desktop/grid_widget.h"
#include "desktop/keys.h"
#include "desktop/line_box.h"
#include "desktop/lock_widget.h"
#include "desktop/pace.h"
#include "desktop/picture_menu.h"
#include "desktop/picture_widget.h"
#include "desktop/plot_hand.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "platform/charts.h"
#include "platform/controls.h"
#include "platform/deed.h"
#include "platform/graph.h"
#include "platform/grid.h"
#include "platform/lock.h"
#include "platform/overlaid_picture.h"
#include "platform/plot_box.h"
#include "screens/picture_entries.h"

namespace verlink::desktop {

namespace {

using namespace platform;

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

/// A box that holds a refused text tells of that first.
QString tipOf(const Visual& control) {
    const auto* box = dynamic_cast<const TextBox*>(&control);
    const QString tip = lines(control.Tip);
    return box && box->Refused() ? lines(box->Note()) + u'\n' + tip : tip;
}

/// What all visible controls show alike.
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

/// Names the widget, keeps its place when hidden, and shows the control now and at each change.
template <class Show>
void bind(Form& form, Visual& control, QWidget* widget, Show show) {
    widget->setObjectName(toQt(control.ObjectName()));
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
    control.Watcher = [widget, &control, show]() mutable {
        show();
        showVisual(widget, control);
    };
    control.Watcher();
    form.watch(widget, control);
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
    combo->setEditable(true);
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

/// The hand that takes what is drawn, and the one that moves the glass.
void bindHand(Form& form, PictureBox& control, PictureWidget* picture) {
    // Looking is no deed.
    const auto look = [&form, &control](const std::function<void()>& heard) {
        if (form.inUse() && control.Enabled) form.happen(control, heard);
    };
    if (control.OnHover) {
        picture->setMouseTracking(true);
        picture->onHover = [&control, look](const Touch& at) { look([&] { control.OnHover(at); }); };
    }
    if (control.OnLeave) picture->onLeave = [&control, look] { look(control.OnLeave); };
    if (control.OnSeize)
        picture->onSeize = [&form, &control](const Touch& at) {
            bool taken = false;
            form.act(
                control, [&] { taken = control.OnSeize(at); }, Deed::Kind::kDrag);
            return taken;
        };
    if (control.OnDrag)
        picture->onDrag = [&form, &control](const Touch& at) {
            form.act(
                control, [&] { control.OnDrag(at); }, Deed::Kind::kDrag);
        };
    if (control.OnRelease) picture->onLetGo = [&form, &control] { form.happen(control, control.OnRelease); };
    if (control.OnKey)
        picture->onKey = [&form, &control](const Picture_Key& key) {
            form.act(
                control, [&] { control.OnKey(key); }, Deed::Kind::kDrag);
        };
    if (control.Magnifies) picture->magnify();
    picture->onGlass = [&control](const Glass& glass) { control.Through = glass; };
    picture->onSize = [&form, &control](double across) {
        control.Across = across;
        if (control.OnPixel) form.happen(control, control.OnPixel);
    };
}

/// What files of a picture are called.
const char* nameOf(const PictureBox& control) {
    if (dynamic_cast<const PlotBox*>(&control)) return kPlotPicture;
    return control.Name() == "Picture1" && control.Owner().Name() != "frm_Cayley" ? kLinkagePicture : kDiagramPicture;
}

QWidget* make(Form& form, PictureBox& control, QWidget* parent) {
    auto* picture = new PictureWidget(control.Drawing(), parent);
    // One that chooses by a click is no more than the face of a button.
    if (!control.OnClick) new PictureMenu(control, *picture, nameOf(control), [picture] { return sourceOf(*picture); });
    auto* plot = dynamic_cast<PlotBox*>(&control);
    PlotHand* hand = plot ? new PlotHand(*plot, picture) : nullptr;
    bindHand(form, control, picture);
    picture->onMouseMove = [&form, &control](int button, int shift, double x, double y) {
        if (!control.OnMouseMove) return;
        form.act(
            control, [&] { control.OnMouseMove(button, shift, x, y); }, Deed::Kind::kDrag);
    };
    picture->onRelease = [] { Deed::Drag_Ended(); };
    picture->takesClicks = [&control] { return control.OnClick || control.OnDblClick; };
    picture->onClick = [&form, &control] {
        if (control.OnClick) form.act(control, control.OnClick);
    };
    picture->onDoubleClick = [&form, &control] {
        if (control.OnDblClick) form.act(control, control.OnDblClick);
    };
    auto* overlaid = dynamic_cast<Overlaid_Picture*>(&control);
    bind(form, control, picture, [picture, overlaid, hand, &control, &form, keys = std::string()]() mutable {
        picture->setLines(control.Lines);
        if (overlaid) picture->setOverlay(overlaid->Over);
        if (hand) hand->follow();
        picture->setLight(control.Lit);
        picture->setGrip(control.Pointer);
        if (keys != control.Keys.Get()) picture->setKeys(keys = control.Keys);
        if (picture->setGlass(control.Through) && control.OnPixel) form.happen(control, control.OnPixel);
    });
    return picture;
}

QWidget* make(Form& form, Graph& control, QWidget* parent) {
    auto* graph = new GraphWidget(control, parent);
    graph->onSeek = [&form, &control](int point) {
        form.act(
            control, [&] { control.OnSeek(point); }, Deed::Kind::kDrag);
    };
    graph->onSought = [&form, &control] {
        form.happen(control, [&] {
            if (control.OnSought) control.OnSought();
        });
        Deed::Drag_Ended();
    };
    bind(form, control, graph, [graph] { graph->follow(); });
    return graph;
}

QWidget* make(Form& form, Histogram& control, QWidget* parent) {
    auto* histogram = new HistogramWidget(control, parent);
    histogram->onPick = [&form, &control](double value) {
        if (control.OnPick) form.act(control, [&] { control.OnPick(value); });
    };
    bind(form, control, histogram, [histogram] { histogram->follow(); });
    return histogram;
}

QWidget* make(Form& form, Bars& control, QWidget* parent) {
    auto* bars = new BarsWidget(control, parent);
    bind(form, control, bars, [bars] { bars->follow(); });
    return bars;
}

QWidget* make(Form& form, Color_Map& control, QWidget* parent) {
    auto* map = new ColorMapWidget(control, parent);
    map->onPick = [&form, &control](Color_Map::Cell cell) {
        if (control.OnPick) form.act(control, [&] { control.OnPick(cell); });
    };
    bind(form, control, map, [map] { map->follow(); });
    return map;
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
    if (auto* picture = dynamic_cast<PictureBox*>(&control)) return make(form, *picture, parent);
    if (auto* graph = dynamic_cast<Graph*>(&control)) return make(form, *graph, parent);
    if (auto* histogram = dynamic_cast<Histogram*>(&control)) return make(form, *histogram, parent);
    if (auto* bars = dynamic_cast<Bars*>(&control)) return make(form, *bars, parent);
    if (auto* map = dynamic_cast<Color_Map*>(&control)) return make(form, *map, parent);
    if (auto* grid = dynamic_cast<Grid*>(&control)) return make(form, *grid, parent);
    if (auto* view = dynamic_cast<DocumentView*>(&control)) return make(form, *view, parent);
    if (auto* timer = dynamic_cast<Timer*>(&control)) return make(form, *timer, parent);
    if (auto* shortcut = dynamic_cast<Shortcut*>(&control)) return makeShortcut(form, *shortcut);
    return nullptr;
}

}  // namespace verlink::desktop
