// The table of the parameter classes: their properties as the IDL declares them, with what the IDL cannot express.
#include <algorithm>

#include "frame/parameter_object.h"

namespace kodra::frame {
namespace {

using enum PropertyRule;

// The rule of a property by its type in the IDL.
constexpr PropertyRule kRuleOfBSTR = kText;
constexpr PropertyRule kRuleOfDATE = kDate;
constexpr PropertyRule kRuleOfVARIANT_BOOL = kFlag;

// A text property that changes some texts on assignment, or does not start empty.
struct SpecialText {
  std::wstring_view className;
  Property property;
};
constexpr SpecialText kSpecialTexts[] = {
    {L"CEstatSerieRptObj", {L"TipoRpt", kInitial}},
    {L"CCDRptObj", {L"TipoRpt", kInitial}},
    {L"CModeloRptObj", {L"CodModelo", kTrimmed}},
    {L"CEstatImgRptObj", {L"CodOperador", kTrimmed}},
    {L"CEstatImgRptObj", {L"CodDepto", kTrimmed}},
    {L"CEstatImgRptObj", {L"TipoRpt", kInitial}},
    {L"CEstatIndexRptObj", {L"CodOperador", kTrimmed}},
    {L"CEstatIndexRptObj", {L"CodDepto", kTrimmed}},
    {L"CEstatSuporteRptObj", {L"TipoRpt", kInitial}},
    {L"CEstatSubgrupoRptObj", {L"TipoRpt", kInitial}},
    {L"CCaixaRptObj", {L"Ordenacao", kInitial, L"N"}},  // by module number
    {L"CCaixaRptObj", {L"Tipo", kInitial}},
};

constexpr Property PropertyOf(std::wstring_view className, std::wstring_view name, PropertyRule ruleOfType) {
  for (const SpecialText& special : kSpecialTexts)
    if (ruleOfType == kText && special.className == className && special.property.name == name) return special.property;
  return {name, ruleOfType};
}

// The properties of each class.
#define KODRA_PARAMETER_CLASS(NAME, PROPERTIES) constexpr Property k##NAME[] = {PROPERTIES};
#define KODRA_PARAMETER_PROPERTY(CLASS, NAME, TYPE) PropertyOf(L## #CLASS, L## #NAME, kRuleOf##TYPE),
#include "idl/public_classes.def"

constexpr ParameterClass kClasses[] = {
#define KODRA_PARAMETER_CLASS(NAME, PROPERTIES) {L## #NAME, k##NAME},
#include "idl/public_classes.def"
};

constexpr bool IsInItsClass(const SpecialText& special) {
  const auto* const found = std::ranges::find(kClasses, special.className, &ParameterClass::name);
  return found != std::end(kClasses) && std::ranges::any_of(found->properties, [&](const Property& property) {
           return property.name == special.property.name && property.rule == special.property.rule;
         });
}
static_assert(std::ranges::all_of(kSpecialTexts, IsInItsClass),
              "kSpecialTexts has a property that is no text property of its class in the IDL");

}  // namespace

std::span<const ParameterClass> ParameterClasses() { return kClasses; }

const ParameterClass& ParameterClassNamed(std::wstring_view name) {
  return *std::ranges::find(kClasses, name, &ParameterClass::name);
}

}  // namespace kodra::frame
