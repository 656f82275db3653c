// KodraParamSist.Obtedor: reads the installation's parameters from its database or from a settings file.
//
// Members: StringConexao and ArquivoIni (texts, read and written), Obtem (method, returns the parameters).
// Obtem reads the PARAMETRO row with CODIGO '1' when StringConexao is set, otherwise the file ArquivoIni (ini_file.h):
//
//   member                       column                   section and key               when absent or null
//   Nomes.Grupo                  NOMEGRUPO                [Nomes] Grupo                 "Grupo"
//   Nomes.Subgrupo               NOMESUBGRUPO             [Nomes] Subgrupo              "Subgrupo"
//   Nomes.Serie                  NOMESERIE                [Nomes] Serie                 "Série"
//   Nomes.Serie_Plural           NOMESERIEPLURAL          [Nomes] Serie_Plural          "Séries"
//   Senha.Minutos_Bloqueio       MINUTOS_BLOQUEIO         [Senha] Minutos_Bloqueio      0
//   Senha.Max_Dias               MAX_DIAS_SENHA           [Senha] Max_Dias              0
//   Senha.Verificar_Qualidade    TESTAR_QUALIDADE_SENHA   [Senha] Verificar_Qualidade   False
//   Usar_Diretorio               USAR_AD                  [Geral] Usar_Diretorio        False
//   Tamanho_Maximo_Importacao    TAMANHO_MAXIMO_ARQUIVO   [Geral] Tamanho_Maximo_...    0 (megabytes)
//
// A flag is true when its text begins with 1, S, T, V or Y in either case, or its number is not zero.
// Errors of Obtem, with source "KodraParamSist.Obtedor::Obtem": neither source set kErrBase + 1, no such file kErrBase
// + 2, no such row kErrBase + 3; a database's own errors are passed on unchanged.
#pragma once

#include <string>

#include "platform/surroundings.h"
#include "siblings/sibling.h"

namespace kodra::siblings {

class Obtedor final : public Sibling<Obtedor> {
 public:
  // REQUIRES: `surroundings` outlives the object.
  explicit Obtedor(platform::Surroundings& surroundings) : surroundings_(surroundings) {}

  static std::span<const Member<Obtedor>> Members();

 private:
  Value Obtem(std::span<const Value> arguments);

  platform::Surroundings& surroundings_;
  std::wstring stringConexao_;
  std::wstring arquivoIni_;
};

}  // namespace kodra::siblings
