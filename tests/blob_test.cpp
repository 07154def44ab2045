#include "blob.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "support/raises.h"
#include "support/slots.h"
#include "utf8.h"

namespace {

// What modules derive: the protected operations are theirs.
class Stream : public TBlob {
 public:
  using TBlob::Realloc;
  using TBlob::SetPointer;
};

std::string Content(const TBlob& blob) {
  return std::string(static_cast<const char*>(blob.GetData()), static_cast<std::size_t>(blob.GetSize()));
}

// The text and the line that crash reports are grouped by.
template <class Body>
std::wstring SiteOf(Body&& body) {
  const auto e = Raised(body);
  if (!e) return {};
  return std::wstring(e->GetError() + L" " + e->GetFile()) + L":" + std::to_wstring(e->GetLineNumber());
}

}  // namespace

TEST(MemoryStreamTest, CapacityIsInStepsButForTheCurrentSize) {
  const std::string bytes(9000, 'x');
  TBlob blob;
  constexpr int kAppends[][2] = {{1, 8192}, {8191, 8192}, {1, 16384}, {9000, 24576}};
  for (const auto& [count, capacity] : kAppends) {
    blob.Append(bytes.data(), count);
    EXPECT_EQ(blob.GetCapacity(), capacity);
  }
  constexpr int kSizes[][2] = {{10, 8192}, {10, 10}, {11, 8192}, {-1, 8192}, {8193, 16384}, {0, 0}};
  for (const auto& [size, capacity] : kSizes) {
    blob.SetSize(size);
    EXPECT_EQ(blob.GetCapacity(), capacity) << size;
  }
}

TEST(MemoryStreamTest, AppendsAndReadsGoToThePosition) {
  TBlob blob;
  EXPECT_EQ(blob.Seek(5, 0), 5);
  EXPECT_EQ(blob.Append("abc", 3), 3);
  EXPECT_EQ(blob.Seek(-4, 1), 4);
  EXPECT_EQ(blob.Append("ABCDEFGHIJ", 10), 10);  // one way of copying
  EXPECT_EQ(Content(blob), std::string(4, '\0') + "ABCDEFGHIJ");
  EXPECT_EQ(blob.Append("0123456789abcdefgh", 18), 18);  // the other
  char read[40] = "";
  EXPECT_EQ(blob.Read(read, 1), 0);
  EXPECT_EQ(blob.Seek(-20, 2), 12);
  EXPECT_EQ(blob.Read(read, 9), 9);
  EXPECT_EQ(blob.Read(read + 9, 40), 11);
  EXPECT_STREQ(read, "IJ0123456789abcdefgh");
  EXPECT_EQ(blob.Seek(1, 3), 32);
  blob.SetSize(30);
  EXPECT_EQ(blob.Seek(0, 1), 30);
  blob.Seek(0, 0);
  EXPECT_EQ(blob.Append("x", 1) + blob.Append("12345678", 8), 9);  // within the content, in both ways
  EXPECT_EQ(Content(blob), std::string("x12345678FGHIJ0123456789abcdef"));
  TBlob fresh;
  fresh.Seek(5, 0);
  EXPECT_EQ(fresh.Write("abc", 3), 3);
  EXPECT_EQ(Content(fresh), "abc");
}

TEST(MemoryStreamTest, WhatIsCutOffDoesNotComeBack) {
  TBlob blob;
  blob.Append(std::string(16384, 'x').data(), 16384);
  blob.SetCapacity(8192);
  EXPECT_EQ(blob.Seek(0, 1), 8192);
  blob.SetSize(16384);
  EXPECT_EQ(Content(blob), std::string(8192, 'x') + std::string(8192, '\0'));
}

