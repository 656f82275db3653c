// Gathers the findings: what can be read, which statements are accepted, which indexes are missing.
#include <algorithm>

#include "console/check/findings.h"
#include "console/check/odbc_inspector.h"
#include "console/command_line/report_name.h"
#include "console/run/machine.h"
#include "console/statements/every_statement.h"
#include "console/statements/needs.h"
#include "sql/tipo_banco.h"
#include "values/convert.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

namespace ad = platform::ad;
using schema::Extent;
using schema::Limit;
using values::ToUtf8;

// In smaller tables every report finds its rows at once, with an index or without.
constexpr std::int64_t kLargeTable = 10000;

class Check {
 public:
  Check(const std::wstring& connectionString, Machine& machine)
      : connectionString_(connectionString),
        machine_(machine),
        surroundings_(machine_.Around()),
        connection_(Connect(surroundings_, connectionString_)) {}

  Findings Execute() {
    findings_.database = Identify(surroundings_, connectionString_);
    CheckTables();
    OpenInspector();
    if (inspector_ != nullptr) {
      for (const reports::ReportMethod& method : reports::ReportMethods()) CheckStatements(method);
      CheckLengths();
      CheckIndexes();
    }
    return std::move(findings_);
  }

 private:
  // An error's words without the password.
  std::string WordsOf(const Erro& error) const {
    return ToUtf8(values::HidePassword(error.Description(), connectionString_));
  }

  std::int32_t Code() const { return findings_.database.code.value_or(sql::tbOther4); }

  void CheckTables() {
    std::vector<Needs> all;
    SchemaProbe probe(surroundings_, *connection_, Code());
    for (const reports::ReportMethod& method : reports::ReportMethods()) {
      Needs& needs = all.emplace_back(NeedsOf(method));
      // What an installed sibling reads is not known.
      if (!machine_.SiblingsAreInstalled())
        needs.tables.insert(needs.tables.end(), needs.siblingTables.begin(), needs.siblingTables.end());
      std::erase(needs.siblings, kConnectionSibling);
      needs.siblings.emplace_back(kConnectionSibling);  // every report needs it
      for (const TableNeed& need : needs.tables) probe.Expect(need);
    }
    auto needs = all.begin();
    for (const reports::ReportMethod& method : reports::ReportMethods()) {
      ReportFinding& finding = findings_.reports.emplace_back();
      finding.name = NameOf(method);
      finding.problems = ProblemsWith(*needs++, probe);
    }
    for (const auto& [what, words] : probe.Refusals())
      findings_.answers[ToUtf8(what)] = ToUtf8(values::HidePassword(words, connectionString_));
  }

  std::vector<Problem> ProblemsWith(const Needs& needs, SchemaProbe& probe) {
    std::vector<Problem> problems;
    const auto add = [&](const Problem& problem) {
      if (std::ranges::find(problems, problem) == problems.end()) problems.push_back(problem);
    };
    for (const TableNeed& need : needs.tables)
      for (const Problem& problem : probe.ProblemsWith(need)) add(problem);
    for (const std::wstring& sibling : needs.siblings)
      if (!CanCreate(sibling)) add({Defect::kMissing, L"componente " + sibling});
    return problems;
  }

  bool CanCreate(const std::wstring& sibling) {
    const auto known = siblings_.find(sibling);
    if (known != siblings_.end()) return known->second;
    bool created = true;
    try {
      surroundings_.CreateObject(sibling);
    } catch (const Erro&) {
      created = false;
    }
    return siblings_[sibling] = created;
  }

  void OpenInspector() {
    try {
      inspector_ = OdbcInspector::Open(connectionString_);
      if (inspector_ == nullptr)
        findings_.unchecked.emplace_back(
            "as instruções e os índices: isso só é possível com um driver ODBC, e esta conexão usa um provedor OLE DB");
    } catch (const Erro& error) {
      findings_.unchecked.push_back("as instruções e os índices: " + WordsOf(error));
    }
  }

  ReportFinding& FindingOf(const std::string& report) {
    return *std::ranges::find(findings_.reports, report, &ReportFinding::name);
  }

  // A statement that reads something missing is refused for that, so reports with problems are left out.
  void CheckStatements(const reports::ReportMethod& method) {
    ReportFinding& finding = FindingOf(NameOf(method));
    if (!finding.problems.empty() || findings_.database.name.empty()) return;
    const EveryStatement every = EveryStatementOf(method, Code());
    std::vector<Statement> statements = every.ofReport;
    if (!machine_.SiblingsAreInstalled())
      statements.insert(statements.end(), every.ofSiblings.begin(), every.ofSiblings.end());
    const std::vector<const Limit*> limits = schema::LimitsOf(finding.name, Code());
    for (const Limit* limit : limits)
      if (limit->extent == Extent::kFindsNothing) finding.limits.push_back(limit);
    for (const Statement& statement : statements) CheckStatement(statement, limits, finding);
  }

