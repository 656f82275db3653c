// The enumerators of comkit/ when a member cannot be returned. Everything else is covered by the tests of the objects
// that have enumerators.
#include "comkit/enumerator.h"

#include <gtest/gtest.h>

#include <new>

#include "tests/wine/automation.h"

namespace kodra::face {
namespace {

// A number, or an exception.
struct Member {
  std::optional<int> number;
  void CopyTo(VARIANT* out) const {
    if (!number) throw std::bad_alloc();
    out->vt = VT_I4;
    out->lVal = *number;
  }
};

Ref<IEnumVARIANT> Over(std::vector<Member> members) {
  return Ref<IEnumVARIANT>::Owning(new comkit::Enumerator<IEnumVARIANT, VARIANT, Member>(std::move(members)));
}

TEST(Enumerator, ReturnsTheMembersBeforeOneThatFails) {
  const auto enumerator = Over({{1}, {2}, {}});
  VARIANT out[3] = {};
  ULONG fetched = 9;
  EXPECT_EQ(S_FALSE, enumerator->Next(3, out, &fetched));
  EXPECT_EQ(2U, fetched);
  EXPECT_EQ(1, out[0].lVal);
  EXPECT_EQ(2, out[1].lVal);
}

TEST(Enumerator, FailsWhenTheNextMemberFailsAndDoesNotMove) {
  const auto enumerator = Over({{}, {2}});
  VARIANT out[2] = {};
  ULONG fetched = 9;
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(kOutOfMemory, enumerator->Next(2, out, &fetched));
    EXPECT_EQ(0U, fetched);
  }
  EXPECT_EQ(S_OK, enumerator->Skip(1));
  EXPECT_EQ(S_OK, enumerator->Next(1, out, nullptr));
  EXPECT_EQ(2, out[0].lVal);
}

}  // namespace
}  // namespace kodra::face
