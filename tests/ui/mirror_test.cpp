#include <utility>

#include "tests/story.h"
#include "ui/controls.h"
#include "ui/headless/headless_front_end.h"
#include "ui/text_box.h"

namespace ui {

using namespace std::chrono_literals;

/// Writes down what it is told to show.
struct NotingPeer : Peer {
  explicit NotingPeer(std::string& notes) : told(notes) {}
  void Append(std::string_view text) override { told += "+" + std::string(text) + " "; }
  void TakeFocus() override { told += "focus "; }
  void MirrorText() override { told += "text "; }
  void MirrorSpokenName() override { told += "name "; }
  void MirrorVisible() override { told += "visible "; }
  void MirrorEnabled() override { told += "enabled "; }
  void MirrorBounds() override { told += "bounds "; }
  void MirrorHelp() override { told += "help "; }
  void MirrorColours() override { told += "colours "; }
  void MirrorFont() override { told += "font "; }
  void MirrorValue() override { told += "value "; }
  void MirrorItems() override { told += "items "; }
  void MirrorSelection() override { told += "selection "; }
  void MirrorState() override { told += "state "; }
  std::string& told;
};

struct NotingFrontEnd : headless::HeadlessFrontEnd {
  using HeadlessFrontEnd::CreatePeer;
  std::unique_ptr<Peer> Note() { return std::make_unique<NotingPeer>(told); }
  std::unique_ptr<Peer> CreatePeer(Form&) override { return Note(); }
  std::unique_ptr<Peer> CreatePeer(Button&) override { return Note(); }
  std::unique_ptr<Peer> CreatePeer(CheckBox&) override { return Note(); }
  std::unique_ptr<Peer> CreatePeer(DropDownList&) override { return Note(); }
  std::unique_ptr<Peer> CreatePeer(ProgressBar&) override { return Note(); }
  std::unique_ptr<Peer> CreatePeer(ScrollBar&) override { return Note(); }
  std::unique_ptr<Peer> CreatePeer(TextBox&) override { return Note(); }
  std::unique_ptr<Peer> CreatePeer(Timer&) override { return Note(); }
  std::string told;
};

TEST(Mirror, EveryChangeIsShownAndNothingTwiceUnlessTheUserMadeIt) {
  NotingFrontEnd front_end;
  Form form(front_end, "form", FormStyle::kReport);
  Button button(&form, "button");
  CheckBox box(&form, "box");
  DropDownList list(&form, "list");
  ProgressBar progress(&form, "progress");
  ScrollBar bar(&form, "bar");
  TextBox line(&form, "line"), report(&form, "report", TextBox::Lines::kMany);
  Timer timer(&form, "timer");
  Story story{"ui/told/"};
  const auto tell = [&] { story.told += std::exchange(front_end.told, {}) + "\n"; };
  timer.Start(5ms), timer.Stop(), report.AppendLater("early"), tell();
  form.Show(), tell();
  form.SetTaskProgress(0.5), form.SetTaskProgress(0.5), form.SetTaskProgress(0.5, TaskState::kFailed);
  form.SetTaskProgress(0.5, TaskState::kFailed), form.SetSmallest({9, 9});
  form.UserSetState(WindowState::kMinimised), form.Restore(), tell();
  button.SetText("a"), button.SetText("a"), button.SetEnabled(false), button.SetBounds({1, 2, 3, 4});
  button.SetFont({"x"}), button.SetToolTip("a"), button.SetColours(Colours{}), button.SetVisible(false),
      tell();
  box.SetValue(1), box.SetValue(1), box.UserTicked(1), box.SetFocus(), tell();  // the user's own in any case
  list.SetItems({"a", "b"}), list.SetListIndex(0), list.UserSelected(9), list.RemoveItem(0), tell();
  progress.SetFraction(2), progress.SetFraction(1), tell();
  bar.SetRange(10, 3), bar.SetValue(4), bar.UserScrolled(4), tell();
  line.SetReadOnly(true), line.UserEdited("x"), line.SetReadOnly(false), line.UserEdited("x"), tell();
  line.SetText("a"), line.UserEdited("a\nb"), tell();
  report.ShowAppended(), report.Append("x"), tell();
  report.AppendLater("y"), form.Show(), report.Select({1, 1}), report.AppendLater("z");
  report.RemoveFromEnd(1), report.ShowAppended(), form.Hide(), tell();
  CheckBox late(&form, "late");
  late.SetText("as if it had always been there"), tell();
  form.Show(), box.SetFocus(), CheckBox(&form, "short-lived");
  EXPECT_TRUE(box.has_focus());
  std::make_unique<CheckBox>(&form, "focused")->SetFocus();
  EXPECT_EQ(form.focused(), nullptr);
}

}  // namespace ui
