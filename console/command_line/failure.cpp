#include "console/command_line/failure.h"

#include <new>

#include "console/command_line/connection_error.h"
#include "console/command_line/error_message.h"
#include "console/command_line/file_error.h"
#include "console/command_line/usage_error.h"

namespace kodra::console {

Failure CurrentFailure(bool withDetails) {
  try {
    throw;
  } catch (const UsageError& error) {
    return {ExitCode::kUsage, error.what()};
  } catch (const FileError& error) {
    return {ExitCode::kFile, error.what()};
  } catch (const ConnectionError& error) {
    return {ExitCode::kConnection, ErrorMessage(error, withDetails)};
  } catch (const Erro& error) {
    return {ExitCode::kReportError, ErrorMessage(error, withDetails)};
  } catch (const std::bad_alloc&) {
    return {ExitCode::kReportError, "faltou memória; feche outros programas ou peça menos linhas"};
  } catch (const std::exception& error) {
    return {ExitCode::kReportError,
            std::string("erro interno: anote o comando usado e avise quem mantém o programa.\nTexto original: ") +
                error.what()};
  }
}

}  // namespace kodra::console
