// KodraSuporte.Ouvinte: lets a script receive the events of an object when the script host has no events of its own.
//
//   Class Tela
//     Public Sub DebugLog(texto)
//       WScript.Echo texto
//     End Sub
//   End Class
//   Set ouvinte = CreateObject("KodraSuporte.Ouvinte")
//   ouvinte.Conecta relatorio, New Tela
//
// Members: Conecta (method: the source, the listener), Desconecta (method). Each event of the source's default outgoing
// interface calls the listener's method of the same name; an event without one is ignored. A second Conecta ends the
// first connection; so do Desconecta and the object's end. Conecta raises kErrBase + 1 for a source without events.
#pragma once

#include "comkit/automation_headers.h"
#include "comkit/com_ptr.h"
#include "siblings/sibling.h"

namespace kodra::siblings {

class Ouvinte final : public Sibling<Ouvinte> {
 public:
  Ouvinte() = default;
  Ouvinte(const Ouvinte&) = delete;
  Ouvinte& operator=(const Ouvinte&) = delete;
  ~Ouvinte() override { Disconnect(); }

  static std::span<const Member<Ouvinte>> Members();

 private:
  Value Conecta(std::span<const Value> arguments);
  Value Desconecta(std::span<const Value> arguments);
  void Disconnect() noexcept;

  comkit::com_ptr<IConnectionPoint> point_;  // null while not connected
  DWORD cookie_ = 0;
};

}  // namespace kodra::siblings
