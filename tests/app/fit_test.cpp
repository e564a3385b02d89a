#include "app/confirmation/frmConfirmOperation.h"
#include "tests/app/program.h"

namespace app::test {

TEST(Fit, AConfirmationWithManyDoubtsLiesOnASmallScreenAndEveryControlInIt) {
  Program program({"/src/a/file", "/src/b/"});
  const std::string two_lines =
      "Nothing in the target comes from this source, as far as it was read. Is it "
      "meant for the backup of another folder, on this or another computer?";
  frmConfirmOperation confirm(program.context, {program.setup, Operation::kBackupModifiedFiles, {}, false},
                              std::vector<std::string>(8, two_lines));
  program.InOpenWindow<frmConfirmOperation>([](frmConfirmOperation& open) {
    fit::ExpectInside(open, fit::kSmallestScreen);
    open.Hide();
  });
  confirm.Confirm(program.StartWithSetup());
}

}  // namespace app::test
