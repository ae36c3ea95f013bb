// The descriptions of run-time failures.
#include "platform/failure.h"

#include <cctype>

namespace verlink::platform {

std::string Failure_Description(long number) {
    switch (number) {
        case kInvalidCall: return "Invalid procedure call or argument";
        case kOverflow: return "Overflow";
        case kOutOfMemory: return "Out of memory";
        case kSubscript: return "Subscript out of range";
        case kDivisionByZero: return "Division by zero";
        case kTypeMismatch: return "Type mismatch";
        case kOutOfStack: return "Out of stack space";
        case kBadFileNameOrNumber: return "Bad file name or number";
        case kFileNotFound: return "File not found";
        case kDeviceError: return "Device I/O error";
        case kDiskFull: return "Disk full";
        case kEndOfFile: return "Input past end of file";
        case kBadFileName: return "Bad file name";
        case kDiskNotReady: return "Disk not ready";
        case kPathAccess: return "Path/File access error";
        case kPathNotFound: return "Path not found";
        case kInvalidProperty: return "Invalid property value";
        case kPrinterError: return "Printer error";
        case kDialogCancelled: return "Cancel was selected";
        default: return "Application-defined or object-defined error";
    }
}

std::string FileTrouble::Words() const {
    if (path.empty()) return {};
    return path + "\r" + (writing ? "cannot be written: " : "cannot be read: ") + matter + ".";
}

std::string FileTrouble::Sentence() const {
    std::string sentence = matter + ".";
    sentence[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(sentence[0])));
    return sentence;
}

void Raise(long number) { throw RuntimeFailure(number); }

}  // namespace verlink::platform
