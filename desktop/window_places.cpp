// Where windows stood in the last session.
#include "desktop/window_places.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "desktop/form.h"
#include "platform/settings.h"

namespace verlink::desktop {

namespace {

/// What a title bar takes.
constexpr int kTitleBar = 28;

std::string nameOf(const Form& form) { return "window." + form.screen().Name(); }

int areaOf(const QRect& rect) { return rect.isValid() ? rect.width() * rect.height() : 0; }

}  // namespace

QRect withinDisplays(QRect place, const QList<QRect>& displays) {
    const QRect display = *std::max_element(displays.begin(), displays.end(), [&](const QRect& a, const QRect& b) {
        return areaOf(a.intersected(place)) < areaOf(b.intersected(place));
    });
    place.setSize(place.size().boundedTo({display.width(), display.height() - kTitleBar}));
    const int right = display.left() + display.width() - place.width();
    const int bottom = display.top() + display.height() - kTitleBar - place.height();
    place.moveTo(std::clamp(place.left(), display.left(), right), std::clamp(place.top(), display.top(), bottom));
    return place;
}

void keepPlace(const Form& form) {
    const QRect place = form.isMaximized() ? form.normalGeometry().translated(form.pos() - form.geometry().topLeft())
                                           : QRect(form.pos(), form.size());
    std::vector<std::string> numbers;
    for (const long number : {form.screen().Width().Get(), form.screen().Height().Get(), long{place.x()},
                              long{place.y()}, long{place.width()}, long{place.height()}, long{form.isMaximized()}})
        numbers.push_back(std::to_string(number));
    platform::The_Settings().Put(nameOf(form), numbers);
}

bool takeKeptPlace(Form& form, QSize least) {
    std::vector<int> numbers;
    for (const std::string& text : platform::The_Settings().List(nameOf(form))) {
        bool good = false;
        numbers.push_back(QString::fromStdString(text).toInt(&good));
        if (!good) return false;
    }
    if (numbers.size() != 7 || numbers[0] != form.screen().Width() || numbers[1] != form.screen().Height())
        return false;
    // Beyond any display, and sums of it would overflow.
    constexpr int kFar = 1 << 20;
    for (std::size_t i = 2; i < 6; ++i)
        if (numbers[i] < (i < 4 ? -kFar : 1) || numbers[i] > kFar) return false;

    QList<QRect> displays;
    for (const QScreen* screen : QGuiApplication::screens()) displays << screen->availableGeometry();
    const QRect kept(numbers[2], numbers[3], numbers[4], numbers[5]);
    const QRect place = withinDisplays({kept.topLeft(), kept.size().expandedTo(least)}, displays);
    form.resize(place.size());
    form.move(place.topLeft());
    if (numbers[6] == 1) form.setWindowState(form.windowState() | Qt::WindowMaximized);
    return true;
}

}  // namespace verlink::desktop
