#include "data/select_builder.h"

#include <algorithm>

namespace kodra::data {

void SelectBuilder::Clear(Clause clause) {
  const std::size_t kept = starts_[clause] + (clause == kColumns ? kKeywords[kColumns].size() : 0);
  Erase(clause, kept, EndOf(clause) - kept);
}

void SelectBuilder::PlaceJoin(std::int32_t index, std::size_t start) {
  Join* const end = joins_.data() + joinCount_;
  Join* place = joins_.data();
  std::size_t position = starts_[kJoins];
  for (; place != end && place->index < index; ++place) position += place->length;
  if (place != end && place->index == index) {
    Erase(kJoins, position, place->length);
    start -= place->length;
  } else {
    std::move_backward(place, end, end + 1);
    place->index = index;
    ++joinCount_;
  }
  place->length = statement_.size() - start;
  Take(start, kJoins, position);
}

void SelectBuilder::Take(std::size_t start, Clause clause, std::size_t position) {
  const std::size_t length = statement_.size() - start;
  statement_.MoveEnd(start, position);
  for (std::size_t next = clause + 1; next <= last_; ++next) starts_[next] += length;
}

void SelectBuilder::Erase(Clause clause, std::size_t position, std::size_t length) {
  statement_.Erase(position, length);
  for (std::size_t next = clause + 1; next <= last_; ++next) starts_[next] -= length;
}

}  // namespace kodra::data
