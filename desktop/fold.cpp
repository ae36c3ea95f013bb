// How columns fold.
#include "desktop/fold.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

#include "desktop/form.h"
#include "desktop/grid.h"
#include "desktop/text.h"
#include "desktop/theme.h"
#include "platform/settings.h"

namespace verlink::desktop {

namespace {

constexpr int kWidth = 12;
constexpr int kBeside = (kGroupGap - kWidth) / 2;

bool turns(int key) { return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter; }

/// A window that has grown by a column stays on its display.
void keepOnDisplay(QWidget* window) {
    const QRect display = window->screen()->availableGeometry();
    const int beyond = window->x() + window->frameGeometry().width() - display.right() - 1;
    if (beyond > 0 && !window->isMaximized()) window->move(std::max(display.left(), window->x() - beyond), window->y());
}

}  // namespace

FoldHandle::FoldHandle(Form& form, QWidget* column, Side side, const QString& name, const QString& holds)
    : QAbstractButton(column->parentWidget()),
      form_(form),
      column_(column),
      side_(side),
      holds_(holds),
      kept_as_("fold." + form.screen().Name() + "." + fromQt(name)) {
    setObjectName(QStringLiteral("fold_") + name);
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    connect(this, &QAbstractButton::clicked, this, &FoldHandle::press);
    tell();
}

void FoldHandle::setFolded(bool folded) {
    setChecked(folded);
    column_->setVisible(!folded);
    tell();
    update();
}

void FoldHandle::takeKept() { setFolded(platform::The_Settings().Text(kept_as_) == "1"); }

void FoldHandle::press() {
    if (!form_.inUse()) return setChecked(!isChecked());
    setFolded(isChecked());
    platform::The_Settings().Put(kept_as_, std::string(isFolded() ? "1" : "0"));
    if (isFolded()) return;
    window()->layout()->activate();
    keepOnDisplay(window());
}

void FoldHandle::tell() {
    const QString wish = isFolded() ? QStringLiteral("Show ") : QStringLiteral("Fold away ");
    setToolTip(wish + holds_);
    setAccessibleName(wish + holds_);
}

QSize FoldHandle::sizeHint() const { return {kWidth, 48}; }
QSize FoldHandle::minimumSizeHint() const { return sizeHint(); }

bool FoldHandle::event(QEvent* event) {
    // Of the screen's keys, those that press it are its own.
    if (event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (turns(key->key()) && key->modifiers() == Qt::NoModifier) {
            event->accept();
            return true;
        }
    }
    return QAbstractButton::event(event);
}

void FoldHandle::keyPressEvent(QKeyEvent* event) {
    if (turns(event->key())) {
        if (!event->isAutoRepeat()) click();
        return;
    }
    // The arrow keys are not for walking from handle to handle.
    event->ignore();
}

/// A mark that points to where the column goes.
void FoldHandle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF strip = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    if (underMouse() || hasFocus()) {
        QColor fill = palette().color(QPalette::Highlight);
        fill.setAlpha(isDark(palette()) ? 70 : 40);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(strip, 4, 4);
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(strip, 4, 4);
    }
    const double way = (side_ == Side::kRight) != isFolded() ? 1 : -1;
    const QPointF middle = strip.center();
    const bool plain = underMouse() || hasFocus() || isFolded();
    painter.setPen(QPen(plain ? palette().color(QPalette::WindowText) : quietText(palette()), 1.5, Qt::SolidLine,
                        Qt::RoundCap, Qt::RoundJoin));
    const QPointF mark[] = {middle + QPointF(-2 * way, -5), middle + QPointF(2 * way, 0),
                            middle + QPointF(-2 * way, 5)};
    painter.drawPolyline(mark, 3);
}

void addFolding(QBoxLayout* columns, FoldHandle* handle) {
    if (handle->side() == FoldHandle::Side::kLeft) columns->addWidget(handle->column());
    columns->addSpacing(kBeside);
    columns->addWidget(handle);
    columns->addSpacing(kBeside);
    if (handle->side() == FoldHandle::Side::kRight) columns->addWidget(handle->column());
}

std::vector<FoldHandle*> foldsOf(const QWidget* window) {
    std::vector<FoldHandle*> handles;
    for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
        if (auto* handle = dynamic_cast<FoldHandle*>(button)) handles.push_back(handle);
    return handles;
}

void unfoldAround(QWidget* widget) {
    for (FoldHandle* handle : foldsOf(widget->window()))
        if (handle->isFolded() && handle->column()->isAncestorOf(widget)) handle->setFolded(false);
}

}  // namespace verlink::desktop
