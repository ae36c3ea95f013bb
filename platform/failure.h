// The one kind of exception of the program: a run-time failure known by its number.
#pragma once

#include <exception>
#include <string>

namespace verlink::platform {

/// Numbers of the failures that the program itself raises or maps the system's failures to.
enum FailureNumber : int {
    kInvalidCall = 5,
    kOverflow = 6,
    kOutOfMemory = 7,
    kSubscript = 9,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kOutOfStack = 28,
    kBadFileNameOrNumber = 52,
    kFileNotFound = 53,
    kDeviceError = 57,
    kDiskFull = 61,
    kEndOfFile = 62,
    kBadFileName = 64,
    kDiskNotReady = 71,
    kPathAccess = 75,
    kInvalidProperty = 380,
    kPrinterError = 482,
    kDialogCancelled = 32755,
};

/// The words that the failure reporter puts in brackets behind a number; "Application-defined or
/// object-defined error" for a number that has none.
std::string Failure_Description(long number);

/// Raised by whatever cannot go on; caught by `Guarded` and its like in the failure reporter alone.
class RuntimeFailure : public std::exception {
   public:
    explicit RuntimeFailure(long number) : number_(number), words_(Failure_Description(number)) {}
    long Number() const { return number_; }
    const char* what() const noexcept override { return words_.c_str(); }

   private:
    long number_;
    std::string words_;
};

/// Out of line so that a check costs an inner loop no more than its branch.
[[noreturn]] void Raise(long number);

}  // namespace verlink::platform
