// Graphs under one another over one axis, in equal parts.
#pragma once

#include <QLayout>
#include <QList>

namespace verlink::desktop {

/// The curves of all that are shown have the same height: the last one, which has the labels of the axis under it, is
/// higher by what those take.
class Strips : public QLayout {
   public:
    /// `least` pixels are the height of one without labels, at least.
    explicit Strips(int least) : least_(least) { setContentsMargins(0, 0, 0, 0); }
    ~Strips() override;

    void addItem(QLayoutItem* item) override { items_.append(item); }
    int count() const override { return static_cast<int>(items_.size()); }
    QLayoutItem* itemAt(int index) const override { return items_.value(index); }
    QLayoutItem* takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal | Qt::Vertical; }
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;
    void setGeometry(const QRect& place) override;

   private:
    QList<QLayoutItem*> shown() const;
    /// Two lines: the labels and the title of the axis.
    int foot() const;

    int least_;
    QList<QLayoutItem*> items_;
};

}  // namespace verlink::desktop
