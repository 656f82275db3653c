// The state that a client's report object keeps between two calls: its connection string.
//
// It keeps no connection, recordset or database code. One object is used by one thread at a time.
#pragma once

#include <string>
#include <string_view>

#include "platform/surroundings.h"

namespace kodra::frame {

class ReportObject {
 public:
  // REQUIRES: className is a literal and surroundings outlives the object.
  ReportObject(std::wstring_view className, platform::Surroundings& surroundings)
      : className_(className), surroundings_(surroundings) {}
  ReportObject(const ReportObject&) = delete;
  ReportObject& operator=(const ReportObject&) = delete;

  std::wstring_view ClassName() const { return className_; }
  platform::Surroundings& Around() const { return surroundings_; }

  const std::wstring& StringConexao() const { return stringConexao_; }
  // Stored unchanged; each report call checks it.
  void SetStringConexao(std::wstring text) { stringConexao_ = std::move(text); }

 private:
  std::wstring_view className_;
  platform::Surroundings& surroundings_;
  std::wstring stringConexao_;
};

}  // namespace kodra::frame
