#include "comkit/enumerator.h"

#include "odbc/adodb/collection_object.h"

namespace kodra::adodb {
namespace {

struct Member {
  com_ptr<IDispatch> object;
  void CopyTo(VARIANT* out) const { *out = ado::ScopedVariant::Object(object.get()).detach(); }
};

}  // namespace

com_ptr<IUnknown> MakeEnumerator(const std::vector<com_ptr<IDispatch>>& objects) {
  std::vector<Member> members;
  members.reserve(objects.size());
  for (const com_ptr<IDispatch>& object : objects) members.push_back({object});
  return com_ptr<IUnknown>::adopt(new comkit::Enumerator<IEnumVARIANT, VARIANT, Member>(std::move(members)));
}

}  // namespace kodra::adodb
