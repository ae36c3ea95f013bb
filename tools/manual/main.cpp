// Sets the manual.
//
//     verlink-manual SOURCES PICTURES DOCUMENTS
//
// Every Markdown file below SOURCES becomes a PDF below DOCUMENTS with the pictures of PICTURES in it.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdio>

#include "tools/manual/typesetter.h"

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: verlink-manual SOURCES PICTURES DOCUMENTS\n", stderr);
        return 2;
    }
    const QTemporaryDir session;
    if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", session.path().toLocal8Bit());
    const QGuiApplication app(argc, argv);
    const verlink::manual::Folders folders{QDir(QString::fromLocal8Bit(argv[1])).absolutePath(),
                                           QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3])};
    QStringList made;
    QDirIterator files(folders.sources, {QStringLiteral("*.md")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString page = QDir(folders.sources).relativeFilePath(files.next()).chopped(3);
        for (const QString& amiss : verlink::manual::setDocument(folders, page))
            std::fprintf(stderr, "%s: %s\n", qPrintable(page), qPrintable(amiss));
        made << page;
    }
    made.sort();
    QFile list(folders.documents + QStringLiteral("/made.txt"));
    if (!list.open(QIODevice::WriteOnly) || list.write(made.join(QLatin1Char('\n')).toUtf8()) < 0) return 1;
    return 0;
}
