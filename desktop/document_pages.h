// The pages of a document one under another: scrolling, zoom, words found, and links that jump.
#pragma once

#include <QList>
#include <QPdfLink>
#include <QPdfView>
#include <functional>

#include "desktop/document_places.h"

class QPdfDocument;
class QPdfSearchModel;

namespace verlink::desktop {

/// Pages count from 0. The place in view stays when the size of the window or of the paper changes.
class DocumentPages : public QPdfView {
   public:
    explicit DocumentPages(QWidget* parent);
    ~DocumentPages() override;

    /// False when the file cannot be shown.
    bool load(const QString& path);
    const DocumentPlaces& places() const { return places_; }
    int pages() const;
    /// The page in the middle of the view.
    int page() const;
    /// Brings a place, in points from the top of its page, to the top of the view.
    void goTo(int page, qreal down = 0);

    /// 1 is the size of the paper, 0 fits the width.
    void setZoom(qreal zoom);
    qreal scale() const;

    /// Marks the words wherever they stand, case aside; none for an empty text.
    void seek(const QString& words);
    int finds() const { return static_cast<int>(finds_.size()); }
    /// Makes a find the present one and brings it into view.
    void goToFind(int find);

    /// Where a page lies on the whole of the document, in pixels.
    QRectF pageArea(int page) const;

    /// The page in view, the zoom or the number of finds is another than before.
    std::function<void()> onChange;
    std::function<void(const QString& target)> onLink;

   protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

   private:
    struct Spot {
        int page = 0;
        qreal down = 0;
    };
    Spot top() const;
    QRectF onScreen(int page, const QRectF& area) const;
    const DocumentPlaces::Link* linkUnder(QPointF place) const;
    void tint();

    QPdfDocument* document_;
    QPdfSearchModel* search_;
    DocumentPlaces places_;
    QList<QSizeF> sheets_;  ///< the sizes of the pages, points
    QList<QPdfLink> finds_;
    int find_ = -1;
    Spot spot_;            ///< at the top of the view
    bool moving_ = false;  ///< the size is changing: what scrolls is not the user
};

}  // namespace verlink::desktop
