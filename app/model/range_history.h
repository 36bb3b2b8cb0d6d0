// The undo and redo steps of the range: what the On and Seen layers held, and which profile they were
// the layers of, before each change.
//
// A step keeps the whole of both layers of one profile, record for record (the bytes the profile file
// would hold), with the range text and the slider's place that went with them, so that going back gives
// the layers exactly as they were. The history is bounded: the oldest step goes once there are more than
// kRangeHistoryDepth of them.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>

#include "range/block_record.h"
#include "range/player_profile.h"

namespace quillet {

inline constexpr std::size_t kRangeHistoryDepth = 100;

struct RangeSnapshot {
  int profileIndex = -1;
  std::string profileName;  // checked against the profile at that index before the step is taken back
  RangeLayer rangeLayer{};
  RangeLayer seenLayer{};
  PartialWeights onWeights{};  // the On layer's weights below 1, as the profile keeps them
  std::string rangeText;
  int sliderValue = 0;

  // Whether going from one to the other changes the range: another profile, a layer record or a weight
  // that differs.
  bool SameRange(const RangeSnapshot& other) const {
    return profileIndex == other.profileIndex && rangeLayer == other.rangeLayer &&
           seenLayer == other.seenLayer && onWeights == other.onWeights;
  }
};

class RangeHistory {
 public:
  // A change was made: `before` becomes the newest undo step and the redo steps are gone.
  void Record(RangeSnapshot before);
  // The step to go back to, with `now` kept for a redo; none when there is nothing to undo.
  std::optional<RangeSnapshot> Undo(RangeSnapshot now);
  // The step undone last, with `now` kept for an undo again; none when there is nothing to redo.
  std::optional<RangeSnapshot> Redo(RangeSnapshot now);
  void Clear();

  std::size_t undoCount() const { return undo_.size(); }
  std::size_t redoCount() const { return redo_.size(); }

  // The range as the last change left it while a profile was current: the state a change starts from
  // while no profile is (a name being typed that names none yet).
  std::optional<RangeSnapshot> lastWithProfile;
  // While true, a slider move that changes the range adds to the newest step instead of making its own:
  // a drag, or a key held on the slider, is one step. Every other step, and the end of the drag or key,
  // closes it.
  bool sliderStepOpen = false;
  // How many range-changing handlers are running, one inside another; only the outermost records.
  int openSteps = 0;

 private:
  std::deque<RangeSnapshot> undo_;
  std::deque<RangeSnapshot> redo_;
};

}  // namespace quillet
