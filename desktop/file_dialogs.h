// File dialogs as the program words them.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop_services.h"

class QWidget;

namespace verlink::desktop {

/// One entry of a filter list: the words shown, and the patterns as "*.vlk *.VLK".
struct NameFilter {
    QString words;
    QString patterns;
};
/// "words|pattern|words|pattern|" taken apart.
std::vector<NameFilter> nameFilters(const std::string& filter);

/// The chosen path, or nothing. The dialog starts in the folder of the name it is given, else in `folder`.
std::optional<std::string> askOpenFile(QWidget* parent, const platform::FileDialog& wish, const QString& folder);
std::optional<std::string> askSaveFile(QWidget* parent, const platform::FileDialog& wish, const QString& folder);

}  // namespace verlink::desktop
