#include "app/model/range_history.h"

#include <utility>

namespace quillet {
namespace {

void PushBounded(std::deque<RangeSnapshot>& steps, RangeSnapshot step) {
  steps.push_back(std::move(step));
  while (steps.size() > kRangeHistoryDepth) steps.pop_front();
}

}  // namespace

void RangeHistory::Record(RangeSnapshot before) {
  PushBounded(undo_, std::move(before));
  redo_.clear();
}

std::optional<RangeSnapshot> RangeHistory::Undo(RangeSnapshot now) {
  if (undo_.empty()) return std::nullopt;
  RangeSnapshot back = std::move(undo_.back());
  undo_.pop_back();
  PushBounded(redo_, std::move(now));
  return back;
}

std::optional<RangeSnapshot> RangeHistory::Redo(RangeSnapshot now) {
  if (redo_.empty()) return std::nullopt;
  RangeSnapshot forward = std::move(redo_.back());
  redo_.pop_back();
  PushBounded(undo_, std::move(now));
  return forward;
}

void RangeHistory::Clear() {
  undo_.clear();
  redo_.clear();
  lastWithProfile.reset();
  sliderStepOpen = false;
}

}  // namespace quillet
