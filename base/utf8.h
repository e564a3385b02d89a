#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Characters of UTF-8 texts, counted as code points. A byte that begins no whole character counts as a
/// character of its own and passes through unchanged, so any sequence of bytes can be worked on.
namespace base::utf8 {

/// A file's text without the mark that some editors put at its front.
std::string_view WithoutByteOrderMark(std::string_view text);

/// One character's bytes from the front of a text; empty only for an empty text.
std::string_view First(std::string_view text);

std::size_t Length(std::string_view text);

/// The byte where the character with this number (from 0) begins; the text's size when it has fewer.
std::size_t OffsetOf(std::string_view text, std::size_t character);

/// The text in lower case, letter by letter, as the system has it (see LowerOf()).
std::string ToLower(std::string_view text);

/// The text with its ASCII letters in upper case.
std::string ToUpper(std::string_view text);

/// The text fit for one line of a report: control characters as "\n", "\t", "\x1b" or "\u0085", marks
/// that turn the direction of reading as "\u202e", bytes that are no character as U+FFFD. Without such
/// characters the text itself. Whatever names a file or folder to people goes through here.
std::string Printable(std::string_view text);

}  // namespace base::utf8
