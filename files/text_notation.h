// The notation of the program's text files: one value after another, strings in quotes, booleans in hashes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "core/number.h"

namespace verlink {

/// No value has more bytes. A text box holds 32767 letters, of whatever script.
inline constexpr std::size_t kLongestValue = 100000;

/// Collects a file. Values stand one to a line, or several with commas between them; lines end in CR LF. A quote
/// inside a string is written as it stands, but as two apostrophes where it would end the string for a reader.
class TextWriter {
   public:
    void Put(const std::string& value);
    void Put(const char* value) { Put(std::string(value)); }
    void Put(Single value);
    void Put(Integer value);
    void Put(Long value);
    void Put(bool value);
    void EndLine();
    const std::string& Content() const { return content_; }

   private:
    void Separate();
    std::string content_;
    bool line_begun_ = false;
};

/// Takes values off a file's content. A comma and a line end alike end a value; a quoted string may hold either,
/// and quotes too: it ends at the first quote with nothing but blanks between it and the end of the value. A string
/// without quotes is taken as it stands. Lone LF and lone CR end lines too; a byte order mark in front is none of the
/// content. Past the end, and inside a string that never ends, is failure 62; a value of the wrong kind failure 13; a
/// number beyond its type, or a value longer than `kLongestValue`, failure 6.
class TextReader {
   public:
    explicit TextReader(std::string_view content);
    std::string String();
    Single Float();
    /// A number that a blank ends too, as in the columns of a table in free form.
    Single Column();
    Integer Short();
    Long LongInteger();
    bool Boolean();
    bool AtEnd() const;

   private:
    void Skip_Blanks();
    void End_Value();
    std::string_view Word(std::string_view ends);
    std::string_view content_;
    std::size_t place_ = 0;
};

}  // namespace verlink
