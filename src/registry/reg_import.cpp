#include "registry/reg_text.h"

namespace {

using Kind = RegChange::Kind;

constexpr long kNotFound = 2;
constexpr BYTE kSignature[] = {0xFF, 0xFE};

bool TextOf(const std::vector<BYTE>& file, std::wstring& text) {
  if (file.size() < 2 || file[0] != kSignature[0] || file[1] != kSignature[1] || file.size() % 2 != 0)
    return false;
  text.resize(file.size() / 2 - 1);
  UnitsFromBytes(text.data(), text.size(), file.data() + 2, static_cast<DWORD>(file.size() - 2));
  return true;
}

// The trees in which something changes, each as one change.
class Transaction {
 public:
  Transaction() = default;
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction() { End(false); }

  long Include(HKEY root) {
    HKEY& tree = root == HKEY_CURRENT_USER || root == HKEY_USERS ? m_User : m_Machine;
    if (tree) return 0;
    const long status = BeginKeyChanges(root);
    if (status == 0) tree = root;
    return status;
  }
  long End(bool keep) {
    long status = 0;
    for (HKEY* tree : {&m_User, &m_Machine}) {
      if (*tree && status == 0)
        status = EndKeyChanges(*tree, keep);
      else if (*tree)
        EndKeyChanges(*tree, false);
      *tree = nullptr;
    }
    return status;
  }

 private:
  HKEY m_User = nullptr, m_Machine = nullptr;
};

class Importer {
 public:
  explicit Importer(TRegImportReport& report) : m_Report(report) {}
  Importer(const Importer&) = delete;
  Importer& operator=(const Importer&) = delete;
  ~Importer() { CloseKey(); }

  long Apply(const RegChange& change) {
    switch (change.kind) {
      case Kind::MakeKey:
        return Count(MakeKey(change), m_Report.keys);
      case Kind::DeleteKey:
        return Count(DeleteKey(change), m_Report.deletedKeys);
      case Kind::SetValue:
        return Count(SetValue(change), m_Report.values);
      default:
        return Count(Gone(RegDeleteValueW(m_Key, change.name.c_str())), m_Report.deletedValues);
    }
  }

 private:
  void CloseKey() {
    if (m_Key) RegCloseKey(m_Key);
    m_Key = nullptr;
  }
  long MakeKey(const RegChange& change) {
    CloseKey();
    return RegCreateKeyExW(change.root->key, change.name.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                           &m_Key, nullptr);
  }
  long DeleteKey(const RegChange& change) {
    CloseKey();
    return Gone(TRegKey(change.root->key, false, L"").NukeKey(change.name.c_str()));
  }
  // What follows the data is no terminator, which would be stored with an unterminated text.
  long SetValue(const RegChange& change) {
    std::vector<BYTE> data = change.data;
    data.insert(data.end(), 3, 0xFF);
    return RegSetValueExW(m_Key, change.name.c_str(), 0, change.type, data.data(),
                          static_cast<DWORD>(change.data.size()));
  }
  static long Gone(long status) { return status == kNotFound ? 0 : status; }
  static long Count(long status, int& counter) {
    counter += status == 0;
    return status;
  }

  TRegImportReport& m_Report;
  HKEY m_Key = nullptr;
};

long Apply(const std::vector<RegChange>& changes, std::wstring_view text, TRegImportReport& report) {
  Transaction transaction;
  Importer importer(report);
  long status = 0;
  const RegChange* refused = nullptr;
  for (const RegChange& change : changes) {
    if (change.IsOfKey()) status = transaction.Include(change.root->key);
    if (status == 0) status = importer.Apply(change);
    if (status == 0) continue;
    refused = &change;
    break;
  }
  const long ended = transaction.End(status == 0);
  if (status == 0) status = ended;
  if (status == 0) return 0;
  report = {};
  report.problem = TRegImportProblem::NotApplied;
  if (refused) SetPlace(report, text, refused->at);
  return status;
}

}  // namespace

long ImportRegistry(const wchar_t* path, TRegImportReport& report) {
  report = {};
  std::vector<BYTE> file;
  if (const long status = ReadWholeFile(path, file)) return status;
  std::wstring text;
  std::vector<RegChange> changes;
  if (!TextOf(file, text)) {
    report.problem = TRegImportProblem::NotRegistryText;
    return kInvalidData;
  }
  if (!ParseRegText(text, changes, report)) return kInvalidData;
  return Apply(changes, text, report);
}
