#include "tests/contract/ui/contract_window.h"

namespace contract {

TEST_F(FrontEndContract, TheProgramsOwnChangesRaiseNothing) {
  window_.check.on_click = window_.list.on_click = window_.bar.on_change = Count();
  window_.line.on_change = window_.report.on_change = Count();
  window_.check.SetValue(1);
  window_.list.SetListIndex(2);
  window_.list.RemoveItem(0);
  EXPECT_EQ(window_.list.list_index(), 1);
  window_.list.RemoveItem(1);
  EXPECT_EQ(window_.list.list_index(), -1);
  window_.bar.SetRange(100, 10);
  window_.bar.SetValue(50);
  window_.bar.SetRange(20, 10);
  window_.line.SetText("text");
  window_.report.SetText("text\r\n");
  window_.report.Append("more");
  window_.report.RemoveFromEnd(2);
  window_.report.Select({1, 2});
  front_end_.RunPendingEvents();
  EXPECT_EQ(count_, 0);
  EXPECT_EQ(window_.bar.value(), 20);
}

TEST_F(FrontEndContract, ABoxIsTickedAndClearedByMouseSpaceAndAccessKey) {
  std::string values;
  window_.check.on_click = [&] { values += std::to_string(window_.check.value()); };
  driver_->Click(window_.check);
  driver_->Press(window_, kSpace);
  window_.first.SetFocus();
  driver_->Press(window_, 'k', Held::kAlt);
  EXPECT_EQ(values, "101");
}

TEST_F(FrontEndContract, ChoosingFromAListThatIsEnabledSelectsAndRaisesOnce) {
  window_.list.on_click = Count();
  window_.list.SetListIndex(0);
  driver_->Choose(window_.list, 1);
  EXPECT_FALSE(window_.list.choice_finished()) << "by a key on the closed list";
  window_.list.SetEnabled(false);
  driver_->Choose(window_.list, 2);
  EXPECT_EQ(window_.list.list_index(), 1);
  EXPECT_EQ(count_, 1);
}

TEST_F(FrontEndContract, DraggingAndTheWheelOverItsFrameMoveABarWithinItsRange) {
  ui::DropDownList list(&window_.frame, "inside");
  list.SetItems({"a", "b"});
  driver_->TurnWheel(list, -1);
  window_.frame.SetScrollBar(&window_.bar);
  window_.bar.SetRange(100, 40);
  window_.bar.on_change = Count();
  driver_->TurnWheel(list, -2);
  EXPECT_EQ(window_.bar.value(), 20);
  driver_->TurnWheel(list, 9);
  EXPECT_EQ(window_.bar.value(), 0);
  driver_->Drag(window_.bar, 400);
  EXPECT_EQ(window_.bar.value(), 100);
  EXPECT_EQ(count_, 3);
  EXPECT_EQ(list.list_index(), -1) << "nor does a closed list take the wheel";
}

TEST_F(FrontEndContract, TypingChangesATextThatMayBeChangedOnceForEveryKeyAtMost) {
  window_.line.on_change = Count();
  driver_->Type(window_.line, "\xC3\xA4*.txt");
  EXPECT_EQ(window_.line.text(), "\xC3\xA4*.txt");
  EXPECT_EQ(window_.line.length(), 6U);
  EXPECT_GE(count_, 1);
  EXPECT_LE(count_, 6);
  count_ = 0;
  window_.line.SetReadOnly(true);
  driver_->Type(window_.line, "x");
  window_.line.SetReadOnly(false);
  window_.line.SetEnabled(false);
  driver_->Type(window_.line, "x");
  EXPECT_EQ(window_.line.text(), "\xC3\xA4*.txt");
  EXPECT_EQ(count_, 0);
}

TEST_F(FrontEndContract, LineEndsAreCrLfWhoeverWritesThem) {
  window_.report.SetText("a\nb\rc\r\n");
  EXPECT_EQ(window_.report.text(), "a\r\nb\r\nc\r\n");
  EXPECT_EQ(window_.report.length(), 9U);
  driver_->Type(window_.report, "x\ny");
  EXPECT_EQ(window_.report.text(), "x\r\ny");
  EXPECT_EQ(window_.report.length(), 4U);
  window_.line.SetText("a\nb\xFF");
  EXPECT_EQ(window_.line.text(), "a\nb\xFF") << "one line takes a file name as it is";
}

TEST_F(FrontEndContract, AppendedTextLeavesTheCaretAtTheEndWithNothingSelected) {
  window_.report.SetText("first\r\n");
  window_.report.Select({0, 5});
  window_.report.Append("\xF0\x9F\x93\x81 second\n");
  EXPECT_EQ(window_.report.text(), "first\r\n\xF0\x9F\x93\x81 second\r\n");
  EXPECT_EQ(window_.report.selection(), (ui::Selection{17, 0}));
  window_.report.RemoveFromEnd(9);
  EXPECT_EQ(window_.report.text(), "first\r\n\xF0\x9F\x93\x81");
  EXPECT_EQ(window_.report.selection(), (ui::Selection{8, 0}));
  window_.report.RemoveFromEnd(2);
  EXPECT_EQ(window_.report.text(), "first\r");
  window_.report.RemoveFromEnd(99);
  EXPECT_EQ(window_.report.text(), "");
}

TEST_F(FrontEndContract, SelectionsCountCodePointsAndTwoForALineEnd) {
  const std::tuple<const char*, ui::Selection, ui::Selection, const char*> cases[] = {
      {"abc", {1, 99}, {1, 2}, "bc"},
      {"abc", {9, 1}, {3, 0}, ""},
      {"\xC3\xA4\xC3\xB6\xC3\xBC", {1, 1}, {1, 1}, "\xC3\xB6"},
      {"\xF0\x9F\x93\x81x\xF0\x9F\x98\x80y", {2, 2}, {2, 2}, "\xF0\x9F\x98\x80y"},
      {"\xE2\x82\xAC\xFFz", {1, 2}, {1, 2}, "\xFFz"},
      {"a surrogate \xED\xA0\x80, a line of its own \xE2\x80\xA9, x", {36, 9}, {36, 1}, "x"},
  };
  for (ui::TextBox* box : {&window_.line, &window_.report}) {
    for (const auto& [text, asked, got, selected] : cases) {
      box->SetText(text);
      box->Select(asked);
      EXPECT_EQ(box->selection(), got) << box->name() << " " << text;
      EXPECT_EQ(box->selected_text(), selected) << box->name();
    }
  }
  window_.report.SetText("\xC3\xA4\r\n\xF0\x9F\x93\x81\r\nend");
  window_.report.Select({3, 4});
  EXPECT_EQ(window_.report.selection(), (ui::Selection{3, 4}));
  EXPECT_EQ(window_.report.selected_text(), "\xF0\x9F\x93\x81\r\ne");
}

}  // namespace contract
