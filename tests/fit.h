#pragma once

#include <gtest/gtest.h>

#include "ui/controls.h"
#include "ui/form.h"

/// Whether windows and what is in them lie where they can be seen.
namespace fit {

/// The work area of a screen of 1366 x 728 at 150 %, the smallest that the program is made for.
inline constexpr ui::Size kSmallestScreen{13'660, 7'280};

inline bool IsSeen(const ui::Control& control) {
  return control.visible() && dynamic_cast<const ui::Timer*>(&control) == nullptr;
}

inline bool Overlap(const ui::Rect& a, const ui::Rect& b) {
  return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

/// The window lies on a screen, and every control that shows in it lies in what is around it and over no
/// other.
inline void ExpectInside(const ui::Form& form, ui::Size screen) {
  EXPECT_GE(form.left(), 0) << form.name();
  EXPECT_GE(form.top(), 0) << form.name();
  EXPECT_LE(form.bounds().right(), screen.width) << form.name();
  EXPECT_LE(form.bounds().bottom(), screen.height) << form.name();
  EXPECT_LE(form.smallest().height + 480, screen.height) << form.name() << " with its title need not scroll";
  form.ForEach([&](ui::Control& control) {
    const auto* const frame = dynamic_cast<const ui::Frame*>(control.parent());
    const bool scrolls = frame != nullptr && frame->scroll_bar() != nullptr && frame->scroll_bar()->visible();
    if (!IsSeen(control) || (frame != nullptr && !frame->visible())) return;
    EXPECT_TRUE(control.left() >= 0 && control.width() > 0 && control.height() > 0) << control.name();
    for (const ui::Control* other : control.parent()->controls()) {
      EXPECT_FALSE(other != &control && IsSeen(*other) && Overlap(control.bounds(), other->bounds()))
          << control.name() << " and " << other->name();
    }
    const ui::Size around = frame != nullptr ? ui::Size{frame->width(), frame->height()} : form.inner();
    EXPECT_LE(control.bounds().right(), around.width) << control.name();
    EXPECT_TRUE(scrolls || (control.top() >= 0 && control.bounds().bottom() <= around.height))
        << control.name();
  });
}

}  // namespace fit
