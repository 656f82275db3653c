// The COM class About.
#pragma once

#include "com/dual_object.h"
#include "com/kodrarpt_h.h"
#include "frame/about.h"
#include "platform/windows/variant.h"

namespace kodra::com {

class AboutFace final : public DualObject<::About, IAbout> {
 public:
  STDMETHODIMP Executavel(BSTR* text) noexcept override {
    return FillAtBoundary(__uuidof(IAbout), text,
                          [&] { return platform::windows::ScopedBstr(about_.Executavel()).detach(); });
  }
  STDMETHODIMP Versao(BSTR* text) noexcept override {
    return FillAtBoundary(__uuidof(IAbout), text,
                          [&] { return platform::windows::ScopedBstr(about_.Versao()).detach(); });
  }

 private:
  frame::About about_{ModulePath(), ModuleSurroundings()};
};

}  // namespace kodra::com
