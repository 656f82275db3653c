// Documents, the requests to withdraw them, and the event log.
#include <algorithm>

#include "testbed/archive/generator.h"
#include "testbed/archive/random.h"
#include "testbed/archive/vocabulary.h"

namespace kodra::testbed {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

Text KeyValue(KeyKind kind, Day day, Random& random) {
  switch (kind) {
    case KeyKind::kAbsent:
    case KeyKind::kBlank:
      return {};
    case KeyKind::kNumber:
      return Padded(random.Below(100000000), 8);
    case KeyKind::kPerson:
      return PersonName(random.Below(1480));
    case KeyKind::kCompany:
      return Text(Companies()[static_cast<std::size_t>(random.Below(static_cast<std::int64_t>(Companies().size())))]);
    case KeyKind::kDate:
      return BrazilianDate(day - days(random.Below(90)));
    case KeyKind::kCity:
      return Text(Cities()[static_cast<std::size_t>(random.Below(static_cast<std::int64_t>(Cities().size())))].name);
    case KeyKind::kMoney: {
      const Text cents = Padded(random.Below(100), 2);
      return std::to_wstring(random.Between(10, 99999)) + L"," + cents;
    }
  }
  return {};
}

Moment BusinessHour(Day day, Random& random) {
  const seconds second(random.Below(60));
  const minutes minute(random.Below(60));
  return day + hours(random.Between(8, 17)) + minute + second;
}

// Midnight for documents whose source had no time; the last second of the day for some.
Moment StorageMoment(Day day, std::int64_t row, Random& random) {
  if (row % 3 == 0) return day;
  if (row % 50 == 1) return day + hours(23) + minutes(59) + seconds(59);
  return BusinessHour(day, random);
}

MaybeText SupportCode(std::int64_t row, Random& random) {
  if (row % 10 == 3) return L"3";  // born digital
  if (row % 23 == 6) return {};
  if (row % 61 == 12) return L"99";  // a support that no longer exists
  static const wchar_t* const kOnShelves[] = {L"1", L"1", L"1", L"2", L"4", L"5"};
  return random.Of(kOnShelves);
}

MaybeText Remark(std::int64_t row) {
  switch (row % 12) {
    case 2:
      return L"";
    case 5:
      return L"Conferido por D'Ávila; cópia \"A\" extraviada.";
    case 9:
      return L"Página rasgada – restauração de 50% concluída.";
    default:
      return {};
  }
}

}  // namespace

template <>
std::int64_t Generator::Count<Documento>() const {
  return documents_;
}
template <>
Documento Generator::Row(std::int64_t row) const {
  Random random(6, row);
  const Day day = StorageDay(row);
  const std::int64_t series = random.Below(Count<Assunto>());
  const auto sites = SeriesOfOneSite();
  const SeriesEntry& entry = sites[static_cast<std::size_t>(series) % sites.size()];
  const bool indexed = row % 16 != 5;
  const bool inventory = row % 40 == 7 || row % 48 == 21;  // the latter are not indexed either

  Documento document;
  document.codDocto = *DocumentCode(row);
  document.codSuporte = SupportCode(row, random);
  if (row % 25 == 4) {
    document.numCaixa = ModuleCode(0);
  } else if (row % 37 != 10) {
    document.numCaixa = ModuleCode(ModuleOfDocument(row));
  }
  if (row % 6 != 0) document.numCd = CdCode(CdOfDocument(row));
  if (row % 31 != 9) document.codDepto = DepartmentCode(random.Below(Count<Depto>()));
  if (row % 29 != 8) document.codOperador = OperatorCode(random.Below(Operators()));
  document.dtArmaz = StorageMoment(day, row, random);
  if (row % 35 != 11) document.frente = random.Between(1, 40);
  if (row % 35 != 12) document.verso = document.frente ? random.Between(0, *document.frente) : 0;

  if (indexed) {
    document.codGrupo = SubgroupCode(entry.subgroup);
    document.codIndexador = OperatorCode(random.Below(Operators()));
    document.dataIndexacao = row % 4 == 0 ? Moment(day) : BusinessHour(day + days(random.Below(21)), random);
    // Some are classified only up to their subgroup.
    if (row % 64 != 13) {
      document.codAssunto = SeriesCode(series);
      if (row % 9 != 0) document.dtVenc = AddYears(day, entry.retentionYears);
      for (std::size_t key = 0; key < document.descrChave.size(); ++key) {
        if (entry.keys[key].kind == KeyKind::kAbsent) continue;
        document.descrChave[key] = KeyValue(entry.keys[key].kind, day, random);
      }
    }
  }
  if (inventory) {
    document.extensao = L"#INV";
    document.maco = L"M-" + Padded(row % 1000, 3);
  } else if (document.numCd) {
    static const wchar_t* const kExtensions[] = {L"TIF", L"PDF", L"JPG"};
    document.extensao = random.Of(kExtensions);
    document.arquivo =
        L"\\\\SERVIDOR\\Imagens\\" + *document.numCd + L"\\" + document.codDocto + L"." + *document.extensao;
  }
  document.obs = Remark(row);
  return document;
}

