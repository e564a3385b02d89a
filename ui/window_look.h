#pragma once

#include <string>

#include "ui/geometry.h"

/// The look that the program's windows share.
namespace ui {

class Form;

/// Windows and the controls that lie flat on them.
inline constexpr Colours kWindowColours{{224, 247, 228}, {24, 40, 30}};
/// Text that is read line by line.
inline constexpr Colours kPaperColours{{255, 255, 255}, {24, 40, 30}};
/// Messages that come and go by themselves.
inline constexpr Colours kNoteColours{{255, 252, 224}, {24, 40, 30}};

/// Something that went wrong.
inline constexpr Colours kProblemColours{{255, 224, 214}, {110, 20, 10}};

inline constexpr const char* kWindowFont = "Arial";
inline constexpr const char* kReportFont = "Courier New";

/// Sets the font's name of a window and of all its controls; sizes and weights stay.
void SetControlsFontName(Form& window, const std::string& name);

/// Sets the colours of a window and of its controls, but for buttons and progress bars: those keep the
/// system's.
void SetControlsBackColor(Form& window, const Colours& colours);

}  // namespace ui
