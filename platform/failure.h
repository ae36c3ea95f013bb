// The one kind of exception of the program: a run-time failure known by its number.
#pragma once

#include <exception>
#include <string>
#include <utility>

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
    kPathNotFound = 76,
    kInvalidProperty = 380,
    kPrinterError = 482,
    kDialogCancelled = 32755,
};

/// The words that the failure reporter puts in brackets behind a number; "Application-defined or
/// object-defined error" for a number that has none.
std::string Failure_Description(long number);

/// The file that a failure is about, and what is the matter with it; no path for a failure that is about no file.
struct FileTrouble {
    std::string path;
    bool writing = false;
    std::string matter;
    /// "/home/ann/press.vlk" and, on a line of its own, "cannot be written: the disk is full."; empty without a path.
    std::string Words() const;
    /// "The disk is full."
    std::string Sentence() const;
};

/// Raised by whatever cannot go on; caught by `Guarded` and its like in the failure reporter alone.
class RuntimeFailure : public std::exception {
   public:
    explicit RuntimeFailure(long number, FileTrouble trouble = {})
        : number_(number), words_(Failure_Description(number)), trouble_(std::move(trouble)) {}
    long Number() const { return number_; }
    const FileTrouble& Trouble() const { return trouble_; }
    const char* what() const noexcept override { return words_.c_str(); }

   private:
    long number_;
    std::string words_;
    FileTrouble trouble_;
};

/// Out of line so that a check costs an inner loop no more than its branch.
[[noreturn]] void Raise(long number);

}  // namespace verlink::platform
