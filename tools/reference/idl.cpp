#include "tools/reference/idl.h"

#include <map>
#include <regex>
#include <stdexcept>

namespace kodra::console::reference {
namespace {

// The IDL has one declaration on each line.
const std::regex kInterface(R"(\s*(?:disp)?interface (\w+)(?: : IDispatch)?)");
const std::regex kMember(R"(\s*\[id\((\d+)\)(?:, (prop\w+))?(?:, helpstring\("[^"]*"\))?\] \w+ (\w+)\((.*)\);)");
const std::regex kAttributes(R"(\s*\[uuid\([^)]*\)(.*)\])");
const std::regex kCoclass(R"(\s*coclass (\w+))");
const std::regex kUse(R"(\s*\[default(, source)?\] (?:disp)?interface (\w+);)");
const std::regex kResult(R"(\[out, retval\] (\w+)(\**) \w+)");
const std::regex kArgument(R"(^\[in\] [\w*]+ (\w+), )");

// The type that a method returns: that of its out parameter, without its stars.
std::string ResultOf(const std::string& arguments) {
  std::smatch match;
  return std::regex_search(arguments, match, kResult) ? match[1].str() : std::string();
}

Member ReadMember(const std::smatch& match) {
  Member member;
  member.id = std::stoi(match[1]);
  member.name = match[3];
  member.kind = match[2].matched ? Member::Kind::kReadOnlyProperty : Member::Kind::kMethod;
  const std::string arguments = match[4];
  member.type = ResultOf(arguments);
  std::smatch argument;
  if (std::regex_search(arguments, argument, kArgument)) member.argument = argument[1];
  return member;
}

using Interfaces = std::map<std::string, std::vector<Member>>;

// A property is one member, whether it is read-only or not.
void Add(std::vector<Member>& members, const std::smatch& match) {
  const std::string accessor = match[2];
  if (accessor == "propput" || accessor == "propputref")
    members.back().kind = Member::Kind::kProperty;
  else
    members.push_back(ReadMember(match));
}

void Use(Class& into, const std::smatch& match, const Interfaces& interfaces) {
  const auto found = interfaces.find(match[2]);
  if (found == interfaces.end()) throw std::runtime_error("a IDL não declara a interface " + match[2].str());
  if (!match[1].matched) {
    into.members = found->second;
    return;
  }
  for (const Member& event : found->second) into.events.push_back(event.name);
}

}  // namespace

std::vector<Class> ReadIdl(std::istream& idl) {
  std::vector<Class> classes;
  Interfaces interfaces;
  std::vector<Member>* open = nullptr;
  bool isCreatable = true;
  std::smatch match;
  for (std::string line; std::getline(idl, line);) {
    if (std::regex_match(line, match, kInterface)) {
      open = &interfaces[match[1]];
    } else if (std::regex_match(line, match, kMember)) {
      Add(*open, match);
    } else if (std::regex_match(line, match, kAttributes)) {
      isCreatable = match[1].str().find("noncreatable") == std::string::npos;
    } else if (std::regex_match(line, match, kCoclass)) {
      classes.push_back({match[1], isCreatable, {}, {}});
    } else if (std::regex_match(line, match, kUse)) {
      Use(classes.back(), match, interfaces);
    }
  }
  return classes;
}

}  // namespace kodra::console::reference
