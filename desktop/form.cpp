// How a screen's window is made, placed and asked for its widgets.
#include "desktop/form.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>
#include <algorithm>
#include <set>

#include "desktop/binders.h"
#include "desktop/file_drops.h"
#include "desktop/fold.h"
#include "desktop/frame_box.h"
#include "desktop/grid.h"
#include "desktop/keys.h"
#include "desktop/layouts.h"
#include "desktop/menu_keys.h"
#include "desktop/pace.h"
#include "desktop/picture_widget.h"
#include "desktop/text.h"
#include "desktop/window_places.h"
#include "platform/guard.h"
#include "screens/edit_menu.h"

namespace verlink::desktop {

using namespace platform;

namespace {

/// What a title bar and a panel take from the height of a display.
constexpr int kDecoration = 56;
constexpr double kHomeHeight = 9480, kHomeWidth = 11850;

QRect availableDisplay() { return QGuiApplication::primaryScreen()->availableGeometry(); }

/// The room itself where the display can hold it, else a view of it that scrolls.
QWidget* fitted(QWidget* room) {
    room->ensurePolished();
    const QSize least = room->minimumSizeHint();
    const QRect display = availableDisplay();
    if (least.width() <= display.width() && least.height() <= display.height() - kDecoration) return room;
    auto* view = new QScrollArea;
    view->setFrameShape(QFrame::NoFrame);
    view->setWidgetResizable(true);
    view->setWidget(room);
    return view;
}

/// The title of the frame around a widget; empty for none.
QString titleAround(const QWidget* widget) {
    for (const QWidget* around = widget->parentWidget(); around; around = around->parentWidget())
        if (const auto* frame = dynamic_cast<const FrameBox*>(around); frame && !frame->title().isEmpty())
            return frame->title();
    return {};
}

}  // namespace

double Form::twipsPerPixel() {
    const QRect display = availableDisplay();
    return std::max({10.0, kHomeHeight / (display.height() - kDecoration), kHomeWidth / (display.width() - kGap)});
}

Form::Form(Screen& screen) : screen_(screen) {
    setObjectName(toQt(screen.Name()));
    room_ = new QWidget(this);
    room_->setObjectName(QStringLiteral("room"));
    makeWidgets();
    makeMenus();
    layoutFor(screen.Name())(*this, room_);
    nameTheNameless();
    tellApart();
    setCentralWidget(fitted(room_));
    // Labels and frames take no focus; a chain that led over them would fall apart there.
    QWidget* before = nullptr;
    for (QWidget* widget : order_) {
        if (widget->focusPolicy() == Qt::NoFocus) continue;
        if (before) setTabOrder(before, widget);
        before = widget;
    }
    for (const auto& name : unplaced())
        if (auto* lost = findChild<QWidget*>(toQt(name))) lost->hide();

    screen_.ShapeWatcher() = [this] { applyShape(); };
    screen_.FocusWatcher = [this](Control* control) {
        auto* widget = qobject_cast<QWidget*>(control ? objectOf(*control) : nullptr);
        if (!widget || widget->hasFocus()) return;
        unfoldAround(widget);
        widget->setFocus(Qt::OtherFocusReason);
    };
    showCaption();
    for (FoldHandle* handle : foldsOf(this)) handle->takeKept();
    if (QPushButton* button = buttonOf(screen_.DefaultButton)) button->setDefault(true);
    if (screen_.OnDrop) new FileDrops(*this);
}

Form::~Form() {
    // Focus leaves the widgets one by one while the window goes; the screen is not to hear of it.
    closing_ = true;
    for (const auto& [object, control] : watched_) object->removeEventFilter(this);
    for (Control* control : screen_.Controls()) control->Watcher = nullptr;
    screen_.ShapeWatcher() = nullptr;
    screen_.FocusWatcher = nullptr;
}

void Form::makeWidgets() {
    for (Control* control : screen_.Controls())
        if (QObject* object = makeObject(*this, *control, room_)) objects_[control] = object;
}

void Form::makeMenus() {
    for (Control* control : screen_.Controls()) {
        auto* entry = dynamic_cast<MenuEntry*>(control);
        if (entry && !entry->Parent()) addEntry(*entry, nullptr);
    }
    if (auto* bar = qobject_cast<QMenuBar*>(menuWidget())) new MenuKeys(*bar);
}

/// What has neither a label at its side nor a text of its own is known by what its tip says.
void Form::nameTheNameless() {
    std::set<const QWidget*> labelled;
    for (const QLabel* label : findChildren<QLabel*>())
        if (label->buddy()) labelled.insert(label->buddy());
    for (const auto& [object, control] : watched_) {
        auto* widget = static_cast<QWidget*>(object);
        if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QLabel*>(widget) || labelled.contains(widget))
            continue;
        if (widget->accessibleName().isEmpty()) widget->setAccessibleName(lines(control->Tip));
    }
}

