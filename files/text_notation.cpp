// Writing and reading the values of a text file.
#include "files/text_notation.h"

#include <algorithm>

#include "core/text.h"
#include "platform/failure.h"

namespace verlink {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kValueEnds = ",\r\n";
constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";
constexpr std::string_view kColumnEnds = ", \t\r\n";

bool Ends_Value(char c) { return kValueEnds.find(c) != std::string_view::npos; }

}  // namespace

void TextWriter::Separate() {
    if (line_begun_) content_ += ',';
    line_begun_ = true;
}

void TextWriter::Put(const std::string& value) {
    Separate();
    content_ += '"';
    for (std::size_t i = 0; i < value.size(); ++i) {
        const std::size_t next = value[i] == '"' ? value.find_first_not_of(kBlanks, i + 1) : std::string::npos;
        if (next != std::string::npos && Ends_Value(value[next]))
            content_ += "''";
        else
            content_ += value[i];
    }
    content_ += '"';
}

void TextWriter::Put(Single value) {
    Separate();
    content_ += Text_Of(value);
}

void TextWriter::Put(Integer value) {
    Separate();
    content_ += Text_Of(value);
}

void TextWriter::Put(Long value) {
    Separate();
    content_ += Text_Of(value);
}

void TextWriter::Put(bool value) {
    Separate();
    content_ += value ? "#TRUE#" : "#FALSE#";
}

void TextWriter::EndLine() {
    content_ += "\r\n";
    line_begun_ = false;
}

TextReader::TextReader(std::string_view content) : content_(content) {
    if (content_.starts_with(kByteOrderMark)) content_.remove_prefix(kByteOrderMark.size());
}

bool TextReader::AtEnd() const { return place_ >= content_.size(); }

void TextReader::Skip_Blanks() { place_ = std::min(content_.find_first_not_of(kBlanks, place_), content_.size()); }

void TextReader::End_Value() {
    Skip_Blanks();
    if (AtEnd() || !Ends_Value(content_[place_])) return;
    place_ += content_.substr(place_, 2) == "\r\n" ? 2 : 1;
}

std::string_view TextReader::Word(std::string_view ends) {
    Skip_Blanks();
    if (AtEnd()) platform::Raise(platform::kEndOfFile);
    const std::size_t end = std::min(content_.find_first_of(ends, place_), content_.size());
    std::string_view word = content_.substr(place_, end - place_);
    word = word.substr(0, word.find_last_not_of(kBlanks) + 1);
    if (word.size() > kLongestValue) platform::Raise(platform::kOverflow);
    place_ = end;
    End_Value();
    return word;
}

std::string TextReader::String() {
    Skip_Blanks();
    if (AtEnd() || content_[place_] != '"') return std::string(Word(kValueEnds));
    const std::size_t begin = place_ + 1;
    for (std::size_t quote = content_.find('"', begin); quote != std::string_view::npos;
         quote = content_.find('"', quote + 1)) {
        const std::size_t next = content_.find_first_not_of(kBlanks, quote + 1);
        if (next != std::string_view::npos && !Ends_Value(content_[next])) continue;
        if (quote - begin > kLongestValue) platform::Raise(platform::kOverflow);
        place_ = quote + 1;
        End_Value();
        return std::string(content_.substr(begin, quote - begin));
    }
    platform::Raise(platform::kEndOfFile);
}

Single TextReader::Float() { return Number_Of(Word(kValueEnds)); }

Single TextReader::Column() { return Number_Of(Word(kColumnEnds)); }

Integer TextReader::Short() { return Number_Of(Word(kValueEnds)); }

Long TextReader::LongInteger() { return Number_Of(Word(kValueEnds)); }

bool TextReader::Boolean() {
    const std::string_view word = Word(kValueEnds);
    if (word == "#TRUE#") return true;
    if (word == "#FALSE#") return false;
    platform::Raise(platform::kTypeMismatch);
}

}  // namespace verlink
