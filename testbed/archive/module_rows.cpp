// Storage modules, their subordinate modules and the containers in which the modules are kept.
#include <algorithm>

#include "testbed/archive/generator.h"
#include "testbed/archive/random.h"
#include "testbed/archive/vocabulary.h"

namespace kodra::testbed {
namespace {

// How long a module keeps its papers. Modules and subordinate modules use these in rotation.
struct Retention {
  const wchar_t* kind;  // TIPO_GUARDA; null is a null
  MaybeNumber years;    // null: no due date
  bool closed;
  bool discarded = false;
};
constexpr Retention kOpen = {L"D", {}, false};
constexpr Retention kRetentions[] = {
    {L"T", 2, true},        // overdue for years
    {L"T", 75, true},       // not due for decades
    {L"D", {}, true},       // due since it was closed
    kOpen,                  // still open
    {L"E", 1, true, true},  // discarded
    {L"P", {}, true},       // kept forever
    {L"T", {}, false},      // its term has not begun
    {nullptr, {}, false}    // not decided yet
};

constexpr std::int64_t kSubordinatesPerParent = 3;
// Every third module has subordinate modules, from the second row on.
std::int64_t ParentRow(std::int64_t subordinate) { return 1 + 3 * (subordinate / kSubordinatesPerParent); }

bool HasDueDate(std::int64_t module) {
  const Retention& retention = InTurn(kRetentions, module);
  const bool dated = !retention.discarded || module / 8 % 2 == 0;  // every second discarded module has no date
  return retention.years.has_value() && dated;
}

}  // namespace

template <>
std::int64_t Generator::Count<Container>() const {
  return containers_;
}
template <>
Container Generator::Row(std::int64_t row) const {
  if (row == 1) return {ContainerCode(row), {}};
  return {ContainerCode(row), L"Contêiner " + std::to_wstring(row + 1) + L" – corredor " + Padded(row / 8 + 1, 2)};
}

template <>
std::int64_t Generator::Count<Caixa>() const {
  return modules_;
}
template <>
Caixa Generator::Row(std::int64_t row) const {
  Random random(5, row);
  Caixa module;
  module.numCaixa = ModuleCode(row);
  module.codTipoCx = std::to_wstring(row % 5);
  if (row == 0) {
    // The pseudo-module of the documents that wait for a module; as a module it would be due.
    module.descCaixa = L"Documentos sem módulo de guarda";
    module.tipoGuarda = L"T";
    module.anosVencimento = 1;
    module.dataVencimento = std::chrono::year(2011) / 1 / 31;
    module.docsPregressos = 1;
    module.codDepto = DepartmentCode(0);
    return module;
  }
  const std::int64_t first = (row - 1) * documentsPerModule_;
  const std::int64_t last = std::min(first + documentsPerModule_, documents_) - 1;
  const bool holdsDocuments = first <= last;
  const Retention& retention = InTurn(kRetentions, row);
  const Day closing = StorageDay(std::max(last, first)) + std::chrono::days(random.Between(1, 20));

  const auto department = row % Count<Depto>();
  module.descCaixa = Text(Departments()[static_cast<std::size_t>(department)]) + L" – módulo " + std::to_wstring(row);
  if (row % 10 == 4) module.descCaixa.reset();
  if (row % 4 == 1) module.obsCaixa = L"Etiqueta reimpressa; conteúdo conferido.";
  if (holdsDocuments) {
    module.docInicial = DocumentCode(first);
    if (retention.closed) module.docFinal = DocumentCode(last);
  }
  if (retention.closed) module.dataFechamento = closing;
  if (retention.kind != nullptr) module.tipoGuarda = retention.kind;
  module.anosVencimento = retention.years;
  if (HasDueDate(row)) module.dataVencimento = AddYears(closing, *retention.years);
  if (row % 9 != 5) module.codDepto = DepartmentCode(department);
  if (row % 4 != 3) module.docsPregressos = row % 4 == 0 ? 1 : 0;

  switch (row % 6) {
    case 0:
      break;  // not yet shelved
    case 1:
      module.coordX = L"", module.coordZ = std::to_wstring(row % 7 + 1);
      break;  // a shelf only
    case 2:
      module.coordX = L"", module.coordY = L"", module.coordZ = L"";
      break;
    default:
      module.coordX = Text(1, static_cast<wchar_t>(L'A' + row % 20));
      module.coordY = Padded(row / 20 % 40 + 1, 2);
      module.coordZ = std::to_wstring(row % 7 + 1);
  }
  // The first container has only undated modules, the last one none.
  if (row % 7 != 3) {
    const bool inFirst = !HasDueDate(row) && row % 2 == 0;
    module.container = ContainerCode(inFirst ? 0 : 1 + row % (containers_ - 2));
    module.codDeposito = DepositoryCode(random.Below(kDepositories));
  }
  return module;
}

template <>
std::int64_t Generator::Count<CaixaSubordinada>() const {
  return (modules_ - 2) / 3 * kSubordinatesPerParent;
}
template <>
CaixaSubordinada Generator::Row(std::int64_t row) const {
  const std::int64_t parent = ParentRow(row);
  const std::int64_t parentTurn = row / kSubordinatesPerParent;
  const std::int64_t place = row % kSubordinatesPerParent;
  // Every fourth parent has only open subordinates; every second one lacks its first eight.
  const bool open = parentTurn % 4 == 3;
  const Retention& retention = open ? kOpen : InTurn(kRetentions, row);
  const std::int64_t share = std::max<std::int64_t>(1, documentsPerModule_ / kSubordinatesPerParent);
  const std::int64_t first = (parent - 1) * documentsPerModule_ + place * share;
  const std::int64_t last = std::min(first + share, documents_) - 1;
  const Day closing = StorageDay(std::max(first, last)) + std::chrono::days(3);

  CaixaSubordinada module;
  module.numCaixa = ModuleCode(parent);
  module.numSeq = place + (parentTurn % 2 == 0 ? 1 : 9);
  if (first <= last) {
    module.docInicial = DocumentCode(first);
    if (retention.closed) module.docFinal = DocumentCode(last);
  }
  if (retention.kind != nullptr) module.tipoGuarda = retention.kind;
  module.anosVencimento = retention.years;
  if (retention.closed) module.dataFechamento = closing;
  if (retention.years) module.dataVencimento = AddYears(closing, *retention.years);
  return module;
}

}  // namespace kodra::testbed
