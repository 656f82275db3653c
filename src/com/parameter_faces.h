// The COM classes of the parameter objects, in the type library's order.
#pragma once

#include "com/kodrarpt_h.h"
#include "com/parameter_face.h"

namespace kodra::com {

// A get/let pair of the dual interface. TYPE is the property's automation type.
#define KODRA_PROPERTY(NAME, TYPE)                                                                  \
  STDMETHODIMP get_##NAME(TYPE* value) noexcept override { return members_.Get(L## #NAME, value); } \
  STDMETHODIMP put_##NAME(TYPE value) noexcept override { return members_.Let(L## #NAME, value); }

class CEstatSerieRptObjFace final : public ParameterFace<::CEstatSerieRptObj, ICEstatSerieRptObj> {
 public:
  CEstatSerieRptObjFace() : ParameterFace(L"CEstatSerieRptObj") {}
  KODRA_PROPERTY(DataInicial, DATE)
  KODRA_PROPERTY(DataFinal, DATE)
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(TipoRpt, BSTR)
  KODRA_PROPERTY(CodGrupo, BSTR)
};

class CCDRptObjFace final : public ParameterFace<::CCDRptObj, ICCDRptObj> {
 public:
  CCDRptObjFace() : ParameterFace(L"CCDRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(TipoRpt, BSTR)
};

class CTipo_CaixaRptObjFace final : public ParameterFace<::CTipo_CaixaRptObj, ICTipo_CaixaRptObj> {
 public:
  CTipo_CaixaRptObjFace() : ParameterFace(L"CTipo_CaixaRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CSuporteRptObjFace final : public ParameterFace<::CSuporteRptObj, ICSuporteRptObj> {
 public:
  CSuporteRptObjFace() : ParameterFace(L"CSuporteRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CSubgrupoRptObjFace final : public ParameterFace<::CSubgrupoRptObj, ICSubgrupoRptObj> {
 public:
  CSubgrupoRptObjFace() : ParameterFace(L"CSubgrupoRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CSerieRptObjFace final : public ParameterFace<::CSerieRptObj, ICSerieRptObj> {
 public:
  CSerieRptObjFace() : ParameterFace(L"CSerieRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class COperadorRptObjFace final : public ParameterFace<::COperadorRptObj, ICOperadorRptObj> {
 public:
  COperadorRptObjFace() : ParameterFace(L"COperadorRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CContainerRptObjFace final : public ParameterFace<::CContainerRptObj, ICContainerRptObj> {
 public:
  CContainerRptObjFace() : ParameterFace(L"CContainerRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(Container1, BSTR)
  KODRA_PROPERTY(Container2, BSTR)
  KODRA_PROPERTY(Container3, BSTR)
};

class CDepositoRptObjFace final : public ParameterFace<::CDepositoRptObj, ICDepositoRptObj> {
 public:
  CDepositoRptObjFace() : ParameterFace(L"CDepositoRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CDicionarioRptObjFace final : public ParameterFace<::CDicionarioRptObj, ICDicionarioRptObj> {
 public:
  CDicionarioRptObjFace() : ParameterFace(L"CDicionarioRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CDeptoRptObjFace final : public ParameterFace<::CDeptoRptObj, ICDeptoRptObj> {
 public:
  CDeptoRptObjFace() : ParameterFace(L"CDeptoRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CDocumentoRptObjFace final : public ParameterFace<::CDocumentoRptObj, ICDocumentoRptObj> {
 public:
  CDocumentoRptObjFace() : ParameterFace(L"CDocumentoRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(DataArmazenamento1, DATE)
  KODRA_PROPERTY(DataArmazenamento2, DATE)
  KODRA_PROPERTY(CodDepto, BSTR)
};

class CGrupoRptObjFace final : public ParameterFace<::CGrupoRptObj, ICGrupoRptObj> {
 public:
  CGrupoRptObjFace() : ParameterFace(L"CGrupoRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CLogRptObjFace final : public ParameterFace<::CLogRptObj, ICLogRptObj> {
 public:
  CLogRptObjFace() : ParameterFace(L"CLogRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(MaquinaOrigem, BSTR)
  KODRA_PROPERTY(Operador, BSTR)
  KODRA_PROPERTY(Acao, BSTR)
  KODRA_PROPERTY(Evento, BSTR)
  KODRA_PROPERTY(CodDocto, BSTR)
  KODRA_PROPERTY(DataInicial, DATE)
  KODRA_PROPERTY(DataFinal, DATE)
};

class CModeloRptObjFace final : public ParameterFace<::CModeloRptObj, ICModeloRptObj> {
 public:
  CModeloRptObjFace() : ParameterFace(L"CModeloRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(CodModelo, BSTR)
};

class CEstatImgRptObjFace final : public ParameterFace<::CEstatImgRptObj, ICEstatImgRptObj> {
 public:
  CEstatImgRptObjFace() : ParameterFace(L"CEstatImgRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(DataInicial, DATE)
  KODRA_PROPERTY(DataFinal, DATE)
  KODRA_PROPERTY(CodOperador, BSTR)
  KODRA_PROPERTY(CodDepto, BSTR)
  KODRA_PROPERTY(TipoRpt, BSTR)
};

class CEstatIndexRptObjFace final : public ParameterFace<::CEstatIndexRptObj, ICEstatIndexRptObj> {
 public:
  CEstatIndexRptObjFace() : ParameterFace(L"CEstatIndexRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(CodOperador, BSTR)
  KODRA_PROPERTY(CodDepto, BSTR)
  KODRA_PROPERTY(DescrDepto, BSTR)
  KODRA_PROPERTY(DescrOperador, BSTR)
  KODRA_PROPERTY(DataInicial, DATE)
  KODRA_PROPERTY(DataFinal, DATE)
  KODRA_PROPERTY(NumeroPC1, BSTR)
  KODRA_PROPERTY(NumeroPC2, BSTR)
  KODRA_PROPERTY(NumeroPC3, BSTR)
  KODRA_PROPERTY(NumeroPC4, BSTR)
  KODRA_PROPERTY(NumeroPC5, BSTR)
  KODRA_PROPERTY(NumeroObs, BSTR)
};

class CEstatSuporteRptObjFace final : public ParameterFace<::CEstatSuporteRptObj, ICEstatSuporteRptObj> {
 public:
  CEstatSuporteRptObjFace() : ParameterFace(L"CEstatSuporteRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(DataInicial, DATE)
  KODRA_PROPERTY(DataFinal, DATE)
  KODRA_PROPERTY(TipoRpt, BSTR)
};

class CEstatSubgrupoRptObjFace final : public ParameterFace<::CEstatSubgrupoRptObj, ICEstatSubgrupoRptObj> {
 public:
  CEstatSubgrupoRptObjFace() : ParameterFace(L"CEstatSubgrupoRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(DataInicial, DATE)
  KODRA_PROPERTY(DataFinal, DATE)
  KODRA_PROPERTY(TipoRpt, BSTR)
};

class CTipo_MidiaRptObjFace final : public ParameterFace<::CTipo_MidiaRptObj, ICTipo_MidiaRptObj> {
 public:
  CTipo_MidiaRptObjFace() : ParameterFace(L"CTipo_MidiaRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CSolicitacaoRptObjFace final : public ParameterFace<::CSolicitacaoRptObj, ICSolicitacaoRptObj> {
 public:
  CSolicitacaoRptObjFace() : ParameterFace(L"CSolicitacaoRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(CodSolicit, BSTR)
  KODRA_PROPERTY(ListarJaDevolvidos, VARIANT_BOOL)
};

class CGrupoOperadorRptObjFace final : public ParameterFace<::CGrupoOperadorRptObj, ICGrupoOperadorRptObj> {
 public:
  CGrupoOperadorRptObjFace() : ParameterFace(L"CGrupoOperadorRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
};

class CCaixaRptObjFace final : public ParameterFace<::CCaixaRptObj, ICCaixaRptObj> {
 public:
  CCaixaRptObjFace() : ParameterFace(L"CCaixaRptObj") {}
  KODRA_PROPERTY(Owner, BSTR)
  KODRA_PROPERTY(Modulo1, BSTR)
  KODRA_PROPERTY(Modulo2, BSTR)
  KODRA_PROPERTY(Modulo3, BSTR)
  KODRA_PROPERTY(Ordenacao, BSTR)
  KODRA_PROPERTY(SomenteExistentes, VARIANT_BOOL)
  KODRA_PROPERTY(Tipo, BSTR)
  KODRA_PROPERTY(CodDepto, BSTR)
  KODRA_PROPERTY(CodSerie, BSTR)
  KODRA_PROPERTY(ModoPregresso, VARIANT_BOOL)
};

#undef KODRA_PROPERTY

}  // namespace kodra::com
