// Fresh records, screens and folders for tests.
#include "tests/support/fixture.h"

#include <unistd.h>

#include <memory>

#include "files/in_hand.h"
#include "platform/settings.h"
#include "screens/register.h"
#include "shell/history.h"
#include "shell/recovery.h"

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
    Model_Came();
    platform::Screens::Discard();
    Register_Screens();
    The_History().Begin();
}

Fixture::~Fixture() {
    End_Keeping();
    desktop.Verify();
    platform::Screens::Discard();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

}  // namespace verlink::test
