// What is so or not of the record, and is decided in one place.
#pragma once

namespace verlink {

class Results;

/// Reads as a boolean everywhere; `Results` alone sets it. A whole record may be put back with what was so of it.
class Fact {
   public:
    Fact() = default;
    Fact(const Fact&) = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a fact reads as its truth
    operator bool() const { return so_; }

   private:
    friend class Results;
    friend struct StatusFlags;
    Fact& operator=(const Fact&) = default;
    bool so_ = false;
};

}  // namespace verlink
