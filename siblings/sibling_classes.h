// The sibling components by ProgID, as one table: the native registry, the Windows registry and the class factory of
// the DLL are all made from it.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/surroundings.h"
#include "values/automation.h"

namespace kodra::siblings {

struct SiblingClass {
  std::wstring_view progId;
  std::wstring_view clsid;  // "{…}", which never changes
  // Where the object reads databases, it uses the surroundings, which must outlive it.
  ObjectRef (*create)(platform::Surroundings& surroundings);
};

std::span<const SiblingClass> SiblingClasses();

// Registers every sibling in a registry of factories: anything with Register(progId, function that makes the object).
//
//   odbc::Surroundings machine;
//   RegisterSiblings(machine, machine);
//
// REQUIRES: `surroundings` outlives the registry and every object that it makes.
template <class Registry>
void RegisterSiblings(Registry& registry, platform::Surroundings& surroundings) {
  for (const SiblingClass& entry : SiblingClasses()) {
    registry.Register(std::wstring(entry.progId),
                      [create = entry.create, &surroundings] { return create(surroundings); });
  }
}

// The same for a registry that is itself the surroundings.
template <class Registry>
void RegisterSiblings(Registry& registry) {
  RegisterSiblings(registry, registry);
}

}  // namespace kodra::siblings
