#include <filesystem>

#include "tests/contract/ui/contract_window.h"

namespace contract {

TEST_F(FrontEndContract,
       ATimerTicksEveryIntervalAlsoWithoutAWindowButNotInsideItsOwnHandlerUntilItIsStopped) {
  Window unseen(front_end_, ui::FormStyle::kPopUp);
  unseen.timer.on_timer = [&] {
    const auto ticks = ++count_;
    driver_->PassTime(100ms);
    EXPECT_EQ(count_, ticks);
  };
  unseen.timer.Start(20ms);
  driver_->PassTime(10ms);
  EXPECT_EQ(count_, 0);
  unseen.timer.Start(40ms);
  while (count_ < 3) driver_->PassTime(10ms);
  unseen.timer.Stop();
  driver_->PassTime(100ms);
  EXPECT_EQ(count_, 3);
}

TEST_F(FrontEndContract, AModalWindowReturnsWhenItIsHiddenWhileTimersGoOn) {
  Window dialog(front_end_, ui::FormStyle::kDialog);
  window_.timer.on_timer = Count();
  window_.timer.Start(5ms);
  Later([&] {
    EXPECT_TRUE(dialog.modal());
    EXPECT_EQ(dialog.owner(), &window_);
    while (count_ == 0) driver_->PassTime(5ms);
    driver_->Close(dialog);
  });
  dialog.ShowModal(window_);
  EXPECT_GT(count_, 0);
  EXPECT_FALSE(dialog.visible() || dialog.modal());
}

TEST_F(FrontEndContract, QuitEndsAModalWindowADialogAndTheRun) {
  Window dialog(front_end_, ui::FormStyle::kDialog);
  Later([&] {
    Later([&] {
      WhenADialogIsOpen([this] { front_end_.Quit(3); });
      EXPECT_FALSE(front_end_.dialogs().AskYesNo(dialog, {"Go on?", "", ui::Icon::kQuestion}));
    });
    dialog.ShowModal(window_);
    EXPECT_FALSE(dialog.visible());
  });
  EXPECT_EQ(front_end_.Run(), 3);
  EXPECT_TRUE(front_end_.quitting());
  EXPECT_EQ(front_end_.Run(), 3);
}

TEST_F(FrontEndContract, ClosingAsksTheHandlerAlsoWhileItsAnswerRunsAndHidesWithoutOne) {
  window_.AllowReentry();
  window_.first.on_mouse_up = Count();
  window_.on_close = [&] {
    if (++count_ == 1) driver_->Close(window_);
  };
  driver_->Close(window_);
  EXPECT_EQ(count_, 2);
  driver_->Click(window_.first);
  EXPECT_EQ(count_, 3) << "it stays on the screen";
  window_.on_close = nullptr;
  driver_->Close(window_);
  EXPECT_FALSE(window_.visible());
  Show(window_);
  driver_->Click(window_.first);
  EXPECT_EQ(count_, 4);
}

TEST_F(FrontEndContract, AMinimisedWindowIsRestored) {
  window_.first.on_mouse_up = Count();
  for (const auto bring_back : {&ui::Form::Restore, &ui::Form::Show}) {
    const auto before = count_;
    driver_->Minimise(window_);
    EXPECT_EQ(window_.state(), ui::WindowState::kMinimised);
    (window_.*bring_back)();
    front_end_.RunPendingEvents();
    EXPECT_EQ(window_.state(), ui::WindowState::kNormal);
    driver_->Click(window_.first);
    EXPECT_EQ(count_, before + 1);
  }
}

TEST_F(FrontEndContract, BothUserAndProgramChangeTheInnerSize) {
  window_.on_resize = Count();
  const ui::Size before = window_.inner();
  window_.SetWidth(window_.width() + 1'500);
  EXPECT_EQ(window_.inner().width, before.width + 1'500);
  EXPECT_GE(count_, 1);
  front_end_.RunPendingEvents();
  window_.SetSmallest({before.width - 1'500, 0});
  const auto by_program = count_;  // a window manager may answer with sizes of its own in between
  driver_->Resize(window_, {window_.width() - 6'000, window_.height()});
  EXPECT_EQ(window_.inner().width, before.width - 1'500);
  EXPECT_GT(count_, by_program);
}

TEST_F(FrontEndContract, APopUpTakesNeitherFocusNorActivation) {
  window_.first.on_mouse_up = Count();
  window_.on_activate = Count();
  Window pop_up(front_end_, ui::FormStyle::kPopUp);
  pop_up.label.on_mouse_up = [&] { pop_up.Hide(); };
  Show(pop_up);
  EXPECT_EQ(pop_up.focused(), nullptr);
  driver_->Press(window_, kSpace);
  EXPECT_EQ(count_, 1);
  driver_->Click(pop_up.label);
  EXPECT_FALSE(pop_up.visible());
}

TEST_F(FrontEndContract, OnlyAnAnswerIsAnAnswer) {
  ui::Dialogs& dialogs = front_end_.dialogs();
  const ui::MessageBox question{"Go on?\r\nReally?", "", ui::Icon::kQuestion};
  const ui::InputBox prompt{"Name?", "Name", 300, 300};
  WhenADialogIsOpen([this] { driver_->AnswerYes(); });
  EXPECT_TRUE(dialogs.AskYesNo(window_, question));
  WhenADialogIsOpen([this] { driver_->LeaveDialog(); });
  EXPECT_FALSE(dialogs.AskYesNo(window_, question));
  for (const bool no_by_default : {false, true}) {
    WhenADialogIsOpen([this] { driver_->AnswerByEnter(); });
    EXPECT_EQ(dialogs.AskYesNo(window_, {"Delete?", "", ui::Icon::kQuestion, no_by_default}), !no_by_default);
  }
  WhenADialogIsOpen([this] { driver_->AnswerText("Bilder \xC3\xA4"); });
  EXPECT_EQ(dialogs.AskText(window_, prompt), "Bilder \xC3\xA4");
  WhenADialogIsOpen([this] { driver_->LeaveDialog(); });
  EXPECT_EQ(dialogs.AskText(window_, prompt), std::nullopt);
}

TEST_F(FrontEndContract, AFileNeedsNotExistAndTheCurrentFolderStays) {
  const std::filesystem::path here = std::filesystem::current_path();
  const std::string path = here.root_path().string() + "not there \xC3\xA4.qvr";
  WhenADialogIsOpen([&] { driver_->AnswerPath(path); });
  EXPECT_EQ(front_end_.dialogs().OpenFile(window_, {"Load", "Setup files (*.qvr)", "*.qvr"}), path);
  EXPECT_EQ(std::filesystem::current_path(), here);
}

TEST_F(FrontEndContract, TheClipboardKeepsLineEnds) {
  front_end_.clipboard().SetText("\xC3\xA4\r\nb\r\n");
  EXPECT_EQ(front_end_.clipboard().Text(), "\xC3\xA4\r\nb\r\n");
  front_end_.clipboard().Clear();
  EXPECT_EQ(front_end_.clipboard().Text(), "");
}

}  // namespace contract
