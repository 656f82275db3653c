#include "comkit/enumerator.h"

#include "ado/variant.h"
#include "siblings/com/dispatch_face.h"
#include "siblings/com/enumerator.h"

namespace kodra::siblings {
namespace {

struct Member {
  Value value;
  void CopyTo(VARIANT* out) const { *out = ado::ScopedVariant(Outward(value)).detach(); }
};

}  // namespace

comkit::com_ptr<IUnknown> MakeEnumerator(std::vector<Value> values) {
  std::vector<Member> members;
  members.reserve(values.size());
  for (Value& value : values) members.push_back({std::move(value)});
  return comkit::com_ptr<IUnknown>::adopt(new comkit::Enumerator<IEnumVARIANT, VARIANT, Member>(std::move(members)));
}

}  // namespace kodra::siblings
