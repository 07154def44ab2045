#include <sqlite3.h>

#include <string>
#include <vector>

#include "compare.h"
#include "pxsf.h"
#include "regconfig.h"
#include "regkey.h"
#include "settings_folder.h"

#ifdef QEL_BENCH_QT
#include <QSettings>
#include <QString>
#endif

namespace {

// Names of entries, even ones numbers, odd ones texts.
std::string Name(unsigned i) {
  return "Entry" + std::to_string(i);
}
std::wstring WideName(unsigned i) {
  const std::string name = Name(i);
  return {name.begin(), name.end()};
}

// A section "Of<count>" with so many entries.
template <unsigned Count>
const std::wstring& Section() {
  static const std::wstring s_Name = [] {
    SettingsFolder();
    const std::wstring name = L"Of" + std::to_wstring(Count);
    TQelReg settings;
    for (unsigned i = 0; i < Count; i += 2) {
      settings.WriteInteger(name.c_str(), WideName(i).c_str(), static_cast<int>(i));
      settings.WriteString(name.c_str(), WideName(i + 1).c_str(), L"X=10,Y=20");
    }
    return name;
  }();
  return s_Name;
}

// 1,024 names spread over the section; even ones, or odd ones.
template <class Text, unsigned Count>
const std::vector<Text>& Names(unsigned odd) {
  static const auto s_Make = [](unsigned offset) {
    std::vector<Text> names;
    for (unsigned i = 0; i < 1024; ++i) {
      const std::string name = Name(i * 7919U % (Count / 2) * 2 + offset);
      names.emplace_back(Text(name.begin(), name.end()));
    }
    return names;
  };
  static const std::vector<Text> s_Names[] = {s_Make(0), s_Make(1)};
  return s_Names[odd];
}

template <unsigned Count>
void OursInt(benchmark::State& state) {
  const auto& section = Section<Count>();
  const auto& names = Names<std::wstring, Count>(0);
  // A large section is taken into memory when it has been read often.
  for (unsigned i = 0; i < Count / 2; ++i) pxGetProfileInt(section.c_str(), names[i & 1023U].c_str(), -1);
  Cycle(state, [&](unsigned i) {
    benchmark::DoNotOptimize(pxGetProfileInt(section.c_str(), names[i].c_str(), -1));
  });
}

template <unsigned Count>
void OursString(benchmark::State& state) {
  const auto& section = Section<Count>();
  const auto& names = Names<std::wstring, Count>(1);
  CString value;
  Cycle(state, [&](unsigned i) { pxGetProfileString(section.c_str(), names[i].c_str(), L"", value); });
}

void OursWrite(benchmark::State& state) {
  const auto& section = Section<100>();
  const auto& names = Names<std::wstring, 100>(0);
  Cycle(state,
        [&](unsigned i) { pxWriteProfileInt(section.c_str(), names[i].c_str(), static_cast<int>(i)); });
}

// One step is one value.
void OursEnumerate(benchmark::State& state) {
  const std::wstring path = L"Software\\qelmarsoft\\Qelmar\\9.0\\" + Section<10000>();
  const TRegKey key(HKEY_CURRENT_USER, path.c_str(), KEY_READ, TRegKey::OpenOnly);
  TRegValueIterator at(key);
  wchar_t name[260];
  unsigned char data[260];
  for (auto _ : state) {
    unsigned int length = 260, type = 0, size = 260;
    benchmark::DoNotOptimize(key.EnumValue(at.GetIndex(), name, length, &type, data, &size));
    if (!++at) at.Reset();
  }
}

// A table of entries by name, with the settings that our store uses.
class Table {
 public:
  Table() {
    sqlite3_open((SettingsFolder() + "/peer.db").c_str(), &m_Database);
    Run("PRAGMA page_size=1024; PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL;"
        "CREATE TABLE entries (section TEXT, name TEXT, value, PRIMARY KEY (section, name)) WITHOUT ROWID; "
        "BEGIN");
    for (unsigned i = 0; i < 10000; ++i)
      Run("INSERT INTO entries VALUES ('Of10000', '" + Name(i) + "', " + std::to_string(i) + ")");
    Run("COMMIT");
    Prepare("SELECT value FROM entries WHERE section = ?1 AND name = ?2", m_Read);
    Prepare("INSERT INTO entries VALUES (?1, ?2, ?3) ON CONFLICT DO UPDATE SET value = ?3", m_Write);
  }
  int Read(const std::string& name) {
    Bind(m_Read, name);
    sqlite3_step(m_Read);
    const int value = sqlite3_column_int(m_Read, 0);
    sqlite3_reset(m_Read);
    return value;
  }
  void Write(const std::string& name, int value) {
    Bind(m_Write, name);
    sqlite3_bind_int(m_Write, 3, value);
    sqlite3_step(m_Write);
    sqlite3_reset(m_Write);
  }

