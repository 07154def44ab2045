#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "platform/platform.h"
#include "support/documents.h"
#include "utf8.h"

namespace {

namespace fs = std::filesystem;

class FileMovesTest : public testing::Test {
 protected:
  FileMovesTest() {
    for (const char* name : {"a", "b"}) std::ofstream(m_Folder.Path() / name) << name;
    fs::create_directory(m_Folder.Path() / "sub");
  }
  CString Path(const char* name) const { return Qel::FromUtf8((m_Folder.Path() / name).string()); }
  std::wstring Names(const char* folder) const {
    std::vector<std::wstring> names = FileNamesIn(Path(folder));
    std::sort(names.begin(), names.end());
    std::wstring all;
    for (const std::wstring& name : names) all += name + L";";
    return all;
  }
  DWORD Move(const char* from, const char* to) const {
    return MoveFileW(Path(from), Path(to)) ? 0 : GetLastError();
  }

  const TempFolder m_Folder;
};

}  // namespace

TEST_F(FileMovesTest, AFileIsMovedUnlessItIsInTheWayOrInUse) {
  EXPECT_EQ(Names("") + Names("none") + Names("a"), L"a;b;");
  EXPECT_EQ(Move("a", "b"), 183u);
  EXPECT_EQ(Move("none", "c"), 2u);
  EXPECT_EQ(Move("a", "none/c"), 3u);
  const HANDLE open = CreateFileW(Path("a"), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  EXPECT_EQ(Move("a", "sub/a"), 32u);
  CloseHandle(open);
  EXPECT_EQ(Move("a", "sub/a"), 0u);
  EXPECT_EQ(Names("") + Names("sub"), L"b;a;");
  EXPECT_TRUE(DeleteFileW(Path("b")));
  EXPECT_FALSE(DeleteFileW(Path("b")));
  EXPECT_EQ(GetLastError(), 2u);
}

TEST_F(FileMovesTest, AFileEndsWhereItsHandleStands) {
  const HANDLE file = CreateFileW(Path("a"), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  for (const std::int64_t size : {5, 0}) {
    LARGE_INTEGER end;
    end.QuadPart = size;
    EXPECT_TRUE(SetFilePointerEx(file, end, nullptr, 0) && SetEndOfFile(file));
    EXPECT_EQ(fs::file_size(m_Folder.Path() / "a"), static_cast<std::uintmax_t>(size));
  }
  CloseHandle(file);
  EXPECT_FALSE(SetEndOfFile(file));
}
