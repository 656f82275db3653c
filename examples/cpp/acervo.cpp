// Lista os departamentos e imprime a etiqueta de abertura de um módulo.
//
//   acervo.exe "Driver={SQLite3};Database=C:\acervo\acervo.db" AA001
//
// Compile para 32 bits, porque o componente é de 32 bits:
//   cl /EHsc /std:c++17 /utf-8 acervo.cpp ole32.lib oleaut32.lib
//   i686-w64-mingw32-g++ -std=c++17 -municode -static acervo.cpp -lole32 -loleaut32 -luuid -o acervo.exe
// Só usa IDispatch, que todo compilador conhece; com o Visual C++, #import "KodraRpt.dll" gera classes prontas.
// Os testes executam este exemplo no Wine.
#include <windows.h>

#include <comutil.h>
#include <cstdio>
#include <memory>
#include <string>

// O erro de uma chamada, como Err num script: número, origem e descrição.
struct Falha {
  HRESULT numero;
  std::wstring origem;
  std::wstring descricao;
};

// Um objeto de automação, liberado quando a variável deixa de existir. Cada membro é chamado pelo nome.
class Objeto {
 public:
  explicit Objeto(const wchar_t* classe) {
    CLSID id;
    Confere(CLSIDFromProgID(classe, &id), classe);
    IDispatch* criado = nullptr;
    Confere(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, reinterpret_cast<void**>(&criado)),
            classe);
    objeto_.reset(criado);
  }

  _variant_t Le(const wchar_t* propriedade) const { return Invoca(propriedade, DISPATCH_PROPERTYGET, nullptr); }
  void Define(const wchar_t* propriedade, _variant_t valor) { Invoca(propriedade, DISPATCH_PROPERTYPUT, &valor); }
  void Chama(const wchar_t* metodo) { Invoca(metodo, DISPATCH_METHOD, nullptr); }
  // Um membro que devolve outro objeto.
  Objeto Obtem(const wchar_t* propriedade) const { return Objeto(Le(propriedade)); }
  Objeto Obtem(const wchar_t* membro, _variant_t argumento) const {
    return Objeto(Invoca(membro, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &argumento));
  }
  operator _variant_t() const { return _variant_t(objeto_.get()); }

 private:
  struct Libera {
    void operator()(IDispatch* objeto) const { objeto->Release(); }
  };

  explicit Objeto(_variant_t valor) {
    if (valor.vt != VT_DISPATCH || !valor.pdispVal) throw Falha{E_NOINTERFACE, L"acervo", L"Não veio um objeto."};
    objeto_.reset(valor.Detach().pdispVal);
  }

  static void Confere(HRESULT resultado, const wchar_t* onde) {
    if (FAILED(resultado)) throw Falha{resultado, onde, L"O Windows recusou a chamada."};
  }

  _variant_t Invoca(const wchar_t* membro, WORD modo, _variant_t* argumento) const {
    DISPID id;
    auto* nome = const_cast<wchar_t*>(membro);
    Confere(objeto_->GetIDsOfNames(IID_NULL, &nome, 1, LOCALE_USER_DEFAULT, &id), membro);
    DISPID valorNovo = DISPID_PROPERTYPUT;
    const bool define = modo == DISPATCH_PROPERTYPUT;
    DISPPARAMS argumentos = {argumento, define ? &valorNovo : nullptr, argumento ? 1u : 0u, define ? 1u : 0u};
    EXCEPINFO excecao = {};
    _variant_t valor;
    const HRESULT resultado =
        objeto_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, modo, &argumentos, &valor, &excecao, nullptr);
    // Os textos da exceção são nossos: _bstr_t os libera.
    const _bstr_t origem(excecao.bstrSource, false), descricao(excecao.bstrDescription, false);
    SysFreeString(excecao.bstrHelpFile);
    if (resultado == DISP_E_EXCEPTION) throw Falha{excecao.scode, Texto(origem), Texto(descricao)};
    Confere(resultado, membro);
    return valor;
  }

  static std::wstring Texto(const _bstr_t& texto) { return {texto, texto.length()}; }

  std::unique_ptr<IDispatch, Libera> objeto_;
};

// O texto de um campo, lido pelo nome; vazio quando o campo é nulo.
std::wstring Campo(const Objeto& linhas, const wchar_t* nome) {
  const _variant_t valor = linhas.Obtem(L"Fields").Obtem(L"Item", nome).Le(L"Value");
  return valor.vt == VT_NULL ? std::wstring() : std::wstring(_bstr_t(valor));
}

void Escreve(const std::wstring& linha) {
  const int tamanho = WideCharToMultiByte(CP_UTF8, 0, linha.c_str(), -1, nullptr, 0, nullptr, nullptr);
  std::string utf8(tamanho, '\0');
  WideCharToMultiByte(CP_UTF8, 0, linha.c_str(), -1, utf8.data(), tamanho, nullptr, nullptr);
  std::puts(utf8.c_str());
}

void ListaDepartamentos(const wchar_t* conexao) {
  Objeto relatorio(L"KodraRpt.CDeptoRpt");
  relatorio.Define(L"StringConexao", conexao);
  Objeto linhas = relatorio.Obtem(L"RelatorioDeptos", Objeto(L"KodraRpt.CDeptoRptObj"));
  Escreve(L"Departamentos:");
  for (; !bool(linhas.Le(L"EOF")); linhas.Chama(L"MoveNext")) Escreve(L"  " + Campo(linhas, L"DESCR_DEPTO"));
  // O Recordset mantém aberta a conexão com o banco: feche-o assim que terminar.
  linhas.Chama(L"Close");
}

void ImprimeEtiqueta(const wchar_t* conexao, const wchar_t* modulo) {
  Objeto parametros(L"KodraRpt.CCaixaRptObj");
  parametros.Define(L"Modulo1", modulo);
  Objeto relatorio(L"KodraRpt.CCaixaRpt");
  relatorio.Define(L"StringConexao", conexao);
  Objeto linhas = relatorio.Obtem(L"EtiquetaAbertura", parametros);
  Escreve(L"Etiquetas de abertura:");
  // Cada módulo vem duas vezes: são duas etiquetas de abertura.
  for (; !bool(linhas.Le(L"EOF")); linhas.Chama(L"MoveNext")) {
    Escreve(L"  " + Campo(linhas, L"NUM_CAIXA") + L" | " + Campo(linhas, L"DESC_CAIXA") + L" | guarda " +
            Campo(linhas, L"TIPO_GUARDA") + L" | anos " + Campo(linhas, L"ANOS_VENCIMENTO"));
  }
  linhas.Chama(L"Close");
}

int wmain(int quantos, wchar_t** argumentos) {
  SetConsoleOutputCP(CP_UTF8);
  if (quantos != 3) {
    Escreve(L"Uso: acervo.exe CONEXÃO MÓDULO");
    return 2;
  }
  if (FAILED(CoInitialize(nullptr))) return 1;
  int resultado = 0;
  try {
    ListaDepartamentos(argumentos[1]);
    ImprimeEtiqueta(argumentos[1], argumentos[2]);
  } catch (const Falha& falha) {
    Escreve(L"Erro " + std::to_wstring(falha.numero) + L" em " + falha.origem + L": " + falha.descricao);
    resultado = 1;
  }
  CoUninitialize();
  return resultado;
}
