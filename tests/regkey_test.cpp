#include "regkey.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <string>

#include "support/raises.h"
#include "support/temp_registry.h"

namespace {

class RegKeyTest : public testing::Test {
 protected:
  TempRegistry m_Registry;
  TRegKey m_Base{HKEY_CURRENT_USER, L"Software\\Acme", KEY_ALL_ACCESS, TRegKey::CreateOK};

  // The same key, opened after what was just done to it.
  TRegKey Reopened() { return {m_Base, L"", KEY_ALL_ACCESS, TRegKey::OpenOnly}; }
  void MakeKeys(std::initializer_list<const wchar_t*> names) {
    for (const wchar_t* name : names) TRegKey(m_Base, name, KEY_ALL_ACCESS, TRegKey::CreateOK);
  }
  std::string Stored(const wchar_t* name) {
    unsigned char data[64];
    unsigned int type = 0, size = sizeof(data);
    EXPECT_EQ(m_Base.QueryValue(name, &type, data, &size), 0);
    return std::to_string(type) + ":" + std::string(data, data + size);
  }
};

}  // namespace

using namespace std::string_literals;

TEST_F(RegKeyTest, OpeningMakesAKeyOnlyWhenAskedTo) {
  const TRegKey missing(m_Base, L"a\\b", KEY_ALL_ACCESS, TRegKey::OpenOnly);
  EXPECT_EQ(HKEY(missing), nullptr);
  EXPECT_EQ(missing.GetSubkeyCount() + missing.GetValueCount(), 0U);
  EXPECT_EQ(missing.SetValue(L"v", 1), 6);
  EXPECT_NE(HKEY(TRegKey(m_Base, L"a\\b", KEY_ALL_ACCESS, TRegKey::CreateOK)), nullptr);
  const TRegKey made(m_Base, L"A", KEY_READ, TRegKey::OpenOnly);
  EXPECT_EQ(made.GetName(), L"A"s);
  EXPECT_EQ(made.GetSubkeyCount(), 1U);
  EXPECT_EQ(made.SetValue(L"v", 1), 5);
}

TEST_F(RegKeyTest, AnAliasLeavesItsHandleOpenUnlessToldTo) {
  { const TRegKey alias(m_Base, false, L"alias"); }
  EXPECT_EQ(m_Base.SetValue(L"v", 1), 0);
  const HKEY closed = [&] { return HKEY(TRegKey(m_Base, L"", KEY_READ, TRegKey::OpenOnly)); }();
  EXPECT_EQ(HKEY(TRegKey(closed, false, L"closed")), nullptr);
}

TEST_F(RegKeyTest, PredefinedKeysAreSharedAndNamed) {
  EXPECT_EQ(TRegKey::LocalMachine().GetName(), L"HKEY_LOCAL_MACHINE"s);
  EXPECT_EQ(HKEY(TRegKey::Users()), HKEY_USERS);
  EXPECT_EQ(HKEY(TRegKey::PerformanceData()), nullptr);
}

TEST_F(RegKeyTest, IteratorsCountAsOfTheOpening) {
  MakeKeys({L"c", L"a", L"b"});
  for (const wchar_t* name : {L"x", L"y"}) m_Base.SetValue(name, 1);
  EXPECT_FALSE(TRegKeyIterator(m_Base));
  const TRegKey key = Reopened();
  std::wstring keys;
  TRegKeyIterator it(key);
  for (; it; ++it) keys += TRegKey(it, KEY_READ).GetName();
  EXPECT_EQ(keys, L"abc");
  EXPECT_EQ(HKEY(TRegKey(it, KEY_READ)), nullptr);
  std::set<std::wstring> values;
  for (TRegValueIterator value(key); value; ++value) values.insert(TRegValue(value).GetName());
  EXPECT_EQ(values, (std::set<std::wstring>{L"x", L"y"}));
}

