// What goes to standard output, and what becomes of it when nobody reads on.
#pragma once

#include <ostream>
#include <string>

namespace verlink {

/// Whether a descriptor is a pipe or a connection whose other end is closed.
bool Reader_Gone(int descriptor);

/// Standard output for one model, or for several in turn: then each row of a table has its model in front, and a head
/// that is the same as the last one stands once.
class Printout {
   public:
    explicit Printout(std::ostream& out, bool several = false) : out_(out), several_(several) {}

    /// The one whose tables come.
    void Of_Model(const std::string& model) { model_ = model; }
    /// A line of heads, and rows in which no field has a line end.
    void Table(const std::string& table);
    void Text(const std::string& text) { out_ << text; }
    /// What was printed before comes first, wherever what is written next leads.
    void Flush() { out_.flush(); }
    /// Whether all went out. What could not is told once, and not at all where its reader went.
    bool Done(std::ostream& notes);
    /// Whether nothing goes out any more.
    bool Closed() const { return !out_; }
    /// Whether the path is an open pipe whose reader has gone; it counts as unread from then on.
    bool Left_By_Reader(const std::string& path);
    /// Whether somebody who was to read has gone.
    bool Unread() const;

   private:
    std::ostream& out_;
    bool several_, left_ = false, told_ = false;
    std::string model_, head_;
};

}  // namespace verlink
