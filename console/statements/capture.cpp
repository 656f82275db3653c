#include "console/statements/capture.h"

#include "console/statements/capturing_surroundings.h"
#include "console/statements/placeholders.h"
#include "values/erro.h"

namespace kodra::console {
namespace {

// It names no database: what some databases need when a connection opens is not part of a report.
constexpr const wchar_t* kConnectionString = L"kodrarpt";

Captured CaptureWith(int rows, const reports::ReportMethod& method, std::int32_t databaseCode,
                     frame::ParameterObject& parameters) {
  CapturingSurroundings surroundings(rows,
                                     [&](const std::wstring& progId) { return NewPlaceholder(progId, databaseCode); });
  method.call(surroundings, kConnectionString, &parameters);
  return std::move(surroundings.captured);
}

}  // namespace

Captured Capture(const reports::ReportMethod& method, std::int32_t databaseCode, frame::ParameterObject& parameters) {
  try {
    return CaptureWith(0, method, databaseCode, parameters);
  } catch (const Erro&) {  // the report needs a row, or fails in any case
    return CaptureWith(1, method, databaseCode, parameters);
  }
}

}  // namespace kodra::console
