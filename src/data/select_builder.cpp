#include "data/select_builder.h"

#include <algorithm>
#include <numeric>

namespace kodra::data {
namespace {

// Few statements are longer.
constexpr std::size_t kUsualLength = 1000;

constexpr std::array<text::Piece, 6> kKeywords = {L"SELECT ", L" FROM ", L"", L" WHERE ", L" GROUP BY ", L" ORDER BY "};

text::Piece Keyword(JoinKind kind) {
  if (kind == JoinKind::kLeftOuter) return L" LEFT JOIN ";
  return L" INNER JOIN ";
}

bool SaysNothing(text::Pieces pieces) {
  return std::all_of(pieces.begin(), pieces.end(), [](text::Piece piece) { return piece.empty(); });
}

}  // namespace

SelectBuilder::SelectBuilder() {
  statement_.reserve(kUsualLength);
  statement_ = kKeywords[kColumns];
  lengths_[kColumns] = statement_.size();
}

void SelectBuilder::Set(Clause clause, text::Pieces pieces) {
  // The keyword of the columns always stands.
  const std::size_t kept = clause == kColumns ? kKeywords[kColumns].size() : 0;
  const std::size_t length = lengths_[clause];
  if (length > kept) Replace(clause, EndOf(clause) - length + kept, length - kept, {});
  Add(clause, pieces);
}

void SelectBuilder::Add(Clause clause, text::Pieces pieces) {
  if (lengths_[clause] == 0) {
    if (SaysNothing(pieces)) return;
    Replace(clause, EndOf(clause), 0, {kKeywords[clause]});
  }
  Replace(clause, EndOf(clause), 0, pieces);
}

void SelectBuilder::AddJoin(std::int32_t index, JoinKind kind, text::Piece table, text::Pieces condition) {
  auto place = joins_.begin();
  std::size_t position = EndOf(kFrom);
  for (; place != joins_.end() && place->index < index; ++place) position += place->length;
  if (place != joins_.end() && place->index == index)
    Replace(kJoins, position, place->length, {});
  else
    place = joins_.insert(place, Join{index, 0});
  const std::size_t before = statement_.size();
  if (!table.empty()) Replace(kJoins, position, 0, {Keyword(kind), table});
  if (!SaysNothing(condition)) {
    Replace(kJoins, position + (statement_.size() - before), 0, {L" ON "});
    Replace(kJoins, position + (statement_.size() - before), 0, condition);
  }
  place->length = statement_.size() - before;
}

void SelectBuilder::Replace(Clause clause, std::size_t position, std::size_t length, text::Pieces pieces) {
  const std::size_t before = statement_.size();
  if (position + length == before) {
    statement_.resize(position);
    text::Append(statement_, pieces);
  } else {
    statement_.replace(position, length, text::Join(pieces));
  }
  lengths_[clause] += statement_.size() - before;
}

std::wstring_view SelectBuilder::TextOf(Clause clause) const {
  const std::size_t length = lengths_[clause];
  if (length == 0) return {};
  const std::wstring_view text = std::wstring_view(statement_).substr(EndOf(clause) - length, length);
  return text.substr(kKeywords[clause].size());
}

std::size_t SelectBuilder::EndOf(Clause clause) const {
  return std::accumulate(lengths_.begin(), lengths_.begin() + clause + 1, std::size_t{0});
}

}  // namespace kodra::data
