// What every test of the program starts from: a fresh record, fresh screens, a scripted desktop, an empty folder.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/linkage_model.h"
#include "core/results.h"
#include "tests/support/scripted_desktop.h"

namespace verlink::test {

class Fixture : public testing::Test {
   protected:
    Fixture();
    ~Fixture() override;

    /// A path in this test's own folder, which goes away with the test.
    std::string Path(const std::string& name) const { return folder_ + "/" + name; }
    /// A committed file under tests/fixtures/.
    static std::string Fixture_File(const std::string& name) {
        return std::string(VERLINK_TESTS) + "/fixtures/" + name;
    }

    ScriptedDesktop desktop;

   private:
    std::string folder_;
};

/// The record as it is before `Initialize`.
void Reset_Model();

}  // namespace verlink::test
