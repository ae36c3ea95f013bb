// Printing a window as a picture, on paper or into a PDF.
#pragma once

#include <memory>
#include <string>
#include <vector>

class QPrinter;
class QString;
class QWidget;

namespace verlink::desktop {

/// The printer of the user, or a writer of PDF files where there is none; landscape, as screens are.
std::unique_ptr<QPrinter> makePrinter();

/// The printer dialog. A PDF would go to <folder>/<name>.pdf unless the user says otherwise; the folder is made.
bool askPrinter(QWidget* parent, QPrinter& printer, const QString& folder, const QString& name);

// Each page has `foot`, one line in small letters, at its foot. False when the printer refuses; where a PDF cannot be
// written, failure 482 with the file and what is the matter with it, and an old file is whole.

/// As vectors, as large as the page allows.
bool printWidget(QPrinter& printer, QWidget& widget, const QString& foot);

/// Pages of text lines in a font of one width, small enough for the widest line and the longest page.
bool printPages(QPrinter& printer, const std::vector<std::vector<std::string>>& pages, const QString& foot);

}  // namespace verlink::desktop
