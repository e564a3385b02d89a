#pragma once

#include <deque>
#include <functional>

namespace engine {

/// Keeps what a run does or tells in the order of the walk while something is on its way, copies or
/// comparisons: what comes after it waits until it is known what came of it. "Copy" stands for either below.
class ReportOrder {
 public:
  using Act = std::function<void()>;

  /// Does it at once, or as soon as all copies before it are settled.
  void Tell(Act act);
  /// The same with the last act of a folder.
  void ReportEndOfFolder(Act act);

  /// A copy has its place here. Everything told from now on waits for it.
  void Hold();
  /// The first copy that is held is settled: does `act` in its place, and all that waited for it alone.
  void Settle(const Act& act);
  bool is_holding() const { return !acts_.empty(); }

  /// No copy on its way will be settled. What waits is done up to the end of the folder that was being told;
  /// what comes after it never happened.
  void GiveUp();

 private:
  struct Step {
    Act act;  ///< empty: the place of a copy
    bool ends_folder = false;
  };
  void Take(Step step);
  void Do(const Step& step);

  std::deque<Step> acts_;  ///< begins with the place of a copy, or is empty
  bool gives_up_ = false;
  bool is_closed_ = false;
};

}  // namespace engine
