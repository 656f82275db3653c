#include "siblings/obtedor.h"

#include <algorithm>
#include <array>
#include <memory>

#include "siblings/database.h"
#include "siblings/ini_file.h"
#include "siblings/value_object.h"

namespace kodra::siblings {
namespace {

enum class Kind { kText, kNumber, kFlag };

struct Parameter {
  std::wstring_view column, section, member;
  Kind kind;
  std::wstring_view whenAbsent;  // of a text
};

constexpr std::wstring_view kNames = L"Nomes";
constexpr std::wstring_view kPassword = L"Senha";
constexpr std::wstring_view kGeneral = L"Geral";  // in the object itself, not in a part of it

constexpr Parameter kParameters[] = {
    {L"NOMEGRUPO", kNames, L"Grupo", Kind::kText, L"Grupo"},
    {L"NOMESUBGRUPO", kNames, L"Subgrupo", Kind::kText, L"Subgrupo"},
    {L"NOMESERIE", kNames, L"Serie", Kind::kText, L"Série"},
    {L"NOMESERIEPLURAL", kNames, L"Serie_Plural", Kind::kText, L"Séries"},
    {L"MINUTOS_BLOQUEIO", kPassword, L"Minutos_Bloqueio", Kind::kNumber, {}},
    {L"MAX_DIAS_SENHA", kPassword, L"Max_Dias", Kind::kNumber, {}},
    {L"TESTAR_QUALIDADE_SENHA", kPassword, L"Verificar_Qualidade", Kind::kFlag, {}},
    {L"USAR_AD", kGeneral, L"Usar_Diretorio", Kind::kFlag, {}},
    {L"TAMANHO_MAXIMO_ARQUIVO", kGeneral, L"Tamanho_Maximo_Importacao", Kind::kNumber, {}},
};

// The values as their source contains them, in the order of kParameters; Empty or Null where it has none.
using RawValues = std::array<Value, std::size(kParameters)>;

ForeignErro Failure(std::int32_t number, std::wstring description) {
  return {kErrBase + number, L"KodraParamSist.Obtedor::Obtem", std::move(description)};
}

RawValues FromDatabase(platform::Surroundings& surroundings, const std::wstring& connectionString) {
  std::vector<std::wstring_view> columns;
  std::wstring list;
  for (const Parameter& parameter : kParameters) {
    list += (columns.empty() ? L"" : L", ") + std::wstring(parameter.column);
    columns.push_back(parameter.column);
  }
  const std::vector<Row> rows =
      Database(surroundings, connectionString).Read(L"SELECT " + list + L" FROM PARAMETRO WHERE CODIGO = '1'", columns);
  if (rows.empty()) throw Failure(3, L"Parâmetros do sistema não encontrados no banco de dados.");
  RawValues values;
  std::copy(rows.front().begin(), rows.front().end(), values.begin());
  return values;
}

RawValues FromFile(const std::wstring& path) {
  const auto file = IniFile::Read(path);
  if (!file) throw Failure(2, L"Arquivo INI \"" + path + L"\" não encontrado.");
  RawValues values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (const auto text = file->Find(kParameters[i].section, kParameters[i].member)) values[i] = *text;
  }
  return values;
}

bool IsAbsent(const Value& value) {
  const bool blank = value.Is<std::wstring>() && value.As<std::wstring>().empty();
  return blank || value.Is<Empty>() || value.Is<Null>();
}

bool IsYes(const Value& value) {
  if (!value.Is<std::wstring>()) return values::ToInt32(value) != 0;
  const std::wstring first = values::FirstUpper(value.As<std::wstring>());
  return !first.empty() && std::wstring_view(L"1STVY").find(first) != std::wstring_view::npos;
}

Value Converted(const Parameter& parameter, const Value& raw) {
  const bool absent = IsAbsent(raw);
  switch (parameter.kind) {
    case Kind::kText:
      return absent ? Value(parameter.whenAbsent) : Value(values::ToText(raw));
    case Kind::kNumber:
      return absent ? 0 : values::ToInt32(raw);
    case Kind::kFlag:
      return !absent && IsYes(raw);
  }
  return {};
}

ObjectRef AsObject(const RawValues& values) {
  std::vector<ValueObject::Entry> names, password, whole;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Parameter& parameter = kParameters[i];
    auto& part = parameter.section == kNames ? names : parameter.section == kPassword ? password : whole;
    part.emplace_back(parameter.member, Converted(parameter, values[i]));
  }
  whole.emplace_back(kNames, ObjectRef(std::make_shared<ValueObject>(std::move(names))));
  whole.emplace_back(kPassword, ObjectRef(std::make_shared<ValueObject>(std::move(password))));
  return std::make_shared<ValueObject>(std::move(whole));
}

}  // namespace

Value Obtedor::Obtem(std::span<const Value> /*arguments*/) {
  if (!stringConexao_.empty()) return AsObject(FromDatabase(surroundings_, stringConexao_));
  if (!arquivoIni_.empty()) return AsObject(FromFile(arquivoIni_));
  throw Failure(1, L"É preciso definir \"StringConexao\" ou \"ArquivoIni\".");
}

std::span<const Member<Obtedor>> Obtedor::Members() {
  static const Member<Obtedor> kMembers[] = {
      Property<&Obtedor::stringConexao_>(L"StringConexao"),
      Property<&Obtedor::arquivoIni_>(L"ArquivoIni"),
      Method<&Obtedor::Obtem, 0>(L"Obtem"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
