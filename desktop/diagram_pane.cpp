// How large the labels are, and where their places are asked for.
#include "desktop/diagram_pane.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/caption.h"
#include "desktop/picture_widget.h"
#include "platform/label_places.h"

namespace verlink::desktop {

namespace {

constexpr int kBetween = 4;    ///< pixels between a name and its value
constexpr double kApart = 14;  ///< pixels from its anchor that a label may stand without a line
constexpr double kAtEnds = 2;  ///< pixels by which the line is shorter at each end

/// Does the picture show the place? A name at its very edge counts.
bool upon(const platform::Anchor& at) {
    constexpr double kAround = 0.02;
    const auto within = [](double part) { return part >= -kAround && part <= 1 + kAround; };
    return within(at.across) && within(at.down);
}

int widthOf(const QWidget* label) { return label->isHidden() ? 0 : label->sizeHint().width(); }

}  // namespace

/// The lines between labels and anchors, over the picture and under the labels.
class DiagramPane::Leaders : public QWidget {
   public:
    explicit Leaders(QWidget* parent) : QWidget(parent) { setAttribute(Qt::WA_TransparentForMouseEvents); }
    void draw(std::vector<QLineF> lines) {
        lines_ = std::move(lines);
        update();
    }

   protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(0x90, 0x90, 0x90), 0.8));
        painter.drawLines(lines_.data(), static_cast<int>(lines_.size()));
    }

   private:
    std::vector<QLineF> lines_;
};

DiagramPane::DiagramPane(PictureWidget* picture, QWidget* parent)
    : QWidget(parent), picture_(picture), leaders_(new Leaders(this)) {
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(picture);
    leaders_->raise();
    picture->onPlaced = [this] { place(); };
}

void DiagramPane::add(QWidget* name, QWidget* value) {
    const Entry entry{static_cast<Caption*>(name), static_cast<Caption*>(value)};
    for (Caption* label : {entry.name, entry.value})
        if (label) layUpon(label, this);
    entries_.push_back(entry);
}

void DiagramPane::place() {
    const QRectF area = picture_->area();
    if (area.isEmpty()) return;
    const platform::Glass& glass = picture_->glass();
    std::vector<platform::LabelWish> wishes;
    std::vector<Entry> placed;
    for (const Entry& entry : entries_) {
        if (entry.name->isHidden() || !entry.name->anchor()) continue;
        platform::Anchor at = *entry.name->anchor();
        at.across = glass.Seen_Across(at.across);
        at.down = glass.Seen_Down(at.down);
        if (!upon(at)) {
            entry.name->setGeometry(QRect());
            if (entry.value) entry.value->setGeometry(QRect());
            continue;
        }
        int width = widthOf(entry.name);
        int height = entry.name->sizeHint().height();
        if (entry.value && widthOf(entry.value) > 0) {
            width += kBetween + widthOf(entry.value);
            height = std::max(height, entry.value->sizeHint().height());
        }
        wishes.push_back({at, static_cast<double>(width), static_cast<double>(height)});
        placed.push_back(entry);
    }
    const auto places = platform::Find_Label_Places(picture_->picture(), area.width(), wishes, glass);
    std::vector<QLineF> lines;
    const QPointF corner = QPointF(picture_->pos()) + area.topLeft();
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const auto& [at, width, height] = wishes[i];
        const QPointF anchor = corner + QPointF(at.across, at.down) * area.width();
        const QPointF first = corner + QPointF(places[i].x, places[i].y);
        QLineF line(anchor, {std::clamp(anchor.x(), first.x(), first.x() + width),
                             std::clamp(anchor.y(), first.y(), first.y() + height)});
        if (const double length = line.length(); length > kApart)
            lines.emplace_back(line.pointAt(kAtEnds / length), line.pointAt(1 - kAtEnds / length));
        QRect box(qRound(first.x()), qRound(first.y()), widthOf(placed[i].name), qRound(height));
        placed[i].name->setGeometry(box);
        if (!placed[i].value) continue;
        box.setLeft(box.right() + 1 + kBetween);
        box.setWidth(widthOf(placed[i].value));
        placed[i].value->setGeometry(box);
    }
    leaders_->setGeometry(rect());
    leaders_->draw(std::move(lines));
}

void DiagramPane::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (layout()) layout()->activate();
    place();
}

bool DiagramPane::event(QEvent* event) {
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) place();
    return done;
}

}  // namespace verlink::desktop
