// A timer leads from stop to stop, as screens are shown from within the deeds on others.
#include "tools/capture/walker.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

#include "core/linkage_model.h"
#include "desktop/form.h"
#include "desktop/picture_widget.h"
#include "desktop/qt_desktop.h"
#include "tools/capture/callouts.h"
#include "tools/capture/film.h"
#include "tools/capture/hand_mark.h"

namespace verlink::capture {

namespace {

constexpr int kPatience = 1600;
constexpr double kReading = 3.5, kLooking = 2.5, kPointing = 0.5;  ///< seconds of film
constexpr int kMargin = 4;                                         ///< pixels around what a picture is cut to

/// Of a widget of a window, or of its drawing; nothing where there is none.
QRect Place_Of_Widget(QWidget& window, const std::string& name) {
    const auto* widget = window.findChild<QWidget*>(QString::fromStdString(name));
    if (!widget || !widget->isVisible()) {
        std::fprintf(stderr, "no %s in sight\n", name.c_str());
        return {};
    }
    const auto* drawing = dynamic_cast<const desktop::PictureWidget*>(widget);
    const QRect place = drawing ? drawing->area().toAlignedRect() : widget->rect();
    return place.translated(widget->mapTo(&window, QPoint()));
}

/// What of a window holds all these widgets; all of it for none.
QRect Part_Of(QWidget& window, const Cut& cut) {
    QRect part;
    for (const std::string& name : cut.part) part |= Place_Of_Widget(window, name);
    if (part.isNull()) part = window.rect();
    part = part.adjusted(-kMargin, -kMargin, kMargin, kMargin) & window.rect();
    part.setHeight(qRound(part.height() * cut.lower));
    return part;
}

void Paint_Marks(QPainter& painter, QWidget& window, const std::vector<Mark>& marks, const QRect& part) {
    int number = 0;
    for (const Mark& mark : marks) {
        const QRect place = Place_Of_Widget(window, mark.widget);
        const QPointF at(place.x() + mark.across * place.width(), place.y() + mark.down * place.height());
        const double within = kCalloutSize / 2 + 1;
        const QRectF room = QRectF(QPointF(), part.size()).adjusted(within, within, -within, -within);
        const QPointF seen = at - part.topLeft();
        Paint_Callout(painter,
                      {qBound(room.left(), seen.x(), room.right()), qBound(room.top(), seen.y(), room.bottom())},
                      ++number);
    }
}

/// Where a place of the drawing's world is seen.
QPointF Place_In(const desktop::PictureWidget& widget, platform::Point at) {
    const platform::Picture& drawing = widget.picture();
    const QRectF area = widget.area();
    const double across = (at.x - drawing.Left()) / (drawing.Right() - drawing.Left());
    const double down = (at.y - drawing.Top()) / (drawing.Bottom() - drawing.Top());
    return {area.x() + widget.glass().Seen_Across(across) * area.width(),
            area.y() + widget.glass().Seen_Down(down) * area.height()};
}

}  // namespace

Walker::Walker(desktop::QtDesktop& desktop, const QDir& folder, Stops stops, std::string account)
    : desktop_(desktop), folder_(folder), stops_(std::move(stops)), account_file_(std::move(account)) {
    On_Mouse = [this](Screen& screen, Mouse deed, platform::Point at) { Move_Mouse(screen, deed, at); };
    On_Account = [this](const std::string& line) {
        // A button pressed again and again is one line.
        if (line != said_ || line.starts_with("typed")) account_ += line + "\n";
        said_ = line;
    };
}

void Walker::Use(Film& film) {
    film_ = &film;
    On_Hand = [this](Screen& screen, platform::Control& control) { Show_Hand(screen, control); };
}

int Walker::End() {
    if (account_file_.empty()) return Done() ? 0 : 1;
    account_ += Done() ? "complete\n" : "given up at " + stops_[next_].screen + "\n";
    std::ofstream file(account_file_);
    file << account_;
    return file.flush() ? 0 : 1;
}

void Walker::Later(int ms) {
    QTimer::singleShot(ms, [this] { Go(); });
}

int Walker::Rest(const Stop& stop) const {
    const bool arrives = next_ == 0 || stops_[next_ - 1].screen != stop.screen;
    const bool stays = next_ + 1 < stops_.size() && stops_[next_ + 1].screen == stop.screen;
    const bool seen = film_ || !stop.act || !stop.picture.empty();
    return seen || (arrives && stays) ? stop.settle_ms : stop.settle_ms / 4;
}

void Walker::Save(QWidget& window, const Stop& stop) {
    if (film_) return film_->Show(window, kLooking);
    Take(window, {stop.picture, stop.part, stop.marks, stop.lower});
    for (const Cut& cut : stop.more) Take(window, cut);
}

void Walker::Take(QWidget& window, const Cut& cut) {
    const QRect part = Part_Of(window, cut);
    QPixmap picture = window.grab(part);
    QPainter painter(&picture);
    if (over_drawing_) Paint_Hand(painter, mouse_ - part.topLeft(), holds_);
    Paint_Marks(painter, window, cut.marks, part);
    painter.end();
    Keep(picture, cut.picture);
}

void Walker::Keep(const QPixmap& picture, const std::string& name) {
    const QString path = folder_.filePath(QString::fromStdString(name) + QStringLiteral(".png"));
    if (!picture.save(path)) std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    account_ += "picture " + name + ", " + std::to_string(Model.NSteps + 1) + " positions\n";
}

void Walker::Answer(QMessageBox& box) {
    const std::string& wished = stops_[next_].message;
    account_ += "message " + box.text().toStdString() + "\n";
    if (film_)
        film_->Show(box, kLooking);
    else if (!wished.empty())
        Keep(box.grab(), wished);
    else if (account_file_.empty())
        Keep(box.grab(), "message-" + std::to_string(++messages_));
    Later(50);
    for (const auto button : {QMessageBox::Ok, QMessageBox::No, QMessageBox::Ignore})
        if (box.standardButtons() & button) return box.button(button)->click();
}

void Walker::Answer(QFileDialog& dialog) {
    const QString name = QString::fromStdString(stops_[next_].file);
    account_ += "file " + QFileInfo(name).fileName().toStdString() + "\n";
    if (auto* box = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) box->setText(name);
    Later(50);
    // A file that is refused is not offered again.
    const bool offered = std::exchange(offered_, &stops_[next_]) == &stops_[next_];
    QMetaObject::invokeMethod(&dialog, name.isEmpty() || offered ? "reject" : "accept");
}

void Walker::Go() {
    if (next_ >= stops_.size()) return;
    if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
        Answer(*dialog);
        return;
    }
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        Answer(*box);
        return;
    }
    const Stop& stop = stops_[next_];
    Screen* active = Screen::Active();
    for (Screen* screen : platform::Screens::Made())
        if (screen->Visible() && screen->Beside() && screen->Name() == stop.screen) active = screen;
    if (!acted_ && (!active || active->Name() != stop.screen)) {
        if (++waits_ > kPatience) {
            std::fprintf(stderr, "waited in vain for %s\n", stop.screen.c_str());
            std::_Exit(End());
        }
        Later(12);
        return;
    }
    waits_ = 0;
    if (!acted_) {
        acted_ = true;
        over_drawing_ = false;
        if (film_ && !stop.words.empty()) {
            film_->Say(stop.words);
            film_->Show(desktop_.formOf(*active), kReading);
        }
        if (!stop.plays) Later(Rest(stop));  // before the deed, which may show a screen and not return
        if (stop.act) stop.act(*active);
        if (stop.plays) Later(Rest(stop));
        return;
    }
    if (stop.until && active && !stop.until(*active)) return Later(50);
    acted_ = false;
    ++next_;
    if (!stop.picture.empty() && active) Save(desktop_.formOf(*active), stop);
    Later(0);
}

