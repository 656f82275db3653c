// Opening the recordset that a report hands to its client: read once, from the first row to the last.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/surroundings.h"

namespace kodra::data {

// Opens a server-side, forward-only, read-only recordset with a cache of 100 rows.
// - source: an SQL text, or a command that has its connection, text and parameters (the connection string is then
//   not used). A source left out opens nothing and returns the unopened recordset.
// - options: the Options argument of Recordset.Open; reports pass ad::kCmdText.
// - connection: the caller's own; null with an SQL text means that one is opened on the connection string into it.
// Raises what fails with its own number, source "modADO.AbreFirehoseRs", the former source before the description and,
// where the provider reported a positive native code, " [N:" + code + "]" after it.
std::unique_ptr<platform::Recordset> AbreFirehoseRs(const platform::RecordsetSource& source,
                                                    const std::wstring& connectionString, std::int32_t options,
                                                    std::unique_ptr<platform::Connection>& connection,
                                                    platform::Surroundings& surroundings);

}  // namespace kodra::data
