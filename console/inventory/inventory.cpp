#include "console/inventory/inventory.h"

#include <algorithm>
#include <set>

#include "console/command_line/connection_error.h"
#include "console/reports/errors.h"
#include "values/erro.h"
#include "values/password.h"
#include "values/utf8.h"

namespace kodra::console::inventory {
namespace {

using values::FromUtf8;
using values::ToUtf8;

std::vector<std::wstring> Distinct(const std::vector<std::wstring>& codes) {
  std::vector<std::wstring> distinct;
  std::set<std::wstring> known;
  for (const std::wstring& code : codes)
    if (known.insert(code).second) distinct.push_back(code);
  return distinct;
}

std::wstring Joined(const std::vector<std::wstring>& codes) {
  std::wstring text;
  for (const std::wstring& code : codes) text.append(text.empty() ? L"" : L", ").append(code);
  return text;
}

// The codes that were read, but not expected.
std::set<std::wstring> Others(const std::vector<Item>& expected, const std::vector<std::wstring>& read) {
  std::set<std::wstring> others(read.begin(), read.end());
  for (const Item& item : expected) others.erase(item.code);
  return others;
}

Value TextOrNull(const std::wstring& text) { return text.empty() ? Value(Null{}) : Value(text); }

}  // namespace

Inventory::Inventory(Of of, const std::vector<std::wstring>& places, std::vector<std::wstring> scanned)
    : of_(of),
      listing_(*guide::Find(L"kodrarpt", of == Of::kDocuments ? L"confere --modulo" : L"confere --conteiner")),
      places_(Distinct(places)),
      scanned_(std::move(scanned)) {
  std::erase_if(scanned_, [&](const std::wstring& code) { return std::ranges::find(places_, code) != places_.end(); });
}

void Inventory::Compare(platform::Surroundings& surroundings, const std::wstring& connection,
                        const std::function<bool()>& goesOn) {
  Archive archive(surroundings, connection, goesOn);
  if (of_ == Of::kDocuments)
    CompareDocuments(archive, connection, goesOn);
  else
    CompareModules(archive);
}

void Inventory::CompareDocuments(Archive& archive, const std::wstring& connection,
                                 const std::function<bool()>& goesOn) {
  const std::vector<Item> expected = archive.DocumentsOf(places_);
  loans_ = ReadLoans(archive, connection, goesOn);
  findings_ = inventory::Compare(expected, scanned_, archive.FindDocuments(Others(expected, scanned_)), loans_);
}

void Inventory::CompareModules(Archive& archive) {
  const std::vector<Item> expected = archive.ModulesOf(places_);
  std::vector<std::wstring> modules;
  for (const std::wstring& code : scanned_) modules.push_back(archive.MainModuleOf(code));
  const std::vector<std::wstring> read = Distinct(modules);
  findings_ = inventory::Compare(expected, read, archive.FindModules(Others(expected, read)), {});
}

// The loans, or none if the database does not answer: the list of originals does not run on every database.
Loans Inventory::ReadLoans(Archive& archive, const std::wstring& connection, const std::function<bool()>& goesOn) {
  try {
    return archive.ReadLoans();
  } catch (const ConnectionError&) {
    throw;
  } catch (const Erro& error) {
    if (!goesOn()) throw;
    const std::string description = ToUtf8(values::HidePassword(error.Description(), connection));
    const auto explanation =
        guide::Explain(description, guide::Find(L"CSolicitacaoRpt", L"RelatorioDevolucaoOriginal"));
    warning_ = "não foi possível saber quais documentos estão emprestados, e eles saem como ausentes: " +
               (explanation ? explanation->whatHappened : guide::CauseIn(description));
    return {};
  }
}

void Inventory::Write(RowWriter& writer, std::uint64_t mostRows) const {
  std::vector<Column> columns;
  for (const guide::Column& column : listing_.columns) columns.push_back({FromUtf8(column.name)});
  writer.Begin(
      {FromUtf8(listing_.className),
       FromUtf8(listing_.method),
       FromUtf8(listing_.purpose),
       {{of_ == Of::kDocuments ? L"Modulos" : L"Conteineres", Joined(places_)}, {L"Totais", Summary(findings_)}}},
      columns);
  const auto rows = static_cast<std::size_t>(std::min<std::uint64_t>(findings_.size(), mostRows));
  for (const Finding& finding : std::span(findings_).first(rows)) writer.Row(Cells(finding));
  writer.End();
}

// In the order of the listing's columns.
std::vector<Value> Inventory::Cells(const Finding& finding) const {
  const Item& item = finding.item;
  std::vector<Value> cells = {item.code, std::wstring(WordFor(finding.situation)), TextOrNull(item.place),
                              TextOrNull(item.location)};
  if (of_ != Of::kDocuments) return cells;
  const auto found = loans_.find(item.code);
  const Loan loan = found == loans_.end() ? Loan() : found->second;
  for (const std::wstring& text : {loan.operatorName, loan.since, loan.until}) cells.push_back(TextOrNull(text));
  return cells;
}

}  // namespace kodra::console::inventory
