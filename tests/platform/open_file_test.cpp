#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <locale>
#include <sstream>
#include <string>
#include <thread>

#include "platform/platform.h"
#include "support/documents.h"
#include "support/golden.h"

namespace {

namespace fs = std::filesystem;

// A folder "gold" to open files in, which is also where the process stands. "@" in front of a recorded name is the
// folder that it lies in.
class OpenFileTest : public testing::Test {
 protected:
  OpenFileTest() : m_Before(fs::current_path()) {
    fs::create_directories(Gold() / "dir");
    fs::current_path(Gold());
    MakeFiles();
  }
  ~OpenFileTest() override {
    fs::current_path(m_Before);
    fs::permissions(Gold() / "ro.txt", fs::perms::owner_all);  // Windows removes no read-only file
  }

  fs::path Gold() const { return m_Folder.Path() / "gold"; }
  // The files as every recorded row found them.
  void MakeFiles() const {
    for (const fs::path& name : {fs::path("f.txt"), fs::path("ro.txt"), fs::path(u8"\u0645\u0644\u0641.txt"),
                                 fs::path(std::string(240, 'n'))}) {
      std::error_code readOnly;
      fs::permissions(Gold() / name, fs::perms::owner_all, readOnly);
      std::ofstream(Gold() / name, std::ios::binary) << "0123456789";
    }
    fs::permissions(Gold() / "ro.txt", fs::perms::owner_read);
    fs::remove(Gold() / "missing.txt");
  }
  std::optional<std::wstring> Name(const GoldenRow& row) const {
    const auto name = row.Wide("name");
    return name && name->starts_with(L'@') ? m_Folder.Path().wstring() + name->substr(1) : name;
  }
  static std::string Content(const fs::path& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  const TempFolder m_Folder;
  const fs::path m_Before;
};

bool IsForThisSystem(const GoldenRow& row) {
  return row["system"] == "both" || (row["system"] == "windows") == RunsOnWindows();
}

struct Opening {
  DWORD access, share, disposition;
};

// The ways in which the library opens files.
constexpr Opening kModes[] = {{0, 0, 0},
                              {GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING},
                              {GENERIC_WRITE, 0, OPEN_EXISTING},
                              {GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, OPEN_EXISTING},
                              {GENERIC_WRITE, 0, CREATE_ALWAYS}};

HANDLE Open(const wchar_t* name, const Opening& how) {
  SetLastError(0xDEAD);
  return CreateFileW(name, how.access, how.share, nullptr, how.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// "1 0": whether it could be opened, and the last error.
std::string Outcome(const wchar_t* name, const Opening& how) {
  const HANDLE file = Open(name, how);
  const DWORD code = GetLastError();
  if (file == INVALID_HANDLE_VALUE) return std::string("0 ").append(std::to_string(code));
  CloseHandle(file);
  return std::string("1 ").append(std::to_string(code));
}

// As recorded: "mode 2", "read share 3" or "access 0 share 0".
Opening OpeningOf(const std::string& words) {
  std::istringstream text(words);
  std::string what, share;
  DWORD number = 0;
  text >> what;
  if (what == "mode") text >> number;
  if (what == "mode") return kModes[number];
  if (what == "access") text >> share;
  text >> share >> number;
  const DWORD access = what == "read" ? GENERIC_READ : what == "write" ? GENERIC_WRITE : 0;
  return {access, number, OPEN_EXISTING};
}

std::string Recorded(std::int64_t result, const std::string& output) {
  const DWORD code = GetLastError();
  return std::to_string(result) + " " + (code == 0xDEAD ? "-" : std::to_string(code)) + " " + output;
}

std::string Transferred(DWORD count) {
  return std::string("n=").append(std::to_string(count));
}

// One recorded call on the handle, as "ReadFile 2".
std::string Answer(HANDLE file, const std::string& call) {
  std::istringstream words(call);
  std::string name;
  words >> name;
  DWORD count = 0;
  SetLastError(0xDEAD);
  if (name == "CloseHandle") return Recorded(CloseHandle(file), "-");
  if (name == "SetFilePointerEx") {
    LARGE_INTEGER distance, position;
    DWORD origin = 0;
    words >> distance.QuadPart >> origin;
    const BOOL moved = SetFilePointerEx(file, distance, &position, origin);
    return Recorded(moved ? position.QuadPart : -1, "-");
  }
  if (name == "GetFileInformationByHandle") {
    BY_HANDLE_FILE_INFORMATION found{};
    const BOOL done = GetFileInformationByHandle(file, &found);
    std::ostringstream output;
    output.imbue(std::locale::classic());
    output << "size=" << found.nFileSizeLow << " attr=" << std::hex << found.dwFileAttributes;
    return Recorded(done, output.str());
  }
  if (name == "ReadFile") {
    std::string buffer(100, '?');
    DWORD size = 0;
    words >> size;
    const BOOL done = ReadFile(file, buffer.data(), size, &count, nullptr);
    const std::string data = count ? SpelledBytes(buffer.substr(0, count)) : "-";
    return Recorded(done, Transferred(count) + " data=" + data);
  }
  std::string data;
  words >> data;
  if (data == "<empty>") data.clear();
  const BOOL done = WriteFile(file, data.data(), static_cast<DWORD>(data.size()), &count, nullptr);
  return Recorded(done, Transferred(count));
}

}  // namespace

TEST_F(OpenFileTest, OpensWhatWindowsOpens) {
  for (const auto& row : GoldenTable("createfile.tsv")) {
    if (!IsForThisSystem(row)) continue;
    MakeFiles();
    const auto name = Name(row);
    ExpectAnswer(row, Outcome(name ? name->c_str() : nullptr, kModes[row.Int("mode")]));
  }
}

TEST_F(OpenFileTest, NamesFilesAsWindowsDoes) {
  for (const auto& row : GoldenTable("fileattr.tsv")) {
    if (!IsForThisSystem(row)) continue;
    const auto name = Name(row);
    SetLastError(0xDEAD);
    std::ostringstream answer;
    answer.imbue(std::locale::classic());
    answer << std::hex << std::uppercase << GetFileAttributesW(name ? name->c_str() : nullptr) << std::dec;
    answer << (GetLastError() == 0xDEAD ? std::string(" -")
                                        : std::string(" ").append(std::to_string(GetLastError())));
    ExpectAnswer(row, answer.str());
  }
}

TEST_F(OpenFileTest, SharesFilesAsWindowsDoes) {
  for (const auto& row : GoldenTable("sharing.tsv")) {
    if (!IsForThisSystem(row)) continue;
    const HANDLE first = Open(L"f.txt", kModes[row.Int("first_mode")]);
    DWORD written = 0;
    WriteFile(first, "first", 5, &written, nullptr);
    const std::string before = Content("f.txt");
    ExpectAnswer(row, Outcome(L"f.txt", OpeningOf(row["second"])));
    EXPECT_EQ(Content("f.txt"), before) << row.where << ": a refused opening has changed the file";
    CloseHandle(first);
    EXPECT_EQ(Outcome(L"f.txt", kModes[2]), "1 0");
  }
}

TEST_F(OpenFileTest, ReadsAndWritesAsRecorded) {
  std::string mode;
  HANDLE file = nullptr;
  for (const auto& row : GoldenTable("fileio.tsv")) {
    if (row["mode"] != mode) {
      MakeFiles();
      mode = row["mode"];
      file = Open(L"f.txt", kModes[row.Int("mode")]);
    }
    ExpectAnswer(row, Answer(file, row["call"]));
  }
  EXPECT_EQ(Answer(INVALID_HANDLE_VALUE, "ReadFile 1"), "0 6 n=0 data=-");
  EXPECT_EQ(Answer(nullptr, "CloseHandle"), "0 6 -");
  EXPECT_EQ(Answer(GetCurrentProcess(), "CloseHandle"), "1 - -");
}

TEST_F(OpenFileTest, MakesFilesByDisposition) {
  const struct {
    const wchar_t* name;
    DWORD disposition;
    const char* outcome;
    const char* content;
  } rows[] = {
      {L"new", CREATE_NEW, "1 0", ""},        {L"f.txt", CREATE_NEW, "0 80", "0123456789"},
      {L"F.TXT", CREATE_NEW, "0 80", "-"},    {L"dir", CREATE_NEW, "0 80", "-"},
      {L"newer", OPEN_ALWAYS, "1 0", ""},     {L"f.txt", OPEN_ALWAYS, "1 183", "0123456789"},
      {L"nodir\\x", CREATE_NEW, "0 3", "-"},  {L"nodir/x", OPEN_ALWAYS, "0 3", "-"},
      {L"f.txt", CREATE_ALWAYS, "1 183", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Outcome(row.name, {GENERIC_WRITE, 0, row.disposition}), row.outcome);
    if (*row.content != '-') {
      EXPECT_EQ(Content(row.name), row.content);
    }
  }
}

TEST_F(OpenFileTest, CopiesOfAHandleShareItsPositionAndItsPlaceAmongOthers) {
  HANDLE file = Open(L"f.txt", kModes[1]), copy = nullptr;
  ASSERT_TRUE(
      DuplicateHandle(GetCurrentProcess(), file, GetCurrentProcess(), &copy, 0, 0, DUPLICATE_SAME_ACCESS));
  EXPECT_NE(copy, file);
  EXPECT_EQ(Answer(file, "ReadFile 2"), "1 - n=2 data=3031");
  CloseHandle(file);
  EXPECT_EQ(Answer(copy, "ReadFile 1"), "1 - n=1 data=32");
  EXPECT_EQ(Outcome(L"f.txt", kModes[2]), "0 32");
  CloseHandle(copy);
  EXPECT_FALSE(
      DuplicateHandle(GetCurrentProcess(), file, GetCurrentProcess(), &copy, 0, 0, DUPLICATE_SAME_ACCESS));
  EXPECT_EQ(GetLastError(), 6u);
}

class LinuxOpenFileTest : public OpenFileTest {};

TEST_F(LinuxOpenFileTest, NamesStandForTheOnlyOneInAnotherCase) {
  if (RunsOnWindows()) GTEST_SKIP() << "there, no two names differ by case alone";
  for (const char* name : {"Two", "TWO", "Sub/One"}) {
    fs::create_directories("Sub");
    std::ofstream(name) << name;
  }
  const struct {
    const wchar_t* name;
    DWORD disposition;
    const char* outcome;
  } rows[] = {
      {L"Two", OPEN_EXISTING, "1 0"},        {L"two", OPEN_EXISTING, "0 2"},
      {L"two\\x", OPEN_EXISTING, "0 3"},     {L"sub\\ONE. .", OPEN_EXISTING, "1 0"},
      {L"sub\\ONE", CREATE_ALWAYS, "1 183"}, {L"SUB/New. ", CREATE_NEW, "1 0"},
      {L"SUB/New. ", OPEN_EXISTING, "1 0"},  {L"two", CREATE_NEW, "1 0"},
      {L"a*?<>|\"b:c", CREATE_NEW, "1 0"},   {L"\u0645.Ä", CREATE_NEW, "1 0"},
      {L"\u0645.ä", OPEN_EXISTING, "1 0"},   {L"\\dev\\null", CREATE_ALWAYS, "1 183"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(Outcome(row.name, {GENERIC_WRITE, 0, row.disposition}), row.outcome) << Spelled(row.name);
  for (const char* made : {"Sub/New. ", "two", "a*?<>|\"b:c"}) EXPECT_TRUE(fs::exists(made)) << made;
}

TEST_F(LinuxOpenFileTest, NoHandleIsGivenTwice) {
  if (RunsOnWindows()) GTEST_SKIP() << "there, numbers come back";
  const HANDLE stale = Open(L"f.txt", kModes[1]);
  CloseHandle(stale);
  std::thread others[2];
  for (std::thread& other : others)
    other = std::thread([stale] {
      for (int i = 0; i < 1000; ++i) {
        const HANDLE file = Open(L"f.txt", kModes[1]);
        EXPECT_EQ(Answer(file, "ReadFile 1"), "1 - n=1 data=30");
        EXPECT_EQ(Answer(stale, "ReadFile 1"), "0 6 n=0 data=-");
        CloseHandle(file);
      }
    });
  for (std::thread& other : others) other.join();
}
