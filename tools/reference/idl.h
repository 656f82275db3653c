// The classes and members of the public face, read from the component's IDL.
#pragma once

#include <istream>
#include <string>
#include <vector>

namespace kodra::console::reference {

struct Member {
  enum class Kind { kProperty, kReadOnlyProperty, kMethod };

  int id = 0;
  Kind kind = Kind::kMethod;
  std::string name;
  // The IDL's type of a property, or of what a method returns.
  std::string type;
  // The name of a method's argument; empty without one.
  std::string argument;
};

struct Class {
  std::string name;
  bool isCreatable = true;
  std::vector<Member> members;
  // The names of its events.
  std::vector<std::string> events;
};

// In the order of the IDL's coclasses. Raises std::runtime_error for a class whose interface is missing.
std::vector<Class> ReadIdl(std::istream& idl);

}  // namespace kodra::console::reference
