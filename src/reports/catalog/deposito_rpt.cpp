#include "reports/catalog/deposito_rpt.h"

namespace kodra::reports {
namespace {

constexpr CatalogList kList = {
    .columns = L"NOME, ENDERECO, CIDADE, ESTADO, CEP, TELEFONE, FAX, CONTATO",
    .from = L"DEPOSITO",
    .orderBy = L"NOME",
};

}  // namespace

frame::ReportRows CDepositoRpt::RelatorioDepositos(AutomationObject* obj) {
  return ListWhole(L"RelatorioDepositos", obj, kListStatement<kList>);
}

}  // namespace kodra::reports
