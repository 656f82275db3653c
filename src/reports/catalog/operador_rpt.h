// The operators of the archive with their department, group and type, in a recordset made in memory.
#pragma once

#include <vector>

#include "frame/report_class.h"
#include "reports/catalog/operador_obj.h"

namespace kodra::reports {

// Whether a flag of the database stands for yes: its text starts with one of 1, Y, S, T and V, in either case, or with
// the comma of the list that it is looked up in.
bool EhVerdadeiro(const Value& value);

class COperadorRpt : public frame::ReportClass {
 public:
  explicit COperadorRpt(platform::Surroundings& surroundings) : ReportClass(L"COperadorRpt", surroundings) {}

  // Operators marked as deleted are left out; type codes are replaced by their descriptions. Reads no property of the
  // parameter object. Without operators the result is null. An error names the step that failed.
  frame::ReportRows RelatorioOperadores(AutomationObject* obj);

 private:
  std::vector<OperadorObj> ReadOperators() const;
  frame::ReportRows Fill(const std::vector<OperadorObj>& operators, std::wstring& step) const;
  // The description of a type code, asked of a sibling object made for this one question.
  std::wstring ObtemDescricaoTipo(std::wstring_view code) const;
};

}  // namespace kodra::reports
