// Sets one document of the manual: Markdown in, a PDF and its places out.
#pragma once

#include <QString>
#include <QStringList>

namespace verlink::manual {

struct Folders {
    QString sources;   ///< of the Markdown
    QString pictures;  ///< taken of the program
    QString documents;
};

/// Writes `documents`/PAGE.pdf and the places beside it; `page` is the path of the Markdown below `sources`, without
/// its ending. What is amiss, a picture that is missing or a file that cannot be written, comes back in words.
QStringList setDocument(const Folders& folders, const QString& page);

}  // namespace verlink::manual
