// How a wish for a file becomes Qt's file dialog.
#include "desktop/file_dialogs.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSplitter>
#include <set>

#include "desktop/messages.h"
#include "desktop/text.h"
#include "platform/pictures.h"
#include "platform/settings.h"

namespace verlink::desktop {

std::vector<NameFilter> nameFilters(const std::string& filter) {
    std::vector<NameFilter> entries;
    const QStringList parts = toQt(filter).split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts[i + 1].split(u';', Qt::SkipEmptyParts);
        for (QString& pattern : patterns) {
            pattern = pattern.trimmed();
            if (pattern == QStringLiteral("*.*")) pattern = QStringLiteral("*");
        }
        if (!patterns.isEmpty()) entries.push_back({parts[i], patterns.join(u' ')});
    }
    return entries;
}

namespace {

constexpr QSize kRoomy{840, 500};  ///< names, sizes and dates are read whole

/// As Qt wants it: the words, and the patterns in brackets at the end.
QString qtFilter(const NameFilter& filter) {
    static const QRegularExpression brackets(QStringLiteral("\\s*\\([^()]*\\)\\s*$"));
    QString words = filter.words;
    words.remove(brackets);
    return words.isEmpty() ? u'(' + filter.patterns + u')' : words + QStringLiteral(" (") + filter.patterns + u')';
}

/// "vlk" from "*.vlk"; nothing from "*".
QString suffixOf(const NameFilter& filter) {
    static const QRegularExpression plain(QStringLiteral("^\\*\\.([A-Za-z0-9]+)"));
    return plain.match(filter.patterns).captured(1);
}

/// Where several entries of the list have one end, the name of the file does not tell which was taken.
void keepEntry(const std::string& kind, const std::vector<NameFilter>& filters, qsizetype entry) {
    if (kind.empty() || entry < 0) return;
    std::set<QString> ends;
    for (const NameFilter& filter : filters) ends.insert(filter.patterns);
    if (ends.size() < filters.size())
        platform::The_Settings().Put(platform::Entry_Setting(kind), std::to_string(entry + 1));
}

std::optional<std::string> ask(QWidget* parent, const platform::FileDialog& wish, const QString& folder, bool save) {
    countInterruption();
    QFileDialog dialog(parent, toQt(wish.title));
    dialog.setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !wish.warn_before_overwriting);

    const std::vector<NameFilter> filters = nameFilters(wish.filter);
    QStringList shown;
    if (!filters.empty()) {
        for (const NameFilter& filter : filters) shown << qtFilter(filter);
        dialog.setNameFilters(shown);
        const auto chosen = static_cast<std::size_t>(wish.filter_index) - 1;
        const std::size_t first = chosen < filters.size() ? chosen : 0;
        dialog.selectNameFilter(shown[static_cast<qsizetype>(first)]);
        if (save) dialog.setDefaultSuffix(suffixOf(filters[first]));
    }
    // A name typed without its end gets that of the kind chosen last.
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        const auto chosen = static_cast<std::size_t>(shown.indexOf(filter));
        if (save && chosen < filters.size()) dialog.setDefaultSuffix(suffixOf(filters[chosen]));
    });

    const QFileInfo given(toQt(wish.file_name));
    const bool has_folder = wish.file_name.find('/') != std::string::npos && given.dir().exists();
    dialog.setDirectory(has_folder ? given.dir().absolutePath() : folder);
    const QString name = given.fileName();
    if (!name.isEmpty() && !name.contains(u'*') && !name.contains(u'?')) dialog.selectFile(name);

    dialog.resize(dialog.sizeHint().expandedTo(kRoomy));
    if (auto* halves = dialog.findChild<QSplitter*>()) halves->setSizes({kRoomy.width() / 5, kRoomy.width() * 4 / 5});
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    keepEntry(wish.kind, filters, shown.indexOf(dialog.selectedNameFilter()));
    return fromQt(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

}  // namespace

std::optional<std::string> askOpenFile(QWidget* parent, const platform::FileDialog& wish, const QString& folder) {
    return ask(parent, wish, folder, false);
}

std::optional<std::string> askSaveFile(QWidget* parent, const platform::FileDialog& wish, const QString& folder) {
    return ask(parent, wish, folder, true);
}

}  // namespace verlink::desktop