/// Each press, box and choice is seen before it happens; a button pressed again and again is a motion.
void Walker::Show_Hand(Screen& screen, platform::Control& control) {
    desktop::Form& form = desktop_.formOf(screen);
    const auto* widget = qobject_cast<QWidget*>(form.objectOf(control));
    const bool again = hand_ == &control;
    hand_ = &control;
    film_->Show(form, again ? 0 : kPointing, again ? nullptr : widget);
}

void Walker::Move_Mouse(Screen& screen, Mouse deed, platform::Point at) {
    desktop::Form& form = desktop_.formOf(screen);
    auto& picture = dynamic_cast<desktop::PictureWidget&>(*form.objectOf(screen.Get<platform::PictureBox>("Picture1")));
    const QPointF place = Place_In(picture, at);
    mouse_ = picture.mapTo(&form, place);
    over_drawing_ = true;
    if (deed != Mouse::kMove) holds_ = deed == Mouse::kPress;
    const QEvent::Type type = deed == Mouse::kMove    ? QEvent::MouseMove
                              : deed == Mouse::kPress ? QEvent::MouseButtonPress
                                                      : QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, picture.mapToGlobal(place), deed == Mouse::kMove ? Qt::NoButton : Qt::LeftButton,
                      holds_ ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&picture, &event);
    if (film_) film_->Show(form, 0, nullptr, Film::Pointer{mouse_, holds_});
}

}  // namespace verlink::capture
