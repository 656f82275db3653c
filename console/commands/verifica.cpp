// kodrarpt verifica: whether a database has what the reports read.
#include <CLI/CLI.hpp>
#include <algorithm>

#include "console/command_line/columns.h"
#include "console/command_line/connection_error.h"
#include "console/command_line/databases.h"
#include "console/command_line/report_name.h"
#include "console/command_line/terminal_text.h"
#include "console/commands/commands.h"
#include "console/run/connection_options.h"
#include "console/run/machine.h"
#include "console/run/schema_probe.h"
#include "console/statements/needs.h"
#include "data/abre_cn.h"
#include "sql/tipo_banco.h"
#include "values/convert.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using values::ToUtf8;

constexpr const char* kFooter =
    "Nada é gravado e nenhuma linha é lida. O código de saída é 0 se está tudo pronto e 4 se falta algo.\n"
    "\n"
    "Exemplo:\n"
    "  KODRARPT_SENHA=… kodrarpt verifica --conexao \"DSN=Acervo;UID=ana\"";

constexpr const wchar_t* kConnectionSibling = L"KodraConexao.StrCon";

struct Report {
  std::string name;
  // They include what the siblings read, unless siblings are installed: what an installed one reads is not known.
  std::vector<TableNeed> tables;
  // The last one is kConnectionSibling, which every report needs.
  std::vector<std::wstring> siblings;
};

std::vector<Report> ReportsWith(const Machine& machine) {
  std::vector<Report> all;
  for (const reports::ReportMethod& method : reports::ReportMethods()) {
    Needs needs = NeedsOf(method);
    if (!machine.SiblingsAreInstalled())
      needs.tables.insert(needs.tables.end(), needs.siblingTables.begin(), needs.siblingTables.end());
    std::erase(needs.siblings, kConnectionSibling);
    needs.siblings.emplace_back(kConnectionSibling);
    all.push_back({NameOf(method), std::move(needs.tables), std::move(needs.siblings)});
  }
  return all;
}

std::int32_t DatabaseCodeOf(const std::wstring& connection, platform::Surroundings& surroundings) {
  const ObjectRef sibling = surroundings.CreateObject(kConnectionSibling);
  sibling->Let(L"StrCon", connection);
  return values::ToInt32(sibling->Get(L"TipoBanco"));
}

// The name of the database with that code; empty if the reports have no dialect for it.
std::string_view TitleOf(std::int32_t code) {
  const auto known = Databases();
  const auto found = std::ranges::find(known, code == sql::tbOracleAlt ? sql::tbOracle : code, &Database::code);
  return found == known.end() ? std::string_view() : found->title;
}

class Check {
 public:
  Check(std::ostream& out, std::wstring connection) : out_(out), connection_(std::move(connection)) {}

  ExitCode Execute() {
    const std::unique_ptr<Machine> machine = NewMachine();
    platform::Surroundings& surroundings = machine->Around();
    const std::unique_ptr<platform::Connection> opened = Connect(surroundings);
    const bool hasDialect = PrintDatabase(surroundings);
    SchemaProbe probe(surroundings, *opened);
    const std::vector<Report> reports = ReportsWith(*machine);
    for (const Report& report : reports)
      for (const TableNeed& need : report.tables) probe.Expect(need);
    const std::size_t ready = PrintReports(reports, surroundings, probe);
    PrintRefusals(probe);
    return hasDialect && ready == reports.size() ? ExitCode::kOk : ExitCode::kMismatch;
  }

 private:
  std::unique_ptr<platform::Connection> Connect(platform::Surroundings& surroundings) const {
    try {
      return data::AbreCn(connection_, platform::ad::kUseServer, 0, surroundings);
    } catch (const Erro& error) {
      throw ConnectionError(error);
    }
  }

  // Returns whether the reports have a dialect for the database.
  bool PrintDatabase(platform::Surroundings& surroundings) {
    std::int32_t code = 0;
    try {
      code = DatabaseCodeOf(connection_, surroundings);
    } catch (const Erro& error) {
      out_ << "Banco de dados: não identificado (" << ToUtf8(kConnectionSibling) << ": "
           << ForTerminal(ToUtf8(values::HidePassword(error.Description(), connection_))) << ")\n\n";
      return false;
    }
    const std::string_view title = TitleOf(code);
    out_ << "Banco de dados: " << (title.empty() ? "desconhecido" : title) << " (tipo " << code << ")\n";
    if (title.empty()) out_ << "Os relatórios que usam datas ou conversões dão erro neste banco.\n";
    out_ << "\n";
    return !title.empty();
  }

  // Prints one line per report and returns how many reports are ready.
  std::size_t PrintReports(const std::vector<Report>& reports, platform::Surroundings& surroundings,
                           SchemaProbe& probe) {
    std::size_t width = 0;
    for (const Report& report : reports) width = std::max(width, Width(report.name));
    std::size_t ready = 0;
    for (const Report& report : reports) {
      const std::vector<std::wstring> missing = MissingOf(report, surroundings, probe);
      out_ << Padded(report.name, width + 2);
      if (missing.empty()) {
        ++ready;
        out_ << "pronto\n";
        continue;
      }
      out_ << "falta: ";
      for (std::size_t i = 0; i < missing.size(); ++i) out_ << (i == 0 ? "" : ", ") << ToUtf8(missing[i]);
      out_ << "\n";
    }
    out_ << "\n" << ready << " de " << reports.size() << " relatórios prontos\n";
    return ready;
  }

  void PrintRefusals(const SchemaProbe& probe) {
    if (probe.Refusals().empty()) return;
    out_ << "\nO que o banco respondeu:\n";
    for (const auto& [what, words] : probe.Refusals())
      out_ << "  " << ToUtf8(what) << ": " << ForTerminal(ToUtf8(values::HidePassword(words, connection_))) << "\n";
  }

  std::vector<std::wstring> MissingOf(const Report& report, platform::Surroundings& surroundings, SchemaProbe& probe) {
    std::vector<std::wstring> missing;
    const auto add = [&](const std::wstring& what) {
      if (std::ranges::find(missing, what) == missing.end()) missing.push_back(what);
    };
    for (const TableNeed& need : report.tables)
      for (const std::wstring& what : probe.Missing(need)) add(what);
    for (const std::wstring& sibling : report.siblings)
      if (!CanCreate(surroundings, sibling)) add(L"componente " + sibling);
    return missing;
  }

  bool CanCreate(platform::Surroundings& surroundings, const std::wstring& sibling) {
    const auto known = siblings_.find(sibling);
    if (known != siblings_.end()) return known->second;
    bool created = true;
    try {
      surroundings.CreateObject(sibling);
    } catch (const Erro&) {
      created = false;
    }
    return siblings_[sibling] = created;
  }

  std::ostream& out_;
  std::wstring connection_;
  std::map<std::wstring, bool> siblings_;  // whether each sibling asked for so far can be created
};

}  // namespace

void AddVerifica(Program& program) {
  const auto connection = std::make_shared<ConnectionOptions>();
  CLI::App& command =
      program.Add({"verifica", "Confere se um banco de dados tem tudo o que os relatórios leem", kFooter},
                  [&program, connection] { return Check(program.Out(), connection->Text()).Execute(); });
  connection->AddTo(command);
}

}  // namespace kodra::console
