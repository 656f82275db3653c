// com_ptr, the owner of an interface reference: how many references the object has after each operation.
#include "comkit/com_ptr.h"

#include <gtest/gtest.h>

namespace kodra::comkit {
namespace {

// An object that counts its references and is never deleted.
class Counted final : public IDispatch {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    *object = iid == IID_IUnknown || iid == IID_IDispatch ? this : nullptr;
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override {
    ++added;
    return ++references;
  }
  STDMETHODIMP_(ULONG) Release() override { return --references; }
  STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return E_NOTIMPL;
  }

  ULONG references = 1;
  int added = 0;
};

TEST(ComPtr, IsNullWithoutAnObject) {
  const com_ptr<IDispatch> empty;
  const com_ptr<IDispatch> fromNull = nullptr;
  const com_ptr<IDispatch> shared(static_cast<IDispatch*>(nullptr));
  EXPECT_FALSE(empty);
  EXPECT_FALSE(fromNull);
  EXPECT_FALSE(shared);
  EXPECT_EQ(nullptr, empty.get());
}

TEST(ComPtr, SharingAddsAReferenceUntilItEnds) {
  Counted object;
  {
    const com_ptr<IDispatch> shared(&object);
    EXPECT_EQ(2U, object.references);
    EXPECT_EQ(&object, shared.get());
    EXPECT_TRUE(shared);
  }
  EXPECT_EQ(1U, object.references);
}

TEST(ComPtr, AdoptingTakesTheCallersReference) {
  Counted object;
  {
    const auto adopted = com_ptr<IDispatch>::adopt(&object);
    EXPECT_EQ(1U, object.references);
  }
  EXPECT_EQ(0U, object.references);
  EXPECT_EQ(0, object.added);
}

TEST(ComPtr, DetachingHandsTheReferenceOver) {
  Counted object;
  com_ptr<IDispatch> shared(&object);
  EXPECT_EQ(&object, shared.detach());
  EXPECT_FALSE(shared);
  EXPECT_EQ(2U, object.references);
  EXPECT_EQ(nullptr, shared.detach());
}

TEST(ComPtr, ACopyHasAReferenceOfItsOwn) {
  Counted object;
  const com_ptr<IDispatch> one(&object);
  {
    const com_ptr<IDispatch> other = one;
    EXPECT_EQ(3U, object.references);
  }
  EXPECT_EQ(2U, object.references);
}

TEST(ComPtr, AMoveTakesTheReferenceAlong) {
  Counted object;
  com_ptr<IDispatch> one(&object);
  const com_ptr<IDispatch> other = std::move(one);
  EXPECT_FALSE(one);  // NOLINT(bugprone-use-after-move): the test is about what a move leaves
  EXPECT_EQ(&object, other.get());
  EXPECT_EQ(2U, object.references);
  EXPECT_EQ(1, object.added);
}

TEST(ComPtr, AssigningReleasesTheOldObject) {
  Counted first;
  Counted second;
  com_ptr<IDispatch> held(&first);
  held = com_ptr<IDispatch>(&second);
  EXPECT_EQ(1U, first.references);
  EXPECT_EQ(2U, second.references);
  held = nullptr;
  EXPECT_EQ(1U, second.references);
}

TEST(ComPtr, AssigningItselfKeepsTheReference) {
  Counted object;
  com_ptr<IDispatch> held(&object);
  const com_ptr<IDispatch>& same = held;
  held = same;
  EXPECT_EQ(&object, held.get());
  EXPECT_EQ(2U, object.references);
  com_ptr<IDispatch>& itself = held;
  held = std::move(itself);
  EXPECT_EQ(&object, held.get());
  EXPECT_EQ(2U, object.references);
}

TEST(ComPtr, APlaceToWriteIsEmptiedFirst) {
  Counted object;
  com_ptr<IDispatch> held(&object);
  IDispatch** place = held.put();
  EXPECT_EQ(nullptr, *place);
  EXPECT_EQ(1U, object.references);
  *place = &object;
  object.AddRef();
  void** untyped = held.put_void();
  EXPECT_EQ(nullptr, *untyped);
  EXPECT_EQ(1U, object.references);
}

TEST(ComPtr, CopyingToAPlaceAddsAReferenceForIt) {
  Counted object;
  const com_ptr<IDispatch> held(&object);
  IDispatch* place = nullptr;
  held.copy_to(&place);
  EXPECT_EQ(&object, place);
  EXPECT_EQ(3U, object.references);
  com_ptr<IDispatch>().copy_to(&place);
  EXPECT_EQ(nullptr, place);
}

TEST(ComPtr, AnotherInterfaceOfTheObjectAddsAReference) {
  Counted object;
  const com_ptr<IDispatch> held(&object);
  {
    const auto unknown = held.as<IUnknown>();
    EXPECT_EQ(static_cast<IUnknown*>(&object), unknown.get());
    EXPECT_EQ(3U, object.references);
  }
  EXPECT_EQ(2U, object.references);
  EXPECT_FALSE(held.as<IClassFactory>());
  EXPECT_EQ(2U, object.references);
  EXPECT_FALSE(com_ptr<IDispatch>().as<IUnknown>());
}

// An object that refuses every interface but writes a pointer nevertheless.
class Careless final : public IUnknown {
 public:
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = this;
    return E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
  STDMETHODIMP_(ULONG) Release() override { return --references; }

  ULONG references = 1;
};

TEST(ComPtr, ARefusedInterfaceIsNullWhateverTheObjectWrites) {
  Careless object;
  {
    const com_ptr<IUnknown> held(&object);
    EXPECT_FALSE(held.as<IDispatch>());
    EXPECT_EQ(2U, object.references);
  }
  EXPECT_EQ(1U, object.references);
}

}  // namespace
}  // namespace kodra::comkit
