// The registers that the catalog reports list.
#include "testbed/archive/generator.h"
#include "testbed/archive/random.h"
#include "testbed/archive/vocabulary.h"

namespace kodra::testbed {
namespace {

template <class T>
std::int64_t CountOf(std::span<const T> entries) {
  return static_cast<std::int64_t>(entries.size());
}

template <class T>
const T& At(std::span<const T> entries, std::int64_t row) {
  return entries[static_cast<std::size_t>(row) % entries.size()];
}

MaybeText Maybe(const wchar_t* text) {
  if (text == nullptr) return {};
  return text;
}

Text Address(Random& random) {
  const std::int64_t number = random.Between(1, 2999);
  return Text(At(Streets(), random.Below(CountOf(Streets())))) + L", " + std::to_wstring(number);
}

Text PostalCode(const City& city, Random& random) {
  return Text(city.cepPrefix) + L"-" + Padded(random.Below(1000), 3);
}

Text Telephone(Random& random) {
  const Text line = Padded(random.Below(10000), 4);
  const Text exchange = Padded(random.Below(1000), 3);
  return L"(" + std::to_wstring(random.Between(11, 99)) + L") 3" + exchange + L"-" + line;
}

struct MediaType {
  const wchar_t* name;
  MaybeNumber years, megabytes;
};

}  // namespace

template <>
std::int64_t Generator::Count<Parametro>() const {
  return 2;
}
template <>
Parametro Generator::Row(std::int64_t row) const {
  // A second row, for another installation, which must never be read.
  if (row == 1) return {L"2", L"Outra Instalação", L"Fundo", L"Seção", L"Dossiê", L"Dossiês", 1, 1, L"N", L"S", 1};
  return {L"1",     L"Memória & Arquivo – Guarda de Documentos Ltda.",
          L"Grupo", L"Subgrupo",
          L"Série", L"Séries",
          15,       90,
          L"S",     L"N",
          20};
}

template <>
std::int64_t Generator::Count<Classe>() const {
  return CountOf(Groups());
}
template <>
Classe Generator::Row(std::int64_t row) const {
  const GroupEntry& entry = At(Groups(), row);
  return {GroupCode(row), Text(entry.name), row == 5 ? MaybeText() : Text(entry.notes)};
}

template <>
std::int64_t Generator::Count<Grupo>() const {
  return CountOf(Subgroups());
}
template <>
Grupo Generator::Row(std::int64_t row) const {
  static const wchar_t* const kActive[] = {L"1", L"S", L"0", L"N", nullptr};
  const SubgroupEntry& entry = At(Subgroups(), row);
  return {SubgroupCode(row), entry.group < 0 ? MaybeText() : GroupCode(entry.group), Text(entry.name),
          row == 4 ? MaybeText() : Text(entry.notes), Maybe(InTurn(kActive, row))};
}

template <>
std::int64_t Generator::Count<Assunto>() const {
  return CountOf(SeriesOfOneSite()) * sites_;
}
template <>
Assunto Generator::Row(std::int64_t row) const {
  static const wchar_t* const kFlags[] = {L"1", L"S", L"T", L"Y", L"N", L"0", nullptr, L"", L"s"};
  static const wchar_t* const kActive[] = {L"1", L"1", L"0", nullptr};
  const std::int64_t site = row / CountOf(SeriesOfOneSite());
  const SeriesEntry& entry = At(SeriesOfOneSite(), row);

  Assunto series;
  series.codAssunto = SeriesCode(row);
  series.codGrupo = SubgroupCode(entry.subgroup);
  series.descrAssunto = Text(entry.name);
  if (site > 0) *series.descrAssunto += L" – Filial " + Text(At(Cities(), site).name);
  if (row % 3 != 2)
    series.obsAssunto = L"Guarda de " + std::to_wstring(entry.retentionYears) + L" ano(s) após o exercício.";
  if (row % 5 != 2) series.dono = OperatorCode(row % Operators());  // every fifth series has no owner
  series.idcAtivo = Maybe(InTurn(kActive, row));
  for (std::size_t key = 0; key < series.descrChave.size(); ++key) {
    if (entry.keys[key].kind == KeyKind::kAbsent) continue;
    series.descrChave[key] = Text(entry.keys[key].caption);
    if (!entry.keys[key].mask.empty()) series.mask[key] = Text(entry.keys[key].mask);
  }
  for (std::size_t key = 0; key < series.obrigatoria.size(); ++key) {
    series.obrigatoria[key] = Maybe(InTurn(kFlags, row + static_cast<std::int64_t>(key) * 2));
  }
  return series;
}

template <>
std::int64_t Generator::Count<Dicionario>() const {
  return Count<Assunto>() * 4;
}
template <>
Dicionario Generator::Row(std::int64_t row) const {
  static const wchar_t* const kWords[] = {L"Ação de cobrança", L"Água e esgoto", L"Câmbio",          L"Doação",
                                          L"Exportação",       L"Férias",        L"Órgãos públicos", L"Saúde"};
  Dicionario word{Padded(row + 1, 6), SeriesCode(row / 4), InTurn(kWords, row + row / 4)};
  if (row == 7) word.descrDicionario.reset();
  if (row == 9) word.codAssunto.reset();
  return word;
}

template <>
std::int64_t Generator::Count<Modelo>() const {
  return Count<Assunto>();
}
template <>
Modelo Generator::Row(std::int64_t row) const {
  // The codes are typed by people: they mix capitals and small letters.
  static const wchar_t* const kPrefixes[] = {L"Padrao-", L"MODELO-", L"mod-", L"ÍNDICE-"};
  const SeriesEntry& entry = At(SeriesOfOneSite(), row);
  Random random(1, row);

  Modelo model;
  model.codModelo = InTurn(kPrefixes, row) + Padded(row + 1, 4);
  model.codGrupo = SubgroupCode(entry.subgroup);
  model.codAssunto = SeriesCode(row);
  for (std::size_t key = 0; key < model.chave.size(); ++key) {
    if (entry.keys[key].kind == KeyKind::kAbsent) continue;
    model.chave[key] = entry.keys[key].kind == KeyKind::kCity ? Text(At(Cities(), random.Below(36)).name) : Text();
  }
  if (row % 7 != 3) model.validade = entry.retentionYears;
  return model;
}

template <>
std::int64_t Generator::Count<Suporte>() const {
  return 6;
}
template <>
Suporte Generator::Row(std::int64_t row) const {
  static const wchar_t* const kNames[] = {L"PAPEL",          L"MICROFILME", L"DIGITAL",
                                          L"PLANTA OU MAPA", L"FOTOGRAFIA", L"FITA MAGNÉTICA"};
  return {std::to_wstring(row + 1), InTurn(kNames, row)};
}

template <>
std::int64_t Generator::Count<TipoMidia>() const {
  return 6;
}
template <>
TipoMidia Generator::Row(std::int64_t row) const {
  // Some types have media that are past their term on any day, some have media valid for generations, one has no term.
  static const MediaType kTypes[] = {
      {L"CD-R 80 minutos", 5, 700},     {L"DVD-R", 3, 4700},       {L"Disco de longa duração", 100, 25000},
      {L"Disquete 3½ polegadas", 1, 1}, {L"Fita LTO", 80, 800000}, {L"Cartão de memória", {}, {}}};
  const MediaType& type = InTurn(kTypes, row);
  return {std::to_wstring(row + 1), type.name, type.years, type.megabytes};
}

template <>
std::int64_t Generator::Count<Cd>() const {
  return cds_;
}
template <>
Cd Generator::Row(std::int64_t row) const {
  const std::int64_t first = row * documentsPerCd_;
  const std::int64_t last = std::min(first + documentsPerCd_, documents_) - 1;
  Cd cd{CdCode(row), DocumentCode(first), last < first ? MaybeText() : DocumentCode(last),
        StorageDay(std::max(last, first)) + std::chrono::days(7), std::to_wstring(row % Count<TipoMidia>() + 1)};
  if (row == 3) cd.dataGravacao = std::chrono::year(2020) / 2 / 29;
  if (row == 7) cd.dataGravacao.reset();
  if (row == 8) cd.codMidia.reset();
  return cd;
}

template <>
std::int64_t Generator::Count<Depto>() const {
  return CountOf(Departments());
}
template <>
Depto Generator::Row(std::int64_t row) const {
  Random random(2, row);
  const City& city = At(Cities(), row * 5);
  Depto department{DepartmentCode(row), Text(At(Departments(), row)), Address(random), Text(city.name),
                   Text(city.uf),       PostalCode(city, random)};
  if (row % 6 == 4) department.endereco.reset();
  if (row % 4 != 1) department.endEmail = AsLogin(At(Departments(), row)) + L"@memoria.example";
  return department;
}

template <>
std::int64_t Generator::Count<GrupoOperadores>() const {
  return kOperatorGroups;
}
template <>
GrupoOperadores Generator::Row(std::int64_t row) const {
  static const wchar_t* const kNames[] = {L"Administradores", L"Digitalização", L"Indexação", L"Consulta",
                                          L"Auditores"};
  static const wchar_t* const kNotes[] = {L"Acesso irrestrito.", L"Captura e controle de qualidade de imagens.", L"",
                                          nullptr, L"Somente leitura, com registro de ações."};
  return {std::to_wstring(row + 1), InTurn(kNames, row), Maybe(InTurn(kNotes, row))};
}

template <>
std::int64_t Generator::Count<Operador>() const {
  return operators_;
}
template <>
Operador Generator::Row(std::int64_t row) const {
  static const wchar_t* const kTypes[] = {L"1", L"2", L"0", L"12abc", L"3", L"x", nullptr};
  static const wchar_t* const kActive[] = {L"1", L"S", L"T",    L"Y", L"V",   L"0",          L"N",
                                           L"F", L"",  nullptr, L",", L"sim", L"Verdadeiro", L"false"};
  Random random(3, row);
  const Text name = PersonName(row);

  Operador person;
  person.codOperador = OperatorCode(row);
  person.descrOperador = AsLogin(name);
  person.nomeCompleto = name;
  if (row % 8 == 3) person.nomeCompleto.reset();
  if (row % 8 == 6) person.nomeCompleto = L"";
  person.tipo = Maybe(InTurn(kTypes, row));
  if (row % 11 != 4) person.codDepto = DepartmentCode(random.Below(Count<Depto>()));
  if (row % 13 != 5) person.codGrpop = std::to_wstring(random.Between(1, kOperatorGroups));
  if (row % 5 != 1) person.chapa = Padded(random.Below(1000000), 6);
  if (row % 6 != 2) person.ramal = std::to_wstring(random.Between(2000, 4999));
  person.idcAtivo = Maybe(InTurn(kActive, row));
  if (row % 9 == 7) person.opcoesPessoais = L"APAGADO";
  if (row % 9 == 2) person.opcoesPessoais = L"TEMA=CLARO;PÁGINA=50";
  return person;
}

template <>
std::int64_t Generator::Count<Deposito>() const {
  return kDepositories;
}
template <>
Deposito Generator::Row(std::int64_t row) const {
  static const wchar_t* const kNames[] = {L"Galpão Central",     L"Depósito Norte",    L"Anexo São João",
                                          L"Câmara Climatizada", L"Depósito do Açude", L"Cofre"};
  Random random(4, row);
  const City& city = At(Cities(), row * 7);
  Deposito place{DepositoryCode(row), InTurn(kNames, row),      Address(random),  Text(city.name),
                 Text(city.uf),       PostalCode(city, random), Telephone(random)};
  if (row % 2 == 0) place.fax = Telephone(random);
  if (row != 5) place.contato = PersonName(random.Below(1000));
  if (row == 4) place.endereco.reset();
  return place;
}

template <>
std::int64_t Generator::Count<TipoCaixa>() const {
  return 5;
}
template <>
TipoCaixa Generator::Row(std::int64_t row) const {
  static const TipoCaixa kTypes[] = {{L"0", L"(reservado)", 0, 0},
                                     {L"1", L"Caixa-arquivo padrão", 300, 1500},
                                     {L"2", L"Caixa grande", 900, 4500},
                                     {L"3", L"Pasta suspensa", 50, {}},
                                     {L"4", L"Tubo para plantas", {}, 40}};
  return InTurn(kTypes, row);
}

}  // namespace kodra::testbed