TEST(MemoryStreamTest, WhatCannotBeIsNotDone) {
  TBlob blob;
  char taken = 'x';
  blob.Append("ab", 2);
  EXPECT_EQ(blob.Append(nullptr, 0) + blob.Append("c", -1), 0);
  for (const int start : {-1, INT_MIN, 3}) {
    EXPECT_EQ(blob.Seek(start, 0), start);
    EXPECT_EQ(blob.Read(&taken, 1) + (start < 0 ? blob.Append("c", 1) : 0), 0);
  }
  EXPECT_EQ(blob.Seek(INT_MAX, 2), INT_MAX);
  blob.SetCapacity(-1);
  blob.SetSize(-1);
  EXPECT_EQ(Content(blob), "ab");
  EXPECT_EQ(blob.Write("c", -1), 0);
  EXPECT_EQ(blob.GetCapacity(), 0);
}

TEST(MemoryStreamTest, EachFailureHasItsSite) {
  Stream empty, held, torn;
  held.Append("ab", 2);
  torn.Append("ab", 2);
  torn.SetPointer(nullptr, 2);
  const auto appendAtTheEnd = [](TBlob& stream) { stream.Seek(INT_MAX - 1, 0), stream.Append("abc", 3); };
  EXPECT_EQ(SiteOf([&] { torn.Clear(); }), L"m_Memory != nullptr src/blob:33");
  EXPECT_EQ(SiteOf([&] { empty.SetCapacity(INT_MAX); }), L"m_Handle != nullptr src/blob:42");
  EXPECT_EQ(SiteOf([&] { appendAtTheEnd(empty); }), L"m_Handle != nullptr src/blob:42");
  EXPECT_EQ(SiteOf([&] { held.SetSize(INT_MAX); }), L"handle != nullptr src/blob:51");
  EXPECT_EQ(SiteOf([&] { appendAtTheEnd(held); }), L"handle != nullptr src/blob:51");
  EXPECT_EQ(SiteOf([&] { held.Write(nullptr, 0); }), L"Buffer != nullptr src/blob:106");
  EXPECT_EQ(SiteOf([&] { held.Append(nullptr, 1); }), L"Buffer != nullptr src/blob:115");
  EXPECT_EQ(Content(held), "ab");
}

TEST(MemoryStreamTest, TheStreamIsASourceForItselfAndForOthers) {
  TBlob blob;
  const std::string bytes = "0123456" + std::string(8185, 'x');
  blob.Append(bytes.data(), 8192);
  blob.Append(blob.GetData(), 8192);  // moves the block
  EXPECT_EQ(Content(blob), bytes + bytes);
  blob.Seek(3, 0);
  const TBlob copy(blob);
  blob.Write(static_cast<const char*>(blob.GetData()) + 1, 6);
  EXPECT_EQ(Content(blob) + std::to_string(blob.Seek(0, 1)), "1234566");
  blob = copy;
  EXPECT_EQ(Content(blob), bytes + bytes);
  EXPECT_EQ(blob.Seek(0, 1), 3);
}

TEST(MemoryStreamTest, ModulesFindTheOperationsInTheirSlots) {
  ExpectSlotsFrom(0, &Stream::Realloc);  // then the two of the destructor
  ExpectSlotsFrom(3, &TBlob::Read, &TBlob::Append, &TBlob::Write, &TBlob::Seek, &TBlob::SetSize,
                  &TBlob::GetSize);
}

TEST(MemoryStreamTest, FilesHoldTheBytesAsTheyAre) {
  const CString path = Qel::FromUtf8(testing::TempDir() + "qel_blob.bin");
  TBlob blob, loaded;
  blob.Append("\0\r\n\xFF", 4);
  loaded.Write("before", 6);
  ASSERT_TRUE(blob.SaveToFile(path) && loaded.LoadFromFile(path));
  EXPECT_EQ(loaded.Seek(0, 1), 0);
  EXPECT_FALSE(blob.SaveToFile(path + L"/none/x") || loaded.LoadFromFile(path + L"/none"));
  EXPECT_EQ(Content(loaded), std::string("\0\r\n\xFF", 4));
}
