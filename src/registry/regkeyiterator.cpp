#include "exceptions.h"
#include "regkey.h"

#define QEL_SOURCE L"src/registry/regkeyiterator"

int TRegKeyIterator::operator[](int index) {
  QEL_REQUIRE(IsInside(index), L"(index >= 0) && (index < int(Key.GetSubkeyCount()))");
  return m_Index = index;
}

int TRegValueIterator::operator[](int index) {
  QEL_REQUIRE(IsInside(index), L"(index >= 0) && (index < int(Key.GetValueCount()))");
  return m_Index = index;
}