/// Where several would be told alike, as the buttons of the slots of a plot, each is told with the title of the frame
/// it stands in, or else with what its tip says, or else with its number.
void Form::tellApart() {
    std::map<QString, std::vector<QWidget*>> alike;
    for (Control* control : screen_.Controls()) {
        auto* widget = qobject_cast<QWidget*>(objectOf(*control));
        if (!widget || dynamic_cast<Label*>(control) || dynamic_cast<Frame*>(control)) continue;
        if (QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget))
            alike[told->text(QAccessible::Name)].push_back(widget);
    }
    for (const auto& [name, widgets] : alike) {
        if (widgets.size() < 2) continue;
        std::set<QString> frames, tips;
        for (const QWidget* widget : widgets) {
            frames.insert(titleAround(widget));
            tips.insert(widget->toolTip());
        }
        int number = 0;
        for (QWidget* widget : widgets) {
            ++number;
            const QString around = titleAround(widget);
            if (frames.size() == widgets.size())
                widget->setAccessibleName(around.isEmpty() ? name : name + QStringLiteral(", ") + around);
            else if (tips.size() == widgets.size())
                widget->setAccessibleName(name + QStringLiteral(": ") + widget->toolTip());
            else
                widget->setAccessibleName(name + u' ' + QString::number(number));
        }
    }
}

void Form::addEntry(MenuEntry& entry, QMenu* menu) {
    QAction* action = nullptr;
    if (entry.Children().empty()) {
        action = menu ? menu->addAction(QString()) : menuBar()->addAction(QString());
        action->setSeparator(menu && entry.Caption.Get().empty());
        action->setShortcuts(sequences(entry.Keys));
        action->setAutoRepeat(false);
        connect(action, &QAction::triggered, this, [this, &entry] {
            act(entry, [&] { entry.Click(); });
            entry.Notify();
        });
    } else {
        QMenu* below = menu ? menu->addMenu(QString()) : menuBar()->addMenu(QString());
        below->setToolTipsVisible(true);
        for (MenuEntry* child : entry.Children()) addEntry(*child, below);
        connect(below, &QMenu::aboutToShow, this, [this, &entry] { act(entry, [&] { entry.Open(); }); });
        action = below->menuAction();
    }
    action->setObjectName(toQt(entry.ObjectName()));
    objects_[&entry] = action;
    entry.Watcher = [action, &entry] {
        action->setText(toQt(entry.Caption));
        action->setEnabled(entry.Enabled);
        action->setVisible(entry.Visible);
        if (!entry.Tip.Get().empty()) action->setToolTip(toQt(entry.Tip));
        // An entry shows the place for its mark from the first mark on.
        if (entry.Checked) action->setCheckable(true);
        action->setChecked(entry.Checked);
    };
    entry.Watcher();
}

QObject* Form::objectOf(const Control& control) const {
    const auto found = objects_.find(&control);
    return found == objects_.end() ? nullptr : found->second;
}

bool Form::has(const char* name, int index) const {
    return std::any_of(objects_.begin(), objects_.end(), [&](const auto& entry) {
        return (entry.first->Name() == name && entry.first->Index() == index) ||
               (index == kNoIndex && entry.first->ObjectName() == name);
    });
}

QWidget* Form::widget(const char* name, int index) {
    for (const auto& [control, object] : objects_) {
        const bool same = (control->Name() == name && control->Index() == index) ||
                          (index == kNoIndex && control->ObjectName() == name);
        if (!same) continue;
        if (auto* found = qobject_cast<QWidget*>(object)) {
            // A layout may ask twice, as when it makes buttons equally wide: the first time counts.
            if (std::find(order_.begin(), order_.end(), found) == order_.end()) order_.push_back(found);
            return found;
        }
    }
    qFatal("the layout of %s asks for %s %d, which the screen does not declare", screen_.Name().c_str(), name, index);
    return nullptr;
}

FrameBox* Form::frame(const char* name, int index) {
    auto* found = dynamic_cast<FrameBox*>(widget(name, index));
    if (!found) qFatal("%s of %s is not a frame", name, screen_.Name().c_str());
    return found;
}

PictureWidget* Form::picture(const char* name, int index) {
    auto* found = dynamic_cast<PictureWidget*>(widget(name, index));
    if (!found) qFatal("%s of %s is not a picture", name, screen_.Name().c_str());
    return found;
}

QWidget* Form::walkTo(QWidget* widget) {
    order_.push_back(widget);
    return widget;
}

std::vector<std::string> Form::unplaced() const {
    std::vector<std::string> names;
    for (Control* control : screen_.Controls()) {
        auto* widget = qobject_cast<QWidget*>(objectOf(*control));
        if (widget && std::find(order_.begin(), order_.end(), widget) == order_.end())
            names.push_back(control->ObjectName());
    }
    return names;
}

QButtonGroup* Form::optionGroup(const std::string& name) {
    QButtonGroup*& group = groups_[name];
    if (!group) group = new QButtonGroup(this);
    return group;
}

