// Marks and links over the pages that Qt's view paints. That view tells nobody where it puts them, so the rule stands
// here too; a test holds the two together.
#include "desktop/document_pages.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfPageRenderer>
#include <QPdfSearchModel>
#include <QScreen>
#include <QScrollBar>
#include <algorithm>

#include "desktop/theme.h"

namespace verlink::desktop {

namespace {

constexpr qreal kPointsPerInch = 72;

qreal pixelsPerPoint() { return QGuiApplication::primaryScreen()->logicalDotsPerInch() / kPointsPerInch; }

}  // namespace

DocumentPages::DocumentPages(QWidget* parent)
    : QPdfView(parent), document_(new QPdfDocument(this)), search_(new QPdfSearchModel(this)) {
    setPageMode(QPdfView::PageMode::MultiPage);
    setZoomMode(QPdfView::ZoomMode::FitToWidth);
    setDocument(document_);
    search_->setDocument(document_);
    viewport()->setMouseTracking(true);
    tint();
    connect(pageNavigator(), &QPdfPageNavigator::currentPageChanged, this, [this] {
        if (onChange) onChange();
    });
}

DocumentPages::~DocumentPages() {
    disconnect(pageNavigator(), nullptr, this, nullptr);
    // A document that closes tells the view, which must still be one.
    setDocument(nullptr);
    delete search_;
    delete document_;
    // Qt's view leaves the thread that paints its pages.
    if (auto* renderer = findChild<QPdfPageRenderer*>())
        renderer->setRenderMode(QPdfPageRenderer::RenderMode::SingleThreaded);
}

bool DocumentPages::load(const QString& path) {
    seek({});
    places_ = {};
    sheets_.clear();
    if (document_->load(path) != QPdfDocument::Error::None) return false;
    places_ = DocumentPlaces::ofDocument(path);
    for (int i = 0; i < pages(); ++i) sheets_.push_back(document_->pagePointSize(i));
    pageNavigator()->jump(0, {});
    goTo(0);
    return true;
}

int DocumentPages::pages() const { return document_->pageCount(); }

int DocumentPages::page() const { return pageNavigator()->currentPage(); }

qreal DocumentPages::scale() const {
    if (zoomMode() == QPdfView::ZoomMode::Custom) return zoomFactor();
    const qreal paper = document_->pagePointSize(0).width() * pixelsPerPoint();
    const QMargins margins = documentMargins();
    return paper > 0 ? (viewport()->width() - margins.left() - margins.right()) / paper : 1;
}

QRectF DocumentPages::pageArea(int page) const {
    const QMargins margins = documentMargins();
    const qreal point = pixelsPerPoint(), zoom = scale();
    const auto sized = [&](int number) { return (sheets_.value(number) * point * zoom).toSize(); };
    int widest = 0;
    for (int i = 0; i < pages(); ++i) widest = std::max(widest, sized(i).width());
    widest += margins.left() + margins.right();
    int top = margins.top();
    for (int i = 0; i < page; ++i) top += sized(i).height() + pageSpacing();
    const QSize size = sized(page);
    const int left = (std::max(widest, viewport()->width()) - size.width()) / 2;  // whole pixels, as the view counts
    return {QPointF(left, top), QSizeF(size)};
}

DocumentPages::Spot DocumentPages::top() const {
    const qreal height = verticalScrollBar()->value();
    Spot spot;
    for (int i = 0; i < pages(); ++i) {
        const QRectF area = pageArea(i);
        if (area.top() > height) break;
        spot = {i, (height - area.top()) / (pixelsPerPoint() * scale())};
    }
    return spot;
}

void DocumentPages::goTo(int page, qreal down) {
    if (page < 0 || page >= pages()) return;
    const qreal point = pixelsPerPoint() * scale();
    verticalScrollBar()->setValue(static_cast<int>(pageArea(page).top() + down * point));
    spot_ = {page, down};
}

void DocumentPages::setZoom(qreal zoom) {
    const Spot spot = spot_;
    moving_ = true;
    if (zoom > 0) {
        setZoomMode(QPdfView::ZoomMode::Custom);
        setZoomFactor(zoom);
    } else {
        setZoomMode(QPdfView::ZoomMode::FitToWidth);
    }
    goTo(spot.page, spot.down);
    moving_ = false;
    viewport()->update();
    if (onChange) onChange();
}

void DocumentPages::seek(const QString& words) {
    finds_.clear();
    find_ = -1;
    search_->setSearchString(words);
    if (!words.isEmpty())
        for (int i = 0; i < pages(); ++i) finds_ += search_->resultsOnPage(i);
    viewport()->update();
    if (onChange) onChange();
}

void DocumentPages::goToFind(int find) {
    if (find < 0 || find >= finds_.size()) return;
    find_ = find;
    const QList<QRectF> rects = finds_[find].rectangles();
    const qreal top = rects.isEmpty() ? finds_[find].location().y() : rects.first().top();
    const int page = finds_[find].page();
    const QRectF place = onScreen(page, QRectF(0, top, 1, kPointsPerInch / 3));
    if (place.top() < 0 || place.bottom() > viewport()->height())
        goTo(page, std::max(0.0, top - 0.3 * viewport()->height() / (pixelsPerPoint() * scale())));
    viewport()->update();
}

QRectF DocumentPages::onScreen(int page, const QRectF& area) const {
    const qreal point = pixelsPerPoint() * scale();
    const QRectF paper = pageArea(page).translated(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
    return {paper.topLeft() + area.topLeft() * point, area.size() * point};
}

const DocumentPlaces::Link* DocumentPages::linkUnder(QPointF place) const {
    for (const DocumentPlaces::Link& link : places_.links)
        if (onScreen(link.page, link.area).contains(place)) return &link;
    return nullptr;
}

void DocumentPages::paintEvent(QPaintEvent* event) {
    QPdfView::paintEvent(event);
    if (finds_.isEmpty()) return;
    QPainter painter(viewport());
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    for (int i = 0; i < finds_.size(); ++i)
        for (const QRectF& rect : finds_[i].rectangles())
            painter.fillRect(onScreen(finds_[i].page(), rect.adjusted(-1, -1, 1, 1)),
                             i == find_ ? QColor(0xFF, 0xA6, 0x4D) : QColor(0xFF, 0xF1, 0x8A));
}

void DocumentPages::resizeEvent(QResizeEvent* event) {
    const Spot spot = spot_;
    moving_ = true;
    QPdfView::resizeEvent(event);
    goTo(spot.page, spot.down);
    moving_ = false;
    if (onChange) onChange();
}

void DocumentPages::scrollContentsBy(int dx, int dy) {
    QPdfView::scrollContentsBy(dx, dy);
    if (!moving_) spot_ = top();
}

void DocumentPages::mouseMoveEvent(QMouseEvent* event) {
    viewport()->setCursor(linkUnder(event->position()) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    QPdfView::mouseMoveEvent(event);
}

void DocumentPages::mouseReleaseEvent(QMouseEvent* event) {
    const DocumentPlaces::Link* link = linkUnder(event->position());
    if (link && event->button() == Qt::LeftButton && onLink) {
        onLink(QString(link->target));
        return;
    }
    QPdfView::mouseReleaseEvent(event);
}

void DocumentPages::changeEvent(QEvent* event) {
    QPdfView::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::ApplicationPaletteChange) tint();
}

/// The paper stays white; what lies around it is a shade off the window.
void DocumentPages::tint() {
    QPalette colours = palette();
    colours.setBrush(QPalette::Dark, borderColor(QGuiApplication::palette()));
    setPalette(colours);
}

}  // namespace verlink::desktop
