#include "console/run/open_report.h"

#include "console/command_line/connection_error.h"
#include "data/abre_cn.h"

namespace kodra::console {
namespace {

bool CanConnect(const std::wstring& connectionString, platform::Surroundings& surroundings) {
  try {
    data::AbreCn(connectionString, platform::ad::kUseServer, 0, surroundings);
    return true;
  } catch (const Erro&) {
    return false;
  }
}

}  // namespace

frame::ReportRows OpenReport(const reports::ReportMethod& method, const std::wstring& connection,
                             frame::ParameterObject& parameters, platform::Surroundings& surroundings) {
  try {
    return method.call(surroundings, connection, &parameters);
  } catch (const Erro& error) {
    if (CanConnect(connection, surroundings)) throw;
    throw ConnectionError(error);
  }
}

}  // namespace kodra::console
