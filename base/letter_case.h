#pragma once

namespace base {

/// The lower case of one character, as the system's own tables have it; the character itself where it has
/// none. What no text begins with (surrogates, numbers beyond Unicode) stays as it is. Every system has this
/// in its own library.
char32_t LowerOf(char32_t character);

}  // namespace base
