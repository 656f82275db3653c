// What a private server and the nodes of a private cluster have in common: folders, accounts, system tables, and the
// client program that administers them. Failures raise std::runtime_error.
#pragma once

#include <sys/types.h>

#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kodra::testbed {

// A password that nobody knows. All begin alike; the test runs search their logs for this beginning.
std::string NewPassword();

// The whole file.
std::string Contents(const std::string& path);
// A new file that only this program's user may read.
std::ofstream PrivateFile(const std::string& path);

// The standard library converts UTF-8 to wide text through std::filesystem.
std::wstring Wide(const std::string& utf8);
std::string Utf8(std::wstring_view text);

// The path of mariadbd, and the name of MariaDB's driver in the driver manager.
std::string ServerProgram();
std::wstring DriverName();

// The user and group that servers run as: one without an account when this program is root's, nothing otherwise.
std::optional<uid_t> ServersUser();

// A new folder among the temporary ones, which only this program's user can enter.
std::string NewFolder(const std::string& name);
// Lets the servers' user pass through to a folder of its own, but neither list nor change this one.
void AdmitServer(const std::string& folder, std::optional<uid_t> user);
// A folder that belongs to the servers' user alone, with "data", "temporary" and "files" for one server.
void MakeServerFolder(const std::string& folder, std::optional<uid_t> user);

// The statements that make the administrator's account, for MakeSystemTables.
std::string AccountOfRoot(const std::string& password);
// Makes the system tables and accounts: runs a server that reads statements from its input, at least one per line, and
// ends. `folder` is for files that the server's user cannot read.
void MakeSystemTables(const std::vector<std::string>& bootstrapCommand, const std::string& folder,
                      std::optional<uid_t> user, const std::string& accounts);

// The beginning of an option file of the client program.
std::string ClientOptions(const std::string& user, const std::string& password);
// Runs the client program with its input from a file and returns what it prints, which it writes to `output`.
std::string RunClient(const std::vector<std::string>& options, const std::string& input, const std::string& output);

}  // namespace kodra::testbed
