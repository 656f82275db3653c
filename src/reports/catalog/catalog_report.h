// What the catalog listings share: one SELECT over a register, opened as it is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/report_class.h"

namespace kodra::reports {

struct CatalogJoin {
  data::JoinKind kind;
  std::wstring table;
  std::wstring condition;
};

// The parts of a listing's statement; a part left out has no clause. Joins stand in their order.
struct CatalogList {
  std::wstring columns;
  std::wstring from;
  std::vector<CatalogJoin> joins = {};
  std::wstring where = {};
  std::wstring orderBy;
};

class CatalogReport : public frame::ReportClass {
 protected:
  using ReportClass::ReportClass;
  using enum data::JoinKind;

  // The statement of a list for the database of this call. REQUIRES: InicializaPS has passed.
  std::wstring Statement(const CatalogList& list) const;

  // A report method that lists a register whole: of the parameter object only its presence is checked.
  frame::ReportRows ListWhole(std::wstring_view method, const platform::AutomationObject* obj, const CatalogList& list);
};

}  // namespace kodra::reports
