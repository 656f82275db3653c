// The rows of the sample archive, one plain structure per table; each member is the column of the same name.
//
// A member that is std::optional is a column that may be null; an empty text is not a null.
// Codes are texts, as the reports compare them; dates have no time zone.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace kodra::testbed {

using Day = std::chrono::sys_days;        // a calendar date
using Moment = std::chrono::sys_seconds;  // a date with its time of day
using Text = std::wstring;
using MaybeText = std::optional<std::wstring>;
using MaybeNumber = std::optional<std::int64_t>;
using MaybeDay = std::optional<Day>;
using MaybeMoment = std::optional<Moment>;
using FiveTexts = std::array<MaybeText, 5>;

struct Parametro {
  Text codigo;  // the installation's own row has '1'
  MaybeText empresa;
  MaybeText nomeGrupo, nomeSubgrupo, nomeSerie, nomeSeriePlural;
  MaybeNumber minutosBloqueio, maxDiasSenha;
  MaybeText testarQualidadeSenha, usarAd;  // 'S' or 'N'
  MaybeNumber tamanhoMaximoArquivo;        // megabytes
};

struct Classe {  // a group
  Text codClasse;
  MaybeText descrClasse, obsClasse;
};

struct Grupo {  // a subgroup
  Text codGrupo;
  MaybeText codClasse, descrGrupo, obsGrupo, idcAtivo;
};

struct Assunto {  // a series
  Text codAssunto;
  MaybeText codGrupo, descrAssunto, obsAssunto;
  MaybeText dono;  // an operator's code
  MaybeText idcAtivo;
  FiveTexts descrChave;
  std::array<MaybeText, 4> obrigatoria;  // of keys 2 to 5; key 1 has no flag
  FiveTexts mask;
};

struct Dicionario {
  Text codPalavra;
  MaybeText codAssunto, descrDicionario;
};

struct Modelo {
  Text codModelo;
  MaybeText codGrupo, codAssunto;
  FiveTexts chave;
  MaybeNumber validade;  // years
};

struct Suporte {
  Text codSuporte;
  MaybeText descrSuporte;
};

struct TipoMidia {
  Text codMidia;
  MaybeText descrMidia;
  MaybeNumber validadeMidia;    // years
  MaybeNumber capacidadeMidia;  // megabytes
};

struct Cd {
  Text numCd;
  MaybeText docInicial, docFinal;
  MaybeDay dataGravacao;
  MaybeText codMidia;
};

struct Depto {
  Text codDepto;
  MaybeText descrDepto, endereco, cidade, estado, cep, endEmail;
};

struct GrupoOperadores {
  Text codGrpop;
  MaybeText descrGrpop, obsGrpop;
};

struct Operador {
  Text codOperador;
  MaybeText descrOperador;  // the login name
  MaybeText nomeCompleto;
  MaybeText tipo;
  MaybeText codDepto, codGrpop, chapa, ramal, idcAtivo;
  MaybeText opcoesPessoais;  // 'APAGADO' marks a deleted operator
};

struct Deposito {
  Text codDeposito;
  MaybeText nome, endereco, cidade, estado, cep, telefone, fax, contato;
};

struct Container {
  Text numContainer;
  MaybeText descContainer;
};

struct TipoCaixa {
  Text codTipoCx;  // '0' is a reserved row
  MaybeText descrTipoCx;
  MaybeNumber numMaxDocs, numMaxFolhas;
};

struct Caixa {    // a storage module
  Text numCaixa;  // 5 characters; 'AA000' contains the documents without a module
  MaybeText descCaixa, obsCaixa, docInicial, docFinal;
  MaybeDay dataVencimento;
  MaybeDay dataFechamento;  // null while the module is open
  MaybeText tipoGuarda;     // 'E', 'T', 'D' or 'P'
  MaybeNumber anosVencimento;
  MaybeText codDepto;
  MaybeNumber docsPregressos;        // 1 selects it for the back-catalogue
  MaybeText coordX, coordY, coordZ;  // row, bookcase, shelf
  MaybeText container;               // a container's number
  MaybeText codDeposito, codTipoCx;
};

struct CaixaSubordinada {
  Text numCaixa;  // of the module that it is part of
  std::int64_t numSeq = 0;
  MaybeText docInicial, docFinal;
  MaybeDay dataVencimento, dataFechamento;
  MaybeText tipoGuarda;
  MaybeNumber anosVencimento;
};

struct Documento {
  Text codDocto;  // 10 digits, ascending in the order of generation
  MaybeText codSuporte, numCaixa, numCd;
  MaybeText codGrupo, codAssunto;  // null while the document is not indexed
  MaybeText codDepto;
  MaybeText codOperador;   // who stored it
  MaybeText codIndexador;  // who indexed it
  MaybeMoment dtArmaz, dataIndexacao;
  MaybeDay dtVenc;
  MaybeNumber frente, verso;  // pages
  FiveTexts descrChave;       // the values of the series' keys
  MaybeText arquivo, extensao, maco, obs;
};

struct Solicitacao {
  std::int64_t codSolicit = 0;
  Text codDocto;
  MaybeText codOperador;
  MaybeText devolvido;  // 'P', 'I', 'D', 'S'
  MaybeMoment dtRetirada, dtDevolucao;
  MaybeText obsSolicit;
};

struct Evento {
  std::int64_t codEvento = 0;
  MaybeMoment dataInicial;
  MaybeText nomeOperador, maquina, codDocto;
  MaybeText tipoEvento;  // three letters
  MaybeText acao;
};

}  // namespace kodra::testbed
