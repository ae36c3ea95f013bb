// What the desktop entry and the MIME type say, and when they are written.
#include "desktop/file_type.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

#include "desktop/desktop_entries.h"
#include "desktop/text.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/file_trouble.h"
#include "platform/guard.h"

namespace verlink::desktop {

namespace {

using platform::FileType;

QString word(const FileType& type) { return toQt(type.type).toLower(); }

/// An argument of an Exec line: in quotes, with what is special inside them escaped, first for the argument and
/// then for the text of the entry.
QString execArgument(const QString& path) {
    QString quoted;
    for (const QChar c : path) {
        if (c == u'"' || c == u'`' || c == u'$' || c == u'\\') quoted += u'\\';
        quoted += c;
        if (c == u'%') quoted += u'%';
    }
    quoted.replace(QStringLiteral("\\"), QStringLiteral("\\\\"));
    return u'"' + quoted + u'"';
}

QString entryText(const FileType& type) {
    return QStringLiteral(
               "[Desktop Entry]\n"
               "Type=Application\n"
               "Name=%1\n"
               "Comment=Design and analysis of planar four-bar linkages\n"
               "Exec=%2 %f\n"
               "Icon=%3\n"
               "Terminal=false\n"
               "Categories=Education;Science;Engineering;\n"
               "MimeType=application/x-%3;\n")
        .arg(toQt(type.type), execArgument(toQt(type.app_path) + u'/' + word(type)), word(type));
}

QString mimeText(const FileType& type) {
    return QStringLiteral(
               "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
               "<mime-info xmlns=\"http://www.freedesktop.org/standards/shared-mime-info\">\n"
               "  <mime-type type=\"application/x-%1\">\n"
               "    <comment>%2 File</comment>\n"
               "    <generic-icon name=\"x-office-document\"/>\n"
               "    <glob pattern=\"*.%3\"/>\n"
               "  </mime-type>\n"
               "</mime-info>\n")
        .arg(word(type), toQt(type.type).toHtmlEscaped(), toQt(type.extension).toHtmlEscaped());
}

bool says(const QString& path, const QString& text) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.readAll() == text.toUtf8();
}

/// The program's icon, as the entry names it.
QString iconText() {
    QFile file(QStringLiteral(":/verlink.svg"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// True when the system's own folders have entry and type for the program that lies where this one does.
bool installed(const FileType& type, const QString& entry, const QString& mime) {
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        if (folder == home) continue;
        const QString programs = QDir::cleanPath(folder + QStringLiteral("/../bin"));
        if (QFileInfo(programs).canonicalFilePath() != QFileInfo(toQt(type.app_path)).canonicalFilePath()) continue;
        if (QFile::exists(folder + entry) && QFile::exists(folder + mime)) return true;
    }
    return false;
}

void write(const QString& path, const QString& text) {
    if (says(path, text)) return;
    if (!platform::Make_Folder(fromQt(QFileInfo(path).path())))
        platform::Refuse_File(fromQt(path), platform::Way::kWriting, "its folder cannot be made");
    const auto failure = What_Failed([&] { platform::Write_File(fromQt(path), fromQt(text)); });
    if (failure) throw platform::RuntimeFailure(platform::kPathAccess, failure->Trouble());
}

/// Refreshes a cache of the desktop, where its tool is installed; without it the desktop looks for itself.
void refresh(const QString& tool, const QString& folder) {
    const QString program = QStandardPaths::findExecutable(tool);
    if (program.isEmpty()) return;
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(program, {folder});
    process.waitForFinished(5000);
}

}  // namespace

void registerFileType(const FileType& type) {
    const QString entry = QStringLiteral("/applications/") + word(type) + QStringLiteral(".desktop");
    const QString mime = QStringLiteral("/mime/packages/") + word(type) + QStringLiteral(".xml");
    const QString icon = QStringLiteral("/icons/hicolor/scalable/apps/") + word(type) + QStringLiteral(".svg");
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const bool entry_known = says(home + entry, entryText(type));
    const bool mime_known = says(home + mime, mimeText(type));
    if ((entry_known && mime_known) || installed(type, entry, mime)) return;
    if (othersMayReplace(type.app_path) || belongsToAnother(type)) return;
    // The entry comes last: where it is, all is.
    write(home + icon, iconText());
    write(home + mime, mimeText(type));
    write(home + entry, entryText(type));
    refresh(QStringLiteral("update-mime-database"), home + QStringLiteral("/mime"));
    refresh(QStringLiteral("update-desktop-database"), home + QStringLiteral("/applications"));
}

}  // namespace verlink::desktop
