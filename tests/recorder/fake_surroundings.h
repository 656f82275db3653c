// The surroundings of a native test: they record every call and return the answers that the test prepared.
//
//   FakeSurroundings around;
//   around.Register(L"KodraConexao.StrCon", {{L"TipoBanco", {sql::tbSQLServer}}});
//   around.journal.FailAt(3, Failure(Erro(…)));
//   …
//   EXPECT_EQ(around.journal.Calls(), Lines({…}));
//   EXPECT_EQ(around.journal.LiveObjects(), 0);
//
// It must outlive everything that it creates.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "platform/surroundings.h"
#include "tests/recorder/fake_ado.h"
#include "tests/recorder/fake_object.h"
#include "tests/recorder/journal.h"

namespace kodra::recorder {

// An exception for Journal::FailAt and FailOn.
template <class Exception>
std::exception_ptr Failure(Exception exception) {
  return std::make_exception_ptr(std::move(exception));
}

// An Erro is what a provider, a sibling or a client's object raises.
inline std::exception_ptr Failure(const Erro& erro) { return std::make_exception_ptr(ForeignErro(erro)); }

// The lines as Journal::Calls returns them.
std::string Lines(std::initializer_list<std::string_view> lines);

class FakeSurroundings final : public platform::Surroundings {
 public:
  // Registers a class: each of its objects has these answers. Creating an unregistered class raises error 429.
  void Register(const std::wstring& progId, Answers answers) { classes_[progId] = std::move(answers); }
  // The same for a class whose objects the test creates itself, all with one name.
  using Maker = std::function<ObjectRef(const std::wstring& name)>;
  void RegisterMaker(const std::wstring& progId, std::wstring name, Maker make) {
    makers_[progId] = {std::move(name), std::move(make)};
  }
  // An object that is not created by ProgID, such as a client's parameter object.
  ObjectRef NewObject(std::wstring name, Answers answers) {
    return std::make_shared<FakeObject>(journal, std::move(name), std::move(answers));
  }

  std::unique_ptr<platform::Connection> NewConnection() override;
  std::unique_ptr<platform::Command> NewCommand() override;
  std::unique_ptr<platform::Recordset> NewRecordset() override;
  ObjectRef CreateObject(const std::wstring& progId) override;
  void SetEnvironment(const std::wstring& name, const std::wstring& value) override;
  std::optional<std::uint64_t> FileLength(const std::wstring& path) override;
  bool IsFile(const std::wstring& path) override;

  Journal journal;
  AdoScript ado;
  // The files that exist, with their lengths, and the folders.
  std::map<std::wstring, std::uint64_t> files;
  std::set<std::wstring> folders;

 private:
  struct NamedMaker {
    std::wstring name;
    Maker make;
  };

  std::map<std::wstring, Answers> classes_;
  std::map<std::wstring, NamedMaker> makers_;
};

}  // namespace kodra::recorder
