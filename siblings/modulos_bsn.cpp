#include "siblings/modulos_bsn.h"

#include "sql/tipo_banco.h"

namespace kodra::siblings {

std::wstring SubordinateCode(std::int32_t databaseCode, std::wstring_view alias) {
  const std::wstring prefix = alias.empty() ? std::wstring() : std::wstring(alias) + L".";
  const std::wstring parent = prefix + L"NUM_CAIXA";
  const std::wstring number = prefix + L"NUM_SEQ";
  switch (databaseCode) {
    case sql::tbOracle:
    case sql::tbOracleAlt:
      return parent + L" || LPAD(TO_CHAR(" + number + L"), 2, '0')";
    case sql::tbSQLServer:
      return parent + L" + RIGHT('0' + CAST(" + number + L" AS VARCHAR(10)), 2)";
    case sql::tbMySQL:
      return L"CONCAT(" + parent + L", LPAD(" + number + L", 2, '0'))";
    case sql::tbDB2:
      // DIGITS pads with zeros to the width of the number's type: ten digits of an INTEGER.
      return parent + L" || SUBSTR(DIGITS(INTEGER(" + number + L")), 9)";
    case sql::tbSQLite:
      return parent + L" || substr('0' || " + number + L", -2)";
    default:
      throw ForeignErro(kErrBase + 1, L"KodraBsnV3.ModulosBsn::NumCxSubordinadaSQL",
                        L"Não há entrada para o banco tipo " + std::to_wstring(databaseCode));
  }
}

Value ModulosBsn::NumCxSubordinadaSQL(std::span<const Value> arguments) {
  return SubordinateCode(values::ToInt32(arguments[0]), values::ToText(arguments[1]));
}

std::span<const Member<ModulosBsn>> ModulosBsn::Members() {
  static const Member<ModulosBsn> kMembers[] = {
      Property<&ModulosBsn::stringConexao_>(L"StringConexao"),
      Property<&ModulosBsn::logFile_>(L"LogFile"),
      Reference<&ModulosBsn::conexao_>(L"Conexao"),
      Method<&ModulosBsn::NumCxSubordinadaSQL, 2>(L"NumCxSubordinadaSQL"),
  };
  return kMembers;
}

}  // namespace kodra::siblings
