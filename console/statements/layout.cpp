#include "console/statements/layout.h"

#include <vector>

namespace kodra::console {
namespace {

constexpr std::size_t kLineWidth = 100;

// A blank that becomes a line break.
struct Break {
  std::size_t at;
  std::size_t indentation;
};

// Finds the breaks of a statement by its words outside quotes, parentheses and CASE … END.
class Layout {
 public:
  explicit Layout(std::string_view text) : text_(text) {}

  const std::vector<Break>& Breaks() {
    for (std::size_t at = 0; at < text_.size(); ++at) {
      const char character = text_[at];
      if (character == '\'') isQuoted_ = !isQuoted_;
      if (isQuoted_) continue;
      if (character == '(') ++depth_;
      if (character == ')') --depth_;
      if (character == ' ' && depth_ == 0 && isInColumns_ && text_[at - 1] == ',') columnBreaks_.push_back({at, 2});
      if (at == 0 || text_[at - 1] == ' ') VisitWord(at, text_.substr(at, text_.find(' ', at) - at));
    }
    EndColumns(text_.size());
    return breaks_;
  }

 private:
  void VisitWord(std::size_t at, std::string_view word) {
    if (word == "CASE") ++depth_;
    if (word == "END") --depth_;
    if (depth_ != 0) return;
    if (StartsClause(at, word)) {
      StartClause(at, word);
    } else if (word == "BETWEEN") {
      isInBetween_ = true;
    } else if (isInConditions_ && (word == "AND" || word == "OR")) {
      if (!isInBetween_) breaks_.push_back({at - 1, 2});
      isInBetween_ = false;
    }
  }

  bool StartsClause(std::size_t at, std::string_view word) const {
    const std::string_view rest = text_.substr(at + word.size());
    if (word == "INNER" || word == "LEFT") return rest.starts_with(" JOIN ");
    if (word == "GROUP" || word == "ORDER") return rest.starts_with(" BY ");
    return word == "SELECT" || word == "FROM" || word == "WHERE" || word == "UNION";
  }

  void StartClause(std::size_t at, std::string_view word) {
    EndColumns(at);
    if (at > 0) breaks_.push_back({at - 1, 0});
    isInConditions_ = word == "WHERE";
    isInBetween_ = false;
    if (word != "SELECT") return;
    isInColumns_ = true;
    columnsStart_ = at;
    columnBreaks_.push_back({at + word.size(), 2});
  }

  void EndColumns(std::size_t end) {
    if (isInColumns_ && end - columnsStart_ > kLineWidth)
      breaks_.insert(breaks_.end(), columnBreaks_.begin(), columnBreaks_.end());
    columnBreaks_.clear();
    isInColumns_ = false;
  }

  std::string_view text_;
  std::vector<Break> breaks_;
  // The breaks of the current column list, which are used only if the list does not fit into one line.
  std::vector<Break> columnBreaks_;
  std::size_t columnsStart_ = 0;
  bool isInColumns_ = false;
  bool isInConditions_ = false;
  // Whether the next AND belongs to a BETWEEN.
  bool isInBetween_ = false;
  bool isQuoted_ = false;
  int depth_ = 0;
};

}  // namespace

std::string LaidOut(std::string_view statement) {
  std::string lines;
  std::size_t done = 0;
  Layout layout(statement);
  for (const Break& next : layout.Breaks()) {
    lines.append(statement.substr(done, next.at - done)).append("\n").append(next.indentation, ' ');
    done = next.at + 1;
  }
  return lines.append(statement.substr(done));
}

}  // namespace kodra::console
