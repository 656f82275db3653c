// What the catalog listings share: one SELECT over a register, opened as it is.
#pragma once

#include <string>
#include <string_view>

#include "frame/report_class.h"

namespace kodra::reports {

struct CatalogJoin {
  data::JoinKind kind = data::JoinKind::kInner;
  std::wstring_view table = {};
  std::wstring_view condition = {};
};

// The parts of a listing's statement; a part left out has no clause. Joins stand in their order. The texts are the
// caller's: a list is used up before they go.
struct CatalogList {
  std::wstring_view columns = {};
  std::wstring_view from;
  CatalogJoin joins[4] = {};
  std::wstring_view where = {};
  std::wstring_view orderBy;
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
