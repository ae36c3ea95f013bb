// Shows a document of the manual, or says why it cannot.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "desktop/document_places.h"

class QLabel;

namespace verlink::desktop {

/// Where a document of the manual lies, by its path below the folder of the help; empty when it is not installed.
QString helpDocument(const QString& document);

class DocumentPages;

/// Pages and finds count from 1, as people count them. A video is handed to the user's player.
class DocumentWidget : public QWidget {
   public:
    explicit DocumentWidget(QWidget* parent);
    /// A path below the folder of the help, with "#name" behind it to open at that heading; empty for none.
    void show(const QString& document);
    /// What is said in place of a document; empty while one is shown.
    QString note() const;

    int pages() const;  ///< 0 while no document is shown
    int page() const;
    void setPage(int page);
    void setZoom(double zoom);
    double scale() const;
    /// The words stay marked in whatever document is shown next.
    void seek(const QString& words);
    struct Place {
        QString document, title;
        int finds;
    };
    /// Which of these documents have the words, case aside, in their order; one that is not installed has none.
    std::vector<Place> seekIn(const std::vector<QString>& documents, const QString& words) const;
    int finds() const;
    void setFind(int find);
    const std::vector<DocumentPlaces::Heading>& headings() const;

    DocumentPages* view() const { return pages_; }

    /// Something of the above has changed.
    std::function<void()> onChange;
    std::function<void(const QString& target)> onLink;

   private:
    void say(const QString& note);

    QLabel* note_;
    DocumentPages* pages_ = nullptr;
    QString shown_;  ///< the document on the pages; empty while there is none
    QString sought_;
};

}  // namespace verlink::desktop
