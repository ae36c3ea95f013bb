// A printer of text, in zones of 14 columns.
#pragma once

#include <string>
#include <vector>

namespace verlink::platform {

/// Collects pages of lines; `EndDoc` hands them to the desktop, which prints them in a font of one width.
class Printer {
   public:
    /// Prints at the present column.
    Printer& Print(const std::string& text);
    /// Goes on to the next zone: the next column that is a multiple of 14.
    Printer& Zone();
    Printer& EndLine();
    /// The number of the present page, from 1.
    int Page() const { return static_cast<int>(pages_.size()); }
    void NewPage();
    /// Sends what was printed and starts anew; failure 482 when the printer refuses.
    void EndDoc();
    /// The pages so far, each its lines.
    const std::vector<std::vector<std::string>>& Pages() const { return pages_; }

   private:
    std::vector<std::vector<std::string>> pages_{{{}}};
};

/// The printer of the process.
Printer& The_Printer();

}  // namespace verlink::platform
