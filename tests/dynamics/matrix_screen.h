// A screen that has the labels of the matrix and nothing else.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/screen.h"

namespace verlink::test {

/// Stands in for `frm_Matrix` as long as it lives.
class MatrixOnShow {
    struct Labels : platform::Screen {
        Labels() : Screen("frm_Matrix") {
            for (int j = 1; j <= 9; ++j) Add("lbl_A" + std::to_string(j));
            Add("lbl_B");
        }
        void Add(const std::string& name) {
            arrays.push_back(platform::ControlArray<platform::Label>(
                *this, name, std::initializer_list<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
        }
        std::vector<platform::ControlArray<platform::Label>> arrays;
    };

   public:
    MatrixOnShow() {
        platform::Screens::Register("frm_Matrix", [] { return std::make_unique<Labels>(); });
        screen_ = &platform::Screens::Get("frm_Matrix");
    }
    ~MatrixOnShow() { platform::Screens::Register("frm_Matrix", nullptr); }
    MatrixOnShow(const MatrixOnShow&) = delete;
    MatrixOnShow& operator=(const MatrixOnShow&) = delete;

    /// The entry of equation j and unknown i.
    platform::Label& A(int j, int i) const { return screen_->Get<platform::Label>("lbl_A" + std::to_string(j), i); }
    platform::Label& B(int j) const { return screen_->Get<platform::Label>("lbl_B", j); }

   private:
    platform::Screen* screen_;
};

}  // namespace verlink::test
