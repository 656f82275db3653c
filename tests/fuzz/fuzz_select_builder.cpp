// The SELECT builder: whatever is set in whatever order, the clauses are in the order of SQL.
//
// Input: one call per line, its first character the operation, the rest its text:
//   c columns   f FROM   w WHERE   g GROUP BY   o ORDER BY   each sets its text; in upper case, C and W read it and
//   append 0 to 9      a join at that position: "i" or "l" for its kind, the table, "|", the condition
#include <map>

#include "data/select_builder.h"
#include "tests/fuzz/target.h"

namespace kodra::fuzz {
namespace {

using data::JoinKind;
using data::SelectBuilder;

struct Join {
  bool left = false;
  std::wstring table;
  std::wstring condition;
};

// The parts that were set last.
struct Parts {
  std::wstring columns, from, where, groupBy, orderBy;
  std::map<wchar_t, Join> joins;
};

void NoteJoin(Parts& parts, std::wstring_view call) {
  Join& join = parts.joins[call.front()];
  join = {};
  call.remove_prefix(1);
  if (!call.empty()) {
    join.left = call.front() == L'l';
    call.remove_prefix(1);
  }
  const std::size_t bar = call.find(L'|');
  join.table = call.substr(0, bar);
  if (bar != call.npos) join.condition = call.substr(bar + 1);
}

// Makes one call to the builder, and records its text among the parts.
void Call(std::wstring_view call, SelectBuilder& select, Parts& parts) {
  if (call.empty()) return;
  const wchar_t operation = call.front();
  const std::wstring text(call.substr(1));
  if (operation >= L'0' && operation <= L'9') {
    NoteJoin(parts, call);
    const Join& join = parts.joins[operation];
    select.AddJoin(operation - L'0', join.left ? JoinKind::kLeftOuter : JoinKind::kInner, join.table, join.condition);
  }
  switch (operation) {
    case L'c':
      return select.SetColumns(parts.columns = text);
    case L'C':
      parts.columns += text;
      return select.SetColumns(select.Columns() + text);
    case L'f':
      return select.SetFrom(parts.from = text);
    case L'w':
      return select.SetWhere(parts.where = text);
    case L'W':
      parts.where += text;
      return select.SetWhere(select.Where() + text);
    case L'g':
      return select.SetGroupBy(parts.groupBy = text);
    case L'o':
      return select.SetOrderBy(parts.orderBy = text);
    default:
      return;
  }
}

// Reads the clauses from the front of a statement, one after the other.
class Statement {
 public:
  explicit Statement(std::wstring_view sql) : rest_(sql) {}

  // A clause without text has no keyword.
  void Take(std::wstring_view keyword, std::wstring_view text) {
    if (!text.empty()) TakeAlways(keyword, text);
  }
  void TakeAlways(std::wstring_view keyword, std::wstring_view text) {
    const std::wstring clause = std::wstring(keyword) + std::wstring(text);
    RequireEqual(rest_.substr(0, clause.size()), clause, "the clauses are in the order of SQL, as they were set");
    rest_.remove_prefix(clause.size());
  }
  std::wstring_view Rest() const { return rest_; }

 private:
  std::wstring_view rest_;
};

void CheckStatement(const SelectBuilder& select, const Parts& parts) {
  const std::wstring sql(select.SQL());
  Statement statement(sql);
  statement.TakeAlways(L"SELECT ", parts.columns);
  statement.Take(L" FROM ", parts.from);
  for (const auto& [position, join] : parts.joins) {
    statement.TakeAlways(join.left ? L" LEFT JOIN " : L" INNER JOIN ", join.table);
    statement.TakeAlways(L" ON ", join.condition);
  }
  statement.Take(L" WHERE ", parts.where);
  statement.Take(L" GROUP BY ", parts.groupBy);
  statement.Take(L" ORDER BY ", parts.orderBy);
  RequireEqual(statement.Rest(), L"", "nothing follows the last clause");
  RequireEqual(select.SQL(), sql, "reading the statement does not change it");
}

// The same parts, set from the last clause to the first.
SelectBuilder Backwards(const Parts& parts) {
  SelectBuilder select;
  select.SetOrderBy(parts.orderBy);
  select.SetGroupBy(parts.groupBy);
  select.SetWhere(parts.where);
  for (auto it = parts.joins.rbegin(); it != parts.joins.rend(); ++it) {
    const Join& join = it->second;
    select.AddJoin(it->first - L'0', join.left ? JoinKind::kLeftOuter : JoinKind::kInner, join.table, join.condition);
  }
  select.SetFrom(parts.from);
  select.SetColumns(parts.columns);
  return select;
}

}  // namespace
}  // namespace kodra::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace kodra::fuzz;
  SelectBuilder select;
  Parts parts;
  std::wstring calls = TextOf(data, size);
  while (!calls.empty()) {
    const std::vector<std::wstring> split = Fields(calls, 2);
    Call(split[0], select, parts);
    RequireEqual(select.Columns(), parts.columns, "the columns are returned as they were set");
    RequireEqual(select.Where(), parts.where, "the condition is returned as it was set");
    calls = split[1];
  }
  CheckStatement(select, parts);
  RequireEqual(Backwards(parts).SQL(), select.SQL(), "the order of the calls makes no difference");
  return 0;
}
