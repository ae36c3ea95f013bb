// What stands where in a document of the manual: its headings and its links, as written beside it when it was made.
#pragma once

#include <QRectF>
#include <QString>
#include <vector>

namespace verlink::desktop {

/// Pages count from 0; places on a page are in points from its upper left corner.
struct DocumentPlaces {
    struct Heading {
        int level;  ///< 1 is the title
        int page;
        qreal top;
        QString name;  ///< as links know it
        QString title;
    };
    struct Link {
        int page;
        QRectF area;
        QString target;  ///< a path below the folder of the help, with "#name" behind it for a heading
    };
    std::vector<Heading> headings;
    std::vector<Heading> labels;  ///< figures and formulas that links lead to; level 0, the title is empty
    std::vector<Link> links;

    /// Of a heading or a label; null for neither.
    const Heading* place(const QString& name) const;

    QString text() const;
    static DocumentPlaces fromText(const QString& text);
    /// Beside the document itself; empty where there is none.
    static DocumentPlaces ofDocument(const QString& path);
    /// The file of the places of a document.
    static QString fileOf(const QString& path);
    /// The name of a heading: its words in small letters with hyphens between them.
    static QString nameOf(const QString& title);
};

}  // namespace verlink::desktop
