#include "list.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "msg_text.h"
#include "observer.h"
#include "support/raises.h"
#include "theme.h"
#include "tstring.h"
#include "utf8.h"
#include "xlist.h"

using Qel::List;
using Qel::XList;

namespace {

bool g_NoMemory = false;

}  // namespace

// The global allocator, with a switch: nodes are the only thing here that asks it not to throw.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (g_NoMemory) return nullptr;
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace {

using Values = std::vector<int>;

template <class AnyList>
AnyList Filled(const Values& values) {
  AnyList list;
  for (const int value : values) list.append(value);
  return list;
}

template <class AnyList>
Values Read(const AnyList& list) {
  Values values;
  for (int i = 0; i < list.GetCount(); ++i) values.push_back(list[i]);
  return values;
}

// The path and line that a raising site records, when the signature names `member`.
template <class Body>
std::string SiteOf(Body&& body, const char* member) {
  const auto e = Raised(body);
  if (!e || e->GetFunctionName().find(member) == std::string::npos)
    return "not raised by " + std::string(member);
  return Qel::ToUtf8(e->GetFile()) + ":" + std::to_string(e->GetLineNumber());
}

// An element that counts its likes and can refuse to be copied.
struct Guarded {
  explicit Guarded(int v) : value(v) { ++alive; }
  Guarded(const Guarded& other) : value(other.value) {
    if (refuse) throw value;
    ++alive;
  }
  Guarded& operator=(const Guarded&) = delete;
  ~Guarded() { --alive; }
  bool operator==(const Guarded& other) const { return value == other.value; }

  int value;
  static inline int alive = 0;
  static inline bool refuse = false;
};

}  // namespace

template <class AnyList>
class AnyListTest : public testing::Test {};
using BothLists = testing::Types<List<int>, XList<int>>;
TYPED_TEST_SUITE(AnyListTest, BothLists);

TYPED_TEST(AnyListTest, RemoveTakesEveryEqualElementAndKeepsTheEndsRight) {
  const struct {
    Values before;
    int removed;
    Values after;  // 5 was removed and 9 appended
  } rows[] = {
      {{}, 0, {9}},        {{1, 2}, 0, {1, 2, 9}}, {{5, 5, 7, 5}, 3, {7, 9}}, {{1, 2, 5, 5}, 2, {1, 2, 9}},
      {{5, 5, 5}, 3, {9}}, {{5}, 1, {9}},
  };
  for (const auto& row : rows) {
    auto list = Filled<TypeParam>(row.before);
    if (list.GetCount() > 0) (void)list[list.GetCount() - 1];  // a cursor that may go
    EXPECT_EQ(list.remove(5), row.removed);
    list.append(9);
    EXPECT_EQ(Read(list), row.after);
  }
  auto list = Filled<TypeParam>({5, 1, 5});
  EXPECT_EQ(list.remove(list[0]), 2);  // an element of the list itself
  EXPECT_EQ(Read(list), Values({1}));
}

TYPED_TEST(AnyListTest, ReadsInAnyOrderAndAfterAFailedAccess) {
  const auto list = Filled<TypeParam>({10, 20, 30});
  for (const int index : {2, 1, 1, 0, 2, 0, 1}) EXPECT_EQ(list[index], (index + 1) * 10);
  for (const long index : {3L, 4L, LONG_MAX}) EXPECT_EQ(RaisedBy([&] { (void)list[index]; }), L"p != 0");
  EXPECT_EQ(list[2], 30);
}

TYPED_TEST(AnyListTest, FindGivesTheFirstEqualElementAndFlushEmpties) {
  auto list = Filled<TypeParam>({1, 2, 1});
  EXPECT_EQ(list.find(1), &list[0]);
  EXPECT_EQ(list.find(3), nullptr);
  list.flush();
  EXPECT_EQ(list.find(1), nullptr);
  EXPECT_EQ(*list.append(4), 4);
  EXPECT_EQ(Read(list), Values({4}));
}

TYPED_TEST(AnyListTest, CopiesAreIndependentAndMovesLeaveTheSourceEmpty) {
  auto list = Filled<TypeParam>({1, 2, 3});
  TypeParam copy(list);
  copy[1] = 20;
  copy.append(4);
  EXPECT_EQ(Read(list), Values({1, 2, 3}));
  EXPECT_EQ(Read(copy), Values({1, 20, 3, 4}));

  list = copy;
  TypeParam moved(std::move(copy));
  EXPECT_EQ(copy.count(), 0);
  EXPECT_EQ(RaisedBy([&] { (void)copy[0]; }), L"p != 0");
  copy.append(7);
  EXPECT_EQ(Read(copy), Values({7}));

  copy = std::move(moved);
  EXPECT_EQ(Read(copy), Read(list));
  EXPECT_EQ(moved.count(), 0);

  auto& same = list;
  list = same;
  list = std::move(same);
  EXPECT_EQ(Read(list), Read(copy));
}

