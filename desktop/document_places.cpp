// The file of places: a line for each heading, label and link, its values parted by tabs.
#include "desktop/document_places.h"

#include <QFile>
#include <QStringList>
#include <algorithm>

namespace verlink::desktop {

namespace {

QString number(qreal value) { return QString::number(value, 'f', 2); }

}  // namespace

const DocumentPlaces::Heading* DocumentPlaces::place(const QString& name) const {
    for (const std::vector<Heading>* places : {&headings, &labels}) {
        const auto found = std::ranges::find(*places, name, &Heading::name);
        if (found != places->end()) return &*found;
    }
    return nullptr;
}

QString DocumentPlaces::text() const {
    QStringList lines;
    for (const Heading& heading : headings)
        lines << QStringList{QStringLiteral("heading"),
                             QString::number(heading.level),
                             QString::number(heading.page),
                             number(heading.top),
                             heading.name,
                             heading.title}
                     .join(QLatin1Char('\t'));
    for (const Heading& label : labels)
        lines << QStringList{QStringLiteral("label"), QString::number(label.page), number(label.top), label.name}.join(
            QLatin1Char('\t'));
    for (const Link& link : links)
        lines << QStringList{QStringLiteral("link"),
                             QString::number(link.page),
                             number(link.area.x()),
                             number(link.area.y()),
                             number(link.area.width()),
                             number(link.area.height()),
                             link.target}
                     .join(QLatin1Char('\t'));
    return lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
}

DocumentPlaces DocumentPlaces::fromText(const QString& text) {
    DocumentPlaces places;
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QStringList parts = line.split(QLatin1Char('\t'));
        if (parts.size() == 6 && parts[0] == QStringLiteral("heading"))
            places.headings.push_back({parts[1].toInt(), parts[2].toInt(), parts[3].toDouble(), parts[4], parts[5]});
        else if (parts.size() == 4 && parts[0] == QStringLiteral("label"))
            places.labels.push_back({0, parts[1].toInt(), parts[2].toDouble(), parts[3], {}});
        else if (parts.size() == 7 && parts[0] == QStringLiteral("link"))
            places.links.push_back(
                {parts[1].toInt(),
                 {parts[2].toDouble(), parts[3].toDouble(), parts[4].toDouble(), parts[5].toDouble()},
                 parts[6]});
    }
    return places;
}

DocumentPlaces DocumentPlaces::ofDocument(const QString& path) {
    QFile file(fileOf(path));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return fromText(QString::fromUtf8(file.readAll()));
}

QString DocumentPlaces::fileOf(const QString& path) {
    const QString ending = QStringLiteral(".pdf");
    return (path.endsWith(ending) ? path.chopped(ending.size()) : path) + QStringLiteral(".places");
}

QString DocumentPlaces::nameOf(const QString& title) {
    QString name;
    for (const QChar letter : title.toLower()) {
        if (letter.isLetterOrNumber())
            name += letter;
        else if ((letter.isSpace() || letter == QLatin1Char('-')) && !name.endsWith(QLatin1Char('-')))
            name += QLatin1Char('-');
    }
    return name;
}

}  // namespace verlink::desktop