  void CheckStatement(const Statement& statement, const std::vector<const Limit*>& limits, ReportFinding& finding) {
    try {
      inspector_->Prepare(statement.text);
    } catch (const Erro& error) {
      const auto expected = std::ranges::find_if(limits, [&](const Limit* limit) {
        return limit->extent != Extent::kFindsNothing && statement.text.find(limit->inStatement) != statement.text.npos;
      });
      if (expected == limits.end())
        AddNew(finding.refusals, WordsOf(error));
      else
        AddNew(finding.limits, *expected);
    }
  }

  template <class T>
  static void AddNew(std::vector<T>& known, const T& more) {
    if (std::ranges::find(known, more) == known.end()) known.push_back(more);
  }

  bool CanRead(const std::wstring& table) const {
    return std::ranges::none_of(findings_.answers, [&](const auto& answer) {
      return answer.first == "tabela " + ToUtf8(table) || answer.first.starts_with("coluna " + ToUtf8(table) + ".");
    });
  }

  void CheckLengths() {
    for (const schema::Table& table : schema::Tables()) {
      std::vector<std::wstring> columns;
      for (const schema::Column& column : table.columns)
        if (column.longest > 0) columns.emplace_back(column.name);
      if (columns.empty() || !CanRead(std::wstring(table.name))) continue;
      auto column = columns.begin();
      for (const std::int64_t length : inspector_->Lengths(std::wstring(table.name), columns)) {
        const int longest = schema::ColumnOf(table.name, *column).longest;
        if (length > longest)
          findings_.longColumns.push_back({ToUtf8(table.name) + "." + ToUtf8(*column), length, longest});
        ++column;
      }
    }
  }

  void CheckIndexes() {
    std::map<std::wstring, std::int64_t> rows;
    for (const schema::Index& index : schema::Indexes()) {
      const std::wstring table(index.table);
      if (!schema::IsUseful(index, Code()) || !CanRead(table)) continue;
      try {
        if (!rows.contains(table)) rows[table] = CountRows(table);
        if (rows[table] >= kLargeTable && !HasIndex(index)) AddMissing(index, rows[table]);
      } catch (const Erro& error) {
        AddNew(findings_.unchecked, "os índices de " + ToUtf8(table) + ": " + WordsOf(error));
      }
    }
  }

  std::int64_t CountRows(const std::wstring& table) {
    const auto rows = surroundings_.NewRecordset();
    rows->Open(L"SELECT COUNT(*) FROM " + table, connection_.get(), ad::kOpenForwardOnly, ad::kLockReadOnly,
               ad::kCmdText);
    return std::stoll(values::ToText(rows->Columns().front().field->Get()));
  }

  bool HasIndex(const schema::Index& wanted) {
    return std::ranges::any_of(inspector_->Indexes(ToUtf8(wanted.table)), [&](const std::vector<std::string>& columns) {
      return columns.size() >= wanted.columns.size() &&
             std::equal(wanted.columns.begin(), wanted.columns.end(), columns.begin(),
                        [](std::wstring_view name, const std::string& column) { return ToUtf8(name) == column; });
    });
  }

  void AddMissing(const schema::Index& index, std::int64_t rows) {
    MissingIndex missing{&index, rows, {}};
    for (const std::string_view report : index.reports)
      if (!FindingOf(std::string(report)).AlwaysFails()) missing.reports.emplace_back(report);
    if (!missing.reports.empty()) findings_.missingIndexes.push_back(std::move(missing));
  }

  std::wstring connectionString_;
  Machine& machine_;
  platform::Surroundings& surroundings_;
  std::unique_ptr<platform::Connection> connection_;
  std::unique_ptr<OdbcInspector> inspector_;
  Findings findings_;
  std::map<std::wstring, bool> siblings_;  // whether each sibling asked for so far can be created
};

}  // namespace

bool ReportFinding::AlwaysFails() const {
  return std::ranges::any_of(limits, [](const Limit* limit) { return limit->extent == Extent::kAlwaysFails; });
}

bool Findings::IsWrong() const {
  return database.name.empty() || std::ranges::any_of(reports, &ReportFinding::IsWrong);
}

Findings CheckDatabase(const std::wstring& connectionString, Machine& machine) {
  return Check(connectionString, machine).Execute();
}

}  // namespace kodra::console
