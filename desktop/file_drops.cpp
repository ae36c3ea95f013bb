// Files that are dropped on a window.
#include "desktop/file_drops.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

#include "desktop/form.h"
#include "desktop/text.h"

namespace verlink::desktop {

namespace {

/// The path of the first file; empty for what is none of this machine.
QString fileOf(const QMimeData& data) {
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) return url.toLocalFile();
    return {};
}

}  // namespace

FileDrops::FileDrops(Form& form) : QObject(&form), form_(form) {
    form_.setAcceptDrops(true);
    form_.installEventFilter(this);
    for (auto* box : form_.findChildren<QLineEdit*>()) box->installEventFilter(this);
}

bool FileDrops::wanted(const QDropEvent& event) const { return form_.inUse() && !fileOf(*event.mimeData()).isEmpty(); }

void FileDrops::take(QDropEvent& event) {
    const std::string path = fromQt(fileOf(*event.mimeData()));
    event.setDropAction(Qt::CopyAction);
    event.accept();
    // Later: who dropped it waits until this returns, and a question may come up.
    QTimer::singleShot(0, &form_, [this, path] { form_.act(form_.screen().OnDrop, path); });
}

bool FileDrops::eventFilter(QObject* object, QEvent* event) {
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop: break;
        default: return QObject::eventFilter(object, event);
    }
    auto& drop = static_cast<QDropEvent&>(*event);
    if (!drop.mimeData()->hasUrls()) return QObject::eventFilter(object, event);
    // What a box lets go, its window is asked for.
    if (object != &form_ || !wanted(drop))
        drop.ignore();
    else if (event->type() == QEvent::Drop)
        take(drop);
    else
        drop.acceptProposedAction();
    return true;
}

}  // namespace verlink::desktop