TEST_F(RegKeyTest, IndicesOutsideTheCountRaise) {
  MakeKeys({L"a", L"b", L"c"});
  m_Base.SetValue(L"v", 1);
  const TRegKey key = Reopened();
  TRegKeyIterator keys(key);
  TRegValueIterator values(key);
  EXPECT_EQ(keys[2], 2);
  EXPECT_EQ(keys--, 2);
  EXPECT_EQ(RaisedBy([&] { keys[3]; }), L"(index >= 0) && (index < int(Key.GetSubkeyCount()))");
  EXPECT_EQ(RaisedBy([&] { values[-1]; }), L"(index >= 0) && (index < int(Key.GetValueCount()))");
  EXPECT_EQ(keys.GetIndex(), 1);
}

TEST_F(RegKeyTest, WrittenSizesAreKept) {
  TRegValue value(m_Base, L"v"), typed(m_Base, L"t");
  const struct {
    const char* name;
    std::function<long()> write;
    std::string stored;
    unsigned int size;
    std::wstring text;
  } rows[] = {
      {"to a missing value", [&] { return value = 7U; }, "0:"s, 0, L""},
      {"number", [&] { return value.Set(0x00420041); }, "4:A\0B\0"s, 4, L"AB"},
      {"as many bytes as units", [&] { return value.Set(L"abcd"); }, "1:a\0b\0"s, 4, L"ab"},
      {"half a unit", [&] { return value.Set(L"abc"); }, "1:a\0b"s, 3, L"ab"},
      {"a byte more", [&] { return value = L"abcd"; }, "1:a\0b\0c"s, 5, L"abc"},
      {"terminator that follows", [&] { return value = L"a"; }, "1:a\0\0\0"s, 2, L"a"},
      {"number cut", [&] { return value = 0x00420041; }, "1:A\0"s, 2, L"A"},
      {"number filled up",
       [&] {
         return value.Set(REG_BINARY, reinterpret_cast<const unsigned char*>("123456"), 6) + (value = 5);
       },
       "3:\5\0\0\0\0\0"s, 6, L"\5\0\0"},
      {"nothing over nothing",
       [&] {
         return value.Set(REG_BINARY, nullptr, 0) + value.RetrieveOnDemand() +
                value.Set(REG_BINARY, nullptr, 0);
       },
       "3:"s, 0, L""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(row.write(), 0);
    EXPECT_EQ(Stored(L"v"), row.stored);
    EXPECT_EQ(value.GetDataSize(), row.size);
    EXPECT_EQ(std::wstring(value), row.text.c_str());
  }
}

TEST_F(RegKeyTest, DataIsFetchedOnceAndFollowsWrites) {
  m_Base.SetValue(L"v", 0x01020304);
  TRegValue value(m_Base, L"v");
  EXPECT_EQ(static_cast<unsigned int>(value), 0x01020304U);
  m_Base.SetValue(L"v", 9);
  EXPECT_EQ(static_cast<unsigned int>(value), 0x01020304U);
  EXPECT_EQ(value.Set(7), 0);
  m_Base.SetValue(L"v", 9);
  EXPECT_EQ(static_cast<unsigned int>(value), 7U);
  const unsigned char oneByte = 0xAB;
  EXPECT_EQ(value.Set(REG_BINARY, &oneByte, 1), 0);
  EXPECT_EQ(static_cast<unsigned int>(value), 0xABU);
  EXPECT_EQ(value.GetDataType(), REG_BINARY);
  EXPECT_EQ(value.Delete(), 0);
  EXPECT_EQ(TRegValue(m_Base, L"v").GetDataType(), 0U);
}

TEST_F(RegKeyTest, NukeDeletesAllBelowAndNothingBeside) {
  MakeKeys({L"one\\a", L"one\\b\\deep\\er", L"one\\c", L"two"});
  EXPECT_EQ(m_Base.DeleteKey(L"one"), 5);
  EXPECT_EQ(m_Base.NukeKey(L"one"), 0);
  EXPECT_EQ(m_Base.NukeKey(L"one"), 2);
  EXPECT_EQ(m_Base.NukeKey(L""), 87);
  EXPECT_EQ(m_Base.NukeKey(nullptr), 87);
  const TRegKey key = Reopened();
  EXPECT_EQ(key.GetSubkeyCount(), 1U);
}
