// The COM class About.
#pragma once

#include "com/dual_object.h"
#include "com/kodrarpt_h.h"
#include "com/module_surroundings.h"
#include "comkit/bstr.h"
#include "frame/about.h"

namespace kodra::com {

class AboutFace final : public DualObject<::About, IAbout> {
 public:
  STDMETHODIMP Executavel(BSTR* text) noexcept override {
    return FillAtBoundary(__uuidof(IAbout), text, [&] { return comkit::ScopedBstr(about_.Executavel()).detach(); });
  }
  STDMETHODIMP Versao(BSTR* text) noexcept override {
    return FillAtBoundary(__uuidof(IAbout), text, [&] { return comkit::ScopedBstr(about_.Versao()).detach(); });
  }

 private:
  frame::About about_{comkit::ModulePath(), ModuleSurroundings()};
};

}  // namespace kodra::com
