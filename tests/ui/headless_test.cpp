#include "base/utf8.h"
#include "tests/contract/ui/contract_window.h"
#include "tests/story.h"
#include "ui/caption.h"
#include "ui/line_break.h"
#include "ui/placing.h"
#include "ui/window_look.h"

namespace ui::headless {

struct Headless : testing::Test {
  void Note(const std::string& step) { story.Note(step, window, std::exchange(heard, {})); }

  std::string heard;
  Story story{"ui/told/"};
  HeadlessFrontEnd front_end;
  contract::Window window{front_end, FormStyle::kReport};
};

TEST_F(Headless, TellsWhatSomebodySeesAndHears) {
  window.check.SetBounds({4'800, 1'600, 2'000, 600});
  window.list.SetBounds({4'800, 3'900, 2'000, 600});
  window.first.SetDescription("Twice\r\na day");
  Note("Before it is shown");
  window.Show();
  Note("All kinds");
  SetControlsFontName(window, kWindowFont), SetControlsBackColor(window, kWindowColours);
  window.report.SetWraps(), window.report.SetText("one\ntwo"),
      window.report.SetFont({kReportFont, 12, false});
  window.list.SetListIndex(1), window.list.SetEnabled(false), window.framed.SetFont({kWindowFont, 9, true});
  window.frame.SetColours(kProblemColours), window.frame.SetText("Frame"), window.label.SetToolTip("a tip");
  window.SetDefaultButton(&window.first), window.SetCancelButton(&window.framed),
      window.line.SetReadOnly(true);
  window.progress.SetFraction(0.5), window.bar.SetRange(30, 10), window.bar.SetValue(20);
  window.SetColours(kPaperColours), window.list.RemoveItem(-1), window.list.RemoveItem(3),
      window.list.RemoveItem(0);
  heard = Spoken(window);
  Note("In colours");
}

TEST_F(Headless, DoesWhatAUserCanDoAndTellsWhetherItWasPossible) {
  window.report.SetReadOnly(true), window.bar.SetRange(9, 1), window.SetDefaultButton(&window.framed);
  window.first.on_mouse_up = [&] { heard += " first"; };
  window.on_escape = window.check.on_click = window.list.on_click = window.bar.on_change =
      window.framed.on_mouse_up = window.label.on_mouse_up = [&] { heard += " acts"; };
  window.on_key = [&](const KeyPress& press) { return press.key == Key::kF3; };
  window.Show();
  for (const bool possible : {false, true, true}) {
    window.SetEnabled(possible);
    for (const bool done :
         {window.UserPressedEnter(), Click(window.first), window.UserPressedEnter(), Click(window.label),
          window.UserPressedAccessKey('N'), Tick(window.check, true), PressKey(window, {Key::kF3}),
          PressKey(window, {Key::kF8}), Select(window.list, 0), PressKey(window, {Key::kF3}),
          Select(window.list, 3) && window.list.SetListIndex(3), Type(window.line, "\r\na\r\n\nb\n"),
          Type(window.report, "a"), Scroll(window.bar, 99), window.UserPressedEscape(),
          window.UserPressedAccessKey('z')})
      heard += done ? "1" : "0";
    heard += "\n";
    Note(possible ? "Possible" : "Not possible");
    window.SetCancelButton(&window.first);
  }
  EXPECT_EQ(window.line.selection(), (Selection{3, 0}));
}

TEST_F(Headless, LinesBreakAtSpacesElseBehindSeparatorsElseWithinAWordAndCaptionsMarkTheirKey) {
  const auto measure = [](const std::string& text) { return static_cast<Twips>(base::utf8::Length(text)); };
  for (const char* const text :
       {"", "ab  cd efgh ", "/aa/bb\\cc d", "one\r\n\r\ntw\xC3\xB6", " \xC3\xA4\xC3\xA4xyz"}) {
    for (const Twips width : {0, 3, 4, 6}) {
      const std::string broken = BreakLines(text, width, measure);
      for (const char c : broken) story.told += c == '\n' ? '|' : c;
      story.told += ": " + std::to_string(CountLines(broken)) + (width == 6 ? "\n" : "; ");
    }
  }
  for (const char* const text : {"Back up", "R&D", "Q & A", "none"})
    for (const char key : {'u', 'D', '\0'}) story.told += MarkAccessKey(text, key) + (key == 0 ? "\n" : "; ");
}

TEST_F(Headless, PlacesAreKeptOnTheFirstScreenAndLeftOnFurtherOnes) {
  constexpr Size kScreen{100, 80};
  for (const Twips left : {-1, 0, 99, 100}) {
    for (const Twips top : {-1, 0, 79, 80}) {
      window.SetBounds({left, top, 20, 20});
      for (const Rect& place :
           {KeptOnItsScreen({left, top, 20, 300}, kScreen), CentredOver(window, {30, 10}, kScreen),
            CentredOver(window, {300, 300}, kScreen)})
        for (const Twips part : {place.left, place.top, place.width, place.height})
          story.told += std::to_string(part) + " ";
      story.told += "\n";
    }
  }
}

}  // namespace ui::headless
