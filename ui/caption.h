#pragma once

#include <string>
#include <string_view>

namespace ui {

/// A caption with its access key marked, as both toolkits read it: the first such letter gets an "&", every
/// "&" of the text itself a second.
std::string MarkAccessKey(std::string_view text, char access_key);

}  // namespace ui
