#include <cstdint>
#include <cstdlib>
#include <new>

#include "platform/platform.h"

namespace {

constexpr DWORD kNotEnoughMemory = 8;
constexpr DWORD kDiscarded = 157;
constexpr DWORD kNotLocked = 158;

struct Block {
  void* memory;  // null for 0 bytes
  std::size_t size;
  unsigned locks;
};

Block* BlockOf(HGLOBAL handle) {
  return static_cast<Block*>(handle);
}

HGLOBAL NoMemory() {
  SetLastError(kNotEnoughMemory);
  return nullptr;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, std::size_t bytes) {
  if (bytes > PTRDIFF_MAX) return NoMemory();  // what looks for memory errors takes it for one
  void* memory = nullptr;
  if (bytes > 0) memory = flags & GMEM_ZEROINIT ? std::calloc(1, bytes) : std::malloc(bytes);
  Block* const block = memory || bytes == 0 ? new (std::nothrow) Block{memory, bytes, 0} : nullptr;
  if (block) return block;
  std::free(memory);
  return NoMemory();
}

HGLOBAL GlobalReAlloc(HGLOBAL handle, std::size_t bytes, UINT) {
  if (bytes > PTRDIFF_MAX) return NoMemory();
  Block* const block = BlockOf(handle);
  void* memory = nullptr;
  if (bytes == 0)
    std::free(block->memory);
  else if (memory = std::realloc(block->memory, bytes); !memory)
    return NoMemory();
  block->memory = memory;
  block->size = bytes;
  return handle;
}

std::size_t GlobalSize(HGLOBAL handle) {
  return handle ? BlockOf(handle)->size : 0;
}

void* GlobalLock(HGLOBAL handle) {
  Block* const block = BlockOf(handle);
  if (!block) return nullptr;
  if (!block->memory) {
    SetLastError(kDiscarded);
    return nullptr;
  }
  ++block->locks;
  return block->memory;
}

BOOL GlobalUnlock(HGLOBAL handle) {
  Block* const block = BlockOf(handle);
  const bool locked = block && block->locks > 0;
  SetLastError(locked ? 0 : kNotLocked);
  return locked && --block->locks > 0;
}

HGLOBAL GlobalFree(HGLOBAL handle) {
  Block* const block = BlockOf(handle);
  if (block) std::free(block->memory);
  delete block;
  return nullptr;
}
