#include "com/class_table.h"

#include "com/about_face.h"
#include "com/parameter_faces.h"
#include "com/report_faces.h"

namespace kodra::com {
namespace {

template <class Class, class Face>
constexpr PublicClass Public(std::wstring_view name) {
  return {__uuidof(Class), name, []() -> IUnknown* { return static_cast<IDispatch*>(new Face); }};
}

constexpr PublicClass kPublicClasses[] = {
#define KODRA_REPORT_CLASS(NAME, METHODS) KODRA_OTHER_CLASS(NAME)
#define KODRA_PARAMETER_CLASS(NAME, PROPERTIES) KODRA_OTHER_CLASS(NAME)
#define KODRA_OTHER_CLASS(NAME) Public<::NAME, NAME##Face>(L## #NAME),
#include "idl/public_classes.def"
};

}  // namespace

std::span<const PublicClass> PublicClasses() { return kPublicClasses; }

}  // namespace kodra::com
