#include <gtest/gtest.h>

#include "app/frmSelectSubfolders.h"
#include "tests/app/program.h"

namespace app::test {
namespace {

using namespace std::chrono_literals;
using platform::memory::Call;
using ui::Key;
using Names = std::vector<std::string>;

class SelectSubfolders : public testing::Test, protected Program {
 protected:
  SelectSubfolders() { owner.Show(); }

  /// Opens the window, lets it read to its end, then lets the user act.
  std::optional<Names> Choose(const std::function<void()>& user, const Names& included = {}) {
    select.emplace(context, "/src", included);
    front_end.when_idle = [&] {
      if (select->tmrRead.running()) return front_end.PassTime(1);
      user();
      select->Hide();
    };
    return select->Choose(owner);
  }

  void AddManySubfolders() {
    for (int i = 10'000; i < 15'000; ++i) files.AddFolder("/src/folder " + std::to_string(i));
  }

  std::string NameAt(std::size_t row) { return select->rows[row]->chkSubfolder.text(); }
  bool Tick(std::size_t row) { return ui::headless::Tick(select->rows[row]->chkSubfolder, true); }
  std::string Focused() { return select->focused() == nullptr ? "" : select->focused()->text(); }

  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  std::optional<frmSelectSubfolders> select;
};

TEST(SubfolderContent, IsToldInWords) {
  using State = Subfolder::State;
  const std::pair<Subfolder, const char*> cases[] = {
      {{"", false, State::kNotLookedInto}, ""},
      {{"", false, State::kDenied}, "permission denied"},
      {{"", false, State::kRead, 0, 0}, "no files and no subfolders"},
      {{"", false, State::kRead, 1, 0}, "1 file and no subfolders"},
      {{"", false, State::kRead, 0, 2}, "0 files and 2 subfolders"},
      {{"", false, State::kRead, 9'999, 1}, "9999 files and 1 subfolder"},
      {{"", false, State::kRead, 10'000, 10'000}, "over 9999 files and over 9999 subfolders"},
  };
  for (const auto& [subfolder, text] : cases) EXPECT_EQ(ContentText(subfolder), text);
}

TEST_F(SelectSubfolders, ListsFoldersByNameButNoLinksNorTheRecycleBin) {
  for (const char* name : {"b", "A", "c", "$Recycle.Bin"}) files.AddFolder(std::string("/src/") + name);
  files.AddFile("/src/file", "");
  files.AddLink("/src/link", "/dst");
  files.AddFile("/src/b/one", "12345");
  files.Fail(Call::kOpenFolder, "/src/c", {platform::ErrorKind::kAccessDenied, 13, "no"});
  Choose([&] {
    EXPECT_EQ(select->TotalSubfolders(), 3U);
    const std::pair<const char*, const char*> rows[] = {
        {"A", "no files and no subfolders"}, {"b", "1 file and no subfolders"}, {"c", "permission denied"}};
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_EQ(NameAt(i), rows[i].first);
      EXPECT_EQ(select->rows[i]->lblContent.text(), rows[i].second);
      EXPECT_EQ(select->rows[i]->chkSubfolder.description(), rows[i].second);
    }
    EXPECT_FALSE(select->rows[3]->chkSubfolder.visible());
    EXPECT_EQ(select->text(), "Select subfolders");
  });
}

TEST_F(SelectSubfolders, SumsUpWhatIsSelected) {
  files.AddFile("/src/a/one", "12345");
  files.AddFolder("/src/a/below");
  files.AddFile("/src/b/two", std::string(1'600, 'x'));
  files.AddFolder("/src/c");
  Choose([&] {
    const auto summary = [&] { return select->lblSelectionSummary.text(); };
    EXPECT_EQ(summary(), "No subfolders selected.");
    Tick(0);
    EXPECT_EQ(summary(),
              "One subfolder selected.\r\nA total of 1 file and 1 subfolder directly in it, 5 bytes.");
    Tick(1);
    EXPECT_EQ(summary(),
              "2 selected (of 3).\r\nA total of 2 files and 1 subfolder directly in them, 1.57 Kb.");
    Tick(2);
    EXPECT_TRUE(summary().starts_with("All 3 subfolders selected.\r\nA total of ")) << summary();
  });
}

TEST_F(SelectSubfolders, ShowsThousandsInTheRowsThatAreInView) {
  AddManySubfolders();
  Choose([&] {
    const std::size_t rows = select->rows.size();
    EXPECT_LT(rows, 40U);
    Tick(0);
    ui::headless::Scroll(select->vsbScrollBar, select->vsbScrollBar.maximum());
    EXPECT_EQ(NameAt(rows - 1), "folder 14999");
    EXPECT_EQ(select->rows[0]->chkSubfolder.value(), 0) << "the tick stays with its subfolder";
    EXPECT_TRUE(select->lblSelectionSummary.text().starts_with("One subfolder"));
    select->SetHeight(select->height() / 2);
    ui::headless::Scroll(select->vsbScrollBar, 0);
    EXPECT_EQ(select->rows[0]->chkSubfolder.value(), 1);
    EXPECT_EQ(select->rows.size(), rows);
    EXPECT_FALSE(select->rows[rows - 1]->chkSubfolder.visible());
  });
}

TEST_F(SelectSubfolders, ReadsInSlicesAndFirstWhatTheUserLooksAt) {
  AddManySubfolders();
  files.Before([&](Call, const std::string&) { clock.Advance(10ms); });
  select.emplace(context, "/src", Names{});
  int idle = 0;
  front_end.when_idle = [&] {
    if (++idle == 3) {
      EXPECT_EQ(select->text(), "Reading disk . . .");
      ui::headless::Scroll(select->vsbScrollBar, 4'000);
      EXPECT_EQ(NameAt(0), "folder 14000");
      EXPECT_EQ(select->rows[0]->lblContent.text(), "");
    }
    if (idle == 4) {
      EXPECT_LT(files.CountOf(Call::kOpenFolder), 30U);
      EXPECT_EQ(select->rows[0]->lblContent.text(), "no files and no subfolders");
      ui::headless::Click(select->cmdCancel);
    }
    front_end.PassTime(1);
  };
  EXPECT_FALSE(select->Choose(owner));
  EXPECT_FALSE(select->tmrRead.running());
}

TEST_F(SelectSubfolders, ReturnsWhatIsTickedOnlyWhenItIsAccepted) {
  for (const char* name : {"c", "b", "a"}) files.AddFolder(std::string("/src/") + name);
  const auto tick_b = [&] { Tick(1); };
  const auto accept = [&] { tick_b(), ui::headless::Click(select->cmdAccept); };
  EXPECT_EQ(Choose(accept, {"c", "gone"}), (Names{"b", "c"}));
  EXPECT_EQ(Choose([&] { tick_b(), select->UserPressedEscape(); }, {"c"}), std::nullopt);
  EXPECT_EQ(Choose([&] { tick_b(), select->UserClosed(); }, {"c"}), std::nullopt);
  EXPECT_EQ(Choose([&] { ui::headless::Click(select->cmdAccept); }), Names{});
}

TEST_F(SelectSubfolders, SelectsAllUnlessAllAreSelected) {
  AddManySubfolders();
  ui::Button* button = nullptr;
  const auto press_and_accept = [&](int times) {
    return Choose(
        [&, times] {
          button = &select->cmdSelectDeselectAllSubfolders;
          for (int i = 0; i < times; ++i) ui::headless::Click(*button);
          EXPECT_EQ(button->text(), times == 1 ? "Deselect all" : "Select all");
          ui::headless::Click(select->cmdAccept);
        },
        {"folder 12345"});
  };
  EXPECT_EQ(press_and_accept(1)->size(), 5'000U);
  EXPECT_EQ(press_and_accept(2)->size(), 0U);
}

TEST_F(SelectSubfolders, IsWalkedThroughByKeys) {
  AddManySubfolders();
  for (const char* name : {"Über", "übung", "zoo"}) files.AddFolder(std::string("/src/") + name);
  Choose([&] {
    const auto press = [&](ui::KeyPress key) {
      ui::headless::PressKey(*select, key);
      return Focused();
    };
    EXPECT_EQ(Focused(), "folder 10000");
    EXPECT_EQ(press({Key::kUp}), "folder 10000");
    EXPECT_EQ(press({Key::kDown}), "folder 10001");
    EXPECT_EQ(press({Key::kPageDown}), "folder " + std::to_string(10'001 + select->rows.size()));
    EXPECT_EQ(press({Key::kEnd}), "übung");
    EXPECT_EQ(press({Key::kCharacter, "Z"}), "zoo");
    clock.Advance(2s);
    EXPECT_EQ(press({Key::kCharacter, "Ü"}), "Über");
    EXPECT_EQ(press({Key::kCharacter, "b"}), "Über");
    EXPECT_EQ(press({Key::kCharacter, "u"}), "übung");
    EXPECT_EQ(press({Key::kHome}), "folder 10000");
    ui::headless::PressSpace(*select);
    EXPECT_TRUE(select->lblSelectionSummary.text().starts_with("One subfolder"));
  });
}

TEST_F(SelectSubfolders, LeavesTheSelectionAloneWhenTheSourceCannotBeRead) {
  files.Fail(Call::kOpenFolder, "/src", {platform::ErrorKind::kNotFound, 2, "gone away"});
  const auto accept = [&] {
    EXPECT_NE(select->lblNothingListed.text().find("gone away"), std::string::npos);
    EXPECT_FALSE(ui::headless::Click(select->cmdAccept));
  };
  EXPECT_EQ(Choose(accept, {"a"}), std::nullopt);
}

}  // namespace
}  // namespace app::test
