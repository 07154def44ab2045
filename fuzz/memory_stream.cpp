// Memory streams: any sequence of operations leaves what the same steps leave in a plain row of bytes, and every byte
// of the capacity may be read.
#include <algorithm>
#include <climits>
#include <cstring>
#include <string>

#include "blob.h"
#include "fuzz.h"

namespace {

constexpr int kMost = 40000;

struct Model {
  std::string content;
  long long position = 0;
  // What became content without being written is whatever the block held.
  long long unknownFrom = 0, unknownTo = 0;

  long long Size() const { return static_cast<long long>(content.size()); }
  void Resize(long long size) { content.resize(static_cast<std::size_t>(size)); }
  void Extend(long long size) {
    if (size <= Size()) return;
    unknownFrom = Size(), unknownTo = size;
    Resize(size);
  }
  int Append(const std::string& bytes, int count) {
    if (position < 0 || count <= 0) return 0;
    Extend(position);
    Resize(std::max(Size(), position + count));
    content.replace(static_cast<std::size_t>(position), static_cast<std::size_t>(count), bytes);
    position += count;
    return count;
  }
  int Read(std::string& bytes, int count) {
    if (position < 0 || position >= Size() || count <= 0) return 0;
    bytes = content.substr(static_cast<std::size_t>(position), static_cast<std::size_t>(count));
    position += static_cast<long long>(bytes.size());
    return static_cast<int>(bytes.size());
  }
  void Seek(int offset, int origin) {
    const long long from[] = {0, position, Size()};
    position = std::clamp<long long>(from[origin] + offset, INT_MIN, INT_MAX);
  }
};

// The bytes of a buffer with room for `count`, taken from the stream itself when it has so many.
std::string Source(const Model& model, int count, bool own) {
  const auto size = static_cast<std::size_t>(std::max(count, 0));
  return own ? model.content.substr(0, size) : std::string(size, static_cast<char>('a' + count % 26));
}

void Step(TBlob& blob, Model& model, int operation, int number) {
  const int count = number % kMost;
  const bool own = operation >= 8 && count > 0 && count <= blob.GetSize();
  const std::string bytes = Source(model, count, own);
  const void* const source = own ? blob.GetData() : bytes.data();
  std::string read(static_cast<std::size_t>(std::max(count, 0)), '\0'), expected;
  switch (operation % 8) {
    case 0:
    case 1:
      if (model.position > kMost * 4) return;  // no memory for what lies so far out
      FUZZ_ASSERT(blob.Append(source, count) == model.Append(bytes, count));
      return;
    case 2:
      model = {};
      FUZZ_ASSERT(blob.Write(source, count) == model.Append(bytes, count));
      return;
    case 3: {
      const int taken = blob.Read(read.data(), count);
      FUZZ_ASSERT(taken == model.Read(expected, count));
      FUZZ_ASSERT(read.compare(0, expected.size(), expected) == 0);
      return;
    }
    case 4:
      model.Seek(number, operation % 3);
      FUZZ_ASSERT(blob.Seek(number, static_cast<unsigned short>(operation % 3)) == model.position);
      return;
    case 5:
      if (count < 0) return blob.SetSize(count);
      blob.SetSize(count);
      model.Extend(count);
      model.Resize(count);
      model.position = std::min(model.position, model.Size());
      return;
    case 6:
      blob.SetCapacity(count);
      if (blob.GetCapacity() >= model.Size()) return;
      FUZZ_ASSERT(count >= 0 && blob.GetCapacity() >= count && blob.GetCapacity() - count < 8192);
      model.Resize(blob.GetCapacity());
      model.position = std::min(model.position, model.Size());
      return;
    default:
      if (count % 8) {
        TBlob copy(blob);
        blob = copy;
      } else {
        blob.Clear();
        model = {};
      }
  }
}

void Adopt(const TBlob& blob, Model& model) {
  const auto* const bytes = static_cast<const char*>(blob.GetData());
  const auto from = static_cast<std::size_t>(model.unknownFrom);
  const auto count = static_cast<std::size_t>(model.unknownTo - model.unknownFrom);
  if (count > 0) model.content.replace(from, count, bytes + from, count);
  model.unknownFrom = model.unknownTo = 0;
}

void CheckState(const TBlob& blob, const Model& model) {
  FUZZ_ASSERT(blob.GetSize() == model.Size() && blob.GetCapacity() >= blob.GetSize());
  FUZZ_ASSERT(model.content.empty() ||
              std::memcmp(blob.GetData(), model.content.data(), model.content.size()) == 0);
  if (blob.GetCapacity() > 0)
    FUZZ_ASSERT(std::memchr(blob.GetData(), -1, static_cast<std::size_t>(blob.GetCapacity())) == nullptr);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  TBlob blob;
  Model model;
  for (std::size_t i = 0; i + 5 <= size; i += 5) {
    int number = 0;
    std::memcpy(&number, data + i + 1, sizeof number);
    // Small numbers, of which most steps are made, as often as all others.
    Step(blob, model, data[i] & 15, data[i] & 16 ? number : number % kMost);
    Adopt(blob, model);
    CheckState(blob, model);
  }
  return 0;
}
