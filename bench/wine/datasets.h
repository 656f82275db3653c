// The two datasets that reports fill row by row, filled without the component: the same calls to the siblings, the same
// fields, and nothing between.
#pragma once

#include <string>

#include "bench/wine/com.h"

namespace kodra::bench {

// RelatorioLog without any filter: zero dates, every text empty.
com_ptr<_Recordset> BareLog(const std::wstring& connectionString);

// RelatorioOperadores; `prepared` and `statement` are what the component opens.
com_ptr<_Recordset> BareOperators(const std::wstring& connectionString, const std::wstring& prepared,
                                  const std::wstring& statement);

// The statement of RelatorioOperadores, whose rows never leave the component.
extern const wchar_t* const kOperatorsStatement;

}  // namespace kodra::bench
