#include "app/select_subfolders/frmSelectSubfolders.h"
#include "tests/app/program.h"

namespace app::test {

using platform::memory::Call;
using ui::Key;
using Names = std::vector<std::string>;

struct SelectSubfolders : testing::Test, Program {
  SelectSubfolders() { owner.Show(); }

  /// Opens the window, lets it read to its end, then lets the user act.
  std::optional<Names> Choose(const std::function<void()>& user, const Names& included = {}) {
    select.emplace(context, "/src", included);
    InOpenWindow<frmSelectSubfolders>([&](frmSelectSubfolders& open) {
      user();
      open.Hide();
    });
    return select->Choose(owner);
  }

  void AddThousandsOfSubfolders() {
    for (int i = 10'000; i < 12'000; ++i) files.AddFolder("/src/folder " + std::to_string(i));
  }

  std::string NameAt(std::size_t row) { return select->rows[row]->chkSubfolder.text(); }
  std::string ContentAt(std::size_t row) { return select->rows[row]->lblContent.text(); }
  bool Tick(std::size_t row) { return ui::headless::Tick(select->rows[row]->chkSubfolder, true); }
  void All() { ui::headless::Click(select->cmdSelectDeselectAllSubfolders); }
  bool Accept() { return ui::headless::Click(select->cmdAccept); }
  std::string Summary() { return select->lblSelectionSummary.text(); }

  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  std::optional<frmSelectSubfolders> select;
};

TEST_F(SelectSubfolders, TellsWhatEachFolderHoldsAndSumsUpTheSelectedOnes) {
  tree::Add(files, {"/src/b/one=12345", "/src/A/below/", "/src/A/two=" + std::string(1'600, 'x'), "/src/c/",
                    "/src/$Recycle.Bin/", "/src/file", "/src/link>/dst"});
  files.Fail(Call::kOpenFolder, "/src/c", {platform::ErrorKind::kAccessDenied, 13, "no"});
  Choose([&] {
    EXPECT_EQ(select->text() + Summary(), "Select subfoldersNo subfolders selected.");
    EXPECT_EQ(NameAt(0) + ": " + ContentAt(0), "A: 1 file and 1 subfolder");
    Tick(0);
    EXPECT_EQ(Summary(),
              "One subfolder selected.\r\nA total of 1 file and 1 subfolder directly in it, 1.56 Kb.");
    EXPECT_EQ(NameAt(1) + ": " + ContentAt(1), "b: 1 file and no subfolders");
    Tick(1);
    EXPECT_EQ(Summary(),
              "2 selected (of 3).\r\nA total of 2 files and 1 subfolder directly in them, 1.57 Kb.");
    EXPECT_EQ(NameAt(2) + ": " + ContentAt(2), "c: permission denied");
    Tick(2);
    EXPECT_TRUE(Summary().starts_with("All 3 subfolders selected.\r\n"));
    EXPECT_EQ(select->cmdSelectDeselectAllSubfolders.text(), "Deselect all");
    EXPECT_FALSE(select->rows[3]->chkSubfolder.visible());
  });
  EXPECT_EQ(ContentText({"", false, Subfolder::State::kRead, 9'999, 10'000}),
            "9999 files and over 9999 subfolders");
}

TEST_F(SelectSubfolders, ShowsThousandsInTheRowsThatAreInView) {
  AddThousandsOfSubfolders();
  Choose([&] {
    const std::size_t rows = select->rows.size();
    EXPECT_LT(rows, 40U);
    Tick(0);
    ui::headless::Scroll(select->vsbScrollBar, select->vsbScrollBar.maximum());
    EXPECT_EQ(NameAt(rows - 1), "folder 11999");
    EXPECT_EQ(select->rows[0]->chkSubfolder.value(), 0) << "the tick stays with its subfolder";
    Tick(0);
    EXPECT_TRUE(Summary().starts_with("2 selected (of 2,000).")) << Summary();
    select->SetHeight(select->height() / 2);
    ui::headless::Scroll(select->vsbScrollBar, 0);
    EXPECT_EQ(select->rows[0]->chkSubfolder.value(), 1);
    EXPECT_FALSE(select->rows[rows - 1]->chkSubfolder.visible());
  });
}

TEST_F(SelectSubfolders, ReadsInSlicesAndFirstWhatTheUserLooksAt) {
  AddThousandsOfSubfolders();
  files.Before([&](Call, const std::string&) { clock.Advance(10ms); });
  select.emplace(context, "/src", Names{});
  int idle = 0;
  front_end.when_idle = [&] {
    if (++idle == 3) {
      EXPECT_EQ(select->text(), "Reading disk . . .");
      ui::headless::Scroll(select->vsbScrollBar, 1'500);
      EXPECT_EQ(NameAt(0) + ContentAt(0), "folder 11500");
      EXPECT_EQ(Summary(), "No subfolders selected.");
      Tick(0);
      EXPECT_TRUE(Summary().ends_with(" directly in it, 0 bytes so far.")) << Summary();
    }
    if (idle == 4) {
      EXPECT_LT(files.CountOf(Call::kOpenFolder), 30U);
      EXPECT_EQ(ContentAt(0), "no files and no subfolders");
      ui::headless::Click(select->cmdCancel);
    }
    front_end.PassTime(1ms);
  };
  EXPECT_FALSE(select->Choose(owner));
  EXPECT_FALSE(select->tmrRead.running());
}

TEST_F(SelectSubfolders, ReturnsWhatIsTickedOnlyWhenItIsAccepted) {
  tree::Add(files, {"/src/c/", "/src/b/", "/src/a/"});
  const std::pair<std::function<void()>, std::optional<Names>> cases[] = {
      {[&] { Tick(1), Accept(); }, Names{"b", "c"}},
      {[&] { All(), Accept(); }, Names{"a", "b", "c"}},
      {[&] { All(), All(), Accept(); }, Names{}},
      {[&] { Tick(1), select->UserPressedEscape(); }, std::nullopt},
      {[&] { Tick(1), select->UserClosed(); }, std::nullopt}};
  for (const auto& [user, chosen] : cases) EXPECT_EQ(Choose(user, {"c", "gone"}), chosen);
}

TEST_F(SelectSubfolders, IsWalkedThroughByKeys) {
  AddThousandsOfSubfolders();
  tree::Add(files, {"/src/Über/", "/src/übung/", "/src/zoo/"});
  Choose([&] {
    const auto after = [&](ui::Key key, const std::string& character = "") {
      ui::headless::PressKey(*select, {key, character});
      return select->focused()->text();
    };
    EXPECT_EQ(after(Key::kUp), "folder 10000");
    EXPECT_EQ(after(Key::kDown), "folder 10001");
    EXPECT_EQ(after(Key::kPageDown), "folder " + std::to_string(10'001 + select->rows.size()));
    EXPECT_EQ(after(Key::kEnd), "übung");
    EXPECT_EQ(after(Key::kCharacter, "Z"), "zoo");
    clock.Advance(2s);
    EXPECT_EQ(after(Key::kCharacter, "Ü"), "Über");
    EXPECT_EQ(after(Key::kCharacter, "b"), "Über");
    EXPECT_EQ(after(Key::kCharacter, "u"), "übung");
    EXPECT_EQ(after(Key::kHome), "folder 10000");
  });
}

TEST_F(SelectSubfolders, SortsAsPeopleCountAndABlankBelongsToANameThatIsBeingTyped) {
  tree::Add(files, {"/src/folder 10/", "/src/Folder 2/", "/src/folder/", "/src/folder 02x/"});
  Choose([&] {
    EXPECT_EQ(NameAt(0) + "," + NameAt(1) + "," + NameAt(2) + "," + NameAt(3),
              "folder,Folder 2,folder 02x,folder 10");
    for (const char c : std::string("folder 1")) {
      if (c == ' ') ui::headless::PressSpace(*select);
      if (c != ' ') ui::headless::PressKey(*select, {Key::kCharacter, {c}});
    }
    EXPECT_EQ(select->focused()->text(), "folder 10");
    EXPECT_EQ(Summary(), "No subfolders selected.");
    clock.Advance(2s);
    ui::headless::PressSpace(*select);
    EXPECT_TRUE(Summary().starts_with("One subfolder selected."));
  });
}

TEST_F(SelectSubfolders, LeavesTheSelectionAloneWhenTheSourceCannotBeRead) {
  files.Fail(Call::kOpenFolder, "/src", {platform::ErrorKind::kNotFound, 2, "gone away"});
  const auto accept = [&] {
    EXPECT_NE(select->lblNothingListed.text().find("gone away"), std::string::npos);
    EXPECT_FALSE(Accept());
  };
  EXPECT_EQ(Choose(accept, {"a"}), std::nullopt);
}

}  // namespace app::test
