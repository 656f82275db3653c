// A platform that answers at once and does nothing, and a stopwatch that runs only while the component itself works.
//
// Every call that the component makes to the platform or the client's parameter object stops the watch until it
// returns. A sibling stops it from the moment when it is made or assigned something until it answers. The watch
// restarts when the connection component has returned the database code, when a system parameter or a count was read,
// and when rows were read or written: its time when a statement arrives is the component's own time for that statement.
#pragma once

#include <string>
#include <vector>

#include "bench/native/watch.h"
#include "platform/surroundings.h"

namespace kodra::bench {

class NullPlatform final : public platform::Surroundings {
 public:
  NullPlatform();

  // The code that the connection component returns.
  std::int32_t code = 0;
  Watch watch;
  // The seconds that the component took itself for each statement that has arrived.
  std::vector<double> times;

  void StatementArrives() { times.push_back(watch.Own()); }

  std::unique_ptr<platform::Connection> NewConnection() override;
  std::unique_ptr<platform::Command> NewCommand() override;
  std::unique_ptr<platform::Recordset> NewRecordset() override;
  ObjectRef CreateObject(const std::wstring& progId) override;
  void SetEnvironment(const std::wstring& name, const std::wstring& value) override;
  std::optional<std::uint64_t> FileLength(const std::wstring& path) override;
  bool IsFile(const std::wstring& path) override;

 private:
  // All siblings in one.
  std::unique_ptr<AutomationObject> sibling_;
};

// The client's parameter object: returns its values with the watch stopped.
class ClientParameters final : public AutomationObject {
 public:
  ClientParameters(AutomationObject& values, Watch& watch) : values_(values), watch_(watch) {}

  Value Get(std::wstring_view member) override;
  void Let(std::wstring_view member, const Value& value) override { values_.Let(member, value); }
  void Set(std::wstring_view member, const ObjectRef& object) override { values_.Set(member, object); }
  Value Call(std::wstring_view member, std::span<const Value> arguments) override {
    return values_.Call(member, arguments);
  }

 private:
  AutomationObject& values_;
  Watch& watch_;
};

}  // namespace kodra::bench
