#include "siblings/sibling_classes.h"

#include "siblings/obtedor.h"
#include "siblings/str_con.h"

namespace kodra::support {
namespace {

using platform::ObjectRef;
using platform::Surroundings;

constexpr SiblingClass kClasses[] = {
    {L"KodraConexao.StrCon", L"{5C253F7F-52F9-4989-8450-73613DAC1B79}",
     [](Surroundings&) -> ObjectRef { return std::make_shared<StrCon>(); }},
    {L"KodraParamSist.Obtedor", L"{31593D28-2616-41F4-8197-AF8F46B92C11}",
     [](Surroundings& surroundings) -> ObjectRef { return std::make_shared<Obtedor>(surroundings); }},
};

}  // namespace

std::span<const SiblingClass> SiblingClasses() { return kClasses; }

}  // namespace kodra::support
