#include "com/class_table.h"

#include <array>

#include "com/about_face.h"
#include "com/caixa_face.h"
#include "com/catalog_faces.h"
#include "com/container_face.h"
#include "com/document_faces.h"
#include "com/parameter_faces.h"
#include "com/statistics_faces.h"

namespace kodra::com {
namespace {

template <class Class, class Face>
constexpr PublicClass Public(std::wstring_view name) {
  return {__uuidof(Class), name, []() -> IUnknown* { return static_cast<IDispatch*>(new Face); }};
}

constexpr auto kPublicClasses = std::to_array<PublicClass>({
    Public<::CCDRpt, CCDRptFace>(L"CCDRpt"),
    Public<::CTipo_MidiaRpt, CTipo_MidiaRptFace>(L"CTipo_MidiaRpt"),
    Public<::CSuporteRpt, CSuporteRptFace>(L"CSuporteRpt"),
    Public<::CSerieRpt, CSerieRptFace>(L"CSerieRpt"),
    Public<::CDepositoRpt, CDepositoRptFace>(L"CDepositoRpt"),
    Public<::CDicionarioRpt, CDicionarioRptFace>(L"CDicionarioRpt"),
    Public<::CDeptoRpt, CDeptoRptFace>(L"CDeptoRpt"),
    Public<::CGrupoRpt, CGrupoRptFace>(L"CGrupoRpt"),
    Public<::CModeloRpt, CModeloRptFace>(L"CModeloRpt"),
    Public<::CTipo_CaixaRpt, CTipo_CaixaRptFace>(L"CTipo_CaixaRpt"),
    Public<::CGrupoOperadorRpt, CGrupoOperadorRptFace>(L"CGrupoOperadorRpt"),
    Public<::CSubgrupoRpt, CSubgrupoRptFace>(L"CSubgrupoRpt"),
    Public<::CEstatSerieRptObj, CEstatSerieRptObjFace>(L"CEstatSerieRptObj"),
    Public<::CCDRptObj, CCDRptObjFace>(L"CCDRptObj"),
    Public<::CTipo_CaixaRptObj, CTipo_CaixaRptObjFace>(L"CTipo_CaixaRptObj"),
    Public<::CSuporteRptObj, CSuporteRptObjFace>(L"CSuporteRptObj"),
    Public<::CSubgrupoRptObj, CSubgrupoRptObjFace>(L"CSubgrupoRptObj"),
    Public<::CSerieRptObj, CSerieRptObjFace>(L"CSerieRptObj"),
    Public<::COperadorRptObj, COperadorRptObjFace>(L"COperadorRptObj"),
    Public<::CContainerRptObj, CContainerRptObjFace>(L"CContainerRptObj"),
    Public<::CDepositoRptObj, CDepositoRptObjFace>(L"CDepositoRptObj"),
    Public<::CDicionarioRptObj, CDicionarioRptObjFace>(L"CDicionarioRptObj"),
    Public<::CDeptoRptObj, CDeptoRptObjFace>(L"CDeptoRptObj"),
    Public<::CDocumentoRptObj, CDocumentoRptObjFace>(L"CDocumentoRptObj"),
    Public<::CGrupoRptObj, CGrupoRptObjFace>(L"CGrupoRptObj"),
    Public<::CLogRptObj, CLogRptObjFace>(L"CLogRptObj"),
    Public<::CModeloRptObj, CModeloRptObjFace>(L"CModeloRptObj"),
    Public<::CEstatImgRptObj, CEstatImgRptObjFace>(L"CEstatImgRptObj"),
    Public<::CEstatIndexRptObj, CEstatIndexRptObjFace>(L"CEstatIndexRptObj"),
    Public<::CEstatSuporteRptObj, CEstatSuporteRptObjFace>(L"CEstatSuporteRptObj"),
    Public<::CEstatSubgrupoRptObj, CEstatSubgrupoRptObjFace>(L"CEstatSubgrupoRptObj"),
    Public<::CTipo_MidiaRptObj, CTipo_MidiaRptObjFace>(L"CTipo_MidiaRptObj"),
    Public<::CSolicitacaoRptObj, CSolicitacaoRptObjFace>(L"CSolicitacaoRptObj"),
    Public<::CGrupoOperadorRptObj, CGrupoOperadorRptObjFace>(L"CGrupoOperadorRptObj"),
    Public<::CCaixaRptObj, CCaixaRptObjFace>(L"CCaixaRptObj"),
    Public<::COperadorRpt, COperadorRptFace>(L"COperadorRpt"),
    Public<::CDocumentoRpt, CDocumentoRptFace>(L"CDocumentoRpt"),
    Public<::CSolicitacaoRpt, CSolicitacaoRptFace>(L"CSolicitacaoRpt"),
    Public<::CLogRpt, CLogRptFace>(L"CLogRpt"),
    Public<::CContainerRpt, CContainerRptFace>(L"CContainerRpt"),
    Public<::CEstatImgRpt, CEstatImgRptFace>(L"CEstatImgRpt"),
    Public<::CEstatIndexRpt, CEstatIndexRptFace>(L"CEstatIndexRpt"),
    Public<::CEstatSuporteRpt, CEstatSuporteRptFace>(L"CEstatSuporteRpt"),
    Public<::CEstatSubgrupoRpt, CEstatSubgrupoRptFace>(L"CEstatSubgrupoRpt"),
    Public<::CEstatSerieRpt, CEstatSerieRptFace>(L"CEstatSerieRpt"),
    Public<::CCaixaRpt, CCaixaRptFace>(L"CCaixaRpt"),
    Public<::About, AboutFace>(L"About"),
});

}  // namespace

std::span<const PublicClass> PublicClasses() { return kPublicClasses; }

}  // namespace kodra::com
