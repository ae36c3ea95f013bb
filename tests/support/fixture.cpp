// Fresh records, screens and folders for tests.
#include "tests/support/fixture.h"

#include <unistd.h>

#include <memory>

#include "platform/settings.h"
#include "screens/register.h"

namespace verlink::test {

void Reset_Model() {
    std::destroy_at(&Model);
    std::construct_at(&Model);
}

Fixture::Fixture() {
    std::string pattern = testing::TempDir() + "verlink-XXXXXX";
    folder_ = ::mkdtemp(pattern.data());
    desktop.Documents = folder_;
    Reset_Model();
    platform::The_Settings().Open("");
    platform::Screens::Discard();
    Register_Screens();
}

Fixture::~Fixture() {
    desktop.Verify();
    platform::Screens::Discard();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

}  // namespace verlink::test
