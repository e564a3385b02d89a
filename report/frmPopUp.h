#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "ui/controls.h"
#include "ui/form.h"

namespace report {

/// A small window without border that shows one text for a while. It hides at the end of its time or when the
/// user clicks the text; a new text replaces the old one and gets its own full time. It never takes the
/// focus. Lengths are in twips; intInterval is in milliseconds.
class frmPopUp : public ui::Form {
 public:
  explicit frmPopUp(ui::FrontEnd& front_end);

  /// Shows the text at a position of the screen.
  void PopUp(const std::string& strMessage, std::int16_t intWidth, std::int16_t intHeight,
             std::uint16_t intInterval, std::int16_t intTop, std::int16_t intLeft);

  /// Shows the text in the middle of the screen.
  void PopUpCenterScreen(const std::string& strMessage, std::int16_t intWidth, std::int16_t intHeight,
                         std::uint16_t intInterval);

  /// Shows the text at a position counted from the outer corner of a window.
  void PopUpInForm(const ui::Form& form, const std::string& strMessage, std::int16_t intWidth,
                   std::int16_t intHeight, std::uint16_t intInterval, std::int16_t intTop,
                   std::int16_t intLeft);

  /// Runs events until the window is hidden or the program ends.
  void WaitUntilHidden();

  // --- Event handlers.
  void lblMessage_MouseUp();
  void Timer1_Timer();

  ui::Label lblMessage{this, "lblMessage"};
  ui::Timer Timer1{this, "Timer1"};

 private:
  void ShowAt(const std::string& message, ui::Rect bounds, std::chrono::milliseconds interval);
};

}  // namespace report
