// What the members of the public classes are for, from the guide: the reference pages and the help texts of the type
// library say the same.
#pragma once

#include <string>
#include <vector>

#include "console/reports/report_methods.h"
#include "frame/parameter_object.h"
#include "tools/reference/idl.h"

namespace kodra::console::reference {

// The report methods of a class, and the parameter class of that name or null.
std::vector<const reports::ReportMethod*> MethodsOf(const std::string& className);
const frame::ParameterClass* ParameterClassOf(const std::string& className);

// The methods that read a property for the same purpose.
struct Use {
  std::vector<const reports::ReportMethod*> methods;
  std::string effect;
};
// What the reports make of a property of a parameter class; empty if none reads it.
std::vector<Use> UsesOf(const frame::ParameterClass& parameterClass, const std::string& property);

// One line about a member, without a full stop: what a method lists, what a property does.
std::string HelpText(const Class& of, const Member& member);
// One line about the event of a class.
extern const char* const kEventText;

// The IDL with the help text of every method, property and event in place of those that it has.
std::string WithHelpTexts(const std::string& idl);

}  // namespace kodra::console::reference
