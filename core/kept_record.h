// Who works with the record and wants nothing of it to stay.
#pragma once

#include <memory>

#include "core/linkage_model.h"

namespace verlink {

/// Puts the record back as it was, results and flags included, also where a failure ends what is done meanwhile.
class Kept_Record {
   public:
    explicit Kept_Record(LinkageModel& model) : model_(model), kept_(std::make_unique<LinkageModel>(model)) {}
    ~Kept_Record() { model_ = *kept_; }
    Kept_Record(const Kept_Record&) = delete;
    Kept_Record& operator=(const Kept_Record&) = delete;

   private:
    LinkageModel& model_;
    std::unique_ptr<const LinkageModel> kept_;
};

}  // namespace verlink
