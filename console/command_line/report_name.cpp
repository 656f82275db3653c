#include "console/command_line/report_name.h"

#include <vector>

#include "console/command_line/suggest.h"
#include "console/command_line/usage_error.h"
#include "values/utf8.h"

namespace kodra::console {
namespace {

using reports::ReportMethod;
using values::ToUtf8;

// The name in lower case, without accents, and with the source of an error turned into "classe.metodo".
std::string Normalized(std::string_view name) {
  constexpr std::string_view kComponent = "kodrarpt.";
  std::string folded = Folded(name);
  if (const std::size_t colons = folded.find("::"); colons != std::string::npos) {
    folded[colons] = '.';
    folded.erase(colons + 1, 1);
  }
  return folded.starts_with(kComponent) ? folded.substr(kComponent.size()) : folded;
}

bool HasName(const ReportMethod& method, const std::string& normalized) {
  return normalized == Folded(NameOf(method)) || normalized == Folded(ToUtf8(method.className)) ||
         normalized == Folded(ToUtf8(method.method));
}

// All names that the user may have meant.
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
  const std::string normalized = Normalized(name);
  std::vector<const ReportMethod*> found;
  for (const ReportMethod& method : reports::ReportMethods())
    if (HasName(method, normalized)) found.push_back(&method);
  if (found.size() == 1) return *found.front();
  if (!found.empty()) RaiseAmbiguous(name, found);
  throw UsageError("o relatório \"" + std::string(name) + "\" não existe" + DidYouMean(normalized, KnownNames()) +
                   "; \"kodrarpt lista\" mostra todos");
}

}  // namespace kodra::console
