// How tables of several models become one.
#include "batch/printout.h"

#include <poll.h>
#include <unistd.h>

#include <utility>

#include "batch/csv.h"
#include "platform/links.h"

namespace verlink {

bool Reader_Gone(int descriptor) {
    pollfd end{descriptor, POLLOUT, {}};
    ::poll(&end, 1, 0);
    return (end.revents & (POLLERR | POLLHUP)) != 0;
}

void Printout::Table(const std::string& table) {
    if (!several_) return Text(table);
    std::size_t from = table.find('\n') + 1;
    std::string head = table.substr(0, from);
    if (head != head_) out_ << "Model," << head;
    head_ = std::move(head);
    const std::string front = Csv_Field(model_) + ",";
    for (std::size_t end; (end = table.find('\n', from)) != std::string::npos; from = end + 1)
        out_ << front << table.substr(from, end + 1 - from);
}

bool Printout::Done(std::ostream& notes) {
    Flush();
    if (!out_ && !Reader_Gone(STDOUT_FILENO) && !std::exchange(told_, true))
        notes << "verlink-batch: standard output cannot be written\n";
    return static_cast<bool>(out_);
}

bool Printout::Left_By_Reader(const std::string& path) {
    const auto open = platform::Descriptor_Named(path);
    const bool left = open && Reader_Gone(*open);
    left_ = left_ || left;
    return left;
}

bool Printout::Unread() const { return left_ || (!out_ && Reader_Gone(STDOUT_FILENO)); }

}  // namespace verlink