TYPED_TEST(AnyListTest, AMillionElementsAreReadAndFreedWithoutDeepRecursion) {
  TypeParam list;
  for (int i = 0; i < 1'000'000; ++i) list.append(i);
  long long sum = 0;
  for (int i = 0; i < list.GetCount(); ++i)
    sum += list[i];  // would take hours if each access began at the head
  EXPECT_EQ(sum, 499'999'500'000);
}

TYPED_TEST(AnyListTest, WithoutMemoryAppendRaisesAndNothingChanges) {
  auto list = Filled<TypeParam>({1, 2});
  g_NoMemory = true;
  const auto raised = RaisedBy([&] { list.append(3); });
  g_NoMemory = false;
  EXPECT_EQ(raised, L"n != 0");
  EXPECT_EQ(Read(list), Values({1, 2}));
}

TEST(ListTest, SitesKeepThePlacesThatCrashReportsKnow) {
  const List<int> list;
  const XList<int> xlist;
  EXPECT_EQ(SiteOf([&] { (void)list[-1]; }, "operator[]("), "include/list:259");
  EXPECT_EQ(SiteOf([&] { (void)list[0]; }, "operator[]("), "include/list:270");
  EXPECT_EQ(SiteOf([&] { (void)xlist[0]; }, "operator[]("), "include/xlist:281");
  g_NoMemory = true;
  const auto append = SiteOf([] { List<int>().append(1); }, "append(");
  const auto xappend = SiteOf([] { XList<int>().append(1); }, "append(");
  g_NoMemory = false;
  EXPECT_EQ(append, "include/list:311");
  EXPECT_EQ(xappend, "include/xlist:301");
}

TEST(ListTest, ANegativeIndexHasItsOwnTextInListOnly) {
  const auto list = Filled<List<int>>({1, 2});
  const auto xlist = Filled<XList<int>>({1, 2});
  for (const long index : {-1L, LONG_MIN}) {
    EXPECT_EQ(RaisedBy([&] { (void)list[index]; }), L"index >= 0");
    EXPECT_EQ(RaisedBy([&] { (void)xlist[index]; }), L"p != 0");
  }
}

TEST(ListTest, AnElementThatCannotBeCopiedLeavesNothingBehind) {
  {
    List<Guarded> list;
    list.append(Guarded(1));
    List<Guarded> target(list);
    Guarded::refuse = true;
    EXPECT_THROW(list.append(Guarded(2)), int);
    EXPECT_THROW(List<Guarded>{list}, int);
    EXPECT_THROW(target = list, int);
    EXPECT_THROW(list.remove(Guarded(1)), int);
    Guarded::refuse = false;
    EXPECT_EQ(list.GetCount(), 1);
    EXPECT_EQ(target.GetCount(), 1);
  }
  EXPECT_EQ(Guarded::alive, 0);
}

TEST(ListTest, HoldsTheElementTypesOfTheSuite) {
  const auto roundTrip = [](auto list, const auto& value) {
    list.append(value);
    const auto copy = list;
    return copy[0] == value && list.find(value) && list.remove(value) == 1;
  };
  EXPECT_TRUE(roundTrip(List<std::shared_ptr<IMsgTextHandler>>(), std::shared_ptr<IMsgTextHandler>()));
  EXPECT_TRUE(roundTrip(List<CObserver*>(), static_cast<CObserver*>(nullptr)));
  EXPECT_TRUE(roundTrip(List<std::wstring>(), std::wstring(L"نص")));
  EXPECT_TRUE(roundTrip(List<CString>(), CString(L"نص")));
  EXPECT_TRUE(roundTrip(List<Qel::Sys::TString>(), Qel::Sys::TString(L"نص")));
  EXPECT_TRUE(roundTrip(XList<unsigned long>(), 0xC0C0C0UL));
  EXPECT_TRUE(roundTrip(XList<Qel::UI::TColorRec>(), Qel::UI::TColorRec{Qel::UI::CI_TITLE, 0x102030}));
}
