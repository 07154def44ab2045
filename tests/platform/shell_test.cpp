#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "platform/platform.h"
#include "support/documents.h"
#include "support/fresh_process.h"
#include "support/golden.h"

TEST(ShellTest, PathsAreAppendedAsRecorded) {
  for (const auto& row : GoldenTable("path_append.tsv")) {
    const auto path = row.Wide("path"), more = row.Wide("more");
    std::wstring room(path.value_or(L""));
    room.resize(room.size() + 300);
    const wchar_t* const added = more ? more->c_str() : nullptr;
    const bool done = row["function"] == "PathAppendW"
                          ? PathAppendW(room.data(), added)
                          : PathCombineW(room.data(), path ? path->c_str() : nullptr, added) == room.data();
    ExpectAnswer(row, std::to_string(done) + " " + Spelled(room.c_str()));
  }
  EXPECT_FALSE(PathAppendW(nullptr, L"x"));
}

TEST(ShellTest, FoldersAreKnownByNumber) {
  EXPECT_IN_FRESH_PROCESS({
    const TempFolder temp;
    MoveDocuments(temp.Path());
    LPITEMIDLIST list = nullptr;
    wchar_t path[260] = L"x";
    EXPECT_EQ(SHGetSpecialFolderLocation(nullptr, CSIDL_PERSONAL, &list), 0);
    EXPECT_TRUE(SHGetPathFromIDListW(list, path));
    // Wine says it with a "\\" at the end, Windows without.
    EXPECT_EQ(path, temp.Path().wstring() + (RunsUnderWine() ? L"\\" : L""));
    CoTaskMemFree(list);
    EXPECT_LT(SHGetSpecialFolderLocation(nullptr, -1, &list), 0);
    EXPECT_EQ(list, nullptr);
    EXPECT_FALSE(SHGetPathFromIDListW(nullptr, path));
    EXPECT_STREQ(path, L"");
  });
}

TEST(FilesTest, FoldersAreMadeOneAtATime) {
  const TempFolder temp;
  const std::wstring base = temp.Path().wstring();
  std::ofstream(temp.Path() / "file") << "text";
  const struct {
    const char* name;
    std::wstring path;
    DWORD made;        // 0, or why not
    DWORD attributes;  // afterwards; 0 where there is nothing
  } rows[] = {
      {"new", base + L"\\n", 0, FILE_ATTRIBUTE_DIRECTORY},
      {"once more", base + L"\\n", 183, FILE_ATTRIBUTE_DIRECTORY},
      {"a file", base + L"\\file", 183, FILE_ATTRIBUTE_NORMAL},
      {"two at once", base + L"\\p/q", 3, 0},
      {"separator at the end", base + L"/p\\", 0, FILE_ATTRIBUTE_DIRECTORY},
      {"no name", L"", 3, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    SetLastError(0);
    EXPECT_EQ(CreateDirectoryW(row.path.c_str(), nullptr), row.made == 0);
    EXPECT_EQ(GetLastError(), row.made);
    const DWORD found = GetFileAttributesW(row.path.c_str());
    EXPECT_EQ(found == INVALID_FILE_ATTRIBUTES, row.attributes == 0);
    EXPECT_EQ(row.attributes != 0 && (found & FILE_ATTRIBUTE_DIRECTORY),
              row.attributes == FILE_ATTRIBUTE_DIRECTORY);
  }
  EXPECT_EQ(GetFileAttributesW((base + L"\\none").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetLastError(), 2u);
  EXPECT_EQ(GetFileAttributesW((base + L"\\none\\none").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetLastError(), 3u);
}