 private:
  void Run(const std::string& statement) {
    sqlite3_exec(m_Database, statement.c_str(), nullptr, nullptr, nullptr);
  }
  void Prepare(const char* text, sqlite3_stmt*& statement) {
    sqlite3_prepare_v2(m_Database, text, -1, &statement, nullptr);
  }
  static void Bind(sqlite3_stmt* statement, const std::string& name) {
    sqlite3_bind_text(statement, 1, "Of10000", -1, SQLITE_STATIC);
    sqlite3_bind_text(statement, 2, name.c_str(), static_cast<int>(name.size()), SQLITE_STATIC);
  }

  sqlite3* m_Database = nullptr;
  sqlite3_stmt* m_Read = nullptr;
  sqlite3_stmt* m_Write = nullptr;
};

Table& SqliteTable() {
  static Table s_Table;
  return s_Table;
}

void SqliteRead(benchmark::State& state) {
  const auto& names = Names<std::string, 10000>(0);
  Table& table = SqliteTable();
  Cycle(state, [&](unsigned i) { benchmark::DoNotOptimize(table.Read(names[i])); });
}

void SqliteWrite(benchmark::State& state) {
  const auto& names = Names<std::string, 100>(0);
  Table& table = SqliteTable();
  Cycle(state, [&](unsigned i) { table.Write(names[i], static_cast<int>(i)); });
}

#ifdef QEL_BENCH_QT
// Kept open over all calls.
template <unsigned Count>
QSettings& Qt() {
  static QSettings s_Settings(
      QString::fromStdString(SettingsFolder() + "/peer" + std::to_string(Count) + ".ini"),
      QSettings::IniFormat);
  static const bool s_Filled = [] {
    for (unsigned i = 0; i < Count; i += 2) {
      s_Settings.setValue(QString::fromStdString("Section/" + Name(i)), static_cast<int>(i));
      s_Settings.setValue(QString::fromStdString("Section/" + Name(i + 1)), "X=10,Y=20");
    }
    s_Settings.sync();
    return true;
  }();
  benchmark::DoNotOptimize(s_Filled);
  return s_Settings;
}

template <unsigned Count>
std::vector<QString> QtNames(unsigned odd) {
  std::vector<QString> names;
  for (const std::string& name : Names<std::string, Count>(odd))
    names.push_back(QString::fromStdString("Section/" + name));
  return names;
}

template <unsigned Count>
void QtInt(benchmark::State& state) {
  const QSettings& settings = Qt<Count>();
  const auto names = QtNames<Count>(0);
  Cycle(state, [&](unsigned i) { benchmark::DoNotOptimize(settings.value(names[i], -1).toInt()); });
}

template <unsigned Count>
void QtString(benchmark::State& state) {
  const QSettings& settings = Qt<Count>();
  const auto names = QtNames<Count>(1);
  Cycle(state, [&](unsigned i) { benchmark::DoNotOptimize(settings.value(names[i]).toString()); });
}

void QtWrite(benchmark::State& state) {
  QSettings& settings = Qt<100>();
  const auto names = QtNames<100>(0);
  Cycle(state, [&](unsigned i) {
    settings.setValue(names[i], i);
    settings.sync();  // another process sees it, as it sees ours
  });
}

void QtEnumerate(benchmark::State& state) {
  QSettings& settings = Qt<10000>();
  settings.beginGroup("Section");
  QStringList names;
  int at = 0;
  for (auto _ : state) {
    if (at == 0) names = settings.childKeys();
    benchmark::DoNotOptimize(settings.value(names[at]));
    at = (at + 1) % names.size();
  }
  settings.endGroup();
}
#else
template <unsigned Count>
constexpr Body QtInt = nullptr;
template <unsigned Count>
constexpr Body QtString = nullptr;
constexpr Body QtWrite = nullptr;
constexpr Body QtEnumerate = nullptr;
#endif

const bool kAdded =
    Compare("pxGetProfileInt, of 100", OursInt<100>, {{"QSettings kept open", AtLeast(1), QtInt<100>}}) &&
    Compare(
        "pxGetProfileInt, of 10,000", OursInt<10000>,
        {{"QSettings kept open", AtLeast(1), QtInt<10000>}, {"SQLite point read", AtLeast(5), SqliteRead}}) &&
    Compare("pxGetProfileInt, of 100,000", OursInt<100000>, {{"ours of 100", AtMost(3), OursInt<100>}}) &&
    Compare("pxGetProfileString, of 10,000", OursString<10000>,
            {{"QSettings kept open", AtLeast(1), QtString<10000>},
             {"SQLite point read", AtLeast(5), SqliteRead}}) &&
    Compare("pxWriteProfileInt", OursWrite,
            {{"SQLite upsert", AtMost(1.5), SqliteWrite}, {"QSettings, synced", AtLeast(30), QtWrite}}) &&
    Compare("value by index", OursEnumerate, {{"QSettings", AtLeast(4), QtEnumerate}});

}  // namespace
