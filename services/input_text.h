#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace services {

/// Reads a text in items and lines. The first failure sets error(); from then on every call gives nothing.
class InputText {
 public:
  /// `content` must outlive the reader.
  explicit InputText(std::string_view content);

  /// The text up to the next comma or line end, which is passed over. Leading spaces do not count. After a
  /// double quote, the text up to the closing one, whatever is in it.
  std::optional<std::string> Item();

  /// An item that is a whole number of 16 bits, spaces around it ignored.
  std::optional<std::int16_t> Number();

  /// A number from `low` to `high`; any other is kInputBadValue.
  std::optional<std::int16_t> Number(int low, int high);

  /// All that is left of the line. One without its end was cut off: kInputPastEnd, and it stays unread.
  std::optional<std::string> Line();

  /// 0, or one of the numbers in services/setup_text.h.
  std::int16_t error() const { return error_; }

  /// Whether nothing is left to be read.
  bool is_through() const { return rest_.empty(); }

  /// The line (from 1) in which the last call began to read.
  int line() const { return line_; }
  /// The first line in which a comma ended an item; 0: none did.
  int comma_line() const { return comma_line_; }

 private:
  bool AtEnd();  ///< also after a failure; notes kInputPastEnd
  std::string_view TakeUntil(std::string_view ends);
  void SkipSpaces();
  std::nullopt_t Fail(std::int16_t error);

  std::string_view rest_;
  std::int16_t error_ = 0;
  int line_ = 1;
  int next_line_ = 1;  ///< in which rest_ begins
  int comma_line_ = 0;
};

}  // namespace services
