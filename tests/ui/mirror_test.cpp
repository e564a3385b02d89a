#include <gtest/gtest.h>

#include <functional>

#include "ui/controls.h"
#include "ui/headless/headless_front_end.h"
#include "ui/text_box.h"

namespace ui {

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
  const std::string all = "font colours text name items value help enabled bounds state selection visible ";
  const std::pair<std::function<void()>, std::string> changes[] = {
      {[&] { timer.Start(5); }, all + "value "},
      {[&] { timer.Stop(); }, "value "},
      {[&] { report.AppendLater("early"); }, ""},
      {[&] { form.Show(); }, all + all + all + all + all + all + all + all + "visible focus "},
      {[&] { form.SetTaskProgress(0.5); }, "value "},
      {[&] {
         form.SetSmallest({9, 9});
       },
       "bounds "},
      {[&] { form.UserSetState(WindowState::kMinimised), form.Restore(); }, "state "},
      {[&] { button.SetText("a"), button.SetText("a"), button.SetEnabled(false); },
       "text name focus enabled "},
      {[&] {
         button.SetBounds({1, 2, 3, 4}), button.SetFont({"x"});
       },
       "bounds font "},
      {[&] { button.SetToolTip("a"), button.SetColours(Colours{}); }, "help colours "},
      {[&] { button.SetVisible(false), button.SetVisible(false); }, "visible "},
      {[&] { box.SetValue(1), box.SetValue(1); }, "value "},
      {[&] { box.UserTicked(1), box.SetFocus(); }, "value focus "},
      {[&] {
         list.SetItems({"a", "b"}), list.SetListIndex(0);
       },
       "items value value "},
      {[&] { list.UserSelected(9), list.RemoveItem(0); }, "value items value "},
      {[&] { progress.SetFraction(2), progress.SetFraction(1); }, "value "},
      {[&] { bar.SetRange(10, 3), bar.SetValue(4), bar.UserScrolled(4); }, "value value value "},
      {[&] { line.SetReadOnly(true), line.UserEdited("x"); }, "enabled text name "},
      {[&] { line.SetReadOnly(false), line.UserEdited("x"); }, "enabled "},
      {[&] { line.SetText("a"), line.UserEdited("a\nb"); }, "text name selection text name "},
      {[&] { report.ShowAppended(), report.Append("x"), report.ShowAppended(); }, "+x "},
      {[&] {
         report.AppendLater("y"), report.Select({1, 1});
       },
       "+y selection "},
      {[&] { report.AppendLater("z"), report.RemoveFromEnd(1), report.ShowAppended(); },
       "text name selection "},
      {[&] { form.Hide(); }, "visible "}};
  for (std::size_t row = 0; row < std::size(changes); ++row) {
    front_end.told.clear();
    changes[row].first();
    EXPECT_EQ(front_end.told, changes[row].second) << row;
  }
  CheckBox late(&form, "late");
  late.SetText("as if it had always been there");
  EXPECT_EQ(front_end.told, "visible " + all);
}

}  // namespace ui
