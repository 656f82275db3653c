// Opening the ADO connection that a report reads through.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/surroundings.h"

namespace kodra::data {

// Opens a connection on a copy of the connection string that PreAbreCn prepared; an Oracle session is set to Brazilian
// Portuguese. A cursor location below ad::kUseServer counts as ad::kUseServer, isolation level 0 as
// ad::kXactReadCommitted. An empty string returns null. Raises what fails with its own number, source "modADO.AbreCn"
// and the former source before the description.
std::unique_ptr<platform::Connection> AbreCn(const std::wstring& connectionString, std::int32_t cursorLocation,
                                             std::int32_t isolationLevel, platform::Surroundings& surroundings);

}  // namespace kodra::data