// A block of four rows contains a request for one document and a request for three.
template <>
std::int64_t Generator::Count<Solicitacao>() const {
  return documents_ == 0 ? 0 : std::max<std::int64_t>(10, documents_ / 400) * 4;
}
template <>
Solicitacao Generator::Row(std::int64_t row) const {
  static const wchar_t* const kModes[] = {L"P", L"I", L"D", L"S", L"X", nullptr};
  static const wchar_t* const kRemarks[] = {L"Auditoria externa – devolver à expedição.", L"", nullptr};
  const std::int64_t block = row / 4;
  const std::int64_t place = row % 4;
  const std::int64_t number = block * 2 + (place == 0 ? 1 : 2);
  const auto request = static_cast<std::uint64_t>(number);
  Random random(7, number);  // the rows of a request differ only in their document

  Solicitacao withdrawal;
  withdrawal.codSolicit = number;
  withdrawal.codDocto = *DocumentCode((block * 37 + place) % documents_);
  withdrawal.codOperador = OperatorCode(static_cast<std::int64_t>(request * 3) % Operators());
  // Requests for one and for three documents have the same modes: each pair of requests has the next two.
  if (const wchar_t* mode = InTurn(kModes, block + (place == 0 ? 0 : 3)); mode != nullptr) withdrawal.devolvido = mode;
  if (const wchar_t* remark = InTurn(kRemarks, number); remark != nullptr) withdrawal.obsSolicit = remark;
  const Day day = Day(std::chrono::year(2022) / 1 / 3) + days(random.Below(700));
  if (number % 11 != 7) withdrawal.dtRetirada = BusinessHour(day, random);
  if (withdrawal.devolvido == L"D" || withdrawal.devolvido == L"S") {
    withdrawal.dtDevolucao = Moment(day + days(random.Between(1, 30)));
  }
  return withdrawal;
}

template <>
std::int64_t Generator::Count<Evento>() const {
  return std::max<std::int64_t>(40, documents_ / 10);
}
template <>
Evento Generator::Row(std::int64_t row) const {
  static const wchar_t* const kTypes[] = {L"INC", L"ALT", L"EXC", L"CON", L"IMP", L"LOG"};
  static const wchar_t* const kActions[] = {L"Inclusão do documento",           L"Alteração das chaves do documento",
                                            L"Exclusão da imagem do documento", L"Consulta ao documento",
                                            L"Impressão do documento",          L"Início de sessão"};
  Random random(8, row);
  const bool session = row % 6 == 5;

  Evento event;
  event.codEvento = row + 1;
  event.dataInicial = BusinessHour(StorageDay(row % std::max<std::int64_t>(documents_, 1)), random);
  event.nomeOperador = AsLogin(PersonName(random.Below(Operators())));
  event.maquina = L"ESTAÇÃO-" + Padded(random.Between(1, 120), 3);
  event.tipoEvento = InTurn(kTypes, row);
  event.acao = InTurn(kActions, row);
  if (!session && documents_ > 0) {
    event.codDocto = DocumentCode(random.Below(documents_));
    *event.acao += L" " + *event.codDocto;
  }
  // Texts at the limits of a report's fields.
  if (row == 7) event.nomeOperador = Text(260, L'é');
  if (row == 8) event.maquina = Text(255, L'M');
  if (row == 9) event.acao = Text(250, L'ç');
  if (row == 10) event.acao = Text(250, L'a') + L"b";
  if (row == 11) event.acao = Text(8000, L'z');
  if (row == 12) event.acao.reset();
  return event;
}

}  // namespace kodra::testbed
