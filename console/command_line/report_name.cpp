#include "console/command_line/report_name.h"

#include <vector>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using reports::ReportMethod;
using values::ToUtf8;

std::string Sought(std::string_view name) {
  constexpr std::string_view kComponent = "kodrarpt.";
  std::string folded = Folded(name);
  if (const std::size_t colons = folded.find("::"); colons != std::string::npos) {
    folded[colons] = '.';
    folded.erase(colons + 1, 1);
  }
  return folded.starts_with(kComponent) ? folded.substr(kComponent.size()) : folded;
}

bool IsNamed(const ReportMethod& method, const std::string& sought) {
  return sought == Folded(NameOf(method)) || sought == Folded(ToUtf8(method.className)) ||
         sought == Folded(ToUtf8(method.method));
}

// All names that a user could have meant.
std::vector<std::string> KnownNames() {
  std::vector<std::string> names;
  for (const ReportMethod& method : reports::ReportMethods()) {
    names.push_back(NameOf(method));
    names.push_back(ToUtf8(method.className));
    names.push_back(ToUtf8(method.method));
  }
  return names;
}

[[noreturn]] void RaiseAmbiguous(std::string_view name, const std::vector<const ReportMethod*>& found) {
  std::string message = "\"" + std::string(name) + "\" pode ser um destes relatórios:";
  for (const ReportMethod* method : found) message += "\n  " + NameOf(*method);
  throw UsageError(message);
}

}  // namespace

std::string NameOf(const ReportMethod& method) { return ToUtf8(method.className) + "." + ToUtf8(method.method); }

const ReportMethod& FindReport(std::string_view name) {
  const std::string sought = Sought(name);
  std::vector<const ReportMethod*> found;
  for (const ReportMethod& method : reports::ReportMethods())
    if (IsNamed(method, sought)) found.push_back(&method);
  if (found.size() == 1) return *found.front();
  if (!found.empty()) RaiseAmbiguous(name, found);
  throw UsageError("não há o relatório \"" + std::string(name) + "\"" + DidYouMean(sought, KnownNames()) +
                   "; \"kodrarpt lista\" mostra todos");
}

}  // namespace kodra::console