QPushButton* Form::buttonOf(CommandButton* button) const {
    return button ? qobject_cast<QPushButton*>(objectOf(*button)) : nullptr;
}

/// Is it up, with no other window or dialog over it? Keys that are pressed faster than windows come and go still find
/// the widgets of the last one.
bool Form::inUse() const {
    if (closing_ || inPause() || !isVisible()) return false;
    const QWidget* modal = QApplication::activeModalWidget();
    if (!modal || modal == this) return true;
    return screen_.Beside() && modal->windowModality() == Qt::WindowModal;
}

void Form::act(const Control& control, const std::function<void()>& deed, Deed::Kind kind) {
    const auto* widget = qobject_cast<QWidget*>(objectOf(control));
    if (!inUse() || (widget && !widget->isEnabled())) return;
    const Deed at_work(control, kind);
    Guarded(control.ObjectName(), deed);
}

void Form::happen(const Control& control, const std::function<void()>& deed) {
    if (!closing_ && !inPause()) Guarded(control.ObjectName(), deed);
}

void Form::act(const std::function<void(const std::string&)>& deed, const std::string& what) {
    if (!inUse() || !deed) return;
    const Deed at_work("dropping a file");
    Guarded(screen_.Name(), [&] { deed(what); });
}

/// Blanks at the end of a caption would push its words out of a narrow title bar.
void Form::showCaption() {
    QString caption = toQt(screen_.Caption());
    while (caption.endsWith(u' ')) caption.chop(1);
    const QString model = toQt(Name_In_Hand());
    if (!model.isEmpty() && Tells_Of_The_Model(screen_)) caption = model + QStringLiteral(" - ") + caption;
    if (windowTitle() != caption) setWindowTitle(caption);
}

void Form::applyShape() {
    showCaption();
    const bool size_changed = screen_.Width() != width_ || screen_.Height() != height_;
    const bool place_changed = screen_.Left() != left_ || screen_.Top() != top_;
    if (size_changed || (place_changed && !at_kept_place_)) {
        if (isMaximized()) showNormal();
        takePlace(size_changed);
    }
    width_ = screen_.Width();
    height_ = screen_.Height();
    left_ = screen_.Left();
    top_ = screen_.Top();
}

/// Where it was kept once, and else as the program wishes.
void Form::takePlace(bool size_changed) {
    const double twips = twipsPerPixel();
    const QRect display = availableDisplay();
    const QSize wish(qRound(screen_.Width() / twips), qRound(screen_.Height() / twips));
    const QSize most(display.width(), display.height() - kDecoration / 2);
    QSize least = minimumSizeHint();
    // What scrolls for want of room gets all the room there is.
    if (centralWidget() != room_) least = least.expandedTo(room_->minimumSizeHint()).boundedTo(most);
    at_kept_place_ = !placed_ && takeKeptPlace(*this, least);
    placed_ = placed_ || at_kept_place_;
    if (at_kept_place_) return;
    if (size_changed) resize(roomForHero(wish.boundedTo(most).expandedTo(least)).boundedTo(most.expandedTo(least)));
    // Where the layout needs more than the wish, the window grows to both sides.
    const int x = display.left() + qRound(screen_.Left() / twips) - (width() - wish.width()) / 2;
    const int y = display.top() + qRound(screen_.Top() / twips);
    move(std::clamp(x, display.left(), std::max(display.left(), display.right() + 1 - width())),
         std::clamp(y, display.top(), std::max(display.top(), display.bottom() + 1 - height() - kDecoration / 2)));
}

void Form::growInside(QSize before) {
    if (!windowHandle() || isMaximized()) return;
    const QRect display = windowHandle()->screen()->availableGeometry(), place = frameGeometry();
    const auto back = [](int over, int grown, int room) { return std::max(0, std::min({over, grown, room})); };
    const QPoint shift(
        back(place.right() - display.right(), width() - before.width(), place.left() - display.left()),
        back(place.bottom() - display.bottom(), height() - before.height(), place.top() - display.top()));
    if (!shift.isNull()) move(pos() - shift);
}

void Form::setHero(QWidget* drawing, int side) {
    hero_ = drawing;
    hero_side_ = side;
}

/// The size of the window with what its drawing lacks at another one.
QSize Form::roomForHero(QSize size) {
    if (!hero_ || centralWidget() != room_) return size;
    const QSize least = minimumSizeHint(), smallest = hero_->minimumSize();
    const auto lacking = [&](int has, int needs, int drawing) {
        return std::max(0, hero_side_ - drawing - has + needs);
    };
    // What stands beside it takes all it likes first, and what stands above and under it what it needs.
    const int beside = room_->sizeHint().width() - hero_->sizeHint().width();
    return size + QSize(lacking(size.width(), std::max(least.width(), beside + smallest.width()), smallest.width()),
                        lacking(size.height(), least.height(), smallest.height()));
}

void Form::watch(QWidget* widget, Visual& control) {
    watched_[widget] = &control;
    widget->installEventFilter(this);
}

}  // namespace verlink::desktop
