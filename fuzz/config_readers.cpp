// Typed settings from any stored text: what a reader took is what its writer and it agree on, what it refused is
// left alone, and numbers are those of the C runtime where the text is ASCII.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <limits>
#include <string>

#include "fuzz.h"
#include "support/text_store.h"

namespace {

constexpr wchar_t kSection[] = L"s";
constexpr wchar_t kEntry[] = L"e";
constexpr std::size_t kShortest = 39;  // what the readers of the shortest forms take

// Fills the whole buffer where the text is longer, and leaves no terminator then.
class Store : public TextStore {
 public:
  explicit Store(const std::wstring& text) { WriteString(kSection, kEntry, text.c_str()); }

  using TextStore::ReadString;
  int ReadString(const wchar_t* section, const wchar_t* entry, wchar_t* buffer, unsigned size,
                 const wchar_t* defaultValue) const override {
    const auto found = sections.find(section);
    const bool there = found != sections.end() && found->second.contains(entry);
    std::wstring text = there ? found->second.at(entry) : defaultValue;
    text += L'\0';
    return static_cast<int>(text.copy(buffer, size));
  }

  const std::wstring& Text() const { return sections.at(kSection).at(kEntry); }
};

// The reader's answer, written and read again, is the same; a refusal leaves the output as it was.
template <class Value, class Read, class Write, class Same>
void CheckPair(Store store, const Value& before, Read read, Write write, Same same) {
  Value value = before;
  if (!read(store, value)) {
    FUZZ_ASSERT(same(value, before));
    return;
  }
  FUZZ_ASSERT(!store.Text().empty());
  write(store, value);
  if (store.Text().size() > kShortest && sizeof(value) < sizeof(LOGFONTW)) return;
  Value again = before;
  FUZZ_ASSERT(read(store, again));
  FUZZ_ASSERT(same(value, again));
}

#define CHECK_PAIR(Type, before, same)                                                                     \
  CheckPair(                                                                                               \
      store, T##Type before, [](const Store& s, T##Type& v) { return s.Read##Type(kSection, kEntry, v); }, \
      [](Store& s, T##Type& v) { s.Write##Type(kSection, kEntry, v); }, same)

void CheckPairs(const Store& store) {
  const auto equal = [](const auto& a, const auto& b) { return a == b; };
  CHECK_PAIR(Point, (TPoint{7, 7}), equal);
  CHECK_PAIR(Size, (TSize{7, 7}), equal);
  CHECK_PAIR(Rect, (TRect{7, 7, 7, 7}), equal);
  CHECK_PAIR(Date, (TDate(7, 7, 7)), equal);
  // Parts below 0 are written as the large numbers that they are taken for.
  CHECK_PAIR(Time, (TTime(7, 7, 7)), [](const TTime& a, const TTime& b) {
    const auto part = [](unsigned p) { return std::min(p, 0x7FFFFFFFU); };
    return part(a.Hour()) == part(b.Hour()) && part(a.Minute()) == part(b.Minute()) &&
           part(a.Second()) == part(b.Second());
  });
  CHECK_PAIR(SystemTime, (SYSTEMTIME{7, 7, 7, 7, 7, 7, 7, 7}),
             [](const SYSTEMTIME& a, const SYSTEMTIME& b) { return std::memcmp(&a, &b, sizeof(a)) == 0; });
  using TFont = LOGFONTW;
  CHECK_PAIR(Font, (LOGFONTW{7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, L"seven"}),
             [](const LOGFONTW& a, const LOGFONTW& b) { return std::memcmp(&a, &b, sizeof(a)) == 0; });
}

void CheckColor(const Store& store) {
  TColor color(7, 7, 7);
  if (!store.ReadColor(kSection, kEntry, color)) {
    FUZZ_ASSERT(color == TColor(7, 7, 7));
    return;
  }
  FUZZ_ASSERT(color.Flags() == 0);
  FUZZ_ASSERT(std::count(store.Text().begin(), store.Text().end(), L',') >= 2);
}

// A second way to the numbers. The runtime's own is used on ASCII alone, where no rule of ours is another.
void CheckNumbers(Store store) {
  const std::wstring text = store.Text().substr(0, 79);
  const bool ascii = std::all_of(text.begin(), text.end(), [](wchar_t ch) { return ch < 0x80; });
  const int integer = store.ReadInteger(kSection, kEntry, 7);
  const double number = store.ReadDouble(kSection, kEntry, 7);
  if (text.empty()) {
    FUZZ_ASSERT(integer == 7 && number == 7);
    return;
  }
  if (ascii) {
    using Limits = std::numeric_limits<int>;
    const long wide = std::wcstol(store.Text().substr(0, 259).c_str(), nullptr, 10);
    FUZZ_ASSERT(integer == std::clamp<long>(wide, Limits::min(), Limits::max()));
    const double theirs = std::wcstod(text.c_str(), nullptr);
    FUZZ_ASSERT(std::bit_cast<std::uint64_t>(number) == std::bit_cast<std::uint64_t>(theirs) ||
                (std::isnan(number) && std::isnan(theirs)));
  }
  store.WriteInteger(kSection, kEntry, integer);
  FUZZ_ASSERT(store.ReadInteger(kSection, kEntry, 7) == integer);
  store.WriteDouble(kSection, kEntry, number);
  const double again = store.ReadDouble(kSection, kEntry, 7);
  FUZZ_ASSERT(std::bit_cast<std::uint64_t>(again) == std::bit_cast<std::uint64_t>(number) ||
              std::isnan(number));
}

void CheckBool(const Store& store) {
  bool value = false;
  const bool known = TConfigFile::StringToBool(store.Text().c_str(), &value);
  FUZZ_ASSERT(store.ReadBool(kSection, kEntry, true) == (known ? value : true));
  FUZZ_ASSERT(store.ReadBool(kSection, kEntry, false) == (known ? value : false));
}

void CheckData(Store store, unsigned size) {
  std::string data(size + 1, '\x07');
  const bool read = store.ReadData(kSection, kEntry, data.data(), size);
  FUZZ_ASSERT(read == (size != 0 && !store.Text().empty()));
  FUZZ_ASSERT(data[size] == '\x07');
  store.WriteData(kSection, kEntry, data.data(), size);
  std::string again(size + 1, '\x07');
  FUZZ_ASSERT(store.ReadData(kSection, kEntry, again.data(), size) == (size != 0));
  FUZZ_ASSERT(again == data);
}

// What was loaded once does not change when it is loaded on.
void CheckLoading(const Store& store) {
  TextStore once, twice;
  once.LoadValues(store);
  twice.LoadValues(once);
  FUZZ_ASSERT(once.sections == twice.sections);
}

}  // namespace

// The first byte chooses how the others are text, and how many bytes are read as data.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Store store(data[0] % 2 ? Units(data + 1, size - 1) : AsciiUnits(data + 1, size - 1));
  CheckPairs(store);
  CheckColor(store);
  CheckNumbers(store);
  CheckBool(store);
  CheckData(store, data[0] / 2);
  CheckLoading(store);
  return 0;
}
