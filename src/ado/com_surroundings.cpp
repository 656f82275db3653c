#include "ado/com_surroundings.h"

#include "ado/ado_objects.h"
#include "ado/automation_object.h"
#include "ado/variant.h"

namespace kodra::ado {

using comkit::com_ptr;

namespace {

// Makes an in-process or local object from the class id that the registry has for its ProgID.
HRESULT Create(const wchar_t* progId, REFIID iid, void** object) {
  CLSID classId;
  const HRESULT hr = CLSIDFromProgID(progId, &classId);
  return FAILED(hr) ? hr : CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, iid, object);
}

// What a creation failure means to a client: of the many reasons why a class may be unavailable, only exhausted memory
// and refused access are errors of their own.
Erro CreationError(HRESULT hr) {
  switch (hr) {
    case E_OUTOFMEMORY:
    case HRESULT_FROM_WIN32(ERROR_NOT_ENOUGH_MEMORY):
    case E_ACCESSDENIED:
    case RPC_E_ACCESS_DENIED:
      return ErrorOf(hr, nullptr, IID_NULL);
    default:
      return MakeRuntimeError(RuntimeError::kCannotCreateObject);
  }
}

template <class T>
com_ptr<T> CreateAs(const wchar_t* progId) {
  com_ptr<T> object;
  const HRESULT hr = Create(progId, __uuidof(T), object.put_void());
  if (FAILED(hr) || !object) throw CreationError(hr);
  return object;
}

// The attributes of the file or folder at a path; nothing when there is neither.
std::optional<WIN32_FILE_ATTRIBUTE_DATA> AttributesOf(const std::wstring& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (path.empty() || !GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data)) return std::nullopt;
  return data;
}

bool IsFolder(const WIN32_FILE_ATTRIBUTE_DATA& data) { return (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

}  // namespace

std::unique_ptr<platform::Connection> ComSurroundings::NewConnection() {
  return std::make_unique<AdoConnection>(CreateAs<_Connection>(L"ADODB.Connection"));
}

std::unique_ptr<platform::Command> ComSurroundings::NewCommand() {
  return std::make_unique<AdoCommand>(CreateAs<_Command>(L"ADODB.Command"));
}

std::unique_ptr<platform::Recordset> ComSurroundings::NewRecordset() {
  return std::make_unique<AdoRecordset>(CreateAs<_Recordset>(L"ADODB.Recordset"));
}

ObjectRef ComSurroundings::CreateObject(const std::wstring& progId) {
  return WrapDispatch(CreateAs<IDispatch>(progId.c_str()).get());
}

void ComSurroundings::SetEnvironment(const std::wstring& name, const std::wstring& value) {
  SetEnvironmentVariableW(name.c_str(), value.c_str());
}

std::optional<std::uint64_t> ComSurroundings::FileLength(const std::wstring& path) {
  const auto data = AttributesOf(path);
  if (!data) return std::nullopt;
  if (IsFolder(*data)) return 0;
  return (static_cast<std::uint64_t>(data->nFileSizeHigh) << 32U) | data->nFileSizeLow;
}

bool ComSurroundings::IsFile(const std::wstring& path) {
  const auto data = AttributesOf(path);
  return data && !IsFolder(*data);
}

}  // namespace kodra::ado
