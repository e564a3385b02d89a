#include "report/text_search.h"

#include "base/utf8.h"

namespace report {

std::optional<FoundText> FindText(std::string_view text, std::string_view wanted, std::size_t from,
                                  Direction direction) {
  if (wanted.empty()) return std::nullopt;
  constexpr auto kNone = std::string_view::npos;
  const bool forward = direction == Direction::kForward;
  const std::size_t start = base::utf8::OffsetOf(text, from);
  std::size_t at = kNone;
  if (forward) at = text.find(wanted, start);
  if (!forward && start > 0) at = text.rfind(wanted, start - 1);
  const bool went_round = at == kNone;
  if (went_round) at = forward ? text.find(wanted) : text.rfind(wanted);
  if (at == kNone) return std::nullopt;
  return FoundText{{base::utf8::Length(text.substr(0, at)), base::utf8::Length(wanted)}, went_round};
}

}  // namespace report
