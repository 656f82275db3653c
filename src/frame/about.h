// What the component tells a client about itself: its version and its file.
#pragma once

#include <string>

#include "platform/surroundings.h"

namespace kodra::frame {

class About {
 public:
  // modulePath: the full path of the component's own file, as the operating system returns it.
  // REQUIRES: surroundings outlives the object.
  About(std::wstring modulePath, platform::Surroundings& surroundings)
      : modulePath_(std::move(modulePath)), surroundings_(surroundings) {}

  // The component's folder and base name with the first of ".EXE", ".DLL", ".OCX" for which such a file exists there;
  // without extension when none does.
  std::wstring Executavel() const;

  // Major, minor and revision, each in decimal, with full stops between them.
  std::wstring Versao() const;

 private:
  std::wstring modulePath_;
  platform::Surroundings& surroundings_;
};

}  // namespace kodra::frame
