// Printing a window as a picture, on paper or into a PDF.
#pragma once

#include <memory>

class QPrinter;
class QString;
class QWidget;

namespace verlink::desktop {

/// The printer of the user, or a writer of PDF files where there is none; landscape, as screens are.
std::unique_ptr<QPrinter> makePrinter();

/// The printer dialog. A PDF would go to <folder>/<name>.pdf unless the user says otherwise; the folder is made.
bool askPrinter(QWidget* parent, QPrinter& printer, const QString& folder, const QString& name);

/// As vectors, as large as the page allows. False when the printer refuses.
bool printWidget(QPrinter& printer, QWidget& widget);

}  // namespace verlink::desktop
