#include "frame/about.h"

#include "frame/version.h"

namespace kodra::frame {

std::wstring About::Executavel() const {
  const std::size_t slash = modulePath_.find_last_of(L"\\/");
  std::wstring folder = slash == std::wstring::npos ? std::wstring() : modulePath_.substr(0, slash);
  const std::wstring file = slash == std::wstring::npos ? modulePath_ : modulePath_.substr(slash + 1);
  if (!folder.ends_with(L'\\')) folder += L'\\';
  std::wstring path = folder + file.substr(0, file.rfind(L'.'));
  for (const wchar_t* extension : {L".EXE", L".DLL", L".OCX"})
    if (surroundings_.IsFile(path + extension)) return path + extension;
  return path;
}

std::wstring About::Versao() const { return L"" KODRA_VERSION_TEXT; }

}  // namespace kodra::frame
