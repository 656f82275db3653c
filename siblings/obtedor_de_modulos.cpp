#include "siblings/obtedor_de_modulos.h"

#include <memory>

#include "siblings/collection.h"
#include "siblings/modulos_bsn.h"
#include "siblings/modulos_filtro.h"

namespace kodra::siblings {
namespace {

// A subordinate module, from its row in CAIXA_SUBORDINADA.
class Subordinado final : public Sibling<Subordinado> {
 public:
  // REQUIRES: the values are in the order of the statement's columns.
  explicit Subordinado(Row row) : row_(std::move(row)) {}

  static std::span<const Member<Subordinado>> Members() {
    static const Member<Subordinado> kMembers[] = {
        ReadOnly<&Subordinado::At<0>>(L"NumCaixa"),       ReadOnly<&Subordinado::At<1>>(L"NumSeq"),
        ReadOnly<&Subordinado::At<2>>(L"DocInicial"),     ReadOnly<&Subordinado::At<3>>(L"DocFinal"),
        ReadOnly<&Subordinado::At<4>>(L"DataVencimento"), ReadOnly<&Subordinado::At<5>>(L"DataFechamento"),
        ReadOnly<&Subordinado::At<6>>(L"TipoGuarda"),     ReadOnly<&Subordinado::At<7>>(L"AnosVencimento"),
    };
    return kMembers;
  }

 private:
  template <std::size_t kColumn>
  Value At() {
    return row_[kColumn];
  }

  Row row_;
};

bool HasModule(const Database& database, const std::wstring& module) {
  const std::wstring statement = L"SELECT c.NUM_CAIXA FROM CAIXA c WHERE c.NUM_CAIXA = " + database.Quoted(module);
  return !database.Read(statement, {L"NUM_CAIXA"}).empty();
}

std::wstring ClosedCondition(std::int32_t closed) {
  if (closed == kClosedModules) return L" AND s.DATA_FECHAMENTO IS NOT NULL";
  if (closed == kOpenModules) return L" AND s.DATA_FECHAMENTO IS NULL";
  return {};
}

}  // namespace

Value ObtedorDeModulos::Find(const std::wstring& module, const std::wstring& condition) const {
  const Database database(surroundings_, stringConexao_, conexao_);
  const std::wstring statement = L"SELECT " + SubordinateCode(database.Code(), L"s") +
                                 L" AS CODIGO, s.NUM_SEQ, s.DOC_INICIAL, s.DOC_FINAL, s.DATA_VENCIMENTO, "
                                 L"s.DATA_FECHAMENTO, s.TIPO_GUARDA, s.ANOS_VENCIMENTO "
                                 L"FROM CAIXA_SUBORDINADA s "
                                 L"WHERE s.NUM_CAIXA = " +
                                 database.Quoted(module) + condition + L" ORDER BY s.NUM_SEQ";
  std::vector<Row> rows =
      database.Read(statement, {L"CODIGO", L"NUM_SEQ", L"DOC_INICIAL", L"DOC_FINAL", L"DATA_VENCIMENTO",
                                L"DATA_FECHAMENTO", L"TIPO_GUARDA", L"ANOS_VENCIMENTO"});
  if (rows.empty() && !HasModule(database, module)) return ObjectRef();
  std::vector<Value> modules;
  modules.reserve(rows.size());
  for (Row& row : rows) modules.emplace_back(ObjectRef(std::make_shared<Subordinado>(std::move(row))));
  return ObjectRef(std::make_shared<Collection>(std::move(modules)));
}

Value ObtedorDeModulos::ObtemSubordinados(std::span<const Value> arguments) {
  AutomationObject& filter = RequiredObject(arguments[0]);
  const std::wstring module = values::ToText(filter.Get(L"NumCaixa"));
  return Find(module, ClosedCondition(values::ToInt32(filter.Get(L"Fechados"))));
}

Value ObtedorDeModulos::ObtemUltimosSubordinadosFechados(std::span<const Value> arguments) {
  return Find(values::ToText(arguments[0]),
              L" AND s.DATA_FECHAMENTO = "
              L"(SELECT MAX(u.DATA_FECHAMENTO) FROM CAIXA_SUBORDINADA u WHERE u.NUM_CAIXA = s.NUM_CAIXA)");
}

std::span<const Member<ObtedorDeModulos>> ObtedorDeModulos::Members() {
  static const Member<ObtedorDeModulos> kMembers[] = {
      Property<&ObtedorDeModulos::stringConexao_>(L"StringConexao"),
      Property<&ObtedorDeModulos::logFile_>(L"LogFile"),
      Reference<&ObtedorDeModulos::conexao_>(L"Conexao"),
      Method<&ObtedorDeModulos::ObtemSubordinados, 1>(L"ObtemSubordinados"),
      Method<&ObtedorDeModulos::ObtemUltimosSubordinadosFechados, 1>(L"ObtemUltimosSubordinadosFechados"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
