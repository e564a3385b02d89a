#include "platform/posix/file_settings_store.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_locale.h"
#include "tests/contract/platform/system_contract.h"
#include "tests/platform/posix/scratch.h"

namespace platform::contract {
namespace {

/// A store in a folder of its own that goes with it.
class ScratchStore : public posix::test::Scratch, public posix::FileSettingsStore {
 public:
  ScratchStore() : FileSettingsStore(path() + "/not/there/yet/settings") {}
};

INSTANTIATE_TEST_SUITE_P(Posix, SettingsStoreContract, testing::Values(std::make_shared<ScratchStore>));
INSTANTIATE_TEST_SUITE_P(Posix, ClockContract, testing::Values(std::make_shared<posix::PosixClock>));
INSTANTIATE_TEST_SUITE_P(Posix, LocaleContract, testing::Values(std::make_shared<posix::PosixLocale>));

}  // namespace
}  // namespace platform::contract
