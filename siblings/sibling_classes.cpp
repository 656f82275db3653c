#include "siblings/sibling_classes.h"

#include "siblings/conversoes.h"
#include "siblings/fn_log.h"
#include "siblings/modulos_bsn.h"
#include "siblings/modulos_filtro.h"
#include "siblings/obtedor.h"
#include "siblings/obtedor_de_modulos.h"
#include "siblings/obtedor_de_tipos_operadores.h"
#include "siblings/reg_evt_dao.h"
#include "siblings/reg_evt_find.h"
#include "siblings/str_con.h"

namespace kodra::siblings {
namespace {

using platform::Surroundings;

template <class T>
ObjectRef Make(Surroundings&) {
  return std::make_shared<T>();
}

// A class that reads databases.
template <class T>
ObjectRef MakeReader(Surroundings& surroundings) {
  return std::make_shared<T>(surroundings);
}

constexpr SiblingClass kClasses[] = {
    {L"KodraConexao.StrCon", L"{5C253F7F-52F9-4989-8450-73613DAC1B79}", Make<StrCon>},
    {L"KodraParamSist.Obtedor", L"{31593D28-2616-41F4-8197-AF8F46B92C11}", MakeReader<Obtedor>},
    {L"KodraBsnV3.ObtedorDeTiposOperadores", L"{BA3D3EE2-4E99-4AFE-A0FF-F96D9EC3E1DA}", Make<ObtedorDeTiposOperadores>},
    {L"KodraBsnV3.ModulosBsn", L"{09688A78-3EB2-49E8-B0C9-BD8F082CB7BE}", Make<ModulosBsn>},
    {L"KodraBsnV3.ModulosFiltro", L"{583F1FEE-6931-4906-B54F-059131D3FE9D}", Make<ModulosFiltro>},
    {L"KodraBsnV3.ObtedorDeModulos", L"{26481913-43EE-41F3-931D-ECC971364E68}", MakeReader<ObtedorDeModulos>},
    {L"KodraRegEvt.RegEvtFind", L"{B630D5CB-CDB1-41FA-A210-58E497079A76}", Make<RegEvtFind>},
    {L"KodraRegEvt.RegEvtDAO", L"{3744F50C-BAEC-4EE9-B956-8CB2B1E58F9D}", MakeReader<RegEvtDao>},
    {L"VantLog.FnLog", L"{ADC63066-889F-4C78-87C6-74B6F8F21155}", Make<FnLog>},
    {L"VantLib.Conversoes", L"{45C8AEED-A16E-453D-8720-6E7406C70A79}", Make<Conversoes>},
};

}  // namespace

std::span<const SiblingClass> SiblingClasses() { return kClasses; }

}  // namespace kodra::siblings
