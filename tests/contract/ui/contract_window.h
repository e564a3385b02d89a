#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "tests/contract/ui/driver.h"

namespace contract {

/// A window with one of every kind.
class Window : public ui::Form {
 public:
  Window(ui::FrontEnd& front_end, ui::FormStyle style) : Form(front_end, "window", style) {
    SetText("Window");
    SetBounds({1'500, 1'500, 9'000, 9'000});
    ui::Twips top = 150;
    for (Control* control : controls()) {
      control->SetBounds({150, top, 4'500, 600});
      top += 750;
    }
    framed.SetBounds({150, 120, 3'000, 420});
    first.SetText("First");
    framed.SetText("Framed");
    framed.SetAccessKey('m');
    label.SetText("Name");
    label.SetAccessKey('n');
    check.SetText("Check");
    check.SetAccessKey('k');
    list.SetItems({"one", "two", "three"});
    for (Control* without_text : std::vector<Control*>{&line, &list, &report, &bar, &progress}) {
      without_text->SetSpokenName("Spoken " + without_text->name());
    }
  }

  ui::Button first{this, "first"};
  ui::Label label{this, "label"};
  ui::TextBox line{this, "line"};
  ui::CheckBox check{this, "check"};
  ui::DropDownList list{this, "list"};
  ui::Frame frame{this, "frame"};
  ui::Button framed{&frame, "framed"};
  ui::ProgressBar progress{this, "progress"};
  ui::ScrollBar bar{this, "bar"};
  ui::TextBox report{this, "report", ui::TextBox::Lines::kMany};
  ui::Timer timer{this, "timer"};
};

/// One that needs more room than the screen has, with its check box in the far corner.
class LargeWindow : public Window {
 public:
  explicit LargeWindow(ui::FrontEnd& front_end) : Window(front_end, ui::FormStyle::kReport) {
    const ui::Size screen = front_end.screen();
    SetSmallest({2 * screen.width, 2 * screen.height});
    SetBounds({0, 0, screen.width, screen.height});
    check.SetBounds({2 * screen.width - 1'500, 2 * screen.height - 600, 1'500, 600});
  }
};

class FrontEndContract : public testing::Test {
 protected:
  void SetUp() override { Show(window_); }

  void Show(ui::Form& form) {
    form.Show();
    front_end_.RunPendingEvents();
    front_end_.RunPendingEvents();  // what the first round has caused
  }

  /// A handler that counts how often it runs.
  ui::Handler Count() {
    return [this] { ++count_; };
  }

  /// The user acts at the next chance that the program gives.
  void Later(std::function<void()> act) {
    ui::Timer& timer = *timers_.emplace_back(std::make_unique<ui::Timer>(&unseen_, "later"));
    timer.on_timer = [&timer, act] {
      timer.Stop();
      act();
    };
    timer.Start(1ms);
  }
  void WhenADialogIsOpen(std::function<void()> act) {
    Later([this, act] { driver_->DialogIsOpen() ? act() : WhenADialogIsOpen(act); });
  }

  std::unique_ptr<Driver> driver_ = MakeDriver();
  ui::FrontEnd& front_end_ = driver_->front_end();
  Window window_{front_end_, ui::FormStyle::kReport};
  int count_ = 0;

 private:
  ui::Form unseen_{front_end_, "unseen", ui::FormStyle::kPopUp};
  std::vector<std::unique_ptr<ui::Timer>> timers_;
};

}  // namespace contract
