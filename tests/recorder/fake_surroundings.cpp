#include "tests/recorder/fake_surroundings.h"

namespace kodra::recorder {

std::string Lines(std::initializer_list<std::string_view> lines) {
  std::string text;
  for (const std::string_view line : lines) text.append(line).append("\n");
  return text;
}

std::unique_ptr<platform::Connection> FakeSurroundings::NewConnection() {
  std::wstring name = journal.NewName(L"Connection");
  journal.Note(L"NewConnection()", name);
  return std::make_unique<FakeConnection>(journal, std::move(name), ado);
}

std::unique_ptr<platform::Command> FakeSurroundings::NewCommand() {
  std::wstring name = journal.NewName(L"Command");
  journal.Note(L"NewCommand()", name);
  return std::make_unique<FakeCommand>(journal, std::move(name));
}

std::unique_ptr<platform::Recordset> FakeSurroundings::NewRecordset() {
  std::wstring name = journal.NewName(L"Recordset");
  journal.Note(L"NewRecordset()", name);
  return std::make_unique<FakeRecordset>(journal, std::move(name), ado);
}

ObjectRef FakeSurroundings::CreateObject(const std::wstring& progId) {
  const std::wstring call = L"CreateObject(" + Shown(progId) + L")";
  if (const auto maker = makers_.find(progId); maker != makers_.end()) {
    journal.Note(call, maker->second.name);
    return maker->second.make(maker->second.name);
  }
  const auto found = classes_.find(progId);
  if (found == classes_.end()) journal.Refuse(call, MakeRuntimeError(RuntimeError::kCannotCreateObject));
  std::wstring name = journal.NewName(L"Object");
  journal.Note(call, name);
  return NewObject(std::move(name), found->second);
}

void FakeSurroundings::SetEnvironment(const std::wstring& name, const std::wstring& value) {
  journal.Note(L"SetEnvironment(" + Shown(name) + L", " + Shown(value) + L")");
}

std::optional<std::uint64_t> FakeSurroundings::FileLength(const std::wstring& path) {
  std::optional<std::uint64_t> length;
  if (const auto file = files.find(path); file != files.end()) length = file->second;
  if (folders.contains(path)) length = 0;
  journal.Note(L"FileLength(" + Shown(path) + L")", length ? std::to_wstring(*length) : L"none");
  return length;
}

bool FakeSurroundings::IsFile(const std::wstring& path) {
  const bool isFile = files.contains(path);
  journal.Note(L"IsFile(" + Shown(path) + L")", Shown(isFile));
  return isFile;
}

}  // namespace kodra::recorder
