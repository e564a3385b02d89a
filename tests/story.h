#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>

#include "tests/fit.h"
#include "ui/headless/headless_front_end.h"

/// A way through windows without a screen, written down step by step and held against a file of tests/ when
/// it ends:
/// "+" is before a line that a window shows since the step, "-" before one that it no longer shows.
class Story {
 public:
  /// Of a folder it is the file that is called like the test.
  explicit Story(std::string file) : file_(std::move(file)) {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    if (file_.ends_with('/')) file_ += std::string(test->test_suite_name()) + "." + test->name() + ".txt";
  }
  Story(const Story&) = delete;
  Story& operator=(const Story&) = delete;
  ~Story() {
    std::erase(told, '\r');
    std::ifstream stream(QV_SOURCE_ROOT "/tests/" + file_, std::ios::binary);
    const std::string expected{std::istreambuf_iterator<char>(stream), {}};
    if (told == expected) return;
    const auto line = std::count(told.begin(), std::ranges::mismatch(told, expected).in1, '\n') + 1;
    const std::string seen = testing::TempDir() + file_.substr(file_.rfind('/') + 1);
    std::ofstream(seen, std::ios::binary) << told;
    ADD_FAILURE() << "From line " << line << " on it is otherwise than in tests/" << file_ << ". If " << seen
                  << " is meant, copy it there.";
  }

  /// What a step came to in a window, and what was `heard` besides.
  void Note(const std::string& step, ui::Form& form, const std::string& heard = {}) {
    told += "== " + step + "\n" + heard;
    SCOPED_TRACE(step);
    if (form.visible()) fit::ExpectInside(form, form.front_end().screen());
    std::multiset<std::string> before = std::exchange(shown_[form.name()], {});
    std::istringstream seen(ui::headless::Seen(form));
    for (std::string line; std::getline(seen, line);) {
      shown_[form.name()].insert(line);
      if (const auto same = before.find(line); same == before.end())
        told += "+ " + line + "\n";
      else
        before.erase(same);
    }
    for (const std::string& gone : before) told += "- " + gone + "\n";
  }

  std::string told;

 private:
  std::string file_;
  std::map<std::string, std::multiset<std::string>> shown_;  ///< by the name of the window
};
