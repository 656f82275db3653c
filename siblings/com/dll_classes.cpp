#include "siblings/com/dll_classes.h"

#include <memory>
#include <vector>

#include "siblings/com/ouvinte.h"

namespace kodra::siblings {
namespace {

constexpr SiblingClass kOuvinte = {L"KodraSuporte.Ouvinte", L"{33026BDD-B9F0-4566-A757-472D457829AB}",
                                   [](platform::Surroundings&) -> ObjectRef { return std::make_shared<Ouvinte>(); }};

std::vector<SiblingClass> AllClasses() {
  const auto siblings = SiblingClasses();
  std::vector<SiblingClass> classes(siblings.begin(), siblings.end());
  classes.push_back(kOuvinte);
  return classes;
}

}  // namespace

std::span<const SiblingClass> DllClasses() {
  static const std::vector<SiblingClass> classes = AllClasses();
  return classes;
}

}  // namespace kodra::siblings
