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

  /// Notes what then has the focus.
  void Press(Key key, const std::string& character = "") {
    ui::headless::PressKey(*select, {key, character});
    story.told += select->focused()->text() + "\n";
  }
  bool Tick(std::size_t row) { return ui::headless::Tick(select->rows[row]->chkSubfolder, true); }
  void All() { ui::headless::Click(select->cmdSelectDeselectAllSubfolders); }
  bool Accept() { return ui::headless::Click(select->cmdAccept); }

  Story story{"app/told/"};
  ui::Form owner{front_end, "owner", ui::FormStyle::kMain};
  std::optional<frmSelectSubfolders> select;
};

TEST_F(SelectSubfolders, TellsWhatEachFolderHoldsAndSumsUpTheSelectedOnes) {
  Choose([&] { story.Note("No subfolders", *select); });
  tree::Add(files, {"/src/b/one=12345", "/src/A/below/", "/src/A/two=" + std::string(1'600, 'x'), "/src/c/",
                    "/src/$Recycle.Bin/", "/src/file", "/src/link>/dst"});
  files.Fail(Call::kOpenFolder, "/src/c", {platform::ErrorKind::kAccessDenied, 13, "no"});
  Choose([&] {
    story.Note("As it opens", *select);
    for (const std::size_t row : {0U, 1U, 2U}) {
      Tick(row);
      story.Note("Tick", *select);
    }
  });
  EXPECT_EQ(ContentText({"", false, Subfolder::State::kRead, 9'999, 10'000}),
            "9999 files and over 9999 subfolders");
}

TEST_F(SelectSubfolders, ShowsThousandsInTheRowsThatAreInViewAndIsWalkedThroughByKeys) {
  AddThousandsOfSubfolders();
  tree::Add(files, {"/src/Über/", "/src/übung/", "/src/zoo/"});
  Choose([&] {
    for (const Key key : {Key::kUp, Key::kDown, Key::kPageDown, Key::kPageUp, Key::kEnd}) Press(key);
    Press(Key::kCharacter, "Z");
    clock.Advance(2s);
    for (const char* letter : {"Ü", "b", "u"}) Press(Key::kCharacter, letter);
    Press(Key::kHome);
    Tick(0);
    ui::headless::Scroll(select->vsbScrollBar, select->vsbScrollBar.maximum());
    story.Note("The last ones", *select);
    Tick(0);
    select->SetHeight(select->height() - 1'500);
    story.Note("In half the window", *select);
    ui::headless::Scroll(select->vsbScrollBar, 0);
    story.Note("The first ones", *select);
  });
}

TEST_F(SelectSubfolders, ReadsInSlicesAndFirstWhatTheUserLooksAt) {
  AddThousandsOfSubfolders();
  files.Before([&](Call, const std::string&) { clock.Advance(10ms); });
  select.emplace(context, "/src", Names{});
  int idle = 0;
  front_end.when_idle = [&] {
    if (++idle == 3) {
      ui::headless::Scroll(select->vsbScrollBar, 1'500);
      Tick(0);
      story.Note("Reading", *select);
    }
    if (idle == 4) {
      EXPECT_LT(files.CountOf(Call::kOpenFolder), 30U);
      story.Note("The first slice", *select);
      ui::headless::Click(select->cmdCancel);
    }
    front_end.PassTime(1ms);
  };
  EXPECT_FALSE(select->Choose(owner));
  EXPECT_FALSE(select->tmrRead.running());
}

TEST_F(SelectSubfolders, ReturnsWhatIsTickedOnlyWhenItIsAcceptedAndNothingWhereTheSourceCannotBeRead) {
  tree::Add(files, {"/src/c/", "/src/b/", "/src/a/"});
  const std::pair<std::function<void()>, std::optional<Names>> cases[] = {
      {[&] { Tick(1), Accept(); }, Names{"b", "c"}},
      {[&] { All(), Accept(); }, Names{"a", "b", "c"}},
      {[&] { All(), All(), Accept(); }, Names{}},
      {[&] { Tick(1), select->UserPressedEscape(); }, std::nullopt},
      {[&] { Tick(1), select->UserClosed(); }, std::nullopt}};
  for (const auto& [user, chosen] : cases) EXPECT_EQ(Choose(user, {"c", "gone"}), chosen);
  files.Fail(Call::kOpenFolder, "/src", {platform::ErrorKind::kNotFound, 2, "gone away"});
  const auto accept = [&] {
    story.Note("Why there are none", *select);
    EXPECT_FALSE(Accept());
  };
  EXPECT_EQ(Choose(accept, {"a"}), std::nullopt);
}

TEST_F(SelectSubfolders, SortsAsPeopleCountAndABlankBelongsToANameThatIsBeingTyped) {
  tree::Add(files,
            {"/src/folder 10/", "/src/Folder 2/", "/src/folder/", "/src/folder 02x/", "/src/folder 003/"});
  Choose([&] {
    for (const char c : std::string("folder")) Press(Key::kCharacter, {c});
    ui::headless::PressSpace(*select);
    Press(Key::kCharacter, "1");
    story.Note("The name is typed", *select);
    clock.Advance(2s);
    ui::headless::PressSpace(*select);
    story.Note("Tick", *select);
  });
}

}  // namespace app::test
