// Bars over a scale, bars beside names and a map in colours, painted; and the hand that picks in them.
#pragma once

#include <QRectF>
#include <QWidget>
#include <functional>

#include "platform/charts.h"

namespace verlink::desktop {

/// What the three have in common: paper under them, a menu that saves and copies, a name for who does not see them.
class ChartWidget : public QWidget {
   public:
    ChartWidget(const platform::Visual& control, QWidget* parent);

    QSize sizeHint() const override { return {420, 260}; }
    QSize minimumSizeHint() const override { return {200, 110}; }

   protected:
    void paintEvent(QPaintEvent* event) override;
    /// Within the widget, whose letters are the painter's.
    virtual void paint(QPainter& painter) = 0;
};

class HistogramWidget : public ChartWidget {
   public:
    HistogramWidget(const platform::Histogram& histogram, QWidget* parent);
    void follow();
    std::function<void(double value)> onPick;
    /// Where a value of the scale stands, pixels across.
    double placeOf(double value) const;

   protected:
    void paint(QPainter& painter) override;
    void mousePressEvent(QMouseEvent* event) override;

   private:
    QRectF area() const;
    void paintLines(QPainter& painter, const QRectF& bars);

    const platform::Histogram& histogram_;
};

class BarsWidget : public ChartWidget {
   public:
    BarsWidget(const platform::Bars& bars, QWidget* parent);
    void follow();

   protected:
    void paint(QPainter& painter) override;

   private:
    const platform::Bars& bars_;
};

class ColorMapWidget : public ChartWidget {
   public:
    ColorMapWidget(const platform::Color_Map& map, QWidget* parent);
    void follow();
    std::function<void(platform::Color_Map::Cell)> onPick;
    /// The middle of a cell.
    QPointF placeOf(platform::Color_Map::Cell cell) const;

   protected:
    void paint(QPainter& painter) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

   private:
    QRectF area() const;
    void pick(const QPointF& at);
    void paintCells(QPainter& painter, double least, double most);
    void paintAxes(QPainter& painter);
    void paintLegend(QPainter& painter, double least, double most);

    const platform::Color_Map& map_;
};

}  // namespace verlink::desktop
