#include "console/run/label_print.h"

#include <fmt/format.h>
#include <algorithm>
#include <iterator>
#include <map>

#include "console/command_line/suggest.h"
#include "console/command_line/text_lines.h"
#include "console/command_line/usage_error.h"
#include "console/formats/labels/label_arguments.h"
#include "reports/modules/module_code.h"
#include "values/numbers.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using labels::Label;
using values::FromUtf8;
using values::ToUtf8;

constexpr NamedLabelKind kKinds[] = {
    {"abertura", LabelKind::kOpening, L"Etiquetas de abertura"},
    {"fechamento", LabelKind::kClosing, L"Etiquetas de fechamento"},
    {"subordinadas", LabelKind::kSubordinates, L"Etiquetas de fechamento de subordinados"},
    {"divisoria", LabelKind::kDividers, L"Etiquetas divisórias"},
    {"conteiner", LabelKind::kContainers, L"Etiquetas de contêineres"},
};

const NamedLabelKind& KindNamed(const std::string& name) {
  const std::string folded = Folded(name);
  std::vector<std::string> known;
  for (const NamedLabelKind& kind : kKinds) {
    if (kind.name == folded) return kind;
    known.emplace_back(kind.name);
  }
  throw UsageError(fmt::format("o tipo de etiqueta \"{}\" não existe{}; escolha entre {}", name,
                               DidYouMean(folded, known), fmt::join(known, ", ")));
}

bool IsGiven(const CodeRange& range) {
  return !range.first.empty() || !range.last.empty() || !range.department.empty();
}

// The reports put codes into their statements between apostrophes.
void RefuseApostrophe(const std::wstring& code) {
  if (code.find(L'\'') != code.npos)
    throw UsageError("o código \"" + ToUtf8(code) + "\" tem um apóstrofo, que os relatórios não aceitam: tire-o");
}

void CheckRange(const CodeRange& range, LabelKind kind) {
  const bool areModules = kind != LabelKind::kContainers;
  if (!range.department.empty() && !areModules) throw UsageError("o departamento não vale para contêineres");
  // The report takes such a code for no department at all.
  if (!range.department.empty() && values::LeadingNumber(range.department) <= 0) {
    throw UsageError("o departamento deve ser um código maior que zero, e não pode ser \"" + ToUtf8(range.department) +
                     "\"");
  }
  RefuseApostrophe(range.department);
  if (areModules && !range.first.empty() && !range.last.empty() && range.first.size() != range.last.size())
    throw UsageError("o intervalo deve ir de um módulo principal a outro, ou de um subordinado a outro");
}

}  // namespace

std::span<const NamedLabelKind> LabelKinds() { return kKinds; }

LabelPrint::LabelPrint(LabelOrder order) : order_(std::move(order)), kind_(KindNamed(order_.kind)) {
  CheckRange(order_.range, kind_.kind);
  if (order_.withPlace && kind_.kind == LabelKind::kContainers) throw UsageError("o lugar não vale para contêineres");
  order_.print.place = order_.withPlace;
  const labels::PrintOptions& print = order_.print;
  labels::DesignOf(print.stock.label, {print.code, print.place, print.logo.get()});
  for (const std::wstring& code : order_.codes) RefuseApostrophe(code);
  if (order_.codes.empty() && !IsGiven(order_.range))
    throw UsageError("faltam os códigos: informe-os, ou um intervalo, ou um departamento");
}

LabelOutcome LabelPrint::Write(platform::Surroundings& surroundings, const std::wstring& connection, Output& output,
                               const std::function<bool()>& goesOn) const {
  ArchiveLabels archive(surroundings, connection, goesOn);
  std::vector<Label> all;
  const std::vector<std::string> missing = TakeLabelsOf(order_.codes, archive, all);
  std::vector<std::string> missingInRange;
  if (IsGiven(order_.range)) missingInRange = TakeLabelsOf(archive.CodesIn(kind_.kind, order_.range), archive, all);
  if (!goesOn()) return {};
  LabelOutcome outcome = {.hasLabels = !all.empty()};
  if (outcome.hasLabels) {
    if (std::string warning = labels::EdgeWarning(order_.print.stock); !warning.empty())
      outcome.warnings.push_back(std::move(warning));
    // Everything is drawn before anything is written: a label may turn out to have no room for its code.
    TextOutput pages;
    const std::unique_ptr<pages::Canvas> canvas = labels::NewCanvas(order_.format, pages, kind_.title);
    labels::PrintOptions print = order_.print;
    print.warn = [&](const std::string& warning) { outcome.warnings.push_back(warning); };
    labels::LabelPrinter printer(*canvas, print);
    for (Label& label : all) {
      if (!order_.organisation.empty()) label.organisation = order_.organisation;
      printer.Print(label);
    }
    printer.Finish();
    output.Write(pages.Text());
  }
  if (!missingInRange.empty())
    outcome.warnings.push_back(fmt::format("no intervalo, sem etiqueta: {}", fmt::join(missingInRange, ", ")));
  if (!missing.empty())
    outcome.problems.push_back(fmt::format("sem etiqueta: {}; confira os códigos", fmt::join(missing, ", ")));
  if (!outcome.hasLabels)
    outcome.problems.push_back(std::string("nenhuma etiqueta para imprimir") +
                               (IsGiven(order_.range) ? ": confira o intervalo" : ""));
  return outcome;
}

// Appends the labels of these codes to `all` and returns the codes that have none.
std::vector<std::string> LabelPrint::TakeLabelsOf(const std::vector<std::wstring>& codes, ArchiveLabels& archive,
                                                  std::vector<Label>& all) const {
  std::vector<std::string> missing;
  std::vector<std::vector<Label>> found = archive.LabelsOf(kind_.kind, codes);
  // Some reports do not name the organisation.
  const bool isUnnamed = kind_.kind == LabelKind::kOpening || kind_.kind == LabelKind::kDividers;
  const std::wstring organisation =
      isUnnamed && order_.organisation.empty() ? archive.Organisation(codes) : std::wstring();
  std::map<std::wstring, std::wstring> places;
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (found[i].empty()) missing.push_back(ToUtf8(codes[i]));
    for (Label& label : found[i]) {
      if (isUnnamed) label.organisation = organisation;
      if (!order_.withPlace) continue;
      const std::wstring module = reports::MainModule(codes[i]);
      const auto [place, isNew] = places.try_emplace(module);
      if (isNew) place->second = archive.PlaceOf(module);
      label.place = place->second;
    }
  }
  for (std::vector<Label>& ofCode : found) std::ranges::move(ofCode, std::back_inserter(all));
  return missing;
}

std::vector<std::wstring> CodesInList(std::string_view list) {
  std::vector<std::wstring> codes;
  for (const std::string_view line : TrimmedLines(list))
    if (!line.empty()) codes.push_back(FromUtf8(line));
  return codes;
}

}  // namespace kodra::console
