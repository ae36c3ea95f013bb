// How a group is painted and laid out.
#include "desktop/frame_box.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/grid.h"
#include "desktop/theme.h"

namespace verlink::desktop {

FrameBox::FrameBox(QWidget* parent) : QWidget(parent), title_(new QLabel(this)), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(kInset, kGap, kInset, kInset);
    column_->setSpacing(kGap - 2);
    title_->setTextFormat(Qt::PlainText);
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    title_->hide();
    column_->addWidget(title_);
}

void FrameBox::setTitle(const QString& title) {
    title_->setText(title);
    title_->setVisible(!title.trimmed().isEmpty());
    setAccessibleName(title);
}

QString FrameBox::title() const { return title_->text(); }

void FrameBox::setContent(QLayout* content) { column_->addLayout(content, 1); }

void FrameBox::setContentBeside(QLayout* content) {
    column_->setContentsMargins(kInset, kGap - 2, kInset, kGap - 2);
    column_->removeWidget(title_);
    QHBoxLayout* strip = row();
    strip->addWidget(title_);
    strip->addLayout(content, 1);
    column_->addLayout(strip, 1);
}

void FrameBox::setMounted(QLayout* content, int width) {
    column_->setContentsMargins(width, width, width, width);
    column_->setSpacing(0);
    column_->addLayout(content, 1);
}

void FrameBox::setBack(const QColor& color) {
    if (color == back_) return;
    back_ = color;
    update();
}

void FrameBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (back_.isValid()) return painter.fillRect(rect(), back_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(borderColor(palette()), 1));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
}

}  // namespace verlink::desktop
