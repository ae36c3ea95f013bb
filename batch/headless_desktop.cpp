// What the headless desktop writes and answers.
#include "batch/headless_desktop.h"

namespace verlink {

using namespace platform;

namespace {

/// The text with each CR, LF and CRLF as one line feed, ending in one.
std::string Lines_Of(const std::string& text) {
    std::string lines;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.compare(i, 2, "\r\n") == 0) continue;
        lines += text[i] == '\r' ? '\n' : text[i];
    }
    if (!lines.ends_with('\n')) lines += '\n';
    return lines;
}

}  // namespace

Answer HeadlessDesktop::Show_Message(const Message& message) {
    messages_ << Lines_Of(message.text);
    ++shown_;
    switch (message.buttons) {
        case Buttons::kOk:
        case Buttons::kOkCancel: return Answer::kOk;
        case Buttons::kYesNo: return Answer::kNo;
        case Buttons::kRetryCancel: return Answer::kCancel;
        case Buttons::kAbortRetryIgnore: return Answer::kIgnore;
    }
    return Answer::kOk;
}

}  // namespace verlink
