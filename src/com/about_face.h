// The COM class About.
#pragma once

#include "ado/variant.h"
#include "com/dual_object.h"
#include "com/kodrarpt_h.h"
#include "frame/about.h"

namespace kodra::com {

class AboutFace final : public DualObject<::About, IAbout> {
 public:
  STDMETHODIMP Executavel(BSTR* text) noexcept override {
    return FillAtBoundary(__uuidof(IAbout), text, [&] { return ado::ScopedBstr(about_.Executavel()).detach(); });
  }
  STDMETHODIMP Versao(BSTR* text) noexcept override {
    return FillAtBoundary(__uuidof(IAbout), text, [&] { return ado::ScopedBstr(about_.Versao()).detach(); });
  }

 private:
  frame::About about_{ModulePath(), ModuleSurroundings()};
};

}  // namespace kodra::com
