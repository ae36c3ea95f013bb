// What is typed and not calculated when a screen is left.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/number.h"
#include "platform/controls.h"
#include "platform/screen.h"

namespace verlink {

struct Document;

/// Texts of a screen's boxes that wait while it is away: they stand again when it comes up, over the numbers over which
/// they were typed. Other numbers of the record, other units or another model end them.
class Typed_Aside {
   public:
    /// As the screen goes: the texts that a hand has touched. `fill` fills the boxes from the record.
    void Keep(platform::Screen& screen, const std::function<void()>& fill);
    /// As it has come up, its boxes filled from the record.
    void Put_Back();

   private:
    struct Typed {
        platform::TextBox* box;
        std::string text, below;  ///< and what the record has there
    };
    std::vector<Typed> typed_;
    Integer units_ = 0;
    std::weak_ptr<Document> document_;
};

}  // namespace verlink
