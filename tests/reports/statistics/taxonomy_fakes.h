// The installation's own names for its taxonomy, as the parameter component returns them in tests.
#pragma once

#include <string>
#include <vector>

#include "tests/recorder/fake_surroundings.h"
#include "tests/reports/report_scenario.h"

namespace kodra::reports {

// Makes the parameter component answer with those names.
inline Preparation Naming(Value series, Value subgroup) {
  return [series = std::move(series), subgroup = std::move(subgroup)](recorder::FakeSurroundings& around) {
    const ObjectRef names = around.NewObject(L"Nomes", {{L"Serie", {series}}, {L"Subgrupo", {subgroup}}});
    const ObjectRef set = around.NewObject(L"Conjunto", {{L"Nomes", {names}}});
    around.Register(L"KodraParamSist.Obtedor", {{L"Obtem", {set}}});
  };
}

// The calls that read a name by the object of that number.
inline CallLines NameLines(const Database& database, int object, const std::string& member, const std::string& name) {
  const std::string reader = "Object" + std::to_string(object);
  return {
      R"(CreateObject("KodraParamSist.Obtedor") -> )" + reader,
      reader + ".Let(StringConexao, " + Quoted(database.connectionString) + ")",
      reader + ".Call(Obtem) -> Conjunto",
      "Conjunto.Get(Nomes) -> Nomes",
      "Nomes.Get(" + member + ") -> " + Quoted(name),
      "~" + reader,
  };
}

// The frame around an injected failure in a report that reads names. A parameter component that cannot be made, though
// its class is registered, is a missing object.
inline recorder::Raised NamedOutcome(const Scenario& scenario, const FailedCall& failed,
                                     const InjectedFailure& injected) {
  const bool byTheComponent = injected.caught.source != L"KodraRpt";
  if (byTheComponent && failed.call == "CreateObject(\"KodraParamSist.Obtedor\")")
    return recorder::Framed(scenario.Tested().name,
                            "A variável do objeto ou a variável do bloco 'With' não foi definida");
  return FramedOutcome(scenario, failed, injected);
}

}  // namespace kodra::reports
