// How the pages of a document are shown.
#include "desktop/document_widget.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QStackedLayout>
#ifdef VERLINK_PDF
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfView>
#endif

namespace verlink::desktop {

QString helpDocument(const QString& document) {
    const QString program = QCoreApplication::applicationDirPath();
    for (const char* folder : {"/", "/../share/verlink/", "/../"}) {
        const QFileInfo file(program + QString::fromLatin1(folder) + document);
        if (file.isFile()) return file.canonicalFilePath();
    }
    return {};
}

#ifdef VERLINK_PDF
class DocumentWidget::Pages : public QPdfView {
   public:
    explicit Pages(QWidget* parent) : QPdfView(parent), document_(new QPdfDocument(this)) {
        setPageMode(QPdfView::PageMode::MultiPage);
        setZoomMode(QPdfView::ZoomMode::FitToWidth);
        setDocument(document_);
    }
    bool load(const QString& path) {
        if (document_->load(path) != QPdfDocument::Error::None) return false;
        pageNavigator()->jump(0, {});
        return true;
    }

   private:
    QPdfDocument* document_;
};
#else
/// Without a reader of PDF files nothing can be shown.
class DocumentWidget::Pages : public QWidget {
   public:
    using QWidget::QWidget;
    bool load(const QString&) { return false; }
};
#endif

DocumentWidget::DocumentWidget(QWidget* parent) : QWidget(parent), note_(new QLabel(this)), pages_(new Pages(this)) {
    auto* stack = new QStackedLayout(this);
    note_->setAlignment(Qt::AlignCenter);
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setMargin(24);
    stack->addWidget(note_);
    stack->addWidget(pages_);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void DocumentWidget::show(const QString& document) {
    auto* stack = static_cast<QStackedLayout*>(layout());
    note_->clear();
    if (!document.isEmpty()) {
        const QString path = helpDocument(document);
        if (!path.isEmpty() && pages_->load(path)) {
            stack->setCurrentWidget(pages_);
            return;
        }
        note_->setText(path.isEmpty() ? QStringLiteral("This document is not installed: ") + document
                                      : QStringLiteral("This document cannot be shown: ") + path);
    }
    stack->setCurrentWidget(note_);
}

QString DocumentWidget::note() const { return note_->text(); }

}  // namespace verlink::desktop
