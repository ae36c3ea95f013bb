// How entries, and the types that extensions have, are read from the folders of the desktop.
#include "desktop/desktop_entries.h"

#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStandardPaths>
#include <filesystem>

#include "desktop/text.h"
#include "platform/links.h"

namespace verlink::desktop {

namespace {

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The value of a key in the first group of an entry, as it stands there.
QString valueOf(const QString& entry, const QString& key) {
    int groups = 0;
    for (const QString& line : entry.split(u'\n')) {
        if (line.startsWith(u'[') && ++groups > 1) return {};
        const auto equals = line.indexOf(u'=');
        if (equals > 0 && line.left(equals).trimmed() == key) return line.mid(equals + 1).trimmed();
    }
    return {};
}

QStringList dataFolders() { return QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation); }

bool isThere(const QString& program) {
    if (program.isEmpty()) return false;
    if (!program.contains(u'/')) return !QStandardPaths::findExecutable(program).isEmpty();
    return QFileInfo(program).isFile() && QFileInfo(program).isExecutable();
}

bool isSame(const QString& program, const QString& own) {
    if (QDir::cleanPath(program) == QDir::cleanPath(own)) return true;
    const QString found = program.contains(u'/') ? program : QStandardPaths::findExecutable(program);
    const QString canonical = QFileInfo(found).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(own).canonicalFilePath();
}

/// The type and every other that the extension has.
QSet<QString> typesOf(const QString& type, const QString& extension) {
    QSet<QString> types{type};
    for (const QString& folder : dataFolders())
        for (const QString& line : textOf(folder + QStringLiteral("/mime/globs2")).split(u'\n')) {
            const QStringList parts = line.split(u':');  // weight, type, pattern
            if (parts.size() > 2 && parts[2] == QStringLiteral("*.") + extension) types.insert(parts[1]);
        }
    return types;
}

}  // namespace

QString programOf(const QString& entry) {
    QString line = valueOf(entry, QStringLiteral("Exec"));
    line.replace(QStringLiteral("\\\\"), QStringLiteral("\\"));
    QString program;
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (c == u'"') {
            quoted = !quoted;
        } else if (c == u' ' && !quoted) {
            break;
        } else {
            // Inside quotes a backslash, and anywhere a percent sign, takes the next one as it is.
            const bool escape = (c == u'\\' && quoted) || (c == u'%' && line.mid(i + 1, 1) == QStringLiteral("%"));
            if (escape && i + 1 < line.size()) ++i;
            program += line[i];
        }
    }
    return program;
}

bool belongsToAnother(const platform::FileType& type) {
    const QString word = toQt(type.type).toLower();
    const QString own = toQt(type.app_path) + u'/' + word;
    const QSet<QString> types = typesOf(QStringLiteral("application/x-") + word, toQt(type.extension));
    for (const QString& folder : dataFolders()) {
        const QDir entries(folder + QStringLiteral("/applications"), QStringLiteral("*.desktop"));
        for (const QString& name : entries.entryList(QDir::Files)) {
            const QString entry = textOf(entries.filePath(name));
            const QStringList opens = valueOf(entry, QStringLiteral("MimeType")).split(u';', Qt::SkipEmptyParts);
            if (name != word + QStringLiteral(".desktop") && !types.intersects({opens.begin(), opens.end()})) continue;
            const QString program = programOf(entry);
            if (isThere(program) && !isSame(program, own)) return true;
        }
    }
    return false;
}

bool othersMayReplace(const std::string& folder) {
    namespace fs = std::filesystem;
    std::error_code none;
    fs::path place = fs::canonical(folder, none);
    if (none) return false;
    if (platform::Others_May_Write(place.string())) return true;
    while (place != place.parent_path()) {
        place = place.parent_path();
        struct stat status {};
        // In a sticky folder nobody takes away what is another's.
        const bool sticky = ::stat(place.c_str(), &status) == 0 && (status.st_mode & S_ISVTX) != 0;
        if (!sticky && platform::Others_May_Write(place.string())) return true;
    }
    return false;
}

}  // namespace verlink::desktop
