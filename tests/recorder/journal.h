// The record of what the component does with the fakes: every call in order with its arguments and its answer, one per
// line, and the number of living fakes. Tests compare the whole text.
//
//   CreateObject("KodraConexao.StrCon") -> Object1
//   Object1.Let(StrCon, "Provider=SQLNCLI11")
//   Object1.Get(TipoBanco) -> 2
//   Connection1.Open("", "", -1) raises
//   ~Object1
#pragma once

#include <cstdint>
#include <exception>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "values/erro.h"
#include "values/utf8.h"
#include "values/value.h"

namespace kodra::recorder {

inline std::string Utf8(std::wstring_view text) { return values::ToUtf8(text); }
inline std::wstring Wide(std::string_view utf8) { return values::FromUtf8(utf8); }

// A value as a line shows it: "text", 5, 1.5, True, Date(45291), Null, Empty, Nothing, an object's name.
std::wstring Shown(const Value& value);

class Journal {
 public:
  // The lines in UTF-8, each with its line end.
  std::string Calls() const;
  // Starts a new journal: no lines and no pending failures; calls and names are counted from 1. Living fakes are still
  // counted.
  void Forget();
  // The number of recorded calls.
  int CallCount() const { return calls_; }
  // The number of living fakes.
  int LiveObjects() const { return live_; }

  // Makes one call fail: the call with that number (from 1 since the last Forget; destructions do not count), or the
  // next one whose line starts with that text.
  void FailAt(int call, std::exception_ptr failure) { failures_.push_back({call, {}, std::move(failure)}); }
  void FailOn(std::wstring start, std::exception_ptr failure) {
    failures_.push_back({0, std::move(start), std::move(failure)});
  }
  // The last call that was made to fail; empty when none was.
  const std::wstring& FailedCall() const { return failedCall_; }

  // For the fakes. Note records a call, or makes it fail when a test requested that; Refuse records a call that the
  // fake itself answers with an error.
  void Note(const std::wstring& call, std::wstring_view answer = {});
  template <class Exception>
  [[noreturn]] void Refuse(const std::wstring& call, const Exception& exception) {
    NoteRefusal(call);
    throw exception;
  }
  // The name of a new fake of a kind: Connection1, Connection2, …
  std::wstring NewName(std::wstring_view kind);
  void Enter() { ++live_; }
  void Leave() { --live_; }
  void NoteEnd(std::wstring_view name) { lines_.push_back(L"~" + std::wstring(name)); }

 private:
  struct Failure {
    int call;
    std::wstring start;
    std::exception_ptr exception;
  };

  void CountCall(const std::wstring& call);
  void NoteRefusal(const std::wstring& call);

  std::vector<std::wstring> lines_;
  std::vector<Failure> failures_;
  std::wstring failedCall_;
  std::map<std::wstring, int, std::less<>> names_;
  int calls_ = 0;
  int live_ = 0;
};

// The base of every fake: it has a name in the journal, and its destruction is recorded.
class Fake {
 public:
  const std::wstring& Name() const { return name_; }

 protected:
  Fake(Journal& journal, std::wstring name) : journal_(journal), name_(std::move(name)) { journal_.Enter(); }
  ~Fake() {
    journal_.NoteEnd(name_);
    journal_.Leave();
  }
  Fake(const Fake&) = delete;
  Fake& operator=(const Fake&) = delete;

  // "Connection1.Open(<arguments>)".
  std::wstring Line(std::wstring_view member, std::initializer_list<std::wstring_view> arguments = {}) const;
  void Note(std::wstring_view member, std::initializer_list<std::wstring_view> arguments = {},
            std::wstring_view answer = {}) {
    journal_.Note(Line(member, arguments), answer);
  }

  Journal& journal_;

 private:
  std::wstring name_;
};

}  // namespace kodra::recorder
