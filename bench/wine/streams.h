// Two recordsets read by turns, so that whatever else the machine does, however briefly, affects both alike.
#pragma once

#include <optional>
#include <utility>

#include "bench/measure.h"
#include "bench/wine/rows.h"

namespace kodra::bench {

// One side: the call that returns its rows and the reading of these, one piece at a time. Only its own pieces count.
template <class Open>
class Stream {
 public:
  explicit Stream(Open open) : open_(std::move(open)) {}

  // The first turn makes the call; the one that reaches the end of the rows releases the recordset.
  void Turn(long rows) {
    if (ended_) return;
    const Clock::time_point start = Clock::now();
    if (!reader_) reader_.emplace(open_());
    ended_ = !reader_->ReadSome(rows);
    if (ended_) {
      read_ = reader_->SoFar();
      reader_.reset();
    }
    seconds_ += Seconds(Clock::now() - start);
  }
  bool Ended() const { return ended_; }
  // REQUIRES: ended.
  const Read& All() const { return read_; }
  double Taken() const { return seconds_; }

 private:
  Open open_;
  std::optional<RowReader> reader_;
  Read read_;
  double seconds_ = 0;
  bool ended_ = false;
};

// Reads both to their ends by turns of some milliseconds; each turn begins with the other side.
template <class First, class Second>
void ReadInTurns(First& first, Second& second) {
  constexpr long kRows = 2000;
  while (!first.Ended() || !second.Ended()) {
    first.Turn(kRows);
    second.Turn(kRows);
    second.Turn(kRows);
    first.Turn(kRows);
  }
}

}  // namespace kodra::bench
